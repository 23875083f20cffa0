#include "platform/pango/TextPainter.h"

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
class TextPainter::Layouts {
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

TextPainter::TextPainter() = default;
TextPainter::~TextPainter() = default;

void TextPainter::Draw(_cairo* contextPtr, std::wstring_view text, const IDWriteTextFormat& format, D2D1_RECT_F box) {
    const float width = std::min(box.right - box.left, longestSide);
    const float height = std::min(box.bottom - box.top, longestSide);
    if (text.empty() || !(width > 0.0F) || !(height > 0.0F)) return;
    if (!layoutsPtr) layoutsPtr = std::make_unique<Layouts>();
    PangoLayout* layoutPtr = layoutsPtr->Find(text, static_cast<const TextFormat&>(format).font, width);
    cairo_rectangle(contextPtr, box.left, box.top, width, height);
    cairo_clip(contextPtr);
    cairo_move_to(contextPtr, box.left, box.top);
    pango_cairo_show_layout(contextPtr, layoutPtr);
}

void TextPainter::Draw(_cairo* contextPtr, const TextLine& line, D2D1_POINT_2F origin, D2D1_RECT_F clip) {
    cairo_rectangle(contextPtr, clip.left, clip.top, clip.right - clip.left, clip.bottom - clip.top);
    cairo_clip(contextPtr);
    cairo_move_to(contextPtr, origin.x, origin.y);
    pango_cairo_show_layout(contextPtr, static_cast<const PangoLine&>(line).Layout());
}

} // namespace platform
