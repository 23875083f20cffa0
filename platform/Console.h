#pragma once

#include <cstdint>
#include <cstdio>
#include <string_view>

namespace platform {

/// A text console with coloured, positioned output: the terminal that the program was started from, driven by escape
/// codes. One attribute byte holds the colours, the foreground in its low and the background in its high half; in each
/// blue is 1, green 2, red 4 and the brighter shade 8.
class Console {
public:
    /// Names the terminal's window `title` and makes `output`, which it borrows, unbuffered.
    explicit Console(std::wstring_view title, std::FILE* output = stdout);
    /// Gives the terminal its own colours back.
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// Writes the text, as UTF-8, and a line break.
    void PrintLine(std::wstring_view text);
    /// Counted from 0 at the top left; a negative position is ignored.
    void SetCursorPosition(int column, int row);
    void SetForeColor(bool red, bool green, bool blue, bool intensity);
    void SetBackColor(bool red, bool green, bool blue, bool intensity);
    /// Empties the console in the background colour and puts the cursor at the top left.
    void Clear();

    std::uint8_t Attribute() const { return attribute; }

private:
    void SetHalf(int shift, bool red, bool green, bool blue, bool intensity);

    std::FILE* output;
    std::uint8_t attribute = 0x07; // white on black, as a terminal starts
};

} // namespace platform
