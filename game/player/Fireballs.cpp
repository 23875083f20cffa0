#include "game/player/Fireballs.h"

#include "engine/Bitmap.h"
#include "game/SpriteSheet.h"

#include <algorithm>

Fireballs::Fireballs()
    : flyingBitmapPtr(LoadSpriteSheet(flyingPicture)), explosionBitmapPtr(LoadSpriteSheet(explosionPicture)) {}

Fireballs::~Fireballs() = default;

void Fireballs::Throw(DOUBLE2 position) {
    for (std::optional<Fireball>& fireball : places) {
        if (fireball && fireball->IsDone()) fireball.reset();
    }
    auto* const emptyPlace = std::find(places.begin(), places.end(), std::nullopt);
    if (emptyPlace != places.end()) emptyPlace->emplace(position, flyingBitmapPtr.get(), explosionBitmapPtr.get());
}

void Fireballs::Tick(double deltaTime) {
    for (std::optional<Fireball>& fireball : places) {
        if (fireball) fireball->Tick(deltaTime);
    }
}

void Fireballs::Paint(const MATRIX3X2& matView) {
    for (std::optional<Fireball>& fireball : places) {
        if (fireball) fireball->Paint(matView);
    }
}

const Fireball* Fireballs::Get(int place) const {
    const std::optional<Fireball>& fireball = places[static_cast<std::size_t>(place)];
    return fireball ? &*fireball : nullptr;
}
