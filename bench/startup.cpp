// How long a player waits for the first picture, and how much memory the running game takes.
//
// The game runs in a child process, on the scripted desktop and, where an X server can be started or is there, in a
// window. The child says when its first frame has been presented and, after two seconds of play, how much memory is
// resident. The ratio compares with a process of the same program that does nothing: what the system alone takes.

#include "engine/GameEngine.h"
#include "game/Quillfen.h"
#include "platform/ScriptedDesktop.h"
#include "platform/WindowedDesktop.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int framesOfPlay = 120;

double Milliseconds(Clock::duration duration) { return std::chrono::duration<double, std::milli>(duration).count(); }

long ResidentKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) return std::atol(line.c_str() + std::strlen("VmRSS:"));
    }
    return 0;
}

struct Outcome {
    double startMilliseconds = 0.0;
    long residentKilobytes = 0;
};

/// Stands between engine and game and watches: when the second frame begins, the first one has been presented.
class Probe : public AbstractGame {
public:
    Probe(Clock::time_point processStart, int resultPipe) : start(processStart), pipe(resultPipe) {}
    void GameInitialize(HINSTANCE instance) override { game.GameInitialize(instance); }
    void GameStart() override { game.GameStart(); }
    void GameEnd() override { game.GameEnd(); }
    void KeyPressed(TCHAR key) override { game.KeyPressed(key); }
    void GamePaint(RECT rect) override { game.GamePaint(rect); }
    void CheckKeyboard() override {
        if (frame == 1) outcome.startMilliseconds = Milliseconds(Clock::now() - start);
        if (frame == framesOfPlay) {
            outcome.residentKilobytes = ResidentKilobytes();
            if (write(pipe, &outcome, sizeof outcome) != sizeof outcome) std::_Exit(1);
            GameEngine::GetSingleton()->QuitGame();
        }
        ++frame;
    }
    void GameTick(double deltaTime) override { game.GameTick(deltaTime); }

private:
    Quillfen& game = *Quillfen::GetSingleton();
    Clock::time_point start;
    int pipe;
    int frame = 0;
    Outcome outcome;
};

void RunGame(std::string_view desktop, Clock::time_point start, int pipe) {
    if (desktop == "nothing") {
        const Outcome outcome{Milliseconds(Clock::now() - start), ResidentKilobytes()};
        if (write(pipe, &outcome, sizeof outcome) != sizeof outcome) std::_Exit(1);
        return;
    }
    if (desktop == "scripted") {
        auto scriptedPtr = std::make_unique<platform::ScriptedDesktop>();
        scriptedPtr->onDebugString = [](std::wstring_view) {};
        platform::Desktop::Use(std::move(scriptedPtr));
    } else {
        platform::Desktop::Use(platform::MakeWindowedDesktop());
    }
    std::cout.rdbuf(nullptr); // the position lines
    GameEngine::GetSingleton()->SetGame(new Probe(start, pipe));
    GameEngine::GetSingleton()->Run(nullptr, 1);
    platform::Desktop::Use(nullptr);
}

/// The median of several starts of this program as a child; start time 0 if the game did not run there.
Outcome Measure(const char* desktop) {
    constexpr int runs = 9;
    std::vector<Outcome> outcomes;
    for (int run = 0; run < runs; ++run) {
        int ends[2];
        if (::pipe(ends) != 0) return {};
        const std::string start = std::to_string(Clock::now().time_since_epoch().count());
        const std::string pipeEnd = std::to_string(ends[1]);
        const pid_t child = fork();
        if (child == 0) {
            execl("/proc/self/exe", "startup", desktop, start.c_str(), pipeEnd.c_str(), nullptr);
            _exit(127);
        }
        close(ends[1]);
        Outcome outcome;
        if (read(ends[0], &outcome, sizeof outcome) == sizeof outcome) outcomes.push_back(outcome);
        close(ends[0]);
        waitpid(child, nullptr, 0);
    }
    if (outcomes.empty()) return {};
    const auto middle = outcomes.begin() + static_cast<std::ptrdiff_t>(outcomes.size() / 2);
    std::nth_element(outcomes.begin(), middle, outcomes.end(),
                     [](const Outcome& a, const Outcome& b) { return a.startMilliseconds < b.startMilliseconds; });
    return *middle;
}

void Print(const char* desktop, const Outcome& outcome, const Outcome& nothing, double allowed) {
    if (outcome.startMilliseconds == 0.0) {
        std::printf("%-9s did not run here\n", desktop);
        return;
    }
    std::printf(
        "%-9s first frame after %5.1f ms (at most %.0f), %4.1f times an empty process; resident %.1f MB (at most 48)\n",
        desktop, outcome.startMilliseconds, allowed, outcome.startMilliseconds / nothing.startMilliseconds,
        static_cast<double>(outcome.residentKilobytes) / 1024.0);
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 4) {
        const Clock::time_point start{Clock::duration(std::atoll(argv[2]))};
        RunGame(argv[1], start, std::atoi(argv[3]));
        return 0;
    }
    const Outcome nothing = Measure("nothing");
    Print("scripted", Measure("scripted"), nothing, 50.0);
    if (std::getenv("DISPLAY") != nullptr) {
        Print("window", Measure("window"), nothing, 80.0);
    } else {
        std::printf("window    skipped: no display (run it under xvfb-run)\n");
    }
}
