#include "tools/build_sounds/Mastering.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <numbers>
#include <numeric>
#include <utility>

namespace synth {

namespace {

constexpr double lookAheadSeconds = 0.005;
constexpr double recoverySeconds = 0.12;

double FromDecibels(double decibels) { return std::pow(10.0, decibels / 20.0); }

/// A filter of second order, direct form.
struct Biquad {
    double b0, b1, b2, a1, a2;
    double x1 = 0.0, x2 = 0.0, y1 = 0.0, y2 = 0.0;
    double Next(double x) {
        const double y = b0 * x + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2;
        x2 = std::exchange(x1, x);
        y2 = std::exchange(y1, y);
        return y;
    }
};

/// The two filters of the standard, which weigh a sound as a head and an ear do; from their analogue parameters, since
/// the standard's table holds for 48 kHz only.
Biquad HeadFilter() {
    const double k = std::tan(std::numbers::pi * 1681.974450955533 / samplesPerSecond);
    const double q = 0.7071752369554196;
    const double high = std::pow(10.0, 3.999843853973347 / 20.0);
    const double band = std::pow(high, 0.4996667741545416);
    const double a0 = 1.0 + k / q + k * k;
    return {(high + band * k / q + k * k) / a0, 2.0 * (k * k - high) / a0, (high - band * k / q + k * k) / a0,
            2.0 * (k * k - 1.0) / a0, (1.0 - k / q + k * k) / a0};
}

Biquad LowCutFilter(double frequency, double q) {
    const double k = std::tan(std::numbers::pi * frequency / samplesPerSecond);
    const double a0 = 1.0 + k / q + k * k;
    return {1.0 / a0, -2.0 / a0, 1.0 / a0, 2.0 * (k * k - 1.0) / a0, (1.0 - k / q + k * k) / a0};
}

double ToLoudness(double power) { return -0.691 + 10.0 * std::log10(std::max(power, 1e-12)); }

/// Mean power of the blocks louder than `gate` LUFS.
double GatedPower(const std::vector<double>& blocks, double gate) {
    double sum = 0.0;
    int count = 0;
    for (const double power : blocks) {
        if (ToLoudness(power) <= gate) continue;
        sum += power;
        ++count;
    }
    return count > 0 ? sum / count : 0.0;
}

void CutRumble(std::vector<float>& channel) {
    Biquad filter = LowCutFilter(28.0, std::numbers::sqrt2 / 2.0);
    for (float& value : channel) value = static_cast<float>(filter.Next(value));
}

void Amplify(Stereo& sound, double gain) {
    for (std::vector<float>* channelPtr : {&sound.left, &sound.right}) {
        for (float& value : *channelPtr) value = static_cast<float>(value * gain);
    }
}

double FindPeak(const Stereo& sound) {
    double peak = 0.0;
    for (const std::vector<float>* channelPtr : {&sound.left, &sound.right}) {
        for (const float value : *channelPtr) peak = std::max(peak, std::abs(static_cast<double>(value)));
    }
    return peak;
}

/// Turns the sound down around its peaks so that none exceeds `ceiling`. It looks ahead, so nothing is cut off square.
void Limit(Stereo& sound, double ceiling) {
    const std::size_t size = sound.left.size();
    const auto window = static_cast<std::size_t>(lookAheadSeconds * samplesPerSecond);
    const double recovery = 1.0 - std::exp(-1.0 / (recoverySeconds * samplesPerSecond));
    std::vector<double> wanted(size + window, 1.0);
    for (std::size_t i = 0; i < size; ++i) {
        const double peak = std::max(std::abs(sound.left[i]), std::abs(sound.right[i]));
        if (peak > ceiling) wanted[i] = ceiling / peak;
    }
    std::deque<std::size_t> lowest; // indices of rising gains: the front is the lowest of the window ahead
    std::deque<double> recent(window, 1.0);
    double gain = 1.0;
    double sum = static_cast<double>(window);
    for (std::size_t i = 0; i < size + window; ++i) {
        while (!lowest.empty() && wanted[lowest.back()] >= wanted[i]) lowest.pop_back();
        lowest.push_back(i);
        if (lowest.front() + window <= i) lowest.pop_front();
        // down at once, up slowly; the mean over the window then makes the way down a slope that ends in time
        const double target = wanted[lowest.front()];
        gain = target < gain ? target : gain + (target - gain) * recovery;
        recent.push_back(gain);
        sum += gain - recent.front();
        recent.pop_front();
        if (i + 1 < window) continue;
        const std::size_t at = i + 1 - window;
        if (at >= size) break;
        sound.left[at] = static_cast<float>(sound.left[at] * sum / static_cast<double>(window));
        sound.right[at] = static_cast<float>(sound.right[at] * sum / static_cast<double>(window));
    }
}

} // namespace

double MeasureLoudness(const Stereo& sound) {
    // blocks of 0.4 s that overlap by three quarters, built from quarters
    const auto quarter = static_cast<std::size_t>(samplesPerSecond / 10);
    std::vector<double> quarters(sound.left.size() / quarter);
    for (const std::vector<float>* channelPtr : {&sound.left, &sound.right}) {
        Biquad head = HeadFilter();
        Biquad lowCut = LowCutFilter(38.13547087602444, 0.5003270373238773);
        for (std::size_t i = 0; i < quarters.size() * quarter; ++i) {
            const double value = lowCut.Next(head.Next((*channelPtr)[i]));
            quarters[i / quarter] += value * value / static_cast<double>(quarter);
        }
    }
    std::vector<double> blocks;
    for (std::size_t i = 0; i + 4 <= quarters.size(); ++i) {
        const auto from = quarters.begin() + static_cast<std::ptrdiff_t>(i);
        blocks.push_back(std::accumulate(from, from + 4, 0.0) / 4.0);
    }
    const double gate = ToLoudness(GatedPower(blocks, -70.0)) - 10.0;
    return std::max(ToLoudness(GatedPower(blocks, std::max(gate, -70.0))), -70.0);
}

std::vector<std::int16_t> Master(Stereo sound, const Score& score) {
    const double ceiling = FromDecibels(score.peak);
    CutRumble(sound.left);
    CutRumble(sound.right);
    const std::size_t size = sound.left.size();
    const std::size_t tail = std::min(size, static_cast<std::size_t>(score.tail * samplesPerSecond));
    for (std::size_t i = size - tail; i < size; ++i) {
        const double left = static_cast<double>(size - 1 - i) / static_cast<double>(tail);
        const double fade = left * left;
        sound.left[i] = static_cast<float>(sound.left[i] * fade);
        sound.right[i] = static_cast<float>(sound.right[i] * fade);
    }
    if (score.loudness == 0.0) {
        Amplify(sound, ceiling / std::max(FindPeak(sound), 1e-9));
    } else {
        // the limiter takes a little loudness away, so the second round makes up for it
        for (int round = 0; round < 2; ++round) {
            Amplify(sound, FromDecibels(score.loudness - MeasureLoudness(sound)));
            Limit(sound, ceiling);
        }
    }
    std::vector<std::int16_t> samples;
    samples.reserve(2 * size);
    for (std::size_t i = 0; i < size; ++i) {
        for (const float value : {sound.left[i], sound.right[i]}) {
            samples.push_back(static_cast<std::int16_t>(std::lround(std::clamp(value, -1.0F, 1.0F) * 32767.0F)));
        }
    }
    return samples;
}

} // namespace synth
