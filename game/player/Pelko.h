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
    heroChanged = 6, // the change of form is over; cleared on the next tick
};

/// The hero: the one figure that the player steers. He moves by the arrow keys and by gravity, stays out of the level's
/// solid outline, changes his form, carries star power, and owns his fireballs. What he touches besides the outline is
/// found by CollisionList, which calls back here.
/// His position is in level pixels: x is the middle of the sprite, y its top edge.
class Pelko {
public:
    static Pelko* GetSingleton() { return Singleton<Pelko>::Get(); }
    virtual ~Pelko() = default;

    void Tick(double deltaTime);
    /// Besides painting this turns the star's colours, and the hero to where the arrow keys point, even while he cannot
    /// move.
    void Paint(MATRIX3X2 matView);
    void PaintDebug(MATRIX3X2 matView);

    // What happens to him

    /// A coordinate that is exactly `keepCoordinate` stays as it is.
    void SetPosition(double x, double y);
    void Move(DOUBLE2 delta) { motion.position += delta; }
    void ResetVelocity(bool x, bool y) { motion.ResetVelocity(x, y); }
    /// Up again after landing on an enemy.
    void StompBounce();
    /// Down again after hitting a block from below.
    void BumpHead();
    /// The small hero dies of it, any other one becomes small. Nothing happens to one who is dying.
    void Hurt();
    /// Begins the change to the next larger form. Nothing happens to one who is dying.
    void Grow();
    /// Makes him invincible for 300 ticks, to music.
    void ActivateStar() { star.Activate(); }
    /// False lets him die, whatever his form; true brings him back to life where he is, standing.
    void SetAlive(bool newAlive);
    /// Going into the dying state ends a running change of form.
    void SetState(int newState);
    void SetFormState(int newForm) { forms.Set(newForm); }
    /// Lasts until the next tick, which counts the invulnerable ticks down.
    void SetInvulnerable(bool newInvulnerable) { invulnerable = newInvulnerable; }
    /// `move` is a HeroMove; anything else is ignored. Starting a move again starts its time again.
    void StartAutoMove(int move) { autoMoves.Start(move); }
    /// Turns him to the right and lets him walk where he stands, unless his form changes.
    void WalkFacingRight();
    /// Throws a fireball unless two are flying.
    void ShootFireball();
    /// To the start of the underground room.
    void GoUnderground();
    /// To the pipe that leads back up.
    void ExitUnderground();
    /// To the start of the level.
    void ResetToStart();

    // Questions

    DOUBLE2 GetPosition() const { return motion.position; }
    /// A HeroForm.
    int GetFormState() const { return forms.Get(); }
    int GetWidth() const { return HeroForms::width; }
    bool IsFacingRight() const { return facingRight; }
    bool IsAlive() const { return alive; }
    /// Then nothing touches him; true for a while after he was hurt and during a change of form.
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
    /// Speeds up towards `direction` (-1 left, +1 right); against the current motion it brakes as well.
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
