#pragma once

#include "platform/canvas/FrameMemory.h"
#include "platform/canvas/Placement.h"
#include "platform/canvas/SpriteBitmap.h"

#include <cstdint>
#include <vector>

namespace platform {

/// Paints pictures into a frame. Drawing only notes down what is to be painted; Compose then paints it band by band,
/// each band small enough to stay in the cache, so that a frame is written to memory once however often it is painted
/// over, and what an opaque picture covers later is not painted at all. Allocates only until its lists have grown to
/// the size of a frame.
class Compositor {
public:
    /// Borrows the frame.
    explicit Compositor(const FrameMemory& frame);

    /// Fills the frame with a premultiplied pixel, whatever its alpha.
    void Clear(std::uint32_t pixel);
    /// Paints a part of `bitmap`, which must live until Compose, with its alpha times `opacity` / 255. `linear`: blends
    /// the four nearest pixels, else takes the nearest one.
    void Draw(const SpriteBitmap& bitmap, const Placement& placement, std::uint32_t opacity, bool linear);
    /// Paints everything noted down, in order, and forgets it.
    void Compose();

    /// Sends every picture down the path for any transform; only a test wants that.
    void UseGeneralPathOnly() { generalPathOnly = true; }

private:
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
    std::size_t FirstVisible(int top, int bottom) const;
    void ClearBand(std::size_t index, int top, int bottom);
    void PaintCells(const Command& command, int top, int bottom);
    void PaintRow(const Command& command, int pictureRow, int y, int count);
    void PaintRowByLookup(const Command& command, int pictureRow, int y, int count);
    void PaintStretch(const Command& command, const std::uint32_t* rowPtr, int column, int columnCount, bool isOpaque,
                      int y, int count);
    void PaintAnyhow(const Command& command, int top, int bottom);

    const FrameMemory& frame;
    int bandHeight;
    bool generalPathOnly = false;
    std::vector<Command> commands;
    std::vector<int> lookups;
    std::vector<Placement> placements;
    std::vector<std::uint32_t> line; // one row of the frame, expanded from picture pixels
};

} // namespace platform
