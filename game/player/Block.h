#pragma once

#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"
#include "game/FrameCycle.h"

class Bitmap;
class StateReport;

/// What a block is, at first and later; also its row in the sheet.
enum BlockState : int {
    blockBrick = 0,
    blockQuestion = 1,
    blockUsed = 2,
    blockBroken = 3,
    blockTreasure = 4,
    blockStateCount
};

/// The result of Block::GetType.
enum BlockType : int {
    blockTypeBrick = 0,
    blockTypeQuestion = 1,
    blockTypeUsed = 3,
    blockTypeBroken = 4,
    blockTypeTreasure = 5
};

/// A tile of 16 x 16 level pixels. The hero bumps it from below; it releases its content, and breaks or is used up in
/// the end.
class Block {
public:
    /// `x`, `y` is the top-left corner; `kind` is a BlockState, or it makes a brick; `hits` is the number of hits that
    /// it takes; `content` is a BlockContent, or it means none, but a question block without content holds a coin;
    /// `variant` is that of a mushroom. Borrows the sheet, which must outlive the block.
    Block(int x, int y, Bitmap* sheetPtr, int kind, int hits, int content, int variant);
    virtual ~Block() = default;
    virtual void Tick(double deltaTime);
    virtual void Paint(MATRIX3X2 matView);
    virtual void PaintDebug(MATRIX3X2 matView);

    /// Takes one hit off. When none is left, the next tick finishes the block.
    void Damage() { --hits; }
    /// The block jumps up. Its ticks bring it back down.
    void Bump();

    /// All zero for a broken block.
    RECT2 GetHitRect() const;
    int GetType() const;
    DOUBLE2 GetPosition() const { return position; }
    int GetContent() const { return content; }
    int GetVariant() const { return variant; }
    void Report(StateReport& report) const;

private:
    void Finish();

    bool finished = false;
    int hits;
    FrameCycle questionCycle;
    int restY; // where it comes to rest after a bump
    int content;
    int variant;
    double deltaTime = 0.0; // seconds of the last tick; a bump moves the block by one such tick
    Bitmap* sheetPtr;
    DOUBLE2 position; // top-left corner
    RECT2 clip;       // the cell to draw
    int state;
};
