#include "platform/pango/PangoLine.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <string>

namespace platform {

namespace {
constexpr std::size_t longestText = 32767; // characters; beyond some hundred thousand the library's numbers end

float Pixels(int units) { return static_cast<float>(units) / PANGO_SCALE; }

bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }
} // namespace

PangoLine::PangoLine(std::wstring_view text, const FontChoice& font) {
    const std::string bytes = LayoutText(text.substr(0, longestText));
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
    const auto found = std::lower_bound(places.begin(), places.end(), byte,
                                        [](const Place& place, int wanted) { return place.byte < wanted; });
    const auto place = static_cast<std::size_t>(found - places.begin());
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

std::size_t PangoLine::PlaceAfter(std::size_t place) const {
    return After(place, [](const Place& candidate) { return candidate.isCaretStop; });
}

std::size_t PangoLine::PlaceBefore(std::size_t place) const {
    return Before(place, [](const Place& candidate) { return candidate.isCaretStop; });
}

std::size_t PangoLine::WordAfter(std::size_t place) const {
    return After(place, [](const Place& candidate) { return candidate.isWordStart; });
}

std::size_t PangoLine::WordBefore(std::size_t place) const {
    return Before(place, [](const Place& candidate) { return candidate.isWordStart; });
}

TextLine::Range PangoLine::WordAround(std::size_t place) const {
    const auto isEdge = [](const Place& candidate) { return candidate.isWordStart || candidate.isWordEnd; };
    const std::size_t begin = Before(std::min(place + 1, End()), isEdge);
    return {begin, After(begin, isEdge)};
}

_PangoLayoutLine* PangoLine::Line() const { return pango_layout_get_line_readonly(layoutPtr.get(), 0); }

int PangoLine::ByteAt(std::size_t place) const { return places[std::min(place, End())].byte; }

template <class Predicate>
std::size_t PangoLine::After(std::size_t place, Predicate isWanted) const {
    std::size_t candidate = place + 1;
    while (candidate < End() && !isWanted(places[candidate])) ++candidate;
    return std::min(candidate, End());
}

template <class Predicate>
std::size_t PangoLine::Before(std::size_t place, Predicate isWanted) const {
    std::size_t candidate = std::min(place, End());
    while (candidate > 0) {
        --candidate;
        if (isWanted(places[candidate])) break;
    }
    return candidate;
}

std::unique_ptr<TextLine> MakeTextLine(std::wstring_view text, const IDWriteTextFormat& format) {
    return std::make_unique<PangoLine>(text, static_cast<const TextFormat&>(format).font);
}

} // namespace platform
