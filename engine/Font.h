#pragma once

#include "platform/Text.h"

#include <memory>

class String;

/// A font family at a size, for DrawString. A family that is not installed is replaced by the nearest one that is.
class Font {
public:
    /// `size` in pixels. If the format cannot be made the program ends with a message and exit code -1.
    Font(String const& fontName, float size);
    /// Takes over an existing format.
    explicit Font(IDWriteTextFormat* formatPtr) : textFormatPtr(formatPtr) {}
    virtual ~Font() = default;

    IDWriteTextFormat* GetTextFormat() const { return textFormatPtr.get(); }

private:
    std::unique_ptr<IDWriteTextFormat> textFormatPtr;
};
