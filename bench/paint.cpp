// One full frame of the game: the level's picture as background, sprites and the glyphs of the head-up display, painted
// by our canvas, beside copying a frame and beside plain calls of the path library. Prints both ratios and compares the
// frame, pixel by pixel, with what a painter without any haste says.

#include "platform/Canvas.h"
#include "platform/ScriptedDesktop.h"
#include "platform/core/canvas/FrameMemory.h"
#include "tests/support/ReferencePainter.h"

#include <cairo/cairo.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <random>
#include <vector>

using platform::Picture;

namespace {

constexpr int width = 1024;
constexpr int height = 896;
constexpr int frames = 8; // memory is rotated over, so that no frame is still in the cache when its turn comes
constexpr int rounds = 60;
constexpr double copyLimit = 1.25;
constexpr double plainLimit = 0.4;

/// Sky, clouds and ground in many colours.
Picture MakeLevel() {
    Picture picture(3392, 448);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            const auto shade = static_cast<std::uint32_t>((x * 7 ^ y * 13) & 63);
            picture.At(x, y) = y % 224 < 200 ? 0xFF60A0E0U + shade : 0xFF804020U + (shade << 8);
        }
    }
    return picture;
}

/// Cells of `side` pixels in a row: a body with an outline and openings, everything around it transparent.
Picture MakeSheet(int cells, int side) {
    std::mt19937 random(3);
    Picture picture(cells * side, side);
    for (int cell = 0; cell < cells; ++cell) {
        const double radiusX = side * std::uniform_real_distribution(0.35, 0.5)(random);
        const double radiusY = side * std::uniform_real_distribution(0.4, 0.5)(random);
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const double fromX = (x + 0.5 - side / 2.0) / radiusX;
                const double fromY = (y + 0.5 - side / 2.0) / radiusY;
                const double distance = fromX * fromX + fromY * fromY;
                const bool isOpening = (x + cell) % 7 == 3 && (y + cell) % 5 == 2;
                if (distance > 1.0 || isOpening) continue;
                picture.At(cell * side + x, y) =
                    distance > 0.75 ? 0xFF201010U
                                    : 0xFFC06040U + static_cast<std::uint32_t>(x * 5 + y * 256 + cell * 3);
            }
        }
    }
    return picture;
}

struct Cell {
    D2D1_MATRIX_3X2_F transform;
    D2D1_RECT_F source;
};

struct Scene {
    Picture level = MakeLevel();
    Picture sprites = MakeSheet(16, 16);
    Picture glyphs = MakeSheet(40, 8);
    D2D1_MATRIX_3X2_F view;
    std::vector<Cell> spriteCells;
    std::vector<Cell> glyphCells;

    Scene() {
        constexpr double cameraX = 1234.5678;
        view = {4.0F, 0.0F, 0.0F, 4.0F, static_cast<float>(-cameraX * 4.0), 0.0F};
        std::mt19937 random(11);
        for (int index = 0; index < 80; ++index) {
            // whole level pixels for what stands, fractions for what moves
            double x = cameraX + std::uniform_real_distribution(-8.0, 248.0)(random);
            double y = std::uniform_real_distribution(0.0, 200.0)(random);
            if (index % 4 < 2) x = std::floor(x), y = std::floor(y);
            const double mirror = index % 2 == 0 ? 1.0 : -1.0;
            const double left = (x - cameraX + (mirror < 0.0 ? 16.0 : 0.0)) * 4.0;
            spriteCells.push_back({{static_cast<float>(4.0 * mirror), 0.0F, 0.0F, 4.0F, static_cast<float>(left),
                                    static_cast<float>(y * 4.0)},
                                   CellOf(index % 16, 16)});
        }
        for (int index = 0; index < 60; ++index) {
            glyphCells.push_back({{3.0F, 0.0F, 0.0F, 3.0F, static_cast<float>(40 + index % 30 * 30),
                                   static_cast<float>(20 + index / 30 * 30)},
                                  CellOf(index % 40, 8)});
        }
    }

    static D2D1_RECT_F CellOf(int index, int side) {
        return {static_cast<float>(index * side), 0.0F, static_cast<float>(index * side + side),
                static_cast<float>(side)};
    }

    /// Calls `draw(picture, transform, source)` for everything in the frame, in order.
    template <class Draw>
    void Paint(const Draw& draw) const {
        draw(level, view, D2D1_RECT_F{0.0F, 0.0F, 3392.0F, 448.0F});
        for (const Cell& cell : spriteCells) draw(sprites, cell.transform, cell.source);
        for (const Cell& cell : glyphCells) draw(glyphs, cell.transform, cell.source);
    }
};

D2D1_RECT_F AtOrigin(D2D1_RECT_F source) {
    return {0.0F, 0.0F, source.right - source.left, source.bottom - source.top};
}

/// Our canvas.
class CanvasPainter {
public:
    explicit CanvasPainter(const Scene& drawnScene) : scene(drawnScene) {
        for (int index = 0; index < frames; ++index) {
            canvases.push_back(platform::CreateCanvas(nullptr, width, height, D2D1_PRESENT_OPTIONS_IMMEDIATELY));
        }
        const auto make = [&](const Picture& picture) {
            return canvases[0]->CreateBitmap(std::shared_ptr<const Picture>(std::shared_ptr<void>(), &picture));
        };
        levelPtr = make(scene.level);
        spritesPtr = make(scene.sprites);
        glyphsPtr = make(scene.glyphs);
    }

    void Paint(int frame) const {
        ID2D1HwndRenderTarget& canvas = *canvases[static_cast<std::size_t>(frame)];
        canvas.BeginDraw();
        canvas.SetTransform({});
        canvas.Clear({1.0F, 1.0F, 1.0F, 1.0F});
        scene.Paint([&](const Picture& picture, const D2D1_MATRIX_3X2_F& transform, D2D1_RECT_F source) {
            const ID2D1Bitmap& bitmap = &picture == &scene.level     ? *levelPtr
                                        : &picture == &scene.sprites ? *spritesPtr
                                                                     : *glyphsPtr;
            canvas.SetTransform(transform);
            canvas.DrawBitmap(bitmap, AtOrigin(source), 1.0F, D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR, source);
        });
        canvas.EndDraw();
    }

private:
    const Scene& scene;
    std::vector<std::unique_ptr<ID2D1HwndRenderTarget>> canvases;
    std::unique_ptr<ID2D1Bitmap> levelPtr;
    std::unique_ptr<ID2D1Bitmap> spritesPtr;
    std::unique_ptr<ID2D1Bitmap> glyphsPtr;
};

/// The same frame by plain calls of the path library.
class PlainPainter {
public:
    explicit PlainPainter(const Scene& drawnScene) : scene(drawnScene) {
        for (int index = 0; index < frames; ++index) {
            memory.push_back(platform::MakeFrameMemory(width, height));
            contexts.push_back(cairo_create(Surface(memory.back().pixels.get(), width, height, memory.back().stride)));
            cairo_set_antialias(contexts.back(), CAIRO_ANTIALIAS_NONE);
        }
        level = Surface(scene.level.pixels.data(), scene.level.width, scene.level.height, scene.level.width);
        sprites = Surface(scene.sprites.pixels.data(), scene.sprites.width, scene.sprites.height, scene.sprites.width);
        glyphs = Surface(scene.glyphs.pixels.data(), scene.glyphs.width, scene.glyphs.height, scene.glyphs.width);
    }

    void Paint(int frame) const {
        cairo_t* contextPtr = contexts[static_cast<std::size_t>(frame)];
        scene.Paint([&](const Picture& picture, const D2D1_MATRIX_3X2_F& transform, D2D1_RECT_F source) {
            cairo_surface_t* surfacePtr = &picture == &scene.level     ? level
                                          : &picture == &scene.sprites ? sprites
                                                                       : glyphs;
            const cairo_matrix_t matrix = {transform.m11, transform.m12, transform.m21,
                                           transform.m22, transform.dx,  transform.dy};
            cairo_set_matrix(contextPtr, &matrix);
            cairo_set_source_surface(contextPtr, surfacePtr, -source.left, -source.top);
            cairo_pattern_set_filter(cairo_get_source(contextPtr), CAIRO_FILTER_NEAREST);
            cairo_rectangle(contextPtr, 0.0, 0.0, source.right - source.left, source.bottom - source.top);
            cairo_fill(contextPtr);
        });
    }

private:
    static cairo_surface_t* Surface(const std::uint32_t* pixelsPtr, int surfaceWidth, int surfaceHeight, int stride) {
        auto* bytes = reinterpret_cast<unsigned char*>(const_cast<std::uint32_t*>(pixelsPtr));
        return cairo_image_surface_create_for_data(bytes, CAIRO_FORMAT_ARGB32, surfaceWidth, surfaceHeight, stride * 4);
    }

    const Scene& scene;
    std::vector<platform::FrameMemory> memory;
    std::vector<cairo_t*> contexts; // for the life of the program, like the surfaces
    cairo_surface_t* level = nullptr;
    cairo_surface_t* sprites = nullptr;
    cairo_surface_t* glyphs = nullptr;
};

class Copier {
public:
    Copier() {
        for (int index = 0; index < 2 * frames; ++index) memory.push_back(platform::MakeFrameMemory(width, height));
    }
    void Copy(int frame) const {
        const auto index = static_cast<std::size_t>(frame);
        std::memcpy(memory[index].pixels.get(), memory[index + frames].pixels.get(), std::size_t{width} * height * 4);
    }

private:
    std::vector<platform::FrameMemory> memory;
};

/// Milliseconds of one call, the mean over one rotation of the frames.
template <class Work>
double Measure(const Work& work) {
    const auto begin = std::chrono::steady_clock::now();
    for (int frame = 0; frame < frames; ++frame) work(frame);
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count() / frames;
}

int CountWrongPixels(const Scene& scene, const platform::FrameView& frame) {
    ReferencePainter reference(width, height, 0xFFFFFFFFU);
    scene.Paint([&](const Picture& picture, const D2D1_MATRIX_3X2_F& transform, D2D1_RECT_F source) {
        reference.SetTransform(transform);
        reference.DrawBitmap(picture, AtOrigin(source), source);
    });
    int wrong = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            wrong += frame.pixels[y * frame.stride + x] != reference.frame.At(x, y) ? 1 : 0;
        }
    }
    return wrong;
}

} // namespace

int main() {
    auto desktopPtr = std::make_unique<platform::ScriptedDesktop>();
    platform::FrameView shown;
    desktopPtr->onFrame = [&shown](int, const platform::FrameView& view) { shown = view; };
    platform::Desktop::Use(std::move(desktopPtr));
    const Scene scene;
    const CanvasPainter ours(scene);
    const PlainPainter plain(scene);
    const Copier copier;

    ours.Paint(0);
    const int wrong = CountWrongPixels(scene, shown);

    // The least of many interleaved rounds: what else the machine does can only add to a time.
    double copyTime = 1e9;
    double ourTime = 1e9;
    double plainTime = 1e9;
    for (int round = 0; round < rounds; ++round) {
        copyTime = std::min(copyTime, Measure([&](int frame) { copier.Copy(frame); }));
        ourTime = std::min(ourTime, Measure([&](int frame) { ours.Paint(frame); }));
        if (round % 4 == 0) plainTime = std::min(plainTime, Measure([&](int frame) { plain.Paint(frame); }));
    }
    const double copyRatio = ourTime / copyTime;
    const double plainRatio = ourTime / plainTime;
    std::printf("copy of a frame      %.3f ms\n", copyTime);
    std::printf("our canvas           %.3f ms\n", ourTime);
    std::printf("plain library calls  %.3f ms\n", plainTime);
    std::printf("ratio to the copy    %.2f (at most %.2f)\n", copyRatio, copyLimit);
    std::printf("ratio to the library %.3f (at most %.1f)\n", plainRatio, plainLimit);
    std::printf("wrong pixels         %d\n", wrong);
    return wrong == 0 && copyRatio <= copyLimit && plainRatio <= plainLimit ? 0 : 1;
}
