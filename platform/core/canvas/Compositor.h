#pragma once

#include "platform/core/canvas/FrameMemory.h"
#include "platform/core/canvas/Placement.h"
#include "platform/core/canvas/SpriteBitmap.h"

#include <cstdint>
#include <vector>

namespace platform {

/// Paints pictures into a frame. Drawing only notes down what is to be painted; Compose then paints it band by band, in
/// memory small enough to stay in the first-level cache, and sends each finished band to the frame. So a frame is
/// written to memory once and never read, however often it is painted over, and what an opaque picture covers later is
/// not painted at all. Allocates only until its lists have grown beyond a usual frame.
class Compositor {
public:
    /// Borrows the frame. Throws std::bad_alloc if memory runs out.
    explicit Compositor(const FrameMemory& frame);

    /// Fills the frame with a premultiplied pixel, whatever its alpha.
    void Clear(std::uint32_t pixel);
    /// Paints a part of `bitmap`, which must live until Compose, with its alpha times `opacity` / 255. `linear`: blends
    /// the four nearest pixels, else takes the nearest one.
    void Draw(const SpriteBitmap& bitmap, const Placement& placement, std::uint32_t opacity, bool linear);
    /// Paints everything noted down, in order, and forgets it.
    void Compose();

private:
    struct alignas(64) CacheLine {
        std::uint32_t pixels[16] = {};
    };
    enum class Action { clear, paintCells, paintAnyhow };
    struct Command {
        Action action = Action::clear;
        RECT bounds;           // frame pixels, inside the frame
        bool hidesAll = false; // every pixel of `bounds` becomes this command's
        std::uint32_t pixel = 0;
        std::uint32_t opacity = 255;
        const SpriteBitmap* bitmapPtr = nullptr;
        AxisSteps columns;
        AxisSteps rows;
        std::size_t placement = 0;
        bool linear = false;
    };

    void Add(const Command& command);
    void SortIntoBands();
    void ComposeBand(int bandIndex);
    std::size_t FirstVisible(std::size_t begin, std::size_t end, int top, int bottom) const;
    void ClearRows(std::size_t index, int top, int bottom);
    void PaintCells(const Command& command, int top, int bottom);
    void PaintPictureRow(const Command& command, int pictureRow, int y, int count);
    void PaintStretch(const Command& command, const std::uint32_t* rowPtr, int column, int columnCount, bool isOpaque,
                      int y, int count);
    void PaintByLookup(const Command& command, int pictureRow, int y, int count);
    void PaintAnyhow(const Command& command, int top, int bottom);
    /// Where row `y` of the frame is painted now: in the frame itself or in the band.
    std::uint32_t* Row(int y) const { return targetPtr + static_cast<std::ptrdiff_t>(y - targetTop) * frame.stride; }

    const FrameMemory& frame;
    int bandHeight;
    std::vector<CacheLine> band;
    std::uint32_t* targetPtr = nullptr;
    int targetTop = 0;
    std::vector<Command> commands;
    std::vector<int> lookups;
    std::vector<Placement> placements;
    std::vector<std::uint32_t> bandBegins;   // band -> its first entry in `bandCommands`
    std::vector<std::uint32_t> bandCommands; // the commands of each band, in order
    std::vector<std::uint32_t> line;         // one row of the frame, expanded from picture pixels
};

} // namespace platform
