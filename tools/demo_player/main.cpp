// Plays a demo with the real game, without a window, and writes down what happens.

#include "game/Quillfen.h"
#include "tools/demo/Demo.h"
#include "tools/demo/DemoRun.h"
#include "tools/demo/Trace.h"
#include "tools/demo_player/AllocationCount.h"
#include "tools/demo_player/Frame.h"
#include "tools/demo_player/Guard.h"
#include "tools/demo_player/TraceCompare.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int differsExitCode = 1;
constexpr int usageExitCode = 2;
constexpr char usage[] = "usage: demo_player DEMO [--trace FILE] [--frames DIR] [--every K] [--timedemo] "
                         "[--check | --renew], or demo_player --compare OLD-TRACE NEW-TRACE";
constexpr int warmUpFrames = 60; // lists, queues and caches reach their size

struct Options {
    std::string demoPath;
    std::string tracePath;
    std::string framesFolder;
    int every = 1;
    bool timesDemo = false;
    HashUse hashUse = HashUse::none;
    std::filesystem::path picturesFolder; // beside the program
};

[[noreturn]] void FailWith(const std::string& text) {
    std::fprintf(stderr, "demo_player: %s\n", text.c_str());
    std::exit(usageExitCode);
}

Options ReadOptions(int argc, char** argv) {
    Options options;
    options.picturesFolder = std::filesystem::path(argv[0]).parent_path() / "pictures";
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        const auto value = [&]() -> std::string {
            if (i + 1 == argc) FailWith(std::string(word) + " needs a value");
            return argv[++i];
        };
        if (word == "--trace") {
            options.tracePath = value();
        } else if (word == "--frames") {
            options.framesFolder = value();
        } else if (word == "--every") {
            const std::string number = value();
            const auto result = std::from_chars(number.data(), number.data() + number.size(), options.every);
            if (result.ec != std::errc() || result.ptr != number.data() + number.size() || options.every < 1) {
                FailWith("--every needs a whole number from 1 on, not '" + number + "'");
            }
        } else if (word == "--timedemo") {
            options.timesDemo = true;
        } else if ((word == "--check" || word == "--renew") && options.hashUse == HashUse::none) {
            options.hashUse = word == "--check" ? HashUse::check : HashUse::renew;
        } else if (word.starts_with("--") || !options.demoPath.empty()) {
            FailWith("unexpected '" + std::string(word) + "'");
        } else {
            options.demoPath = word;
        }
    }
    if (options.demoPath.empty()) FailWith(usage);
    return options;
}

/// Writes pictures of the frames and shows how far the demo is.
class FrameWriter {
public:
    FrameWriter(std::string folderPath, int everyFrames, int frameCount)
        : folder(std::move(folderPath)), every(everyFrames), count(frameCount) {
        std::error_code error;
        std::filesystem::create_directories(folder, error);
        if (!std::filesystem::is_directory(folder)) FailWith(folder + ": cannot be made");
    }

    void Write(int frame, const platform::FrameView& view) {
        ShowProgress(frame + 1);
        if (frame % every != 0) return;
        char name[32];
        std::snprintf(name, sizeof name, "/%06d.png", frame);
        SaveFrame(folder + name, view);
        ++written;
    }

    void Finish() const { std::printf("\n%d pictures in %s\n", written, folder.c_str()); }

private:
    void ShowProgress(int done) {
        constexpr int barLength = 40;
        const int filled = barLength * done / std::max(count, 1);
        if (filled == shown) return;
        shown = filled;
        const std::string bar = std::string(static_cast<std::size_t>(filled), '#') +
                                std::string(static_cast<std::size_t>(barLength - filled), '.');
        std::printf("\r[%s] %3d %%", bar.c_str(), 100 * done / std::max(count, 1));
        std::fflush(stdout);
    }

    std::string folder;
    int every;
    int count;
    int written = 0;
    int shown = -1;
};

/// The time and the allocations of every frame.
class FrameTimer {
public:
    using Clock = std::chrono::steady_clock;

    explicit FrameTimer(int frameCount) { milliseconds.reserve(static_cast<std::size_t>(frameCount)); }

    void Count(int frame) {
        const Clock::time_point now = Clock::now();
        if (frame > 0) milliseconds.push_back(std::chrono::duration<double, std::milli>(now - last).count());
        if (frame == 0) start = now;
        last = now;
        if (frame == warmUpFrames) allocationsAtWarmUp = AllocationCount();
        allocationsAtEnd = AllocationCount();
        frames = frame + 1;
    }

    void Print() {
        if (milliseconds.empty()) {
            std::printf("too short to time\n");
            return;
        }
        const double seconds = std::chrono::duration<double>(last - start).count();
        std::sort(milliseconds.begin(), milliseconds.end());
        const auto percentile = [this](double share) {
            return milliseconds[static_cast<std::size_t>(share * static_cast<double>(milliseconds.size() - 1))];
        };
        const int counted = frames - 1 - warmUpFrames;
        const double perFrame =
            counted > 0 ? static_cast<double>(allocationsAtEnd - allocationsAtWarmUp) / counted : 0.0;
        std::printf("frames %d\nseconds %.3f\nframes per second %.1f\nmedian ms %.3f\n99th percentile ms %.3f\n"
                    "heap allocations per frame %.4f (after frame %d)\n",
                    frames, seconds, static_cast<double>(milliseconds.size()) / seconds, percentile(0.5),
                    percentile(0.99), perFrame, warmUpFrames);
    }

private:
    std::vector<double> milliseconds;
    Clock::time_point start;
    Clock::time_point last;
    long allocationsAtWarmUp = 0;
    long allocationsAtEnd = 0;
    int frames = 0;
};

int Play(const Options& options) {
    const Demo demo = ReadDemoFile(options.demoPath);
    std::ofstream trace;
    if (!options.tracePath.empty()) {
        trace.open(options.tracePath, std::ios::binary);
        if (!trace) FailWith(options.tracePath + ": cannot be written");
    }
    std::unique_ptr<FrameWriter> writerPtr;
    if (!options.framesFolder.empty()) {
        writerPtr = std::make_unique<FrameWriter>(options.framesFolder, options.every, demo.endFrame);
    }
    std::optional<Guard> guard;
    if (options.hashUse != HashUse::none) guard.emplace(options.demoPath, options.hashUse, options.picturesFolder);
    FrameTimer timer(demo.endFrame);
    const int exitCode =
        RunDemo(demo, [&](platform::ScriptedDesktop& desktop, int frame, const platform::FrameView& view) {
            if (options.timesDemo) timer.Count(frame);
            if (trace.is_open() || guard) {
                const Trace state = TraceOfGame(desktop.mediaCommands);
                if (trace.is_open()) trace << TraceLine(frame, state);
                if (guard) guard->Look(frame, state, view, Quillfen::GetSingleton()->ShowsDebug());
            } else {
                desktop.onMediaCommand = [](std::wstring_view) {}; // nobody will ask for them
            }
            if (writerPtr) writerPtr->Write(frame, view);
            desktop.mediaCommands.clear();
        });
    if (trace.is_open() && !trace.flush()) FailWith(options.tracePath + ": cannot be written");
    if (writerPtr) writerPtr->Finish();
    if (options.timesDemo) timer.Print();
    const std::string faults = guard ? guard->Finish() : "";
    std::fputs(faults.c_str(), stdout);
    return faults.empty() ? exitCode : differsExitCode;
}

int Compare(const std::string& oldPath, const std::string& newPath) {
    std::ifstream old(oldPath);
    std::ifstream changed(newPath);
    if (!old) FailWith(oldPath + ": cannot be opened");
    if (!changed) FailWith(newPath + ": cannot be opened");
    const std::string difference = FirstDifference(old, changed);
    if (!difference.empty()) std::printf("%s\n", difference.c_str());
    return difference.empty() ? EXIT_SUCCESS : differsExitCode;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 4 && std::string_view(argv[1]) == "--compare") return Compare(argv[2], argv[3]);
    try {
        return Play(ReadOptions(argc, argv));
    } catch (const DemoError& error) { FailWith(error.what()); }
}
