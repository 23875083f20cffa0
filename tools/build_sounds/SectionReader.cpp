#include "tools/build_sounds/SectionReader.h"

#include <algorithm>
#include <cmath>

namespace synth {

namespace {

constexpr double longestSeconds = 900.0; // a slip of the pen shall not fill the memory

} // namespace

SectionReader::SectionReader(const Rhythm& rhythm, const PatchReader& patchReader, const PhraseReader& phraseReader,
                             Score& score)
    : rhythm(rhythm), patchReader(patchReader), phraseReader(phraseReader), score(score) {}

void SectionReader::BeginSection(const ScoreFile& file) {
    const auto& words = file.Words();
    constexpr std::string_view form = "section NAME [bars COUNT] [tempo NUMBER]";
    if (words.size() % 2 != 0) file.Fail("expected: " + std::string(form));
    const auto [place, isNew] = sections.emplace(words[1], Section{});
    if (!isNew) file.Fail("a second section named " + Quoted(words[1]));
    sectionPtr = &place->second;
    sectionPtr->tempo = rhythm.tempo;
    sectionBars = 0.0;
    for (std::size_t i = 2; i < words.size(); i += 2) {
        if (words[i] == "bars") {
            sectionBars = file.Number(words[i + 1], 1, 1000);
        } else if (words[i] == "tempo") {
            sectionPtr->tempo = file.Number(words[i + 1], 20, 400);
        } else {
            file.Fail("expected: " + std::string(form));
        }
    }
    sectionPtr->beats = sectionBars * rhythm.meter;
}

/// TRACK: PHRASE[*COUNT][+SEMITONES|-SEMITONES][@DECIBELS] ..., the changes in any order.
void SectionReader::ReadPart(const ScoreFile& file) {
    const auto& words = file.Words();
    if (!words[0].ends_with(':')) file.Fail("expected: TRACK: PHRASE ...");
    const std::string_view name = words[0].substr(0, words[0].size() - 1);
    const int track = patchReader.FindTrack(file, name);
    std::vector<Use>& uses = sectionPtr->parts[track];
    if (!uses.empty()) file.Fail("the track " + Quoted(name) + " already plays in this section");
    double beats = 0.0;
    for (std::size_t i = 1; i < words.size(); ++i) beats += ReadUse(file, words[i], uses);
    if (sectionBars == 0.0) {
        sectionPtr->beats = std::max(sectionPtr->beats, beats);
    } else if (std::abs(beats - sectionPtr->beats) > 1e-6) {
        file.Fail(Quoted(name) + " plays " + Short(beats / rhythm.meter) + " bars instead of " + Short(sectionBars));
    }
}

double SectionReader::ReadUse(const ScoreFile& file, std::string_view word, std::vector<Use>& uses) const {
    constexpr std::string_view signs = "*+-@";
    std::size_t at = std::min(word.find_first_of(signs), word.size());
    const std::string_view name = word.substr(0, at);
    Use use;
    double count = 1.0;
    while (at < word.size()) {
        const char sign = word[at];
        // two on from here: the number after an '@' may have a sign of its own
        const std::size_t end = std::min(word.find_first_of(signs, at + 2), word.size());
        const std::string_view digits = word.substr(at + 1, end - at - 1);
        switch (sign) {
        case '*': count = file.Number(digits, 1, 1000); break;
        case '@': use.gain = FromDecibels(file.Number(digits, -60, 24)); break;
        default: use.transpose = file.Number(digits, 0, 48) * (sign == '-' ? -1.0 : 1.0); break;
        }
        at = end;
    }
    if (name == "rest") {
        use.beats = rhythm.meter;
    } else {
        const Phrase& phrase = phraseReader.FindPhrase(file, name);
        if (phrase.hasBars && phrase.beats - phrase.barBeats > 1e-6 && phrase.barBeats > 0.0) {
            file.Fail("the last bar of " + Quoted(name) + " is not closed by '|'");
        }
        use.phrasePtr = &phrase;
        use.beats = phrase.beats;
    }
    for (int i = 0; i < static_cast<int>(count); ++i) uses.push_back(use);
    return use.beats * static_cast<int>(count);
}

void SectionReader::Play(const ScoreFile& file) {
    const auto& words = file.Words();
    if (words.size() < 2) file.Fail("expected: order SECTION ...");
    for (std::size_t i = 1; i < words.size(); ++i) {
        const Section& section = file.Find(sections, words[i], "section");
        const double beatSeconds = 60.0 / section.tempo;
        if (score.length + section.beats * beatSeconds > longestSeconds) {
            file.Fail("the score lasts longer than 15 minutes");
        }
        for (const auto& [track, uses] : section.parts) {
            double beat = 0.0;
            for (const Use& use : uses) {
                PlayUse(use, beat, beatSeconds, track);
                beat += use.beats;
            }
        }
        score.length += section.beats * beatSeconds;
    }
}

void SectionReader::PlayUse(const Use& use, double beat, double beatSeconds, int track) {
    if (use.phrasePtr == nullptr) return;
    const double gate = score.tracks[static_cast<std::size_t>(track)].gate;
    for (const Phrase::Event& event : use.phrasePtr->events) {
        const double start = rhythm.Swung(beat + event.start) * beatSeconds;
        const double end = rhythm.Swung(beat + event.start + event.length) * beatSeconds;
        score.notes.push_back({score.length + start, (end - start) * gate, event.pitch + use.transpose,
                               event.glideFrom + use.transpose, event.gain * use.gain, track});
    }
}

} // namespace synth
