#include "game/entities/EntityKinds.h"

#include "game/entities/gifts/Coin.h"
#include "game/entities/gifts/CoinBlock.h"
#include "game/entities/gifts/Flower.h"
#include "game/entities/gifts/Mushroom.h"
#include "game/entities/gifts/Star.h"

#include <algorithm>
#include <type_traits>

namespace {
template <typename Entity>
std::unique_ptr<EntityMaster> Make(int x, int y, Bitmap* bitmapPtr, int variant) {
    if constexpr (std::is_constructible_v<Entity, int, int, Bitmap*, int>) {
        return std::make_unique<Entity>(x, y, bitmapPtr, variant);
    } else {
        return std::make_unique<Entity>(x, y, bitmapPtr);
    }
}

constexpr EntityKind kinds[] = {
    {entityCoin, contentNothing, "Resources/Images/Coin.bmp", Make<Coin>},
    {entityCoinBlock, contentCoin, "Resources/Images/CoinBlock.bmp", Make<CoinBlock>},
    {entityFlower, contentFlower, "Resources/Images/Flower.bmp", Make<Flower>},
    {entityMushroom, contentMushroom, "Resources/Images/Mushroom.bmp", Make<Mushroom>},
    {entityStar, contentStar, "Resources/Images/Star.bmp", Make<Star>},
};

constexpr bool IsEveryContentMade() {
    for (int content = contentNothing + 1; content < contentCount; ++content)
        if (std::ranges::count(kinds, content, &EntityKind::content) != 1) return false;
    return true;
}
static_assert(IsEveryContentMade(), "each content of a block has one row");
} // namespace

std::span<const EntityKind> EntityKinds() { return kinds; }
