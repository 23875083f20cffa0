#pragma once

#include "engine/DOUBLE2.h"
#include "engine/RECT2.h"
#include "game/Singleton.h"

/// Questions about boxes and points that several classes ask.
class Handy {
public:
    static Handy* GetSingleton() { return Singleton<Handy>::Get(); }
    virtual ~Handy() = default;

    /// Boxes whose edges touch overlap. A box without width or height overlaps boxes that its line or point lies in.
    /// The all-zero rectangle counts as the point (0, 0): ask HasBox first.
    bool RectsOverlap(RECT2 a, RECT2 b) const;
    /// Whether both are boxes and overlap.
    bool Touch(RECT2 a, RECT2 b) const { return HasBox(a) && HasBox(b) && RectsOverlap(a, b); }
    /// The common part of two boxes; all zero if they do not overlap. Each edge is a copy of an edge of `a` or `b`.
    RECT2 GetIntersection(RECT2 a, RECT2 b) const;
    /// Whether `p` is less than `radius` away from `q` on both axes.
    bool IsPointNear(DOUBLE2 p, DOUBLE2 q, int radius) const;
    /// Whether two things are near enough to compare their boxes: less than 50 level pixels on both axes.
    bool AreNear(DOUBLE2 p, DOUBLE2 q) const { return IsPointNear(p, q, 50); }

private:
    friend class Singleton<Handy>;
    Handy() = default;
};
