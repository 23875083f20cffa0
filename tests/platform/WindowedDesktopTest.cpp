#include "platform/WindowedDesktop.h"

#include "platform/Desktop.h"
#include "platform/Picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <string>
#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace platform;
using namespace std::chrono_literals;

using testing::ElementsAre;

namespace {
namespace fs = std::filesystem;

bool IsInstalled(const char* program) {
    return std::system(("command -v " + std::string(program) + " > /dev/null 2>&1").c_str()) == 0;
}

/// An X server of our own without window manager, whose screen is a file that we can look into.
class VirtualScreen {
public:
    VirtualScreen(int width, int height) {
        char pattern[] = "/tmp/windowed-desktop-XXXXXX";
        folder = mkdtemp(pattern);
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) return;
        process = fork();
        if (process == 0) {
            dup2(ends[1], 3); // where it reports the display number that it has chosen
            fcntl(3, F_SETFD, 0);
            dup2(open("/dev/null", O_WRONLY), 2);
            const std::string size = std::to_string(width) + "x" + std::to_string(height) + "x24";
            execlp("Xvfb", "Xvfb", "-displayfd", "3", "-noreset", "-nolisten", "tcp", "-screen", "0", size.c_str(),
                   "-fbdir", folder.c_str(), nullptr);
            _exit(127);
        }
        close(ends[1]);
        char letter = 0;
        std::string number;
        while (read(ends[0], &letter, 1) == 1 && letter != '\n') number += letter;
        close(ends[0]);
        setenv("DISPLAY", (":" + number).c_str(), 1);
        unsetenv("WAYLAND_DISPLAY");
        setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1); // nobody needs one here, so none should be started
    }
    ~VirtualScreen() {
        kill(process, SIGTERM);
        waitpid(process, nullptr, 0);
        fs::remove_all(folder);
    }

    /// What the screen shows.
    Picture Look() const {
        std::ifstream file(folder + "/Xvfb_screen0", std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(file)), {});
        const auto field = [&bytes](std::size_t index) { // the header is of big-endian numbers
            std::uint32_t value = 0;
            for (std::size_t i = 0; i < 4; ++i)
                value = value << 8 | static_cast<unsigned char>(bytes.at(index * 4 + i));
            return value;
        };
        Picture picture(static_cast<int>(field(4)), static_cast<int>(field(5)));
        const std::size_t stride = field(12);
        const char* const pixels = bytes.data() + field(0) + field(19) * 12;
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x) {
                std::uint32_t pixel = 0;
                std::memcpy(&pixel, pixels + static_cast<std::size_t>(y) * stride + static_cast<std::size_t>(x) * 4, 4);
                picture.At(x, y) = 0xFF000000 | pixel;
            }
        }
        return picture;
    }

private:
    pid_t process = -1;
    std::string folder;
};

constexpr int width = 1024;
constexpr int height = 896;
constexpr std::uint32_t middle = 0xFF3366CC;
constexpr std::uint32_t corner = 0xFFFFCC00;

std::vector<Message> received;

LRESULT Record(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Desktop& desktop = Desktop::Current();
    if (message != WM_PAINT) received.push_back({window, message, wParam, lParam});
    if (message == WM_DESTROY) desktop.PostQuitMessage(0);
    return desktop.DefaultWindowProcedure(window, message, wParam, lParam);
}

class WindowedDesktopTest : public testing::Test {
protected:
    void TearDown() override {
        Desktop::Use(nullptr);
        screenPtr.reset();
    }

    bool Open(int screenWidth, int screenHeight) {
        if (!IsInstalled("Xvfb") || !IsInstalled("xdotool")) return false;
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
        if (window == nullptr) return false;
        Desktop::Current().ShowWindow(window, true);
        frame = Picture(width, height, middle);
        frame.At(0, 0) = frame.At(width - 1, 0) = frame.At(0, height - 1) = frame.At(width - 1, height - 1) = corner;
        return RunUntil([] { return Got(WM_ACTIVATE); });
    }

    /// Runs the program's loop until `isDone`; false if that takes seconds.
    bool RunUntil(const std::function<bool()>& isDone) {
        const auto giveUp = std::chrono::steady_clock::now() + 10s;
        while (!isDone()) {
            if (std::chrono::steady_clock::now() > giveUp) return false;
            Message message;
            if (Desktop::Current().PeekMessage(message)) {
                if (message.message == WM_QUIT) received.push_back(message);
                Desktop::Current().DispatchMessage(message);
            } else if (Desktop::Current().MainWindow() != nullptr) {
                if (!Desktop::Current().Present(window, {frame.pixels.data(), width, height, width}, true))
                    return false;
            }
        }
        return true;
    }

    /// Lets the user of the window do something.
    static void User(const std::string& action) { ASSERT_EQ(std::system(("xdotool " + action).c_str()), 0) << action; }

    static bool Got(UINT message, WPARAM wParam) {
        return std::any_of(received.begin(), received.end(), [&](const Message& candidate) {
            return candidate.message == message && candidate.wParam == wParam;
        });
    }
    static bool Got(UINT message) {
        return std::any_of(received.begin(), received.end(),
                           [&](const Message& candidate) { return candidate.message == message; });
    }
    static std::set<UINT> Kinds() {
        std::set<UINT> kinds;
        for (const Message& message : received) kinds.insert(message.message);
        return kinds;
    }

    /// Runs until the screen shows the frame at `place`, corners included.
    bool ShowsFrameAt(RECT place, std::uint32_t expectedCorner = corner) {
        return RunUntil([&] {
            const Picture seen = screenPtr->Look();
            return seen.At(place.left, place.top) == expectedCorner &&
                   seen.At(place.right - 1, place.bottom - 1) == expectedCorner &&
                   seen.At((place.left + place.right) / 2, (place.top + place.bottom) / 2) == middle &&
                   (place.left == 0 || seen.At(place.left - 1, place.top) == 0xFF000000);
        });
    }

    std::unique_ptr<VirtualScreen> screenPtr;
    HWND window = nullptr;
    Picture frame;
};
} // namespace

TEST_F(WindowedDesktopTest, IsActiveAtOnceAndShowsFramesPixelForPixel) {
    if (!Open(1280, 1024)) GTEST_SKIP() << "no virtual screen";
    EXPECT_EQ(received.front().message, WM_CREATE);
    EXPECT_TRUE(Got(WM_ACTIVATE, WA_ACTIVE));
    EXPECT_TRUE(Got(WM_SIZE, SIZE_RESTORED));
    EXPECT_TRUE(ShowsFrameAt({128, 64, 128 + width, 64 + height}));

    const auto start = std::chrono::steady_clock::now();
    for (int count = 0; count < 30; ++count) {
        ASSERT_TRUE(Desktop::Current().Present(window, {frame.pixels.data(), width, height, width}, true));
    }
    EXPECT_GT(std::chrono::steady_clock::now() - start, 28s / 60.0) << "no more than 60 frames per second";
}

TEST_F(WindowedDesktopTest, KeysAreHeldTypedAndReleased) {
    if (!Open(1280, 1024)) GTEST_SKIP() << "no virtual screen";
    const Desktop& desktop = Desktop::Current();
    User("keydown Right keydown w keydown KP_4 keydown Shift_R keydown F5 keydown comma");
    EXPECT_TRUE(RunUntil([&] {
        return desktop.IsKeyDown(VK_RIGHT) && desktop.IsKeyDown('W') && desktop.IsKeyDown(VK_NUMPAD0 + 4) &&
               desktop.IsKeyDown(VK_SHIFT) && desktop.IsKeyDown(VK_RSHIFT) && desktop.IsKeyDown(VK_F1 + 4) &&
               desktop.IsKeyDown(VK_OEM_COMMA);
    }));
    EXPECT_FALSE(desktop.IsKeyDown(VK_LEFT)) << "the pad's arrows are digits";
    User("keyup Shift_R keyup w keyup F5 keyup comma");
    EXPECT_TRUE(RunUntil([&] { return !desktop.IsKeyDown('W') && Got(WM_KEYUP, VK_SHIFT); }));
    EXPECT_TRUE(Got(WM_KEYDOWN, VK_RIGHT));
    EXPECT_TRUE(Got(WM_KEYUP, VK_SHIFT) && !Got(WM_KEYUP, VK_RSHIFT)) << "messages know no sides";
    EXPECT_TRUE(Got(WM_CHAR, 'w'));

    // The window goes away with keys held.
    User("search --name Test windowunmap");
    EXPECT_TRUE(RunUntil([] { return Got(WM_ACTIVATE, WA_INACTIVE); }));
    for (int key = 0; key < 256; ++key) EXPECT_FALSE(desktop.IsKeyDown(key)) << key;
    User("keyup Right keyup KP_4");
}

TEST_F(WindowedDesktopTest, AltAloneIsAMenuKeyAndAltEnterFillsTheScreenUnnoticed) {
    if (!Open(1280, 1024)) GTEST_SKIP() << "no virtual screen";
    User("key Alt_L");
    EXPECT_TRUE(RunUntil([] { return Got(WM_SYSCOMMAND, SC_KEYMENU); }));
    EXPECT_TRUE(ShowsFrameAt({128, 64, 128 + width, 64 + height}));
    received.clear();

    frame = Picture(width, height, middle);
    const RECT before = window->bounds;
    User("key alt+Return mousemove 0 0");
    EXPECT_TRUE(RunUntil([&] { return Got(WM_MOUSEMOVE) && screenPtr->Look().At(0, 0) == 0xFF000000; }));
    EXPECT_TRUE(ShowsFrameAt({128, 64, 128 + width, 64 + height}, middle));
    User("key alt+Return mousemove 128 64");
    received.clear();
    EXPECT_TRUE(RunUntil([&] { return Got(WM_MOUSEMOVE); }));
    for (const UINT kind : Kinds()) EXPECT_THAT(kind, testing::AnyOf(WM_MOUSEMOVE, WM_KEYDOWN, WM_KEYUP));
    EXPECT_FALSE(Got(WM_KEYDOWN, VK_RETURN));
    EXPECT_EQ(window->bounds, before);
}

TEST_F(WindowedDesktopTest, ASmallScreenShowsTheWholePictureAndTheMouseKeepsItsPixels) {
    if (!Open(1024, 768)) GTEST_SKIP() << "no virtual screen";
    frame = Picture(width, height, middle);
    ASSERT_TRUE(ShowsFrameAt({73, 0, 73 + 878, 768}, middle));
    received.clear();
    User("mousemove 73 0 click 1");
    User("mousemove 950 767 click 3");
    ASSERT_TRUE(RunUntil([] { return Got(WM_RBUTTONUP); }));
    for (const Message& message : received) {
        if (message.message == WM_LBUTTONDOWN) {
            EXPECT_EQ(message.lParam, 0);
        } else if (message.message == WM_RBUTTONDOWN) {
            EXPECT_EQ(message.lParam, 895 << 16 | 1023);
        }
    }
    EXPECT_TRUE(Got(WM_LBUTTONDOWN) && Got(WM_RBUTTONDOWN));
}

TEST_F(WindowedDesktopTest, AChildControlGetsItsOwnMouse) {
    if (!Open(1280, 1024)) GTEST_SKIP() << "no virtual screen";
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
        EXPECT_EQ(message.lParam, 10 << 16 | 10);
    }
    EXPECT_THAT(presses, ElementsAre(WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP));
}

TEST_F(WindowedDesktopTest, ASignalEndsTheProgramTheOrderlyWay) {
    if (!Open(1280, 1024)) GTEST_SKIP() << "no virtual screen";
    std::raise(SIGTERM);
    EXPECT_TRUE(RunUntil([] { return Got(WM_QUIT); }));
    EXPECT_TRUE(Got(WM_CLOSE) && Got(WM_DESTROY));
    EXPECT_FALSE(Desktop::Current().Present(window, {frame.pixels.data(), width, height, width}, true));
}

TEST_F(WindowedDesktopTest, AnyThreadWakesTheLoopWithAndWithoutADisplay) {
    for (const bool hasDisplay : {true, false}) {
        if (hasDisplay && !Open(1280, 1024)) continue;
        if (!hasDisplay) {
            unsetenv("DISPLAY");
            unsetenv("WAYLAND_DISPLAY");
            Desktop::Use(MakeWindowedDesktop());
        }
        Desktop& desktop = Desktop::Current();
        constexpr UINT fromThread = 0x8000;
        constexpr WPARAM count = 2000;
        const auto sleeperPtr = desktop.MakeSleeper();
        std::thread sender([&] {
            for (WPARAM number = 0; number < count; ++number) {
                desktop.IsKeyDown(VK_RIGHT);
                desktop.PostMessage(nullptr, fromThread, number, 0);
            }
            EXPECT_FALSE(sleeperPtr->Sleep(100'000));
        });
        WPARAM next = 0;
        while (next < count) {
            Message message;
            if (!desktop.PeekMessage(message)) {
                desktop.WaitMessage();
            } else if (message.message == fromThread) {
                EXPECT_EQ(message.wParam, next++);
            } else {
                desktop.DispatchMessage(message);
            }
        }
        sleeperPtr->Wake();
        sender.join();
        Desktop::Use(nullptr);
    }
}

TEST_F(WindowedDesktopTest, WithoutADisplayItSaysSoInOneLine) {
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    Desktop::Use(MakeWindowedDesktop());
    Window description;
    description.text = L"Test";
    testing::internal::CaptureStderr();
    EXPECT_EQ(Desktop::Current().CreateWindow(description), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Test: cannot open a window: there is no display\n");

    testing::internal::CaptureStderr();
    Desktop::Current().MessageBox(L"Something is missing", L"Test");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Test: Something is missing\n");
}
