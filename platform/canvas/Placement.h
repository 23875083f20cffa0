#pragma once

// Where a part of a picture comes to lie in the frame, and which of its pixels each frame pixel shows.
//
// A frame pixel is covered when its centre lies in the part, and then shows the picture pixel in which the centre
// falls. A centre exactly on an edge belongs to what lies right of or below the edge on the screen, whichever way round
// the picture is drawn, so neighbours never overlap and leave no gap. All paths that paint ask the same arithmetic
// here.

#include "platform/Types.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace platform {

/// One picture coordinate of a frame point: affine in the point.
struct PictureAxis {
    double start = 0.0;  // the part begins here, in picture pixels
    double length = 0.0; // and is this long
    bool ascends = true; // whether the coordinate grows to the right (or downwards, if it does not depend on x)

    /// Whether the part's coordinate `offset`, counted from its start, lies inside.
    bool Covers(double offset) const {
        return ascends ? offset >= 0.0 && offset < length : offset > 0.0 && offset <= length;
    }
    /// The picture pixel at a covered offset; a whole number.
    double PixelAt(double offset) const;
};

/// The affine map between a part of a picture and the frame.
class Placement {
public:
    /// The picture's part `source` drawn into `destination` under `transform`. Nothing if that can cover no pixel,
    /// because a number is not finite or something has no area.
    static std::optional<Placement> Make(D2D1_RECT_F source, D2D1_RECT_F destination,
                                         const D2D1_MATRIX_3X2_F& transform);

    bool IsAxisParallel() const { return m12 == 0.0 && m21 == 0.0; }
    /// Whether every picture pixel is exactly one frame pixel, so that any sampling gives the same.
    bool IsPixelForPixel() const;
    /// Picture coordinates, counted from the part's top-left corner, of a frame point.
    double ColumnOffset(double x, double y) const { return ((x - dx) * m22 - (y - dy) * m21) / determinant; }
    double RowOffset(double x, double y) const { return ((y - dy) * m11 - (x - dx) * m12) / determinant; }
    /// The frame pixels, inside `width` by `height`, that may be covered.
    RECT Bounds(int width, int height) const;

    PictureAxis columns;
    PictureAxis rows;
    // part to frame: x' = x m11 + y m21 + dx, y' = x m12 + y m22 + dy
    double m11 = 1.0;
    double m12 = 0.0;
    double m21 = 0.0;
    double m22 = 1.0;
    double dx = 0.0;
    double dy = 0.0;
    double determinant = 1.0;
};

/// The picture pixels along one axis of an axis-parallel placement: frame pixels `begin` to `end` (exclusive) are
/// covered.
struct AxisSteps {
    int begin = 0;
    int end = 0;
    int scale = 0;          // frame pixels per picture pixel when that is the same for all, else 0
    int direction = 1;      // -1: mirrored
    int last = 0;           // the one shown at `end` - 1
    int first = 0;          // the picture pixel shown at `begin`
    int firstBegin = 0;     // where it would begin if the frame did not cut it; only with a scale
    std::size_t lookup = 0; // without a scale: its entries in the table begin here, one for each covered frame pixel

    bool IsEmpty() const { return begin >= end; }
    /// The picture pixel shown at a covered frame pixel.
    int PixelAt(int position, const std::vector<int>& lookups) const {
        return scale != 0 ? first + direction * ((position - firstBegin) / scale)
                          : lookups[lookup + static_cast<std::size_t>(position - begin)];
    }
};

/// The steps of an axis-parallel placement along x and along y, in a frame and a picture of the given lengths. Steps
/// without a common scale are added to `lookups`.
AxisSteps ColumnSteps(const Placement& placement, int frameWidth, int pictureWidth, std::vector<int>& lookups);
AxisSteps RowSteps(const Placement& placement, int frameHeight, int pictureHeight, std::vector<int>& lookups);

} // namespace platform
