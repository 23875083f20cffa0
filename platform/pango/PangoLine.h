#pragma once

#include "platform/Text.h"
#include "platform/pango/Fonts.h"

#include <memory>
#include <string_view>
#include <vector>

struct _PangoLayoutLine;

namespace platform {

/// A line as the text library laid it out, and the way between its places and the library's.
class PangoLine final : public TextLine {
public:
    PangoLine(std::wstring_view text, const FontChoice& font);

    float Width() const override { return width; }
    float Height() const override { return height; }
    float XAt(std::size_t place) const override;
    std::size_t PlaceAt(float x) const override;
    std::vector<Span> SpansOf(Range range) const override;
    std::size_t PlaceAfter(std::size_t place) const override;
    std::size_t PlaceBefore(std::size_t place) const override;
    std::size_t WordAfter(std::size_t place) const override;
    std::size_t WordBefore(std::size_t place) const override;
    Range WordAround(std::size_t place) const override;

    _PangoLayout* Layout() const { return layoutPtr.get(); }

private:
    struct Place {
        int byte = 0;
        bool isCaretStop = false;
        bool isWordStart = false;
        bool isWordEnd = false;
    };

    _PangoLayoutLine* Line() const;
    std::size_t End() const { return places.size() - 1; }
    int ByteAt(std::size_t place) const;
    template <class Predicate>
    std::size_t After(std::size_t place, Predicate isWanted) const;
    template <class Predicate>
    std::size_t Before(std::size_t place, Predicate isWanted) const;

    std::shared_ptr<Fonts> fontsPtr = Fonts::Shared();
    LayoutPtr layoutPtr;
    std::vector<Place> places; // one for every index of the text, and the end
    float width = 0.0F;
    float height = 0.0F;
};

} // namespace platform
