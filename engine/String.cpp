#include "engine/String.h"

#include "engine/Decimal.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cwchar>
#include <iterator>

namespace {
wchar_t Widened(char character) { return static_cast<wchar_t>(static_cast<unsigned char>(character)); }
} // namespace

String::String(wchar_t const* text) { Assign(text, static_cast<int>(std::wcslen(text))); }

String::String(char const* text) {
    const std::string_view utf8(text);
    if (std::all_of(utf8.begin(), utf8.end(), [](char byte) { return static_cast<unsigned char>(byte) < 128; })) {
        AppendAscii(utf8);
        return;
    }
    const std::wstring wide = platform::FromUtf8(utf8);
    Assign(wide.c_str(), static_cast<int>(wide.size()));
}

String::String(wchar_t character) { Assign(&character, 1); }

String::String(char character) : String(Widened(character)) {}

String::String(String const& other) : precision(other.precision) { Assign(other.textPtr, other.GetLength()); }

String& String::operator=(String const& other) {
    if (this != &other) Assign(other.textPtr, other.GetLength());
    return *this;
}

String& String::operator+=(String const& other) {
    if (this == &other) return *this += String(other);
    return Append(other.textPtr, other.GetLength());
}

String& String::operator+=(wchar_t const* text) { return *this += String(text); }
String& String::operator+=(char const* text) { return *this += String(text); }
String& String::operator+=(wchar_t character) { return Append(&character, 1); }
String& String::operator+=(char character) { return *this += Widened(character); }

String& String::operator+=(int number) {
    char digits[16];
    return AppendAscii({digits, std::to_chars(digits, std::end(digits), number).ptr});
}

String& String::operator+=(unsigned int number) {
    char digits[16];
    return AppendAscii({digits, std::to_chars(digits, std::end(digits), number).ptr});
}

String& String::operator+=(double number) {
    constexpr int streamDigits = 6;
    constexpr int mostDecimals = 60;
    char digits[400]; // the largest double has 309 digits before the point
    const auto result = precision < 0
                            ? std::to_chars(digits, std::end(digits), number, std::chars_format::general, streamDigits)
                            : std::to_chars(digits, std::end(digits), number, std::chars_format::fixed,
                                            std::min(precision, mostDecimals));
    return AppendAscii({digits, result.ptr});
}

bool String::operator==(String const& other) const {
    return bufferLength == other.bufferLength && std::wmemcmp(textPtr, other.textPtr, GetLength()) == 0;
}

std::string String::ToUtf8() const { return platform::ToUtf8({textPtr, static_cast<std::size_t>(GetLength())}); }

wchar_t String::CharAt(int index) const { return index < 0 || index >= GetLength() ? L'\0' : textPtr[index]; }

int String::LastIndexOf(wchar_t character) const {
    int index = GetLength() - 1;
    while (index >= 0 && textPtr[index] != character) --index;
    return index;
}

bool String::StartsWith(String const& prefix) const {
    return prefix.GetLength() <= GetLength() && std::wmemcmp(textPtr, prefix.textPtr, prefix.GetLength()) == 0;
}

String String::SubStr(int index) const { return SubStr(index, GetLength() - std::max(index, 0)); }

String String::SubStr(int index, int length) const {
    String part(L"");
    if (index >= 0 && length > 0 && length <= GetLength() - index) part.Assign(textPtr + index, length);
    return part;
}

String String::ToLowerCase() const {
    String lower(*this);
    const auto lowered = [](wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c; };
    std::transform(lower.textPtr, lower.textPtr + lower.GetLength(), lower.textPtr, lowered);
    return lower;
}

String String::ToUpperCase() const {
    String upper(*this);
    const auto raised = [](wchar_t c) { return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 32) : c; };
    std::transform(upper.textPtr, upper.textPtr + upper.GetLength(), upper.textPtr, raised);
    return upper;
}

String String::Trim() const {
    int first = 0;
    int end = GetLength();
    while (first < end && textPtr[first] == L' ') ++first;
    while (end > first && textPtr[end - 1] == L' ') --end;
    String trimmed(*this);
    trimmed.Assign(textPtr + first, end - first);
    return trimmed;
}

int String::ToInteger() const {
    const long number = std::wcstol(textPtr, nullptr, 10);
    return static_cast<int>(std::clamp<long>(number, INT_MIN, INT_MAX));
}

double String::ToDouble() const {
    const std::wstring_view text(textPtr, static_cast<std::size_t>(GetLength()));
    const std::size_t start = std::min(text.find_first_not_of(L" \t\n\v\f\r"), text.size());
    const std::size_t end = std::min(text.find_first_not_of(L"+-.0123456789eE", start), text.size());
    const std::string number(textPtr + start, textPtr + end);
    double value = 0.0;
    ReadDecimal(number, value);
    return value;
}

String& String::SetPrecision(int decimals) {
    precision = decimals;
    return *this;
}

void String::Assign(wchar_t const* text, int length) {
    bufferLength = 1;
    Append(text, length);
}

String& String::Append(wchar_t const* text, int length) {
    Reserve(GetLength() + length);
    std::wmemmove(textPtr + GetLength(), text, length);
    bufferLength += length;
    textPtr[GetLength()] = L'\0';
    return *this;
}

String& String::AppendAscii(std::string_view text) {
    const int length = static_cast<int>(text.size());
    Reserve(GetLength() + length);
    std::copy(text.begin(), text.end(), textPtr + GetLength());
    bufferLength += length;
    textPtr[GetLength()] = L'\0';
    return *this;
}

void String::Reserve(int length) {
    if (length < capacity) return;
    capacity = std::max(length + 1, 2 * capacity);
    auto grownText = std::make_unique<wchar_t[]>(capacity);
    std::wmemcpy(grownText.get(), textPtr, GetLength());
    heapText = std::move(grownText);
    textPtr = heapText.get();
}
