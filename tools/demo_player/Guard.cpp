#include "tools/demo_player/Guard.h"

#include "tools/demo/Demo.h"
#include "tools/demo_player/Frame.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace {

constexpr int framesPerSecond = 60;
constexpr int framesPerPicture = 30;
constexpr int textRows = 128;
constexpr std::size_t mostShown = 1000; // characters of a value

std::string Beside(const std::string& demo, const char* extension) {
    return std::filesystem::path(demo).replace_extension(extension).string();
}

Hash HashOf(const platform::FrameView& view, int firstRow) {
    Hash hash;
    for (int y = firstRow; y < view.height; ++y)
        for (int x = 0; x < view.width; ++x) hash.Add(view.pixels[static_cast<std::ptrdiff_t>(y) * view.stride + x]);
    return hash;
}

} // namespace

Guard::Guard(std::string demoPath, HashUse use, std::filesystem::path picturesFolder)
    : demo(std::move(demoPath)), pictures(std::move(picturesFolder)), traceHashes(Beside(demo, "trace-hashes"), use),
      pictureHashes(Beside(demo, "picture-hashes"), use) {}

void Guard::Look(int frame, Trace trace, const platform::FrameView& view, bool showsText) {
    lastTrace = std::move(trace);
    second.resize(lastTrace.size());
    for (std::size_t i = 0; i < second.size(); ++i) second[i].Add(lastTrace[i].value + '\n');
    frames = frame + 1;
    if (frames % framesPerSecond == 0) EndSecond();
    if (frame % framesPerPicture == 0) LookAtPicture(frame, view, showsText ? textRows : 0);
}

std::string Guard::Finish() {
    if (frames % framesPerSecond != 0) EndSecond();
    for (const KeptHashes& kept : {std::cref(traceHashes), std::cref(pictureHashes)})
        if (!kept.End()) Tell("it ends too early", kept);
    return faults;
}

void Guard::EndSecond() {
    const int number = (frames - 1) / framesPerSecond;
    std::string line = std::to_string(number);
    for (std::size_t i = 0; i < second.size(); ++i)
        line += std::string(" ") + lastTrace[i].name + '=' + second[i].Text();
    second.clear();
    const std::vector<std::string> names = traceHashes.Take(line);
    if (names.empty()) return;
    std::string what = "second " + std::to_string(number) + " differs; at its end, in frame " +
                       std::to_string(frames - 1) + ", these are";
    for (const TraceField& field : lastTrace)
        if (std::ranges::find(names, field.name) != names.end())
            what += std::string("\n  ") + field.name + ' ' + field.value.substr(0, mostShown);
    Tell(what, traceHashes);
}

void Guard::LookAtPicture(int frame, const platform::FrameView& view, int firstRow) {
    const std::string number = std::to_string(frame);
    if (pictureHashes.Take(number + " picture=" + HashOf(view, firstRow).Text()).empty()) return;
    std::error_code ignored; // what cannot be written is reported by SaveFrame
    std::filesystem::create_directories(pictures, ignored);
    const std::string path = (pictures / std::filesystem::path(demo).stem()).string() + "." + number + ".png";
    SaveFrame(path, view);
    Tell("frame " + number + " looks different, see " + path, pictureHashes);
}

void Guard::Tell(const std::string& what, const KeptHashes& kept) {
    faults += demo + ", compared with " + kept.Path() + ": " + what + '\n';
}
