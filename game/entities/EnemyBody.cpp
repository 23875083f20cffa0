#include "game/entities/EnemyBody.h"

#include "engine/GameEngine.h"
#include "game/ChosenLevel.h"
#include "game/StateReport.h"
#include "game/TerrainContact.h"
#include "game/player/Pelko.h"

EnemyBody::EnemyBody(int x, int y, Bitmap* bitmapPtr, const EnemyKind& ownKind)
    : EnemyMaster(x, y, bitmapPtr), motion{DOUBLE2(x, y), {}}, strip(bitmapPtr, ownKind.cellCount), kind(ownKind) {}

bool EnemyBody::BeginTick() {
    constexpr double wakeDistance = 190.0; // level pixels to either side
    const DOUBLE2 pelkoPos = Pelko::GetSingleton()->GetPosition();
    if (pelkoPos.x > motion.position.x - wakeDistance && motion.position.x + wakeDistance > pelkoPos.x) active = true;
    if (!active) return false;
    motion.velocity.x = 0.0;
    return true;
}

void EnemyBody::HandleLevelCollision() {
    const auto [x, y] = motion.position;
    const DOUBLE2 height(0, strip.GetCellHeight());
    if (const auto ground =
            TerrainContact::Cast(DOUBLE2(x, y - strip.GetMiddleY()), height, TerrainContact::everySurface)) {
        motion.velocity.y = 0.0;
        motion.position += ground->PushBack(); // any surface counts as ground, wherever it lies on the ray
    }

    const DOUBLE2 width(strip.GetCellWidth(), 0);
    const DOUBLE2 left(x - strip.GetMiddleX(), motion.position.y);
    if (const auto wall = TerrainContact::Cast(left, width, TerrainContact::everySurface)) {
        motion.velocity.x = 0.0;
        motion.position += wall->PushOut();
        movingLeft = !movingLeft;
    }
}

bool EnemyBody::HasFallenOut() const { return motion.position.y >= chosenLevel.depths.thingsEnd; }

void EnemyBody::Report(StateReport& report) const {
    report.Add("velocity", motion.velocity);
    report.Add("movingLeft", movingLeft);
    report.Add("active", active);
    strip.Report(report);
}

RECT2 EnemyBody::GetCellRect() const {
    return strip.GetCellRect(DOUBLE2(motion.position.x - strip.GetMiddleX(), motion.position.y - strip.GetMiddleY()));
}

void EnemyBody::FillHitRect(COLOR color, const MATRIX3X2& matView) {
    GameEngine::GetSingleton()->SetWorldMatrix(matView);
    GameEngine::GetSingleton()->SetColor(color);
    GameEngine::GetSingleton()->FillRect(GetHitRect());
    GameEngine::GetSingleton()->SetColor(COLOR(0, 0, 0, 255));
}
