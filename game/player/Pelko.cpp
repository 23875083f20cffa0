#include "game/player/Pelko.h"

#include "engine/GameEngine.h"
#include "game/Actions.h"
#include "game/ChosenLevel.h"
#include "game/DataFile.h"
#include "game/Level.h"
#include "game/Quillfen.h"
#include "game/Sound.h"
#include "game/StateReport.h"
#include "game/player/HeroTerrain.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double walkAcceleration = 120.0;  // level pixels / s^2
constexpr double brakeAcceleration = 400.0; // level pixels / s^2, also that of friction
constexpr double walkSpeed = 100.0;         // level pixels / s, the highest
constexpr double standSpeed = 5.0;          // level pixels / s; friction stops anything slower
constexpr double jumpSpeed = 335.0;         // level pixels / s
constexpr double deathHopSpeed = 335.0;     // level pixels / s
constexpr double stompBounceSpeed = 200.0;  // level pixels / s
constexpr double fallingSpeed = 0.5;        // level pixels / s; faster than this he has left the ground
constexpr double landedSpeed = 0.1;         // level pixels / s

constexpr int hurtTicks = 180;

constexpr double boxInset = 3.0;    // level pixels between the side box and his head, and his feet
constexpr double throwHeight = 5.0; // level pixels from his top edge to a new fireball's centre
} // namespace

Pelko::Pelko() { ReadDataFile(); }

void Pelko::ReadDataFile() {
    DataFile file(chosenLevel.heroFile);
    DataRecord record;
    while (file.ReadRecord("FormState:     ", record)) { // a later record replaces an earlier one
        motion.position = DOUBLE2(record.x, record.y);
        forms.Set(record.value);
    }
}

void Pelko::Tick(double deltaTime) {
    tickSeconds = deltaTime;
    forms.BeginTick();
    UpdateInvulnerability();
    TickState();
    motion.velocity.x = std::clamp(motion.velocity.x, -walkSpeed, walkSpeed);
    Travel(); // the states set the velocity, this uses it
    PassCheckpoint();
    StayInLevel();
    RespawnAfterFall();
    StayOutOfTerrain(); // after all moves: the rays start where he is then
    if (!alive) Sound::GetSingleton()->PlaySound(effectDead, soundPlay, 100);
    star.Tick();
    fireballs.Tick(deltaTime);
}

void Pelko::UpdateInvulnerability() {
    invulnerabilityCounter = std::max(invulnerabilityCounter - 1, 0);
    invulnerable = invulnerabilityCounter > 0;
}

// States

void Pelko::TickState() {
    switch (state) {
    case heroStanding: TickStanding(); break;
    case heroWalking: TickWalking(); break;
    case heroDying: TickDying(); break;
    case heroAirborne: TickAirborne(); break;
    case heroShrinking: FollowFormChange(forms.Shrink()); break;
    case heroGrowing: FollowFormChange(forms.Grow()); break;
    case heroChanged: TickChanged(); break;
    default: break;
    }
}

void Pelko::TickStanding() {
    sprite.ShowStanding();
    if (IsFalling()) {
        state = heroAirborne;
        return;
    }
    if (IsHeld(Action::walkLeft) || IsHeld(Action::walkRight)) {
        state = heroWalking;
        return;
    }
    if (IsHeld(Action::jump)) {
        Jump();
        return;
    }
    ApplyFriction();
}

void Pelko::TickWalking() {
    sprite.Walk();
    if (IsFalling()) {
        state = heroAirborne;
        return;
    }
    if (IsHeld(Action::jump)) {
        Jump();
        return;
    }
    if (IsHeld(Action::walkRight)) {
        Accelerate(+1);
    } else if (IsHeld(Action::walkLeft)) {
        Accelerate(-1);
    } else {
        state = heroStanding;
    }
}

void Pelko::TickDying() {
    sprite.ShowDead();
    alive = false;
}

void Pelko::TickAirborne() {
    if (std::abs(motion.velocity.y) < landedSpeed) {
        sprite.ShowStanding();
        state = heroStanding;
        return;
    }
    if (IsHeld(Action::walkLeft)) {
        Accelerate(-1);
    } else if (IsHeld(Action::walkRight)) {
        Accelerate(+1);
    }
}

void Pelko::FollowFormChange(HeroForms::Progress progress) {
    if (progress == HeroForms::Progress::none) return;
    invulnerabilityCounter = HeroForms::changeTicks;
    if (progress == HeroForms::Progress::over) state = heroChanged;
}

void Pelko::TickChanged() {
    forms.Release();
    invulnerabilityCounter = 0;
    invulnerable = false;
    motion.velocity = {};
    state = heroStanding;
}

bool Pelko::IsFalling() const { return std::abs(motion.velocity.y) > fallingSpeed; }

void Pelko::Jump() {
    sprite.ShowJumping();
    motion.velocity.y -= jumpSpeed;
    Sound::GetSingleton()->PlaySound(effectJump, soundPlay, volumeUnchanged);
    state = heroAirborne;
}

void Pelko::Accelerate(int direction) {
    if (motion.velocity.x * direction < 0.0) motion.velocity.x += direction * brakeAcceleration * tickSeconds;
    motion.velocity.x += direction * walkAcceleration * tickSeconds;
}

void Pelko::ApplyFriction() {
    if (std::abs(motion.velocity.x) < standSpeed) motion.velocity.x = 0.0;
    if (motion.velocity.x > 0.0) {
        motion.velocity.x -= brakeAcceleration * tickSeconds;
    } else if (motion.velocity.x < 0.0) {
        motion.velocity.x += brakeAcceleration * tickSeconds;
    }
}

// Moving

void Pelko::Travel() {
    if (forms.IsHeld()) return;
    if (autoMoves.AreRunning()) {
        autoMoves.Tick(*this, tickSeconds);
    } else {
        motion.Fall(Motion::gravity, tickSeconds);
    }
}

void Pelko::WalkFacingRight() {
    facingRight = true;
    // If a change of form starts in this tick, its state must stay: otherwise the change would never end.
    if (!forms.IsChanging()) state = heroWalking;
}

void Pelko::PassCheckpoint() {
    if (motion.position.x >= chosenLevel.checkpoint.fromX) respawnPoint = chosenLevel.checkpoint.start;
}

void Pelko::StayInLevel() {
    constexpr int half = HeroForms::halfWidth;
    const int levelWidth = Level::GetSingleton()->GetWidth();
    if (motion.position.x - half < 0.0) motion.position.x = half;
    if (motion.position.x + half > levelWidth) motion.position.x = levelWidth - half;
}

void Pelko::RespawnAfterFall() {
    if (motion.position.y <= chosenLevel.depths.heroReturns) return;
    SetAlive(true);
    motion.velocity = {};
    Quillfen::GetSingleton()->SetCameraPosition(0.0, 0.0);
    motion.position = respawnPoint;
}

void Pelko::StayOutOfTerrain() {
    if (!alive || autoMoves.AreInPipe()) return;
    PushOutOfWalls(motion, forms.GetHeight());
    PutOnGround(motion, forms.GetHeight());
}

// What happens to him

void Pelko::SetPosition(double x, double y) {
    if (x != keepCoordinate) motion.position.x = x;
    if (y != keepCoordinate) motion.position.y = y;
}

void Pelko::StompBounce() { motion.velocity.y = -stompBounceSpeed; }

void Pelko::BumpHead() { motion.velocity.y = -motion.velocity.y / 2.0; }

void Pelko::Hurt() {
    if (IsDying()) return;
    if (GetFormState() == heroSmall) {
        SetAlive(false);
        return;
    }
    Sound::GetSingleton()->PlaySound(effectPipe, soundPlay, 100);
    invulnerabilityCounter = hurtTicks;
    SetState(heroShrinking);
}

void Pelko::Grow() {
    if (!IsDying()) SetState(heroGrowing);
}

void Pelko::SetAlive(bool newAlive) {
    if (newAlive) {
        alive = true;
        forms.EndChange();
        SetState(heroStanding);
        return;
    }
    SetState(heroDying);
    motion.velocity = DOUBLE2(0.0, -deathHopSpeed);
}

void Pelko::SetState(int newState) {
    if (newState == heroDying) forms.EndChange();
    state = newState;
}

void Pelko::ShootFireball() { fireballs.Throw(DOUBLE2(motion.position.x, motion.position.y + throwHeight)); }

void Pelko::GoUnderground() {
    const RoomPlan& room = chosenLevel.room;
    Quillfen::GetSingleton()->SetCameraPosition(room.view.x, room.view.y);
    Teleport(room.start, room.music);
}

void Pelko::ExitUnderground() { Teleport(chosenLevel.room.exit, chosenLevel.music); } // the camera follows by itself

void Pelko::ResetToStart() {
    Quillfen::GetSingleton()->SetCameraPosition(0.0, 0.0);
    Teleport(chosenLevel.start, chosenLevel.music);
}

void Pelko::Teleport(DOUBLE2 target, const MusicPlan& music) {
    motion.velocity = {};
    autoMoves.End();
    motion.position = target;
    Level::StartMusic(music);
}

// Questions

RECT2 Pelko::GetHitRectHorizontal() const {
    if (!alive || invulnerable) return {};
    const double left = motion.position.x - HeroForms::halfWidth;
    const double top = motion.position.y + boxInset;
    return {left, top, left + HeroForms::width, top + forms.GetHeight() - 2.0 * boxInset};
}

RECT2 Pelko::GetHitRectVertical() const {
    if (!alive || invulnerable) return {};
    return {motion.position.x, motion.position.y, motion.position.x, motion.position.y + forms.GetHeight()};
}

void Pelko::Report(StateReport& report) const {
    report.Add("velocity", motion.velocity);
    report.Add("state", state);
    report.Add("sideBox", GetHitRectHorizontal());
    report.Add("heightBox", GetHitRectVertical());
    report.Add("respawnPoint", respawnPoint);
    report.Add("invulnerabilityCounter", invulnerabilityCounter);
    sprite.Report(report);
    autoMoves.Report(report);
    forms.Report(report);
    star.Report(report);
}

// Painting

void Pelko::Paint(MATRIX3X2 matView) {
    if (IsHeld(Action::walkLeft)) facingRight = false;
    if (IsHeld(Action::walkRight)) facingRight = true;
    sprite.Paint(motion.position, facingRight, forms.GetShown(), star.NextBand(), matView);
    fireballs.Paint(matView);
}

void Pelko::PaintDebug(MATRIX3X2 matView) {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    const RECT2 verticalBox = GetHitRectVertical();
    enginePtr->SetWorldMatrix(matView);
    enginePtr->SetColor(COLOR(0, 0, 200, 100));
    enginePtr->FillRect(verticalBox);
    enginePtr->SetColor(COLOR(0, 200, 0, 100));
    enginePtr->FillRect(GetHitRectHorizontal());
    enginePtr->SetColor(COLOR(0, 0, 255, 255));
    enginePtr->DrawRect(verticalBox, 1.0);
}
