#include "game/player/BlockList.h"

#include "game/SpriteSheet.h"
#include "game/entities/EntityList.h"
#include "game/player/Pelko.h"

BlockList::BlockList() : sheetPtr(LoadSpriteSheet("Resources/Images/Blocks.bmp")) { CreateBlocks(); }

void BlockList::Tick(double deltaTime) {
    for (const auto& blockPtr : blocks) blockPtr->Tick(deltaTime);
}

void BlockList::Paint(MATRIX3X2 matView) {
    for (const auto& blockPtr : blocks) blockPtr->Paint(matView);
}

void BlockList::PaintDebug(MATRIX3X2 matView) {
    for (const auto& blockPtr : blocks) blockPtr->PaintDebug(matView);
}

void BlockList::HitBlock(int index) {
    Block& block = At(index);
    block.Bump();
    if (block.GetType() == blockTypeUsed) return;
    int content = block.GetContent();
    const bool isPowerUp = content == contentFlower || content == contentMushroom;
    if (isPowerUp && block.GetVariant() == 0)
        content = Pelko::GetSingleton()->GetFormState() == heroSmall ? contentMushroom : contentFlower;
    const int variant = content == contentMushroom ? block.GetVariant() : 0;
    EntityList::GetSingleton()->AddEntity(block.GetPosition(), content, variant);
}

void BlockList::CreateBlocks() {
    struct Placing {
        int x;
        int y;
        int kind;
        int hits = 1;
        int content = contentNothing;
        int variant = 0;
    };
    constexpr int low = 136; // the two rows of blocks
    constexpr int high = 72;
    constexpr std::array<Placing, blockCount> placings = {{
        {256, low, blockQuestion},
        {320, low, blockBrick},
        {336, low, blockQuestion, 1, contentMushroom},
        {352, low, blockBrick},
        {368, low, blockQuestion},
        {384, low, blockBrick},
        {352, high, blockQuestion},
        {1016, low, blockTreasure, 1, contentMushroom, 1},
        {1232, low, blockBrick},
        {1248, low, blockQuestion, 1, contentMushroom},
        {1264, low, blockBrick},
        {1280, high, blockBrick},
        {1296, high, blockBrick},
        {1312, high, blockBrick},
        {1328, high, blockBrick},
        {1344, high, blockBrick},
        {1360, high, blockBrick},
        {1376, high, blockBrick},
        {1392, high, blockBrick},
        {1456, high, blockBrick},
        {1472, high, blockBrick},
        {1488, high, blockBrick},
        {1504, high, blockQuestion},
        {1504, low, blockBrick, 11, contentCoin},
        {1600, low, blockBrick},
        {1616, low, blockTreasure, 1, contentStar},
        {1696, low, blockQuestion},
        {1744, low, blockQuestion},
        {1792, low, blockQuestion},
        {1744, high, blockQuestion, 1, contentMushroom},
        {1888, low, blockBrick},
        {1936, high, blockBrick},
        {1952, high, blockBrick},
        {1968, high, blockBrick},
        {2064, low, blockBrick},
        {2080, low, blockBrick},
        {2048, high, blockBrick},
        {2064, high, blockQuestion},
        {2080, high, blockQuestion},
        {2096, high, blockBrick},
        {2688, low, blockBrick},
        {2704, low, blockBrick},
        {2720, low, blockQuestion},
        {2736, low, blockBrick},
    }};
    for (std::size_t i = 0; i < placings.size(); ++i) {
        const Placing& at = placings[i];
        blocks[i] = std::make_unique<Block>(at.x, at.y, sheetPtr.get(), at.kind, at.hits, at.content, at.variant);
    }
}
