#pragma once

#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"
#include "game/FrameCycle.h"

class Bitmap;

/// A horizontal strip of equal cells, one of which is shown; none before the first Show or Animate. Borrows the bitmap,
/// which must outlive it.
class SpriteStrip {
public:
    SpriteStrip(Bitmap* bitmapPtr, int cellCount);
    /// Shows cell `frame` (from 0).
    void Show(int frame);
    /// One tick of the animation through cells 0 to `frameCount` - 1, each shown for `ticksPerFrame` ticks.
    void Animate(int ticksPerFrame, int frameCount);
    /// Draws the cell with its top-left corner at the origin of `matWorld`.
    void Paint(const MATRIX3X2& matWorld) const;
    /// Draws the cell with its top-left corner at `position`, in level pixels.
    void Paint(DOUBLE2 position, const MATRIX3X2& matView) const;

    /// Draws the cell with its middle at `position`; a scale of -1 mirrors it.
    void PaintCentered(DOUBLE2 position, double scaleX, double scaleY, const MATRIX3X2& matView) const;

    int GetCellWidth() const { return cellWidth; }
    int GetCellHeight() const { return cellHeight; }
    /// The middle of the cell, measured from its top-left corner in whole pixels.
    int GetMiddleX() const { return cellWidth / 2; }
    int GetMiddleY() const { return cellHeight / 2; }
    /// The box of a cell with its top-left corner at `position`.
    RECT2 GetCellRect(DOUBLE2 position) const;
    void Report(StateReport& report) const;

private:
    Bitmap* bitmapPtr;
    int cellWidth;
    int cellHeight;
    FrameCycle cycle;
    RECT2 clip; // the shown cell in the bitmap
};
