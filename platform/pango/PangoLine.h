#pragma once

#include "platform/core/text/PlacedLine.h"
#include "platform/pango/Fonts.h"

#include <memory>
#include <string_view>
#include <vector>

struct _PangoLayoutLine;

namespace platform {

/// A line as the text library laid it out.
class PangoLine final : public PlacedLine {
public:
    static std::unique_ptr<TextLine> Make(std::wstring_view text, const FontChoice& font);

    PangoLine(std::wstring_view text, const FontChoice& font);
    float Width() const override { return width; }
    float Height() const override { return height; }
    float XAt(std::size_t place) const override;
    std::size_t PlaceAt(float x) const override;
    std::vector<Span> SpansOf(Range range) const override;

    _PangoLayout* Layout() const { return layoutPtr.get(); }

private:
    _PangoLayoutLine* Line() const;

    std::shared_ptr<Fonts> fontsPtr = Fonts::Shared();
    LayoutPtr layoutPtr;
    float width = 0.0F;
    float height = 0.0F;
};

} // namespace platform
