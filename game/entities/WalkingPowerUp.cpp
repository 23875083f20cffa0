#include "game/entities/WalkingPowerUp.h"

#include "engine/GameEngine.h"
#include "engine/HitRegion.h"
#include "game/ChosenLevel.h"
#include "game/Level.h"
#include "game/StateReport.h"

WalkingPowerUp::WalkingPowerUp(int x, int y, Bitmap* bitmapPtr, int cellCount, int cell, int startState)
    : EntityMaster(x, y, bitmapPtr), strip(bitmapPtr, cellCount), targetY(y), hitRect(strip.GetCellRect(DOUBLE2(x, y))),
      state(startState), position(x, y), outlinePtr(Level::GetSingleton()->GetCollisionRegion()) {
    strip.Show(cell);
}

void WalkingPowerUp::Tick(double deltaTime) {
    constexpr double gravity = 800.0; // level pixels / s^2
    velocity.x = 0.0;
    if (state == entityEmerging)
        Rise(deltaTime);
    else if (state == entityActive)
        Walk(deltaTime);
    if (state == entityActive) velocity.y += gravity * deltaTime;
    position += velocity * deltaTime;
    hitRect = IsShown() ? strip.GetCellRect(position) : RECT2();
}

void WalkingPowerUp::Paint(MATRIX3X2 matView) {
    if (IsShown()) strip.Paint(position, matView);
}

void WalkingPowerUp::ResetVelocity(bool horizontal, bool vertical) {
    if (horizontal) velocity.x = 0.0;
    if (vertical) velocity.y = 0.0;
}

void WalkingPowerUp::Report(StateReport& report) const {
    report.Add("state", state);
    report.Add("velocity", velocity);
    report.Add("movingRight", movingRight);
    report.Add("targetY", targetY);
    strip.Report(report);
}

void WalkingPowerUp::FillHitRect(COLOR color) const {
    GameEngine::GetSingleton()->SetColor(color);
    GameEngine::GetSingleton()->FillRect(hitRect);
}

void WalkingPowerUp::Rise(double deltaTime) {
    constexpr double riseSpeed = 50.0; // level pixels / s
    if (position.y >= targetY) position.y -= riseSpeed * deltaTime;
    if (targetY > position.y) {
        velocity.y = 0.0;
        state = entityActive;
    }
}

void WalkingPowerUp::Walk(double deltaTime) {
    constexpr double push = 2000.0; // the speed of a tick is this times its seconds
    velocity.x += (movingRight ? push : -push) * deltaTime;
    TurnAtWalls();
    StandOnLevel();
    if (position.y >= chosenLevel.depths.thingsEnd) state = entityGone;
}

void WalkingPowerUp::TurnAtWalls() {
    const DOUBLE2 start(position.x, position.y + strip.GetCellHeight() / 2);
    const DOUBLE2 vector(strip.GetCellWidth(), 0);
    HIT hitArr[1];
    if (outlinePtr->Raycast(start, vector, hitArr, 1, 0) == 0) return;
    const double lambda = hitArr[0].lambda;
    const bool wallOnRight = lambda > 0.5;
    movingRight = !wallOnRight;
    if (wallOnRight)
        position.x -= (1 - lambda) * vector.Length();
    else
        position.x += lambda * vector.Length();
}

void WalkingPowerUp::StandOnLevel() {
    const DOUBLE2 start(position.x + strip.GetCellWidth() / 2, position.y);
    const DOUBLE2 vector(0, strip.GetCellHeight());
    HIT hitArr[1];
    if (outlinePtr->Raycast(start, vector, hitArr, 1, 0) == 0) return;
    const double lambda = hitArr[0].lambda;
    velocity.y = 0.0;
    if (lambda > 0.5)
        position.y -= (1 - lambda) * vector.Length(); // ground under the feet
    else
        position.y += lambda * vector.Length(); // a ceiling
}
