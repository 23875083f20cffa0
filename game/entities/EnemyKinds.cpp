#include "game/entities/EnemyKinds.h"

#include "game/entities/Dorvak.h"
#include "game/entities/Skreel.h"

namespace {
template <typename Enemy>
constexpr EnemyMaker MakerOf() {
    return {&Enemy::kind, [](int x, int y, Bitmap* bitmapPtr) -> std::unique_ptr<EnemyMaster> {
                return std::make_unique<Enemy>(x, y, bitmapPtr);
            }};
}
} // namespace

std::span<const EnemyMaker> EnemyMakers() {
    static constexpr EnemyMaker makers[] = {MakerOf<Skreel>(), MakerOf<Dorvak>()};
    return makers;
}
