#include "platform/core/screen/Keyboard.h"

#include "platform/Messages.h"
#include "platform/sdl/VirtualKey.h"
#include "tests/support/Stage.h"

#include <set>

using platform::VirtualKeyOf;

namespace {
/// The keycode of the key at a place (numbered as on USB keyboards) that gives no character.
constexpr int Named(int place) { return place | 1 << 30; }
} // namespace

TEST(Keyboard, EveryKeyHasItsCode) {
    const struct {
        int firstPlace;
        std::string characters; // on an American keyboard; without any, the keys have names
        std::vector<int> virtualKeys;
    } rows[] = {
        {30, "1234567890", {'1', '2', '3', '4', '5', '6', '7', '8', '9', '0'}},
        {40, "\r\x1B\b\t -=[]\\", {13, 27, 8, 9, 32, 189, 187, 219, 221, 220}},
        {51, ";'`,./", {186, 222, 192, 188, 190, 191}},
        {57, "", {20}},                                                         // Caps Lock
        {58, "", {112, 113, 114, 115, 116, 117, 118, 119, 120, 121, 122, 123}}, // F1 to F12
        {70, "", {44, 145, 19, 45, 36, 33}}, // Print, Scroll Lock, Pause, Insert, Home, Page Up
        {76, "\x7F", {46}},                  // Delete
        {77, "", {35, 34, 39, 37, 40, 38}},  // End, Page Down, right, left, down, up
        {83, "", {144, 111, 106, 109, 107}}, // Num Lock and the pad's / * - +
        {89, "", {97, 98, 99, 100, 101, 102, 103, 104, 105, 96, 110}},           // the pad's 1 to 9, 0 and .
        {100, "<", {226}},                                                       // beside the left Shift
        {101, "", {93}},                                                         // Menu
        {104, "", {124, 125, 126, 127, 128, 129, 130, 131, 132, 133, 134, 135}}, // F13 to F24
        {116, "", {43, 47}},                                                     // Execute, Help
        {119, "", {41}},                                                         // Select
        {128, "", {175, 174}},                                                   // volume up, down
        {133, "", {108}},                                                        // the pad's comma
        {136, "", {21}},                                                         // Kana
        {138, "", {28, 29}},                                                     // Convert, Nonconvert
        {145, "", {25}},                                                         // Kanji
        {155, "", {3, 12}},                                                      // Cancel, Clear
        {224, "", {162, 160, 164, 91, 163, 161, 165, 92}},             // Ctrl, Shift, Alt, Windows: left, then right
        {257, "", {31, 176, 177, 178, 179, 173, 181}},                 // AltGr; next, previous, stop, play, mute, media
        {265, "", {180, 183, 182, 170, 172, 166, 167, 169, 168, 171}}, // mail, calculator, computer; the browser's
        {282, "", {95}},                                               // Sleep
    };
    std::set<int> answered;
    const auto expectKey = [&](int keycode, int place, int virtualKey) {
        EXPECT_EQ(VirtualKeyOf(keycode, place), virtualKey) << "at place " << place;
        EXPECT_TRUE(answered.insert(virtualKey).second) << "twice: " << virtualKey;
    };
    for (int letter = 0; letter < 26; ++letter) expectKey('a' + letter, 4 + letter, 'A' + letter);
    for (const auto& [firstPlace, characters, virtualKeys] : rows) {
        for (std::size_t index = 0; index < virtualKeys.size(); ++index) {
            const int place = firstPlace + static_cast<int>(index);
            expectKey(characters.empty() ? Named(place) : characters.at(index), place, virtualKeys[index]);
        }
    }
}

TEST(Keyboard, CharactersAreWhereThePlayersLayoutHasThem) {
    constexpr int placeQ = 20;
    constexpr int placeX = 27;
    constexpr int placeCapsLock = 57;
    constexpr int placeLeft = 80;
    constexpr int placeLeftShift = 225;
    const struct {
        int keycode;
        int place;
        int virtualKey;
        const char* why;
    } cases[] = {
        {'a', placeQ, 'A', "French"},
        {'q', placeX, 'Q', "a layout with the letters elsewhere"},
        {'!', placeQ, 0, "and nothing where Q used to be"},
        {0x0439, placeQ, 'Q', "Cyrillic has no Q: its place counts"},
        {'&', 30, '1', "French digits need Shift"},
        {'-', 35, '6', "also where the other character is a key elsewhere"},
        {0x00E0, 39, '0', "and where it is none"},
        {',', placeX, VK_OEM_COMMA, "punctuation among the letters"},
        {'-', 56, VK_OEM_MINUS, "German, where slash used to be"},
        {'+', 48, VK_OEM_PLUS, "plus without Shift"},
        {0x00DF, 45, VK_OEM_MINUS, "a character that no code is for, where minus used to be"},
        {0x00F6, 51, VK_OEM_1, "likewise"},
        {Named(placeLeftShift), placeCapsLock, VK_LSHIFT, "a key with another meaning"},
        {Named(placeLeft), placeLeft, VK_LEFT, ""},
        {Named(placeLeft), 92, VK_NUMPAD0 + 4, "the pad is digits whatever Num Lock says"},
        {0x7F, 99, VK_DECIMAL, "likewise"},
        {'\r', 88, VK_RETURN, "the pad's"},
        {Named(300), 300, 0, "a key without a code"},
    };
    for (const auto& [keycode, place, virtualKey, why] : cases) {
        EXPECT_EQ(VirtualKeyOf(keycode, place), virtualKey) << why;
    }
}

TEST(Keyboard, AKeyIsUpWhenTheLastThatStandsForItIs) {
    platform::Keyboard keyboard;
    keyboard.Press(225, VK_LSHIFT);
    keyboard.Press(229, VK_RSHIFT);
    keyboard.Press(229, VK_RSHIFT); // repeats
    EXPECT_TRUE(keyboard.IsDown(VK_LSHIFT) && keyboard.IsDown(VK_RSHIFT) && keyboard.IsDown(VK_SHIFT));
    EXPECT_EQ(keyboard.Release(225), VK_LSHIFT);
    EXPECT_TRUE(keyboard.IsDown(VK_SHIFT) && !keyboard.IsDown(VK_LSHIFT));
    keyboard.Release(229);
    EXPECT_FALSE(keyboard.IsDown(VK_SHIFT) || keyboard.IsDown(VK_RSHIFT));

    keyboard.Press(4, 'A');
    keyboard.ReleaseAll();
    EXPECT_EQ(keyboard.Release(4), 0) << "it was up already";
    for (const int key : {int{'A'}, -1, 256, 100'000}) EXPECT_FALSE(keyboard.IsDown(key));
}

TEST(Keyboard, AScriptKnowsBothSidesToo) {
    const Stage stage;
    for (const int key : {VK_LMENU, VK_RCONTROL, VK_SHIFT}) {
        stage->SetKey(key, true);
        EXPECT_TRUE(stage->IsKeyDown(key) && stage->IsKeyDown(platform::MessageKey(key))) << key;
        stage->SetKey(key, false);
        EXPECT_FALSE(stage->IsKeyDown(platform::MessageKey(key))) << key;
    }
}
