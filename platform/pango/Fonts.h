#pragma once

#include "platform/Text.h"

#include <memory>
#include <string>
#include <string_view>

struct _PangoContext;
struct _PangoFontMap;
struct _PangoLayout;

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

struct LayoutReleaser {
    void operator()(_PangoLayout* layoutPtr) const;
};
using LayoutPtr = std::unique_ptr<_PangoLayout, LayoutReleaser>;

/// The system's fonts. They are looked for when this is made, and given back with it.
class Fonts {
public:
    /// The fonts that the program has in use; they stay for as long as somebody keeps them.
    static std::shared_ptr<Fonts> Shared();
    Fonts();
    ~Fonts();
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;

    /// `text` (UTF-8, without zeros) in that font, in as many lines as it has.
    LayoutPtr Layout(const std::string& text, const FontChoice& font) const;

private:
    struct Releaser {
        void operator()(void* objectPtr) const;
    };
    std::unique_ptr<_PangoFontMap, Releaser> fontsPtr;
    std::unique_ptr<_PangoContext, Releaser> contextPtr;
};

/// The text as the text library takes it: UTF-8 without zeros, at which it would take the text to end.
std::string LayoutText(std::wstring_view text);

} // namespace platform
