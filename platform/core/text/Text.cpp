#include "platform/Text.h"

#include "platform/Desktop.h"
#include "platform/core/Backend.h"
#include "platform/core/text/TextFormat.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace platform {

namespace {

constexpr int usualHeight = 18; // of a line of text in a control, in pixels
constexpr int greatestHeight = 1000;
constexpr std::size_t longestLine = 32767; // characters

class TextFactory : public IDWriteFactory {
public:
    std::unique_ptr<IDWriteTextFormat> CreateTextFormat(std::wstring_view family, float size) override {
        if (family.empty() || !(size > 0.0F) || !std::isfinite(size)) return nullptr;
        FontChoice font;
        font.family = family;
        font.size = size;
        font.standIn = "monospace";
        return std::make_unique<TextFormat>(std::move(font));
    }
};

} // namespace

std::unique_ptr<IDWriteFactory> CreateTextFactory() { return std::make_unique<TextFactory>(); }

std::unique_ptr<IDWriteTextFormat> CreateControlFont(const ControlFont& font) {
    FontChoice choice;
    choice.family = font.family;
    const int height =
        font.cellHeight == 0 ? usualHeight : std::abs(std::clamp(font.cellHeight, -greatestHeight, greatestHeight));
    choice.size = static_cast<float>(height);
    choice.isCellHeight = true;
    choice.standIn = "sans-serif";
    choice.bold = font.bold;
    choice.italic = font.italic;
    choice.underline = font.underline;
    return std::make_unique<TextFormat>(std::move(choice));
}

std::unique_ptr<TextLine> MakeTextLine(std::wstring_view text, const IDWriteTextFormat& format) {
    return Desktop::Current().GetBackend().layOutLine(text.substr(0, longestLine), FontOf(format));
}

} // namespace platform
