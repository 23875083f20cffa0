#pragma once

#include "platform/Types.h"

#include <memory>
#include <string>
#include <string_view>

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
} // namespace platform
