#include "platform/core/canvas/Placement.h"

#include <cmath>
#include <initializer_list>

namespace platform {

namespace {

constexpr int maxScale = 256;

/// The first pixel of a line of `length` whose centre is not before `edge`.
int FirstPixel(double edge, int length) {
    return static_cast<int>(std::clamp(std::ceil(edge - 0.5), 0.0, static_cast<double>(length)));
}

/// `estimate`, corrected to exactly those pixels between `left` and `right` that are covered; they are all neighbours.
/// Rounding puts an estimate one pixel off at most, unless the numbers are beyond all reason.
template <class IsCovered>
PixelSpan Corrected(PixelSpan estimate, int left, int right, const IsCovered& isCovered) {
    PixelSpan span = {std::clamp(estimate.begin, left, right), std::clamp(estimate.end, left, right)};
    while (span.begin > left && isCovered(span.begin - 1)) --span.begin;
    while (span.begin < span.end && !isCovered(span.begin)) ++span.begin;
    span.end = std::max(span.end, span.begin);
    while (span.end < right && isCovered(span.end)) ++span.end;
    while (span.begin < span.end && !isCovered(span.end - 1)) --span.end;
    return span;
}

/// `offsetAt` gives the part's coordinate at a frame pixel's centre; part coordinate t lies at frame origin + t *
/// scale.
template <class OffsetAt>
AxisSteps MakeSteps(const PictureAxis& axis, const OffsetAt& offsetAt, double origin, double scale, int frameLength,
                    std::vector<int>& lookups) {
    const bool ascends = axis.Ascends();
    AxisSteps steps;
    static_cast<PixelSpan&>(steps) =
        Corrected({FirstPixel(origin + (ascends ? axis.Low() : axis.High()) * scale, frameLength),
                   FirstPixel(origin + (ascends ? axis.High() : axis.Low()) * scale, frameLength)},
                  0, frameLength, [&](int position) { return axis.Covers(offsetAt(position)); });
    if (steps.IsEmpty()) return steps;
    const auto pixelAt = [&](int position) { return axis.PixelAt(offsetAt(position)); };
    steps.direction = ascends ? 1 : -1;
    steps.first = pixelAt(steps.begin);
    steps.last = pixelAt(steps.end - 1);

    // With a whole scale every picture pixel is as wide as the others, unless an edge comes so close to a pixel centre
    // that rounding decides: then, as with any other scale, each frame pixel is asked for.
    const double size = std::abs(scale);
    const double whole = std::round(size);
    if (whole >= 1.0 && whole <= maxScale) {
        constexpr double margin = 1e-6;
        const double edge = origin + axis.EdgeBefore(steps.first) * scale - 0.5;
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

/// The frame pixels x, less than `limit`, at which first + x * slope lies about where the axis covers it.
PixelSpan Estimate(const PictureAxis& axis, double first, double slope, int limit) {
    if (slope == 0.0) return axis.Covers(first) ? PixelSpan{0, limit} : PixelSpan{};
    const double low = (axis.Low() - first) / slope + 0.5;
    const double high = (axis.High() - first) / slope + 0.5;
    return {FirstPixel(std::min(low, high), limit), FirstPixel(std::max(low, high), limit)};
}

} // namespace

PictureAxis::PictureAxis(double partStart, double end, int pictureLength, bool grows)
    : start(partStart), low(std::max(0.0, -start)), high(std::min(end, static_cast<double>(pictureLength)) - start),
      ascends(grows), firstPixel(0), lastPixel(0) {
    if (IsEmpty()) return;
    firstPixel = static_cast<int>(std::max(0.0, start));
    lastPixel = static_cast<int>(std::ceil(std::min(end, static_cast<double>(pictureLength)))) - 1;
}

std::optional<Placement> Placement::Make(D2D1_RECT_F source, POINT size, D2D1_RECT_F destination,
                                         const D2D1_MATRIX_3X2_F& transform) {
    const double scaleX =
        (static_cast<double>(destination.right) - destination.left) / (static_cast<double>(source.right) - source.left);
    const double scaleY =
        (static_cast<double>(destination.bottom) - destination.top) / (static_cast<double>(source.bottom) - source.top);
    // written so that what is no number fails as well
    if (!(source.left < source.right && source.top < source.bottom && scaleX > 0.0 && scaleY > 0.0)) {
        return std::nullopt;
    }
    const double m11 = scaleX * transform.m11;
    const double m12 = scaleX * transform.m12;
    const double m21 = scaleY * transform.m21;
    const double m22 = scaleY * transform.m22;
    const double dx = static_cast<double>(destination.left) * transform.m11 +
                      static_cast<double>(destination.top) * transform.m21 + transform.dx;
    const double dy = static_cast<double>(destination.left) * transform.m12 +
                      static_cast<double>(destination.top) * transform.m22 + transform.dy;
    const double determinant = m11 * m22 - m12 * m21;
    for (const double number : {m11, m12, m21, m22, dx, dy, determinant}) {
        if (!std::isfinite(number)) return std::nullopt;
    }
    if (determinant == 0.0) return std::nullopt;
    const bool positive = determinant > 0.0;
    const bool columnsGrow = (m22 != 0.0 ? m22 > 0.0 : m21 < 0.0) == positive;
    const bool rowsGrow = (m11 != 0.0 ? m11 > 0.0 : m12 < 0.0) == positive;
    const Placement placement = {m11,
                                 m12,
                                 m21,
                                 m22,
                                 dx,
                                 dy,
                                 determinant,
                                 PictureAxis(source.left, source.right, size.x, columnsGrow),
                                 PictureAxis(source.top, source.bottom, size.y, rowsGrow)};
    if (placement.columns.IsEmpty() || placement.rows.IsEmpty()) return std::nullopt;
    return placement;
}

bool Placement::IsPixelForPixel() const {
    const auto isWhole = [](double number) { return number == std::floor(number); };
    return IsAxisParallel() && std::abs(m11) == 1.0 && std::abs(m22) == 1.0 && isWhole(dx) && isWhole(dy) &&
           isWhole(columns.EdgeBefore(0)) && isWhole(rows.EdgeBefore(0));
}

RECT Placement::Bounds(int width, int height) const {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    bool isFirst = true;
    for (const double column : {columns.Low(), columns.High()}) {
        for (const double row : {rows.Low(), rows.High()}) {
            const double x = column * m11 + row * m21 + dx;
            const double y = column * m12 + row * m22 + dy;
            left = isFirst ? x : std::min(left, x);
            top = isFirst ? y : std::min(top, y);
            right = isFirst ? x : std::max(right, x);
            bottom = isFirst ? y : std::max(bottom, y);
            isFirst = false;
        }
    }
    // one pixel more on each side: rounding here must not lose what the exact question would cover
    return {FirstPixel(left - 1.0, width), FirstPixel(top - 1.0, height), FirstPixel(right + 1.0, width),
            FirstPixel(bottom + 1.0, height)};
}

PixelSpan Placement::CoveredSpan(int y, int left, int right) const {
    const PixelSpan byColumn = Estimate(columns, ColumnOffset(0.5, y + 0.5), m22 / determinant, right);
    const PixelSpan byRow = Estimate(rows, RowOffset(0.5, y + 0.5), -m12 / determinant, right);
    return Corrected(
        {std::max(byColumn.begin, byRow.begin), std::min(byColumn.end, byRow.end)}, left, right, [&](int x) {
            return columns.Covers(ColumnOffset(x + 0.5, y + 0.5)) && rows.Covers(RowOffset(x + 0.5, y + 0.5));
        });
}

AxisSteps ColumnSteps(const Placement& placement, int frameWidth, std::vector<int>& lookups) {
    return MakeSteps(
        placement.columns, [&](int x) { return placement.ColumnOffset(x + 0.5, 0.0); }, placement.dx, placement.m11,
        frameWidth, lookups);
}

AxisSteps RowSteps(const Placement& placement, int frameHeight, std::vector<int>& lookups) {
    return MakeSteps(
        placement.rows, [&](int y) { return placement.RowOffset(0.0, y + 0.5); }, placement.dy, placement.m22,
        frameHeight, lookups);
}

} // namespace platform
