#include "tools/build_sounds/ScoreReader.h"

#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

namespace synth {

namespace {

using Words = std::vector<std::string_view>;

constexpr std::string_view blanks = " \t\r";
constexpr double longestSeconds = 900.0; // a typing mistake must not fill the memory
constexpr double accent = 1.35;
constexpr double ghost = 0.55;

Words Split(std::string_view text, std::string_view separators = blanks) {
    Words words;
    for (std::size_t at = text.find_first_not_of(separators); at != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(separators, at), text.size());
        words.push_back(text.substr(at, end - at));
        at = text.find_first_not_of(separators, end);
    }
    return words;
}

std::optional<double> ToNumber(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0.0;
    const auto [endPtr, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || endPtr != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
    return value;
}

double FromDecibels(double decibels) { return std::pow(10.0, decibels / 20.0); }

std::string Quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

std::string Short(double value) {
    std::array<char, 32> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 5);
    return {text.data(), result.ptr};
}

/// A note inside a phrase; places and lengths in beats from the phrase's start.
struct Event {
    double start = 0.0;
    double length = 0.0;
    double pitch = 60.0;
    double glideFrom = 60.0;
    double gain = 1.0;
};

struct Phrase {
    std::vector<Event> events;
    double beats = 0.0;
    double barBeats = 0.0; // where the last bar line stood
    bool hasBars = false;
    std::size_t chordStart = 0; // a tie lengthens the events from here on
    double lastLength = 1.0;
};

/// A phrase as a section uses it; a null phrase is a rest.
struct Use {
    const Phrase* phrasePtr = nullptr;
    double beats = 0.0;
    double transpose = 0.0;
    double gain = 1.0;
};

struct Section {
    double tempo = 0.0;
    double beats = 0.0;
    std::map<int, std::vector<Use>> parts; // by track
};

class Reader {
public:
    Score Read(const std::filesystem::path& path) {
        ReadFile(path);
        if (score.notes.empty())
            throw ScoreError(path.string() + ": the score plays nothing: is there an 'order' line?");
        score.length = playedSeconds + score.tail;
        return std::move(score);
    }

private:
    using Order = void (Reader::*)(const Words&);

    [[noreturn]] void Fail(const std::string& what) const {
        throw ScoreError(file.string() + ":" + std::to_string(line) + ": " + what);
    }

    double Number(std::string_view text, double least = -1e9, double most = 1e9) const {
        const std::optional<double> value = ToNumber(text);
        if (!value) Fail(Quoted(text) + " is not a number");
        if (*value < least || *value > most) {
            Fail(Quoted(text) + " is not between " + Short(least) + " and " + Short(most));
        }
        return *value;
    }

    void Expect(const Words& words, std::size_t least, std::size_t most, std::string_view form) const {
        if (words.size() < least || words.size() > most) Fail("expected: " + std::string(form));
    }

    template <typename Map>
    auto& Find(Map& map, std::string_view name, std::string_view kind) const {
        const auto found = map.find(std::string(name));
        if (found == map.end()) Fail("no " + std::string(kind) + " named " + Quoted(name));
        return found->second;
    }

    void ReadFile(const std::filesystem::path& path) {
        const std::filesystem::path outerFile = std::exchange(file, path);
        const int outerLine = std::exchange(line, 0);
        std::ifstream stream(path);
        if (!stream) Fail("cannot be read");
        for (std::string text; std::getline(stream, text);) {
            ++line;
            for (std::string more; text.ends_with('\\') && std::getline(stream, more); ++line) {
                text.back() = ' ';
                text += more;
            }
            // a sharp follows its letter, so only a '#' after a blank or at the front begins a comment
            for (std::size_t at = text.find('#'); at != std::string::npos; at = text.find('#', at + 1)) {
                if (at == 0 || blanks.find(text[at - 1]) != std::string_view::npos) text.resize(at);
            }
            const Words words = Split(text);
            if (words.empty()) continue;
            if (blanks.find(text.front()) == std::string_view::npos) {
                bodyReader = nullptr;
                ReadOrder(words);
            } else if (bodyReader) {
                (this->*bodyReader)(words);
            } else {
                Fail("an indented line outside a block");
            }
        }
        bodyReader = nullptr;
        file = outerFile;
        line = outerLine;
    }

    void ReadOrder(const Words& words) {
        static const std::map<std::string_view, Order> orders = {
            {"use", &Reader::ReadUse},      {"tempo", &Reader::ReadTempo},       {"meter", &Reader::ReadMeter},
            {"swing", &Reader::ReadSwing},  {"hall", &Reader::ReadHall},         {"tail", &Reader::ReadTail},
            {"peak", &Reader::ReadPeak},    {"loudness", &Reader::ReadLoudness}, {"quality", &Reader::ReadQuality},
            {"patch", &Reader::BeginPatch}, {"track", &Reader::BeginTrack},      {"phrase", &Reader::BeginPhrase},
            {"beat", &Reader::BeginBeat},   {"section", &Reader::BeginSection},  {"order", &Reader::Play},
        };
        const auto found = orders.find(words[0]);
        if (found == orders.end()) Fail("unknown word " + Quoted(words[0]));
        (this->*found->second)(words);
    }

    double Single(const Words& words, double least, double most) const {
        Expect(words, 2, 2, std::string(words[0]) + " NUMBER");
        return Number(words[1], least, most);
    }

    void ReadTempo(const Words& words) { tempo = Single(words, 20, 400); }
    void ReadMeter(const Words& words) { meter = Single(words, 1, 16); }
    void ReadHall(const Words& words) { score.hall = Single(words, 0.1, 10); }
    void ReadTail(const Words& words) { score.tail = Single(words, 0, 20); }
    void ReadPeak(const Words& words) { score.peak = Single(words, -60, 0); }
    void ReadLoudness(const Words& words) { score.loudness = Single(words, -60, -5); }
    void ReadQuality(const Words& words) { score.quality = Single(words, 0, 1); }

    void ReadUse(const Words& words) {
        Expect(words, 2, 2, "use FILE");
        if (++useDepth > 4) Fail("'use' goes round in a circle");
        ReadFile(file.parent_path() / std::filesystem::path(words[1]));
        --useDepth;
    }

    void ReadSwing(const Words& words) {
        Expect(words, 3, 3, "swing NOTE SHARE, such as: swing 16 0.56");
        swingUnit = 4.0 / Number(words[1], 4, 64);
        swingShare = Number(words[2], 0.5, 0.75);
    }

    // ---- patches and tracks ----

    void BeginPatch(const Words& words) {
        Expect(words, 2, 4, "patch NAME [like OTHER]");
        Patch fresh;
        if (words.size() > 2) {
            Expect(words, words[2] == "like" ? 4 : 0, 4, "patch NAME [like OTHER]");
            fresh = Find(patches, words[3], "patch");
        }
        patchPtr = &(patches[std::string(words[1])] = fresh);
        bodyReader = &Reader::ReadPatchLine;
    }

    /// VALUE or VALUE@MILLISECONDS, any number of them in order of time.
    Curve ReadCurve(const Words& words, double least, double most) const {
        if (words.size() < 2) Fail("expected: " + std::string(words[0]) + " VALUE@MILLISECONDS ...");
        Curve curve;
        for (std::size_t i = 1; i < words.size(); ++i) {
            const Words parts = Split(words[i], "@");
            if (parts.empty() || parts.size() > 2) Fail(Quoted(words[i]) + " is not VALUE@MILLISECONDS");
            const double second = parts.size() == 2 ? Number(parts[1], 0, 60000) / 1000.0 : 0.0;
            if (curve.IsSet() && second < curve.points.back().second) Fail("the points are not in order of time");
            curve.points.push_back({second, Number(parts[0], least, most)});
        }
        return curve;
    }

    void ReadPatchLine(const Words& words) {
        static const std::map<std::string_view, Wave> waves = {{"pulse", Wave::pulse}, {"triangle", Wave::triangle},
                                                               {"saw", Wave::saw},     {"sine", Wave::sine},
                                                               {"noise", Wave::noise}, {"grit", Wave::grit}};
        const std::string_view what = words[0];
        if (what == "wave") {
            Expect(words, 2, 2, "wave NAME");
            const auto found = waves.find(words[1]);
            if (found == waves.end()) Fail("no wave named " + Quoted(words[1]));
            patchPtr->wave = found->second;
        } else if (what == "envelope") {
            Expect(words, 5, 5, "envelope ATTACK DECAY SUSTAIN RELEASE, in milliseconds but for the sustain");
            patchPtr->attack = Number(words[1], 0, 60000) / 1000.0;
            patchPtr->decay = Number(words[2], 0, 60000) / 1000.0;
            patchPtr->sustain = Number(words[3], 0, 1);
            patchPtr->release = Number(words[4], 1, 60000) / 1000.0;
        } else if (what == "vibrato") {
            Expect(words, 4, 4, "vibrato HERTZ CENTS DELAY-MILLISECONDS");
            patchPtr->vibratoRate = Number(words[1], 0, 100);
            patchPtr->vibratoDepth = Number(words[2], 0, 2400) / 100.0;
            patchPtr->vibratoDelay = Number(words[3], 0, 60000) / 1000.0;
        } else if (what == "tremolo") {
            Expect(words, 3, 3, "tremolo HERTZ SHARE");
            patchPtr->tremoloRate = Number(words[1], 0, 100);
            patchPtr->tremoloDepth = Number(words[2], 0, 1);
        } else if (what == "modulate") {
            if (words.size() < 3) Fail("expected: modulate RATIO DEPTH@MILLISECONDS ...");
            patchPtr->modulatorRatio = Number(words[1], 0, 32);
            patchPtr->modulation = ReadCurve({words.begin() + 1, words.end()}, 0, 50);
        } else if (what == "width") {
            patchPtr->width = ReadCurve(words, 0.02, 0.98);
        } else if (what == "pitch") {
            patchPtr->pitch = ReadCurve(words, -96, 96);
        } else if (what == "lowpass") {
            patchPtr->lowpass = ReadCurve(words, 20, 20000);
        } else if (what == "highpass") {
            patchPtr->highpass = ReadCurve(words, 20, 20000);
        } else if (what == "detune") {
            patchPtr->detune = Single(words, 0, 1200) / 100.0;
        } else if (what == "drive") {
            patchPtr->drive = Single(words, 0, 50);
        } else if (what == "gain") {
            patchPtr->gain = FromDecibels(Single(words, -60, 24));
        } else {
            Fail("a patch has no " + Quoted(what));
        }
    }

    void BeginTrack(const Words& words) {
        if (words.size() < 3) Fail("expected: track NAME PATCH ...");
        if (!trackIndices.emplace(words[1], static_cast<int>(score.tracks.size())).second) {
            Fail("a second track named " + Quoted(words[1]));
        }
        Track track;
        track.name = words[1];
        for (std::size_t i = 2; i < words.size(); ++i) track.patches.push_back(Find(patches, words[i], "patch"));
        score.tracks.push_back(std::move(track));
        bodyReader = &Reader::ReadTrackLine;
    }

    void ReadTrackLine(const Words& words) {
        Track& track = score.tracks.back();
        const std::string_view what = words[0];
        if (what == "gain") {
            track.gain = FromDecibels(Single(words, -60, 24));
        } else if (what == "pan") {
            track.pan = Single(words, -1, 1);
        } else if (what == "gate") {
            track.gate = Single(words, 0.05, 1);
        } else if (what == "room") {
            track.room = Single(words, 0, 1);
        } else if (what == "echo") {
            Expect(words, 5, 5, "echo BEATS LEVEL FEEDBACK PAN");
            track.echoTime = Number(words[1], 0.01, 16) * 60.0 / tempo;
            track.echoLevel = Number(words[2], 0, 1);
            track.echoFeedback = Number(words[3], 0, 0.9);
            track.echoPan = Number(words[4], -1, 1);
        } else {
            Fail("a track has no " + Quoted(what));
        }
    }

    // ---- phrases ----

    void BeginNamedPhrase(const Words& words, Order reader) {
        Expect(words, 2, 2, std::string(words[0]) + " NAME");
        const auto [place, isNew] = phrases.emplace(words[1], Phrase{});
        if (!isNew) Fail("a second phrase named " + Quoted(words[1]));
        phrasePtr = &place->second;
        bodyReader = reader;
    }

    void BeginPhrase(const Words& words) { BeginNamedPhrase(words, &Reader::ReadNotes); }
    void BeginBeat(const Words& words) { BeginNamedPhrase(words, &Reader::ReadGrid); }

    void ReadNotes(const Words& words) {
        for (const std::string_view word : words) {
            if (word == "|") {
                EndBar();
            } else {
                ReadNote(word);
            }
        }
    }

    void EndBar() {
        const double beats = phrasePtr->beats - phrasePtr->barBeats;
        if (std::abs(beats - meter) > 1e-6) {
            Fail("this bar lasts " + Short(beats) + " beats instead of " + Short(meter));
        }
        phrasePtr->barBeats = phrasePtr->beats;
        phrasePtr->hasBars = true;
    }

    /// [/|^] PITCH[+PITCH...] or r or ~, [:LENGTH] [!|?]
    void ReadNote(std::string_view word) {
        Phrase& phrase = *phrasePtr;
        std::string_view text = word;
        double gain = 1.0;
        if (text.ends_with('!') || text.ends_with('?')) {
            gain = text.back() == '!' ? accent : ghost;
            text.remove_suffix(1);
        }
        if (const std::size_t colon = text.find(':'); colon != std::string_view::npos) {
            phrase.lastLength = ReadLength(text.substr(colon + 1));
            text = text.substr(0, colon);
        }
        const double length = phrase.lastLength;
        const double start = std::exchange(phrase.beats, phrase.beats + length);
        if (text == "r") return;
        if (text == "~") {
            if (phrase.events.empty()) Fail("nothing stands before the tie");
            for (std::size_t i = phrase.chordStart; i < phrase.events.size(); ++i) phrase.events[i].length += length;
            return;
        }
        const char ornament = text.starts_with('/') || text.starts_with('^') ? text.front() : '\0';
        if (ornament != '\0') text.remove_prefix(1);
        if (ornament == '/' && phrase.events.empty()) Fail("nothing stands before the slide");
        const double slideStart = ornament == '/' ? phrase.events.back().pitch : 0.0;
        phrase.chordStart = phrase.events.size();
        for (const std::string_view name : Split(text, "+")) {
            const double pitch = ReadPitch(name);
            const double glideFrom = ornament == '/' ? slideStart : ornament == '^' ? pitch - 2.0 : pitch;
            phrase.events.push_back({start, length, pitch, glideFrom, gain});
        }
        if (phrase.chordStart == phrase.events.size()) Fail(Quoted(word) + " is not a note");
    }

    /// A letter, a sharp or flat, an octave: c4 is the middle C.
    double ReadPitch(std::string_view name) const {
        static constexpr std::array<int, 7> steps = {9, 11, 0, 2, 4, 5, 7}; // a to g
        std::string_view rest = name;
        if (rest.empty() || rest.front() < 'a' || rest.front() > 'g') Fail(Quoted(name) + " is not a note");
        int pitch = steps[static_cast<std::size_t>(rest.front() - 'a')];
        rest.remove_prefix(1);
        if (rest.starts_with('#') || rest.starts_with('b')) {
            pitch += rest.front() == '#' ? 1 : -1;
            rest.remove_prefix(1);
        }
        if (rest.size() != 1 || rest.front() < '0' || rest.front() > '9') Fail(Quoted(name) + " is not a note");
        return 12.0 * (rest.front() - '0' + 1) + pitch;
    }

    /// In beats: 4 is a quarter, 4. a dotted quarter, 8t one of three in a quarter, 120ms a time in milliseconds.
    double ReadLength(std::string_view text) const {
        if (text.ends_with("ms")) return Number(text.substr(0, text.size() - 2), 1, 60000) * tempo / 60000.0;
        double factor = 1.0;
        if (text.ends_with('.') || text.ends_with('t')) {
            factor = text.back() == '.' ? 1.5 : 2.0 / 3.0;
            text.remove_suffix(1);
        }
        return 4.0 / Number(text, 1, 128) * factor;
    }

    /// Bars are separated by '|' and divided evenly among their characters: x hit, X hard hit, o soft hit, . and -
    /// rest.
    void ReadGrid(const Words& words) {
        Phrase& phrase = *phrasePtr;
        std::string grid;
        for (const std::string_view word : words) grid += word;
        for (const std::string_view bar : Split(grid, "|")) {
            const double step = meter / static_cast<double>(bar.size());
            for (const char mark : bar) {
                if (mark == 'x' || mark == 'X' || mark == 'o') {
                    const double gain = mark == 'X' ? accent : mark == 'o' ? ghost : 1.0;
                    phrase.events.push_back({phrase.beats, step, 60.0, 60.0, gain});
                } else if (mark != '.' && mark != '-') {
                    Fail(Quoted({&mark, 1}) + " is not one of x X o . -");
                }
                phrase.beats += step;
            }
        }
        phrase.hasBars = true;
    }

    // ---- sections and the order they are played in ----

    void BeginSection(const Words& words) {
        constexpr std::string_view form = "section NAME [bars COUNT] [tempo NUMBER]";
        if (words.size() % 2 != 0) Fail("expected: " + std::string(form));
        const auto [place, isNew] = sections.emplace(words[1], Section{});
        if (!isNew) Fail("a second section named " + Quoted(words[1]));
        sectionPtr = &place->second;
        sectionPtr->tempo = tempo;
        sectionBars = 0.0;
        for (std::size_t i = 2; i < words.size(); i += 2) {
            if (words[i] == "bars") {
                sectionBars = Number(words[i + 1], 1, 1000);
            } else if (words[i] == "tempo") {
                sectionPtr->tempo = Number(words[i + 1], 20, 400);
            } else {
                Fail("expected: " + std::string(form));
            }
        }
        sectionPtr->beats = sectionBars * meter;
        bodyReader = &Reader::ReadPart;
    }

    /// TRACK: PHRASE[*COUNT][+SEMITONES|-SEMITONES][@DECIBELS] ..., the changes in any order.
    void ReadPart(const Words& words) {
        if (!words[0].ends_with(':')) Fail("expected: TRACK: PHRASE ...");
        const std::string_view name = words[0].substr(0, words[0].size() - 1);
        const int track = Find(trackIndices, name, "track");
        std::vector<Use>& uses = sectionPtr->parts[track];
        if (!uses.empty()) Fail("the track " + Quoted(name) + " already plays in this section");
        double beats = 0.0;
        for (std::size_t i = 1; i < words.size(); ++i) beats += ReadUseOfPhrase(words[i], uses);
        if (sectionBars == 0.0) {
            sectionPtr->beats = std::max(sectionPtr->beats, beats);
        } else if (std::abs(beats - sectionPtr->beats) > 1e-6) {
            Fail(Quoted(name) + " plays " + Short(beats / meter) + " bars instead of " + Short(sectionBars));
        }
    }

    double ReadUseOfPhrase(std::string_view word, std::vector<Use>& uses) {
        constexpr std::string_view signs = "*+-@";
        std::size_t at = std::min(word.find_first_of(signs), word.size());
        const std::string_view name = word.substr(0, at);
        Use use;
        double count = 1.0;
        while (at < word.size()) {
            const char sign = word[at];
            // the search starts two characters on: the number after an '@' may have a sign
            const std::size_t end = std::min(word.find_first_of(signs, at + 2), word.size());
            const std::string_view digits = word.substr(at + 1, end - at - 1);
            switch (sign) {
            case '*': count = Number(digits, 1, 1000); break;
            case '@': use.gain = FromDecibels(Number(digits, -60, 24)); break;
            default: use.transpose = Number(digits, 0, 48) * (sign == '-' ? -1.0 : 1.0); break;
            }
            at = end;
        }
        if (name == "rest") {
            use.beats = meter;
        } else {
            const Phrase& phrase = Find(phrases, name, "phrase");
            if (phrase.hasBars && phrase.beats - phrase.barBeats > 1e-6 && phrase.barBeats > 0.0) {
                Fail("the last bar of " + Quoted(name) + " is not closed by '|'");
            }
            use.phrasePtr = &phrase;
            use.beats = phrase.beats;
        }
        for (int i = 0; i < static_cast<int>(count); ++i) uses.push_back(use);
        return use.beats * static_cast<int>(count);
    }

    /// The beat at which a note sounds when the first of each pair of short notes is held longer.
    double Swung(double beat) const {
        const double pair = 2.0 * swingUnit;
        const double from = std::floor(beat / pair) * pair;
        const double within = (beat - from) / pair;
        const double moved =
            within < 0.5 ? within * 2.0 * swingShare : swingShare + (within - 0.5) * 2.0 * (1.0 - swingShare);
        return from + moved * pair;
    }

    void Play(const Words& words) {
        if (words.size() < 2) Fail("expected: order SECTION ...");
        for (std::size_t i = 1; i < words.size(); ++i) {
            const Section& section = Find(sections, words[i], "section");
            const double beatSeconds = 60.0 / section.tempo;
            if (playedSeconds + section.beats * beatSeconds > longestSeconds) {
                Fail("the score lasts longer than 15 minutes");
            }
            for (const auto& [track, uses] : section.parts) {
                double beat = 0.0;
                for (const Use& use : uses) {
                    PlayUse(use, beat, beatSeconds, track);
                    beat += use.beats;
                }
            }
            playedSeconds += section.beats * beatSeconds;
        }
    }

    void PlayUse(const Use& use, double beat, double beatSeconds, int track) {
        if (use.phrasePtr == nullptr) return;
        const double gate = score.tracks[static_cast<std::size_t>(track)].gate;
        for (const Event& event : use.phrasePtr->events) {
            const double start = Swung(beat + event.start) * beatSeconds;
            const double end = Swung(beat + event.start + event.length) * beatSeconds;
            score.notes.push_back({playedSeconds + start, (end - start) * gate, event.pitch + use.transpose,
                                   event.glideFrom + use.transpose, event.gain * use.gain, track});
        }
    }

    Score score;
    std::filesystem::path file;
    int line = 0;
    int useDepth = 0;
    Order bodyReader = nullptr; // reads indented lines

    double tempo = 120.0; // quarters a minute
    double meter = 4.0;   // beats in a bar
    double swingUnit = 0.25;
    double swingShare = 0.5;
    double playedSeconds = 0.0;

    std::map<std::string, Patch> patches;
    std::map<std::string, int> trackIndices;
    std::map<std::string, Phrase> phrases; // a map: sections keep pointers into it
    std::map<std::string, Section> sections;
    Patch* patchPtr = nullptr;
    Phrase* phrasePtr = nullptr;
    Section* sectionPtr = nullptr;
    double sectionBars = 0.0; // 0: the length of its longest part
};

} // namespace

Score ReadScore(const std::filesystem::path& path) { return Reader().Read(path); }

} // namespace synth
