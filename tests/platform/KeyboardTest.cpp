#include "platform/core/screen/Keyboard.h"

#include "platform/Messages.h"
#include "platform/sdl/VirtualKey.h"
#include "tests/support/Stage.h"

#include <numeric>
#include <set>

using platform::Keyboard;
using platform::VirtualKeyOf;

namespace {
// Places on the keyboard, named for what is there on an American one.
constexpr int placeA = 4;
constexpr int placeQ = 20;
constexpr int placeX = 27;
constexpr int place1 = 30;
constexpr int place6 = 35;
constexpr int place0 = 39;
constexpr int placeMinus = 45;
constexpr int placeSemicolon = 51;
constexpr int placeSlash = 56;
constexpr int placeCapsLock = 57;
constexpr int placeLeft = 80;
constexpr int placePad4 = 92;
constexpr int placeLeftShift = 225;
constexpr int placeRightShift = 229;

/// The keycode of a key that gives no character.
constexpr int Named(int place) { return place | 1 << 30; }

/// The keys of an American keyboard from a place on, and their codes. Those without characters have names.
struct Row {
    int firstPlace;
    std::string characters;
    std::vector<int> virtualKeys;
};

std::vector<int> Range(int first, int count) {
    std::vector<int> codes(static_cast<std::size_t>(count));
    std::iota(codes.begin(), codes.end(), first);
    return codes;
}
} // namespace

TEST(Keyboard, EveryKeyHasItsCode) {
    const Row rows[] = {
        {placeA, "abcdefghijklmnopqrstuvwxyz", Range('A', 26)},
        {place1, "1234567890", {'1', '2', '3', '4', '5', '6', '7', '8', '9', '0'}},
        {40, "\r\x1B\b\t -=[]\\", {13, 27, 8, 9, 32, 189, 187, 219, 221, 220}},
        {placeSemicolon, ";'`,./", {186, 222, 192, 188, 190, 191}},
        {placeCapsLock, "", {20}},
        {58, "", Range(112, 12)},            // F1 to F12
        {70, "", {44, 145, 19, 45, 36, 33}}, // Print, Scroll Lock, Pause, Insert, Home, Page Up
        {76, "\x7F", {46}},                  // Delete
        {77, "", {35, 34, 39, 37, 40, 38}},  // End, Page Down, right, left, down, up
        {83, "", {144, 111, 106, 109, 107}}, // Num Lock and the pad's / * - +
        {89, "", {97, 98, 99, 100, 101, 102, 103, 104, 105, 96, 110}}, // the pad's 1 to 9, 0 and .
        {100, "<", {226}},                                             // beside the left Shift
        {101, "", {93}},                                               // Menu
        {104, "", Range(124, 12)},                                     // F13 to F24
        {116, "", {43, 47}},                                           // Execute, Help
        {119, "", {41}},                                               // Select
        {128, "", {175, 174}},                                         // volume up, down
        {133, "", {108}},                                              // the pad's comma
        {136, "", {21}},                                               // Kana
        {138, "", {28, 29}},                                           // Convert, Nonconvert
        {145, "", {25}},                                               // Kanji
        {155, "", {3, 12}},                                            // Cancel, Clear
        {224, "", {162, 160, 164, 91, 163, 161, 165, 92}},             // Ctrl, Shift, Alt, Windows: left, then right
        {257, "", {31, 176, 177, 178, 179, 173, 181}},                 // AltGr; next, previous, stop, play, mute, media
        {265, "", {180, 183, 182, 170, 172, 166, 167, 169, 168, 171}}, // mail, calculator, computer; the browser's
        {282, "", {95}},                                               // Sleep
    };
    std::set<int> answered;
    for (const Row& row : rows) {
        for (std::size_t index = 0; index < row.virtualKeys.size(); ++index) {
            const int place = row.firstPlace + static_cast<int>(index);
            const int keycode = row.characters.empty() ? Named(place) : row.characters.at(index);
            EXPECT_EQ(VirtualKeyOf(keycode, place), row.virtualKeys[index]) << "at place " << place;
            EXPECT_TRUE(answered.insert(row.virtualKeys[index]).second) << "twice: " << row.virtualKeys[index];
        }
    }
    EXPECT_EQ(VirtualKeyOf('\r', 88), VK_RETURN) << "the pad's";
    EXPECT_EQ(VirtualKeyOf(Named(83), 200), VK_NUMLOCK) << "a key that the player has given another meaning";
    EXPECT_EQ(VirtualKeyOf(Named(300), 300), 0);
}

TEST(Keyboard, CharactersAreWhereThePlayersLayoutHasThem) {
    struct Case {
        int keycode;
        int place;
        int virtualKey;
        const char* why;
    };
    for (const Case& row : {
             Case{'a', placeQ, 'A', "French"},
             {'q', placeX, 'Q', "a layout with the letters elsewhere"},
             {'!', placeQ, 0, "and nothing where Q used to be"},
             {0x0439, placeQ, 'Q', "Cyrillic has no Q: its place counts"},
             {'&', place1, '1', "French digits need Shift"},
             {'-', place6, '6', "also where the other character is a key elsewhere"},
             {0x00E0, place0, '0', "and where it is none"},
             {',', placeX, VK_OEM_COMMA, "punctuation among the letters"},
             {'-', placeSlash, VK_OEM_MINUS, "German"},
             {'+', placeSlash, VK_OEM_PLUS, "plus without Shift"},
             {0x00DF, placeMinus, VK_OEM_MINUS, "a character that no code is for"},
             {0x00F6, placeSemicolon, VK_OEM_1, "likewise"},
             {Named(placeLeftShift), placeCapsLock, VK_LSHIFT, "a key with another meaning"},
         }) {
        EXPECT_EQ(VirtualKeyOf(row.keycode, row.place), row.virtualKey) << row.why;
    }
}

TEST(Keyboard, TheNumberPadIsDigitsWhateverNumLockSays) {
    EXPECT_EQ(VirtualKeyOf(Named(placeLeft), placePad4), VK_NUMPAD0 + 4);
    EXPECT_EQ(VirtualKeyOf(0x7F, 99), VK_DECIMAL);
    EXPECT_EQ(VirtualKeyOf(Named(placeLeft), placeLeft), VK_LEFT);
}

TEST(Keyboard, AKeyIsUpWhenTheLastThatStandsForItIs) {
    Keyboard keyboard;
    keyboard.Press(placeLeftShift, VK_LSHIFT);
    keyboard.Press(placeRightShift, VK_RSHIFT);
    keyboard.Press(placeRightShift, VK_RSHIFT); // repeats
    EXPECT_TRUE(keyboard.IsDown(VK_LSHIFT) && keyboard.IsDown(VK_RSHIFT) && keyboard.IsDown(VK_SHIFT));
    EXPECT_EQ(keyboard.Release(placeLeftShift), VK_LSHIFT);
    EXPECT_TRUE(keyboard.IsDown(VK_SHIFT) && !keyboard.IsDown(VK_LSHIFT));
    keyboard.Release(placeRightShift);
    EXPECT_FALSE(keyboard.IsDown(VK_SHIFT) || keyboard.IsDown(VK_RSHIFT));

    keyboard.Press(placeA, 'A');
    keyboard.ReleaseAll();
    EXPECT_EQ(keyboard.Release(placeA), 0) << "it was up already";
    EXPECT_FALSE(keyboard.IsDown('A'));
    for (const int outside : {-1, 256, 100'000}) EXPECT_FALSE(keyboard.IsDown(outside));
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
