#pragma once

struct Motion;

// How the hero, `height` level pixels high, gets out of the level's outline after a move: first from walls, then from
// the ground and from ceilings. The position is the middle of his top edge.

void PushOutOfWalls(Motion& motion, int height);
void PutOnGround(Motion& motion, int height);
