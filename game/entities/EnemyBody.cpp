#include "game/entities/EnemyBody.h"

#include "engine/GameEngine.h"
#include "engine/HitRegion.h"
#include "game/ChosenLevel.h"
#include "game/Level.h"
#include "game/StateReport.h"
#include "game/player/Pelko.h"

EnemyBody::EnemyBody(int x, int y, Bitmap* bitmapPtr, int cellCount)
    : EnemyMaster(x, y, bitmapPtr), position(x, y), strip(bitmapPtr, cellCount) {}

bool EnemyBody::BeginTick() {
    constexpr double wakeDistance = 190.0; // level pixels, either side
    const DOUBLE2 pelkoPos = Pelko::GetSingleton()->GetPosition();
    if (pelkoPos.x > position.x - wakeDistance && position.x + wakeDistance > pelkoPos.x) active = true;
    if (!active) return false;
    velocity.x = 0.0;
    return true;
}

void EnemyBody::Fall(double gravity, double deltaTime) {
    velocity.y += gravity * deltaTime;
    position += velocity * deltaTime;
}

void EnemyBody::HandleLevelCollision() {
    HitRegion* outlinePtr = Level::GetSingleton()->GetCollisionRegion();

    const DOUBLE2 heightVector(0, strip.GetCellHeight());
    DOUBLE2 rayStart(position.x, position.y - strip.GetCellHeight() / 2);
    HIT hitVertArr[1];
    if (outlinePtr->Raycast(rayStart, heightVector, hitVertArr, 1, 0) > 0) {
        velocity.y = 0.0;
        position.y -= (1 - hitVertArr[0].lambda) * heightVector.Length();
    }

    const DOUBLE2 widthVector(strip.GetCellWidth(), 0);
    rayStart = DOUBLE2(position.x - strip.GetCellWidth() / 2, position.y);
    HIT hitHorizArr[1];
    if (outlinePtr->Raycast(rayStart, widthVector, hitHorizArr, 1, 0) == 0) return;
    const double lambda = hitHorizArr[0].lambda;
    velocity.x = 0.0;
    if (lambda <= 0.5)
        position.x += lambda * widthVector.Length();
    else
        position.x -= (1 - lambda) * widthVector.Length();
    movingLeft = !movingLeft;
}

void EnemyBody::ResetVelocity(bool horizontal, bool vertical) {
    if (horizontal) velocity.x = 0.0;
    if (vertical) velocity.y = 0.0;
}

bool EnemyBody::HasFallenOut() const { return position.y >= chosenLevel.depths.thingsEnd; }

void EnemyBody::Report(StateReport& report) const {
    report.Add("velocity", velocity);
    report.Add("movingLeft", movingLeft);
    report.Add("active", active);
    strip.Report(report);
}

RECT2 EnemyBody::GetCellRect() const {
    return strip.GetCellRect(DOUBLE2(position.x - strip.GetCellWidth() / 2, position.y - strip.GetCellHeight() / 2));
}

void EnemyBody::PaintCentered(double scaleX, double scaleY, const MATRIX3X2& matView) const {
    const MATRIX3X2 matCenter =
        MATRIX3X2::CreateTranslationMatrix(-(strip.GetCellWidth() / 2), -(strip.GetCellHeight() / 2));
    const MATRIX3X2 matScale = MATRIX3X2::CreateScalingMatrix(scaleX, scaleY);
    const MATRIX3X2 matTranslate = MATRIX3X2::CreateTranslationMatrix(position);
    // centre the cell on the origin, mirror it there, put it in the level, then apply the camera
    strip.Paint(matCenter * matScale * matTranslate * matView);
}

void EnemyBody::FillHitRect(COLOR color, const MATRIX3X2& matView) {
    GameEngine::GetSingleton()->SetWorldMatrix(matView);
    GameEngine::GetSingleton()->SetColor(color);
    GameEngine::GetSingleton()->FillRect(GetHitRect());
    GameEngine::GetSingleton()->SetColor(COLOR(0, 0, 0, 255));
}
