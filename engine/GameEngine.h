#pragma once

#include "engine/AbstractGame.h"
#include "engine/COLOR.h"
#include "engine/DOUBLE2.h"
#include "engine/Font.h"
#include "engine/MATRIX3X2.h"
#include "engine/RECT2.h"
#include "engine/StopWatch.h"
#include "engine/String.h"
#include "platform/Canvas.h"
#include "platform/Imaging.h"
#include "platform/Types.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

class Bitmap;
class HitRegion;

namespace platform {
class Console;
class Worker;
} // namespace platform

/// The engine: one window, the message and game loop, the keys, and the game's only canvas.
class GameEngine {
public:
    /// The one engine, made on the first call; Run destroys it. A desktop must be in use (platform::Desktop::Use).
    static GameEngine* GetSingleton();
    virtual ~GameEngine();
    GameEngine(GameEngine const&) = delete;
    GameEngine& operator=(GameEngine const&) = delete;

    // Running a game

    /// Takes the game over: the engine deletes it when it is destroyed itself, or given another one.
    void SetGame(AbstractGame* newGamePtr) {
        if (newGamePtr != gamePtr.get()) gamePtr.reset(newGamePtr);
    }
    /// Runs the program to its end, then destroys the engine. The exit code of the quit message; 0 if the window cannot
    /// be made.
    int Run(HINSTANCE instance, int iCmdShow);
    /// False: the game is painted only when the window asks for it, and GameTick is never called.
    void RunGameLoop(bool run) { runGameLoop = run; }
    /// True (the default): 60 frames per second; false: as many as can be made. Read once, when the canvas is made.
    void SetVSync(bool wait) { vSync = wait; }
    /// Pauses or resumes the loop and its clock. Nothing happens before Run.
    void SetSleep(bool sleep);
    bool IsSleeping() const { return sleeping; }
    /// Ends the program through its normal end.
    void QuitGame();

    void SetInstance(HINSTANCE instance) { hInstance = instance; }
    HINSTANCE GetInstance() const { return hInstance; }

    // Window

    bool CreateGameWindow(int iCmdShow);
    /// Null before the window is made and after the player has closed it.
    HWND GetWindow() const { return hWindow; }
    void SetWindow(HWND window) { hWindow = window; }
    void SetTitle(String newTitle) { title = newTitle; }
    String GetTitle() const { return title; }
    /// Client size in pixels; it has no effect on a window that exists.
    void SetWidth(int newWidth) { width = newWidth; }
    void SetHeight(int newHeight) { height = newHeight; }
    int GetWidth() const { return width; }
    int GetHeight() const { return height; }
    /// Numbers of the program's resources of type "ICON".
    void SetIcon(WORD resourceID) { iconID = resourceID; }
    void SetSmallIcon(WORD resourceID) { smallIconID = resourceID; }
    WORD GetIcon() const { return iconID; }
    WORD GetSmallIcon() const { return smallIconID; }
    /// Asks for a repaint of the whole window.
    void Repaint();
    /// The top-left corner in screen pixels; (0, 0) without a window.
    POINT GetWindowPosition() const;
    void SetWindowPosition(int left, int top);
    void ShowMousePointer(bool show);
    /// Fills the screen with the picture and moves the window to (0, 0). False if it cannot, or already does.
    bool GoFullscreen();
    /// Back to the window, where it was before GoFullscreen; its style has the caption bits then. False if not in full
    /// screen.
    bool GoWindowedMode();
    bool IsFullscreen() const { return fullscreen; }
    LRESULT HandleEvent(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    /// Moves the keyboard to the control after (before) `childWindow`, from the last to the first (the first to the
    /// last). Controls that are hidden or disabled are left out. From any other window: to the first (last) control.
    void TabNext(HWND childWindow);
    void TabPrevious(HWND childWindow);
    static LRESULT WndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    // Keys and mouse

    /// Watches the keys whose codes are the characters of `keyList` (small letters mean their keys), at most 32: each
    /// release calls the game's KeyPressed.
    void SetKeyList(String keyList);
    /// Whether the key is down at this moment. Any thread.
    bool IsKeyDown(int vKey) const;
    /// In client pixels.
    POINT GetMousePosition() const { return mousePosition; }

    // Messages for people

    /// Shows a modal box and returns when it is dismissed.
    void MessageBox(String text);
    void MessageBox(int value);
    void MessageBox(unsigned int value);
    void MessageBox(double value);
    /// A line for whoever debugs; players never see it. No line break is added.
    static void OutputDebugString(String text);
    /// Opens the text console, once. The console operations do nothing before.
    void OpenConsole();
    void ConsolePrintString(String text);
    /// Each byte is one character, here and wherever the engine takes a std::string.
    void ConsolePrintString(std::string text);
    void ConsolePrintString(String text, int x, int y);
    void ConsolePrintString(std::string text, int x, int y);
    void ConsoleSetCursorPosition(int column, int row);
    void ConsoleSetForeColor(bool red, bool green, bool blue, bool intensity);
    void ConsoleSetBackColor(bool red, bool green, bool blue, bool intensity);
    void ConsoleClear();

    // Drawing state

    void SetColor(COLOR color);
    COLOR GetColor() const;
    /// The engine does not own the font.
    void SetFont(Font* fontPtr) { userFontPtr = fontPtr; }
    void SetDefaultFont() { userFontPtr = defaultFontPtr.get(); }
    /// Applies to all drawing that follows in this paint pass. Every pass begins with the identity; drawing a hit
    /// region puts the matrix that was set last back in force.
    void SetWorldMatrix(MATRIX3X2 mat);
    MATRIX3X2 GetWorldMatrix() const { return worldMatrix; }
    void SetBitmapInterpolationModeLinear();
    void SetBitmapInterpolationModeNearestNeighbor();
    void EnableAntiAlias(bool enable);

    // Drawing, in GamePaint only: anywhere else the call shows a message and returns false. Rectangles are left, top,
    // right, bottom; stroke widths are 1 unless given.

    bool DrawBitmap(Bitmap* bitmapPtr);
    bool DrawBitmap(Bitmap* bitmapPtr, int x, int y);
    bool DrawBitmap(Bitmap* bitmapPtr, DOUBLE2 position);
    bool DrawBitmap(Bitmap* bitmapPtr, int x, int y, RECT srcRect);
    bool DrawBitmap(Bitmap* bitmapPtr, DOUBLE2 position, RECT2 srcRect);

    void DrawLine(int x1, int y1, int x2, int y2);
    bool DrawLine(DOUBLE2 p1, DOUBLE2 p2, double strokeWidth = 1.0);

    bool DrawRect(int left, int top, int right, int bottom);
    bool DrawRect(RECT rect);
    bool DrawRect(RECT2 rect, double strokeWidth = 1.0);
    bool DrawRect(double left, double top, double right, double bottom, double strokeWidth = 1.0);
    bool FillRect(int left, int top, int right, int bottom);
    bool FillRect(RECT rect);
    bool FillRect(RECT2 rect);
    bool FillRect(double left, double top, double right, double bottom);

    bool DrawRoundedRect(int left, int top, int right, int bottom, int radiusX, int radiusY);
    bool DrawRoundedRect(RECT rect, int radiusX, int radiusY);
    bool DrawRoundedRect(RECT2 rect, int radiusX, int radiusY, double strokeWidth = 1.0);
    bool DrawRoundedRect(double left, double top, double right, double bottom, int radiusX, int radiusY,
                         double strokeWidth = 1.0);
    bool FillRoundedRect(int left, int top, int right, int bottom, int radiusX, int radiusY);
    bool FillRoundedRect(RECT rect, int radiusX, int radiusY);
    bool FillRoundedRect(RECT2 rect, int radiusX, int radiusY);
    bool FillRoundedRect(double left, double top, double right, double bottom, int radiusX, int radiusY);

    bool DrawEllipse(int centerX, int centerY, int radiusX, int radiusY);
    bool DrawEllipse(DOUBLE2 centerPt, int radiusX, int radiusY, double strokeWidth = 1.0);
    bool FillEllipse(int centerX, int centerY, int radiusX, int radiusY);
    bool FillEllipse(DOUBLE2 centerPt, int radiusX, int radiusY);

    /// Lines from each point to the next, with `close` also from the last to the first. False for fewer than 2 points.
    bool DrawPolygon(POINT ptsArr[], int count, bool close);
    bool DrawPolygon(DOUBLE2 ptsArr[], int count, bool close, double strokeWidth = 1.0);
    bool FillPolygon(POINT ptsArr[], int count);
    bool FillPolygon(DOUBLE2 ptsArr[], int count);

    bool DrawHitRegion(HitRegion* regionPtr);
    bool FillHitRegion(HitRegion* regionPtr);

    /// Wraps the text inside the box and clips it there; -1 for right or bottom is the edge of the canvas.
    bool DrawString(String text, int left, int top, int right, int bottom);
    bool DrawString(String text, DOUBLE2 topLeft, double right, double bottom);
    bool DrawString(std::string text, int left, int top, int right, int bottom);
    bool DrawString(std::string text, DOUBLE2 topLeft, double right, double bottom);

    /// The axes of the current transform, 1.3 * size long.
    bool DrawCoordinateSystem(double size);
    /// Clears the canvas to one opaque colour, whatever the transform.
    bool FillWindowRect(int red, int green, int blue);

    // For the engine's own classes

    void PaintFrame();
    bool CanPaint();
    void CreateDeviceIndependentResources();
    void CreateDeviceResources();
    void DiscardDeviceResources();
    ID2D1Factory* GetD2DFactory() const { return D2DFactoryPtr.get(); }
    IWICImagingFactory* GetWICImagingFactory() const { return WICFactoryPtr.get(); }
    IDWriteFactory* GetDWriteFactory() const { return DWriteFactoryPtr.get(); }
    ID2D1HwndRenderTarget* GetHwndRenderTarget() const { return renderTargetPtr.get(); }

protected:
    GameEngine();
    /// Polls the watched keys every 16 ms until the engine ends, on a thread of its own. On a desktop without threads
    /// it is called before each frame and polls them once.
    virtual DWORD KeyboardThreadProc();

private:
    static void KeyboardThreadEntry(void* enginePtr);
    std::optional<int> RunPass();
    void SetCaption(bool hasCaption);
    void MoveFocus(HWND childWindow, int direction);
    void PollKeys();
    void DeliverKeyReleases();
    void RunFrame();
    void D2DBeginPaint();
    bool D2DEndPaint();
    LRESULT ForwardMouseButton(bool isLeft, bool isDown, WPARAM wParam, LPARAM lParam);
    static String Widened(const std::string& text);
    [[noreturn]] void Fail(wchar_t const* text);

    static constexpr int maxWatchedKeys = 32;

    HINSTANCE hInstance = nullptr;
    HWND hWindow = nullptr;
    String title;
    WORD iconID = 0;
    WORD smallIconID = 0;
    int width = 0;
    int height = 0;
    bool sleeping = true;
    bool runGameLoop = false;
    std::unique_ptr<platform::Worker> keyWorkerPtr;
    platform::Worker* pollingWorkerPtr = nullptr; // the same one, for its work alone
    std::mutex keyMutex;                          // guards the three below
    std::vector<WORD> keyList;
    DWORD keyMonitor = 0;                // bit i: entry i was down at the last poll
    std::vector<WORD> keyReleases;       // found by the polls, not yet delivered
    std::vector<WORD> deliveredReleases; // main thread only; swaps memory with the above
    std::unique_ptr<AbstractGame> gamePtr;
    bool fullscreen = false;
    POINT savedWindowPosition; // before GoFullscreen
    POINT mousePosition;
    bool isPainting = false;
    bool vSync = true;
    bool deviceResourcesCreated = false;
    std::unique_ptr<StopWatch> frameClock;
    std::unique_ptr<platform::Console> consolePtr;

    std::unique_ptr<ID2D1Factory> D2DFactoryPtr;
    std::unique_ptr<IWICImagingFactory> WICFactoryPtr;
    std::unique_ptr<ID2D1HwndRenderTarget> renderTargetPtr;
    std::unique_ptr<IDWriteFactory> DWriteFactoryPtr;
    std::unique_ptr<ID2D1SolidColorBrush> colorBrushPtr;
    D2D1_ANTIALIAS_MODE antialiasMode = D2D1_ANTIALIAS_MODE_ALIASED;
    MATRIX3X2 worldMatrix = MATRIX3X2::CreateIdentityMatrix();
    D2D1_BITMAP_INTERPOLATION_MODE bitmapInterpolationMode = D2D1_BITMAP_INTERPOLATION_MODE_LINEAR;
    std::unique_ptr<Font> defaultFontPtr;
    Font* userFontPtr = nullptr;
};
