#include "game/TerrainContact.h"

#include "engine/HitRegion.h"
#include "game/Level.h"

std::optional<TerrainContact> TerrainContact::Cast(DOUBLE2 start, DOUBLE2 ray, Surfaces surfaces) {
    HIT hitArr[1];
    if (Level::GetSingleton()->GetCollisionRegion()->Raycast(start, ray, hitArr, 1, surfaces) == 0) return std::nullopt;
    return TerrainContact(hitArr[0].lambda, ray);
}
