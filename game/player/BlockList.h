#pragma once

#include "engine/Bitmap.h"
#include "game/ChosenLevel.h"
#include "game/Singleton.h"
#include "game/player/Block.h"

#include <array>
#include <cstddef>
#include <memory>

/// The blocks of the level. An index, 0 to blockCount - 1, belongs to the same block for the whole game.
class BlockList {
public:
    static constexpr char const* picture = "Resources/Images/Blocks.bmp";
    static constexpr int blockCount = static_cast<int>(chosenLevel.blocks.size());

    static BlockList* GetSingleton() { return Singleton<BlockList>::Get(); }
    virtual ~BlockList() = default;
    void Tick(double deltaTime);
    void Paint(MATRIX3X2 matView);
    void PaintDebug(MATRIX3X2 matView);

    /// Takes one hit off the block.
    void DamageBlock(int index) { At(index).Damage(); }
    /// The hero's head has hit the block: it jumps, and releases its content unless it is used up.
    void HitBlock(int index);

    /// All zero for a broken block.
    RECT2 GetHitRect(int index) const { return At(index).GetHitRect(); }
    DOUBLE2 GetPosition(int index) const { return At(index).GetPosition(); }
    /// A BlockType.
    int GetType(int index) const { return At(index).GetType(); }
    void Report(int index, StateReport& report) const { At(index).Report(report); }

private:
    friend class Singleton<BlockList>;
    BlockList();
    void CreateBlocks();
    Block& At(int index) const { return *blocks[static_cast<std::size_t>(index)]; }

    std::unique_ptr<Bitmap> sheetPtr; // lent to the blocks, so declared above them
    std::array<std::unique_ptr<Block>, blockCount> blocks;
};
