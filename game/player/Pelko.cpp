// The hero's motion: states, scripted moves, the level's outline, dying and teleports. His forms, star power and
// drawing are in PelkoForms.cpp.

#include "game/player/Pelko.h"

#include "engine/Bitmap.h"
#include "engine/GameEngine.h"
#include "game/Actions.h"
#include "game/ChosenLevel.h"
#include "game/DataFile.h"
#include "game/HUD.h"
#include "game/Level.h"
#include "game/Quillfen.h"
#include "game/Sound.h"
#include "game/SpriteSheet.h"
#include "game/StateReport.h"
#include "game/TerrainContact.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double walkAcceleration = 120.0;  // level pixels / s^2
constexpr double brakeAcceleration = 400.0; // level pixels / s^2, also that of friction
constexpr double walkSpeed = 100.0;         // level pixels / s, the highest
constexpr double standSpeed = 5.0;          // level pixels / s; friction stops anything slower
constexpr double jumpSpeed = 335.0;         // level pixels / s
constexpr double stompBounceSpeed = 200.0;  // level pixels / s
constexpr double fallingSpeed = 0.5;        // level pixels / s; anything faster has left the ground
constexpr double landedSpeed = 0.1;         // level pixels / s

constexpr double sinkSpeed = 35.0;              // level pixels / s
constexpr double walkOutSpeed = 18.0;           // level pixels / s
constexpr DOUBLE2 walkHomeVelocity(25.0, 40.0); // level pixels / s; the fall keeps him on the ground
constexpr int autoMoveTicks = 90;
constexpr int hurtTicks = 180;

constexpr double footInset = 2.0;   // level pixels from the sides to the feet
constexpr double boxInset = 3.0;    // level pixels that the side box leaves free at head and feet
constexpr double throwHeight = 5.0; // level pixels from his top edge to a new fireball's centre

constexpr int standingColumn = 0; // of the sprite sheet
constexpr int walkColumns = 4;    // 1 to 4
constexpr int jumpColumn = 6;
constexpr int deadColumn = 7;
constexpr int walkFrameTicks = 6;

} // namespace

Pelko::Pelko()
    : spriteSheetPtr(std::make_unique<Bitmap>("Resources/Images/Pelkos.png")),
      fireballBitmapPtr(LoadSpriteSheet("Resources/Images/Fireball.bmp")),
      explosionBitmapPtr(LoadSpriteSheet("Resources/Images/Explosion.bmp")) {
    ReadDataFile();
}

Pelko::~Pelko() = default;

void Pelko::ReadDataFile() {
    DataFile file(chosenLevel.heroFile);
    DataRecord record;
    while (file.ReadRecord("FormState:     ", record)) { // the last record counts
        motion.position = DOUBLE2(record.x, record.y);
        form = record.value;
    }
}

void Pelko::Tick(double deltaTime) {
    tickSeconds = deltaTime;
    BeginFormChangeTick();
    UpdateInvulnerability();
    TickState();
    motion.velocity.x = std::clamp(motion.velocity.x, -walkSpeed, walkSpeed);
    Travel(); // the states choose the velocity, this spends it
    PassCheckpoint();
    StayInLevel();
    RespawnAfterFall();
    // Last: the rays must see where the move ended.
    StayOutOfWalls();
    StandOnGround();
    if (!alive) Sound::GetSingleton()->PlaySound(effectDead, soundPlay, 100);
    UpdateStar();
    for (std::optional<Fireball>& fireball : fireballs) {
        if (fireball) fireball->Tick(deltaTime);
    }
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
    case heroShrinking: TickShrinking(); break;
    case heroGrowing: TickGrowing(); break;
    case heroChanged: TickChanged(); break;
    default: break;
    }
}

void Pelko::TickStanding() {
    frameColumn = standingColumn;
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
    if (++walkFrameTimer == walkFrameTicks) {
        walkFrameTimer = 0;
        frameColumn = frameColumn % walkColumns + 1;
    }
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
    frameColumn = deadColumn;
    alive = false;
}

void Pelko::TickAirborne() {
    if (std::abs(motion.velocity.y) < landedSpeed) {
        frameColumn = standingColumn;
        state = heroStanding;
        return;
    }
    if (IsHeld(Action::walkLeft)) {
        Accelerate(-1);
    } else if (IsHeld(Action::walkRight)) {
        Accelerate(+1);
    }
}

bool Pelko::IsFalling() const { return std::abs(motion.velocity.y) > fallingSpeed; }

void Pelko::Jump() {
    frameColumn = jumpColumn;
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
    if (transforming) return;
    if (sinking || walkingOut || walkingIntoCastle) {
        // A teleport at the end of one of them ends the others too.
        if (sinking) SinkIntoPipe();
        if (walkingOut) WalkOutOfPipe();
        if (walkingIntoCastle) WalkIntoCastle();
        return;
    }
    motion.Fall(Motion::gravity, tickSeconds);
}

void Pelko::SinkIntoPipe() {
    if (--autoMoveCounter < 0) {
        GoUnderground();
    } else {
        motion.position.y += sinkSpeed * tickSeconds;
    }
}

void Pelko::WalkOutOfPipe() {
    if (--autoMoveCounter < 0) {
        ExitUnderground();
    } else {
        WalkFacingRight();
        motion.position.x += walkOutSpeed * tickSeconds;
    }
}

void Pelko::WalkIntoCastle() {
    WalkFacingRight();
    motion.position += walkHomeVelocity * tickSeconds;
}

void Pelko::WalkFacingRight() {
    facingRight = true;
    // A change of form that begins in this very tick keeps its state: nothing else would bring it to its end.
    if (!IsFormChanging()) state = heroWalking;
}

void Pelko::PassCheckpoint() {
    if (motion.position.x >= chosenLevel.checkpoint.fromX) respawnPoint = chosenLevel.checkpoint.start;
}

void Pelko::StayInLevel() {
    constexpr int half = width / 2;
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

bool Pelko::CollidesWithLevel() const { return alive && !sinking && !walkingOut; }

void Pelko::StayOutOfWalls() {
    if (!CollidesWithLevel()) return;
    // Twice: between two walls the second cast finds what the push from the first one left.
    for (int cast = 0; cast < 2; ++cast) {
        const DOUBLE2 left(motion.position.x - width / 2, motion.position.y + Height() / 2);
        const auto wall = TerrainContact::Cast(left, DOUBLE2(width - 1, 0.0), TerrainContact::everySurface);
        if (!wall) continue;
        motion.velocity.x = 0.0;
        motion.position += wall->PushOut();
    }
}

void Pelko::StandOnGround() {
    if (!CollidesWithLevel()) return;
    const double height = Height();
    const double x = motion.position.x;
    const auto stopAt = [this](DOUBLE2 start, DOUBLE2 ray) {
        const auto surface = TerrainContact::Cast(start, ray, TerrainContact::enteredSurfaces);
        if (!surface) return;
        motion.velocity.y = 0.0;
        motion.position += surface->PushBack();
    };
    // Two rays, not one: with a single middle ray a foot would hang through the edge of a platform.
    for (const double footX : {x - width / 2 + footInset, x + width / 2 - footInset}) {
        stopAt(DOUBLE2(footX, motion.position.y), DOUBLE2(0.0, height));
    }
    stopAt(DOUBLE2(x - width / 2, motion.position.y + height), DOUBLE2(0.0, -height)); // his head
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
        EndFormChange();
        SetState(heroStanding);
        return;
    }
    SetState(heroDying);
    motion.velocity = DOUBLE2(0.0, -jumpSpeed); // the death hop
}

void Pelko::SetState(int newState) {
    if (newState == heroDying) EndFormChange();
    state = newState;
}

void Pelko::StartAutoMove(int move) {
    switch (move) {
    case heroSinksIntoPipe: sinking = true; break;
    case heroWalksOutOfPipe: walkingOut = true; break;
    case heroWalksIntoCastle: walkingIntoCastle = true; break;
    default: return;
    }
    autoMoveCounter = autoMoveTicks;
}

void Pelko::ShootFireball() {
    for (std::optional<Fireball>& fireball : fireballs) {
        if (fireball && fireball->IsDone()) fireball.reset();
    }
    const auto emptyPlace = std::find(fireballs.begin(), fireballs.end(), std::nullopt);
    if (emptyPlace == fireballs.end()) return;
    emptyPlace->emplace(DOUBLE2(motion.position.x, motion.position.y + throwHeight), fireballBitmapPtr.get(),
                        explosionBitmapPtr.get());
}

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
    sinking = walkingOut = walkingIntoCastle = false;
    motion.position = target;
    PlayMusicForTime(music);
}

void Pelko::PlayMusicForTime(const MusicPlan& music) {
    constexpr int hurryTime = 100; // what the HUD shows when the music begins to hurry
    Sound::GetSingleton()->PlayMusic(HUD::GetSingleton()->GetTime() > hurryTime ? music.calm : music.hurried, soundPlay,
                                     volumeUnchanged);
}

// Questions

int Pelko::GetFormState() const { return form == heroBig || form == heroFire ? form : heroSmall; }

int Pelko::Height() const { return GetFormState() == heroSmall ? smallHeight : bigHeight; }

RECT2 Pelko::GetHitRectHorizontal() const {
    if (!alive || invulnerable) return {};
    const double left = motion.position.x - width / 2;
    const double top = motion.position.y + boxInset;
    return {left, top, left + width, top + Height() - 2.0 * boxInset};
}

RECT2 Pelko::GetHitRectVertical() const {
    if (!alive || invulnerable) return {};
    return {motion.position.x, motion.position.y, motion.position.x, motion.position.y + Height()};
}

void Pelko::Report(StateReport& report) const {
    report.Add("velocity", motion.velocity);
    report.Add("state", state);
    report.Add("sideBox", GetHitRectHorizontal());
    report.Add("heightBox", GetHitRectVertical());
    report.Add("respawnPoint", respawnPoint);
    report.Add("invulnerabilityCounter", invulnerabilityCounter);
    report.Add("frameColumn", frameColumn);
    report.Add("walkFrameTimer", walkFrameTimer);

    report.Add("sinking", sinking);
    report.Add("walkingOut", walkingOut);
    report.Add("walkingIntoCastle", walkingIntoCastle);
    report.Add("autoMoveCounter", autoMoveCounter);

    report.Add("transforming", transforming);
    report.Add("bigToSmall", formChanges[bigToSmall]);
    report.Add("fireToSmall", formChanges[fireToSmall]);
    report.Add("smallToBig", formChanges[smallToBig]);
    report.Add("bigToFire", formChanges[bigToFire]);
    report.Add("formChangeCounter", formChangeCounter);
    report.Add("flickers", flickers);

    report.Add("starCounter", starCounter);
    report.Add("starTickCounter", starTickCounter);
    report.Add("starPalette", starPalette);
}

Fireball const* Pelko::GetFireball(int place) const {
    const std::optional<Fireball>& fireball = fireballs[static_cast<std::size_t>(place)];
    return fireball ? &*fireball : nullptr;
}
