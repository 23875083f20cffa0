#include "platform/core/canvas/Compositor.h"

#include "platform/core/canvas/Spans.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>

namespace platform {

namespace {

constexpr int bandBytes = 32 * 1024; // a first-level cache

bool Contains(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

} // namespace

Compositor::Compositor(const FrameMemory& target)
    : frame(target), bandHeight(std::max(1, bandBytes / (target.stride * static_cast<int>(sizeof(std::uint32_t))))),
      band(static_cast<std::size_t>(bandHeight * target.stride) / std::size(CacheLine().pixels)),
      line(static_cast<std::size_t>(target.width)) {
    // more than a busy frame of the usual size asks for, so that not even the first of its kind has to grow the lists
    commands.reserve(512);
    placements.reserve(512);
    lookups.reserve(16 * 1024);
    bandCommands.reserve(16 * 1024);
    bandBegins.reserve(static_cast<std::size_t>(frame.height / bandHeight) + 2);
}

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
    if (placement.IsAxisParallel() && (!linear || placement.IsPixelForPixel())) {
        command.action = Action::paintCells;
        command.columns = ColumnSteps(placement, frame.width, lookups);
        command.rows = RowSteps(placement, frame.height, lookups);
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
    if (commands.empty()) return;
    SortIntoBands();
    const int bands = static_cast<int>(bandBegins.size()) - 1;
    for (int bandIndex = 0; bandIndex < bands; ++bandIndex) ComposeBand(bandIndex);
    FinishStreaming();
    commands.clear();
    lookups.clear();
    placements.clear();
}

void Compositor::SortIntoBands() {
    const auto bands = static_cast<std::size_t>((frame.height + bandHeight - 1) / bandHeight);
    const auto firstBand = [&](const Command& command) {
        return static_cast<std::size_t>(command.bounds.top / bandHeight);
    };
    const auto lastBand = [&](const Command& command) {
        return static_cast<std::size_t>((command.bounds.bottom - 1) / bandHeight);
    };
    // count, add up, then fill from the back: each band's commands keep their order
    bandBegins.assign(bands + 1, 0);
    for (const Command& command : commands) {
        for (std::size_t index = firstBand(command); index <= lastBand(command); ++index) ++bandBegins[index];
    }
    std::partial_sum(bandBegins.begin(), bandBegins.end(), bandBegins.begin());
    bandCommands.resize(bandBegins.back());
    for (std::size_t number = commands.size(); number-- > 0;) {
        const Command& command = commands[number];
        for (std::size_t index = firstBand(command); index <= lastBand(command); ++index) {
            bandCommands[--bandBegins[index]] = static_cast<std::uint32_t>(number);
        }
    }
}

void Compositor::ComposeBand(int bandIndex) {
    const std::size_t begin = bandBegins[static_cast<std::size_t>(bandIndex)];
    const std::size_t end = bandBegins[static_cast<std::size_t>(bandIndex) + 1];
    if (begin == end) return;
    const int top = bandIndex * bandHeight;
    const int bottom = std::min(top + bandHeight, frame.height);
    const std::size_t first = FirstVisible(begin, end, top, bottom);
    // Where the frame's old pixels show through they are painted over in place.
    const bool startsAnew = first != end;
    targetTop = top;
    targetPtr = startsAnew ? band.data()->pixels : frame.Row(top);
    for (std::size_t index = startsAnew ? first : begin; index < end; ++index) {
        const Command& command = commands[bandCommands[index]];
        const int from = std::max(top, command.bounds.top);
        const int to = std::min(bottom, command.bounds.bottom);
        switch (command.action) {
        case Action::clear: ClearRows(bandCommands[index], from, to); break;
        case Action::paintCells: PaintCells(command, from, to); break;
        case Action::paintAnyhow: PaintAnyhow(command, from, to); break;
        }
    }
    if (startsAnew) StreamPixels(targetPtr, (bottom - top) * frame.stride, frame.Row(top));
}

/// The last of the band's commands that hides all of it, so that what comes before need not be painted; `end` if none
/// does.
std::size_t Compositor::FirstVisible(std::size_t begin, std::size_t end, int top, int bottom) const {
    const RECT rows = {0, top, frame.width, bottom};
    for (std::size_t index = end; index-- > begin;) {
        const Command& command = commands[bandCommands[index]];
        if (command.hidesAll && Contains(command.bounds, rows)) return index;
    }
    return end;
}

void Compositor::ClearRows(std::size_t index, int top, int bottom) {
    const std::uint32_t pixel = commands[index].pixel;
    // The background that comes next usually hides nearly all of it.
    const auto hiding = std::find_if(commands.begin() + static_cast<std::ptrdiff_t>(index) + 1, commands.end(),
                                     [](const Command& command) { return command.hidesAll; });
    const RECT hidden = hiding != commands.end() ? hiding->bounds : RECT{};
    for (int y = top; y < bottom; ++y) {
        std::uint32_t* rowPtr = Row(y);
        if (y < hidden.top || y >= hidden.bottom) {
            std::fill_n(rowPtr, frame.width, pixel);
        } else {
            std::fill(rowPtr, rowPtr + hidden.left, pixel);
            std::fill(rowPtr + hidden.right, rowPtr + frame.width, pixel);
        }
    }
}

/// Paints the frame rows `top` to `bottom`, those that show the same picture row together.
void Compositor::PaintCells(const Command& command, int top, int bottom) {
    for (int y = top; y < bottom;) {
        const int pictureRow = command.rows.PixelAt(y, lookups);
        int end = y + 1;
        if (command.rows.scale != 0) {
            end = std::min(bottom, y + command.rows.scale - (y - command.rows.firstBegin) % command.rows.scale);
        } else {
            while (end < bottom && command.rows.PixelAt(end, lookups) == pictureRow) ++end;
        }
        if (command.columns.scale != 0) {
            PaintPictureRow(command, pictureRow, y, end - y);
        } else {
            PaintByLookup(command, pictureRow, y, end - y);
        }
        y = end;
    }
}

/// Paints one picture row into `count` frame rows from `y`.
void Compositor::PaintPictureRow(const Command& command, int pictureRow, int y, int count) {
    const std::uint32_t* rowPtr = command.bitmapPtr->Row(pictureRow);
    const int from = std::min(command.columns.first, command.columns.last);
    const int to = std::max(command.columns.first, command.columns.last) + 1;
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
    // In screen order: the picture pixel that stands leftmost and where it begins, then what the frame cuts off.
    const int leftmost = step > 0 ? column : column + columnCount - 1;
    const int begin = columns.firstBegin + (leftmost - columns.first) * step * scale;
    const int end = begin + columnCount * scale;
    const int left = std::max(begin, columns.begin);
    const int right = std::min(end, columns.end);
    const PixelRun run = {rowPtr + leftmost, columnCount, step, scale, left - begin, end - right};
    if (isOpaque && command.opacity == 255) {
        PaintRun(run, Row(y) + left, frame.stride, count);
        return;
    }
    PaintRun(run, line.data(), 0, 1);
    if (command.opacity != 255) ScalePixels(line.data(), right - left, command.opacity);
    for (int row = 0; row < count; ++row) BlendPixels(line.data(), right - left, Row(y + row) + left);
}

void Compositor::PaintByLookup(const Command& command, int pictureRow, int y, int count) {
    const std::uint32_t* rowPtr = command.bitmapPtr->Row(pictureRow);
    const int* lookupPtr = lookups.data() + command.columns.lookup;
    const int begin = command.columns.begin;
    const int width = command.columns.end - begin;
    for (int x = 0; x < width; ++x) line[static_cast<std::size_t>(x)] = rowPtr[lookupPtr[x]];
    if (command.opacity != 255) ScalePixels(line.data(), width, command.opacity);
    for (int row = 0; row < count; ++row) {
        if (command.hidesAll) {
            CopyPixels(line.data(), width, Row(y + row) + begin);
        } else {
            BlendPixels(line.data(), width, Row(y + row) + begin);
        }
    }
}

/// Asks for every covered pixel where it lies in the picture.
void Compositor::PaintAnyhow(const Command& command, int top, int bottom) {
    const Placement& placement = placements[command.placement];
    const Picture& picture = command.bitmapPtr->GetPicture();
    const bool blends = command.opacity != 255 || !command.bitmapPtr->IsOpaque();
    for (int y = top; y < bottom; ++y) {
        const PixelSpan span = placement.CoveredSpan(y, command.bounds.left, command.bounds.right);
        if (span.IsEmpty()) continue;
        std::uint32_t* rowPtr = Row(y) + span.begin;
        std::uint32_t* pixelPtr = blends ? line.data() : rowPtr;
        const int width = span.end - span.begin;
        for (int index = 0; index < width; ++index) {
            const double x = span.begin + index + 0.5;
            const double column = placement.ColumnOffset(x, y + 0.5);
            const double row = placement.RowOffset(x, y + 0.5);
            if (command.linear) {
                const auto across = placement.columns.NeighboursAt(column);
                const auto down = placement.rows.NeighboursAt(row);
                pixelPtr[index] =
                    BlendedPixel(picture.At(across.first, down.first), picture.At(across.second, down.first),
                                 picture.At(across.first, down.second), picture.At(across.second, down.second),
                                 across.fraction, down.fraction);
            } else {
                pixelPtr[index] = picture.At(placement.columns.PixelAt(column), placement.rows.PixelAt(row));
            }
        }
        if (!blends) continue;
        if (command.opacity != 255) ScalePixels(line.data(), width, command.opacity);
        BlendPixels(line.data(), width, rowPtr);
    }
}

} // namespace platform
