#pragma once

#include "platform/ScriptedDesktop.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// A scripted desktop in use for the length of a test.
class DesktopInUse {
public:
    DesktopInUse() {
        auto ownedPtr = std::make_unique<platform::ScriptedDesktop>();
        desktopPtr = ownedPtr.get();
        platform::Desktop::Use(std::move(ownedPtr));
    }
    ~DesktopInUse() { platform::Desktop::Use(nullptr); }
    DesktopInUse(DesktopInUse const&) = delete;
    DesktopInUse& operator=(DesktopInUse const&) = delete;

    platform::ScriptedDesktop* operator->() const { return desktopPtr; }

    /// Ends the frame and delivers what is due before the next one.
    void EndFrame() {
        desktopPtr->Present(nullptr, {}, true);
        platform::Message message;
        while (desktopPtr->PeekMessage(message)) desktopPtr->DispatchMessage(message);
    }

    /// The media commands since the last call.
    std::vector<std::wstring> TakeCommands() {
        std::vector<std::wstring> texts;
        for (auto const& command : std::exchange(desktopPtr->mediaCommands, {})) texts.push_back(command.text);
        return texts;
    }

private:
    platform::ScriptedDesktop* desktopPtr;
};
