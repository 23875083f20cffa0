#include "platform/core/canvas/FrameMemory.h"

#include <cstdlib>
#include <cstring>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace platform {

namespace {

constexpr std::size_t rowAlignment = 64;              // bytes: a cache line
constexpr std::size_t largePage = 2U * 1024U * 1024U; // bytes

} // namespace

void FrameMemoryDeleter::operator()(std::uint32_t* pixelsPtr) const {
    ::operator delete (pixelsPtr, std::align_val_t{largePage});
}

FrameMemory MakeFrameMemory(int width, int height) {
    constexpr int pixelsPerLine = static_cast<int>(rowAlignment / sizeof(std::uint32_t));
    FrameMemory frame;
    frame.width = width;
    frame.height = height;
    frame.stride = (width + pixelsPerLine - 1) / pixelsPerLine * pixelsPerLine;
    const std::size_t size =
        static_cast<std::size_t>(frame.stride) * static_cast<std::size_t>(height) * sizeof(std::uint32_t);
    void* memoryPtr = ::operator new (size, std::align_val_t{largePage});
#if defined(__linux__)
    // advice only: without large pages the frame is just as right. A whole frame is then one or two page faults, and
    // few address look-ups.
    madvise(memoryPtr, size, MADV_HUGEPAGE);
#endif
    std::memset(memoryPtr, 0, size);
    frame.pixels.reset(static_cast<std::uint32_t*>(memoryPtr));
    return frame;
}

} // namespace platform
