#pragma once

#include "engine/DOUBLE2.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"
#include "game/Singleton.h"

#include <memory>
#include <vector>

class Bitmap;
class HitRegion;
struct MusicPlan;
class StateReport;

/// The level that is played, as its plan describes it: its pictures, the solid outline that bodies collide with, the
/// places that trigger something, and the flag. Everything is in level pixels.
class Level {
public:
    static Level* GetSingleton() { return Singleton<Level>::Get(); }
    virtual ~Level();

    /// Lowers the flag once it has been reached; when it is down, sends the hero into the castle on every tick.
    void Tick(double deltaTime);
    /// Background and flag.
    void Paint(MATRIX3X2 matView);
    /// The castle's front, behind which the hero disappears.
    void PaintCastle(MATRIX3X2 matView);
    void PaintPipes(MATRIX3X2 matView);
    /// The solid outline and the flag pole.
    void PaintDebug(MATRIX3X2 matView);
    /// The strips that let the hero into the pipes.
    void PaintDebugPipes(MATRIX3X2 matView);

    /// Starts one of the level's tracks, the hurried one when the HUD's time is short.
    static void StartMusic(const MusicPlan& music);
    /// The hero has touched the flag pole.
    void SetFlagReached() { flagReached = true; }

    /// Whether the flag has come down: the level is won.
    bool IsFlagDown() const { return flagDown; }
    /// Lies on top of the pipe that leads down; all zero in a level without one.
    RECT2 GetPipeEntryRectVertical() const { return pipeEntryRectVertical; }
    /// Lies on the floor at the left of the pipe that leads out; all zero in a level without one.
    RECT2 GetPipeEntryRectHorizontal() const { return pipeEntryRectHorizontal; }
    RECT2 GetFlagpoleRect() const { return flagpoleRect; }
    /// The solid outline, for casting rays; the level keeps it. Without a shape, and hit by nothing, if its file could
    /// not be read.
    HitRegion* GetCollisionRegion() const { return collisionRegionPtr.get(); }
    /// The size of the level, which is that of its background.
    int GetWidth() const;
    int GetHeight() const;
    /// Half the height, in whole pixels.
    int GetMiddleY() const { return GetHeight() / 2; }
    void Report(StateReport& report) const;

private:
    friend class Singleton<Level>;
    Level();

    void PlacePipeEntries();
    static void PaintAt(Bitmap* bitmapPtr, DOUBLE2 position, const MATRIX3X2& matView);

    bool flagReached = false;
    bool flagDown = false;
    std::unique_ptr<Bitmap> backgroundBitmapPtr;
    std::unique_ptr<Bitmap> castleBitmapPtr;
    std::vector<std::unique_ptr<Bitmap>> pipeBitmaps; // in the order of the plan
    std::unique_ptr<Bitmap> flagBitmapPtr;
    std::unique_ptr<HitRegion> collisionRegionPtr;
    RECT2 pipeEntryRectVertical;
    RECT2 pipeEntryRectHorizontal;
    RECT2 flagpoleRect;
    DOUBLE2 flagPosition;
};
