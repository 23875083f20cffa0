#include "game/entities/gifts/Coin.h"

#include "engine/GameEngine.h"
#include "game/HUD.h"
#include "game/Sound.h"
#include "game/StateReport.h"

Coin::Coin(int x, int y, Bitmap* bitmapPtr) : EntityMaster(x, y, bitmapPtr), position(x, y), strip(bitmapPtr, 6) {}

void Coin::Tick(double) {
    if (!collected) strip.Animate(8, 6);
}

void Coin::Paint(MATRIX3X2 matView) {
    if (!collected) strip.Paint(position, matView);
}

void Coin::PaintDebug(MATRIX3X2 matView) {
    GameEngine::GetSingleton()->SetWorldMatrix(matView);
    GameEngine::GetSingleton()->SetColor(COLOR(255, 255, 0, 150));
    GameEngine::GetSingleton()->FillRect(GetHitRect());
}

void Coin::GiveTo(Pelko& /*hero*/) {
    HUD::GetSingleton()->AddCoin();
    Sound::GetSingleton()->PlaySound(effectCoin, soundPlay, 50);
}

RECT2 Coin::GetHitRect() {
    constexpr int inset = 3; // level pixels at each side, where the cell is empty
    if (collected) return {};
    RECT2 box = strip.GetCellRect(position);
    box.left += inset;
    box.right -= inset;
    return box;
}

void Coin::Report(StateReport& report) const {
    report.Add("collected", collected);
    strip.Report(report);
}
