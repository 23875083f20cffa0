// The frames of the finishing demo: the tick and the paint of its busiest second beside copying one frame, and the tick
// alone beside the paint.

#include "engine/GameEngine.h"
#include "game/Quillfen.h"
#include "platform/ScriptedDesktop.h"
#include "platform/core/canvas/FrameMemory.h"
#include "tools/demo/Demo.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>
#include <numeric>
#include <streambuf>
#include <vector>

namespace {

constexpr int width = 1024;
constexpr int height = 896;
constexpr int plays = 7;
constexpr std::size_t second = 60; // frames
constexpr double tickLimit = 0.15;

double Now() {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// Milliseconds.
struct FrameTime {
    double tick = 0.0;
    double paint = 0.0; // until the frame is presented
};

/// The game, with a clock around its tick.
class TimedGame : public AbstractGame {
public:
    ~TimedGame() override { delete game; }
    void GameInitialize(HINSTANCE instance) override { game->GameInitialize(instance); }
    void GameStart() override { game->GameStart(); }
    void GameEnd() override { game->GameEnd(); }
    void KeyPressed(TCHAR key) override { game->KeyPressed(key); }
    void GamePaint(RECT rect) override { game->GamePaint(rect); }
    void GameTick(double deltaTime) override {
        tickBegan = Now();
        game->GameTick(deltaTime);
        tickEnded = Now();
    }

    double tickBegan = 0.0;
    double tickEnded = 0.0;

private:
    Quillfen* game = Quillfen::GetSingleton();
};

/// Takes the game's position lines like a file nobody reads.
class NoOutput : public std::streambuf {
protected:
    int_type overflow(int_type character) override { return traits_type::not_eof(character); }
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

/// Plays the demo once and keeps the least time that every frame has taken so far.
void Play(const Demo& demo, std::vector<FrameTime>& times) {
    auto desktopPtr = std::make_unique<platform::ScriptedDesktop>(demo.frameSeconds);
    for (const Demo::Event& event : demo.events) {
        if (event.isPress) {
            desktopPtr->Press(event.frame, event.virtualKey);
        } else {
            desktopPtr->Release(event.frame, event.virtualKey);
        }
    }
    auto* const gamePtr = new TimedGame; // the engine takes it over
    desktopPtr->End(demo.endFrame);
    desktopPtr->onDebugString = [](std::wstring_view) {};
    desktopPtr->onFrame = [&times, gamePtr](int frame, const platform::FrameView&) {
        const double presented = Now();
        FrameTime& time = times[static_cast<std::size_t>(frame)];
        time.tick = std::min(time.tick, gamePtr->tickEnded - gamePtr->tickBegan);
        time.paint = std::min(time.paint, presented - gamePtr->tickEnded);
    };
    platform::Desktop::Use(std::move(desktopPtr));
    GameEngine::GetSingleton()->SetGame(gamePtr);
    GameEngine::GetSingleton()->Run(nullptr, 1);
    platform::Desktop::Use(nullptr);
}

/// Milliseconds of copying a frame that is not in the cache; the least of many rounds.
double CopyTime() {
    constexpr int frames = 8;
    std::vector<platform::FrameMemory> memory;
    for (int i = 0; i < 2 * frames; ++i) memory.push_back(platform::MakeFrameMemory(width, height));
    double least = 1e9;
    for (int round = 0; round < 60; ++round) {
        const double began = Now();
        for (std::size_t i = 0; i < frames; ++i)
            std::memcpy(memory[i].pixels.get(), memory[i + frames].pixels.get(), std::size_t{width} * height * 4);
        least = std::min(least, (Now() - began) / frames);
    }
    return least;
}

/// The mean over the second that takes longest, and where it begins.
FrameTime BusiestSecond(const std::vector<FrameTime>& times, std::size_t& beginFrame) {
    const auto add = [](FrameTime sum, FrameTime time) {
        return FrameTime{sum.tick + time.tick, sum.paint + time.paint};
    };
    FrameTime busiest;
    for (std::size_t begin = second; begin + second <= times.size(); ++begin) { // not the first: it still loads
        const auto from = times.begin() + static_cast<std::ptrdiff_t>(begin);
        const FrameTime sum = std::accumulate(from, from + second, FrameTime(), add);
        if (sum.tick + sum.paint <= busiest.tick + busiest.paint) continue;
        busiest = sum;
        beginFrame = begin;
    }
    return {busiest.tick / second, busiest.paint / second};
}

} // namespace

int main() {
    const Demo demo = ReadDemoFile("demos/finish.demo");
    NoOutput noOutput;
    std::streambuf* const outputPtr = std::cout.rdbuf(&noOutput);
    std::vector<FrameTime> times(static_cast<std::size_t>(demo.endFrame), FrameTime{1e9, 1e9});
    for (int play = 0; play < plays; ++play) Play(demo, times);
    std::cout.rdbuf(outputPtr);

    const double copyTime = CopyTime();
    std::size_t beginFrame = 0;
    const FrameTime busiest = BusiestSecond(times, beginFrame);
    const double tickRatio = busiest.tick / busiest.paint;
    std::printf("busiest second                 from frame %d on\n", static_cast<int>(beginFrame));
    std::printf("copy of a frame                %.3f ms\n", copyTime);
    std::printf("tick                           %.3f ms\n", busiest.tick);
    std::printf("paint                          %.3f ms\n", busiest.paint);
    std::printf("ratio of tick and paint to the copy  %.2f\n", (busiest.tick + busiest.paint) / copyTime);
    std::printf("ratio of the tick to the paint       %.3f (at most %.2f)\n", tickRatio, tickLimit);
    return tickRatio <= tickLimit ? 0 : 1;
}
