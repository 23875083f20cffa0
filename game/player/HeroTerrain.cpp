#include "game/player/HeroTerrain.h"

#include "game/Motion.h"
#include "game/TerrainContact.h"
#include "game/player/HeroForms.h"

namespace {
constexpr int width = HeroForms::width;
constexpr int halfWidth = HeroForms::halfWidth;

void StopAt(Motion& motion, DOUBLE2 start, DOUBLE2 ray) {
    const auto surface = TerrainContact::Cast(start, ray, TerrainContact::enteredSurfaces);
    if (!surface) return;
    motion.velocity.y = 0.0;
    motion.position += surface->PushBack();
}
} // namespace

void PushOutOfWalls(Motion& motion, int height) {
    const int halfHeight = height / 2;
    // Twice: between two walls, the push from the first wall may lead into the second.
    for (int cast = 0; cast < 2; ++cast) {
        const DOUBLE2 left(motion.position.x - halfWidth, motion.position.y + halfHeight);
        const auto wall = TerrainContact::Cast(left, DOUBLE2(width - 1, 0.0), TerrainContact::everySurface);
        if (!wall) continue;
        motion.velocity.x = 0.0;
        motion.position += wall->PushOut();
    }
}

void PutOnGround(Motion& motion, int height) {
    constexpr double footInset = 2.0; // level pixels from the sides to the feet
    const double x = motion.position.x;
    // Two rays, one at each foot: a single ray in the middle would let a foot sink into the edge of a platform. The
    // second ray starts at the height that the first one has corrected.
    for (const double footX : {x - halfWidth + footInset, x + halfWidth - footInset}) {
        StopAt(motion, DOUBLE2(footX, motion.position.y), DOUBLE2(0.0, height));
    }
    StopAt(motion, DOUBLE2(x - halfWidth, motion.position.y + height), DOUBLE2(0.0, -height)); // his head
}
