#include "game/entities/gifts/Mushroom.h"

#include "game/Sound.h"
#include "game/player/Pelko.h"

Mushroom::Mushroom(int x, int y, Bitmap* bitmapPtr, int kind)
    : WalkingPowerUp(x, y, bitmapPtr, 2, kind, entityEmerging), variant(kind) {
    targetY = y - strip.GetCellHeight();
}

bool Mushroom::Take() {
    state = entityGone;
    return true;
}

void Mushroom::GiveTo(Pelko& hero) {
    if (hero.GetFormState() == heroSmall && variant == 0) hero.Grow();
    Sound::GetSingleton()->PlaySound(effectPowerUp, soundPlay, 100);
    PayPowerUp();
}
