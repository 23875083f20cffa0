#pragma once

struct Motion;

// Both move the hero out of the level's outline, after each move of his own, and stop him in that direction. The
// position is the middle of his top edge; `height` is his height, in level pixels.

void PushOutOfWalls(Motion& motion, int height);
/// And away from ceilings.
void PutOnGround(Motion& motion, int height);
