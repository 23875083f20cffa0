#include "platform/openal/OpenAlSource.h"

#include <AL/al.h>
#include <AL/alext.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform {

namespace {
int Get(unsigned source, ALenum property) {
    ALint value = 0;
    alGetSourcei(source, property, &value);
    return value;
}

void Fill(unsigned buffer, std::span<const std::int16_t> samples, int samplesPerSecond) {
    alBufferData(buffer, AL_FORMAT_STEREO16, samples.data(), static_cast<ALsizei>(samples.size_bytes()),
                 samplesPerSecond);
}

std::int64_t ToFrames(double milliseconds, int samplesPerSecond) {
    return std::llround(milliseconds * samplesPerSecond / 1000.0);
}
} // namespace

OpenAlClip::OpenAlClip(SoundDecoder& decoder) : samplesPerSecond(decoder.SamplesPerSecond()) {
    std::vector<std::int16_t> samples(static_cast<std::size_t>(decoder.FrameCount()) * 2);
    samples.resize(decoder.Read(samples) * 2);
    alGenBuffers(1, &buffer);
    Fill(buffer, samples, samplesPerSecond);
}

OpenAlClip::~OpenAlClip() { alDeleteBuffers(1, &buffer); }

OpenAlSource::OpenAlSource() {
    alGetError();
    alGenSources(1, &source);
    if (alGetError() != AL_NO_ERROR) source = 0;
    // Sounds are heard as they were recorded, not from a place in a room.
    alSourcei(source, AL_SOURCE_RELATIVE, AL_TRUE);
    if (alIsExtensionPresent("AL_SOFT_direct_channels") != AL_FALSE) {
        alSourcei(source, AL_DIRECT_CHANNELS_SOFT, AL_TRUE);
    }
}

OpenAlSource::OpenAlSource(std::shared_ptr<const OpenAlClip> playedClipPtr, double from) : OpenAlSource() {
    if (source == 0) return;
    clipPtr = std::move(playedClipPtr);
    alSourcei(source, AL_BUFFER, static_cast<ALint>(clipPtr->buffer));
    alSourcei(source, AL_SAMPLE_OFFSET, static_cast<ALint>(ToFrames(from, clipPtr->samplesPerSecond)));
}

OpenAlSource::OpenAlSource(std::unique_ptr<SoundDecoder> playedDecoderPtr, double from, double to) : OpenAlSource() {
    const int samplesPerSecond = playedDecoderPtr->SamplesPerSecond();
    heardFrames = ToFrames(from, samplesPerSecond);
    framesLeft = ToFrames(to, samplesPerSecond) - heardFrames;
    if (source == 0 || (heardFrames > 0 && !playedDecoderPtr->Seek(heardFrames))) return;
    alGenBuffers(pieceCount, buffers.data());
    freeBuffers.assign(buffers.begin(), buffers.end());
    piece.resize(static_cast<std::size_t>(samplesPerSecond / piecesPerSecond) * 2);
    decoderPtr = std::move(playedDecoderPtr);
}

OpenAlSource::~OpenAlSource() {
    alSourceStop(source);
    alSourcei(source, AL_BUFFER, 0);
    if (source != 0) alDeleteSources(1, &source);
    if (buffers[0] != 0) alDeleteBuffers(pieceCount, buffers.data());
}

void OpenAlSource::SetGain(float gain) { alSourcef(source, AL_GAIN, gain); }

void OpenAlSource::Run(bool run) {
    if (!IsSet() || ended) return;
    if (decoderPtr) Refill();
    const int state = Get(source, AL_SOURCE_STATE);
    const bool nothingLeft = decoderPtr ? Get(source, AL_BUFFERS_QUEUED) == 0 : hasBegun && state == AL_STOPPED;
    if (nothingLeft) {
        ended = true;
    } else if (run && state != AL_PLAYING) {
        alSourcePlay(source); // also when it starved
        hasBegun = true;
    } else if (!run && state == AL_PLAYING) {
        alSourcePause(source);
    }
}

double OpenAlSource::Position() const {
    if (!IsSet()) return 0.0;
    const int samplesPerSecond = decoderPtr ? decoderPtr->SamplesPerSecond() : clipPtr->samplesPerSecond;
    const std::int64_t offset = Get(source, AL_SAMPLE_OFFSET);
    return static_cast<double>((decoderPtr ? heardFrames : 0) + offset) * 1000.0 / samplesPerSecond;
}

void OpenAlSource::Refill() {
    for (int processed = Get(source, AL_BUFFERS_PROCESSED); processed > 0; --processed) {
        ALuint buffer = 0;
        ALint bytes = 0;
        alSourceUnqueueBuffers(source, 1, &buffer);
        alGetBufferi(buffer, AL_SIZE, &bytes);
        heardFrames += bytes / static_cast<ALint>(2 * sizeof(std::int16_t));
        freeBuffers.push_back(buffer);
    }
    while (!freeBuffers.empty() && QueuePiece(freeBuffers.back())) freeBuffers.pop_back();
}

bool OpenAlSource::QueuePiece(unsigned buffer) {
    const auto wanted = std::min<std::int64_t>(framesLeft, static_cast<std::int64_t>(piece.size() / 2));
    if (wanted <= 0) return false;
    const std::span<std::int16_t> samples(piece.data(), static_cast<std::size_t>(wanted) * 2);
    const std::size_t frames = decoderPtr->Read(samples);
    const bool isLast = frames < static_cast<std::size_t>(wanted);
    framesLeft = isLast ? 0 : framesLeft - wanted;
    if (frames == 0) return false;
    Fill(buffer, samples.first(frames * 2), decoderPtr->SamplesPerSecond());
    alSourceQueueBuffers(source, 1, &buffer);
    return true;
}

} // namespace platform
