#include "game/player/AutoMoves.h"

#include "game/StateReport.h"
#include "game/player/Pelko.h"

namespace {
constexpr int pipeTicks = 90;
constexpr double sinkSpeed = 35.0;              // level pixels / s
constexpr double walkOutSpeed = 18.0;           // level pixels / s
constexpr DOUBLE2 walkHomeVelocity(25.0, 40.0); // level pixels / s; the fall keeps him on the ground
} // namespace

void AutoMoves::Start(int move) {
    switch (move) {
    case heroSinksIntoPipe: isSinking = true; break;
    case heroWalksOutOfPipe: isWalkingOut = true; break;
    case heroWalksIntoCastle: isWalkingHome = true; break;
    default: return;
    }
    ticksLeft = pipeTicks;
}

void AutoMoves::Tick(Pelko& hero, double deltaTime) {
    if (isSinking) {
        if (--ticksLeft < 0) {
            hero.GoUnderground();
        } else {
            hero.Move(DOUBLE2(0.0, sinkSpeed * deltaTime));
        }
    }
    if (isWalkingOut) {
        if (--ticksLeft < 0) {
            hero.ExitUnderground();
        } else {
            hero.WalkFacingRight();
            hero.Move(DOUBLE2(walkOutSpeed * deltaTime, 0.0));
        }
    }
    if (isWalkingHome) {
        hero.WalkFacingRight();
        hero.Move(walkHomeVelocity * deltaTime);
    }
}

void AutoMoves::Report(StateReport& report) const {
    report.Add("sinking", isSinking);
    report.Add("walkingOut", isWalkingOut);
    report.Add("walkingIntoCastle", isWalkingHome);
    report.Add("autoMoveCounter", ticksLeft);
}
