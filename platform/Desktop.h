#pragma once

#include "platform/Messages.h"
#include "platform/Types.h"
#include "platform/Window.h"
#include "platform/Worker.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class ID2D1HwndRenderTarget;

namespace platform {

class Control;
class MediaInterface;
class TimerQueue;
struct Backend;

struct Message {
    HWND window = nullptr;
    UINT message = WM_NULL;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

/// A finished frame: premultiplied 0xAARRGGBB pixels, rows from top to bottom, `stride` pixels apart.
struct FrameView {
    const std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    int stride = 0;
};

/// Calls back again and again at a fixed period. Destroying it stops it, and waits for a call that is running on
/// another thread; a call may destroy its own timer.
class PeriodicTimer {
public:
    virtual ~PeriodicTimer() = default;
    /// First calls back after `period` milliseconds (at least 1), then every `period`, counted from now without drift.
    /// A timer that runs begins anew.
    virtual void Start(int period) = 0;
    /// Does not wait for a call in progress.
    virtual void Stop() = 0;
};

/// What the engine asks of a desktop: windows with a message queue, live key state, a clock, a place to show frames,
/// message boxes, debug output and media. Windows, queue and dispatching are the same on every desktop and are written
/// here once; a particular desktop supplies the services marked virtual.
/// Everything is called on the main thread unless marked "any thread".
class Desktop {
public:
    /// The libraries that programs on this desktop draw, decode and play with; they must outlive it.
    explicit Desktop(const Backend& chosenBackend);
    virtual ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    /// The desktop that the program runs on. One must have been given to Use before.
    static Desktop& Current();
    /// Makes `desktopPtr` the desktop of the program; null removes it. The previous one is destroyed.
    static void Use(std::unique_ptr<Desktop> desktopPtr);

    const Backend& GetBackend() const { return backend; }

    // Windows

    /// Makes a window from `description` (procedure, class, text, style, parent, bounds, icons) and sends it WM_CREATE.
    /// The first window without a parent that is of a class of the program's own is its main window. A control
    /// without a procedure gets the desktop's. Null on failure. Until DestroyWindow the desktop owns it.
    HWND CreateWindow(const Window& description);
    /// Destroys the window and its children, which are told with WM_DESTROY; messages still queued for them are
    /// dropped. Null is ignored, here and in all that follows.
    void DestroyWindow(HWND window);
    /// Shows or hides; showing the main window for the first time activates it.
    void ShowWindow(HWND window, bool show);
    /// Moves the top-left corner, keeping the size.
    void MoveWindow(HWND window, int left, int top);
    /// Moves and sizes a control; `bounds` may lie outside the parent, and an empty one shows nothing.
    void SetControlBounds(HWND control, RECT bounds);
    /// Gives a control another text and tells it with WM_SETTEXT.
    void SetControlText(HWND control, std::wstring_view text);
    /// A disabled control takes neither mouse nor keys.
    void EnableControl(HWND control, bool enable);
    /// Asks for WM_PAINT once the queue is empty; a control is painted with its parent.
    void InvalidateWindow(HWND window);
    /// The WM_PAINT request has been answered.
    void ValidateWindow(HWND window);
    /// The program's main window, null while there is none.
    HWND MainWindow() const { return mainWindowPtr; }
    /// The children of `parent`, in the order they were made.
    std::vector<HWND> ChildWindows(HWND parent) const;
    /// Draws the visible controls of `parent` over what is on the canvas. Costs nothing while there are none. Leaves
    /// the identity as the canvas's transform, and smooth edges.
    void PaintControls(HWND parent, ID2D1HwndRenderTarget& canvas);

    // Who gets the keyboard and the mouse

    /// Key messages go to `control` from now on; null or the main window takes them back. A control that is hidden or
    /// disabled cannot have them: then nothing changes. The old and the new control get WM_KILLFOCUS and WM_SETFOCUS.
    void SetFocus(HWND control);
    /// The control that gets the keys, or else the main window.
    HWND GetFocus() const;
    /// Mouse messages go to `control`, wherever the mouse is, until it gets WM_CAPTURECHANGED: after ReleaseCapture, or
    /// when another program, or the end of the control, takes the mouse away.
    void SetCapture(HWND control);
    void ReleaseCapture();
    HWND GetCapture() const { return capturePtr; }
    /// The control under the mouse, null if there is none.
    HWND HoveredControl() const { return hoveredPtr; }

    // The program's loop

    /// Makes the passes of the program's loop: calls `pass` again and again until it answers the exit code, and returns
    /// that. Where the program must not block, in a browser's page, it returns at once and the passes come later; so
    /// all that has to be done at the end is done by the last pass.
    virtual int RunLoop(std::function<std::optional<int>()> pass);
    /// Begins work beside the loop: on a thread where the desktop has threads, otherwise in turns. It must have ended
    /// before the desktop does.
    virtual std::unique_ptr<Worker> StartWorker(Worker::Work work) = 0;

    // Messages

    /// Appends to the queue and wakes WaitMessage. Any thread.
    void PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    /// The next PeekMessage that finds the queue empty takes WM_QUIT.
    void PostQuitMessage(int exitCode);
    /// Takes the oldest message. With nothing queued it first lets the desktop's own events in, then offers WM_QUIT,
    /// then WM_PAINT for windows that want painting; false if there is none of these either. Keys and mouse posted to
    /// the main window go to the control that they are meant for at this moment; the position becomes the control's.
    bool PeekMessage(Message& message);
    /// Returns as soon as there may be a message to take; where the program must not block, at once. The last thing in
    /// a pass.
    void WaitMessage();
    /// Calls the procedure of the message's window.
    LRESULT DispatchMessage(const Message& message);
    /// Calls the procedure of `window` at once.
    LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    /// What happens to a message that a window does not handle: WM_CLOSE and SC_CLOSE destroy the window after telling
    /// it with WM_DESTROY; the rest is ignored.
    LRESULT DefaultWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    // Services of the particular desktop

    /// The size of the screen in pixels; x and y hold width and height.
    virtual POINT ScreenSize() const = 0;
    /// Whether the key is down now. Any thread.
    virtual bool IsKeyDown(int virtualKey) const = 0;
    /// A clock that never goes back, in counts of SecondsPerCount seconds. Any thread.
    virtual std::int64_t Counter() const = 0;
    virtual double SecondsPerCount() const = 0;
    /// Shows a finished frame in `window`. With `waitForBlank` it returns at the pace of 60 frames per second, unless
    /// the passes of the loop come at that pace. False if the window can no longer show anything.
    virtual bool Present(HWND window, const FrameView& frame, bool waitForBlank) = 0;
    /// Shows a modal box over the main window and returns when it is dismissed. Where none can be shown the text goes
    /// to standard error.
    virtual void MessageBox(std::wstring_view text, std::wstring_view caption) = 0;
    /// A line for whoever debugs. Any thread.
    virtual void OutputDebugString(std::wstring_view text) = 0;
    virtual void ShowMousePointer(bool show) = 0;
    /// Fills the screen with the picture, or goes back to the window; mouse positions stay client pixels.
    virtual bool SetFullscreen(bool fullscreen) = 0;
    /// A timer, not running yet. Calls come from one worker for all timers, one after another, so a slow one delays the
    /// rest; calls that are late are made up for unless a whole second was missed. On the scripted desktop time is the
    /// frames' and calls come on the main thread between two frames, in the order in which they are due.
    virtual std::unique_ptr<PeriodicTimer> MakeTimer(std::function<void()> callback);
    /// The text that was cut or copied last, in any program where the desktop can share it; else in this one.
    virtual std::wstring ClipboardText() { return clipboardText; }
    virtual void SetClipboardText(std::wstring_view text) { clipboardText = text; }
    /// The player of sound files, made on the first call.
    MediaInterface& Media();
    /// Silences what plays and lets it go on, without any trace in the commands; for a program in the background.
    void SuspendMedia(bool suspend);

protected:
    /// Lets in what has happened on the desktop, as posted messages. With `wait` it returns only after something has
    /// happened or WakeEvents was called.
    virtual void PumpEvents(bool wait) = 0;
    /// Ends a PumpEvents that waits. Any thread.
    virtual void WakeEvents() = 0;
    virtual std::unique_ptr<MediaInterface> MakeMedia() = 0;
    /// The main window was made, shown or hidden, moved, or is about to be destroyed.
    virtual bool OpenMainWindow(Window&) { return true; }
    virtual void ShowMainWindow(Window&) {}
    virtual void MoveMainWindow(Window&) {}
    virtual void CloseMainWindow(Window&) {}
    /// The mouse is wanted outside the main window too, or no longer.
    virtual void HoldMouse(bool) {}
    /// The mouse came over text that can be edited, or left it.
    virtual void ShowTextPointer(bool) {}
    /// The mouse is over `controlPtr`; null: over none.
    void SetHovered(Window* controlPtr);

    bool HasQueuedMessages() const;
    /// Destroys the player of sound files. A desktop whose media use its own members calls this in its destructor.
    void CloseMedia();

private:
    bool TakeQueued(Message& message);
    bool IsWindow(HWND window) const;
    Control* FindControl(HWND window) const;
    void RouteInput(Message& message);
    void RouteMouse(Message& message);
    HWND ChildAt(POINT point) const;
    void DropInput(HWND window);

    const Backend& backend;
    std::vector<std::unique_ptr<Window>> windows;
    std::vector<Control*> controls; // those among the windows, later ones above earlier ones
    Window* mainWindowPtr = nullptr;
    Window* focusPtr = nullptr; // null: the main window has the keyboard
    Window* capturePtr = nullptr;
    Window* hoveredPtr = nullptr;
    std::wstring clipboardText;
    mutable std::mutex queueMutex;
    std::vector<Message> queue; // short; keeps its memory, so that posting costs no allocation
    bool quitPosted = false;
    int quitCode = 0;
    std::unique_ptr<MediaInterface> mediaPtr;
    std::unique_ptr<TimerQueue> timerQueuePtr;
};

/// Ends the process at once, after flushing the standard streams: nothing is destroyed, so it may be called with other
/// threads running and anything half done.
[[noreturn]] void ExitProcess(int exitCode);

} // namespace platform
