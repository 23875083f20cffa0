#include "platform/pango/TextPainter.h"

#include "platform/Unicode.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace platform {

namespace {

constexpr float longestSide = 100000.0F; // of a box or a font, in pixels: beyond it the layout's whole numbers end
constexpr std::size_t layoutsKept = 32;

/// A text format is no more than what was asked for; fonts are looked up when text is drawn.
class TextFormat : public IDWriteTextFormat {
public:
    TextFormat(std::wstring_view familyName, float fontSize) : family(familyName), size(fontSize) {}
    HRESULT SetTextAlignment(DWRITE_TEXT_ALIGNMENT) override { return S_OK; }
    HRESULT SetParagraphAlignment(DWRITE_PARAGRAPH_ALIGNMENT) override { return S_OK; }

    const std::wstring family;
    const float size; // pixels
};

class TextFactory : public IDWriteFactory {
public:
    std::unique_ptr<IDWriteTextFormat> CreateTextFormat(std::wstring_view family, float size) override {
        if (family.empty() || !(size > 0.0F) || !std::isfinite(size)) return nullptr;
        return std::make_unique<TextFormat>(family, size);
    }
};

template <auto release>
struct Releaser {
    template <class Object>
    void operator()(Object* objectPtr) const {
        release(objectPtr);
    }
};
template <class Object>
using GlibPtr = std::unique_ptr<Object, Releaser<&g_object_unref>>;

} // namespace

/// The texts that were drawn last, laid out; the most recent one stands first.
class TextPainter::Layouts {
public:
    Layouts() : fontsPtr(pango_cairo_font_map_new()), contextPtr(pango_font_map_create_context(fontsPtr.get())) {
        // Sizes that do not depend on the scale the text is drawn at, and the same smoothing on every screen.
        const std::unique_ptr<cairo_font_options_t, Releaser<&cairo_font_options_destroy>> optionsPtr(
            cairo_font_options_create());
        cairo_font_options_set_antialias(optionsPtr.get(), CAIRO_ANTIALIAS_GRAY);
        cairo_font_options_set_hint_style(optionsPtr.get(), CAIRO_HINT_STYLE_SLIGHT);
        cairo_font_options_set_hint_metrics(optionsPtr.get(), CAIRO_HINT_METRICS_OFF);
        pango_cairo_context_set_font_options(contextPtr.get(), optionsPtr.get());
        pango_cairo_context_set_resolution(contextPtr.get(), 96.0);
    }

    PangoLayout* Find(std::wstring_view text, const TextFormat& format, float width) {
        const auto found = std::find_if(kept.begin(), kept.end(), [&](const Kept& entry) {
            return entry.width == width && entry.size == format.size && entry.text == text &&
                   entry.family == format.family;
        });
        if (found != kept.end()) {
            std::rotate(kept.begin(), found, found + 1);
        } else {
            if (kept.size() == layoutsKept) kept.pop_back();
            kept.insert(kept.begin(), Make(text, format, width));
        }
        return kept.front().layoutPtr.get();
    }

private:
    struct Kept {
        std::wstring text;
        std::wstring family;
        float size = 0.0F;
        float width = 0.0F;
        GlibPtr<PangoLayout> layoutPtr;
    };

    Kept Make(std::wstring_view text, const TextFormat& format, float width) const {
        GlibPtr<PangoLayout> layoutPtr(pango_layout_new(contextPtr.get()));
        const std::unique_ptr<PangoFontDescription, Releaser<&pango_font_description_free>> fontPtr(
            pango_font_description_new());
        // the second name is what stands in where the first is not installed
        pango_font_description_set_family(fontPtr.get(), (ToUtf8(format.family) + ",monospace").c_str());
        const float size = std::min(format.size, longestSide);
        pango_font_description_set_absolute_size(fontPtr.get(), std::max(1.0, size * PANGO_SCALE * 1.0));
        pango_layout_set_font_description(layoutPtr.get(), fontPtr.get());

        // a tab stop every four font sizes; the last interval repeats
        const std::unique_ptr<PangoTabArray, Releaser<&pango_tab_array_free>> tabsPtr(pango_tab_array_new(1, FALSE));
        pango_tab_array_set_tab(tabsPtr.get(), 0, PANGO_TAB_LEFT,
                                std::max(1, static_cast<int>(4.0F * size * PANGO_SCALE)));
        pango_layout_set_tabs(layoutPtr.get(), tabsPtr.get());

        pango_layout_set_width(layoutPtr.get(), static_cast<int>(width * PANGO_SCALE));
        pango_layout_set_wrap(layoutPtr.get(), PANGO_WRAP_WORD_CHAR);
        std::string bytes = ToUtf8(text);
        std::replace(bytes.begin(), bytes.end(), '\0', ' '); // the library would take the text to end there
        pango_layout_set_text(layoutPtr.get(), bytes.data(), static_cast<int>(bytes.size()));
        return {std::wstring(text), format.family, format.size, width, std::move(layoutPtr)};
    }

    GlibPtr<PangoFontMap> fontsPtr;
    GlibPtr<PangoContext> contextPtr;
    std::vector<Kept> kept;
};

TextPainter::TextPainter() = default;
TextPainter::~TextPainter() = default;

void TextPainter::Draw(_cairo* contextPtr, std::wstring_view text, const IDWriteTextFormat& format, D2D1_RECT_F box) {
    const float width = std::min(box.right - box.left, longestSide);
    const float height = std::min(box.bottom - box.top, longestSide);
    if (text.empty() || !(width > 0.0F) || !(height > 0.0F)) return;
    if (!layoutsPtr) layoutsPtr = std::make_unique<Layouts>();
    PangoLayout* layoutPtr = layoutsPtr->Find(text, static_cast<const TextFormat&>(format), width);
    cairo_rectangle(contextPtr, box.left, box.top, width, height);
    cairo_clip(contextPtr);
    cairo_move_to(contextPtr, box.left, box.top);
    pango_cairo_show_layout(contextPtr, layoutPtr);
}

std::unique_ptr<IDWriteFactory> CreateTextFactory() { return std::make_unique<TextFactory>(); }

} // namespace platform
