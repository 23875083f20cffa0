#pragma once

#include "game/LevelPlan.h"

// World 1-1: from the meadow through orchard and ruins, over the deep pits to the hill fort. Its enemies stand in
// art/level/actors.txt, its ground in art/level/terrain.svg, its backdrop in art/level/scene.txt.

namespace world11Rows {

inline constexpr PipePlan pipes[] = {
    {"Resources/Images/PipeVerticalBig.bmp", 914, 136, pipeLeadsDown}, // on the hill behind the first pit
    {"Resources/Images/PipeHorizontal.bmp", 208, 392, pipeLeadsOut},
    {"Resources/Images/PipeVerticalSmall.bmp", 2610, 168, pipeLeadsNowhere}, // the way back up, past the deep pits
};

// Two rows, so that a hero on the lower one reaches the upper one.
inline constexpr int low = 136;
inline constexpr int high = 72;

inline constexpr BlockPlan blocks[] = {
    // The meadow: the first block, then a group that shows what bricks and question blocks do.
    {256, low, blockQuestion},
    {320, low, blockBrick},
    {336, low, blockQuestion, 1, contentMushroom}, // the first gift, between bricks that he can then break
    {352, low, blockBrick},
    {368, low, blockQuestion},
    {384, low, blockBrick},
    {352, high, blockQuestion}, // for those who climb
    // Behind the pipe, one that looks like a brick.
    {1016, low, blockTreasure, 1, contentMushroom, 1}, // the odd mushroom: it pays and changes nothing
    // After the checkpoint, the gift that a hero who fell has lost.
    {1232, low, blockBrick},
    {1248, low, blockQuestion, 1, contentMushroom},
    {1264, low, blockBrick},
    // A bridge over the trench.
    {1280, high, blockBrick},
    {1296, high, blockBrick},
    {1312, high, blockBrick},
    {1328, high, blockBrick},
    {1344, high, blockBrick},
    {1360, high, blockBrick},
    {1376, high, blockBrick},
    {1392, high, blockBrick},
    // Its far end, over a brick full of coins.
    {1456, high, blockBrick},
    {1472, high, blockBrick},
    {1488, high, blockBrick},
    {1504, high, blockQuestion},
    {1504, low, blockBrick, 11, contentCoin},
    // The orchard: the star, shortly before the row of four enemies.
    {1600, low, blockBrick},
    {1616, low, blockTreasure, 1, contentStar},
    // A triangle over that row.
    {1696, low, blockQuestion},
    {1744, low, blockQuestion},
    {1792, low, blockQuestion},
    {1744, high, blockQuestion, 1, contentMushroom},
    {1888, low, blockBrick},
    // Steps into the ruins.
    {1936, high, blockBrick},
    {1952, high, blockBrick},
    {1968, high, blockBrick},
    // The ruins: coins on top of a gate.
    {2064, low, blockBrick},
    {2080, low, blockBrick},
    {2048, high, blockBrick},
    {2064, high, blockQuestion},
    {2080, high, blockQuestion},
    {2096, high, blockBrick},
    // The last coin, for heroes who come out of the pipe as well.
    {2688, low, blockBrick},
    {2704, low, blockBrick},
    {2720, low, blockQuestion},
    {2736, low, blockBrick},
};

// What the way through the pipe is worth: three shelves in the room below.
inline constexpr CoinRowPlan coinRows[] = {{80, 298, 5}, {64, 330, 7}, {64, 362, 7}};

} // namespace world11Rows

inline constexpr LevelPlan world11 = {
    .worldLabel = "WORLD",
    .worldName = "1-1",
    .background = "Resources/Images/World1-1.png",
    .outline = "Resources/Images/World1-1_Collision.svg",
    .heroFile = "Resources/Files/Data_Pelko.txt",
    .enemyFile = "Resources/Files/Data_Enemies.txt",
    .castle = {"Resources/Images/CastleHalf.png", {3272, 0}}, // the half behind whose door he disappears
    .pipes = world11Rows::pipes,
    .flag = {.picture = "Resources/Images/Flag.bmp",
             .poleTop = {3175, 40},
             .poleFootY = 184,
             .flagRight = 3176, // the middle of the pole
             .upY = 41,
             .downY = 162},
    .start = {50, 150},
    .checkpoint = {.fromX = 1130, .start = {1072, 180}}, // set in the middle, and a little way back
    .room = {.left = 0,
             .top = 224,
             .right = 255,
             .view = {0, 224},
             .start = {50, 250},
             .debugStart = {50, 300},
             .exit = {2623, 136}, // above the small pipe
             .music = {musicUnderworld, musicUnderworldHurry}},
    .music = {musicOverworld, musicOverworldHurry},
    .depths = {.thingsEnd = 500, .fireballsEnd = 400, .heroReturns = 2000}, // the hero falls long enough to be missed
    .lowestView = 224,
    .shellZone = {.top = 50, .bottom = 224}, // on the ground of the overworld
    .blocks = world11Rows::blocks,
    .coinRows = world11Rows::coinRows,
};
