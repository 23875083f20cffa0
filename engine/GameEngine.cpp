#include "engine/GameEngine.h"

#include "platform/Console.h"
#include "platform/Desktop.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

using platform::Desktop;

namespace {
GameEngine* singletonPtr = nullptr;

constexpr double longestStep = 0.05; // seconds; a stall never becomes one huge step
constexpr auto keyPollPeriod = std::chrono::milliseconds(16);

int LowWord(LPARAM value) { return static_cast<int>(value & 0xFFFF); }
int HighWord(LPARAM value) { return static_cast<int>(value >> 16 & 0xFFFF); }
} // namespace

GameEngine* GameEngine::GetSingleton() {
    if (singletonPtr == nullptr) singletonPtr = new GameEngine;
    return singletonPtr;
}

GameEngine::GameEngine() : title(L"") {
    singletonPtr = this; // the factories below may already have to show a message
    const Desktop& desktop = Desktop::Current();
    std::srand(static_cast<unsigned>(static_cast<double>(desktop.Counter()) * desktop.SecondsPerCount() * 1000.0));
    keyReleases.reserve(maxWatchedKeys);
    deliveredReleases.reserve(maxWatchedKeys);
    CreateDeviceIndependentResources();
    keyWorkerPtr = Desktop::Current().StartWorker([this](platform::Worker& worker) {
        pollingWorkerPtr = &worker;
        KeyboardThreadEntry(this);
    });
}

GameEngine::~GameEngine() {
    consolePtr.reset();
    keyWorkerPtr.reset();
    frameClock.reset();
    gamePtr.reset();
    defaultFontPtr.reset();
    DiscardDeviceResources();
    DWriteFactoryPtr.reset();
    WICFactoryPtr.reset();
    D2DFactoryPtr.reset();
    Desktop::Current().DestroyWindow(hWindow);
    singletonPtr = nullptr;
}

int GameEngine::Run(HINSTANCE instance, int iCmdShow) {
    SetInstance(instance);
    frameClock = std::make_unique<StopWatch>();
    frameClock->Reset();
    gamePtr->GameInitialize(instance);
    if (!CreateGameWindow(iCmdShow)) {
        keyWorkerPtr.reset(); // the engine stays, but nothing may run on when the program ends
        return 0;
    }
    CreateDeviceResources();
    gamePtr->GameStart();
    Repaint();
    return Desktop::Current().RunLoop([this] { return RunPass(); });
}

std::optional<int> GameEngine::RunPass() {
    Desktop& desktop = Desktop::Current();
    DeliverKeyReleases(); // before the queue is looked at: a release may have ended the game
    platform::Message message;
    if (desktop.PeekMessage(message)) {
        desktop.DispatchMessage(message);
        if (message.message == WM_QUIT) {
            gamePtr->GameEnd();
            delete this;
            return static_cast<int>(message.wParam);
        }
    } else if (!sleeping && runGameLoop) {
        RunFrame();
    } else {
        desktop.WaitMessage();
    }
    return std::nullopt;
}

void GameEngine::RunFrame() {
    const double elapsed = frameClock->GetGameTime();
    frameClock->Reset();
    gamePtr->CheckKeyboard();
    gamePtr->GameTick(std::min(elapsed, longestStep));
    PaintFrame();
}

void GameEngine::SetSleep(bool sleep) {
    if (!frameClock) return;
    sleeping = sleep;
    if (sleep) {
        frameClock->Stop();
    } else {
        frameClock->Start();
    }
}

void GameEngine::QuitGame() { Desktop::Current().PostMessage(hWindow, WM_DESTROY, 0, 0); }

bool GameEngine::CreateGameWindow(int iCmdShow) {
    Desktop& desktop = Desktop::Current();
    const POINT screen = desktop.ScreenSize();
    const int left = (screen.x - width) / 2;
    const int top = (screen.y - height) / 2;
    platform::Window description;
    description.procedure = WndProc;
    description.className = title.C_str();
    description.text = title.C_str();
    description.style = WS_POPUP | WS_CLIPCHILDREN | WS_BORDER | WS_SYSMENU;
    description.bounds = {left, top, left + width, top + height};
    description.iconId = iconID;
    description.smallIconId = smallIconID;
    hWindow = desktop.CreateWindow(description);
    if (hWindow == nullptr) return false;
    desktop.ShowWindow(hWindow, iCmdShow != 0);
    return true;
}

void GameEngine::Repaint() { Desktop::Current().InvalidateWindow(hWindow); }

POINT GameEngine::GetWindowPosition() const {
    return hWindow == nullptr ? POINT{} : POINT{hWindow->bounds.left, hWindow->bounds.top};
}

void GameEngine::SetWindowPosition(int left, int top) {
    Desktop::Current().MoveWindow(hWindow, left, top);
    Repaint();
}

void GameEngine::ShowMousePointer(bool show) {
    Desktop::Current().ShowMousePointer(show);
    Repaint();
}

bool GameEngine::GoFullscreen() {
    if (fullscreen || !Desktop::Current().SetFullscreen(true)) return false;
    savedWindowPosition = GetWindowPosition();
    SetCaption(false);
    SetWindowPosition(0, 0);
    fullscreen = true;
    return true;
}

bool GameEngine::GoWindowedMode() {
    if (!fullscreen) return false;
    Desktop::Current().SetFullscreen(false);
    SetCaption(true);
    SetWindowPosition(savedWindowPosition.x, savedWindowPosition.y);
    fullscreen = false;
    return true;
}

void GameEngine::SetCaption(bool hasCaption) {
    if (hWindow == nullptr) return;
    hWindow->style = hasCaption ? hWindow->style | WS_CAPTION : hWindow->style & ~WS_CAPTION;
}

void GameEngine::TabNext(HWND childWindow) { MoveFocus(childWindow, +1); }

void GameEngine::TabPrevious(HWND childWindow) { MoveFocus(childWindow, -1); }

void GameEngine::MoveFocus(HWND childWindow, int direction) {
    std::vector<HWND> children = Desktop::Current().ChildWindows(hWindow);
    std::erase_if(children,
                  [childWindow](HWND child) { return child != childWindow && (!child->visible || !child->enabled); });
    if (children.empty()) return;
    if (direction < 0) std::reverse(children.begin(), children.end());
    const auto found = std::find(children.begin(), children.end(), childWindow);
    const bool isLast = found == children.end() || found + 1 == children.end();
    Desktop::Current().SetFocus(isLast ? children.front() : *(found + 1));
}

LRESULT GameEngine::WndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return GetSingleton()->HandleEvent(window, message, wParam, lParam);
}

LRESULT GameEngine::HandleEvent(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Desktop& desktop = Desktop::Current();
    switch (message) {
    case WM_CREATE: SetWindow(window); return 0;
    case WM_DESTROY: desktop.PostQuitMessage(0); return 0;
    case WM_SIZE:
        if (wParam == SIZE_MAXIMIZED) SetCaption(false);
        return 0;
    case WM_ACTIVATE:
        SetSleep(wParam == WA_INACTIVE);
        desktop.SuspendMedia(wParam == WA_INACTIVE); // whoever switches away expects silence
        return 0;
    case WM_ENTERSIZEMOVE: SetSleep(true); return 0;
    case WM_EXITSIZEMOVE: SetSleep(false); return 0;
    case WM_PAINT:
        desktop.ValidateWindow(window);
        if (!runGameLoop && deviceResourcesCreated) PaintFrame();
        return 0;
    case WM_SYSCOMMAND:
        if (wParam == SC_KEYMENU) return 0; // the keyboard never opens the system menu
        break;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORBTN: return desktop.SendMessage(reinterpret_cast<HWND>(lParam), WM_CTLCOLOREDIT, wParam, lParam);
    case WM_MOUSEMOVE:
        mousePosition = {LowWord(lParam), HighWord(lParam)};
        gamePtr->MouseMove(mousePosition.x, mousePosition.y, wParam);
        return 0;
    case WM_LBUTTONDOWN: return ForwardMouseButton(true, true, wParam, lParam);
    case WM_LBUTTONUP: return ForwardMouseButton(true, false, wParam, lParam);
    case WM_RBUTTONDOWN: return ForwardMouseButton(false, true, wParam, lParam);
    case WM_RBUTTONUP: return ForwardMouseButton(false, false, wParam, lParam);
    default: break;
    }
    const LRESULT result = desktop.DefaultWindowProcedure(window, message, wParam, lParam);
    if (desktop.MainWindow() == nullptr) SetWindow(nullptr); // the player has closed it
    return result;
}

LRESULT GameEngine::ForwardMouseButton(bool isLeft, bool isDown, WPARAM wParam, LPARAM lParam) {
    gamePtr->MouseButtonAction(isLeft, isDown, LowWord(lParam), HighWord(lParam), wParam);
    return 0;
}

void GameEngine::SetKeyList(String newKeyList) {
    const std::lock_guard lock(keyMutex);
    const String codes = newKeyList.ToUpperCase(); // the codes of letters are their capitals
    keyList.assign(codes.C_str(), codes.C_str() + codes.GetLength());
}

bool GameEngine::IsKeyDown(int vKey) const { return Desktop::Current().IsKeyDown(vKey); }

void GameEngine::KeyboardThreadEntry(void* enginePtr) { static_cast<GameEngine*>(enginePtr)->KeyboardThreadProc(); }

DWORD GameEngine::KeyboardThreadProc() {
    do { PollKeys(); } while (pollingWorkerPtr->Rest(keyPollPeriod));
    return 0;
}

void GameEngine::PollKeys() {
    Desktop& desktop = Desktop::Current();
    const std::lock_guard lock(keyMutex);
    const int count = std::min(static_cast<int>(keyList.size()), maxWatchedKeys);
    bool anyReleased = false;
    for (int i = 0; i < count; ++i) {
        const WORD key = keyList[static_cast<std::size_t>(i)];
        const DWORD bit = DWORD{1} << i;
        if (desktop.IsKeyDown(key)) {
            keyMonitor |= bit;
        } else if ((keyMonitor & bit) != 0) {
            keyMonitor &= ~bit;
            keyReleases.push_back(key);
            anyReleased = true;
        }
    }
    if (anyReleased) desktop.PostMessage(nullptr, WM_NULL, 0, 0); // wakes a loop that waits
}

void GameEngine::DeliverKeyReleases() {
    {
        const std::lock_guard lock(keyMutex);
        deliveredReleases.swap(keyReleases);
    }
    for (const WORD key : deliveredReleases) gamePtr->KeyPressed(static_cast<TCHAR>(key));
    deliveredReleases.clear();
}

void GameEngine::MessageBox(String text) {
    if (title.GetLength() == 0) title = L"No Title";
    Desktop::Current().MessageBox(text.C_str(), title.C_str());
}

void GameEngine::MessageBox(int value) { MessageBox(String(L"") + value); }
void GameEngine::MessageBox(unsigned int value) { MessageBox(String(L"") + value); }
void GameEngine::MessageBox(double value) { MessageBox(String(L"") + value); }

void GameEngine::OutputDebugString(String text) { Desktop::Current().OutputDebugString(text.C_str()); }

void GameEngine::OpenConsole() {
    if (consolePtr) return;
    const String consoleTitle = String(L"Console ") + title;
    consolePtr = std::make_unique<platform::Console>(consoleTitle.C_str());
}

void GameEngine::ConsolePrintString(String text) {
    if (consolePtr) consolePtr->PrintLine(text.C_str());
}

void GameEngine::ConsolePrintString(std::string text) { ConsolePrintString(Widened(text)); }

void GameEngine::ConsolePrintString(String text, int x, int y) {
    ConsoleSetCursorPosition(x, y);
    ConsolePrintString(text);
}

void GameEngine::ConsolePrintString(std::string text, int x, int y) { ConsolePrintString(Widened(text), x, y); }

void GameEngine::ConsoleSetCursorPosition(int column, int row) {
    if (consolePtr) consolePtr->SetCursorPosition(column, row);
}

void GameEngine::ConsoleSetForeColor(bool red, bool green, bool blue, bool intensity) {
    if (consolePtr) consolePtr->SetForeColor(red, green, blue, intensity);
}

void GameEngine::ConsoleSetBackColor(bool red, bool green, bool blue, bool intensity) {
    if (consolePtr) consolePtr->SetBackColor(red, green, blue, intensity);
}

void GameEngine::ConsoleClear() {
    if (consolePtr) consolePtr->Clear();
}

String GameEngine::Widened(const std::string& text) {
    String wide(L"");
    for (const char byte : text) wide += byte;
    return wide;
}

void GameEngine::Fail(wchar_t const* text) {
    MessageBox(text);
    platform::ExitProcess(-1);
}
