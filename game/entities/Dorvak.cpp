#include "game/entities/Dorvak.h"

#include "engine/GameEngine.h"
#include "game/StateReport.h"
#include "game/player/Pelko.h"

Dorvak::Dorvak(int x, int y, Bitmap* bitmapPtr) : EnemyBody(x, y, bitmapPtr, kind) {}

void Dorvak::Tick(double deltaTime) {
    constexpr int shellCell = 2;
    constexpr double slidePush = 4 * Motion::walkPush;
    if (!BeginTick()) return;
    if (state == walking)
        AnimateWalk();
    else
        strip.Show(shellCell);
    if (state == walking) Push(Motion::walkPush, deltaTime);
    if (state == shellSliding) Push(slidePush, deltaTime);
    if (state != shellAtRest) motion.Fall(Motion::gravity, deltaTime);
    HandleLevelCollision();
}

void Dorvak::Paint(MATRIX3X2 matView) {
    switch (state) {
    case walking: PaintFacing(matView); break;
    case shellAtRest:
    case shellSliding: PaintCentered(1.0, 1.0, matView); break;
    case dying: break;
    }
}

bool Dorvak::Stomp() {
    switch (state) {
    case walking: state = shellAtRest; return true;
    case shellAtRest: state = shellSliding; return true;
    default: return false;
    }
}

bool Dorvak::Kill() {
    state = dying;
    return true;
}

RECT2 Dorvak::GetHitRect() {
    constexpr int shellDrop = 9; // level pixels between the top of the cell and the shell
    if (state == dying) return {};
    RECT2 box = GetCellRect();
    if (state != walking) {
        box.top += shellDrop;
        box.bottom = box.top + strip.GetCellHeight() - shellDrop;
    }
    return box;
}

bool Dorvak::IsDead() {
    if (HasFallenOut()) return true;
    if (state == walking) return false;
    const int heroX = static_cast<int>(Pelko::GetSingleton()->GetPosition().x);
    const int windowWidth = GameEngine::GetSingleton()->GetWidth();
    const int leftEnd = heroX - windowWidth / 2;
    return leftEnd > motion.position.x || motion.position.x > heroX + windowWidth;
}

void Dorvak::Report(StateReport& report) const {
    EnemyBody::Report(report);
    report.Add("state", state);
}
