// Plays every example on the scripted desktop and compares a frame, pixel for pixel, with its picture in docs/gallery.
// Letters depend on the fonts of a machine, so boxes with text are not compared; each must hold some ink instead.

#include "examples/controls/ControlsGame.h"
#include "examples/first_game/FirstGame.h"
#include "examples/hello/HelloGame.h"
#include "examples/hit_regions/HitRegionsGame.h"
#include "examples/shapes/ShapesGame.h"
#include "examples/sound/SoundGame.h"
#include "examples/sprites/SpritesGame.h"
#include "tests/support/ImageCompare.h"
#include "tests/support/Stage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using platform::Picture;

namespace {

/// Plays a new Game through the keys and events that `script` adds, and returns frame `lastFrame`.
template <class Game>
Picture Played(
    int lastFrame, const std::function<void(Stage&)>& script = [](Stage&) {}, double frameSeconds = 1.0 / 60.0) {
    Stage stage(frameSeconds);
    script(stage);
    stage->End(lastFrame + 1);
    GameEngine::GetSingleton()->SetGame(new Game);
    EXPECT_EQ(GameEngine::GetSingleton()->Run(nullptr, 1), 0);
    EXPECT_THAT(stage->boxes, testing::IsEmpty());
    return stage->shown;
}

testing::AssertionResult LooksLikeGallery(Picture shown, const std::string& name,
                                          const std::vector<RECT>& textBoxes = {}) {
    const std::string path = "docs/gallery/" + name + ".png";
    const auto golden = platform::LoadPicture(path);
    if (!golden || golden->width != shown.width || golden->height != shown.height) return LooksLikeFile(shown, path);
    for (const RECT box : textBoxes) {
        const DWORD ground = shown.At(box.left, box.top);
        int inked = 0;
        for (int y = box.top; y < box.bottom; ++y) {
            for (int x = box.left; x < box.right; ++x) {
                inked += shown.At(x, y) != ground;
                shown.At(x, y) = golden->At(x, y);
            }
        }
        if (inked < 20) return testing::AssertionFailure() << "no text at " << box.left << ", " << box.top;
    }
    return LooksLike(shown, *golden, name);
}

constexpr double longestStep = 0.05; // seconds; the engine makes no longer ones

} // namespace

TEST(Gallery, ExamplesLookLikeTheirPictures) {
    std::vector<RECT> captions; // under the twenty cells; the last two cells hold text
    for (int cell = 0; cell < 20; ++cell) {
        const int left = cell % 4 * 128;
        const int top = cell / 4 * 96;
        captions.push_back({left, top + 75, left + 128, top + 96});
        if (cell >= 18) captions.push_back({left + 12, top + 4, left + 116, top + 75});
    }
    EXPECT_TRUE(LooksLikeGallery(Played<ShapesGame>(1), "shapes", captions));
    EXPECT_TRUE(LooksLikeGallery(Played<HelloGame>(90), "hello", {{90, 336, 512, 400}}));
    EXPECT_TRUE(LooksLikeGallery(Played<SpritesGame>(340), "sprites"));
    EXPECT_TRUE(LooksLikeGallery(Played<SoundGame>(180), "sound", {{60, 70, 512, 120}})); // after some ends
    const auto pointAtTheRock = [](Stage& stage) { stage->Mouse(5, WM_MOUSEMOVE, {470, 60}); };
    EXPECT_TRUE(LooksLikeGallery(Played<HitRegionsGame>(50, pointAtTheRock), "hit_regions"));
}

TEST(Gallery, SoundRestsAfterFiveEndsUntilSpace) {
    const Picture resting = Played<SoundGame>(400);
    EXPECT_EQ(resting.At(80, 200), resting.At(0, 0));  // the bell
    EXPECT_NE(resting.At(416, 300), resting.At(0, 0)); // the fifth end
    const auto pressSpace = [](Stage& stage) {
        stage->Press(370, VK_SPACE);
        stage->Release(374, VK_SPACE);
    };
    const Picture again = Played<SoundGame>(400, pressSpace);
    EXPECT_NE(again.At(80, 200), again.At(0, 0));
    EXPECT_EQ(again.At(416, 300), again.At(0, 0));
}

TEST(Gallery, ControlsAreFilledInWithMouseAndKeys) {
    const Picture shown = Played<ControlsGame>(41, [](Stage& stage) {
        stage->Mouse(1, WM_LBUTTONDOWN, {240, 50});
        stage->Mouse(2, WM_LBUTTONUP, {240, 50});
        stage->Press(3, VK_CONTROL);
        stage->Press(3, 'A');
        stage->Release(3, VK_CONTROL);
        stage->Type(4, L"Welcome aboard, Zo\u00eb!");
        stage->Press(5, VK_TAB);
        stage->Press(5, VK_DELETE);
        stage->Type(5, L"1"); // 150 ms
        stage->Press(6, VK_TAB);
        stage->Press(7, VK_SPACE); // the button takes the texts over and starts the timer
        stage->Release(8, VK_SPACE);
    });
    const std::vector<RECT> textBoxes = {{30, 36, 130, 64},   {30, 84, 130, 112},  {144, 36, 470, 62},
                                         {144, 84, 224, 110}, {256, 86, 352, 108}, {384, 86, 472, 108},
                                         {30, 154, 130, 180}, {30, 424, 480, 470}};
    EXPECT_TRUE(LooksLikeGallery(shown, "controls", textBoxes));
}

TEST(Gallery, FirstGameEndsAtTheSamePlacesWhateverTheStep) {
    Picture behindTheBlock;
    for (const double step : {1.0 / 120, 1.0 / 60, 1.0 / 45, 0.03, 1.0 / 30, 0.036, 0.04, 0.045, 0.048, longestStep}) {
        SCOPED_TRACE(step);
        const auto frameAt = [step](double seconds) { return static_cast<int>(seconds / step); };
        const auto walk = [](Stage& stage) { stage->Press(0, VK_RIGHT); };
        EXPECT_TRUE(LooksLikeGallery(Played<FirstGame>(frameAt(2.5), walk, step), "first_game"));

        // Some of these jumps graze the edge of the block.
        const auto jumpOverAndTurnBack = [&frameAt](Stage& stage) {
            stage->Press(0, VK_RIGHT);
            stage->Press(frameAt(1.0), VK_UP);
            stage->Release(frameAt(3.1), VK_UP);
            stage->Release(frameAt(3.1), VK_RIGHT);
            stage->Press(frameAt(3.1), VK_LEFT);
        };
        const Picture shown = Played<FirstGame>(frameAt(4.4), jumpOverAndTurnBack, step);
        EXPECT_NE(shown.At(418, 350), shown.At(0, 0)); // the hero against the sky
        if (behindTheBlock.pixels.empty()) behindTheBlock = shown;
        EXPECT_TRUE(LooksLike(shown, behindTheBlock));
    }
}
