#pragma once

// Where a part of a picture comes to lie in the frame, and which of its pixels each frame pixel shows.
//
// A frame pixel is covered when its centre lies in the part, and then shows the picture pixel in which the centre
// falls. A centre exactly on an edge belongs to what lies right of or below the edge on the screen, whichever way round
// the picture is drawn, so neighbours never overlap and leave no gap. All paths that paint ask the same arithmetic
// here.

#include "platform/Types.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace platform {

/// One picture coordinate of frame points, counted as an offset from where the part begins.
class PictureAxis {
public:
    /// The part from `start` to `end` of a picture that is `pictureLength` long. `grows`: whether the coordinate grows
    /// to the right, or downwards if it does not depend on x.
    PictureAxis(double start, double end, int pictureLength, bool grows);

    bool IsEmpty() const { return !(low < high); }
    bool Ascends() const { return ascends; }
    /// The offsets between which the picture shows: the part, less what it has outside the picture.
    double Low() const { return low; }
    double High() const { return high; }
    bool Covers(double offset) const {
        return ascends ? offset >= low && offset < high : offset > low && offset <= high;
    }
    /// The picture pixel at a covered offset.
    int PixelAt(double offset) const {
        const double position = start + offset;
        int pixel = static_cast<int>(position);
        if (!ascends && pixel == position) --pixel;
        return std::clamp(pixel, firstPixel, lastPixel);
    }
    /// For linear sampling at a covered offset: the pixels whose centres stand on either side of it, and how far it is,
    /// in 1/128, from the first to the second. Never looks outside the part, so a cell does not show its neighbour.
    struct Neighbours {
        int first;
        int second;
        int fraction;
    };
    Neighbours NeighboursAt(double offset) const {
        const int position = static_cast<int>((start + offset + 0.5) * 128.0 + 0.5); // of the centre before pixel 0
        const int second = position / 128;
        return {std::clamp(second - 1, firstPixel, lastPixel), std::clamp(second, firstPixel, lastPixel),
                position % 128};
    }
    /// Where a picture pixel begins, or ends if the coordinate falls: its left or upper edge on the screen.
    double EdgeBefore(int pixel) const { return pixel + (ascends ? 0 : 1) - start; }

private:
    double start;
    double low;
    double high;
    bool ascends;
    int firstPixel;
    int lastPixel;
};

/// Frame pixels from `begin` to `end` (exclusive).
struct PixelSpan {
    int begin = 0;
    int end = 0;
    bool IsEmpty() const { return begin >= end; }
};

/// The affine map between a part of a picture and the frame.
class Placement {
public:
    /// The part `source` of a picture of `size`, drawn into `destination` under `transform`. Nothing if that can cover
    /// no pixel, because a number is not finite or something has no area.
    static std::optional<Placement> Make(D2D1_RECT_F source, POINT size, D2D1_RECT_F destination,
                                         const D2D1_MATRIX_3X2_F& transform);

    bool IsAxisParallel() const { return m12 == 0.0 && m21 == 0.0; }
    /// Whether every picture pixel is exactly one frame pixel, so that any sampling gives the same.
    bool IsPixelForPixel() const;
    /// Picture coordinates, counted from the part's top-left corner, of a frame point.
    double ColumnOffset(double x, double y) const { return ((x - dx) * m22 - (y - dy) * m21) / determinant; }
    double RowOffset(double x, double y) const { return ((y - dy) * m11 - (x - dx) * m12) / determinant; }
    /// The frame pixels, inside `width` by `height`, that may be covered.
    RECT Bounds(int width, int height) const;
    /// Which pixels of row `y`, from `left` to `right`, are covered.
    PixelSpan CoveredSpan(int y, int left, int right) const;

    // part to frame: x' = x m11 + y m21 + dx, y' = x m12 + y m22 + dy
    double m11;
    double m12;
    double m21;
    double m22;
    double dx;
    double dy;
    double determinant;
    PictureAxis columns;
    PictureAxis rows;
};

/// The picture pixels along one axis of an axis-parallel placement: frame pixels `begin` to `end` (exclusive) are
/// covered.
struct AxisSteps : PixelSpan {
    int first = 0;          // the picture pixels shown at `begin`
    int last = 0;           // and at `end` - 1
    int direction = 1;      // -1: mirrored
    int scale = 0;          // frame pixels per picture pixel when that is the same for all, else 0
    int firstBegin = 0;     // with a scale: where the first one would begin if nothing cut it
    std::size_t lookup = 0; // without: its entries in the table begin here, one for each covered frame pixel

    /// The picture pixel shown at a covered frame pixel.
    int PixelAt(int position, const std::vector<int>& lookups) const {
        return scale != 0 ? first + direction * ((position - firstBegin) / scale)
                          : lookups[lookup + static_cast<std::size_t>(position - begin)];
    }
};

/// The steps of an axis-parallel placement along x and along y in a frame of the given length. Steps without a common
/// scale are added to `lookups`.
AxisSteps ColumnSteps(const Placement& placement, int frameWidth, std::vector<int>& lookups);
AxisSteps RowSteps(const Placement& placement, int frameHeight, std::vector<int>& lookups);

} // namespace platform
