#include "platform/WindowedDesktop.h"

#include "platform/Media.h"
#include "platform/Resources.h"
#include "platform/Unicode.h"
#include "platform/core/Backend.h"
#include "platform/core/Debugger.h"
#include "platform/core/ThreadWorker.h"
#include "platform/core/screen/Keyboard.h"
#include "platform/core/screen/Pacer.h"
#include "platform/sdl/EventBell.h"
#include "platform/sdl/ModalBox.h"
#include "platform/sdl/Screen.h"
#include "platform/sdl/VideoLibrary.h"
#include "platform/sdl/VirtualKey.h"

#include <SDL.h>

#include <chrono>
#include <cstdio>
#include <optional>
#include <thread>
#include <utility>

namespace platform {

namespace {
using Clock = std::chrono::steady_clock;

constexpr auto noticePeriod = std::chrono::milliseconds(50);

/// The character that a key types without being text, 0 if none.
char32_t ControlCharacter(int virtualKey) {
    switch (virtualKey) {
    case VK_BACK:
    case VK_TAB:
    case VK_RETURN:
    case VK_ESCAPE: return static_cast<char32_t>(virtualKey);
    default: return 0;
    }
}

WPARAM MouseFlags() {
    const std::uint32_t buttons = SDL_GetMouseState(nullptr, nullptr);
    const int modifiers = SDL_GetModState();
    return ((buttons & SDL_BUTTON_LMASK) != 0 ? MK_LBUTTON : 0) | ((buttons & SDL_BUTTON_RMASK) != 0 ? MK_RBUTTON : 0) |
           ((modifiers & KMOD_SHIFT) != 0 ? MK_SHIFT : 0) | ((modifiers & KMOD_CTRL) != 0 ? MK_CONTROL : 0);
}

struct PointerFreer {
    void operator()(SDL_Cursor* pointerPtr) const { SDL_FreeCursor(pointerPtr); }
};

class WindowedDesktop : public Desktop {
public:
    using Desktop::Desktop;
    ~WindowedDesktop() override { CloseMedia(); }

    POINT ScreenSize() const override;
    bool IsKeyDown(int virtualKey) const override { return keyboard.IsDown(virtualKey); }
    std::unique_ptr<Worker> StartWorker(Worker::Work work) override { return ThreadWorker::Start(std::move(work)); }
    std::int64_t Counter() const override { return Clock::now().time_since_epoch().count(); }
    double SecondsPerCount() const override {
        return static_cast<double>(Clock::period::num) / static_cast<double>(Clock::period::den);
    }
    bool Present(HWND window, const FrameView& frame, bool waitForBlank) override;
    void MessageBox(std::wstring_view text, std::wstring_view caption) override;
    void OutputDebugString(std::wstring_view text) override;
    void ShowMousePointer(bool show) override;
    bool SetFullscreen(bool fullscreen) override;
    std::wstring ClipboardText() override;
    void SetClipboardText(std::wstring_view text) override;

protected:
    void PumpEvents(bool wait) override;
    void WakeEvents() override { bell.Ring(); }
    std::unique_ptr<MediaInterface> MakeMedia() override;
    bool OpenMainWindow(Window& window) override;
    void ShowMainWindow(Window& window) override;
    void MoveMainWindow(Window& window) override;
    void CloseMainWindow(Window& window) override;
    void HoldMouse(bool hold) override;
    void ShowTextPointer(bool show) override;

private:
    void Handle(const SDL_Event& event);
    void HandleWindow(const SDL_WindowEvent& event);
    void HandleKey(const SDL_KeyboardEvent& event);
    void HandleText(const char* text);
    void HandleMouseButton(const SDL_MouseButtonEvent& event);
    void PostMouse(UINT message, POINT windowPoint);
    void PostSize(WPARAM how);
    void Activate(bool active);
    void UpdateBounds();
    void ShowIcon(WORD resourceId);

    VideoLibrary video;
    EventBell bell{video.IsReady()};
    std::unique_ptr<Screen> screenPtr;
    std::unique_ptr<SDL_Cursor, PointerFreer> textPointerPtr; // made when it is first needed
    Keyboard keyboard;
    Pacer pacer;
    double blankRate = 0.0;
    MediaInterface* playerPtr = nullptr; // the desktop's own, once it is made
    bool isActive = false;
    bool menuKeyAlone = false; // Alt or F10 is down and nothing else was pressed since
    WORD pendingIcon = 0;      // put on the window when the first frame is seen
};

POINT WindowedDesktop::ScreenSize() const {
    SDL_Rect bounds{};
    if (!video.IsReady() || SDL_GetDisplayBounds(0, &bounds) != 0) return {};
    return {bounds.w, bounds.h};
}

bool WindowedDesktop::Present(HWND window, const FrameView& frame, bool waitForBlank) {
    if (window == nullptr || window != MainWindow() || !screenPtr) return false;
    if (!screenPtr->Present(frame, waitForBlank)) return false;
    if (pendingIcon != 0) ShowIcon(std::exchange(pendingIcon, WORD{0}));
    if (!waitForBlank) return true;
    if (const double rate = screenPtr->BlankRate(); rate != blankRate) {
        blankRate = rate;
        pacer.SetBlankRate(rate);
    }
    // The wait comes after showing the frame: what the player does is then seen one frame sooner than if it came
    // before.
    const Pacer::Time next = pacer.NextFrame(Clock::now().time_since_epoch());
    std::this_thread::sleep_until(Clock::time_point(next));
    return true;
}

void WindowedDesktop::MessageBox(std::wstring_view text, std::wstring_view caption) {
    const std::string message = ToUtf8(text);
    const std::string title = ToUtf8(caption);
    SDL_Window* const ownerPtr = screenPtr ? screenPtr->Handle() : nullptr;
    if (!video.IsReady() || !ShowModalBox(ownerPtr, title, message)) {
        std::fprintf(stderr, "%s: %s\n", title.c_str(), message.c_str());
    }
}

void WindowedDesktop::OutputDebugString(std::wstring_view text) {
    if (!IsDebuggerAttached()) return;
    const std::string line = ToUtf8(text);
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void WindowedDesktop::ShowMousePointer(bool show) {
    if (video.IsReady()) SDL_ShowCursor(show ? SDL_ENABLE : SDL_DISABLE);
}

std::wstring WindowedDesktop::ClipboardText() {
    if (!video.IsReady()) return Desktop::ClipboardText();
    char* const utf8Ptr = SDL_GetClipboardText();
    std::wstring text = utf8Ptr != nullptr ? FromUtf8(utf8Ptr) : std::wstring();
    SDL_free(utf8Ptr);
    return text;
}

void WindowedDesktop::SetClipboardText(std::wstring_view text) {
    Desktop::SetClipboardText(text);
    if (video.IsReady()) SDL_SetClipboardText(ToUtf8(text).c_str());
}

bool WindowedDesktop::SetFullscreen(bool fullscreen) { return screenPtr && screenPtr->SetFullscreen(fullscreen); }

void WindowedDesktop::PumpEvents(bool wait) {
    if (wait) {
        // Notices of ended sounds are found by looking. In the background sound rests, and so does this.
        const bool mayHear = playerPtr != nullptr && (isActive || !screenPtr);
        bell.Wait(mayHear ? std::optional(noticePeriod) : std::nullopt);
    }
    if (video.IsReady()) {
        for (SDL_Event event; SDL_PollEvent(&event) != 0;) Handle(event);
    }
    bell.Reset();
    if (playerPtr != nullptr) playerPtr->Update();
}

std::unique_ptr<MediaInterface> WindowedDesktop::MakeMedia() {
    auto madePtr = MakeDeviceMedia(*this);
    playerPtr = madePtr.get();
    return madePtr;
}

bool WindowedDesktop::OpenMainWindow(Window& window) {
    const std::string title = ToUtf8(window.text);
    const RECT bounds = window.bounds;
    std::string error = video.Error();
    if (video.IsReady()) {
        screenPtr = std::make_unique<Screen>(title, POINT{bounds.left, bounds.top},
                                             POINT{bounds.right - bounds.left, bounds.bottom - bounds.top});
        if (screenPtr->IsOpen()) {
            const POINT position = screenPtr->Position();
            window.bounds = {position.x, position.y, position.x + bounds.right - bounds.left,
                             position.y + bounds.bottom - bounds.top};
            pendingIcon = window.iconId;
            return true;
        }
        error = SDL_GetError();
        screenPtr.reset();
    }
    std::fprintf(stderr, "%s: cannot open a window: %s\n", title.c_str(), error.c_str());
    return false;
}

void WindowedDesktop::ShowMainWindow(Window& window) {
    screenPtr->Show(window.visible);
    if (window.visible) PostSize(SIZE_RESTORED);
    // Without a window manager nobody may ever tell that the window is the active one.
    Activate(window.visible);
}

void WindowedDesktop::MoveMainWindow(Window& window) { screenPtr->MoveTo({window.bounds.left, window.bounds.top}); }

void WindowedDesktop::CloseMainWindow(Window&) {
    screenPtr.reset();
    keyboard.ReleaseAll();
    isActive = false;
}

void WindowedDesktop::Handle(const SDL_Event& event) {
    if (!screenPtr) return;
    switch (event.type) {
    case SDL_QUIT: PostMessage(MainWindow(), WM_CLOSE, 0, 0); break; // Ctrl+C in the terminal, or the session ends
    case SDL_WINDOWEVENT: HandleWindow(event.window); break;
    case SDL_KEYDOWN:
    case SDL_KEYUP: HandleKey(event.key); break;
    case SDL_TEXTINPUT: HandleText(event.text.text); break;
    case SDL_MOUSEMOTION: PostMouse(WM_MOUSEMOVE, {event.motion.x, event.motion.y}); break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP: HandleMouseButton(event.button); break;
    default: break;
    }
}

// Moving the window is reported by its new position only: no display says when the user begins or ends to drag it, and
// the program keeps running meanwhile, so WM_ENTERSIZEMOVE and WM_EXITSIZEMOVE, which announce a stop, never come.
void WindowedDesktop::HandleWindow(const SDL_WindowEvent& event) {
    switch (event.event) {
    case SDL_WINDOWEVENT_EXPOSED:
        screenPtr->ShowAgain();
        InvalidateWindow(MainWindow());
        break;
    case SDL_WINDOWEVENT_MOVED: UpdateBounds(); break;
    case SDL_WINDOWEVENT_LEAVE: SetHovered(nullptr); break;
    case SDL_WINDOWEVENT_DISPLAY_CHANGED: blankRate = -1.0; break; // asked anew at the next frame
    case SDL_WINDOWEVENT_MINIMIZED: PostSize(SIZE_MINIMIZED); break;
    case SDL_WINDOWEVENT_MAXIMIZED: PostSize(SIZE_MAXIMIZED); break;
    case SDL_WINDOWEVENT_RESTORED: PostSize(SIZE_RESTORED); break;
    case SDL_WINDOWEVENT_CLOSE: PostMessage(MainWindow(), WM_CLOSE, 0, 0); break;
    case SDL_WINDOWEVENT_FOCUS_GAINED:
    case SDL_WINDOWEVENT_FOCUS_LOST:
        // How it is now, not how it was then: switching to the full screen may take the focus and give it back at once.
        Activate(screenPtr->HasFocus());
        break;
    default: break;
    }
}

void WindowedDesktop::HandleKey(const SDL_KeyboardEvent& event) {
    const SDL_Keysym& key = event.keysym;
    if (event.state == SDL_RELEASED) {
        const int virtualKey = MessageKey(keyboard.Release(key.scancode));
        if (virtualKey == 0) return;
        PostMessage(MainWindow(), WM_KEYUP, static_cast<WPARAM>(virtualKey), 0);
        if ((virtualKey == VK_MENU || virtualKey == VK_F10) && menuKeyAlone) {
            PostMessage(MainWindow(), WM_SYSCOMMAND, SC_KEYMENU, 0);
        }
        return;
    }
    const int pressedKey = VirtualKeyOf(key.sym, key.scancode);
    const int virtualKey = MessageKey(pressedKey);
    menuKeyAlone = virtualKey == VK_MENU || virtualKey == VK_F10;
    if (virtualKey == VK_RETURN && (key.mod & KMOD_ALT) != 0) {
        // For the player only: the program neither sees these keys nor that its picture has another size now.
        if (event.repeat == 0) screenPtr->SetFullscreen(!screenPtr->IsFullscreen());
        return;
    }
    if (virtualKey == 0) return;
    keyboard.Press(key.scancode, pressedKey);
    // With Alt as well it is no shortcut: some layouts type characters that way.
    const bool isControl = (key.mod & KMOD_CTRL) != 0 && (key.mod & KMOD_ALT) == 0;
    const WPARAM modifiers = ((key.mod & KMOD_SHIFT) != 0 ? MK_SHIFT : 0) | (isControl ? MK_CONTROL : 0);
    PostMessage(MainWindow(), WM_KEYDOWN, static_cast<WPARAM>(virtualKey), static_cast<LPARAM>(modifiers));
    const char32_t character = ControlCharacter(virtualKey);
    if (character != 0) PostMessage(MainWindow(), WM_CHAR, character, 0);
}

void WindowedDesktop::HandleText(const char* text) {
    for (std::string_view utf8 = text; !utf8.empty();) PostMessage(MainWindow(), WM_CHAR, TakeCodePoint(utf8), 0);
}

void WindowedDesktop::HandleMouseButton(const SDL_MouseButtonEvent& event) {
    const bool isDown = event.state == SDL_PRESSED;
    const POINT point{event.x, event.y};
    if (event.button == SDL_BUTTON_RIGHT) {
        PostMouse(isDown ? WM_RBUTTONDOWN : WM_RBUTTONUP, point);
    } else if (event.button == SDL_BUTTON_LEFT) {
        const UINT down = event.clicks % 2 == 0 ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN;
        PostMouse(isDown ? down : WM_LBUTTONUP, point);
    }
}

void WindowedDesktop::PostMouse(UINT message, POINT windowPoint) {
    const bool mayLieOutside = GetCapture() != nullptr;
    const POINT point = screenPtr->FrameFromWindow(windowPoint, mayLieOutside);
    PostMessage(MainWindow(), message, MouseFlags(), PackPoint(point));
}

void WindowedDesktop::PostSize(WPARAM how) {
    const POINT size = how == SIZE_MINIMIZED ? POINT{} : screenPtr->FrameSize();
    PostMessage(MainWindow(), WM_SIZE, how, PackPoint(size));
}

void WindowedDesktop::Activate(bool active) {
    if (active == isActive) return;
    isActive = active;
    if (!active) keyboard.ReleaseAll(); // their releases go to another program
    PostMessage(MainWindow(), WM_ACTIVATE, active ? WA_ACTIVE : WA_INACTIVE, 0);
}

void WindowedDesktop::UpdateBounds() {
    const POINT position = screenPtr->Position();
    RECT& bounds = MainWindow()->bounds;
    bounds = {position.x, position.y, position.x + bounds.right - bounds.left, position.y + bounds.bottom - bounds.top};
}

void WindowedDesktop::ShowIcon(WORD resourceId) {
    if (auto picture = GetBackend().decodePicture(FindResource(resourceId, "ICON"))) {
        screenPtr->SetIcon(std::move(*picture));
    }
}

void WindowedDesktop::HoldMouse(bool hold) {
    if (video.IsReady()) SDL_CaptureMouse(hold ? SDL_TRUE : SDL_FALSE);
}

void WindowedDesktop::ShowTextPointer(bool show) {
    if (!video.IsReady()) return;
    if (show && !textPointerPtr) textPointerPtr.reset(SDL_CreateSystemCursor(SDL_SYSTEM_CURSOR_IBEAM));
    SDL_SetCursor(show && textPointerPtr ? textPointerPtr.get() : SDL_GetDefaultCursor());
}

} // namespace

std::unique_ptr<Desktop> MakeWindowedDesktop(const Backend& backend) {
    return std::make_unique<WindowedDesktop>(backend);
}

} // namespace platform
