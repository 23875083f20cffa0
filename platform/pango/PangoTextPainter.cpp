#include "platform/pango/PangoTextPainter.h"

#include "platform/pango/Fonts.h"
#include "platform/pango/PangoLine.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <string>
#include <vector>

namespace platform {

namespace {
constexpr float longestSide = 100000.0F; // of a box, in pixels: beyond it the layout's whole numbers end
constexpr std::size_t layoutsKept = 32;
} // namespace

/// The texts that were drawn last, laid out; the most recent one stands first.
class PangoTextPainter::Layouts {
public:
    PangoLayout* Find(std::wstring_view text, const FontChoice& font, float width) {
        const auto found = std::find_if(kept.begin(), kept.end(), [&](const Kept& entry) {
            return entry.width == width && entry.text == text && entry.font == font;
        });
        if (found != kept.end()) {
            std::rotate(kept.begin(), found, found + 1);
        } else {
            if (kept.size() == layoutsKept) kept.pop_back();
            kept.insert(kept.begin(), Make(text, font, width));
        }
        return kept.front().layoutPtr.get();
    }

private:
    struct Kept {
        std::wstring text;
        FontChoice font;
        float width = 0.0F;
        LayoutPtr layoutPtr;
    };

    Kept Make(std::wstring_view text, const FontChoice& font, float width) const {
        LayoutPtr layoutPtr = fontsPtr->Layout(LayoutText(text), font);
        pango_layout_set_width(layoutPtr.get(), static_cast<int>(width * PANGO_SCALE));
        pango_layout_set_wrap(layoutPtr.get(), PANGO_WRAP_WORD_CHAR);
        return {std::wstring(text), font, width, std::move(layoutPtr)};
    }

    std::shared_ptr<Fonts> fontsPtr = Fonts::Shared();
    std::vector<Kept> kept;
};

std::unique_ptr<TextPainter> PangoTextPainter::Make(const FrameMemory& frame) {
    auto painterPtr = std::make_unique<PangoTextPainter>(frame);
    return painterPtr->surface.IsReady() ? std::move(painterPtr) : nullptr;
}

PangoTextPainter::PangoTextPainter(const FrameMemory& frame) : surface(frame) {}
PangoTextPainter::~PangoTextPainter() = default;

void PangoTextPainter::DrawBox(std::wstring_view text, const FontChoice& font, D2D1_RECT_F box, const Paint& paint,
                               const D2D1_MATRIX_3X2_F& transform) {
    const float width = std::min(box.right - box.left, longestSide);
    const float height = std::min(box.bottom - box.top, longestSide);
    if (text.empty() || !(width > 0.0F) || !(height > 0.0F)) return;
    if (!layoutsPtr) layoutsPtr = std::make_unique<Layouts>();
    PangoLayout* const layoutPtr = layoutsPtr->Find(text, font, width);
    const ContextPtr contextPtr = BeginClipped({box.left, box.top}, {width, height}, paint, transform);
    cairo_move_to(contextPtr.get(), box.left, box.top);
    pango_cairo_show_layout(contextPtr.get(), layoutPtr);
}

void PangoTextPainter::DrawLine(const TextLine& line, D2D1_POINT_2F origin, D2D1_RECT_F clip, const Paint& paint,
                                const D2D1_MATRIX_3X2_F& transform) {
    const D2D1_SIZE_F size = {clip.right - clip.left, clip.bottom - clip.top};
    const ContextPtr contextPtr = BeginClipped({clip.left, clip.top}, size, paint, transform);
    cairo_move_to(contextPtr.get(), origin.x, origin.y);
    pango_cairo_show_layout(contextPtr.get(), static_cast<const PangoLine&>(line).Layout());
}

ContextPtr PangoTextPainter::BeginClipped(D2D1_POINT_2F corner, D2D1_SIZE_F size, const Paint& paint,
                                          const D2D1_MATRIX_3X2_F& transform) const {
    ContextPtr contextPtr = surface.Begin(paint);
    CairoSurface::SetTransform(contextPtr.get(), transform);
    cairo_rectangle(contextPtr.get(), corner.x, corner.y, size.width, size.height);
    cairo_clip(contextPtr.get());
    return contextPtr;
}

} // namespace platform
