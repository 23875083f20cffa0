#include "game/entities/gifts/BlockGift.h"

#include "engine/GameEngine.h"
#include "game/HUD.h"
#include "game/StateReport.h"

BlockGift::BlockGift(int x, int y, Bitmap* bitmapPtr, int cellCount, int startState)
    : EntityMaster(x, y, bitmapPtr), strip(bitmapPtr, cellCount), motion{DOUBLE2(x, y), {}}, state(startState) {}

void BlockGift::Paint(MATRIX3X2 matView) {
    if (IsShown()) strip.Paint(motion.position, matView);
}

void BlockGift::Report(StateReport& report) const {
    report.Add("state", state);
    strip.Report(report);
}

void BlockGift::Rise(double top, double speed, double deltaTime) {
    if (motion.position.y > top)
        motion.position.y -= speed * deltaTime;
    else
        state = entityActive;
}

void BlockGift::PayPowerUp() {
    constexpr int points = 1000;
    HUD::GetSingleton()->AddScore(points);
    state = entityGone;
}

void BlockGift::FillRect(RECT2 box, COLOR color) {
    GameEngine::GetSingleton()->SetColor(color);
    GameEngine::GetSingleton()->FillRect(box);
}
