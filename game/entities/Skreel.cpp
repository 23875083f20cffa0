#include "game/entities/Skreel.h"

#include "game/StateReport.h"

Skreel::Skreel(int x, int y, Bitmap* bitmapPtr) : EnemyBody(x, y, bitmapPtr, kind) {}

void Skreel::Tick(double deltaTime) {
    constexpr int flatCell = 2;
    if (!BeginTick()) return;
    switch (state) {
    case walking:
        AnimateWalk();
        Push(Motion::walkPush, deltaTime);
        motion.Fall(Motion::gravity, deltaTime);
        HandleLevelCollision();
        break;
    case flattened:
        strip.Show(flatCell);
        --flattenedTicks;
        break;
    case dying: // it falls through the ground
        strip.Show(0);
        motion.Fall(2 * Motion::gravity, deltaTime);
        break;
    }
}

void Skreel::Paint(MATRIX3X2 matView) {
    switch (state) {
    case walking: PaintFacing(matView); break;
    case flattened: PaintCentered(1.0, 1.0, matView); break;
    case dying: PaintCentered(1.0, -1.0, matView); break;
    }
}

bool Skreel::Stomp() {
    state = flattened;
    return true;
}

bool Skreel::Kill() {
    constexpr double hopSpeed = 150.0; // level pixels / s, upwards
    state = dying;
    motion.velocity.y -= hopSpeed;
    return true;
}

void Skreel::Report(StateReport& report) const {
    EnemyBody::Report(report);
    report.Add("state", state);
    report.Add("flattenedTicks", flattenedTicks);
}
