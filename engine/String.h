#pragma once

#include <memory>
#include <string>
#include <string_view>

/// The engine's own text: file names, titles, messages and numbers cross its interface as a String.
/// Short texts (up to 63 characters) are kept inside the object, so that the ones made in a frame cost no allocation.
class String {
public:
    String(wchar_t const* text);
    /// The narrow text is UTF-8; bytes that are not are replaced.
    String(char const* text);
    String(wchar_t character);
    /// Widened by value, not as a piece of UTF-8.
    String(char character);
    String(String const& other);
    virtual ~String() = default;

    /// Takes the text only; the precision stays.
    String& operator=(String const& other);

    String& operator+=(String const& other);
    String& operator+=(wchar_t const* text);
    String& operator+=(char const* text);
    String& operator+=(wchar_t character);
    String& operator+=(char character);
    String& operator+=(int number);
    String& operator+=(unsigned int number);
    /// Fixed notation with `precision` decimals; with precision -1 up to 6 significant digits, as streams write them.
    String& operator+=(double number);

    /// A copy of this string, with its precision, and what is appended to it.
    template <typename Appended>
    String operator+(Appended const& appended) const {
        String sum(*this);
        sum += appended;
        return sum;
    }

    bool operator==(String const& other) const;
    bool Equals(String const& other) const { return *this == other; }

    /// Characters without the terminating zero.
    int GetLength() const { return bufferLength - 1; }
    wchar_t const* C_str() const { return textPtr; }
    /// The text as UTF-8.
    std::string ToUtf8() const;
    /// 0 outside the text.
    wchar_t CharAt(int index) const;
    /// -1 when absent.
    int LastIndexOf(wchar_t character) const;
    bool StartsWith(String const& prefix) const;
    /// From `index` to the end; empty when `index` lies outside.
    String SubStr(int index) const;
    /// Empty unless the text has `length` characters from `index` on.
    String SubStr(int index, int length) const;
    /// Only the letters A to Z and a to z change.
    String ToLowerCase() const;
    String ToUpperCase() const;
    /// Without leading and trailing spaces; other white space stays.
    String Trim() const;
    /// The number at the start of the text, 0 if there is none; a number out of range gives the nearest int.
    int ToInteger() const;
    /// The decimal number at the start of the text, with a decimal point in every language; 0 if there is none or it is
    /// out of range.
    double ToDouble() const;

    /// Decimals for numbers appended from now on; -1 is the default format. Returns this string, for chaining.
    String& SetPrecision(int decimals);

private:
    static constexpr int inlineLength = 64;

    void Assign(wchar_t const* text, int length);
    String& Append(wchar_t const* text, int length);
    String& AppendAscii(std::string_view text);
    /// Makes room for `length` characters and the terminator; the text stays.
    void Reserve(int length);

    wchar_t* textPtr = inlineText; // always ends with a zero
    int bufferLength = 1;          // with the terminator
    int precision = -1;
    int capacity = inlineLength;
    std::unique_ptr<wchar_t[]> heapText; // used by texts that do not fit inline
    wchar_t inlineText[inlineLength] = {};
};
