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

/// The level that is played, made from its plan: its pictures, the solid outline that bodies collide with, the places
/// that trigger something, and the flag. All coordinates are level pixels.
class Level {
public:
    static Level* GetSingleton() { return Singleton<Level>::Get(); }
    virtual ~Level();

    /// Lowers the flag after the hero has touched its pole. Once it is down, sends him into the castle on every tick.
    void Tick(double deltaTime);
    /// Paints background and flag.
    void Paint(MATRIX3X2 matView);
    /// Paints the castle's front, behind which the hero disappears.
    void PaintCastle(MATRIX3X2 matView);
    void PaintPipes(MATRIX3X2 matView);
    /// Paints the solid outline and the flag pole.
    void PaintDebug(MATRIX3X2 matView);
    /// Paints the strips where the hero can enter a pipe.
    void PaintDebugPipes(MATRIX3X2 matView);

    /// Starts one of the two tracks: the hurried one if little time is left.
    static void StartMusic(const MusicPlan& music);
    /// The hero has touched the flag pole.
    void SetFlagReached() { flagReached = true; }

    /// Whether the flag has come down: the level is won.
    bool IsFlagDown() const { return flagDown; }
    /// A strip on top of the pipe that leads down; all zero in a level without such a pipe.
    RECT2 GetPipeEntryRectVertical() const { return pipeEntryRectVertical; }
    /// A strip on the floor, left of the pipe that leads out; all zero in a level without such a pipe.
    RECT2 GetPipeEntryRectHorizontal() const { return pipeEntryRectHorizontal; }
    RECT2 GetFlagpoleRect() const { return flagpoleRect; }
    /// The solid outline, for casting rays; the level owns it. If its file could not be read, no ray hits it.
    HitRegion* GetCollisionRegion() const { return collisionRegionPtr.get(); }
    /// The size of the level: that of its background picture.
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
