#include "game/player/BlockList.h"

#include "game/SpriteSheet.h"
#include "game/entities/EntityList.h"
#include "game/player/Pelko.h"

BlockList::BlockList() : sheetPtr(LoadSpriteSheet(picture)) { CreateBlocks(); }

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
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const auto& [x, y, kind, hits, content, variant] = chosenLevel.blocks[i];
        blocks[i] = std::make_unique<Block>(x, y, sheetPtr.get(), kind, hits, content, variant);
    }
}
