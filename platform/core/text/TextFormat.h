#pragma once

#include "platform/Text.h"

#include <string>
#include <utility>

namespace platform {

/// What somebody asks of a font.
struct FontChoice {
    std::wstring family;
    float size = 0.0F;         // pixels
    bool isCellHeight = false; // the size is a line's height, and not the letters' own measure
    const char* standIn = "";  // what is taken where the family is not installed
    bool bold = false;
    bool italic = false;
    bool underline = false;
    friend bool operator==(const FontChoice&, const FontChoice&) = default;
};

/// A text format is no more than what was asked for; fonts are looked up when text is laid out.
class TextFormat : public IDWriteTextFormat {
public:
    explicit TextFormat(FontChoice chosenFont) : font(std::move(chosenFont)) {}
    HRESULT SetTextAlignment(DWRITE_TEXT_ALIGNMENT) override { return S_OK; }
    HRESULT SetParagraphAlignment(DWRITE_PARAGRAPH_ALIGNMENT) override { return S_OK; }

    const FontChoice font;
};

/// What the format asks for: all formats are made by this layer.
inline const FontChoice& FontOf(const IDWriteTextFormat& format) { return static_cast<const TextFormat&>(format).font; }

} // namespace platform
