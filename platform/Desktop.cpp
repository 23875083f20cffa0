#include "platform/Desktop.h"

#include "platform/Media.h"

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
} // namespace

Desktop::Desktop() { queue.reserve(256); }
Desktop::~Desktop() = default;

Desktop& Desktop::Current() { return *CurrentSlot(); }

void Desktop::Use(std::unique_ptr<Desktop> desktopPtr) { CurrentSlot() = std::move(desktopPtr); }

HWND Desktop::CreateWindow(const Window& description) {
    auto createdPtr = std::make_unique<Window>(description);
    Window* const windowPtr = createdPtr.get();
    windows.push_back(std::move(createdPtr));
    const bool isMain =
        mainWindowPtr == nullptr && windowPtr->parentPtr == nullptr && windowPtr->className != L"STATIC";
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
    if (window->parentPtr != nullptr) InvalidateWindow(window->parentPtr);
}

void Desktop::MoveWindow(HWND window, int left, int top) {
    if (!IsWindow(window)) return;
    RECT& bounds = window->bounds;
    bounds = {left, top, left + bounds.right - bounds.left, top + bounds.bottom - bounds.top};
    if (window == mainWindowPtr) MoveMainWindow(*window);
}

void Desktop::InvalidateWindow(HWND window) {
    if (IsWindow(window)) window->needsPaint = true;
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
    const std::lock_guard lock(queueMutex);
    if (queue.empty()) return false;
    message = queue.front();
    queue.erase(queue.begin());
    return true;
}

bool Desktop::IsWindow(HWND window) const {
    return std::any_of(windows.begin(), windows.end(),
                       [window](const auto& windowPtr) { return windowPtr.get() == window; });
}

void ExitProcess(int exitCode) {
    std::fflush(nullptr);
    std::_Exit(exitCode);
}

} // namespace platform
