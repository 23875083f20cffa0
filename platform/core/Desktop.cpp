#include "platform/Desktop.h"

#include "platform/Canvas.h"
#include "platform/Media.h"
#include "platform/core/TimerQueue.h"
#include "platform/core/controls/Control.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace platform {

namespace {
std::unique_ptr<Desktop>& CurrentSlot() {
    static std::unique_ptr<Desktop> currentPtr;
    return currentPtr;
}

bool Contains(RECT rect, POINT point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}
} // namespace

Desktop::Desktop(const Backend& chosenBackend) : backend(chosenBackend) { queue.reserve(256); }
Desktop::~Desktop() = default;

Desktop& Desktop::Current() { return *CurrentSlot(); }

void Desktop::Use(std::unique_ptr<Desktop> desktopPtr) { CurrentSlot() = std::move(desktopPtr); }

HWND Desktop::CreateWindow(const Window& description) {
    std::unique_ptr<Control> controlPtr = MakeControl(description);
    if (controlPtr) controls.push_back(controlPtr.get());
    const bool isMain = mainWindowPtr == nullptr && description.parentPtr == nullptr && !controlPtr &&
                        description.className != L"STATIC";
    windows.push_back(controlPtr ? std::move(controlPtr) : std::make_unique<Window>(description));
    Window* const windowPtr = windows.back().get();
    if (isMain) {
        if (!OpenMainWindow(*windowPtr)) {
            windows.pop_back();
            return nullptr;
        }
        mainWindowPtr = windowPtr;
    }
    SendMessage(windowPtr, WM_CREATE, 0, 0);
    return windowPtr;
}

void Desktop::DestroyWindow(HWND window) {
    if (!IsWindow(window)) return;
    for (HWND childPtr : ChildWindows(window)) DestroyWindow(childPtr);
    if (window == mainWindowPtr) {
        CloseMainWindow(*window);
        mainWindowPtr = nullptr;
    }
    DropInput(window);
    if (Control* const controlPtr = FindControl(window); controlPtr != nullptr) {
        SendMessage(window, WM_DESTROY, 0, 0);
        InvalidateWindow(window->parentPtr);
        std::erase(controls, controlPtr);
    }
    {
        const std::lock_guard lock(queueMutex);
        std::erase_if(queue, [window](const Message& message) { return message.window == window; });
    }
    std::erase_if(windows, [window](const auto& windowPtr) { return windowPtr.get() == window; });
}

void Desktop::ShowWindow(HWND window, bool show) {
    if (!IsWindow(window) || window->visible == show) return;
    window->visible = show;
    window->needsPaint = show;
    if (window == mainWindowPtr) ShowMainWindow(*window);
    if (!show) DropInput(window);
    if (window->parentPtr != nullptr) InvalidateWindow(window->parentPtr);
}

void Desktop::MoveWindow(HWND window, int left, int top) {
    if (!IsWindow(window)) return;
    RECT& bounds = window->bounds;
    bounds = {left, top, left + bounds.right - bounds.left, top + bounds.bottom - bounds.top};
    if (window == mainWindowPtr) MoveMainWindow(*window);
}

void Desktop::SetControlBounds(HWND control, RECT bounds) {
    if (FindControl(control) == nullptr) return;
    control->bounds = bounds;
    InvalidateWindow(control);
}

void Desktop::SetControlText(HWND control, std::wstring_view text) {
    if (FindControl(control) == nullptr) return;
    control->text = text;
    SendMessage(control, WM_SETTEXT, 0, 0);
    InvalidateWindow(control);
}

void Desktop::EnableControl(HWND control, bool enable) {
    if (FindControl(control) == nullptr || control->enabled == enable) return;
    control->enabled = enable;
    if (!enable) DropInput(control);
    InvalidateWindow(control);
}

void Desktop::InvalidateWindow(HWND window) {
    if (!IsWindow(window)) return;
    Window& painted = FindControl(window) != nullptr && window->parentPtr != nullptr ? *window->parentPtr : *window;
    painted.needsPaint = true;
}

void Desktop::ValidateWindow(HWND window) {
    if (IsWindow(window)) window->needsPaint = false;
}

std::vector<HWND> Desktop::ChildWindows(HWND parent) const {
    std::vector<HWND> children;
    for (const auto& windowPtr : windows) {
        if (parent != nullptr && windowPtr->parentPtr == parent) children.push_back(windowPtr.get());
    }
    return children;
}

void Desktop::PaintControls(HWND parent, ID2D1HwndRenderTarget& canvas) {
    if (controls.empty()) return;
    canvas.SetTransform({});
    canvas.SetAntialiasMode(D2D1_ANTIALIAS_MODE_PER_PRIMITIVE);
    for (Control* controlPtr : controls) {
        const RECT bounds = controlPtr->bounds;
        const bool isSeen = controlPtr->visible && bounds.left < bounds.right && bounds.top < bounds.bottom;
        if (controlPtr->parentPtr == parent && isSeen) controlPtr->Paint(canvas);
    }
}

void Desktop::SetFocus(HWND control) {
    Control* const newPtr = FindControl(control);
    if (newPtr == focusPtr || (newPtr != nullptr && !newPtr->CanTakeInput())) return;
    Window* const oldPtr = std::exchange(focusPtr, newPtr);
    if (oldPtr != nullptr) SendMessage(oldPtr, WM_KILLFOCUS, 0, 0);
    if (newPtr != nullptr && focusPtr == newPtr) SendMessage(newPtr, WM_SETFOCUS, 0, 0);
}

HWND Desktop::GetFocus() const { return focusPtr != nullptr ? focusPtr : mainWindowPtr; }

void Desktop::SetCapture(HWND control) {
    Window* const newPtr = FindControl(control);
    if (newPtr == capturePtr) return;
    Window* const oldPtr = std::exchange(capturePtr, newPtr);
    if ((oldPtr != nullptr) != (newPtr != nullptr)) HoldMouse(newPtr != nullptr);
    if (oldPtr != nullptr) SendMessage(oldPtr, WM_CAPTURECHANGED, 0, 0);
}

void Desktop::ReleaseCapture() { SetCapture(nullptr); }

void Desktop::SetHovered(Window* controlPtr) {
    if (controlPtr == hoveredPtr) return;
    const auto isText = [](const Window* windowPtr) { return windowPtr != nullptr && windowPtr->className == L"EDIT"; };
    if (isText(hoveredPtr) != isText(controlPtr)) ShowTextPointer(isText(controlPtr));
    InvalidateWindow(hoveredPtr);
    InvalidateWindow(controlPtr);
    hoveredPtr = controlPtr;
}

/// A window that goes away, or takes no input any more, lets go of the keyboard and the mouse.
void Desktop::DropInput(HWND window) {
    if (capturePtr == window) ReleaseCapture();
    if (hoveredPtr == window) SetHovered(nullptr);
    if (focusPtr == window) SetFocus(nullptr);
}

int Desktop::RunLoop(std::function<std::optional<int>()> pass) {
    for (;;) {
        if (const std::optional<int> exitCode = pass()) return *exitCode;
    }
}

void Desktop::PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    {
        const std::lock_guard lock(queueMutex);
        queue.push_back({window, message, wParam, lParam});
    }
    WakeEvents();
}

void Desktop::PostQuitMessage(int exitCode) {
    quitPosted = true;
    quitCode = exitCode;
}

bool Desktop::PeekMessage(Message& message) {
    if (TakeQueued(message)) return true;
    PumpEvents(false);
    if (TakeQueued(message)) return true;
    if (quitPosted) {
        quitPosted = false;
        message = {nullptr, WM_QUIT, static_cast<WPARAM>(quitCode), 0};
        return true;
    }
    for (const auto& windowPtr : windows) {
        // Children are painted by the frame they lie in, so only a whole window is ever asked.
        if (windowPtr->needsPaint && windowPtr->visible && windowPtr->parentPtr == nullptr) {
            message = {windowPtr.get(), WM_PAINT, 0, 0};
            return true;
        }
    }
    return false;
}

void Desktop::WaitMessage() {
    if (HasQueuedMessages() || quitPosted) return;
    PumpEvents(true);
}

LRESULT Desktop::DispatchMessage(const Message& message) {
    return SendMessage(message.window, message.message, message.wParam, message.lParam);
}

LRESULT Desktop::SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!IsWindow(window)) return 0;
    if (window->procedure == nullptr) return DefaultWindowProcedure(window, message, wParam, lParam);
    return window->procedure(window, message, wParam, lParam);
}

LRESULT Desktop::DefaultWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM) {
    const bool closes = message == WM_CLOSE || (message == WM_SYSCOMMAND && wParam == SC_CLOSE);
    if (closes && IsWindow(window)) {
        SendMessage(window, WM_DESTROY, 0, 0);
        DestroyWindow(window);
    }
    if (message == WM_PAINT) ValidateWindow(window);
    return 0;
}

std::unique_ptr<PeriodicTimer> Desktop::MakeTimer(std::function<void()> callback) {
    if (!timerQueuePtr) {
        timerQueuePtr =
            std::make_unique<TimerQueue>([this](Worker::Work work) { return StartWorker(std::move(work)); });
    }
    return timerQueuePtr->MakeTimer(std::move(callback));
}

MediaInterface& Desktop::Media() {
    if (!mediaPtr) mediaPtr = MakeMedia();
    return *mediaPtr;
}

void Desktop::SuspendMedia(bool suspend) {
    if (mediaPtr) mediaPtr->Suspend(suspend);
}

void Desktop::CloseMedia() { mediaPtr.reset(); }

bool Desktop::HasQueuedMessages() const {
    const std::lock_guard lock(queueMutex);
    return !queue.empty();
}

bool Desktop::TakeQueued(Message& message) {
    {
        const std::lock_guard lock(queueMutex);
        if (queue.empty()) return false;
        message = queue.front();
        queue.erase(queue.begin());
    }
    if (message.window == mainWindowPtr && mainWindowPtr != nullptr) RouteInput(message);
    return true;
}

// Here and not when it is posted: the message before this one may have moved the focus.
void Desktop::RouteInput(Message& message) {
    switch (message.message) {
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_CHAR: message.window = GetFocus(); break;
    case WM_MOUSEMOVE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP: RouteMouse(message); break;
    case WM_ACTIVATE:
        if (message.wParam == WA_INACTIVE) ReleaseCapture(); // the release of the button goes to another program
        break;
    default: break;
    }
}

void Desktop::RouteMouse(Message& message) {
    const POINT point = UnpackPoint(message.lParam);
    const HWND childPtr = ChildAt(point);
    SetHovered(childPtr);
    const HWND targetPtr = capturePtr != nullptr ? capturePtr : childPtr;
    if (targetPtr != nullptr) {
        message.window = targetPtr;
        message.lParam = PackPoint({point.x - targetPtr->bounds.left, point.y - targetPtr->bounds.top});
    } else if (message.message == WM_LBUTTONDBLCLK) {
        message.message = WM_LBUTTONDOWN; // only controls care; for a game the second click is a click like any other
    }
}

HWND Desktop::ChildAt(POINT point) const {
    const auto isHit = [point](const Control* controlPtr) {
        return controlPtr->CanTakeInput() && Contains(controlPtr->bounds, point);
    };
    const auto found = std::find_if(controls.rbegin(), controls.rend(), isHit);
    return found == controls.rend() ? nullptr : *found;
}

bool Desktop::IsWindow(HWND window) const {
    return std::any_of(windows.begin(), windows.end(),
                       [window](const auto& windowPtr) { return windowPtr.get() == window; });
}

Control* Desktop::FindControl(HWND window) const {
    const auto found = std::find(controls.begin(), controls.end(), window);
    return found == controls.end() ? nullptr : *found;
}

void ExitProcess(int exitCode) {
    std::fflush(nullptr);
    std::_Exit(exitCode);
}

} // namespace platform
