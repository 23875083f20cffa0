#include "platform/Console.h"

#include "platform/Unicode.h"

#include <string>

namespace platform {

Console::Console(std::wstring_view title, std::FILE* out) : output(out) {
    std::fflush(output);
    std::setvbuf(output, nullptr, _IONBF, 0);
    std::string name = ToUtf8(title);
    std::erase_if(name, [](char letter) { return static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F; });
    std::fprintf(output, "\x1b]2;%s\x07", name.c_str());
}

Console::~Console() { std::fputs("\x1b[0m", output); }

void Console::PrintLine(std::wstring_view text) {
    // One write: the stream is unbuffered, and lines of other threads must not come in between.
    const std::string line = ToUtf8(text) + '\n';
    std::fwrite(line.data(), 1, line.size(), output);
}

void Console::SetCursorPosition(int column, int row) {
    if (column < 0 || row < 0) return;
    std::fprintf(output, "\x1b[%lld;%lldH", row + 1LL, column + 1LL);
}

void Console::SetForeColor(bool red, bool green, bool blue, bool intensity) { SetHalf(0, red, green, blue, intensity); }

void Console::SetBackColor(bool red, bool green, bool blue, bool intensity) { SetHalf(4, red, green, blue, intensity); }

void Console::Clear() { std::fputs("\x1b[H\x1b[2J\x1b[3J", output); }

void Console::SetHalf(int shift, bool red, bool green, bool blue, bool intensity) {
    const unsigned bits = (red ? 4U : 0U) | (green ? 2U : 0U) | (blue ? 1U : 0U) | (intensity ? 8U : 0U);
    attribute = static_cast<std::uint8_t>((attribute & ~(0xFU << shift)) | (bits << shift));
    // The terminal counts the other way round: red 1, green 2, blue 4, from 30 (bright 90), backgrounds 10 further.
    const int colour = (red ? 1 : 0) + (green ? 2 : 0) + (blue ? 4 : 0);
    std::fprintf(output, "\x1b[%dm", (intensity ? 90 : 30) + (shift == 0 ? 0 : 10) + colour);
}

} // namespace platform
