#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace synth {

/// A value that changes along straight lines between points; constant before the first and after the last.
struct Curve {
    struct Point {
        double second = 0.0;
        double value = 0.0;
    };
    std::vector<Point> points;

    bool IsSet() const { return !points.empty(); }
    /// The value at `second`; 0 without points.
    double At(double second) const;
};

enum class Wave { pulse, triangle, saw, sine, noise, grit };

/// How one kind of note sounds. Times are in seconds, pitches in semitones.
struct Patch {
    Wave wave = Wave::pulse;
    Curve width; // of a pulse, 0 to 1; a square when unset
    double attack = 0.005;
    double decay = 0.1;
    double sustain = 0.7; // share of the peak that a held note keeps
    double release = 0.05;
    double vibratoRate = 0.0;  // Hz
    double vibratoDepth = 0.0; // semitones to either side
    double vibratoDelay = 0.0;
    double tremoloRate = 0.0;    // Hz
    double tremoloDepth = 0.0;   // share of the level
    Curve pitch;                 // added to the note
    Curve lowpass;               // Hz; off when unset
    Curve highpass;              // Hz; off when unset
    double modulatorRatio = 0.0; // frequency of the modulating sine, as a multiple of the note's
    Curve modulation;            // its depth in radians
    double detune = 0.0;         // semitones between the two voices of a note; one voice at 0
    double drive = 0.0;          // 0 is clean; more bends the wave towards a square
    double gain = 1.0;
};

/// One player: its instruments and its place in the stereo image.
struct Track {
    std::string name;
    std::vector<Patch> patches; // every note is played on all of them
    double gain = 1.0;
    double pan = 0.0;      // -1 left to 1 right
    double gate = 0.92;    // share of its written length that a note is held
    double echoTime = 0.0; // seconds between repeats; no echo at 0
    double echoLevel = 0.0;
    double echoFeedback = 0.0;
    double echoPan = 0.0;
    double room = 0.0; // share sent to the hall
};

/// A note with its final place in time.
struct Note {
    double start = 0.0;      // seconds
    double length = 0.0;     // seconds from attack to release
    double pitch = 69.0;     // semitones, 69 is the A of 440 Hz
    double glideFrom = 69.0; // where a slide begins; equal to `pitch` without one
    double gain = 1.0;
    int track = 0;
};

/// A score ready to be played.
struct Score {
    std::vector<Track> tracks;
    std::vector<Note> notes;
    double length = 0.0;   // seconds, tail included
    double tail = 0.0;     // seconds at the end over which everything fades
    double hall = 1.2;     // seconds until the hall has faded by 60 dB
    double peak = -3.0;    // dBFS, never exceeded
    double loudness = 0.0; // LUFS; 0 means as loud as `peak` allows without limiting
    double quality = 0.6;  // of the encoder: 0 best, 1 smallest
};

/// The factor that changes a level by `decibels`.
double FromDecibels(double decibels);

/// What is wrong with a score, as "file:line: what".
class ScoreError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace synth
