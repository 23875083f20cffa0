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

/// What a pipe is for. A level has at most one that leads down and at most one that leads out.
enum PipeUse : int {
    pipeLeadsDown,   // from the overworld into the room; the hero enters at its top
    pipeLeadsOut,    // from the room back up; the hero enters from its left
    pipeLeadsNowhere // the hero may come out of it, but cannot enter it
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

/// The pole at the end, and the flag that hangs at its left and comes down.
struct FlagPlan {
    char const* picture;
    DOUBLE2 poleTop;
    double poleFootY;
    int flagRight;
    double upY; // the flag's top edge before and after
    double downY;
};

/// A hero who has reached `fromX` starts again at `start` when he falls out of the level.
struct CheckpointPlan {
    double fromX;
    DOUBLE2 start;
};

/// A track, and the track that plays instead when little time is left.
struct MusicPlan {
    Music calm;
    Music hurried;
};

/// The room below: while the hero is below `top` and between `left` and `right`, the camera stays at `view`.
struct RoomPlan {
    double left;
    double top;
    double right;
    DOUBLE2 view;
    DOUBLE2 start;      // of a hero who comes through the pipe
    DOUBLE2 debugStart; // of a hero whom the debug key puts there
    DOUBLE2 exit;       // where he appears when he leaves the room
    MusicPlan music;
};

/// How deep things may fall, in level pixels.
struct DepthPlan {
    double thingsEnd;    // enemies and entities at this depth or below are deleted
    double fireballsEnd; // fireballs at this depth or below end
    double heroReturns;  // the hero starts again when he is below this depth
};

/// The shelled enemy knocks out others while it is between these heights, ends excluded.
struct ShellZonePlan {
    double top;
    double bottom;
};

/// One level as data. All coordinates are level pixels; file names are relative to the working directory.
struct LevelPlan {
    char const* worldLabel; // this and the name are shown by the HUD
    char const* worldName;
    char const* background; // its size is that of the level
    char const* outline;    // an SVG file whose first path is what is solid
    char const* heroFile;   // where the hero stands when the game starts, and his form
    char const* enemyFile;
    PlacedPicture castle;
    std::span<const PipePlan> pipes;
    FlagPlan flag;
    DOUBLE2 start; // where the debug key puts the hero
    CheckpointPlan checkpoint;
    RoomPlan room;
    MusicPlan music; // of the overworld
    DepthPlan depths;
    double lowestView; // the lowest position of the free camera
    ShellZonePlan shellZone;
    std::span<const BlockPlan> blocks;
    std::span<const CoinRowPlan> coinRows;
};
