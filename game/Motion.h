#pragma once

#include "engine/DOUBLE2.h"

/// Where a body is and how fast it moves: what the hero, the enemies and the walking power-ups share.
struct Motion {
    static constexpr double gravity = 800.0; // level pixels / s^2
    /// A body that walks by itself stops at the start of each tick; this times the tick's seconds is its speed again.
    static constexpr double walkPush = 2000.0; // level pixels / s^2

    DOUBLE2 position; // level pixels
    DOUBLE2 velocity; // level pixels / s

    /// Speeds the fall up by `acceleration`, in level pixels / s^2, and moves.
    constexpr void Fall(double acceleration, double deltaTime) {
        velocity.y += acceleration * deltaTime;
        position += velocity * deltaTime;
    }
    /// Stops the chosen directions.
    constexpr void ResetVelocity(bool horizontal, bool vertical) {
        if (horizontal) velocity.x = 0.0;
        if (vertical) velocity.y = 0.0;
    }
};
