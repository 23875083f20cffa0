#include "platform/WindowedDesktop.h"

#include "platform/Desktop.h"
#include "platform/Picture.h"
#include "tests/support/TestFolder.h"

#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <optional>

using namespace platform;
using namespace std::chrono_literals;
using testing::AnyOf;
using testing::ElementsAre;

namespace {

/// An X server of our own without window manager, whose screen is a file that we can look into.
class VirtualScreen {
public:
    VirtualScreen(int width, int height) {
        const std::string size = std::to_string(width) + "x" + std::to_string(height) + "x24";
        const std::string command = "echo $$; exec Xvfb -displayfd 1 -noreset -nolisten tcp -screen 0 " + size +
                                    " -fbdir " + folder.Root().string() + " 2> /dev/null";
        pipePtr = popen(command.c_str(), "r");
        int display = -1; // it chooses one that is free
        EXPECT_EQ(std::fscanf(pipePtr, "%d %d", &process, &display), 2) << "Xvfb does not start";
        setenv("DISPLAY", (":" + std::to_string(display)).c_str(), 1);
        unsetenv("WAYLAND_DISPLAY");
        setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1); // nobody needs one here, so none should be started
    }
    ~VirtualScreen() {
        if (process > 0) kill(process, SIGTERM); // 0 would be everybody around
        pclose(pipePtr);
    }

    /// What the screen shows.
    Picture Look() const {
        const std::string bytes = folder.Read("Xvfb_screen0");
        const auto field = [&bytes](std::size_t index) { // the header is of big-endian numbers
            std::uint32_t value = 0;
            for (std::size_t i = 0; i < 4; ++i) value = value << 8 | static_cast<std::uint8_t>(bytes.at(index * 4 + i));
            return value;
        };
        Picture picture(static_cast<int>(field(4)), static_cast<int>(field(5)));
        const char* rowPtr = bytes.data() + field(0) + field(19) * 12;
        for (int y = 0; y < picture.height; ++y, rowPtr += field(12)) {
            std::memcpy(&picture.At(0, y), rowPtr, static_cast<std::size_t>(picture.width) * 4);
        }
        for (std::uint32_t& pixel : picture.pixels) pixel |= 0xFF000000;
        return picture;
    }

private:
    TestFolder folder;
    FILE* pipePtr = nullptr;
    int process = 0;
};

constexpr int width = 1024;
constexpr int height = 896;
constexpr RECT centred = {128, 64, 128 + width, 64 + height}; // on the usual screen
constexpr std::uint32_t middle = 0xFF3366CC;
constexpr std::uint32_t corner = 0xFFFFCC00;

std::vector<Message> received;

LRESULT Record(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Desktop& desktop = Desktop::Current();
    if (message != WM_PAINT) received.push_back({window, message, wParam, lParam});
    if (message == WM_DESTROY) desktop.PostQuitMessage(0);
    return desktop.DefaultWindowProcedure(window, message, wParam, lParam);
}

bool Got(UINT message, std::optional<WPARAM> wParam = {}) {
    return std::any_of(received.begin(), received.end(), [&](const Message& candidate) {
        return candidate.message == message && candidate.wParam == wParam.value_or(candidate.wParam);
    });
}

class WindowedDesktopTest : public testing::Test {
protected:
    void SetUp() override {
        if (std::system("{ command -v Xvfb && command -v xdotool; } > /dev/null 2>&1") == 0) return;
        const char* const ci = std::getenv("CI");
        ASSERT_STRNE(ci != nullptr ? ci : "", "true") << "Xvfb and xdotool are missing, and CI must run these tests";
        GTEST_SKIP() << "Xvfb and xdotool are not installed";
    }
    void TearDown() override { Desktop::Use(nullptr); }

    void Open(int screenWidth = 1280, int screenHeight = 1024) {
        received.clear();
        screenPtr = std::make_unique<VirtualScreen>(screenWidth, screenHeight);
        Desktop::Use(MakeWindowedDesktop());
        Window description;
        description.procedure = Record;
        description.className = description.text = L"Test \u00e9";
        const int left = (screenWidth - width) / 2;
        const int top = (screenHeight - height) / 2;
        description.bounds = {left, top, left + width, top + height};
        window = Desktop::Current().CreateWindow(description);
        ASSERT_NE(window, nullptr);
        Desktop::Current().ShowWindow(window, true);
        ASSERT_TRUE(RunUntil([] { return Got(WM_ACTIVATE); }));
    }

    bool Present() { return Desktop::Current().Present(window, {frame.pixels.data(), width, height, width}, true); }

    /// Runs the program's loop until `isDone`; false if that takes very long.
    bool RunUntil(const std::function<bool()>& isDone) {
        const auto giveUp = std::chrono::steady_clock::now() + 60s;
        while (!isDone()) {
            if (std::chrono::steady_clock::now() > giveUp) return false;
            Message message;
            if (Desktop::Current().PeekMessage(message)) {
                if (message.message == WM_QUIT) received.push_back(message);
                Desktop::Current().DispatchMessage(message);
            } else if (Desktop::Current().MainWindow() != nullptr && !Present()) {
                return false;
            }
        }
        return true;
    }

    /// Runs until the screen shows the frame at `place`, with these corners.
    bool ShowsFrameAt(RECT place, std::uint32_t corners) {
        return RunUntil([&] {
            const Picture seen = screenPtr->Look();
            return seen.At(place.left, place.top) == corners && seen.At(place.right - 1, place.bottom - 1) == corners &&
                   seen.At((place.left + place.right) / 2, (place.top + place.bottom) / 2) == middle &&
                   (place.left == 0 || seen.At(place.left - 1, place.top) == 0xFF000000);
        });
    }

    /// Lets the user of the window do something.
    static void User(const std::string& action) { ASSERT_EQ(std::system(("xdotool " + action).c_str()), 0) << action; }

    std::unique_ptr<VirtualScreen> screenPtr;
    HWND window = nullptr;
    Picture frame = Picture(width, height, middle);
};

/// A worker posts messages and asks for keys while the loop waits for it, and then rests until it is ended.
void ExpectThatAnyThreadWakesTheLoop() {
    Desktop& desktop = Desktop::Current();
    constexpr UINT fromThread = 0x8000;
    constexpr WPARAM count = 2000;
    auto workerPtr = desktop.StartWorker([&desktop](platform::Worker& worker) {
        for (WPARAM number = 0; number < count; ++number) {
            desktop.IsKeyDown(VK_RIGHT);
            desktop.PostMessage(nullptr, fromThread, number, 0);
        }
        EXPECT_FALSE(worker.Rest(100s));
        EXPECT_FALSE(worker.Rest(std::nullopt)) << "once ended, for ever ended";
    });
    for (WPARAM next = 0; next < count;) {
        Message message;
        if (!desktop.PeekMessage(message)) {
            desktop.WaitMessage();
        } else if (message.message == fromThread) {
            EXPECT_EQ(message.wParam, next++);
        } else {
            desktop.DispatchMessage(message);
        }
    }
    workerPtr.reset();
}

} // namespace

TEST_F(WindowedDesktopTest, IsActiveAtOnceAndShowsFramesPixelForPixel) {
    ASSERT_NO_FATAL_FAILURE(Open());
    EXPECT_EQ(received.front().message, WM_CREATE);
    EXPECT_TRUE(Got(WM_ACTIVATE, WA_ACTIVE));
    EXPECT_TRUE(Got(WM_SIZE, SIZE_RESTORED));
    frame.At(0, 0) = frame.At(width - 1, height - 1) = corner;
    EXPECT_TRUE(ShowsFrameAt(centred, corner));

    const auto start = std::chrono::steady_clock::now();
    for (int count = 0; count < 6; ++count) EXPECT_TRUE(Present());
    EXPECT_GT(std::chrono::steady_clock::now() - start, 4s / 60.0) << "no more than 60 frames per second";
    ExpectThatAnyThreadWakesTheLoop();
}

TEST_F(WindowedDesktopTest, KeysAreHeldTypedAndReleased) {
    ASSERT_NO_FATAL_FAILURE(Open());
    const Desktop& desktop = Desktop::Current();
    User("keydown Right keydown w keydown KP_4 keydown Shift_R keydown F5 keydown comma");
    for (const int key :
         {int{VK_RIGHT}, int{'W'}, VK_NUMPAD0 + 4, int{VK_SHIFT}, int{VK_RSHIFT}, VK_F1 + 4, int{VK_OEM_COMMA}}) {
        EXPECT_TRUE(RunUntil([&] { return desktop.IsKeyDown(key); })) << key;
    }
    EXPECT_FALSE(desktop.IsKeyDown(VK_LEFT)) << "the pad's arrows are digits";
    User("keyup Shift_R keyup w keyup F5 keyup comma");
    EXPECT_TRUE(RunUntil([&] { return !desktop.IsKeyDown('W') && Got(WM_KEYUP, VK_OEM_COMMA); }));
    EXPECT_TRUE(Got(WM_KEYDOWN, VK_RIGHT) && Got(WM_CHAR, 'w'));
    EXPECT_TRUE(Got(WM_KEYUP, VK_SHIFT) && !Got(WM_KEYUP, VK_RSHIFT)) << "messages know no sides";

    // The window goes away with keys held.
    User("search --name Test windowunmap");
    EXPECT_TRUE(RunUntil([] { return Got(WM_ACTIVATE, WA_INACTIVE); }));
    for (int key = 0; key < 256; ++key) EXPECT_FALSE(desktop.IsKeyDown(key)) << key;
    User("keyup Right keyup KP_4");
}

TEST_F(WindowedDesktopTest, AltAloneIsAMenuKeyAndAltEnterFillsTheScreenUnnoticed) {
    ASSERT_NO_FATAL_FAILURE(Open());
    User("key Alt_L");
    EXPECT_TRUE(RunUntil([] { return Got(WM_SYSCOMMAND, SC_KEYMENU); }));
    EXPECT_TRUE(ShowsFrameAt(centred, middle));
    received.clear();

    const RECT before = window->bounds;
    User("key alt+Return mousemove 0 0");
    EXPECT_TRUE(RunUntil([&] { return Got(WM_MOUSEMOVE) && screenPtr->Look().At(0, 0) == 0xFF000000; }));
    EXPECT_TRUE(ShowsFrameAt(centred, middle));
    User("key alt+Return mousemove 128 64");
    received.clear();
    EXPECT_TRUE(RunUntil([] { return Got(WM_MOUSEMOVE); }));
    for (const Message& message : received) EXPECT_THAT(message.message, AnyOf(WM_MOUSEMOVE, WM_KEYDOWN, WM_KEYUP));
    EXPECT_FALSE(Got(WM_KEYDOWN, VK_RETURN));
    EXPECT_EQ(window->bounds, before);
}

TEST_F(WindowedDesktopTest, ASmallScreenShowsTheWholePictureAndTheMouseKeepsItsPixels) {
    ASSERT_NO_FATAL_FAILURE(Open(1024, 768));
    ASSERT_TRUE(ShowsFrameAt({73, 0, 73 + 878, 768}, middle));
    received.clear();
    User("mousemove 73 0 click 1");
    User("mousemove 950 767 click 3");
    ASSERT_TRUE(RunUntil([] { return Got(WM_RBUTTONUP); }));
    std::vector<POINT> presses;
    for (const Message& message : received) {
        const bool isPress = message.message == WM_LBUTTONDOWN || message.message == WM_RBUTTONDOWN;
        if (isPress) presses.push_back(UnpackPoint(message.lParam));
    }
    EXPECT_THAT(presses, ElementsAre(POINT{0, 0}, POINT{1023, 895}));
}

TEST_F(WindowedDesktopTest, AChildControlGetsItsOwnMouse) {
    ASSERT_NO_FATAL_FAILURE(Open());
    Window description;
    description.procedure = Record;
    description.className = L"BUTTON";
    description.parentPtr = window;
    description.bounds = {100, 100, 200, 150};
    description.visible = true;
    const HWND control = Desktop::Current().CreateWindow(description);
    received.clear();
    User("mousemove 238 174 click --repeat 2 --delay 20 1 mousemove 400 400 click 1");
    ASSERT_TRUE(RunUntil([&] { return Got(WM_LBUTTONUP) && received.back().window == window && Got(WM_LBUTTONDOWN); }));
    std::vector<UINT> presses;
    for (const Message& message : received) {
        if (message.window != control || message.message == WM_MOUSEMOVE) continue;
        presses.push_back(message.message);
        EXPECT_EQ(UnpackPoint(message.lParam), (POINT{10, 10}));
    }
    EXPECT_THAT(presses, ElementsAre(WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP));
}

TEST_F(WindowedDesktopTest, ASignalEndsTheProgramTheOrderlyWay) {
    ASSERT_NO_FATAL_FAILURE(Open());
    std::raise(SIGTERM);
    EXPECT_TRUE(RunUntil([] { return Got(WM_QUIT); }));
    EXPECT_TRUE(Got(WM_CLOSE) && Got(WM_DESTROY));
    EXPECT_FALSE(Present());
}

TEST(WindowedDesktopWithoutADisplay, SaysSoInOneLineAndRunsItsLoop) {
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    Desktop::Use(MakeWindowedDesktop());
    Window description;
    description.text = L"Test";
    testing::internal::CaptureStderr();
    EXPECT_EQ(Desktop::Current().CreateWindow(description), nullptr);
    Desktop::Current().MessageBox(L"Something is missing", L"Test");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Test: cannot open a window: there is no display\n"
                                                      "Test: Something is missing\n");
    ExpectThatAnyThreadWakesTheLoop();
    Desktop::Use(nullptr);
}
