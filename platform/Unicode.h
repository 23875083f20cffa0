#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Takes the first code point off `utf8`, which must not be empty. A byte that starts no valid sequence counts as
/// U+FFFD.
char32_t TakeCodePoint(std::string_view& utf8);

/// Appends the code point; what is none becomes U+FFFD.
void AppendWide(std::wstring& text, char32_t code);

/// Wide text (UTF-16 or UTF-32, as wide as the system's wchar_t) as UTF-8. What is no code point becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);

/// The reverse of ToUtf8; each byte of a malformed sequence becomes U+FFFD.
std::wstring FromUtf8(std::string_view utf8);

} // namespace platform
