// Every example runs on the scripted desktop, and a frame of it is compared, pixel for pixel, with its picture in
// docs/gallery: the pictures that people see there are the golden frames. To accept a new look, delete the picture, run
// the test, and copy what it keeps.
//
// Letters depend on the fonts that a machine has. The boxes that hold text are therefore left out of the comparison;
// instead there must be ink in each of them.

#include "examples/controls/ControlsGame.h"
#include "examples/first_game/FirstGame.h"
#include "examples/hello/HelloGame.h"
#include "examples/hit_regions/HitRegionsGame.h"
#include "examples/shapes/ShapesGame.h"
#include "examples/sound/SoundGame.h"
#include "examples/sprites/SpritesGame.h"
#include "platform/ScriptedDesktop.h"
#include "tests/support/ImageCompare.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

using platform::Picture;
using platform::ScriptedDesktop;

namespace {

void WithoutInput(ScriptedDesktop&) {}

/// Plays a new Game through the keys and events that `script` adds, and returns frame `shownFrame`.
template <class Game>
Picture Played(int shownFrame, const std::function<void(ScriptedDesktop&)>& script = WithoutInput) {
    auto newDesktopPtr = std::make_unique<ScriptedDesktop>();
    ScriptedDesktop& desktop = *newDesktopPtr;
    platform::Desktop::Use(std::move(newDesktopPtr));
    Picture shown;
    desktop.onFrame = [&shown, shownFrame](int frame, const platform::FrameView& view) {
        if (frame == shownFrame) shown = Copied(view);
    };
    script(desktop);
    desktop.End(shownFrame + 1);
    GameEngine::GetSingleton()->SetGame(new Game);
    EXPECT_EQ(GameEngine::GetSingleton()->Run(nullptr, 1), 0);
    EXPECT_THAT(desktop.boxes, testing::IsEmpty());
    platform::Desktop::Use(nullptr);
    return shown;
}

int InkedPixels(const Picture& picture, RECT box) {
    int count = 0;
    for (int y = box.top; y < box.bottom; ++y) {
        for (int x = box.left; x < box.right; ++x) count += picture.At(x, y) != picture.At(box.left, box.top);
    }
    return count;
}

testing::AssertionResult LooksLikeGallery(Picture actual, const std::string& name, const std::vector<RECT>& textBoxes) {
    const std::string path = "docs/gallery/" + name + ".png";
    const auto golden = platform::LoadPicture(path);
    if (golden && golden->width == actual.width && golden->height == actual.height) {
        for (const RECT box : textBoxes) {
            if (InkedPixels(actual, box) < 20) {
                return testing::AssertionFailure() << name << " has no text at " << box.left << ", " << box.top;
            }
            for (int y = box.top; y < box.bottom; ++y) {
                for (int x = box.left; x < box.right; ++x) actual.At(x, y) = golden->At(x, y);
            }
        }
    }
    return LooksLikeFile(actual, path);
}

void MoveMouse(ScriptedDesktop& desktop, int frame, int x, int y) {
    desktop.At(frame, [&desktop, x, y] { desktop.PostMessage(desktop.MainWindow(), WM_MOUSEMOVE, 0, x | y << 16); });
}

} // namespace

TEST(Gallery, Hello) { EXPECT_TRUE(LooksLikeGallery(Played<HelloGame>(90), "hello", {{90, 336, 512, 400}})); }

TEST(Gallery, Shapes) {
    std::vector<RECT> textBoxes;
    for (int cell = 0; cell < 20; ++cell) {
        const int left = cell % 4 * 128;
        const int top = cell / 4 * 96;
        textBoxes.push_back({left, top + 75, left + 128, top + 96});
        if (cell >= 18) textBoxes.push_back({left + 12, top + 4, left + 116, top + 75});
    }
    EXPECT_TRUE(LooksLikeGallery(Played<ShapesGame>(1), "shapes", textBoxes));
}

TEST(Gallery, Sprites) { EXPECT_TRUE(LooksLikeGallery(Played<SpritesGame>(340), "sprites", {})); }

TEST(Gallery, SoundTellsItsListenerOfEveryEnd) {
    EXPECT_TRUE(LooksLikeGallery(Played<SoundGame>(180), "sound", {{60, 70, 512, 120}}));
}

TEST(Gallery, SoundRestsAfterFiveEndsUntilSpace) {
    const Picture resting = Played<SoundGame>(400);
    const DWORD ground = resting.At(0, 0);
    EXPECT_EQ(resting.At(80, 200), ground);
    EXPECT_NE(resting.At(416, 300), ground);
    const Picture again = Played<SoundGame>(400, [](ScriptedDesktop& desktop) {
        desktop.Press(370, VK_SPACE);
        desktop.Release(374, VK_SPACE);
    });
    EXPECT_NE(again.At(80, 200), ground);
    EXPECT_EQ(again.At(416, 300), ground);
}

TEST(Gallery, HitRegions) {
    const Picture shown = Played<HitRegionsGame>(50, [](ScriptedDesktop& desktop) { MoveMouse(desktop, 5, 470, 60); });
    EXPECT_TRUE(LooksLikeGallery(shown, "hit_regions", {}));
}

TEST(Gallery, ControlsAreFilledInWithMouseAndKeys) {
    const Picture shown = Played<ControlsGame>(36, [](ScriptedDesktop& desktop) {
        desktop.Mouse(1, WM_LBUTTONDOWN, {240, 50});
        desktop.Mouse(2, WM_LBUTTONUP, {240, 50});
        desktop.Press(3, VK_CONTROL);
        desktop.Press(3, 'A');
        desktop.Release(3, VK_CONTROL);
        desktop.Type(4, L"Welcome aboard, Zo\u00eb!");
        desktop.Press(5, VK_TAB);
        desktop.Press(5, VK_DELETE);
        desktop.Type(5, L"1"); // 150 ms
        desktop.Press(6, VK_TAB);
        desktop.Press(7, VK_SPACE); // the button takes the texts over and starts the timer
        desktop.Release(8, VK_SPACE);
    });
    EXPECT_TRUE(LooksLikeGallery(shown, "controls",
                                 {{30, 36, 130, 64},
                                  {30, 84, 130, 112},
                                  {144, 36, 470, 62},
                                  {144, 84, 224, 110},
                                  {256, 86, 352, 108},
                                  {384, 86, 472, 108},
                                  {30, 154, 130, 180},
                                  {30, 424, 480, 470}}));
}

TEST(Gallery, FirstGameWalksUpTheSlopeAndStopsAtTheWall) {
    const Picture shown = Played<FirstGame>(150, [](ScriptedDesktop& desktop) { desktop.Press(20, VK_RIGHT); });
    EXPECT_TRUE(LooksLikeGallery(shown, "first_game", {}));
}
