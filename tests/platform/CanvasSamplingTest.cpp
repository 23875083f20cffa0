// Random scenes of pictures, each painted by the canvas and, pixel by pixel, by the reference.

#include "tests/support/ReferencePainter.h"
#include "tests/support/Stage.h"

#include <random>

using platform::Picture;

namespace {

constexpr int width = 150;
constexpr int height = 110; // several bands of those in which a frame is composed

class Random {
public:
    int Whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine); }
    float Between(float low, float high) { return std::uniform_real_distribution<float>(low, high)(engine); }
    float Quarters(int low, int high) { return static_cast<float>(Whole(4 * low, 4 * high)) / 4.0F; }
    float Mirrored(float scale) { return Whole(0, 1) == 0 ? scale : -scale; }
    bool OneIn(int count) { return Whole(1, count) == 1; }

    /// Stretches of transparent, opaque and translucent pixels, as sprites have them; some wider than the 64 columns
    /// that are looked at at a time.
    Picture Sheet(int columns, int rows) {
        Picture picture(columns, rows);
        int kind = 0;
        for (std::uint32_t& pixel : picture.pixels) {
            if (OneIn(kind == 1 ? 60 : 4)) kind = Whole(0, 2);
            const int alpha = kind == 0 ? 0 : kind == 1 ? 255 : Whole(1, 254);
            for (int channel = 0; channel < 3; ++channel) {
                pixel = pixel << 8 | static_cast<std::uint32_t>(Whole(0, alpha));
            }
            pixel |= static_cast<std::uint32_t>(alpha) << 24;
        }
        return picture;
    }

    Picture Ground(int columns, int rows) {
        Picture picture(columns, rows);
        for (std::uint32_t& pixel : picture.pixels) pixel = 0xFF000000U | static_cast<std::uint32_t>(engine());
        return picture;
    }

private:
    std::mt19937 engine{20260711};
};

enum Kind { anyScale, wholeScale, quarterTurn, shear };

/// Whole scales are the game's own; under a camera that stands anywhere, edges may fall exactly on pixel centres.
D2D1_MATRIX_3X2_F RandomTransform(Kind kind, Random& random) {
    const bool isWhole = kind == wholeScale || kind == quarterTurn;
    const auto scale = [&](bool isThere) {
        if (!isThere) return 0.0F;
        return random.Mirrored(isWhole ? static_cast<float>(random.Whole(1, 5)) : random.Between(0.3F, 6.0F));
    };
    const auto shift = [&] { return random.OneIn(2) ? random.Between(-60.0F, 200.0F) : random.Quarters(-60, 200); };
    const bool turns = kind == quarterTurn || kind == shear;
    const bool stays = kind != quarterTurn;
    return {scale(stays), scale(turns), scale(turns), scale(stays), shift(), shift()};
}

} // namespace

TEST(CanvasSampling, ShowsThePixelInWhichACentreFalls) {
    Random random;
    CanvasStage stage(width, height);
    const Picture pictures[] = {random.Sheet(200, 40), random.Ground(90, 60)};
    const std::unique_ptr<ID2D1Bitmap> bitmaps[] = {stage.MakeBitmap(pictures[0]), stage.MakeBitmap(pictures[1])};
    for (const Kind kind : {anyScale, wholeScale, quarterTurn, shear}) {
        for (int scene = 0; scene < 300; ++scene) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << ", scene " << scene);
            ReferencePainter reference(width, height, 0xFFFFFFFFU);
            const Picture& shown = stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
                for (int count = 0; count < 6; ++count) {
                    if (random.OneIn(20)) { // whatever was painted before
                        canvas.Clear({0.2F, 0.4F, 0.6F, 1.0F});
                        reference.frame = Picture(width, height, 0xFF336699U);
                    }
                    const std::size_t which = random.OneIn(3) ? 1 : 0;
                    const Picture& picture = pictures[which];
                    // parts of pixels too, and more than the picture has
                    const float left = random.Quarters(-3, picture.width - 1);
                    const float top = random.Quarters(-3, picture.height - 1);
                    const D2D1_RECT_F source = {left, top, left + random.Quarters(1, picture.width),
                                                top + random.Quarters(1, picture.height)};
                    const float shift = random.Quarters(-2, 2);
                    const D2D1_RECT_F destination = {shift, 0.0F, shift + source.right - source.left,
                                                     source.bottom - source.top};
                    const int opacity = random.OneIn(3) ? random.Whole(0, 255) : 255;
                    const D2D1_MATRIX_3X2_F transform = RandomTransform(kind, random);
                    canvas.SetTransform(transform);
                    canvas.DrawBitmap(*bitmaps[which], destination, static_cast<float>(opacity) / 255.0F,
                                      D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR, source);
                    reference.SetTransform(transform);
                    reference.DrawBitmap(picture, destination, source, opacity);
                }
            });
            ASSERT_TRUE(LooksLike(shown, reference.frame));
        }
    }
}

// Where every picture pixel is exactly one frame pixel any sampling gives the same.
TEST(CanvasSampling, LinearEqualsNearestWherePixelsMeetPixels) {
    Random random;
    CanvasStage stage(100, 60);
    const auto bitmapPtr = stage.MakeBitmap(random.Sheet(80, 40));
    Picture frames[2];
    for (const auto mode : {D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR, D2D1_BITMAP_INTERPOLATION_MODE_LINEAR}) {
        frames[mode] = stage.Frame([&](ID2D1HwndRenderTarget& canvas) {
            canvas.SetTransform({-1.0F, 0.0F, 0.0F, 1.0F, 90.0F, 7.0F});
            canvas.DrawBitmap(*bitmapPtr, {0.0F, 0.0F, 80.0F, 40.0F}, 0.5F, mode, {0.0F, 0.0F, 80.0F, 40.0F});
        });
    }
    EXPECT_TRUE(LooksLike(frames[1], frames[0]));
}
