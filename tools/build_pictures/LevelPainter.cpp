#include "tools/build_pictures/LevelPainter.h"

#include "game/ChosenLevel.h"
#include "tools/art/SourceFile.h"
#include "tools/build_pictures/Brush.h"
#include "tools/build_pictures/Buildings.h"
#include "tools/build_pictures/SpriteSource.h"
#include "tools/build_pictures/Terrain.h"

#include <algorithm>
#include <cmath>

namespace pictures {

using platform::Picture;

namespace {

constexpr int castleFrontX = static_cast<int>(chosenLevel.castle.position.x); // where the game draws it

} // namespace

LevelPainter::LevelPainter(const Palette& usedPalette, const Terrain& usedTerrain, const SpriteSource& usedProps)
    : palette(usedPalette), terrain(usedTerrain), props(usedProps), ground(usedPalette, usedTerrain),
      level(levelWidth, levelHeight, usedPalette["ink0"]), castleFront(levelWidth - castleFrontX, 200) {}

void LevelPainter::Read(const std::string& path) {
    using Order = void (LevelPainter::*)(SourceFile&);
    static const std::map<std::string, Order> orders = {
        {"tones", &LevelPainter::ReadToneNames},  {"ridge", &LevelPainter::ReadRidge},
        {"cloud", &LevelPainter::ReadCloud},      {"tree", &LevelPainter::ReadTree},
        {"bush", &LevelPainter::ReadBush},        {"grass", &LevelPainter::ReadGrass},
        {"column", &LevelPainter::ReadColumn},    {"wall", &LevelPainter::ReadWall},
        {"tower", &LevelPainter::ReadTower},      {"prop", &LevelPainter::ReadProp},
        {"box", &LevelPainter::ReadBox},          {"cave", &LevelPainter::ReadCave},
        {"glow", &LevelPainter::ReadGlow},        {"fort", &LevelPainter::ReadFort},
        {"material", &LevelPainter::ReadMaterial}};

    SourceFile file(path);
    bool skyPainted = false;
    while (file.NextLine()) {
        const std::string name = file.Word("an order");
        if (name == "mood") {
            if (skyPainted) file.Fail("the moods come first");
            ReadMood(file);
            continue;
        }
        const auto order = orders.find(name);
        if (order == orders.end()) file.Fail("unknown order " + name);
        if (!skyPainted) {
            if (moods.empty()) file.Fail("the scene begins with a mood");
            PaintSky(level, moods, overworldBottom);
            skyPainted = true;
        }
        (this->*order->second)(file);
    }
    PaintPits();
    ground.Paint(level);
}

std::uint32_t LevelPainter::ReadColour(SourceFile& file) const {
    const std::string name = file.Word("a colour");
    if (!palette.Has(name)) file.Fail("no such colour: " + name);
    if (palette.IsSolid(palette[name])) file.Fail(name + " is kept for solids");
    return palette[name];
}

const Tones& LevelPainter::ReadTones(SourceFile& file) const {
    const auto found = tones.find(file.Word("tones"));
    if (found == tones.end()) file.Fail("no such tones");
    return found->second;
}

void LevelPainter::ReadToneNames(SourceFile& file) {
    Tones& read = tones[file.Word("a name")];
    for (std::uint32_t* tonePtr : {&read.outline, &read.dark, &read.mid, &read.light, &read.glow}) {
        *tonePtr = ReadColour(file);
    }
}

void LevelPainter::ReadCloud(SourceFile& file) {
    const int x = file.Number("x");
    const int y = file.Number("y");
    const int width = file.Size("the width");
    PaintCloud(level, x, y, width, ReadTones(file), x);
}

void LevelPainter::ReadColumn(SourceFile& file) {
    const int x = file.Number("x");
    const int width = file.Size("the width");
    PaintColumn(level, palette, x, terrain.GroundAt(x), width, file.Size("the height"), x);
}

void LevelPainter::ReadWall(SourceFile& file) {
    const int x = file.Number("x");
    const int width = file.Size("the width");
    const int height = file.Size("the height");
    PaintWall(level, palette, x, terrain.GroundAt(x + width / 2), width, height, file.Number("the opening"), x);
}

void LevelPainter::ReadTower(SourceFile& file) {
    const int x = file.Number("x");
    const int width = file.Size("the width");
    const int height = file.Size("the height");
    PaintTower(level, palette, x, terrain.GroundAt(x + width / 2), width, height, file.Number("the roof"), x);
}

void LevelPainter::ReadBox(SourceFile& file) {
    const int left = file.Number("left");
    const int top = file.Number("top");
    const int right = file.Number("right");
    const int bottom = file.Number("bottom");
    Box(level, left, top, right, bottom, ReadColour(file));
}

void LevelPainter::ReadMaterial(SourceFile& file) {
    const std::string name = file.Word("a material");
    const int left = file.Number("left");
    const int top = file.Number("top");
    const int right = file.Number("right");
    if (!ground.SetMaterial(name, left, top, right, file.Number("bottom"))) file.Fail("no such material: " + name);
}

void LevelPainter::ReadMood(SourceFile& file) {
    Mood mood{file.Number("the first column"), {}};
    do {
        const std::uint32_t colour = ReadColour(file);
        mood.bands.push_back({colour, file.Number("the row where the colour ends")});
    } while (file.More());
    moods.push_back(mood);
}

void LevelPainter::ReadRidge(SourceFile& file) {
    static const std::map<std::string, Ridge::Shape> shapes = {
        {"hills", Ridge::Shape::hills}, {"peaks", Ridge::Shape::peaks}, {"woods", Ridge::Shape::woods}};
    const auto shape = shapes.find(file.Word("a shape"));
    if (shape == shapes.end()) file.Fail("a ridge is hills, peaks or woods");
    Ridge ridge{};
    ridge.shape = shape->second;
    for (int* numberPtr :
         {&ridge.from, &ridge.to, &ridge.top, &ridge.swing, &ridge.period, &ridge.bottom, &ridge.seed}) {
        *numberPtr = file.Number("FROM TO TOP SWING PERIOD BOTTOM SEED");
    }
    if (ridge.period < 10) file.Fail("the period must be at least 10");
    ridge.light = ReadColour(file);
    ridge.mid = ReadColour(file);
    ridge.dark = ReadColour(file);
    PaintRidge(level, ridge);
}

void LevelPainter::ReadTree(SourceFile& file) {
    const int x = file.Number("x");
    const int height = file.Size("the height");
    const double half = file.Size("the crown's width") / 2.0;
    const Tones& leaves = ReadTones(file);
    const Tones& bark = ReadTones(file);
    const int footY = terrain.GroundAt(x);
    const double crownHalf = std::min(half * 0.8, height * 0.42);
    const double crownY = footY - height + crownHalf;
    PaintTrunk(level, x, footY, height - static_cast<int>(crownHalf), std::max(4, height / 11), bark, x);
    PaintFoliage(level, x, crownY, half, crownHalf, leaves, x);
    if (!file.More()) return;
    const std::uint32_t fruit = ReadColour(file);
    PaintFruit(level, x, crownY, half, crownHalf, fruit, ReadColour(file), 2 + (height > 60),
               static_cast<int>(half * 0.75), x);
}

void LevelPainter::ReadBush(SourceFile& file) {
    const int x = file.Number("x");
    const double halfWidth = file.Size("the width") / 2.0;
    const double height = file.Size("the height");
    const Tones& leaves = ReadTones(file);
    const double centreY = terrain.GroundAt(x) - height * 0.35;
    PaintFoliage(level, x, centreY, halfWidth, height * 0.7, leaves, x);
    if (!file.More()) return;
    const std::uint32_t fruit = ReadColour(file);
    PaintFruit(level, x, centreY - height * 0.1, halfWidth * 0.9, height * 0.5, fruit, ReadColour(file), 2,
               static_cast<int>(halfWidth * 0.8), x);
}

void LevelPainter::ReadGrass(SourceFile& file) {
    const int from = file.Number("the first column");
    const int to = file.Number("the last column");
    const int share = file.Number("the share in percent");
    const int height = file.Number("the height");
    const std::uint32_t dark = ReadColour(file);
    const std::uint32_t light = ReadColour(file);
    for (int x = from; x < to; x += 3) {
        // tufts grow in patches with gaps between them
        if (100.0 * Chance(x, 0, 81) > share * 2.0 * Wave(x, 37.0, 82)) continue;
        PaintTuft(level, x, terrain.GroundAt(x), height + static_cast<int>(3.0 * Chance(x, 1, 81)) - 1, dark, light, x);
    }
}

void LevelPainter::ReadProp(SourceFile& file) {
    const std::string name = file.Word("a name");
    if (!props.HasFrame(name)) file.Fail("no such prop: " + name);
    const int x = file.Number("x");
    const int footY = file.More() ? file.Number("y") : terrain.GroundAt(x + props.FrameWidth(name) / 2);
    props.PaintFrame(level, name, x, footY - props.FrameHeight(name));
}

void LevelPainter::ReadCave(SourceFile& file) {
    const int left = file.Number("left");
    const int top = file.Number("top");
    const int right = file.Number("right");
    const int bottom = file.Number("bottom");
    if (left < 0 || top < 0 || right > levelWidth || bottom > levelHeight) file.Fail("the cave leaves the level");
    for (int y = top; y < bottom; ++y) {
        for (int x = left; x < right; ++x) {
            // large stones, hardly lighter than the joints between them; a glow from the middle of the room
            const int row = y / 14;
            const int shifted = x + (row & 1) * 13 + static_cast<int>(9.0 * Chance(row, 0, 91));
            const bool joint = y % 14 == 0 || shifted % 26 == 0;
            const double glow = 1.25 - 1.4 * std::abs((y - top) / static_cast<double>(bottom - top) - 0.55) -
                                0.9 * std::abs((x - left) / static_cast<double>(right - left) - 0.46) +
                                0.3 * (Chance(shifted / 26, row, 92) - 0.5);
            level.At(x, y) = palette[joint ? "ink0" : Dither(x, y, (glow - 0.5) * 1.6) ? "ink1" : "under0"];
        }
    }
}

void LevelPainter::ReadGlow(SourceFile& file) {
    const int x = file.Number("x");
    const int y = file.Number("y");
    const int radius = file.Size("the radius");
    const double percent = file.Number("the percentage");
    const std::uint32_t colour = ReadColour(file);
    for (int py = y - radius; py <= y + radius; ++py) {
        for (int px = x - radius; px <= x + radius; ++px) {
            const double distance = std::hypot(px - x, py - y) / radius;
            if (distance < 1.0 && Dither(px, py, percent / 100.0 * (1.0 - distance))) Dot(level, px, py, colour);
        }
    }
}

void LevelPainter::ReadFort(SourceFile& file) {
    const int x = file.Number("x");
    const int footY = terrain.GroundAt(x + 20);
    Picture building(levelWidth, overworldBottom);
    PaintFort(building, palette, x, footY);
    for (int y = 0; y < overworldBottom; ++y) {
        for (int px = 0; px < levelWidth; ++px) {
            const std::uint32_t colour = building.At(px, y);
            if (colour == 0) continue;
            level.At(px, y) = colour;
            if (px >= castleFrontX && y < castleFront.height) castleFront.At(px - castleFrontX, y) = colour;
        }
    }
}

/// Pits get darker towards their bottom, so that they do not look like a way down.
void LevelPainter::PaintPits() {
    for (int x = 0; x < levelWidth; ++x) {
        if (terrain.IsSolid(x, levelHeight - 1)) continue;
        int left = x;
        while (left > 0 && !terrain.IsSolid(left, levelHeight - 1)) --left;
        int right = x;
        while (right < levelWidth - 1 && !terrain.IsSolid(right, levelHeight - 1)) ++right;
        const int rim = std::max({terrain.GroundAt(left), terrain.GroundAt(right), 192}) + 2;
        for (int y = rim; y < levelHeight; ++y) {
            const double depth = (y - rim) / 24.0 + 0.1 * (Wave(x, 6.0, 95) - 0.5);
            const double dots = Dither(x, y, 0.5) ? 0.08 : 0.0;
            if (depth + 2.0 * dots < 0.12) continue;
            level.At(x, y) = palette[depth > 0.8 + dots    ? "ink0"
                                     : depth > 0.5 + dots  ? "under0"
                                     : depth > 0.26 + dots ? "ink1"
                                                           : "leaf0"];
        }
    }
}

} // namespace pictures
