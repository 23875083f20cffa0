#include "platform/Unicode.h"

#include <cstdint>

namespace platform {

namespace {
constexpr char32_t replacement = 0xFFFD;

constexpr bool IsSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDFFF; }
constexpr bool IsCodePoint(char32_t code) { return code <= 0x10FFFF && !IsSurrogate(code); }

void AppendUtf8(std::string& utf8, char32_t code) {
    if (!IsCodePoint(code)) code = replacement;
    const auto byte = [&utf8](char32_t value) { utf8.push_back(static_cast<char>(value)); };
    const auto continuation = [&byte, code](int shift) { byte(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0 | (code >> 6));
        continuation(0);
    } else if (code < 0x10000) {
        byte(0xE0 | (code >> 12));
        continuation(6);
        continuation(0);
    } else {
        byte(0xF0 | (code >> 18));
        continuation(12);
        continuation(6);
        continuation(0);
    }
}

/// Takes the first code point off wide text; a lone half of a pair is returned as it is.
char32_t TakeWide(std::wstring_view& text) {
    const auto first = static_cast<char32_t>(text.front());
    text.remove_prefix(1);
    if (sizeof(wchar_t) > 2 || first < 0xD800 || first > 0xDBFF || text.empty()) return first;
    const auto second = static_cast<char32_t>(text.front());
    if (second < 0xDC00 || second > 0xDFFF) return first;
    text.remove_prefix(1);
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}
} // namespace

char32_t TakeCodePoint(std::string_view& utf8) {
    const auto lead = static_cast<std::uint8_t>(utf8.front());
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    char32_t code = length == 1 ? lead : lead & (0x7FU >> length);
    std::size_t taken = 1;
    while (taken < length && taken < utf8.size() && (static_cast<std::uint8_t>(utf8[taken]) & 0xC0) == 0x80) {
        code = (code << 6) | (static_cast<std::uint8_t>(utf8[taken]) & 0x3F);
        ++taken;
    }
    // A code point written longer than needed is malformed too: it would let one text be spelt in two ways.
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool valid = lead < 0xF8 && (lead < 0x80 || lead >= 0xC0) && taken == length && code >= smallest[length] &&
                       IsCodePoint(code);
    utf8.remove_prefix(valid ? length : 1);
    return valid ? code : replacement;
}

void AppendWide(std::wstring& text, char32_t code) {
    if (!IsCodePoint(code)) code = replacement;
    if (sizeof(wchar_t) > 2 || code < 0x10000) {
        text.push_back(static_cast<wchar_t>(code));
    } else {
        text.push_back(static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10)));
        text.push_back(static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
    }
}

std::string ToUtf8(std::wstring_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    while (!text.empty()) AppendUtf8(utf8, TakeWide(text));
    return utf8;
}

std::wstring FromUtf8(std::string_view utf8) {
    std::wstring text;
    text.reserve(utf8.size());
    while (!utf8.empty()) AppendWide(text, TakeCodePoint(utf8));
    return text;
}

} // namespace platform
