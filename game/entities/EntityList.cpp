#include "game/entities/EntityList.h"

#include "game/ChosenLevel.h"
#include "game/SpriteSheet.h"
#include "game/entities/EntityKinds.h"

namespace {
// Room for the placed coins and for what the blocks hold, so that the list does not grow during play.
constexpr std::size_t expectedCount = 128;
} // namespace

EntityList::EntityList() : SlotList(expectedCount) {
    for (const EntityKind& kind : EntityKinds()) sheets.push_back(LoadSpriteSheet(kind.picture));
}

void EntityList::AddEntity(DOUBLE2 position, int type, int variant) {
    constexpr int depth = 14; // level pixels below the top of the block that releases it
    const int x = static_cast<int>(position.x);
    const int y = static_cast<int>(position.y) + depth;
    const std::span<const EntityKind> kinds = EntityKinds();
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const bool isReleased = kinds[i].content == type && type != contentNothing;
        if (isReleased) Add(kinds[i].make(x, y, sheets[i].get(), variant));
    }
}

void EntityList::CreateCoins() {
    constexpr int spacing = 16; // level pixels from coin to coin
    const std::span<const EntityKind> kinds = EntityKinds();
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        if (kinds[i].type != entityCoin) continue;
        for (const auto& [left, y, count] : chosenLevel.coinRows) {
            for (int coin = 0; coin < count; ++coin) Add(kinds[i].make(left + spacing * coin, y, sheets[i].get(), 0));
        }
    }
}

void EntityList::Tick(double deltaTime) {
    ForEach([=](EntityMaster& entity) { entity.Tick(deltaTime); });
    DeleteWhere([](EntityMaster& entity) { return entity.GetPosition().y >= chosenLevel.depths.thingsEnd; });
}

void EntityList::GiveTo(int index, Pelko& hero) {
    if (At(index)) At(index)->GiveTo(hero);
}

void EntityList::Collect(int index) {
    if (At(index)) At(index)->Collect();
}

void EntityList::SetState(int index, int state) {
    if (At(index)) At(index)->SetState(state);
}

int EntityList::GetMushroomVariant(int index) const {
    return GetType(index) == entityMushroom ? At(index)->GetVariant() : -1;
}
