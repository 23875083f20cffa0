#include "tools/build_sounds/PhraseReader.h"

#include <array>
#include <cmath>
#include <utility>

namespace synth {

namespace {

constexpr double accent = 1.35;
constexpr double ghost = 0.55;

/// A letter, a sharp or flat, an octave: c4 is the middle C.
double ReadPitch(const ScoreFile& file, std::string_view name) {
    static constexpr std::array<int, 7> steps = {9, 11, 0, 2, 4, 5, 7}; // a to g
    std::string_view rest = name;
    if (rest.empty() || rest.front() < 'a' || rest.front() > 'g') file.Fail(Quoted(name) + " is not a note");
    int pitch = steps[static_cast<std::size_t>(rest.front() - 'a')];
    rest.remove_prefix(1);
    if (rest.starts_with('#') || rest.starts_with('b')) {
        pitch += rest.front() == '#' ? 1 : -1;
        rest.remove_prefix(1);
    }
    if (rest.size() != 1 || rest.front() < '0' || rest.front() > '9') file.Fail(Quoted(name) + " is not a note");
    return 12.0 * (rest.front() - '0' + 1) + pitch;
}

} // namespace

PhraseReader::PhraseReader(const Rhythm& rhythm) : rhythm(rhythm) {}

void PhraseReader::BeginPhrase(const ScoreFile& file) {
    const auto& words = file.Words();
    file.Expect(2, 2, std::string(words[0]) + " NAME");
    const auto [place, isNew] = phrases.emplace(words[1], Phrase{});
    if (!isNew) file.Fail("a second phrase named " + Quoted(words[1]));
    phrasePtr = &place->second;
}

void PhraseReader::ReadNotes(const ScoreFile& file) {
    for (const std::string_view word : file.Words()) {
        if (word == "|") {
            EndBar(file);
        } else {
            ReadNote(file, word);
        }
    }
}

void PhraseReader::EndBar(const ScoreFile& file) {
    const double beats = phrasePtr->beats - phrasePtr->barBeats;
    if (std::abs(beats - rhythm.meter) > 1e-6) {
        file.Fail("this bar lasts " + Short(beats) + " beats instead of " + Short(rhythm.meter));
    }
    phrasePtr->barBeats = phrasePtr->beats;
    phrasePtr->hasBars = true;
}

/// [/|^] PITCH[+PITCH...] or r or ~, [:LENGTH] [!|?]
void PhraseReader::ReadNote(const ScoreFile& file, std::string_view word) {
    Phrase& phrase = *phrasePtr;
    std::string_view text = word;
    double gain = 1.0;
    if (text.ends_with('!') || text.ends_with('?')) {
        gain = text.back() == '!' ? accent : ghost;
        text.remove_suffix(1);
    }
    if (const std::size_t colon = text.find(':'); colon != std::string_view::npos) {
        phrase.lastLength = ReadLength(file, text.substr(colon + 1));
        text = text.substr(0, colon);
    }
    const double length = phrase.lastLength;
    const double start = std::exchange(phrase.beats, phrase.beats + length);
    if (text == "r") return;
    if (text == "~") {
        if (phrase.events.empty()) file.Fail("nothing stands before the tie");
        for (std::size_t i = phrase.chordStart; i < phrase.events.size(); ++i) phrase.events[i].length += length;
        return;
    }
    const char ornament = text.starts_with('/') || text.starts_with('^') ? text.front() : '\0';
    if (ornament != '\0') text.remove_prefix(1);
    if (ornament == '/' && phrase.events.empty()) file.Fail("nothing stands before the slide");
    const double slideStart = ornament == '/' ? phrase.events.back().pitch : 0.0;
    phrase.chordStart = phrase.events.size();
    for (const std::string_view name : Split(text, "+")) {
        const double pitch = ReadPitch(file, name);
        const double glideFrom = ornament == '/' ? slideStart : ornament == '^' ? pitch - 2.0 : pitch;
        phrase.events.push_back({start, length, pitch, glideFrom, gain});
    }
    if (phrase.chordStart == phrase.events.size()) file.Fail(Quoted(word) + " is not a note");
}

/// In beats: 4 is a quarter, 4. a dotted one, 8t one of three in a quarter's time, 120ms a time.
double PhraseReader::ReadLength(const ScoreFile& file, std::string_view text) const {
    if (text.ends_with("ms")) return file.Number(text.substr(0, text.size() - 2), 1, 60000) * rhythm.tempo / 60000.0;
    double factor = 1.0;
    if (text.ends_with('.') || text.ends_with('t')) {
        factor = text.back() == '.' ? 1.5 : 2.0 / 3.0;
        text.remove_suffix(1);
    }
    return 4.0 / file.Number(text, 1, 128) * factor;
}

/// Bars between '|'; the characters of a bar share it evenly. x hits, X hits hard, o softly, '.' and '-' rest.
void PhraseReader::ReadGrid(const ScoreFile& file) {
    Phrase& phrase = *phrasePtr;
    std::string grid;
    for (const std::string_view word : file.Words()) grid += word;
    for (const std::string_view bar : Split(grid, "|")) {
        const double step = rhythm.meter / static_cast<double>(bar.size());
        for (const char mark : bar) {
            if (mark == 'x' || mark == 'X' || mark == 'o') {
                const double gain = mark == 'X' ? accent : mark == 'o' ? ghost : 1.0;
                phrase.events.push_back({phrase.beats, step, 60.0, 60.0, gain});
            } else if (mark != '.' && mark != '-') {
                file.Fail(Quoted({&mark, 1}) + " is not one of x X o . -");
            }
            phrase.beats += step;
        }
    }
    phrase.hasBars = true;
}

const Phrase& PhraseReader::FindPhrase(const ScoreFile& file, std::string_view name) const {
    return file.Find(phrases, name, "phrase");
}

} // namespace synth
