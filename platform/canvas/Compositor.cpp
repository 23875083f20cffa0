#include "platform/canvas/Compositor.h"

#include "platform/Pixel.h"
#include "platform/canvas/Spans.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace platform {

namespace {

constexpr int bandBytes = 128 * 1024; // half of a small processor's second-level cache

bool Contains(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

void CopyPixels(const std::uint32_t* sourcePtr, int count, std::uint32_t* targetPtr) {
    std::memcpy(targetPtr, sourcePtr, static_cast<std::size_t>(count) * sizeof(std::uint32_t));
}

/// The two picture pixels on either side of a point, and how far the point is, in 1/256, from the first to the second.
struct Neighbours {
    Neighbours(const PictureAxis& axis, double offset, int size) {
        const double position = axis.start + offset - 0.5;
        const double before = std::floor(position);
        const double low = std::max(0.0, std::floor(axis.start));
        const double high = std::min<double>(size, std::ceil(axis.start + axis.length)) - 1.0;
        first = static_cast<int>(std::clamp(before, low, high));
        second = static_cast<int>(std::clamp(before + 1.0, low, high));
        fraction = static_cast<std::uint32_t>(std::lround((position - before) * 256.0));
    }
    int first;
    int second;
    std::uint32_t fraction;
};

/// Linear sampling that never looks outside the part that is drawn, so a cell of a sheet does not show its neighbour.
std::uint32_t LinearPixel(const SpriteBitmap& bitmap, const Placement& placement, double column, double row) {
    const POINT size = bitmap.GetPixelSize();
    const Neighbours x(placement.columns, column, size.x);
    const Neighbours y(placement.rows, row, size.y);
    const Picture& picture = bitmap.GetPicture();
    return BlendedPixel(picture.At(x.first, y.first), picture.At(x.second, y.first), picture.At(x.first, y.second),
                        picture.At(x.second, y.second), x.fraction, y.fraction);
}

} // namespace

Compositor::Compositor(const FrameMemory& target)
    : frame(target), bandHeight(std::max(1, bandBytes / (target.stride * static_cast<int>(sizeof(std::uint32_t))))),
      line(static_cast<std::size_t>(target.width)) {}

void Compositor::Clear(std::uint32_t pixel) {
    Command command;
    command.action = Action::clear;
    command.bounds = {0, 0, frame.width, frame.height};
    command.hidesAll = true;
    command.pixel = pixel;
    Add(command);
}

void Compositor::Draw(const SpriteBitmap& bitmap, const Placement& placement, std::uint32_t opacity, bool linear) {
    if (opacity == 0) return;
    Command command;
    command.bitmapPtr = &bitmap;
    command.opacity = opacity;
    command.linear = linear;
    if (placement.IsAxisParallel() && (!linear || placement.IsPixelForPixel()) && !generalPathOnly) {
        const POINT size = bitmap.GetPixelSize();
        command.action = Action::paintCells;
        command.columns = ColumnSteps(placement, frame.width, size.x, lookups);
        command.rows = RowSteps(placement, frame.height, size.y, lookups);
        command.bounds = {command.columns.begin, command.rows.begin, command.columns.end, command.rows.end};
        command.hidesAll = opacity == 255 && bitmap.IsOpaque();
    } else {
        command.action = Action::paintAnyhow;
        command.bounds = placement.Bounds(frame.width, frame.height);
        command.placement = placements.size();
        placements.push_back(placement);
    }
    Add(command);
}

void Compositor::Add(const Command& command) {
    if (command.bounds.left >= command.bounds.right || command.bounds.top >= command.bounds.bottom) return;
    commands.push_back(command);
}

void Compositor::Compose() {
    for (int top = 0; top < frame.height && !commands.empty(); top += bandHeight) {
        const int bottom = std::min(top + bandHeight, frame.height);
        for (std::size_t index = FirstVisible(top, bottom); index < commands.size(); ++index) {
            const Command& command = commands[index];
            const int from = std::max(top, command.bounds.top);
            const int to = std::min(bottom, command.bounds.bottom);
            if (from >= to) continue;
            switch (command.action) {
            case Action::clear: ClearBand(index, from, to); break;
            case Action::paintCells: PaintCells(command, from, to); break;
            case Action::paintAnyhow: PaintAnyhow(command, from, to); break;
            }
        }
    }
    commands.clear();
    lookups.clear();
    placements.clear();
}

/// The last command that hides the whole band: what comes before it need not be painted there.
std::size_t Compositor::FirstVisible(int top, int bottom) const {
    const RECT band = {0, top, frame.width, bottom};
    for (std::size_t index = commands.size(); index-- > 0;) {
        if (commands[index].hidesAll && Contains(commands[index].bounds, band)) return index;
    }
    return 0;
}

void Compositor::ClearBand(std::size_t index, int top, int bottom) {
    const std::uint32_t pixel = commands[index].pixel;
    // The background that comes next usually hides nearly all of it.
    const auto hiding = std::find_if(commands.begin() + static_cast<std::ptrdiff_t>(index) + 1, commands.end(),
                                     [](const Command& command) { return command.hidesAll; });
    const RECT hidden = hiding != commands.end() ? hiding->bounds : RECT{};
    for (int y = top; y < bottom; ++y) {
        std::uint32_t* rowPtr = frame.Row(y);
        if (y < hidden.top || y >= hidden.bottom) {
            std::fill_n(rowPtr, frame.width, pixel);
        } else {
            std::fill(rowPtr, rowPtr + hidden.left, pixel);
            std::fill(rowPtr + hidden.right, rowPtr + frame.width, pixel);
        }
    }
}

void Compositor::PaintCells(const Command& command, int top, int bottom) {
    for (int y = top; y < bottom;) {
        const int pictureRow = command.rows.PixelAt(y, lookups);
        int end = y + 1;
        while (end < bottom && command.rows.PixelAt(end, lookups) == pictureRow) ++end;
        if (command.columns.scale == 0) {
            PaintRowByLookup(command, pictureRow, y, end - y);
        } else {
            PaintRow(command, pictureRow, y, end - y);
        }
        y = end;
    }
}

/// Paints one picture row into `count` frame rows from `y`.
void Compositor::PaintRow(const Command& command, int pictureRow, int y, int count) {
    const AxisSteps& columns = command.columns;
    const std::uint32_t* rowPtr = command.bitmapPtr->Row(pictureRow);
    const int last = columns.PixelAt(columns.end - 1, lookups);
    const int from = std::min(columns.first, last);
    const int to = std::max(columns.first, last) + 1;
    if (command.bitmapPtr->IsOpaque()) {
        PaintStretch(command, rowPtr, from, to - from, true, y, count);
        return;
    }
    command.bitmapPtr->ForEachStretch(pictureRow, from, to, [&](int column, int columnCount, bool isOpaque) {
        PaintStretch(command, rowPtr, column, columnCount, isOpaque, y, count);
    });
}

void Compositor::PaintStretch(const Command& command, const std::uint32_t* rowPtr, int column, int columnCount,
                              bool isOpaque, int y, int count) {
    const AxisSteps& columns = command.columns;
    const int scale = columns.scale;
    const int step = columns.direction;
    // from here on in screen order: the picture pixel that stands leftmost, and where it begins
    const std::uint32_t* sourcePtr = rowPtr + (step > 0 ? column : column + columnCount - 1);
    const int begin = columns.firstBegin + (sourcePtr - rowPtr - columns.first) * step * scale;
    const int end = begin + columnCount * scale;
    const int left = std::max(begin, columns.begin);
    const int right = std::min(end, columns.end);
    const bool blends = !isOpaque || command.opacity != 255;
    std::uint32_t* targetPtr = blends ? line.data() : frame.Row(y) + left;

    // The frame may cut the first and the last picture pixel.
    int position = left;
    if (left > begin) {
        position = std::min(begin + scale, right);
        std::fill_n(targetPtr, position - left, *sourcePtr);
        sourcePtr += step;
    }
    const int whole = (right - position) / scale;
    ExpandPixels(sourcePtr, whole, step, scale, targetPtr + (position - left));
    position += whole * scale;
    if (position < right) std::fill_n(targetPtr + (position - left), right - position, sourcePtr[whole * step]);

    if (!blends) {
        for (int row = 1; row < count; ++row) CopyPixels(targetPtr, right - left, frame.Row(y + row) + left);
        return;
    }
    if (command.opacity != 255) ScalePixels(line.data(), right - left, command.opacity);
    for (int row = 0; row < count; ++row) BlendPixels(line.data(), right - left, frame.Row(y + row) + left);
}

void Compositor::PaintRowByLookup(const Command& command, int pictureRow, int y, int count) {
    const std::uint32_t* rowPtr = command.bitmapPtr->Row(pictureRow);
    const int* lookupPtr = lookups.data() + command.columns.lookup;
    const int begin = command.columns.begin;
    const int width = command.columns.end - begin;
    for (int x = 0; x < width; ++x) line[static_cast<std::size_t>(x)] = rowPtr[lookupPtr[x]];
    if (command.opacity != 255) ScalePixels(line.data(), width, command.opacity);
    for (int row = 0; row < count; ++row) {
        if (command.hidesAll) {
            CopyPixels(line.data(), width, frame.Row(y + row) + begin);
        } else {
            BlendPixels(line.data(), width, frame.Row(y + row) + begin);
        }
    }
}

/// Asks every pixel in question where it lies in the picture.
void Compositor::PaintAnyhow(const Command& command, int top, int bottom) {
    const Placement& placement = placements[command.placement];
    const SpriteBitmap& bitmap = *command.bitmapPtr;
    const POINT size = bitmap.GetPixelSize();
    for (int y = top; y < bottom; ++y) {
        std::uint32_t* targetPtr = frame.Row(y);
        for (int x = command.bounds.left; x < command.bounds.right; ++x) {
            const double column = placement.ColumnOffset(x + 0.5, y + 0.5);
            const double row = placement.RowOffset(x + 0.5, y + 0.5);
            if (!placement.columns.Covers(column) || !placement.rows.Covers(row)) continue;
            const double pictureX = placement.columns.PixelAt(column);
            const double pictureY = placement.rows.PixelAt(row);
            if (!(pictureX >= 0.0 && pictureY >= 0.0 && pictureX < size.x && pictureY < size.y)) continue;
            const std::uint32_t pixel =
                command.linear ? LinearPixel(bitmap, placement, column, row)
                               : bitmap.GetPicture().At(static_cast<int>(pictureX), static_cast<int>(pictureY));
            targetPtr[x] = Over(ScaledPixel(pixel, command.opacity), targetPtr[x]);
        }
    }
}

} // namespace platform
