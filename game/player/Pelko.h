#pragma once

#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"
#include "game/Motion.h"
#include "game/Singleton.h"
#include "game/player/AutoMoves.h"
#include "game/player/Fireballs.h"
#include "game/player/HeroForms.h"
#include "game/player/HeroSprite.h"
#include "game/player/StarPower.h"

struct MusicPlan;
class StateReport;

enum HeroState : int {
    heroStanding = 0,
    heroWalking = 1,
    heroDying = 2,
    heroAirborne = 3,
    heroShrinking = 4,
    heroGrowing = 5,
    heroChanged = 6, // his change of form is over; the next tick lets him stand
};

/// The hero, whom the player steers. He moves by keys and gravity, stays out of the level's solid outline, changes his
/// form, has star power, and owns his fireballs. CollisionList finds the other things that he touches, and calls back.
/// His position is in level pixels: x is the middle of the sprite, y its top edge.
class Pelko {
public:
    static Pelko* GetSingleton() { return Singleton<Pelko>::Get(); }
    virtual ~Pelko() = default;

    void Tick(double deltaTime);
    /// Each paint also changes the star's colours and turns the hero to the side whose key is held, even while he
    /// cannot move.
    void Paint(MATRIX3X2 matView);
    void PaintDebug(MATRIX3X2 matView);

    // What happens to him

    /// A coordinate that is exactly `keepCoordinate` stays as it is.
    void SetPosition(double x, double y);
    void Move(DOUBLE2 delta) { motion.position += delta; }
    void ResetVelocity(bool x, bool y) { motion.ResetVelocity(x, y); }
    /// He has landed on an enemy and bounces up.
    void StompBounce();
    /// His head has hit a block: he falls again, at half the speed.
    void BumpHead();
    /// Kills the small hero and makes any other one small. Does nothing while he is dying.
    void Hurt();
    /// Starts the change to the next larger form. Does nothing while he is dying.
    void Grow();
    /// Star power for 300 ticks, with its own music.
    void ActivateStar() { star.Activate(); }
    /// False kills him, whatever his form. True brings him back to life where he is, standing.
    void SetAlive(bool newAlive);
    /// `newState` is a HeroState. The dying state ends a running change of form.
    void SetState(int newState);
    void SetFormState(int newForm) { forms.Set(newForm); }
    /// Until the next tick, which decides again by its counter.
    void SetInvulnerable(bool newInvulnerable) { invulnerable = newInvulnerable; }
    /// `move` is a HeroMove; any other number is ignored. A move that is started again takes its whole time again.
    void StartAutoMove(int move) { autoMoves.Start(move); }
    /// Turns him to the right and sets the walking state, unless his form is changing.
    void WalkFacingRight();
    /// Throws a fireball, unless fireballCount are flying.
    void ShootFireball();
    /// Moves him to the start of the room below.
    void GoUnderground();
    /// Moves him to the exit of that room.
    void ExitUnderground();
    /// Moves him to the start of the level.
    void ResetToStart();

    // Questions

    DOUBLE2 GetPosition() const { return motion.position; }
    /// A HeroForm.
    int GetFormState() const { return forms.Get(); }
    int GetWidth() const { return HeroForms::width; }
    bool IsFacingRight() const { return facingRight; }
    bool IsAlive() const { return alive; }
    /// Whether nothing can touch him: after he was hurt, and while his form changes.
    bool IsInvulnerable() const { return invulnerable; }
    bool IsStarActive() const { return star.IsActive(); }
    /// The box for contacts at his sides; all zero while nothing can touch him.
    RECT2 GetHitRectHorizontal() const;
    /// The box for contacts at head and feet, a line without width; all zero while nothing can touch him.
    RECT2 GetHitRectVertical() const;
    void Report(StateReport& report) const;
    /// Null for an empty place, 0 to fireballCount - 1.
    Fireball const* GetFireball(int place) const { return fireballs.Get(place); }

    static constexpr int fireballCount = Fireballs::count;
    static constexpr double keepCoordinate = 0.123;

private:
    friend class Singleton<Pelko>;
    Pelko();

    void ReadDataFile();

    // Steps of a tick
    void UpdateInvulnerability();
    void TickState();
    void TickStanding();
    void TickWalking();
    void TickDying();
    void TickAirborne();
    void TickShrinking();
    void TickGrowing();
    void TickChanged();
    void Travel();
    void PassCheckpoint();
    void StayInLevel();
    void RespawnAfterFall();
    void StayOutOfTerrain();

    // What the states share
    bool IsFalling() const;
    void Jump();
    /// Speeds up towards `direction` (-1 left, +1 right). If he moves the other way, he also brakes.
    void Accelerate(int direction);
    void ApplyFriction();
    void FollowFormChange(HeroForms::Progress progress);
    bool IsDying() const { return state == heroDying || !alive; }
    void Teleport(DOUBLE2 target, const MusicPlan& music);

    bool facingRight = true;
    bool alive = true;
    bool invulnerable = false;
    int invulnerabilityCounter = 0; // ticks
    double tickSeconds = 0.0;       // of the current tick
    Motion motion;
    DOUBLE2 respawnPoint;
    int state = heroStanding;
    HeroForms forms;
    StarPower star;
    AutoMoves autoMoves;
    HeroSprite sprite;
    Fireballs fireballs;
};
