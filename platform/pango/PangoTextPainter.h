#pragma once

#include "platform/cairo/CairoSurface.h"
#include "platform/core/canvas/TextPainter.h"

#include <memory>

namespace platform {

/// The text library and the system's fonts are not touched before the first text. The last few texts are kept laid out,
/// since most texts are drawn again in the next frame.
class PangoTextPainter final : public TextPainter {
public:
    /// Null if the library cannot paint into the frame, which it borrows.
    static std::unique_ptr<TextPainter> Make(const FrameMemory& frame);

    explicit PangoTextPainter(const FrameMemory& frame);
    ~PangoTextPainter() override;
    void DrawBox(std::wstring_view text, const FontChoice& font, D2D1_RECT_F box, const Paint& paint,
                 const D2D1_MATRIX_3X2_F& transform) override;
    void DrawLine(const TextLine& line, D2D1_POINT_2F origin, D2D1_RECT_F clip, const Paint& paint,
                  const D2D1_MATRIX_3X2_F& transform) override;

private:
    class Layouts;

    /// Ready to paint in the coordinates before `transform`, and only between `corner` and `size` further.
    ContextPtr BeginClipped(D2D1_POINT_2F corner, D2D1_SIZE_F size, const Paint& paint,
                            const D2D1_MATRIX_3X2_F& transform) const;

    CairoSurface surface;
    std::unique_ptr<Layouts> layoutsPtr;
};

} // namespace platform
