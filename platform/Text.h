#pragma once

#include "platform/Types.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

enum DWRITE_TEXT_ALIGNMENT { DWRITE_TEXT_ALIGNMENT_LEADING = 0 };
enum DWRITE_PARAGRAPH_ALIGNMENT { DWRITE_PARAGRAPH_ALIGNMENT_NEAR = 0 };

/// How text looks: a font family at a size in pixels, wrapped at word boundaries. Cheap; the text library is loaded and
/// the family looked up when the first text is drawn, and a family that is not installed gets the nearest one that is.
class IDWriteTextFormat {
public:
    virtual ~IDWriteTextFormat() = default;
    virtual HRESULT SetTextAlignment(DWRITE_TEXT_ALIGNMENT alignment) = 0;
    virtual HRESULT SetParagraphAlignment(DWRITE_PARAGRAPH_ALIGNMENT alignment) = 0;
};

/// Makes text formats.
class IDWriteFactory {
public:
    virtual ~IDWriteFactory() = default;
    /// Null if `size` is not a positive number or the family name is empty.
    virtual std::unique_ptr<IDWriteTextFormat> CreateTextFormat(std::wstring_view family, float size) = 0;
};

namespace platform {
std::unique_ptr<IDWriteFactory> CreateTextFactory();

/// The look of text in a control: a family in lines `cellHeight` pixels high (0: the desktop's usual height; the sign
/// does not count). A family that is not installed, or none, gets the nearest one that is. Cheap, as a text format is.
struct ControlFont {
    std::wstring_view family;
    int cellHeight = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
};
std::unique_ptr<IDWriteTextFormat> CreateControlFont(const ControlFont& font);

/// A text laid out in a single line, for those who must know where its characters are. Distances are in pixels from
/// the line's top left corner; a place is an index into the text, before which a caret may stand.
class TextLine {
public:
    struct Span {
        float left = 0.0F;
        float right = 0.0F;
    };

    /// From the place `begin` to before `end`.
    struct Range {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    virtual ~TextLine() = default;
    virtual float Width() const = 0;
    virtual float Height() const = 0;
    /// Where the caret stands at `place`.
    virtual float XAt(std::size_t place) const = 0;
    /// The place nearest to `x`.
    virtual std::size_t PlaceAt(float x) const = 0;
    /// What the range covers; several pieces where directions of writing are mixed.
    virtual std::vector<Span> SpansOf(Range range) const = 0;
    /// The next and the previous place; never between the parts of what people see as one character.
    virtual std::size_t PlaceAfter(std::size_t place) const = 0;
    virtual std::size_t PlaceBefore(std::size_t place) const = 0;
    /// The next place at which a word begins or the text ends, and the previous one at which a word begins.
    virtual std::size_t WordAfter(std::size_t place) const = 0;
    virtual std::size_t WordBefore(std::size_t place) const = 0;
    /// The word that the character at `place` belongs to; between words, what lies between them.
    virtual Range WordAround(std::size_t place) const = 0;
};

/// Lays out at most the first 32,767 characters of `text`, with the back end of the current desktop. Main thread only.
std::unique_ptr<TextLine> MakeTextLine(std::wstring_view text, const IDWriteTextFormat& format);
} // namespace platform
