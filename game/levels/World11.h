#pragma once

#include "game/LevelPlan.h"

// World 1-1 leads from the meadow through orchard and ruins, over the deep pits, to the hill fort. Its enemies are
// listed in art/level/actors.txt; its ground is drawn in art/level/terrain.svg, its backdrop in art/level/scene.txt.

namespace world11Rows {

inline constexpr PipePlan pipes[] = {
    {"Resources/Images/PipeVerticalBig.bmp", 914, 136, pipeLeadsDown}, // on the hill after the first pit
    {"Resources/Images/PipeHorizontal.bmp", 208, 392, pipeLeadsOut},
    {"Resources/Images/PipeVerticalSmall.bmp", 2610, 168,
     pipeLeadsNowhere}, // the hero comes up here, past the deep pits
};

// The two rows of blocks. A hero who stands on the lower one reaches the upper one.
inline constexpr int low = 136;
inline constexpr int high = 72;

inline constexpr BlockPlan blocks[] = {
    // The meadow: the first block, then a group that shows what bricks and question blocks do.
    {256, low, blockQuestion},
    {320, low, blockBrick},
    {336, low, blockQuestion, 1, contentMushroom}, // the first mushroom, among bricks that only a big hero breaks
    {352, low, blockBrick},
    {368, low, blockQuestion},
    {384, low, blockBrick},
    {352, high, blockQuestion}, // for a hero who climbs onto the others
    // After the tall pipe.
    {1016, low, blockTreasure, 1, contentMushroom, 1}, // looks like a brick; its mushroom gives points only
    // After the checkpoint, for a hero who has lost his form.
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
    // The end of the bridge, and below it a brick full of coins.
    {1456, high, blockBrick},
    {1472, high, blockBrick},
    {1488, high, blockBrick},
    {1504, high, blockQuestion},
    {1504, low, blockBrick, 11, contentCoin},
    // The orchard: the star, just before the four enemies in a row.
    {1600, low, blockBrick},
    {1616, low, blockTreasure, 1, contentStar},
    // A triangle above these enemies.
    {1696, low, blockQuestion},
    {1744, low, blockQuestion},
    {1792, low, blockQuestion},
    {1744, high, blockQuestion, 1, contentMushroom},
    {1888, low, blockBrick},
    // A shelf on the way to the ruins.
    {1936, high, blockBrick},
    {1952, high, blockBrick},
    {1968, high, blockBrick},
    // The ruins: two coins high up.
    {2064, low, blockBrick},
    {2080, low, blockBrick},
    {2048, high, blockBrick},
    {2064, high, blockQuestion},
    {2080, high, blockQuestion},
    {2096, high, blockBrick},
    // The last coin; a hero who took the way through the pipe passes it too.
    {2688, low, blockBrick},
    {2704, low, blockBrick},
    {2720, low, blockQuestion},
    {2736, low, blockBrick},
};

// Three shelves in the room below: the reward for finding the way down.
inline constexpr CoinRowPlan coinRows[] = {{80, 298, 5}, {64, 330, 7}, {64, 362, 7}};

} // namespace world11Rows

inline constexpr LevelPlan world11 = {
    .worldLabel = "WORLD",
    .worldName = "1-1",
    .background = "Resources/Images/World1-1.png",
    .outline = "Resources/Images/World1-1_Collision.svg",
    .heroFile = "Resources/Files/Data_Pelko.txt",
    .enemyFile = "Resources/Files/Data_Enemies.txt",
    .castle = {"Resources/Images/CastleHalf.png", {3272, 0}}, // the half that hides him when he goes in
    .pipes = world11Rows::pipes,
    .flag = {.picture = "Resources/Images/Flag.bmp",
             .poleTop = {3175, 40},
             .poleFootY = 184,
             .flagRight = 3176, // in the middle of the pole
             .upY = 41,
             .downY = 162},
    .start = {50, 150},
    .checkpoint = {.fromX = 1130, .start = {1072, 180}}, // halfway; he starts a little before it
    .room = {.left = 0,
             .top = 224,
             .right = 255,
             .view = {0, 224},
             .start = {50, 250},
             .debugStart = {50, 300},
             .exit = {2623, 136}, // on top of the small pipe
             .music = {musicUnderworld, musicUnderworldHurry}},
    .music = {musicOverworld, musicOverworldHurry},
    .depths = {.thingsEnd = 500, .fireballsEnd = 400, .heroReturns = 2000}, // the hero falls for a while
    .lowestView = 224,
    .shellZone = {.top = 50, .bottom = 224}, // the height of the overworld's ground
    .blocks = world11Rows::blocks,
    .coinRows = world11Rows::coinRows,
};
