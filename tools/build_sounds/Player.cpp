#include "tools/build_sounds/Player.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace synth {

namespace {

constexpr double samplePeriod = 1.0 / samplesPerSecond;
constexpr double glideSeconds = 0.06;
constexpr std::size_t modulationInterval = 32; // samples between updates of the slow curves: too short to be heard
constexpr double gritPerCycle = 8.0;           // new values of the held noise in one cycle of its note

/// Our own generator: those of the standard library may differ between platforms.
class Noise {
public:
    explicit Noise(std::uint32_t seed) : state(seed * 2654435761U | 1U) {}
    /// -1 to 1.
    double Next() {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return static_cast<double>(state) / 2147483647.5 - 1.0;
    }

private:
    std::uint32_t state;
};

/// Smooths a step in a wave over one sample on either side, which reduces aliasing.
double SmoothStep(double phase, double step) {
    if (phase < step) {
        const double t = phase / step;
        return t + t - t * t - 1.0;
    }
    if (phase > 1.0 - step) {
        const double t = (phase - 1.0) / step;
        return t * t + t + t + 1.0;
    }
    return 0.0;
}

class Oscillator {
public:
    Oscillator(const Patch& played, std::uint32_t seed) : patch(played), noise(seed), held(noise.Next()) {}

    /// The next sample; `step` is the note's frequency in cycles a sample.
    double Next(double step, double width, double modulation) {
        double value = 0.0;
        switch (patch.wave) {
        case Wave::pulse: {
            const double fallPhase = phase < width ? phase + 1.0 - width : phase - width;
            value = (phase < width ? 1.0 : -1.0) + SmoothStep(phase, step) - SmoothStep(fallPhase, step);
            value -= 2.0 * width - 1.0; // a narrow pulse would have an offset
            break;
        }
        case Wave::saw: value = 2.0 * phase - 1.0 - SmoothStep(phase, step); break;
        case Wave::triangle: value = 1.0 - 4.0 * std::abs(Wrapped(phase + 0.25) - 0.5); break;
        case Wave::sine:
            value = std::sin(2.0 * std::numbers::pi * phase +
                             modulation * std::sin(2.0 * std::numbers::pi * modulatorPhase));
            break;
        case Wave::noise: value = noise.Next(); break;
        case Wave::grit: value = held; break;
        }
        phase = Wrapped(phase + step);
        modulatorPhase = Wrapped(modulatorPhase + step * patch.modulatorRatio);
        heldPhase += step * gritPerCycle;
        if (heldPhase >= 1.0) {
            heldPhase = Wrapped(heldPhase);
            held = noise.Next();
        }
        return value;
    }

private:
    static double Wrapped(double value) { return value - std::floor(value); }

    const Patch& patch;
    Noise noise;
    double held;
    double phase = 0.0;
    double modulatorPhase = 0.0;
    double heldPhase = 0.0;
};

/// A state-variable filter of second order without resonance.
class Filter {
public:
    void Tune(double frequency) {
        g = std::tan(std::numbers::pi * std::min(frequency * samplePeriod, 0.45));
        a = 1.0 / (1.0 + g * (g + damping));
    }
    double Low(double in) {
        Advance(in);
        return low;
    }
    double High(double in) {
        Advance(in);
        return in - damping * band - low;
    }

private:
    void Advance(double in) {
        const double v = a * (bandState + g * (in - lowState));
        band = v;
        low = lowState + g * v;
        bandState = 2.0 * band - bandState;
        lowState = 2.0 * low - lowState;
    }

    static constexpr double damping = std::numbers::sqrt2;
    double g = 0.0;
    double a = 1.0;
    double band = 0.0;
    double low = 0.0;
    double bandState = 0.0;
    double lowState = 0.0;
};

/// The level of a held note at `second`. It falls fast at first, like the sound of a struck string.
double HeldLevel(const Patch& patch, double second) {
    if (second < patch.attack) return second / patch.attack;
    const double decayed = patch.decay > 0.0 ? std::min((second - patch.attack) / patch.decay, 1.0) : 1.0;
    return patch.sustain + (1.0 - patch.sustain) * std::pow(1.0 - decayed, 3.0);
}

double Level(const Patch& patch, double second, double held) {
    if (second < held) return HeldLevel(patch, second);
    const double released = std::min((second - held) / patch.release, 1.0);
    return HeldLevel(patch, held) * std::pow(1.0 - released, 3.0);
}

double Bent(double value, double drive) { return drive > 0.0 ? std::tanh(value * (1.0 + drive)) : value; }

void AddVoice(std::vector<float>& out, const Patch& patch, const Note& note, double detune, std::uint32_t seed) {
    Oscillator oscillator(patch, seed);
    Filter lowpass;
    Filter highpass;
    double step = 0.0;
    double width = 0.5;
    double modulation = 0.0;
    double level = 0.0;
    double levelStep = 0.0;
    for (std::size_t i = 0; i < out.size(); ++i) {
        if (i % modulationInterval == 0) {
            const double second = static_cast<double>(i) * samplePeriod;
            double pitch = note.pitch + detune + patch.pitch.At(second);
            const double glide = std::min(second / glideSeconds, 1.0);
            pitch += (note.glideFrom - note.pitch) * (1.0 - glide);
            // after its delay it grows for as long again, as a singer's vibrato does
            const double wavering = std::clamp((second - patch.vibratoDelay) / (patch.vibratoDelay + 0.01), 0.0, 1.0);
            const double turn = 2.0 * std::numbers::pi * second;
            pitch += patch.vibratoDepth * wavering * std::sin(turn * patch.vibratoRate);
            step = std::min(440.0 * std::exp2((pitch - 69.0) / 12.0) * samplePeriod, 0.45);
            if (patch.width.IsSet()) width = patch.width.At(second);
            modulation = patch.modulation.At(second);
            if (patch.lowpass.IsSet()) lowpass.Tune(patch.lowpass.At(second));
            if (patch.highpass.IsSet()) highpass.Tune(patch.highpass.At(second));
            const auto levelAt = [&](double at) {
                const double tremolo = 0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * at * patch.tremoloRate);
                return Level(patch, at, note.length) * (1.0 - patch.tremoloDepth * tremolo);
            };
            level = levelAt(second);
            levelStep = (levelAt(second + modulationInterval * samplePeriod) - level) / modulationInterval;
        }
        double value = oscillator.Next(step, width, modulation);
        if (patch.lowpass.IsSet()) value = lowpass.Low(value);
        if (patch.highpass.IsSet()) value = highpass.High(value);
        out[i] += static_cast<float>(Bent(value, patch.drive) * level);
        level += levelStep;
    }
}

/// Adds `from` to `to`, `delay` samples later.
void AddDelayed(std::vector<float>& to, const std::vector<float>& from, std::size_t delay, double gain) {
    const std::size_t count = delay < to.size() ? std::min(from.size(), to.size() - delay) : 0;
    for (std::size_t i = 0; i < count; ++i) to[delay + i] += static_cast<float>(from[i] * gain);
}

/// Pans with equal power, so that a sound is equally loud at the side and in the middle.
void AddPanned(Stereo& to, const std::vector<float>& from, std::size_t delay, double gain, double pan) {
    const double angle = (pan + 1.0) * std::numbers::pi / 4.0;
    AddDelayed(to.left, from, delay, gain * std::cos(angle) * std::numbers::sqrt2);
    AddDelayed(to.right, from, delay, gain * std::sin(angle) * std::numbers::sqrt2);
}

/// A hall: eight delay lines of unrelated lengths feed each other through a mixing step that keeps their power.
class Hall {
public:
    explicit Hall(double seconds) {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            lines[i].resize(lengths[i]);
            feedback[i] = std::pow(10.0, -3.0 * lengths[i] * samplePeriod / seconds);
        }
    }

    void Play(const std::vector<float>& in, Stereo& out) {
        for (std::size_t n = 0; n < in.size(); ++n) {
            std::array<double, count> heard{};
            double sum = 0.0;
            for (std::size_t i = 0; i < count; ++i) {
                const double value = lines[i][n % lengths[i]];
                dull[i] += (value - dull[i]) * brightness; // air and walls swallow the highs first
                heard[i] = dull[i] * feedback[i];
                sum += heard[i];
            }
            for (std::size_t i = 0; i < count; ++i) {
                lines[i][n % lengths[i]] = static_cast<float>(in[n] + heard[i] - sum * 2.0 / count);
                (i % 2 == 0 ? out.left : out.right)[n] += static_cast<float>(heard[i] * 0.5);
            }
        }
    }

private:
    static constexpr std::size_t count = 8;
    static constexpr double brightness = 0.45;
    static constexpr std::array<std::size_t, count> lengths = {1237, 1381, 1607, 1801, 1987, 2203, 2417, 2647};
    std::array<std::vector<float>, count> lines;
    std::array<double, count> feedback{};
    std::array<double, count> dull{};
};

} // namespace

std::vector<float> PlayNote(const Patch& patch, const Note& note, std::uint32_t seed) {
    std::vector<float> out(static_cast<std::size_t>((note.length + patch.release) * samplesPerSecond) + 1);
    if (patch.detune > 0.0) {
        AddVoice(out, patch, note, patch.detune / 2.0, seed);
        AddVoice(out, patch, note, -patch.detune / 2.0, seed + 7919);
    } else {
        AddVoice(out, patch, note, 0.0, seed);
    }
    const double gain = patch.gain * note.gain * (patch.detune > 0.0 ? std::numbers::sqrt2 / 2.0 : 1.0);
    for (float& value : out) value = static_cast<float>(value * gain);
    return out;
}

Stereo PlayScore(const Score& score) {
    const auto size = static_cast<std::size_t>(score.length * samplesPerSecond);
    Stereo mix{std::vector<float>(size), std::vector<float>(size)};
    std::vector<float> toHall(size);
    std::uint32_t seed = 1;
    for (std::size_t index = 0; index < score.tracks.size(); ++index) {
        const Track& track = score.tracks[index];
        std::vector<float> dry(size);
        for (const Note& note : score.notes) {
            if (static_cast<std::size_t>(note.track) != index) continue;
            const auto start = static_cast<std::size_t>(note.start * samplesPerSecond);
            for (const Patch& patch : track.patches) AddDelayed(dry, PlayNote(patch, note, seed++), start, track.gain);
        }
        AddPanned(mix, dry, 0, 1.0, track.pan);
        AddDelayed(toHall, dry, 0, track.room);
        double level = track.echoLevel;
        double pan = track.echoPan;
        const auto delay = static_cast<std::size_t>(track.echoTime * samplesPerSecond);
        for (std::size_t at = delay; delay > 0 && level > 0.01; at += delay) {
            AddPanned(mix, dry, at, level, pan);
            AddDelayed(toHall, dry, at, level * track.room);
            level *= track.echoFeedback;
            pan = -pan;
        }
    }
    Hall(score.hall).Play(toHall, mix);
    return mix;
}

} // namespace synth
