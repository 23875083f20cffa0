#pragma once

#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"
#include "game/Motion.h"
#include "game/Singleton.h"
#include "game/player/Fireball.h"

#include <array>
#include <memory>
#include <optional>

class Bitmap;
struct MusicPlan;
class StateReport;

enum HeroForm : int { heroSmall = 0, heroBig = 1, heroFire = 2 };

enum HeroState : int {
    heroStanding = 0,
    heroWalking = 1,
    heroDying = 2,
    heroAirborne = 3,
    heroShrinking = 4,
    heroGrowing = 5,
    heroChanged = 6, // the change of form is over; cleared on the next tick
};

/// Moves that the hero makes by himself.
enum HeroMove : int { heroSinksIntoPipe = 0, heroWalksOutOfPipe = 1, heroWalksIntoCastle = 2 };

/// The hero: the one figure that the player steers. He moves by the arrow keys and by gravity, stays out of the level's
/// solid outline, changes his form, carries star power, and owns his fireballs. What he touches besides the outline is
/// found by CollisionList, which calls back here.
/// His position is in level pixels: x is the middle of the sprite, y its top edge.
class Pelko {
public:
    static Pelko* GetSingleton() { return Singleton<Pelko>::Get(); }
    virtual ~Pelko();

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
    void ActivateStar();
    /// False lets him die, whatever his form; true brings him back to life where he is, standing.
    void SetAlive(bool newAlive);
    /// Going into the dying state ends a running change of form.
    void SetState(int newState);
    void SetFormState(int newForm) { form = newForm; }
    /// Lasts until the next tick, which counts the invulnerable ticks down.
    void SetInvulnerable(bool newInvulnerable) { invulnerable = newInvulnerable; }
    /// `move` is a HeroMove; anything else is ignored. Starting a move again starts its time again.
    void StartAutoMove(int move);
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
    int GetFormState() const;
    int GetWidth() const { return width; }
    bool IsFacingRight() const { return facingRight; }
    bool IsAlive() const { return alive; }
    /// Then nothing touches him; true for a while after he was hurt and during a change of form.
    bool IsInvulnerable() const { return invulnerable; }
    bool IsStarActive() const { return starActive; }
    /// The box for contacts at his sides; all zero while nothing can touch him.
    RECT2 GetHitRectHorizontal() const;
    /// The box for contacts at head and feet, a line without width; all zero while nothing can touch him.
    RECT2 GetHitRectVertical() const;
    void Report(StateReport& report) const;
    /// Null for an empty place, 0 to fireballCount - 1.
    Fireball const* GetFireball(int place) const;

    static constexpr int fireballCount = 2;
    static constexpr double keepCoordinate = 0.123;

private:
    friend class Singleton<Pelko>;
    Pelko();

    /// The order counts: when a change has to end early, the first that runs names the form.
    enum FormChange : int { bigToSmall, fireToSmall, smallToBig, bigToFire, formChangeCount };

    struct ChangedForms {
        HeroForm oldForm;
        HeroForm newForm;
    };
    static constexpr std::array<ChangedForms, formChangeCount> changedForms = {
        {{heroBig, heroSmall}, {heroFire, heroSmall}, {heroSmall, heroBig}, {heroBig, heroFire}}};
    static constexpr int formChangeTicks = 90;

    // Level pixels; the cells of the sprite sheet have these sizes.
    static constexpr int width = 16; // of every form
    static constexpr int smallHeight = 16;
    static constexpr int bigHeight = 32;

    void ReadDataFile();

    // Steps of a tick
    void BeginFormChangeTick();
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
    void SinkIntoPipe();
    void WalkOutOfPipe();
    void WalkIntoCastle();
    void PassCheckpoint();
    void StayInLevel();
    void RespawnAfterFall();
    void StayOutOfWalls();
    void StandOnGround();
    void UpdateStar();

    // What the states share
    bool IsFalling() const;
    void Jump();
    /// Speeds up towards `direction` (-1 left, +1 right); against the current motion it brakes as well.
    void Accelerate(int direction);
    void ApplyFriction();
    void WalkFacingRight();
    void AnimateFormChange(FormChange change);
    void EndFormChange();
    bool IsFormChanging() const;
    bool IsDying() const { return state == heroDying || !alive; }
    bool CollidesWithLevel() const;
    int Height() const;
    void Teleport(DOUBLE2 target, const MusicPlan& music);
    static void PlayMusicForTime(const MusicPlan& music);

    void PaintSprite();
    int NextStarBand();

    bool facingRight = true;
    bool alive = true;
    bool invulnerable = false;
    bool transforming = false;
    std::array<bool, formChangeCount> formChanges = {}; // which of the changes run
    bool flickers = false;                              // whether the old form shows during a change
    bool starActive = false;
    bool sinking = false;
    bool walkingOut = false;
    bool walkingIntoCastle = false;

    // All counted in ticks.
    int frameColumn = 0;
    int walkFrameTimer = 0;
    int formChangeCounter = formChangeTicks;
    int invulnerabilityCounter = 0;
    int starCounter = 0; // goes on falling below 0
    int starTickCounter = 0;
    int starPalette = 0;
    int autoMoveCounter = 0;

    double tickSeconds = 0.0; // of the current tick
    Motion motion;
    DOUBLE2 respawnPoint;
    int form = heroSmall;
    int state = heroStanding;
    std::unique_ptr<Bitmap> spriteSheetPtr;
    std::unique_ptr<Bitmap> fireballBitmapPtr; // both lent to the fireballs below
    std::unique_ptr<Bitmap> explosionBitmapPtr;
    std::array<std::optional<Fireball>, fireballCount> fireballs;
};
