#include "tools/build_pictures/SpriteSource.h"

#include "tools/art/SourceFile.h"

#include <algorithm>
#include <cstdio>

namespace pictures {

using platform::Picture;

SpriteSource::SpriteSource(const std::string& path, const Palette& usedPalette) : palette(usedPalette) {
    SourceFile file(path);
    while (file.NextLine()) {
        const std::string order = file.Word("an order");
        if (order == "key") {
            ReadKeys(file, standardKeys);
        } else if (order == "swap") {
            Keys& swap = swaps[file.Word("a name")];
            swap = standardKeys;
            ReadKeys(file, swap);
        } else if (order == "part") {
            ReadPart(file);
        } else if (order == "frame") {
            ReadFrame(file);
        } else if (order == "sheet") {
            ReadSheet(file);
        } else if (order == "row") {
            ReadRow(file);
        } else if (order == "rim") {
            ReadRim(file);
        } else {
            file.Fail("unknown order " + order);
        }
    }
}

int SpriteSource::FrameWidth(const std::string& name) const {
    int width = 0;
    for (const Placed& part : frames.at(name)) width = std::max(width, part.x + part.grid.width);
    return width;
}

int SpriteSource::FrameHeight(const std::string& name) const {
    int height = 0;
    for (const Placed& part : frames.at(name))
        height = std::max(height, part.y + static_cast<int>(part.grid.rows.size()));
    return height;
}

void SpriteSource::PaintFrame(Picture& picture, const std::string& name, int x, int y) const {
    Paint(picture, frames.at(name), x, y, standardKeys);
}

void SpriteSource::ReadKeys(SourceFile& file, Keys& keys) const {
    do {
        const std::string character = file.Word("a character");
        if (character.size() != 1) file.Fail("a key is one character");
        keys[character[0]] = Colour(file, file.Word("a colour"));
    } while (file.More());
}

void SpriteSource::ReadPart(SourceFile& file) {
    const std::string name = file.Word("a name");
    Grid grid;
    for (std::string row = file.RawLine(); row != "end"; row = file.RawLine()) {
        for (const char c : row) {
            if (c != '.' && !standardKeys.contains(c)) file.Fail(std::string("no key for the character ") + c);
        }
        grid.width = std::max(grid.width, static_cast<int>(row.size()));
        grid.rows.push_back(row);
    }
    parts[name] = grid;
    frames[name] = {{grid, 0, 0}}; // a part can also be used as a frame
}

void SpriteSource::ReadFrame(SourceFile& file) {
    const std::string name = file.Word("a name");
    std::vector<Placed> placed;
    while (file.More()) {
        const std::string word = file.Word("a part");
        const std::size_t at = word.find('@');
        int x = 0;
        int y = 0;
        if (at != std::string::npos && std::sscanf(word.c_str() + at, "@%d,%d", &x, &y) != 2) {
            file.Fail("a part is placed as NAME@dx,dy");
        }
        // an earlier frame may be used as a part, so that a whole figure can be moved
        const auto frame = frames.find(word.substr(0, at));
        if (frame == frames.end()) file.Fail("no such part: " + word);
        for (const Placed& part : frame->second) placed.push_back({part.grid, part.x + x, part.y + y});
    }
    frames[name] = placed;
}

void SpriteSource::ReadSheet(SourceFile& file) {
    currentSheet = file.Word("a file name");
    const int width = file.Size("the width");
    const int height = file.Size("the height");
    currentGround = Colour(file, file.Word("the ground colour"));
    sheets[currentSheet] = Picture(width, height, currentGround);
}

void SpriteSource::ReadRow(SourceFile& file) {
    if (currentSheet.empty()) file.Fail("a row needs a sheet before it");
    int x = file.Number("x");
    const int y = file.Number("y");
    const int step = file.Size("the step");
    const Keys* keysPtr = &standardKeys;
    std::string word = file.Word("\":\"");
    if (word != ":") {
        const auto swap = swaps.find(word);
        if (swap == swaps.end()) file.Fail("no such swap: " + word);
        keysPtr = &swap->second;
        word = file.Word("\":\"");
    }
    for (; file.More(); x += step) {
        const auto frame = frames.find(file.Word("a frame"));
        if (frame == frames.end()) file.Fail("no such frame");
        Paint(sheets[currentSheet], frame->second, x, y, *keysPtr);
    }
}

void SpriteSource::ReadRim(SourceFile& file) {
    const std::uint32_t colour = Colour(file, file.Word("a colour"));
    const int cell = file.Size("the cell's size");
    if (currentSheet.empty()) file.Fail("a rim needs a sheet before it");
    const Picture before = sheets[currentSheet];
    Picture& sheet = sheets[currentSheet];
    const auto isShown = [&](int x, int y, int neighbourX, int neighbourY) {
        return neighbourX >= 0 && neighbourY >= 0 && neighbourX < before.width && neighbourY < before.height &&
               neighbourX / cell == x / cell && neighbourY / cell == y / cell &&
               before.At(neighbourX, neighbourY) != currentGround;
    };
    for (int y = 0; y < sheet.height; ++y) {
        for (int x = 0; x < sheet.width; ++x) {
            if (before.At(x, y) != currentGround) continue;
            for (int i = 0; i < 9; ++i) {
                if (isShown(x, y, x + i % 3 - 1, y + i / 3 - 1)) sheet.At(x, y) = colour;
            }
        }
    }
}

std::uint32_t SpriteSource::Colour(SourceFile& file, const std::string& name) const {
    if (name == "clear") return 0;
    if (name == "magenta") return 0xffff00ff;   // the transparent colour of the sheets without alpha
    if (name == "nearblack") return 0xff000001; // the transparent colour of the font
    if (!palette.Has(name)) file.Fail("no such colour: " + name);
    return palette[name];
}

void SpriteSource::Paint(Picture& picture, const std::vector<Placed>& frame, int x, int y, const Keys& keys) const {
    for (const Placed& part : frame) {
        for (int row = 0; row < static_cast<int>(part.grid.rows.size()); ++row) {
            const std::string& text = part.grid.rows[static_cast<std::size_t>(row)];
            for (int column = 0; column < static_cast<int>(text.size()); ++column) {
                const char c = text[static_cast<std::size_t>(column)];
                const int px = x + part.x + column;
                const int py = y + part.y + row;
                if (c == '.' || px < 0 || py < 0 || px >= picture.width || py >= picture.height) continue;
                picture.At(px, py) = keys.at(c);
            }
        }
    }
}

} // namespace pictures
