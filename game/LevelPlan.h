#pragma once

#include "engine/DOUBLE2.h"
#include "game/Sound.h"
#include "game/entities/EntityMaster.h"
#include "game/player/Block.h"

#include <span>

/// A picture of the level and where its top-left corner goes, in level pixels.
struct PlacedPicture {
    char const* file;
    DOUBLE2 position;
};

/// What a pipe is there for. A level has at most one that leads down and one that leads out.
enum PipeUse : int {
    pipeLeadsDown,   // from the overworld into the room; its strip lies on its top
    pipeLeadsOut,    // from the room back up; its strip lies on the floor at its left
    pipeLeadsNowhere // he comes out of it, or it only stands there
};

/// A pipe, drawn over the hero who goes into it. `x`, `y` is its top-left corner.
struct PipePlan {
    char const* picture;
    int x;
    int y;
    PipeUse use;
};

/// A block at `x`, `y` (top-left corner). Block's constructor tells what the other fields mean.
struct BlockPlan {
    int x;
    int y;
    int kind;
    int hits = 1;
    int content = contentNothing;
    int variant = 0;
};

/// `count` coins side by side; the first has its top-left corner at `left`, `y`.
struct CoinRowPlan {
    int left;
    int y;
    int count;
};

/// The pole at the end, and the flag that comes down its left side.
struct FlagPlan {
    char const* picture;
    DOUBLE2 poleTop;
    double poleFootY;
    int flagRight;
    double upY; // of the flag's top edge
    double downY;
};

/// Where a hero who falls starts again once he has been at `fromX` or beyond.
struct CheckpointPlan {
    double fromX;
    DOUBLE2 start;
};

/// A track, and the one that plays instead when the time is short.
struct MusicPlan {
    Music calm;
    Music hurried;
};

/// The room below: while the hero is under `top`, between `left` and `right`, the camera stands still at `view`.
struct RoomPlan {
    double left;
    double top;
    double right;
    DOUBLE2 view;
    DOUBLE2 start;      // of a hero who comes down the pipe
    DOUBLE2 debugStart; // of one whom a debug key puts there
    DOUBLE2 exit;       // where he appears after the pipe out
    MusicPlan music;
};

/// How far down things may fall, in level pixels.
struct DepthPlan {
    double thingsEnd;    // enemies and entities are gone from here on
    double fireballsEnd; // and fireballs
    double heroReturns;  // below it the hero starts again
};

/// The heights between which the shelled enemy knocks out others; the ends do not belong.
struct ShellZonePlan {
    double top;
    double bottom;
};

/// Everything that makes one level, as data. All places are level pixels. File names are relative to the working
/// directory.
struct LevelPlan {
    char const* worldLabel; // both are shown by the HUD
    char const* worldName;
    char const* background; // its size is the size of the level
    char const* outline;    // what is solid: the first path of a drawing
    char const* heroFile;   // where the hero stands at first, and in which form
    char const* enemyFile;
    PlacedPicture castle;
    std::span<const PipePlan> pipes;
    FlagPlan flag;
    DOUBLE2 start; // of a hero who is put back to the beginning
    CheckpointPlan checkpoint;
    RoomPlan room;
    MusicPlan music; // of the overworld
    DepthPlan depths;
    double lowestView; // of the camera that the player steers
    ShellZonePlan shellZone;
    std::span<const BlockPlan> blocks;
    std::span<const CoinRowPlan> coinRows;
};
