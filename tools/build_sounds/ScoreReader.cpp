#include "tools/build_sounds/ScoreReader.h"

#include "tools/build_sounds/PatchReader.h"
#include "tools/build_sounds/PhraseReader.h"
#include "tools/build_sounds/Rhythm.h"
#include "tools/build_sounds/ScoreFile.h"
#include "tools/build_sounds/SectionReader.h"

#include <functional>
#include <map>
#include <string_view>
#include <utility>

namespace synth {

namespace {

/// Reads the files of a score and hands each line to the reader of what it belongs to.
class Reader {
public:
    Score Read(const std::filesystem::path& path) {
        ReadFile(path);
        if (score.notes.empty())
            throw ScoreError(path.string() + ": the score plays nothing: is there an 'order' line?");
        score.length += score.tail;
        return std::move(score);
    }

private:
    void ReadFile(const std::filesystem::path& path) {
        ScoreFile file(path);
        while (file.NextLine()) {
            if (!file.IsIndented()) {
                readBodyLine = nullptr;
                ReadOrder(file);
            } else if (readBodyLine) {
                readBodyLine(file);
            } else {
                file.Fail("an indented line outside a block");
            }
        }
        readBodyLine = nullptr;
    }

    void ReadOrder(const ScoreFile& file) {
        static const std::map<std::string_view, void (Reader::*)(const ScoreFile&)> orders = {
            {"use", &Reader::ReadUse},      {"tempo", &Reader::ReadTempo},       {"meter", &Reader::ReadMeter},
            {"swing", &Reader::ReadSwing},  {"hall", &Reader::ReadHall},         {"tail", &Reader::ReadTail},
            {"peak", &Reader::ReadPeak},    {"loudness", &Reader::ReadLoudness}, {"quality", &Reader::ReadQuality},
            {"patch", &Reader::BeginPatch}, {"track", &Reader::BeginTrack},      {"phrase", &Reader::BeginPhrase},
            {"beat", &Reader::BeginBeat},   {"section", &Reader::BeginSection},  {"order", &Reader::Play},
        };
        const auto found = orders.find(file.Words()[0]);
        if (found == orders.end()) file.Fail("unknown word " + Quoted(file.Words()[0]));
        (this->*found->second)(file);
    }

    void ReadUse(const ScoreFile& file) {
        file.Expect(2, 2, "use FILE");
        if (++useDepth > 4) file.Fail("'use' goes round in a circle");
        ReadFile(file.Path().parent_path() / std::filesystem::path(file.Words()[1]));
        --useDepth;
    }

    void ReadTempo(const ScoreFile& file) { rhythm.tempo = file.Single(20, 400); }
    void ReadMeter(const ScoreFile& file) { rhythm.meter = file.Single(1, 16); }
    void ReadSwing(const ScoreFile& file) {
        file.Expect(3, 3, "swing NOTE SHARE, such as: swing 16 0.56");
        rhythm.swingUnit = 4.0 / file.Number(file.Words()[1], 4, 64);
        rhythm.swingShare = file.Number(file.Words()[2], 0.5, 0.75);
    }

    void ReadHall(const ScoreFile& file) { score.hall = file.Single(0.1, 10); }
    void ReadTail(const ScoreFile& file) { score.tail = file.Single(0, 20); }
    void ReadPeak(const ScoreFile& file) { score.peak = file.Single(-60, 0); }
    void ReadLoudness(const ScoreFile& file) { score.loudness = file.Single(-60, -5); }
    void ReadQuality(const ScoreFile& file) { score.quality = file.Single(0, 1); }

    void BeginPatch(const ScoreFile& file) {
        patchReader.BeginPatch(file);
        readBodyLine = [this](const ScoreFile& body) { patchReader.ReadPatchLine(body); };
    }

    void BeginTrack(const ScoreFile& file) {
        patchReader.BeginTrack(file);
        readBodyLine = [this](const ScoreFile& body) { patchReader.ReadTrackLine(body); };
    }

    void BeginPhrase(const ScoreFile& file) {
        phraseReader.BeginPhrase(file);
        readBodyLine = [this](const ScoreFile& body) { phraseReader.ReadNotes(body); };
    }

    void BeginBeat(const ScoreFile& file) {
        phraseReader.BeginPhrase(file);
        readBodyLine = [this](const ScoreFile& body) { phraseReader.ReadGrid(body); };
    }

    void BeginSection(const ScoreFile& file) {
        sectionReader.BeginSection(file);
        readBodyLine = [this](const ScoreFile& body) { sectionReader.ReadPart(body); };
    }

    void Play(const ScoreFile& file) { sectionReader.Play(file); }

    Score score;
    int useDepth = 0;
    std::function<void(const ScoreFile&)> readBodyLine; // for the indented lines of a block; empty outside
    Rhythm rhythm;
    PatchReader patchReader{rhythm, score.tracks};
    PhraseReader phraseReader{rhythm};
    SectionReader sectionReader{rhythm, patchReader, phraseReader, score};
};

} // namespace

Score ReadScore(const std::filesystem::path& path) { return Reader().Read(path); }

} // namespace synth
