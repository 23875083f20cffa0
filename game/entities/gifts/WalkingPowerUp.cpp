#include "game/entities/gifts/WalkingPowerUp.h"

#include "game/ChosenLevel.h"
#include "game/StateReport.h"
#include "game/TerrainContact.h"

WalkingPowerUp::WalkingPowerUp(int x, int y, Bitmap* bitmapPtr, int cellCount, int cell, int startState)
    : BlockGift(x, y, bitmapPtr, cellCount, startState), targetY(y), hitRect(strip.GetCellRect(DOUBLE2(x, y))) {
    strip.Show(cell);
}

void WalkingPowerUp::Tick(double deltaTime) {
    motion.velocity.x = 0.0;
    if (state == entityEmerging)
        LeaveBlock(deltaTime);
    else if (state == entityActive)
        Walk(deltaTime);
    if (state == entityActive) motion.velocity.y += Motion::gravity * deltaTime;
    motion.position += motion.velocity * deltaTime;
    hitRect = IsShown() ? strip.GetCellRect(motion.position) : RECT2();
}

void WalkingPowerUp::Report(StateReport& report) const {
    BlockGift::Report(report);
    report.Add("velocity", motion.velocity);
    report.Add("movingRight", movingRight);
    report.Add("targetY", targetY);
}

// Unlike Rise, this ends above the target, and in the tick in which it gets there.
void WalkingPowerUp::LeaveBlock(double deltaTime) {
    constexpr double riseSpeed = 50.0; // level pixels / s
    if (motion.position.y >= targetY) motion.position.y -= riseSpeed * deltaTime;
    if (motion.position.y < targetY) {
        motion.velocity.y = 0.0;
        state = entityActive;
    }
}

void WalkingPowerUp::Walk(double deltaTime) {
    motion.velocity.x += (movingRight ? Motion::walkPush : -Motion::walkPush) * deltaTime;
    TurnAtWalls();
    StandOnLevel();
    if (motion.position.y >= chosenLevel.depths.thingsEnd) state = entityGone;
}

void WalkingPowerUp::TurnAtWalls() {
    const DOUBLE2 left(motion.position.x, motion.position.y + strip.GetMiddleY());
    const auto wall = TerrainContact::Cast(left, DOUBLE2(strip.GetCellWidth(), 0), TerrainContact::everySurface);
    if (!wall) return;
    movingRight = !wall->IsAtEnd();
    motion.position += wall->PushOut();
}

void WalkingPowerUp::StandOnLevel() {
    const DOUBLE2 top(motion.position.x + strip.GetMiddleX(), motion.position.y);
    const auto surface = TerrainContact::Cast(top, DOUBLE2(0, strip.GetCellHeight()), TerrainContact::everySurface);
    if (!surface) return;
    motion.velocity.y = 0.0;
    motion.position += surface->PushOut(); // up from the ground, down from a ceiling
}
