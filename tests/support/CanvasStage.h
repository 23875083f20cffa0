#pragma once

#include "platform/Canvas.h"
#include "tests/support/Stage.h"

#include <memory>

/// A canvas to paint on and the frames it showed.
class CanvasStage {
public:
    CanvasStage(int width, int height, D2D1_PRESENT_OPTIONS present = D2D1_PRESENT_OPTIONS_NONE)
        : canvasPtr(platform::CreateCanvas(nullptr, width, height, present)) {}

    /// The frame that `paint` makes on a cleared canvas.
    template <class Paint>
    const platform::Picture& Frame(const Paint& paint, D2D1_COLOR_F background = {1.0F, 1.0F, 1.0F, 1.0F}) {
        canvasPtr->BeginDraw();
        canvasPtr->SetTransform({});
        canvasPtr->Clear(background);
        paint(*canvasPtr);
        canvasPtr->EndDraw();
        return stage->shown;
    }

    std::unique_ptr<ID2D1Bitmap> MakeBitmap(platform::Picture picture) {
        return canvasPtr->CreateBitmap(std::make_shared<const platform::Picture>(std::move(picture)));
    }

    Stage::Desktop& Desktop() { return *stage; }
    ID2D1HwndRenderTarget& Canvas() { return *canvasPtr; }

private:
    Stage stage;
    std::unique_ptr<ID2D1HwndRenderTarget> canvasPtr;
};
