#include "tools/build_sounds/Mastering.h"

#include <ebur128.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <memory>
#include <new>
#include <numbers>
#include <utility>

namespace synth {

namespace {

constexpr double lookAheadSeconds = 0.005;
constexpr double recoverySeconds = 0.12;

/// A high-pass of second order at 28 Hz: what is lower is felt rather than heard and takes room from the rest.
void CutRumble(std::vector<float>& channel) {
    const double k = std::tan(std::numbers::pi * 28.0 / samplesPerSecond);
    const double q = std::numbers::sqrt2 / 2.0;
    const double a0 = 1.0 + k / q + k * k;
    const double a1 = 2.0 * (k * k - 1.0) / a0;
    const double a2 = (1.0 - k / q + k * k) / a0;
    double x1 = 0.0, x2 = 0.0, y1 = 0.0, y2 = 0.0;
    for (float& value : channel) {
        const double x = value;
        const double y = 1.0 / a0 * x + -2.0 / a0 * x1 + 1.0 / a0 * x2 - a1 * y1 - a2 * y2;
        x2 = std::exchange(x1, x);
        y2 = std::exchange(y1, y);
        value = static_cast<float>(y);
    }
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

/// Turns the sound down around its peaks so that no peak exceeds `ceiling`. It looks ahead, so no peak is clipped.
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
        // down at once, up slowly; the mean over the window turns the step down into a slope that ends in time
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
    const auto destroy = [](ebur128_state* statePtr) { ebur128_destroy(&statePtr); };
    const std::unique_ptr<ebur128_state, decltype(destroy)> meterPtr(ebur128_init(2, samplesPerSecond, EBUR128_MODE_I));
    if (!meterPtr) throw std::bad_alloc();
    for (std::size_t i = 0; i < sound.left.size(); ++i) {
        const std::array<float, 2> frame = {sound.left[i], sound.right[i]};
        ebur128_add_frames_float(meterPtr.get(), frame.data(), 1);
    }
    double loudness = 0.0;
    ebur128_loudness_global(meterPtr.get(), &loudness);
    return std::max(loudness, -70.0);
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
