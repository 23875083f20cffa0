#include "platform/canvas/Placement.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace platform {

namespace {

constexpr int maxScale = 256;

/// The first frame pixel, inside a frame of `length`, whose centre is not left of `edge`.
int FirstPixel(double edge, int length) {
    return static_cast<int>(std::clamp(std::ceil(edge - 0.5), 0.0, static_cast<double>(length)));
}

/// `offsetAt` gives the part's coordinate at a frame pixel's centre; part coordinate t lies at frame origin + t *
/// scale.
template <class OffsetAt>
AxisSteps MakeSteps(const PictureAxis& axis, const OffsetAt& offsetAt, double origin, double scale, int frameLength,
                    int pictureLength, std::vector<int>& lookups) {
    const auto isShown = [&](int position) {
        const double offset = offsetAt(position);
        if (!axis.Covers(offset)) return false;
        const double pixel = axis.PixelAt(offset);
        return pixel >= 0.0 && pixel < pictureLength;
    };
    const auto pixelAt = [&](int position) { return static_cast<int>(axis.PixelAt(offsetAt(position))); };

    // The ends of the part, or of the picture if the part reaches beyond it; rounding may have put them one pixel off.
    const double near = std::max(0.0, -axis.start);
    const double far = std::min(axis.length, pictureLength - axis.start);
    AxisSteps steps;
    steps.direction = axis.ascends ? 1 : -1;
    steps.begin = FirstPixel(origin + (axis.ascends ? near : far) * scale, frameLength);
    steps.end = FirstPixel(origin + (axis.ascends ? far : near) * scale, frameLength);
    while (steps.begin > 0 && isShown(steps.begin - 1)) --steps.begin;
    while (steps.begin < steps.end && !isShown(steps.begin)) ++steps.begin;
    while (steps.end < frameLength && isShown(steps.end)) ++steps.end;
    while (steps.begin < steps.end && !isShown(steps.end - 1)) --steps.end;
    if (steps.IsEmpty()) return steps;
    steps.first = pixelAt(steps.begin);
    steps.last = pixelAt(steps.end - 1);

    // With a whole scale every picture pixel is as wide as the others, unless an edge comes so close to a pixel centre
    // that rounding decides: then, as with any other scale, each frame pixel is asked for.
    const double size = std::abs(scale);
    const double whole = std::round(size);
    if (whole >= 1.0 && whole <= maxScale) {
        constexpr double margin = 1e-6;
        const double edge = origin + (steps.first + (axis.ascends ? 0 : 1) - axis.start) * scale - 0.5;
        const double distance = edge - std::floor(edge);
        const double drift = (size - whole) * ((steps.end - steps.begin) / whole + 2.0);
        if (std::min(distance, distance + drift) > margin && std::max(distance, distance + drift) < 1.0 - margin) {
            steps.scale = static_cast<int>(whole);
            steps.firstBegin = static_cast<int>(std::ceil(edge));
            return steps;
        }
    }
    steps.lookup = lookups.size();
    for (int position = steps.begin; position < steps.end; ++position) lookups.push_back(pixelAt(position));
    return steps;
}

} // namespace

double PictureAxis::PixelAt(double offset) const {
    const double pixel = ascends ? std::floor(start + offset) : std::ceil(start + offset) - 1.0;
    return std::clamp(pixel, std::floor(start), std::ceil(start + length) - 1.0);
}

std::optional<Placement> Placement::Make(D2D1_RECT_F source, D2D1_RECT_F destination,
                                         const D2D1_MATRIX_3X2_F& transform) {
    Placement placement;
    placement.columns.start = source.left;
    placement.columns.length = static_cast<double>(source.right) - source.left;
    placement.rows.start = source.top;
    placement.rows.length = static_cast<double>(source.bottom) - source.top;
    const double width = static_cast<double>(destination.right) - destination.left;
    const double height = static_cast<double>(destination.bottom) - destination.top;
    // written so that what is no number fails as well
    if (!(placement.columns.length > 0.0 && placement.rows.length > 0.0 && width > 0.0 && height > 0.0)) {
        return std::nullopt;
    }
    const double scaleX = width / placement.columns.length;
    const double scaleY = height / placement.rows.length;
    placement.m11 = scaleX * transform.m11;
    placement.m12 = scaleX * transform.m12;
    placement.m21 = scaleY * transform.m21;
    placement.m22 = scaleY * transform.m22;
    placement.dx = static_cast<double>(destination.left) * transform.m11 +
                   static_cast<double>(destination.top) * transform.m21 + transform.dx;
    placement.dy = static_cast<double>(destination.left) * transform.m12 +
                   static_cast<double>(destination.top) * transform.m22 + transform.dy;
    placement.determinant = placement.m11 * placement.m22 - placement.m12 * placement.m21;
    for (const double number : {placement.m11, placement.m12, placement.m21, placement.m22, placement.dx, placement.dy,
                                placement.columns.start, placement.rows.start, placement.columns.length,
                                placement.rows.length, placement.determinant}) {
        if (!std::isfinite(number)) return std::nullopt;
    }
    if (placement.determinant == 0.0) return std::nullopt;
    const bool positive = placement.determinant > 0.0;
    placement.columns.ascends = (placement.m22 != 0.0 ? placement.m22 > 0.0 : placement.m21 < 0.0) == positive;
    placement.rows.ascends = (placement.m11 != 0.0 ? placement.m11 > 0.0 : placement.m12 < 0.0) == positive;
    return placement;
}

bool Placement::IsPixelForPixel() const {
    const auto isWhole = [](double number) { return number == std::floor(number); };
    return IsAxisParallel() && std::abs(m11) == 1.0 && std::abs(m22) == 1.0 && isWhole(dx) && isWhole(dy) &&
           isWhole(columns.start) && isWhole(rows.start);
}

RECT Placement::Bounds(int width, int height) const {
    const double right = columns.length;
    const double bottom = rows.length;
    const auto [left, rightmost] = std::minmax({0.0, right * m11, bottom * m21, right * m11 + bottom * m21});
    const auto [top, lowest] = std::minmax({0.0, right * m12, bottom * m22, right * m12 + bottom * m22});
    // one pixel more on each side: rounding here must not lose what the exact question would cover
    return {FirstPixel(dx + left - 1.0, width), FirstPixel(dy + top - 1.0, height),
            FirstPixel(dx + rightmost + 1.0, width), FirstPixel(dy + lowest + 1.0, height)};
}

AxisSteps ColumnSteps(const Placement& placement, int frameWidth, int pictureWidth, std::vector<int>& lookups) {
    return MakeSteps(
        placement.columns, [&](int x) { return placement.ColumnOffset(x + 0.5, 0.0); }, placement.dx, placement.m11,
        frameWidth, pictureWidth, lookups);
}

AxisSteps RowSteps(const Placement& placement, int frameHeight, int pictureHeight, std::vector<int>& lookups) {
    return MakeSteps(
        placement.rows, [&](int y) { return placement.RowOffset(0.0, y + 0.5); }, placement.dy, placement.m22,
        frameHeight, pictureHeight, lookups);
}

} // namespace platform
