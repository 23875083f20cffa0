#include "tools/build_sounds/PatchReader.h"

#include <utility>

namespace synth {

namespace {

/// VALUE or VALUE@MILLISECONDS, from word `first` on, any number of them in order of time.
Curve ReadCurve(const ScoreFile& file, std::size_t first, double least, double most) {
    const auto& words = file.Words();
    if (words.size() <= first) file.Fail("expected: " + std::string(words[0]) + " VALUE@MILLISECONDS ...");
    Curve curve;
    for (std::size_t i = first; i < words.size(); ++i) {
        const std::vector<std::string_view> parts = Split(words[i], "@");
        if (parts.empty() || parts.size() > 2) file.Fail(Quoted(words[i]) + " is not VALUE@MILLISECONDS");
        const double second = parts.size() == 2 ? file.Number(parts[1], 0, 60000) / 1000.0 : 0.0;
        if (curve.IsSet() && second < curve.points.back().second) file.Fail("the points are not in order of time");
        curve.points.push_back({second, file.Number(parts[0], least, most)});
    }
    return curve;
}

} // namespace

PatchReader::PatchReader(const Rhythm& rhythm, std::vector<Track>& tracks) : rhythm(rhythm), tracks(tracks) {}

void PatchReader::BeginPatch(const ScoreFile& file) {
    const auto& words = file.Words();
    file.Expect(2, 4, "patch NAME [like OTHER]");
    Patch fresh;
    if (words.size() > 2) {
        file.Expect(words[2] == "like" ? 4 : 5, 4, "patch NAME [like OTHER]");
        fresh = file.Find(patches, words[3], "patch");
    }
    patchPtr = &(patches[std::string(words[1])] = fresh);
}

void PatchReader::ReadPatchLine(const ScoreFile& file) {
    const auto& words = file.Words();
    static const std::map<std::string_view, Wave> waves = {{"pulse", Wave::pulse}, {"triangle", Wave::triangle},
                                                           {"saw", Wave::saw},     {"sine", Wave::sine},
                                                           {"noise", Wave::noise}, {"grit", Wave::grit}};
    const std::string_view what = words[0];
    if (what == "wave") {
        file.Expect(2, 2, "wave NAME");
        const auto found = waves.find(words[1]);
        if (found == waves.end()) file.Fail("no wave named " + Quoted(words[1]));
        patchPtr->wave = found->second;
    } else if (what == "envelope") {
        file.Expect(5, 5, "envelope ATTACK DECAY SUSTAIN RELEASE, in milliseconds but for the sustain");
        patchPtr->attack = file.Number(words[1], 0, 60000) / 1000.0;
        patchPtr->decay = file.Number(words[2], 0, 60000) / 1000.0;
        patchPtr->sustain = file.Number(words[3], 0, 1);
        patchPtr->release = file.Number(words[4], 1, 60000) / 1000.0;
    } else if (what == "vibrato") {
        file.Expect(4, 4, "vibrato HERTZ CENTS DELAY-MILLISECONDS");
        patchPtr->vibratoRate = file.Number(words[1], 0, 100);
        patchPtr->vibratoDepth = file.Number(words[2], 0, 2400) / 100.0;
        patchPtr->vibratoDelay = file.Number(words[3], 0, 60000) / 1000.0;
    } else if (what == "tremolo") {
        file.Expect(3, 3, "tremolo HERTZ SHARE");
        patchPtr->tremoloRate = file.Number(words[1], 0, 100);
        patchPtr->tremoloDepth = file.Number(words[2], 0, 1);
    } else if (what == "modulate") {
        if (words.size() < 3) file.Fail("expected: modulate RATIO DEPTH@MILLISECONDS ...");
        patchPtr->modulatorRatio = file.Number(words[1], 0, 32);
        patchPtr->modulation = ReadCurve(file, 2, 0, 50);
    } else if (what == "width") {
        patchPtr->width = ReadCurve(file, 1, 0.02, 0.98);
    } else if (what == "pitch") {
        patchPtr->pitch = ReadCurve(file, 1, -96, 96);
    } else if (what == "lowpass") {
        patchPtr->lowpass = ReadCurve(file, 1, 20, 20000);
    } else if (what == "highpass") {
        patchPtr->highpass = ReadCurve(file, 1, 20, 20000);
    } else if (what == "detune") {
        patchPtr->detune = file.Single(0, 1200) / 100.0;
    } else if (what == "drive") {
        patchPtr->drive = file.Single(0, 50);
    } else if (what == "gain") {
        patchPtr->gain = FromDecibels(file.Single(-60, 24));
    } else {
        file.Fail("a patch has no " + Quoted(what));
    }
}

void PatchReader::BeginTrack(const ScoreFile& file) {
    const auto& words = file.Words();
    if (words.size() < 3) file.Fail("expected: track NAME PATCH ...");
    if (!trackIndices.emplace(words[1], static_cast<int>(tracks.size())).second) {
        file.Fail("a second track named " + Quoted(words[1]));
    }
    Track track;
    track.name = words[1];
    for (std::size_t i = 2; i < words.size(); ++i) track.patches.push_back(file.Find(patches, words[i], "patch"));
    tracks.push_back(std::move(track));
}

void PatchReader::ReadTrackLine(const ScoreFile& file) {
    const auto& words = file.Words();
    Track& track = tracks.back();
    const std::string_view what = words[0];
    if (what == "gain") {
        track.gain = FromDecibels(file.Single(-60, 24));
    } else if (what == "pan") {
        track.pan = file.Single(-1, 1);
    } else if (what == "gate") {
        track.gate = file.Single(0.05, 1);
    } else if (what == "room") {
        track.room = file.Single(0, 1);
    } else if (what == "echo") {
        file.Expect(5, 5, "echo BEATS LEVEL FEEDBACK PAN");
        track.echoTime = file.Number(words[1], 0.01, 16) * 60.0 / rhythm.tempo;
        track.echoLevel = file.Number(words[2], 0, 1);
        track.echoFeedback = file.Number(words[3], 0, 0.9);
        track.echoPan = file.Number(words[4], -1, 1);
    } else {
        file.Fail("a track has no " + Quoted(what));
    }
}

int PatchReader::FindTrack(const ScoreFile& file, std::string_view name) const {
    return file.Find(trackIndices, name, "track");
}

} // namespace synth
