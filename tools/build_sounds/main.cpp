#include "platform/SoundFile.h"
#include "tools/build_sounds/Mastering.h"
#include "tools/build_sounds/Player.h"
#include "tools/build_sounds/ScoreReader.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FindScores(const fs::path& source) {
    if (!fs::is_directory(source)) return {source};
    std::vector<fs::path> scores;
    for (const fs::directory_entry& entry : fs::directory_iterator(source)) {
        if (entry.path().extension() == ".score") scores.push_back(entry.path());
    }
    std::sort(scores.begin(), scores.end());
    return scores;
}

bool Build(const fs::path& scorePath, const fs::path& folder, bool asWav) {
    const synth::Score score = synth::ReadScore(scorePath);
    const std::vector<std::int16_t> samples = synth::Master(synth::PlayScore(score), score);
    const fs::path target = folder / scorePath.stem().concat(asWav ? ".wav" : ".mp3");
    const bool saved = asWav ? platform::SaveWav(target.string(), samples, 2, synth::samplesPerSecond)
                             : platform::SaveMp3(target.string(), samples, 2, synth::samplesPerSecond, score.quality);
    if (!saved) {
        std::fprintf(stderr, "%s: cannot be written\n", target.string().c_str());
        return false;
    }
    std::printf("%-24s %7.2f s %5zu notes %9ju bytes\n", target.filename().string().c_str(), score.length,
                score.notes.size(), static_cast<std::uintmax_t>(fs::file_size(target)));
    return true;
}

} // namespace

int main(int argc, char** argv) {
    const bool asWav = argc == 4 && std::strcmp(argv[3], "--wav") == 0;
    if (argc == 2 || (argc > 3 && !asWav)) {
        std::fprintf(stderr, "usage: build_sounds [SCORE|FOLDER OUT-FOLDER [--wav]]\n"
                             "Without arguments, all of art/sound into Resources/Sound.\n");
        return 2;
    }
    const fs::path source = argc > 1 ? argv[1] : "art/sound";
    const fs::path target = argc > 1 ? argv[2] : "Resources/Sound";
    try {
        fs::create_directories(target);
        for (const fs::path& score : FindScores(source)) {
            if (!Build(score, target, asWav)) return 1;
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
    return 0;
}
