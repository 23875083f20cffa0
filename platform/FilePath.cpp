#include "platform/FilePath.h"

#include <cstdint>

namespace platform {

namespace {
constexpr std::uint32_t replacementCharacter = 0xFFFD;

void AppendUtf8(std::string& text, std::uint32_t code) {
    const auto append = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (code < 0x80) {
        append(code);
    } else if (code < 0x800) {
        append(0xC0 | code >> 6);
        append(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        append(0xE0 | code >> 12);
        append(0x80 | (code >> 6 & 0x3F));
        append(0x80 | (code & 0x3F));
    } else {
        append(0xF0 | code >> 18);
        append(0x80 | (code >> 12 & 0x3F));
        append(0x80 | (code >> 6 & 0x3F));
        append(0x80 | (code & 0x3F));
    }
}
} // namespace

std::string ToFilePath(std::wstring_view fileName) {
    std::string path;
    path.reserve(fileName.size());
    for (std::size_t index = 0; index < fileName.size(); ++index) {
        auto code = static_cast<std::uint32_t>(fileName[index]);
        const bool isLeading = code >= 0xD800 && code < 0xDC00;
        const std::uint32_t next = index + 1 < fileName.size() ? static_cast<std::uint32_t>(fileName[index + 1]) : 0;
        if (isLeading && next >= 0xDC00 && next < 0xE000) { // a pair, where wide characters have 16 bits
            code = 0x10000 + ((code - 0xD800) << 10) + (next - 0xDC00);
            ++index;
        }
        const bool isNoCharacter = (code >= 0xD800 && code < 0xE000) || code > 0x10FFFF;
        if (isNoCharacter) code = replacementCharacter;
        AppendUtf8(path, code == L'\\' ? U'/' : code);
    }
    return path;
}

} // namespace platform
