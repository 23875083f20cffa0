#include "game/entities/gifts/CoinBlock.h"

#include "game/HUD.h"
#include "game/Sound.h"
#include "game/StateReport.h"

CoinBlock::CoinBlock(int x, int y, Bitmap* bitmapPtr) : BlockGift(x, y, bitmapPtr, 4, entityEmerging) {
    Sound::GetSingleton()->PlaySound(effectCoin, soundPlay, 50);
    HUD::GetSingleton()->AddCoin();
}

void CoinBlock::Tick(double deltaTime) {
    constexpr double levelTop = 0.0;
    constexpr double riseSpeed = 100.0; // level pixels / s
    constexpr int lifeTicks = 20;
    ++age;
    if (state == entityEmerging) Rise(levelTop, riseSpeed, deltaTime);
    if (age >= lifeTicks) state = entityGone;
    strip.Animate(3, 4);
}

void CoinBlock::Report(StateReport& report) const {
    BlockGift::Report(report);
    report.Add("age", age);
}
