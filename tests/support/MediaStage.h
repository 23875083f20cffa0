#pragma once

#include "platform/Media.h"
#include "tests/support/Stage.h"
#include "tests/support/TestSounds.h"

#include <initializer_list>
#include <variant>

/// A player with a tone of 440 Hz at half of full scale open as "short" (0.5 s, one channel) and "long" (6 s).
template <class Player>
class MediaStage : public testing::Test {
protected:
    explicit MediaStage(std::unique_ptr<Player> (*make)(platform::Desktop&)) : mediaPtr(make(*stage)) {
        folder.Write("short.wav", ToneWav(440, 0.5, 500, 1));
        folder.Write("long.wav", ToneWav(440, 0.5, 6000, 2, 48000));
        platform::Window description;
        description.className = L"STATIC";
        description.userData = &notices;
        description.procedure = [](HWND window, UINT message, WPARAM wParam, LPARAM) -> LRESULT {
            const bool isNotice = message == MM_MCINOTIFY && wParam == MCI_NOTIFY_SUCCESSFUL;
            if (isNotice) ++*static_cast<int*>(window->userData);
            return 0;
        };
        windowPtr = stage->CreateWindow(description);
        Open("short.wav", L"short");
        Open("long.wav", L"long");
    }

    void Send(const std::wstring& command, DWORD result = platform::mediaDone) {
        EXPECT_EQ(mediaPtr->Send(command, nullptr, windowPtr), result) << std::string(command.begin(), command.end());
    }
    void Open(std::string_view name, const std::wstring& alias, DWORD result = platform::mediaDone,
              const std::wstring& type = L"waveaudio") {
        Send(L"open \"" + folder.Path(name) + L"\" type " + type + L" alias " + alias, result);
    }
    std::wstring Length(const std::wstring& alias) {
        std::wstring reply;
        mediaPtr->Send(L"status " + alias + L" length", &reply, nullptr);
        return reply;
    }
    /// The notices that have come so far.
    int Notices() {
        platform::Message message;
        while (stage->PeekMessage(message)) stage->DispatchMessage(message);
        return notices;
    }
    void RunTo(int frame) {
        while (stage->Frame() < frame) {
            stage->Present(nullptr, {}, true);
            mediaPtr->Update();
        }
    }
    /// Sends the texts; a number runs to the start of that frame.
    void Do(std::initializer_list<std::variant<std::wstring, int>> steps) {
        for (const auto& step : steps) {
            if (const int* const framePtr = std::get_if<int>(&step)) {
                RunTo(*framePtr);
            } else {
                Send(std::get<std::wstring>(step));
            }
        }
    }
    /// The first frame from now on with a notice before it; -1 if none comes within two seconds.
    int FrameOfNotice() {
        const int before = Notices();
        for (const int last = stage->Frame() + 120; stage->Frame() < last;) {
            RunTo(stage->Frame() + 1);
            if (Notices() > before) return stage->Frame();
        }
        return -1;
    }

    TestFolder folder;
    Stage stage;
    std::unique_ptr<Player> mediaPtr;
    HWND windowPtr = nullptr;
    int notices = 0;
};
