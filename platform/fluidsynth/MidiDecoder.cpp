#include "platform/fluidsynth/MidiDecoder.h"

#include "platform/core/media/MidiLength.h"

#include <SDL.h>
#include <fluidsynth.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>
#include <vector>

namespace platform {

namespace {
constexpr int synthSamplesPerSecond = 44100;

/// The functions of the synthesiser's library, which is loaded when it is first asked for and then stays.
class SynthLibrary {
public:
    /// Null if the system has none.
    static const SynthLibrary* Get() {
        static const SynthLibrary library;
        return library.isComplete ? &library : nullptr;
    }

    decltype(&::new_fluid_settings) newSettings = nullptr;
    decltype(&::delete_fluid_settings) deleteSettings = nullptr;
    decltype(&::fluid_settings_setnum) setNumber = nullptr;
    decltype(&::fluid_settings_setstr) setText = nullptr;
    decltype(&::new_fluid_synth) newSynth = nullptr;
    decltype(&::delete_fluid_synth) deleteSynth = nullptr;
    decltype(&::fluid_synth_sfload) loadFont = nullptr;
    decltype(&::fluid_synth_write_s16) write = nullptr;
    decltype(&::new_fluid_player) newPlayer = nullptr;
    decltype(&::delete_fluid_player) deletePlayer = nullptr;
    decltype(&::fluid_player_add) addFile = nullptr;
    decltype(&::fluid_player_play) play = nullptr;
    decltype(&::fluid_set_log_function) setLog = nullptr;

private:
    SynthLibrary() {
        void* libraryPtr = nullptr;
        for (const char* name :
             {"libfluidsynth.so.3", "libfluidsynth.so.2", "libfluidsynth-3.dll", "libfluidsynth.dylib"}) {
            libraryPtr = SDL_LoadObject(name);
            if (libraryPtr != nullptr) break;
        }
        if (libraryPtr == nullptr) return;
        isComplete = true;
        const auto load = [this, libraryPtr](auto& function, const char* name) {
            function =
                reinterpret_cast<std::remove_reference_t<decltype(function)>>(SDL_LoadFunction(libraryPtr, name));
            isComplete = isComplete && function != nullptr;
        };
        load(newSettings, "new_fluid_settings");
        load(deleteSettings, "delete_fluid_settings");
        load(setNumber, "fluid_settings_setnum");
        load(setText, "fluid_settings_setstr");
        load(newSynth, "new_fluid_synth");
        load(deleteSynth, "delete_fluid_synth");
        load(loadFont, "fluid_synth_sfload");
        load(write, "fluid_synth_write_s16");
        load(newPlayer, "new_fluid_player");
        load(deletePlayer, "delete_fluid_player");
        load(addFile, "fluid_player_add");
        load(play, "fluid_player_play");
        load(setLog, "fluid_set_log_function");
        if (!isComplete) return;
        const fluid_log_function_t dropLine = [](int, const char*, void*) {};
        for (int level = FLUID_PANIC; level <= FLUID_DBG; ++level) setLog(level, dropLine, nullptr);
    }

    bool isComplete = false;
};

/// Where systems keep their default sound font.
std::string FindSoundFont() {
    for (const char* path : {"/usr/share/soundfonts/default.sf2", "/usr/share/sounds/sf2/default-GM.sf2",
                             "/usr/share/sounds/sf3/default-GM.sf3", "/usr/share/sounds/sf2/FluidR3_GM.sf2",
                             "/usr/share/soundfonts/FluidR3_GM.sf2", "/usr/share/sounds/sf2/TimGM6mb.sf2",
                             "/usr/local/share/soundfonts/default.sf2", "/opt/homebrew/share/soundfonts/default.sf2",
                             "C:/soundfonts/default.sf2"}) {
        std::error_code error;
        if (std::filesystem::is_regular_file(path, error)) return path;
    }
    return {};
}

class MidiDecoder : public SoundDecoder {
public:
    MidiDecoder(const SynthLibrary& synthLibrary, std::string filePath, std::int64_t length)
        : library(synthLibrary), path(std::move(filePath)), frameCount(length) {}
    ~MidiDecoder() override { Close(); }

    bool Open() {
        Close();
        position = 0;
        settingsPtr = library.newSettings();
        library.setNumber(settingsPtr, "synth.sample-rate", synthSamplesPerSecond);
        library.setText(settingsPtr, "player.timing-source", "sample");
        synthPtr = library.newSynth(settingsPtr);
        if (synthPtr == nullptr || library.loadFont(synthPtr, FindSoundFont().c_str(), 1) < 0) return false;
        playerPtr = library.newPlayer(synthPtr);
        return playerPtr != nullptr && library.addFile(playerPtr, path.c_str()) == FLUID_OK &&
               library.play(playerPtr) == FLUID_OK;
    }

    int SamplesPerSecond() const override { return synthSamplesPerSecond; }
    std::int64_t FrameCount() const override { return frameCount; }

    std::size_t Read(std::span<std::int16_t> samples) override {
        const auto wanted = std::min(static_cast<std::int64_t>(samples.size() / 2), frameCount - position);
        if (library.write(synthPtr, static_cast<int>(wanted), samples.data(), 0, 2, samples.data(), 1, 2) != FLUID_OK) {
            return 0;
        }
        position += wanted;
        return static_cast<std::size_t>(wanted);
    }

    // Notes that sound at a place began before it, so everything up to there is played, unheard.
    bool Seek(std::int64_t frame) override {
        if (frame < position && !Open()) return false;
        std::array<std::int16_t, 2048> unheard;
        while (position < frame) {
            const auto step = std::min<std::int64_t>(frame - position, unheard.size() / 2);
            if (Read(std::span(unheard).first(static_cast<std::size_t>(step) * 2)) == 0) return false;
        }
        return true;
    }

private:
    void Close() {
        if (playerPtr != nullptr) library.deletePlayer(std::exchange(playerPtr, nullptr));
        if (synthPtr != nullptr) library.deleteSynth(std::exchange(synthPtr, nullptr));
        if (settingsPtr != nullptr) library.deleteSettings(std::exchange(settingsPtr, nullptr));
    }

    const SynthLibrary& library;
    std::string path;
    std::int64_t frameCount;
    std::int64_t position = 0;
    fluid_settings_t* settingsPtr = nullptr;
    fluid_synth_t* synthPtr = nullptr;
    fluid_player_t* playerPtr = nullptr;
};
} // namespace

std::unique_ptr<SoundDecoder> OpenMidi(const std::string& path) {
    const int length = MidiLength(path);
    if (length <= 0 || FindSoundFont().empty()) return nullptr;
    const SynthLibrary* const libraryPtr = SynthLibrary::Get();
    if (libraryPtr == nullptr) return nullptr;
    const std::int64_t frameCount = std::int64_t{length} * synthSamplesPerSecond / 1000;
    auto decoderPtr = std::make_unique<MidiDecoder>(*libraryPtr, path, frameCount);
    if (!decoderPtr->Open()) return nullptr;
    return decoderPtr;
}

} // namespace platform
