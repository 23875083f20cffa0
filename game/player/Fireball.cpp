#include "game/player/Fireball.h"

#include "engine/Bitmap.h"
#include "game/ChosenLevel.h"
#include "game/HUD.h"
#include "game/Handy.h"
#include "game/Sound.h"
#include "game/StateReport.h"
#include "game/TerrainContact.h"
#include "game/entities/EnemyList.h"
#include "game/player/BlockList.h"
#include "game/player/Pelko.h"

namespace {
constexpr int flyingFrames = 4;
constexpr int explosionFrames = 3;
constexpr int ticksPerFrame = 6;
constexpr int lifeTicks = 300;
constexpr double farthestFromHero = 200.0; // level pixels to either side
constexpr double speed = 170.0;            // level pixels / s
constexpr DOUBLE2 gravity(0.0, 13.0);      // pixels per tick, gained in a second: the fall depends on the frame rate
constexpr double bounce = 3.0;             // pixels per tick, taken off the fall
} // namespace

Fireball::Fireball(DOUBLE2 startPosition, Bitmap* flyingBitmapPtr, Bitmap* explodingBitmapPtr)
    : flyingStrip(flyingBitmapPtr, flyingFrames), explosionStrip(explodingBitmapPtr, explosionFrames),
      direction(Pelko::GetSingleton()->IsFacingRight() ? +1 : -1), width(flyingBitmapPtr->GetWidth()),
      position(startPosition), hitRect(BoxAt(startPosition)) {
    Sound::GetSingleton()->PlaySound(effectFireballThrow, soundPlay, 100);
}

void Fireball::Tick(double deltaTime) {
    ++tickCounter;
    EndWhenOldOrFar();
    switch (state) {
    case flying: TickFlying(deltaTime); break;
    case exploding: TickExploding(); break;
    case done: break;
    }
}

void Fireball::EndWhenOldOrFar() {
    const DOUBLE2 pelkoPos = Pelko::GetSingleton()->GetPosition();
    if (tickCounter >= lifeTicks || position.y >= chosenLevel.depths.fireballsEnd ||
        position.x < pelkoPos.x - farthestFromHero || position.x > pelkoPos.x + farthestFromHero) {
        state = done;
    }
}

void Fireball::TickFlying(double deltaTime) {
    if (tickCounter % ticksPerFrame == 0) frame = (frame + 1) % flyingFrames;
    // All of these run, even if one of them starts the explosion.
    BounceOffGround();
    ExplodeAtWall();
    ExplodeAtEnemy();
    RollOnBlocks();
    Move(deltaTime);
}

void Fireball::TickExploding() {
    if (tickCounter % ticksPerFrame != 0) return;
    ++frame;
    if (frame == explosionFrames) state = done;
}

void Fireball::BounceOffGround() {
    const DOUBLE2 start(position.x, position.y - flyingStrip.GetMiddleX());
    const auto ground =
        TerrainContact::Cast(start, DOUBLE2(0.0, flyingStrip.GetCellHeight()), TerrainContact::enteredSurfaces);
    if (!ground) return;
    velocity.y -= bounce; // subtracted, not set: after a faster fall it bounces less high
    position += ground->PushBack();
}

void Fireball::ExplodeAtWall() {
    const DOUBLE2 left(position.x - flyingStrip.GetMiddleX(), position.y);
    if (TerrainContact::Cast(left, DOUBLE2(flyingStrip.GetCellWidth(), 0.0), TerrainContact::everySurface)) Explode();
}

void Fireball::ExplodeAtEnemy() {
    EnemyList* const enemiesPtr = EnemyList::GetSingleton();
    for (int i = 0; i < EnemyList::slotCount; ++i) {
        if (!Touches(enemiesPtr->GetPosition(i), enemiesPtr->GetHitRect(i))) continue;
        Sound::GetSingleton()->PlaySound(effectKillEnemy, soundPlay, 100);
        enemiesPtr->Kill(i);
        HUD::GetSingleton()->AddScore(enemiesPtr->GetPoints(i));
        Explode();
        return; // a fireball hits one enemy only
    }
}

void Fireball::RollOnBlocks() {
    const BlockList* const blocksPtr = BlockList::GetSingleton();
    for (int i = 0; i < BlockList::blockCount; ++i) {
        const DOUBLE2 blockPos = blocksPtr->GetPosition(i);
        if (!Touches(blockPos, blocksPtr->GetHitRect(i))) continue;
        velocity.y = 0.0;
        position.y = blockPos.y - flyingStrip.GetMiddleY();
    }
}

void Fireball::Move(double deltaTime) {
    hitRect = BoxAt(position); // before the move: the tests of the next tick use the position of this one
    velocity.x = direction * speed * deltaTime;
    velocity += gravity * deltaTime;
    position += velocity;
}

void Fireball::Explode() {
    frame = 0;
    state = exploding;
}

bool Fireball::Touches(DOUBLE2 otherPosition, RECT2 otherBox) const {
    const Handy* const handyPtr = Handy::GetSingleton();
    return handyPtr->AreNear(otherPosition, position) && handyPtr->Touch(otherBox, hitRect);
}

RECT2 Fireball::BoxAt(DOUBLE2 centre) const {
    const int halfWidth = width / 2;
    const double left = centre.x - halfWidth;
    const double top = centre.y - flyingStrip.GetMiddleY();
    return {left, top, left + width, top + flyingStrip.GetCellHeight()};
}

void Fireball::Paint(MATRIX3X2 matView) {
    if (state == done) return;
    SpriteStrip& strip = state == flying ? flyingStrip : explosionStrip;
    strip.Show(frame);
    strip.PaintCentered(position, 1.0, 1.0, matView);
}

void Fireball::Report(StateReport& report) const {
    report.Add("state", state);
    report.Add("frame", frame);
    report.Add("tickCounter", tickCounter);
    report.Add("direction", direction);
    report.Add("position", position);
    report.Add("velocity", velocity);
    report.Add("box", hitRect);
}
