#include "game/entities/CoinBlock.h"

#include "game/HUD.h"
#include "game/Sound.h"
#include "game/StateReport.h"

CoinBlock::CoinBlock(int x, int y, Bitmap* bitmapPtr)
    : EntityMaster(x, y, bitmapPtr), position(x, y), strip(bitmapPtr, 4) {
    Sound::GetSingleton()->PlaySound(effectCoin, soundPlay, 50);
    HUD::GetSingleton()->AddCoin();
}

void CoinBlock::Tick(double deltaTime) {
    constexpr double riseSpeed = 100.0; // level pixels / s
    constexpr double highestY = 0.0;    // the top of the level
    constexpr int lifeTicks = 20;
    ++age;
    if (state == entityEmerging) {
        if (position.y > highestY)
            position.y -= riseSpeed * deltaTime;
        else
            state = entityActive;
    }
    if (age >= lifeTicks) state = entityGone;
    strip.Animate(3, 4);
}

void CoinBlock::Paint(MATRIX3X2 matView) {
    if (state == entityEmerging || state == entityActive) strip.Paint(position, matView);
}

void CoinBlock::Report(StateReport& report) const {
    report.Add("state", state);
    report.Add("age", age);
    strip.Report(report);
}
