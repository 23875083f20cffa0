#include "game/entities/Flower.h"

#include "engine/GameEngine.h"
#include "game/StateReport.h"

Flower::Flower(int x, int y, Bitmap* bitmapPtr)
    : EntityMaster(x, y, bitmapPtr), position(x, y), strip(bitmapPtr, 4), targetY(y - strip.GetCellHeight()) {}

void Flower::Tick(double deltaTime) {
    constexpr double riseSpeed = 20.0; // level pixels / s
    if (state == entityEmerging) {
        if (position.y > targetY)
            position.y -= riseSpeed * deltaTime;
        else
            state = entityActive;
    }
    if (state == entityEmerging || state == entityActive) hitRect = strip.GetCellRect(position);
    if (state == entityGone) hitRect = {};
    strip.Animate(5, 4);
}

void Flower::Paint(MATRIX3X2 matView) {
    if (state == entityEmerging || state == entityActive) strip.Paint(position, matView);
}

void Flower::PaintDebug(MATRIX3X2) {
    GameEngine::GetSingleton()->SetColor(COLOR(80, 200, 50, 80));
    GameEngine::GetSingleton()->FillRect(hitRect);
}

void Flower::Report(StateReport& report) const {
    report.Add("state", state);
    report.Add("targetY", targetY);
    report.Add("hitRect", hitRect);
    strip.Report(report);
}
