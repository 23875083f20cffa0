#pragma once

#include "platform/Canvas.h"
#include "platform/ScriptedDesktop.h"
#include "tests/support/ImageCompare.h"

#include <memory>

/// A desktop that keeps the frame that was shown last, and may stop showing any.
class FrameKeeper : public platform::ScriptedDesktop {
public:
    platform::Picture shown;
    int framesShown = 0;
    bool lastWaited = false;
    bool canShow = true;
    bool keepsFrames = true;

    bool Present(HWND, const platform::FrameView& frame, bool waitForBlank) override {
        if (keepsFrames) shown = Copied(frame);
        ++framesShown;
        lastWaited = waitForBlank;
        return canShow;
    }
};

/// A canvas to paint on and the frames it showed.
class CanvasStage {
public:
    CanvasStage(int width, int height, D2D1_PRESENT_OPTIONS present = D2D1_PRESENT_OPTIONS_NONE) {
        auto keeperPtr = std::make_unique<FrameKeeper>();
        desktopPtr = keeperPtr.get();
        platform::Desktop::Use(std::move(keeperPtr));
        canvasPtr = platform::CreateCanvas(nullptr, width, height, present);
    }
    ~CanvasStage() {
        canvasPtr.reset();
        platform::Desktop::Use(nullptr);
    }
    CanvasStage(const CanvasStage&) = delete;
    CanvasStage& operator=(const CanvasStage&) = delete;

    /// The frame that `paint` makes on a cleared canvas.
    template <class Paint>
    const platform::Picture& Frame(const Paint& paint, D2D1_COLOR_F background = {1.0F, 1.0F, 1.0F, 1.0F}) {
        canvasPtr->BeginDraw();
        canvasPtr->SetTransform({});
        canvasPtr->Clear(background);
        paint(*canvasPtr);
        canvasPtr->EndDraw();
        return desktopPtr->shown;
    }

    std::unique_ptr<ID2D1Bitmap> MakeBitmap(platform::Picture picture) {
        return canvasPtr->CreateBitmap(std::make_shared<const platform::Picture>(std::move(picture)));
    }

    FrameKeeper& Desktop() { return *desktopPtr; }
    ID2D1HwndRenderTarget& Canvas() { return *canvasPtr; }

private:
    FrameKeeper* desktopPtr = nullptr;
    std::unique_ptr<ID2D1HwndRenderTarget> canvasPtr;
};
