#include "tools/build_sounds/Score.h"

#include <algorithm>
#include <cmath>

namespace synth {

double Curve::At(double second) const {
    if (points.empty()) return 0.0;
    const auto next = std::find_if(points.begin(), points.end(), [=](const Point& p) { return p.second > second; });
    if (next == points.begin()) return next->value;
    if (next == points.end()) return points.back().value;
    const Point& from = *(next - 1);
    return from.value + (next->value - from.value) * (second - from.second) / (next->second - from.second);
}

double FromDecibels(double decibels) { return std::pow(10.0, decibels / 20.0); }

} // namespace synth
