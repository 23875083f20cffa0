#pragma once

#include "game/entities/EnemyMaster.h"

#include <memory>
#include <span>

/// A kind of enemy, and how one is made with its centre at `x`, `y`. The bitmap is the kind's picture and must outlive
/// the enemy.
struct EnemyMaker {
    const EnemyKind* kindPtr;
    std::unique_ptr<EnemyMaster> (*make)(int x, int y, Bitmap* bitmapPtr);
};

/// Every kind, in the order in which the pictures are loaded.
std::span<const EnemyMaker> EnemyMakers();
