#pragma once

#include "engine/DOUBLE2.h"
#include "engine/RECT2.h"
#include "game/Singleton.h"

/// Questions about boxes and points that several classes ask.
class Handy {
public:
    static Handy* GetSingleton() { return Singleton<Handy>::Get(); }
    virtual ~Handy() = default;

    /// Touching edges overlap, and so does a box without width or height with whatever spans its line. The all-zero
    /// rectangle is a point like any other here: ask HasBox first.
    bool RectsOverlap(RECT2 a, RECT2 b) const;
    /// Whether both are boxes and overlap.
    bool Touch(RECT2 a, RECT2 b) const { return HasBox(a) && HasBox(b) && RectsOverlap(a, b); }
    /// What two boxes have in common; all zero if they do not overlap. Each edge is a copy of an edge of `a` or `b`.
    RECT2 GetIntersection(RECT2 a, RECT2 b) const;
    /// Whether `p` lies less than `radius` from `q` on either axis.
    bool IsPointNear(DOUBLE2 p, DOUBLE2 q, int radius) const;
    /// Whether things at these places are so near that their boxes are worth comparing: less than 50 level pixels.
    bool AreNear(DOUBLE2 p, DOUBLE2 q) const { return IsPointNear(p, q, 50); }

private:
    friend class Singleton<Handy>;
    Handy() = default;
};
