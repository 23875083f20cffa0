#include "game/entities/gifts/Star.h"

#include "game/player/Pelko.h"

Star::Star(int x, int y, Bitmap* bitmapPtr) : WalkingPowerUp(x, y, bitmapPtr, 1, 0, entityActive) {
    targetY = y + strip.GetCellHeight();
}

void Star::GiveTo(Pelko& hero) {
    PayPowerUp();
    hero.ActivateStar(); // its music is the star's sound
}
