#include "platform/pango/Fonts.h"

#include "platform/Unicode.h"

#include <pango/pangocairo.h>

#include <algorithm>

namespace platform {

namespace {

constexpr float longestSide = 100000.0F; // of a font, in pixels: beyond it the layout's whole numbers end

template <auto release>
struct Freer {
    template <class Object>
    void operator()(Object* objectPtr) const {
        release(objectPtr);
    }
};
using DescriptionPtr = std::unique_ptr<PangoFontDescription, Freer<&pango_font_description_free>>;

void SetSize(PangoFontDescription* descriptionPtr, float size) {
    const float shown = std::min(size, longestSide);
    pango_font_description_set_absolute_size(descriptionPtr, std::max(1.0, shown * PANGO_SCALE * 1.0));
}

/// The size at which the font's lines are `cellHeight` pixels high.
float SizeOfCell(PangoContext* contextPtr, PangoFontDescription* descriptionPtr, float cellHeight) {
    constexpr float trialSize = 100.0F;
    SetSize(descriptionPtr, trialSize);
    const std::unique_ptr<PangoFontMetrics, Freer<&pango_font_metrics_unref>> metricsPtr(
        pango_context_get_metrics(contextPtr, descriptionPtr, nullptr));
    const int height =
        pango_font_metrics_get_ascent(metricsPtr.get()) + pango_font_metrics_get_descent(metricsPtr.get());
    return height > 0 ? cellHeight * trialSize * PANGO_SCALE / static_cast<float>(height) : cellHeight;
}

} // namespace

void LayoutReleaser::operator()(_PangoLayout* layoutPtr) const { g_object_unref(layoutPtr); }

void Fonts::Releaser::operator()(void* objectPtr) const { g_object_unref(objectPtr); }

std::shared_ptr<Fonts> Fonts::Shared() {
    static std::weak_ptr<Fonts> inUsePtr;
    std::shared_ptr<Fonts> fontsPtr = inUsePtr.lock();
    if (!fontsPtr) inUsePtr = fontsPtr = std::make_shared<Fonts>();
    return fontsPtr;
}

Fonts::Fonts() : fontsPtr(pango_cairo_font_map_new()), contextPtr(pango_font_map_create_context(fontsPtr.get())) {
    // Sizes that do not depend on the scale the text is drawn at, and the same smoothing on every screen.
    const std::unique_ptr<cairo_font_options_t, Freer<&cairo_font_options_destroy>> optionsPtr(
        cairo_font_options_create());
    cairo_font_options_set_antialias(optionsPtr.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(optionsPtr.get(), CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(optionsPtr.get(), CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(contextPtr.get(), optionsPtr.get());
    pango_cairo_context_set_resolution(contextPtr.get(), 96.0);
}

Fonts::~Fonts() = default;

LayoutPtr Fonts::Layout(const std::string& text, const FontChoice& font) const {
    LayoutPtr layoutPtr(pango_layout_new(contextPtr.get()));
    const DescriptionPtr descriptionPtr(pango_font_description_new());
    const std::string families = font.family.empty() ? font.standIn : ToUtf8(font.family) + "," + font.standIn;
    pango_font_description_set_family(descriptionPtr.get(), families.c_str());
    if (font.bold) pango_font_description_set_weight(descriptionPtr.get(), PANGO_WEIGHT_BOLD);
    if (font.italic) pango_font_description_set_style(descriptionPtr.get(), PANGO_STYLE_ITALIC);
    const float size = font.isCellHeight ? SizeOfCell(contextPtr.get(), descriptionPtr.get(), font.size) : font.size;
    SetSize(descriptionPtr.get(), size);
    pango_layout_set_font_description(layoutPtr.get(), descriptionPtr.get());
    if (font.underline) {
        const std::unique_ptr<PangoAttrList, Freer<&pango_attr_list_unref>> attributesPtr(pango_attr_list_new());
        pango_attr_list_insert(attributesPtr.get(), pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
        pango_layout_set_attributes(layoutPtr.get(), attributesPtr.get());
    }

    // a tab stop every four font sizes; the last interval repeats
    const std::unique_ptr<PangoTabArray, Freer<&pango_tab_array_free>> tabsPtr(pango_tab_array_new(1, FALSE));
    const float tab = 4.0F * std::min(size, longestSide) * PANGO_SCALE;
    pango_tab_array_set_tab(tabsPtr.get(), 0, PANGO_TAB_LEFT, std::max(1, static_cast<int>(tab)));
    pango_layout_set_tabs(layoutPtr.get(), tabsPtr.get());
    pango_layout_set_text(layoutPtr.get(), text.data(), static_cast<int>(text.size()));
    return layoutPtr;
}

std::string LayoutText(std::wstring_view text) {
    std::string bytes = ToUtf8(text);
    std::replace(bytes.begin(), bytes.end(), '\0', ' ');
    return bytes;
}

} // namespace platform
