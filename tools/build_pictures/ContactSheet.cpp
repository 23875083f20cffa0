#include "tools/build_pictures/ContactSheet.h"

#include "game/ChosenLevel.h"
#include "tools/build_pictures/Brush.h"
#include "tools/build_pictures/Terrain.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace pictures {

using platform::Picture;

namespace {

bool IsSeenThrough(std::uint32_t pixel) { return pixel >> 24 == 0 || pixel == 0xffff00ffU || pixel == 0xff000001U; }

/// Draws `from` with its corner at (`x`, `y`), enlarged `scale` times.
void Stamp(Picture& onto, const Picture& from, int x, int y, int scale) {
    for (int row = 0; row < from.height; ++row) {
        for (int column = 0; column < from.width; ++column) {
            const std::uint32_t pixel = from.At(column, row);
            if (IsSeenThrough(pixel)) continue;
            const int left = x + column * scale;
            const int top = y + row * scale;
            Box(onto, left, top, left + scale, top + scale, pixel);
        }
    }
}

} // namespace

Picture ShowLevel(const Picture& level, const std::map<std::string, Picture>& sheets) {
    Picture whole = level;
    const auto sheet = [&](const char* file) -> const Picture& {
        return sheets.at(std::filesystem::path(file).filename().string());
    };
    const Picture& flag = sheet(chosenLevel.flag.picture);
    Stamp(whole, flag, chosenLevel.flag.flagRight - flag.width, static_cast<int>(chosenLevel.flag.upY), 1);
    for (const PipePlan& pipe : chosenLevel.pipes) Stamp(whole, sheet(pipe.picture), pipe.x, pipe.y, 1);

    constexpr int strips = 4;
    constexpr int stripWidth = levelWidth / strips;
    constexpr int roomWidth = 256;
    Picture shown(stripWidth, overworldBottom * (strips + 1), level.At(levelWidth - 1, levelHeight - 1));
    for (int y = 0; y < overworldBottom; ++y) {
        for (int x = 0; x < levelWidth; ++x)
            shown.At(x % stripWidth, x / stripWidth * overworldBottom + y) = whole.At(x, y);
        for (int x = 0; x < roomWidth; ++x)
            shown.At(x, strips * overworldBottom + y) = whole.At(x, overworldBottom + y);
    }
    return shown;
}

Picture ShowSheets(const std::map<std::string, Picture>& sheets, std::uint32_t ground) {
    constexpr int scale = 4;
    constexpr int gap = 16;
    constexpr int width = 1600;
    // the tallest first, so that rows waste little space
    std::vector<const Picture*> order;
    for (const auto& [name, sheet] : sheets) order.push_back(&sheet);
    std::stable_sort(order.begin(), order.end(),
                     [](const Picture* a, const Picture* b) { return a->height > b->height; });

    struct Place {
        int x;
        int y;
    };
    // the tallest sheet is at the left; the others fill rows beside it
    std::vector<Place> places = {{gap, gap}};
    const int rowLeft = gap + order.front()->width * scale + gap;
    int x = rowLeft;
    int y = gap;
    int rowHeight = 0;
    for (std::size_t i = 1; i < order.size(); ++i) {
        if (x + order[i]->width * scale + gap > width) {
            x = rowLeft;
            y += rowHeight + gap;
            rowHeight = 0;
        }
        places.push_back({x, y});
        x += order[i]->width * scale + gap;
        rowHeight = std::max(rowHeight, order[i]->height * scale);
    }
    const int height = std::max(order.front()->height * scale + gap, y + rowHeight) + gap;
    Picture shown(width, height, ground);
    for (std::size_t i = 0; i < order.size(); ++i) Stamp(shown, *order[i], places[i].x, places[i].y, scale);
    return shown;
}

} // namespace pictures
