#include "game/entities/gifts/Flower.h"

#include "game/Sound.h"
#include "game/StateReport.h"
#include "game/player/Pelko.h"

Flower::Flower(int x, int y, Bitmap* bitmapPtr)
    : BlockGift(x, y, bitmapPtr, 4, entityEmerging), targetY(y - strip.GetCellHeight()) {}

void Flower::Tick(double deltaTime) {
    constexpr double riseSpeed = 20.0; // level pixels / s
    if (state == entityEmerging) Rise(targetY, riseSpeed, deltaTime);
    if (IsShown()) hitRect = strip.GetCellRect(motion.position);
    if (state == entityGone) hitRect = {};
    strip.Animate(5, 4);
}

void Flower::GiveTo(Pelko& hero) {
    if (hero.GetFormState() == heroBig) hero.Grow();
    Sound::GetSingleton()->PlaySound(effectPowerUp, soundPlay, 100);
    PayPowerUp();
}

void Flower::Report(StateReport& report) const {
    BlockGift::Report(report);
    report.Add("targetY", targetY);
    report.Add("hitRect", hitRect);
}
