#pragma once

#include "platform/Canvas.h"
#include "platform/ScriptedDesktop.h"
#include "platform/core/ThreadWorker.h"
#include "tests/support/ImageCompare.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

/// A scripted desktop that is in use for the length of a test. It keeps the frame shown last.
class Stage {
public:
    class Desktop : public platform::ScriptedDesktop {
    public:
        using ScriptedDesktop::ScriptedDesktop;

        platform::Picture shown;
        int framesShown = 0;
        bool lastWaited = false;
        bool canShow = true;
        bool keepsFrames = true;
        bool hasThreads = false; // for workers that are started from now on

        std::unique_ptr<platform::Worker> StartWorker(platform::Worker::Work work) override {
            if (hasThreads) return platform::ThreadWorker::Start(std::move(work));
            return ScriptedDesktop::StartWorker(std::move(work));
        }
        bool Present(HWND window, const platform::FrameView& frame, bool waitForBlank) override {
            if (keepsFrames && frame.pixels != nullptr) shown = Copied(frame);
            ++framesShown;
            lastWaited = waitForBlank;
            return ScriptedDesktop::Present(window, frame, waitForBlank) && canShow;
        }
    };

    explicit Stage(double frameSeconds = 1.0 / 60.0) {
        auto ownedPtr = std::make_unique<Desktop>(frameSeconds);
        desktopPtr = ownedPtr.get();
        platform::Desktop::Use(std::move(ownedPtr));
    }
    ~Stage() { platform::Desktop::Use(nullptr); }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    Desktop* operator->() const { return desktopPtr; }
    Desktop& operator*() const { return *desktopPtr; }

    /// Ends the frame and delivers what is due before the next one.
    void EndFrame() {
        desktopPtr->Present(nullptr, {}, true);
        platform::Message message;
        while (desktopPtr->PeekMessage(message)) desktopPtr->DispatchMessage(message);
    }

    /// The media commands since the last call.
    std::vector<std::wstring> TakeCommands() { return Texts(std::exchange(desktopPtr->mediaCommands, {})); }
    /// The texts of the message boxes since the last call.
    std::vector<std::wstring> TakeMessages() { return Texts(std::exchange(desktopPtr->boxes, {})); }

private:
    template <class Record>
    static std::vector<std::wstring> Texts(const std::vector<Record>& records) {
        std::vector<std::wstring> texts;
        for (const auto& record : records) texts.push_back(record.text);
        return texts;
    }

    Desktop* desktopPtr;
};

/// A canvas to paint on; the stage keeps the frame it showed.
class CanvasStage : public Stage {
public:
    CanvasStage(int width, int height, D2D1_PRESENT_OPTIONS present = D2D1_PRESENT_OPTIONS_NONE)
        : canvasPtr(platform::CreateCanvas(nullptr, width, height, present)) {}

    /// The frame that `paint` makes on a white canvas.
    template <class Paint>
    const platform::Picture& Frame(const Paint& paint) {
        canvasPtr->BeginDraw();
        canvasPtr->SetTransform({});
        canvasPtr->Clear({1.0F, 1.0F, 1.0F, 1.0F});
        paint(*canvasPtr);
        canvasPtr->EndDraw();
        return (*this)->shown;
    }

    std::unique_ptr<ID2D1Bitmap> MakeBitmap(platform::Picture picture) {
        return canvasPtr->CreateBitmap(std::make_shared<const platform::Picture>(std::move(picture)));
    }
    ID2D1HwndRenderTarget& Canvas() { return *canvasPtr; }

private:
    std::unique_ptr<ID2D1HwndRenderTarget> canvasPtr;
};
