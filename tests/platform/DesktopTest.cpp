#include "tests/support/Stage.h"

#include <gmock/gmock.h>

using platform::Message;
using testing::ElementsAre;

namespace {
/// A main window with a button at (10, 10) to (50, 30).
class DesktopTest : public testing::Test {
protected:
    DesktopTest() {
        platform::Window description;
        description.className = L"Test";
        description.bounds = {0, 0, 100, 100};
        window = stage->CreateWindow(description);
        stage->ShowWindow(window, true);
        description.className = L"BUTTON";
        description.parentPtr = window;
        description.bounds = {10, 10, 50, 30};
        description.visible = true;
        button = stage->CreateWindow(description);
        TakeMessages();
    }

    /// What the program is told next, each window painted when it asks; the button's messages are negative.
    std::vector<int> TakeMessages() {
        std::vector<int> messages;
        for (Message message; stage->PeekMessage(message); stage->DispatchMessage(message)) {
            messages.push_back(message.window == button ? -static_cast<int>(message.message)
                                                        : static_cast<int>(message.message));
        }
        return messages;
    }
    std::vector<int> Mouse(UINT message, POINT point) {
        stage->PostMessage(window, message, 0, platform::PackPoint(point));
        return TakeMessages();
    }

    Stage stage;
    HWND window = nullptr;
    HWND button = nullptr;
};
} // namespace

TEST_F(DesktopTest, IsPaintedWhenTheMouseEntersOrLeavesAControl) {
    EXPECT_THAT(Mouse(WM_MOUSEMOVE, {10, 29}), ElementsAre(-WM_MOUSEMOVE, WM_PAINT));
    EXPECT_THAT(Mouse(WM_MOUSEMOVE, {49, 10}), ElementsAre(-WM_MOUSEMOVE));
    EXPECT_THAT(Mouse(WM_MOUSEMOVE, {50, 10}), ElementsAre(WM_MOUSEMOVE, WM_PAINT));
    EXPECT_THAT(Mouse(WM_MOUSEMOVE, {10, 30}), ElementsAre(WM_MOUSEMOVE));
}

TEST_F(DesktopTest, ADoubleClickIsOneOfControlsOnly) {
    EXPECT_THAT(Mouse(WM_LBUTTONDBLCLK, {90, 90}), ElementsAre(WM_LBUTTONDOWN));
    EXPECT_THAT(Mouse(WM_LBUTTONDBLCLK, {20, 20}), ElementsAre(-WM_LBUTTONDBLCLK, WM_PAINT));
}

TEST_F(DesktopTest, QuitsWhenTheQueueIsEmptyAndBeforeItPaints) {
    stage->InvalidateWindow(window);
    stage->PostQuitMessage(7);
    stage->PostMessage(window, WM_KEYUP, 'A', 0);
    EXPECT_THAT(TakeMessages(), ElementsAre(WM_KEYUP, WM_QUIT, WM_PAINT));
    stage->PostMessage(button, WM_KEYUP, 'A', 0);
    stage->DestroyWindow(button);
    EXPECT_THAT(TakeMessages(), ElementsAre(WM_PAINT)) << "nothing for a window that has gone";
}
