#include "engine/Audio.h"

#include "platform/Desktop.h"
#include "platform/FilePath.h"
#include "platform/Media.h"
#include "platform/Resources.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

/// A kind of sound file: its ending, its resource type and what the media interface calls it.
struct Audio::Format {
    wchar_t const* ending;
    wchar_t const* resourceType;
    wchar_t const* mediaType;

    static Format const* OfFile(String const& fileName) {
        constexpr int endingLength = 4;
        return Find([ending = fileName.SubStr(fileName.GetLength() - endingLength)](Format const& format) {
            return ending == format.ending;
        });
    }
    static Format const* OfResource(String const& type) {
        return Find([&type](Format const& format) { return type == format.resourceType; });
    }

private:
    template <typename Predicate>
    static Format const* Find(Predicate const& predicate) {
        static constexpr Format formats[] = {
            {L".mp3", L"MP3", L"mpegvideo"}, {L".wav", L"WAV", L"waveaudio"}, {L".mid", L"MID", L"sequencer"}};
        auto const position = std::find_if(std::begin(formats), std::end(formats), predicate);
        return position == std::end(formats) ? nullptr : position;
    }
};

Audio::Audio(String const& soundFileName) {
    Format const* const formatPtr = Format::OfFile(soundFileName);
    if (formatPtr == nullptr) return;
    TakeAlias();
    fileName = soundFileName;
    Create(*formatPtr);
}

Audio::Audio(int resourceID, String const& resourceType) {
    Format const* const formatPtr = Format::OfResource(resourceType);
    if (formatPtr == nullptr) return;
    TakeAlias();
    fileName = String(L"temp\\") + alias + formatPtr->ending;
    ExtractResource(resourceID, resourceType);
    Create(*formatPtr);
}

Audio::~Audio() {
    Stop();
    Send(String(L"close ") + alias);
    platform::Desktop::Current().DestroyWindow(notifyWindow);
}

void Audio::Play(int msecStart, int msecStop) {
    if (!playing) {
        playing = true;
        paused = false;
        String command = String(L"play ") + alias + L" from " + msecStart;
        if (msecStop != -1) command += String(L" to ") + msecStop;
        Queue(command + L" notify");
    } else if (paused) {
        paused = false;
        Queue(String(L"resume ") + alias);
    }
}

void Audio::Pause() {
    if (!playing || paused) return;
    paused = true;
    Queue(String(L"pause ") + alias);
}

void Audio::Stop() {
    if (!playing) return;
    playing = false;
    paused = false;
    Queue(String(L"stop ") + alias);
}

void Audio::SetVolume(int newVolume) {
    constexpr int mediaScale = 10; // the media interface counts to 1000
    volume = std::clamp(newVolume, 0, 100);
    Queue(String(L"setaudio ") + alias + L" volume to " + volume * mediaScale);
}

void Audio::Tick() {
    if (commandQueue.empty()) return;
    Send(commandQueue[sentCount++]);
    // The sent ones leave together once they are half of all, so a command costs the same however many wait.
    if (2 * sentCount < commandQueue.size()) return;
    commandQueue.erase(commandQueue.begin(), commandQueue.begin() + static_cast<std::ptrdiff_t>(sentCount));
    sentCount = 0;
}

LRESULT Audio::HandleNotification(HWND window, UINT message, WPARAM wParam, LPARAM) {
    bool const hasEnded = message == MM_MCINOTIFY && wParam == MCI_NOTIFY_SUCCESSFUL;
    if (hasEnded) static_cast<Audio*>(window->userData)->HandleEnd();
    return 0;
}

void Audio::TakeAlias() {
    static int nextNumber = 0;
    alias = String(L"audio") + nextNumber++;
}

void Audio::ExtractResource(int resourceID, String const& resourceType) const {
    // No step is checked: without the file, opening it fails.
    std::filesystem::path const path = platform::ToFilePath(fileName.C_str());
    std::error_code ignored;
    std::filesystem::create_directory(path.parent_path(), ignored);
    auto const bytes = platform::FindResource(resourceID, resourceType.ToUtf8());
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<char const*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

void Audio::Create(Format const& format) {
    DWORD const error = Send(String(L"open \"") + fileName + L"\" type " + format.mediaType + L" alias " + alias);
    if (error != platform::mediaDone) return;
    Send(String(L"set ") + alias + L" time format milliseconds");
    std::wstring reply;
    Send(String(L"status ") + alias + L" length", &reply);
    duration = String(reply.c_str()).ToInteger();
    constexpr std::size_t usualQueue = 4; // commands; so many are queued in a frame without an allocation
    commandQueue.reserve(usualQueue);

    platform::Window description;
    description.className = L"STATIC";
    description.procedure = HandleNotification;
    description.userData = this;
    notifyWindow = platform::Desktop::Current().CreateWindow(description);
}

void Audio::HandleEnd() {
    if (!playing) return; // it was stopped after the notification had been sent
    playing = false;
    paused = false;
    if (repeat) {
        Play(0, -1);
    } else {
        CallListeners();
    }
}

void Audio::Queue(String const& command) { commandQueue.push_back(command); }

DWORD Audio::Send(String const& command, std::wstring* replyPtr) const {
    std::wstring_view const text(command.C_str(), static_cast<std::size_t>(command.GetLength()));
    return platform::Desktop::Current().Media().Send(text, replyPtr, notifyWindow);
}
