#include "tools/demo_player/AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<long> allocations = 0;
}

long AllocationCount() { return allocations; }

// Every allocation of the program goes through here.

void* operator new(std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* memoryPtr = std::malloc(size == 0 ? 1 : size)) return memoryPtr;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    allocations.fetch_add(1, std::memory_order_relaxed);
    return std::malloc(size == 0 ? 1 : size);
}

void* operator new(std::size_t size, std::align_val_t alignment) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    const auto boundary = static_cast<std::size_t>(alignment);
    if (void* memoryPtr = std::aligned_alloc(boundary, (size + boundary - 1) / boundary * boundary)) return memoryPtr;
    throw std::bad_alloc();
}

void operator delete(void* memoryPtr) noexcept { std::free(memoryPtr); }
void operator delete(void* memoryPtr, std::size_t) noexcept { std::free(memoryPtr); }
void operator delete(void* memoryPtr, std::align_val_t) noexcept { std::free(memoryPtr); }
void operator delete(void* memoryPtr, std::size_t, std::align_val_t) noexcept { std::free(memoryPtr); }
