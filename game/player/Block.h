#pragma once

#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"
#include "game/FrameCycle.h"

class Bitmap;
class StateReport;

/// What a block is made as and what it is at the moment; also its row in the sheet.
enum BlockState : int {
    blockBrick = 0,
    blockQuestion = 1,
    blockUsed = 2,
    blockBroken = 3,
    blockTreasure = 4,
    blockStateCount
};

/// What Block::GetType answers.
enum BlockType : int {
    blockTypeBrick = 0,
    blockTypeQuestion = 1,
    blockTypeUsed = 3,
    blockTypeBroken = 4,
    blockTypeTreasure = 5
};

/// A tile of 16 x 16 level pixels that is bumped from below, gives what it holds, and breaks or is used up.
class Block {
public:
    /// `x`, `y` is the top-left corner. A `kind` that is no BlockState makes a brick, a `content` that is no
    /// BlockContent none; a question block without content holds a coin. `hits` is how many it takes until it is
    /// finished, `variant` the kind of mushroom. Borrows the sheet, which must outlive the block.
    Block(int x, int y, Bitmap* sheetPtr, int kind, int hits, int content, int variant);
    virtual ~Block() = default;
    virtual void Tick(double deltaTime);
    virtual void Paint(MATRIX3X2 matView);
    virtual void PaintDebug(MATRIX3X2 matView);

    /// Takes one hit off; the tick that finds none left finishes the block.
    void Damage() { --hits; }
    /// The block jumps up; its ticks let it settle back.
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
    int restY; // where a bumped block settles back to
    int content;
    int variant;
    double deltaTime = 0.0; // of the last tick; how far a bump jumps depends on it
    Bitmap* sheetPtr;
    DOUBLE2 position; // top-left corner
    RECT2 clip;       // the cell to draw
    int state;
};
