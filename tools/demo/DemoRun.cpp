#include "tools/demo/DemoRun.h"

#include "engine/GameEngine.h"
#include "game/Quillfen.h"
#include "platform/Unicode.h"

#include <cstdio>
#include <iostream>
#include <memory>
#include <utility>

namespace {

/// Keeps the game's position lines off standard output for as long as it lives.
class QuietOutput {
public:
    QuietOutput() : bufferPtr(std::cout.rdbuf(nullptr)) {}
    ~QuietOutput() { std::cout.rdbuf(bufferPtr); }
    QuietOutput(const QuietOutput&) = delete;
    QuietOutput& operator=(const QuietOutput&) = delete;

private:
    std::streambuf* bufferPtr;
};

} // namespace

int RunDemo(const Demo& demo,
            const std::function<void(platform::ScriptedDesktop& desktop, int frame, const platform::FrameView& view)>&
                onFrame) {
    auto desktopPtr = std::make_unique<platform::ScriptedDesktop>(demo.frameSeconds);
    platform::ScriptedDesktop& desktop = *desktopPtr;
    for (const Demo::Event& event : demo.events) {
        if (event.isPress) {
            desktop.Press(event.frame, event.virtualKey);
        } else {
            desktop.Release(event.frame, event.virtualKey);
        }
    }
    desktop.End(demo.endFrame);
    desktop.onDebugString = [](std::wstring_view) {};
    desktop.onBox = [](const platform::ScriptedDesktop::Box& box) {
        std::fprintf(stderr, "message: %s\n", platform::ToUtf8(box.text).c_str());
    };
    desktop.onFrame = [&](int frame, const platform::FrameView& view) { onFrame(desktop, frame, view); };
    platform::Desktop::Use(std::move(desktopPtr));

    const QuietOutput quiet;
    GameEngine::GetSingleton()->SetGame(Quillfen::GetSingleton());
    const int exitCode = GameEngine::GetSingleton()->Run(nullptr, 1);
    platform::Desktop::Use(nullptr);
    return exitCode;
}
