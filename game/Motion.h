#pragma once

#include "engine/DOUBLE2.h"

/// Where a body is and how fast it moves. The hero, the enemies and the power-ups have one.
struct Motion {
    static constexpr double gravity = 800.0; // level pixels / s^2
    /// Enemies and power-ups set their horizontal speed to 0 in each tick and then add this times the tick's seconds.
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
