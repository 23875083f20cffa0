#include "engine/Button.h"
#include "engine/Callable.h"
#include "engine/TextBox.h"
#include "tests/support/EngineStage.h"
#include "tests/support/ImageCompare.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using platform::Picture;
using testing::ElementsAre;

constexpr int width = 320;
constexpr int height = 200;
constexpr std::uint32_t background = 0xFF204060;

class Canvas : public AbstractGame {
public:
    void GamePaint(RECT) override {
        GameEngine::GetSingleton()->FillWindowRect(0x20, 0x40, 0x60);
        paint();
    }
    void MouseButtonAction(bool, bool isDown, int, int, WPARAM) override { presses += isDown ? 1 : 0; }

    int presses = 0;
    std::function<void()> paint = [] {};
};

/// A game window whose user types, points and looks.
class ControlStage : public EngineStage, public Callable {
protected:
    ControlStage() : gamePtr(new Canvas) {
        engine.SetGame(gamePtr);
        engine.SetWidth(width);
        engine.SetHeight(height);
        engine.CreateGameWindow(1);
        engine.CreateDeviceResources();
        stage->onFrame = [this](int, const platform::FrameView& view) { shown = Copied(view); };
    }

    void CallAction(Caller* callerPtr) override {
        callers.push_back(callerPtr);
        onCall();
    }

    void RunFrame() {
        platform::Message message;
        while (stage->PeekMessage(message)) stage->DispatchMessage(message);
        engine.PaintFrame();
    }
    void Mouse(UINT message, POINT point) {
        stage->Mouse(stage->Frame(), message, point);
        RunFrame();
    }
    void Click(POINT point) {
        Mouse(WM_LBUTTONDOWN, point);
        Mouse(WM_LBUTTONUP, point);
    }
    void Drag(POINT from, POINT to) {
        Mouse(WM_LBUTTONDOWN, from);
        Mouse(WM_MOUSEMOVE, to);
        Mouse(WM_LBUTTONUP, to);
    }
    /// Presses and releases a key while the others are held down.
    void Key(int key, const std::vector<int>& held = {}) {
        const int frame = stage->Frame();
        for (const int other : held) stage->Press(frame, other);
        stage->Press(frame, key);
        if (key == VK_TAB || key == VK_RETURN || key == VK_BACK) stage->Type(frame, {static_cast<wchar_t>(key)});
        stage->Release(frame, key);
        for (const int other : held) stage->Release(frame, other);
        RunFrame();
    }
    void Type(const std::wstring& text) {
        stage->Type(stage->Frame(), text);
        RunFrame();
    }
    Picture Look() {
        RunFrame();
        return shown;
    }

    template <class Made>
    std::unique_ptr<Made> Make(const wchar_t* text, RECT bounds) {
        auto madePtr = std::make_unique<Made>(text);
        madePtr->SetBounds(bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top);
        madePtr->AddActionListener(this);
        madePtr->Show();
        return madePtr;
    }

    GameEngine& engine = *GameEngine::GetSingleton();
    Canvas* gamePtr;
    Picture shown;
    std::vector<Caller*> callers;
    std::function<void()> onCall = [] {};
};

using ButtonTest = ControlStage;

TEST_F(ButtonTest, ClicksOnlyWhenPressedAndReleasedInside) {
    const auto buttonPtr = Make<Button>(L"OK", {40, 40, 120, 80});
    const POINT inside = {41, 41};
    const POINT edge = {119, 79};
    struct {
        POINT down;
        POINT up;
        std::size_t clicks;
    } const cases[] = {{inside, edge, 1},   {inside, {120, 50}, 0},   {inside, {50, 39}, 0},
                       {{5, 5}, inside, 0}, {inside, {-300, 500}, 0}, {edge, inside, 1}};
    for (const auto& [down, up, clicks] : cases) {
        SCOPED_TRACE(std::to_string(down.x) + " to " + std::to_string(up.x));
        callers.clear();
        Drag(down, up);
        EXPECT_EQ(callers.size(), clicks);
    }
    EXPECT_EQ(gamePtr->presses, 1); // the one beside the button

    callers.clear();
    Click(inside);
    Mouse(WM_LBUTTONDBLCLK, inside);
    Mouse(WM_LBUTTONUP, inside);
    EXPECT_EQ(callers.size(), 2U);
}

TEST_F(ButtonTest, APressThatWasInterruptedIsForgotten) {
    const auto buttonPtr = Make<Button>(L"OK", {40, 40, 120, 80});
    Mouse(WM_LBUTTONDOWN, {50, 50});
    stage->PostMessage(engine.GetWindow(), WM_ACTIVATE, WA_INACTIVE, 0);
    stage->PostMessage(engine.GetWindow(), WM_ACTIVATE, WA_ACTIVE, 0);
    Drag({5, 5}, {50, 50});
    EXPECT_THAT(callers, testing::IsEmpty());

    Mouse(WM_LBUTTONDOWN, {50, 50});
    buttonPtr->SetEnabled(false);
    Mouse(WM_LBUTTONUP, {50, 50});
    Click({50, 50});
    buttonPtr->SetEnabled(true);
    Mouse(WM_LBUTTONUP, {50, 50});
    EXPECT_THAT(callers, testing::IsEmpty());
}

TEST_F(ButtonTest, AListenerMayDeleteTheButton) {
    auto buttonPtr = Make<Button>(L"Close", {40, 40, 120, 80});
    onCall = [&] { buttonPtr.reset(); };
    Click({50, 50});
    EXPECT_EQ(buttonPtr, nullptr);
    EXPECT_EQ(stage->GetFocus(), engine.GetWindow());
    EXPECT_EQ(Look().At(50, 50), background);
}

TEST_F(ControlStage, KeysWorkAsInAnyForm) {
    const auto namePtr = Make<TextBox>(L"", {10, 10, 110, 40});
    const auto agePtr = Make<TextBox>(L"", {10, 50, 110, 80});
    const auto offPtr = Make<Button>(L"Off", {10, 90, 110, 120});
    const auto okPtr = Make<Button>(L"OK", {10, 130, 110, 160});
    Button hidden(L"Hidden");
    offPtr->SetEnabled(false);
    const auto type = [this](const wchar_t* text) { Type(text); };

    Click({20, 20});
    type(L"a");
    Key(VK_TAB);
    type(L"b");
    Key(VK_TAB); // past the disabled one
    Key(VK_SPACE);
    EXPECT_THAT(callers, ElementsAre(okPtr.get()));
    Key(VK_TAB); // from the last to the first
    type(L"c");
    Key(VK_TAB, {VK_SHIFT}); // and back
    Key(VK_SPACE);
    Key(VK_TAB, {VK_SHIFT});
    type(L"d");
    Key(VK_RETURN);
    EXPECT_THAT(callers, ElementsAre(okPtr.get(), okPtr.get(), agePtr.get()));
    EXPECT_EQ(namePtr->GetText(), L"ac");
    EXPECT_EQ(agePtr->GetText(), L"bd");

    Key(VK_ESCAPE);
    EXPECT_EQ(stage->GetFocus(), engine.GetWindow());
    type(L"lost");
    Key(VK_SPACE);
    EXPECT_EQ(callers.size(), 3U);
    EXPECT_EQ(agePtr->GetText(), L"bd");
    engine.TabPrevious(engine.GetWindow());
    Key(VK_SPACE);
    EXPECT_THAT(callers.back(), okPtr.get());
}

TEST_F(ControlStage, AGameSeesItsKeysWhileAControlHasThem) {
    const auto boxPtr = Make<TextBox>(L"", {10, 10, 110, 40});
    Click({20, 20});
    stage->Press(stage->Frame(), VK_LEFT);
    RunFrame();
    EXPECT_TRUE(engine.IsKeyDown(VK_LEFT));
}

class TextBoxTest : public ControlStage {
protected:
    TextBoxTest() { engine.TabNext(engine.GetWindow()); }

    std::unique_ptr<TextBox> boxPtr = Make<TextBox>(L"", {10, 10, 130, 40});
};

TEST_F(TextBoxTest, EditsWhereTheCaretIs) {
    using Step = std::function<void()>;
    const auto key = [this](int code, std::vector<int> held = {}) -> Step { return [=, this] { Key(code, held); }; };
    const auto type = [this](const wchar_t* text) -> Step { return [=, this] { Type(text); }; };
    struct {
        const wchar_t* before;
        std::vector<Step> steps;
        const wchar_t* after;
    } const cases[] = {
        {L"world", {type(L"hello ")}, L"hello world"},
        {L"abc", {key(VK_END), key(VK_BACK), key(VK_HOME), key(VK_DELETE)}, L"b"},
        {L"", {key(VK_BACK), key(VK_DELETE), key(VK_LEFT), key(VK_RIGHT), type(L"x")}, L"x"},
        {L"abcd", {key(VK_RIGHT), key(VK_RIGHT, {VK_SHIFT}), key(VK_RIGHT, {VK_SHIFT}), type(L"X")}, L"aXd"},
        {L"abcd", {key(VK_END, {VK_SHIFT}), key(VK_LEFT), type(L"X")}, L"Xabcd"},
        {L"one two three", {key(VK_RIGHT, {VK_CONTROL}), key(VK_DELETE, {VK_CONTROL})}, L"one three"},
        {L"one two", {key(VK_END), key(VK_BACK, {VK_CONTROL}), key(VK_LEFT, {VK_CONTROL}), type(L"X")}, L"Xone "},
        {L"all", {key('A', {VK_CONTROL}), type(L"new")}, L"new"},
        // a letter with its accent, and one outside the first 65536, are one character each
        {L"e\u0301\U0001F600", {key(VK_END), key(VK_BACK), type(L"\U00020000\u65E5")}, L"e\u0301\U00020000\u65E5"},
        {L"e\u0301x", {key(VK_RIGHT), type(L"-")}, L"e\u0301-x"},
        {L"",
         {type(L"a\t\r\x1B\x7F"
               L"b")},
         L"ab"},
    };
    for (const auto& [before, steps, after] : cases) {
        boxPtr->SetText(before);
        for (const Step& step : steps) step();
        EXPECT_EQ(boxPtr->GetText(), after) << boxPtr->GetText().ToUtf8();
    }
}

TEST_F(TextBoxTest, CutsCopiesAndPastes) {
    boxPtr->SetText(L"one two");
    Key(VK_RIGHT, {VK_SHIFT, VK_CONTROL});
    Key('C', {VK_CONTROL});
    EXPECT_EQ(stage->ClipboardText(), L"one ");
    Key('X', {VK_CONTROL});
    EXPECT_EQ(boxPtr->GetText(), L"two");
    Key(VK_END);
    Key('V', {VK_CONTROL});
    Key('V', {VK_CONTROL});
    EXPECT_EQ(boxPtr->GetText(), L"twoone one ");
    Key('C', {VK_CONTROL}); // nothing is selected
    EXPECT_EQ(stage->ClipboardText(), L"one ");

    stage->SetClipboardText(L"two\r\nlines\tand a tab");
    Key('A', {VK_CONTROL});
    Key('V', {VK_CONTROL});
    EXPECT_EQ(boxPtr->GetText(), L"two lines and a tab");
}

TEST_F(TextBoxTest, SelectsWithTheMouse) {
    boxPtr->SetText(L"one two-x");
    Drag({12, 25}, {500, 300}); // off the box and the window
    Type(L"all");
    EXPECT_EQ(boxPtr->GetText(), L"all");

    boxPtr->SetText(L"first, last");
    Mouse(WM_LBUTTONDBLCLK, {24, 25});
    Mouse(WM_LBUTTONUP, {24, 25});
    Type(L"A");
    EXPECT_EQ(boxPtr->GetText(), L"A, last");

    boxPtr->SetText(L"first last");
    Mouse(WM_LBUTTONDBLCLK, {24, 25});
    Mouse(WM_MOUSEMOVE, {65, 25}); // goes on word by word
    Mouse(WM_LBUTTONUP, {65, 25});
    Mouse(WM_MOUSEMOVE, {12, 25}); // not held any more
    Type(L"B");
    EXPECT_EQ(boxPtr->GetText(), L"B");

    boxPtr->SetText(L"abc");
    Click({12, 25});
    stage->Press(stage->Frame(), VK_SHIFT);
    Click({120, 25});
    Type(L"C");
    EXPECT_EQ(boxPtr->GetText(), L"C");
}

TEST_F(TextBoxTest, ScrollsToTheCaretAndStaysInItsBounds) {
    boxPtr->SetText(L"A line of text that is longer than the box");
    Key(VK_HOME);
    const Picture atStart = shown;
    Key(VK_END);
    EXPECT_NE(shown.pixels, atStart.pixels);
    for (int y = 0; y < height; ++y) EXPECT_EQ(shown.At(134, y), background);
    Click({126, 25}); // the last character in sight is the last of the text
    Type(L"!");
    EXPECT_EQ(boxPtr->GetText().CharAt(boxPtr->GetText().GetLength() - 1), L'!');
    Key(VK_BACK);
    Key(VK_HOME);
    EXPECT_TRUE(LooksLike(shown, atStart));
}

TEST_F(TextBoxTest, TakesTextsOfAnyLength) {
    const std::wstring endless(100000, L'w');
    boxPtr->SetText(endless.c_str());
    Key(VK_END);
    EXPECT_EQ(boxPtr->GetText().GetLength(), 32767);
    Type(L"x");
    EXPECT_EQ(boxPtr->GetText().GetLength(), 32767);
    Key(VK_BACK);
    stage->SetClipboardText(endless);
    Key('V', {VK_CONTROL});
    EXPECT_EQ(boxPtr->GetText().GetLength(), 32767);
    const auto buttonPtr = Make<Button>(endless.c_str(), {10, 60, 130, 90});
    RunFrame();
    buttonPtr->SetText(L"");
    boxPtr->SetText(L"");
    RunFrame();
}

TEST_F(ControlStage, LooksAsItWasTold) {
    const auto boxPtr = Make<TextBox>(L"text", {10, 10, 130, 40});
    boxPtr->SetBackcolor(255, 300, -5);
    boxPtr->SetForecolor(0, 0, 128);
    EXPECT_EQ(boxPtr->GetBackcolor(), COLOR(255, 255, 0, 255));
    EXPECT_EQ(boxPtr->GetForecolor(), COLOR(0, 0, 128, 255));
    const Picture plain = Look();
    EXPECT_EQ(plain.At(100, 25), 0xFFFFFF00);
    EXPECT_THAT(plain.pixels, testing::Contains(0xFF000080));

    const auto isOther = [this, &plain] { return Look().pixels != plain.pixels; };
    boxPtr->SetFont(L"sans-serif", true, false, false, 0);
    EXPECT_TRUE(isOther());
    boxPtr->SetFont(L"sans-serif", false, true, false, 0);
    EXPECT_TRUE(isOther());
    boxPtr->SetFont(L"sans-serif", false, false, true, 0);
    EXPECT_TRUE(isOther());
    boxPtr->SetFont(L"sans-serif", false, false, false, 0);
    EXPECT_TRUE(LooksLike(Look(), plain));
    for (const int size : {-20, 1, 5000, INT_MIN}) {
        boxPtr->SetFont(L"There is no font with a name like that", false, false, false, size);
        RunFrame();
    }
    boxPtr->SetFont(L"", false, false, false, 0);
    EXPECT_TRUE(LooksLike(Look(), plain));
    boxPtr->SetEnabled(false);
    EXPECT_TRUE(isOther());
}

TEST_F(ControlStage, MayLieAnywhere) {
    const auto buttonPtr = Make<Button>(L"OK", {10, 10, 60, 40});
    const Picture empty(width, height, background);
    const RECT client = buttonPtr->GetClientRect();
    EXPECT_EQ(client, (RECT{0, 0, 50, 30}));
    struct {
        int x, y, width, height;
    } const places[] = {{400, 10, 50, 30},
                        {-200, -200, 50, 30},
                        {10, 10, 0, 0},
                        {10, 10, -5, 30},
                        {INT_MAX, INT_MAX, INT_MAX, INT_MAX},
                        {INT_MIN, 0, 100, 100}};
    for (const auto& place : places) {
        buttonPtr->SetBounds(place.x, place.y, place.width, place.height);
        EXPECT_TRUE(LooksLike(Look(), empty)) << place.x;
        Click({11, 11});
    }
    EXPECT_THAT(callers, testing::IsEmpty());
    buttonPtr->SetBounds(-20, -10, 50, 30); // partly
    Click({5, 5});
    EXPECT_EQ(callers.size(), 1U);
    buttonPtr->SetBounds(-5, -5, INT_MAX, INT_MAX);
    Click({width - 1, height - 1});
    EXPECT_EQ(callers.size(), 2U);
}

TEST_F(ControlStage, ControlsLeaveTheGamesDrawingAsItIs) {
    gamePtr->paint = [this] {
        engine.SetColor({255, 255, 255, 255});
        engine.FillEllipse(200, 100, 30, 20);
    };
    const Picture without = Look();
    const auto buttonPtr = Make<Button>(L"OK", {400, 10, 500, 40});
    RunFrame();
    EXPECT_TRUE(LooksLike(Look(), without));
}

TEST_F(ControlStage, ControlsMayOutliveTheWindowAndGoWithTheFocus) {
    auto boxPtr = Make<TextBox>(L"text", {10, 10, 130, 40});
    const auto buttonPtr = Make<Button>(L"OK", {10, 50, 130, 80});
    Mouse(WM_LBUTTONDOWN, {20, 20});
    boxPtr.reset();
    EXPECT_EQ(stage->GetFocus(), engine.GetWindow());
    EXPECT_EQ(stage->GetCapture(), nullptr);
    Click({20, 60});
    stage->PostMessage(engine.GetWindow(), WM_CLOSE, 0, 0);
    RunFrame();
    EXPECT_EQ(stage->MainWindow(), nullptr);
    buttonPtr->SetText(L"late");
    buttonPtr->SetBounds(1, 2, 3, 4);
    buttonPtr->SetFont(L"sans-serif", true, true, true, 12);
    buttonPtr->SetEnabled(false);
    buttonPtr->Show();
    EXPECT_EQ(buttonPtr->GetText(), L"");
    EXPECT_EQ(buttonPtr->GetClientRect(), RECT{});
}

} // namespace
