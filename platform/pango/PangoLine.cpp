#include "platform/pango/PangoLine.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <string>

namespace platform {

namespace {
float Pixels(int units) { return static_cast<float>(units) / PANGO_SCALE; }

bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }
} // namespace

std::unique_ptr<TextLine> PangoLine::Make(std::wstring_view text, const FontChoice& font) {
    return std::make_unique<PangoLine>(text, font);
}

PangoLine::PangoLine(std::wstring_view text, const FontChoice& font) {
    const std::string bytes = LayoutText(text);
    layoutPtr = fontsPtr->Layout(bytes, font);
    pango_layout_set_single_paragraph_mode(layoutPtr.get(), TRUE);
    PangoRectangle extents;
    pango_layout_get_extents(layoutPtr.get(), nullptr, &extents);
    width = Pixels(extents.width);
    height = Pixels(extents.height);

    int attributeCount = 0;
    const PangoLogAttr* attributePtr = pango_layout_get_log_attrs_readonly(layoutPtr.get(), &attributeCount);
    places.reserve(bytes.size() + 1);
    for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
        if (!StartsCharacter(bytes[byte])) continue;
        places.push_back({static_cast<int>(byte), attributePtr->is_cursor_position != 0,
                          attributePtr->is_word_start != 0, attributePtr->is_word_end != 0});
        // where a wide character has 16 bits, four bytes make two of them
        const bool isPair = sizeof(wchar_t) == 2 && static_cast<unsigned char>(bytes[byte]) >= 0xF0U;
        if (isPair) places.push_back({static_cast<int>(byte)});
        ++attributePtr;
    }
    places.push_back({static_cast<int>(bytes.size()), true});
}

float PangoLine::XAt(std::size_t place) const {
    int x = 0;
    pango_layout_line_index_to_x(Line(), ByteAt(place), FALSE, &x);
    return Pixels(x);
}

std::size_t PangoLine::PlaceAt(float x) const {
    if (x <= 0.0F && places.size() == 1) return 0;
    int byte = 0;
    int trailing = 0; // not 0: the far side of what people see as the character
    const float nearby = std::clamp(x, -1.0F, width + 1.0F);
    pango_layout_line_x_to_index(Line(), static_cast<int>(nearby * PANGO_SCALE), &byte, &trailing);
    const std::size_t place = PlaceOf(byte);
    return trailing > 0 ? PlaceAfter(place) : std::min(place, End());
}

std::vector<TextLine::Span> PangoLine::SpansOf(Range range) const {
    int* rangesPtr = nullptr;
    int count = 0;
    pango_layout_line_get_x_ranges(Line(), ByteAt(range.begin), ByteAt(range.end), &rangesPtr, &count);
    std::vector<Span> spans;
    for (int i = 0; i < count; ++i) spans.push_back({Pixels(rangesPtr[2 * i]), Pixels(rangesPtr[2 * i + 1])});
    g_free(rangesPtr);
    return spans;
}

_PangoLayoutLine* PangoLine::Line() const { return pango_layout_get_line_readonly(layoutPtr.get(), 0); }

} // namespace platform
