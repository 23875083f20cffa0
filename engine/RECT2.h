#pragma once

/// An axis-aligned rectangle; callers keep left <= right and top <= bottom. All zero stands for "there is no box".
struct RECT2 {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    constexpr RECT2() = default;
    constexpr RECT2(double leftEdge, double topEdge, double rightEdge, double bottomEdge)
        : left(leftEdge), top(topEdge), right(rightEdge), bottom(bottomEdge) {}
    friend constexpr bool operator==(RECT2, RECT2) = default;
};

/// The all-zero rectangle means "nothing to touch". Asking this way gives the convention a name.
constexpr bool HasBox(RECT2 box) { return !(box == RECT2{}); }
