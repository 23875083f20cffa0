#include "game/entities/EntityList.h"

#include "game/ChosenLevel.h"
#include "game/SpriteSheet.h"
#include "game/entities/Coin.h"
#include "game/entities/CoinBlock.h"
#include "game/entities/Flower.h"
#include "game/entities/Mushroom.h"
#include "game/entities/Star.h"

EntityList::EntityList()
    : coinBitmapPtr(LoadSpriteSheet("Resources/Images/Coin.bmp")),
      coinBlockBitmapPtr(LoadSpriteSheet("Resources/Images/CoinBlock.bmp")),
      flowerBitmapPtr(LoadSpriteSheet("Resources/Images/Flower.bmp")),
      mushroomBitmapPtr(LoadSpriteSheet("Resources/Images/Mushroom.bmp")),
      starBitmapPtr(LoadSpriteSheet("Resources/Images/Star.bmp")) {
    // the placed coins and what the blocks of the level hold, so that a bump in play need not grow the table
    entities.reserve(128);
}

void EntityList::AddEntity(DOUBLE2 position, int type, int variant) {
    constexpr int depth = 14; // inside the block that releases it
    const int x = static_cast<int>(position.x);
    const int y = static_cast<int>(position.y) + depth;
    switch (type) {
    case contentCoin: entities.push_back(std::make_unique<CoinBlock>(x, y, coinBlockBitmapPtr.get())); break;
    case contentFlower: entities.push_back(std::make_unique<Flower>(x, y, flowerBitmapPtr.get())); break;
    case contentMushroom: entities.push_back(std::make_unique<Mushroom>(x, y, mushroomBitmapPtr.get(), variant)); break;
    case contentStar: entities.push_back(std::make_unique<Star>(x, y, starBitmapPtr.get())); break;
    default: break;
    }
}

void EntityList::CreateCoins() {
    constexpr int spacing = 16;
    for (const auto& [left, y, count] : chosenLevel.coinRows) {
        for (int i = 0; i < count; ++i)
            entities.push_back(std::make_unique<Coin>(left + spacing * i, y, coinBitmapPtr.get()));
    }
}

void EntityList::Tick(double deltaTime) {
    for (const auto& entityPtr : entities)
        if (entityPtr) entityPtr->Tick(deltaTime);
    for (auto& entityPtr : entities)
        if (entityPtr && entityPtr->GetPosition().y >= chosenLevel.depths.thingsEnd) entityPtr.reset();
}

void EntityList::Paint(MATRIX3X2 matView) {
    for (const auto& entityPtr : entities)
        if (entityPtr) entityPtr->Paint(matView);
}

void EntityList::PaintDebug(MATRIX3X2 matView) {
    for (const auto& entityPtr : entities)
        if (entityPtr) entityPtr->PaintDebug(matView);
}

void EntityList::Collect(int index) {
    if (At(index)) At(index)->Collect();
}

void EntityList::Move(int index, DOUBLE2 delta) {
    if (At(index)) At(index)->Move(delta);
}

void EntityList::SetState(int index, int state) {
    if (At(index)) At(index)->SetState(state);
}

void EntityList::ResetVelocity(int index, bool horizontal, bool vertical) {
    if (At(index)) At(index)->ResetVelocity(horizontal, vertical);
}

RECT2 EntityList::GetHitRect(int index) const { return At(index) ? At(index)->GetHitRect() : RECT2(); }

DOUBLE2 EntityList::GetPosition(int index) const { return At(index) ? At(index)->GetPosition() : DOUBLE2(); }

int EntityList::GetType(int index) const { return At(index) ? At(index)->GetType() : -1; }

void EntityList::Report(int index, StateReport& report) const {
    if (At(index)) At(index)->Report(report);
}

int EntityList::GetMushroomVariant(int index) const {
    return GetType(index) == entityMushroom ? At(index)->GetVariant() : -1;
}
