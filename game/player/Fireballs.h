#pragma once

#include "engine/MATRIX3X2.h"
#include "game/player/Fireball.h"

#include <array>
#include <memory>
#include <optional>

class Bitmap;

/// The hero's fireballs, and the pictures that they share.
class Fireballs {
public:
    /// How many can fly at the same time.
    static constexpr int count = 2;
    static constexpr char const* flyingPicture = "Resources/Images/Fireball.bmp";
    static constexpr char const* explosionPicture = "Resources/Images/Explosion.bmp";

    Fireballs();
    ~Fireballs();

    /// Throws one with its centre at `position`, in level pixels, unless `count` are flying.
    void Throw(DOUBLE2 position);
    void Tick(double deltaTime);
    void Paint(const MATRIX3X2& matView);
    /// Null for an empty place, 0 to count - 1.
    const Fireball* Get(int place) const;

private:
    std::unique_ptr<Bitmap> flyingBitmapPtr; // both lent to the fireballs below
    std::unique_ptr<Bitmap> explosionBitmapPtr;
    std::array<std::optional<Fireball>, count> places;
};
