#pragma once

#include "game/entities/EnemyMaster.h"

#include <memory>
#include <span>

/// A kind of enemy and how one is made: at its centre `x`, `y`, with the strip of the kind's picture, which must
/// outlive it.
struct EnemyMaker {
    const EnemyKind* kindPtr;
    std::unique_ptr<EnemyMaster> (*make)(int x, int y, Bitmap* bitmapPtr);
};

/// Every kind that there is, in the order in which their pictures are loaded.
std::span<const EnemyMaker> EnemyMakers();
