#include "platform/core/screen/Keyboard.h"

#include "platform/Messages.h"

#include <gtest/gtest.h>

using platform::Keyboard;
using platform::VirtualKeyOf;

namespace {
// Places on the keyboard, named for what is there on an American one.
constexpr int placeA = 4;
constexpr int placeQ = 20;
constexpr int placeX = 27;
constexpr int place1 = 30;
constexpr int place0 = 39;
constexpr int placePad4 = 92;
constexpr int placePad0 = 98;
constexpr int placeLeftShift = 225;
constexpr int placeRightShift = 229;
} // namespace

TEST(Keyboard, LettersAreWhatThePlayersLayoutSays) {
    EXPECT_EQ(VirtualKeyOf('q', placeQ), 'Q');
    EXPECT_EQ(VirtualKeyOf('a', placeQ), 'A') << "French";
    EXPECT_EQ(VirtualKeyOf('q', placeX), 'Q') << "a layout with the letters elsewhere";
    EXPECT_EQ(VirtualKeyOf('\'', placeQ), 0) << "and nothing where Q used to be";
    EXPECT_EQ(VirtualKeyOf(0x0439, placeQ), 'Q') << "Cyrillic has no Q: its place counts";
    EXPECT_EQ(VirtualKeyOf('&', place1), '1') << "French digits need Shift";
    EXPECT_EQ(VirtualKeyOf(0x00E0, place0), '0');
}

TEST(Keyboard, TheNumberPadIsDigitsWhateverItIsCalled) {
    constexpr int leftArrow = 1 << 30 | 80;
    EXPECT_EQ(VirtualKeyOf(leftArrow, placePad4), VK_NUMPAD0 + 4);
    EXPECT_EQ(VirtualKeyOf('0', placePad0), VK_NUMPAD0);
    EXPECT_EQ(VirtualKeyOf(leftArrow, 80), VK_LEFT);
}

TEST(Keyboard, AKeyIsUpWhenTheLastThatStandsForItIs) {
    Keyboard keyboard;
    keyboard.Press(placeLeftShift, VK_SHIFT);
    keyboard.Press(placeRightShift, VK_SHIFT);
    keyboard.Press(placeRightShift, VK_SHIFT); // repeats
    EXPECT_EQ(keyboard.Release(placeLeftShift), VK_SHIFT);
    EXPECT_TRUE(keyboard.IsDown(VK_SHIFT));
    keyboard.Release(placeRightShift);
    EXPECT_FALSE(keyboard.IsDown(VK_SHIFT));

    keyboard.Press(placeA, 'A');
    keyboard.ReleaseAll();
    EXPECT_EQ(keyboard.Release(placeA), 0) << "it was up already";
    EXPECT_FALSE(keyboard.IsDown('A'));
    for (const int outside : {-1, 256, 100'000}) EXPECT_FALSE(keyboard.IsDown(outside));
}
