#pragma once

#include <cstdint>
#include <memory>

namespace platform {

struct FrameMemoryDeleter {
    void operator()(std::uint32_t* pixelsPtr) const;
};

/// The pixels of a frame, each row beginning at a multiple of 64 bytes.
struct FrameMemory {
    std::unique_ptr<std::uint32_t[], FrameMemoryDeleter> pixels;
    int width = 0;
    int height = 0;
    int stride = 0; // pixels from one row to the next

    std::uint32_t* Row(int y) const { return pixels.get() + static_cast<std::ptrdiff_t>(y) * stride; }
};

/// Transparent pixels, in large memory pages where the system has them. Throws std::bad_alloc if memory runs out.
FrameMemory MakeFrameMemory(int width, int height);

} // namespace platform
