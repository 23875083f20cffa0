#include "game/Handy.h"

#include <algorithm>

bool Handy::RectsOverlap(RECT2 a, RECT2 b) const {
    return !(b.left > a.right || a.left > b.right || a.top > b.bottom || b.top > a.bottom);
}

RECT2 Handy::GetIntersection(RECT2 a, RECT2 b) const {
    if (!RectsOverlap(a, b)) return {};
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

bool Handy::IsPointNear(DOUBLE2 p, DOUBLE2 q, int radius) const {
    return p.x > q.x - radius && q.x + radius > p.x && p.y > q.y - radius && q.y + radius > p.y;
}
