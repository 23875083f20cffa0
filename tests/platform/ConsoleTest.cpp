#include "platform/Console.h"

#include <gtest/gtest.h>

#include <string>

TEST(Console, WritesWhatTheTerminalUnderstands) {
    std::FILE* const stream = std::tmpfile();
    {
        platform::Console console(L"Console \u00e9\x1b]0;", stream);
        console.SetForeColor(true, false, false, true);
        EXPECT_EQ(console.Attribute(), 0x0C);
        console.SetBackColor(false, false, true, false);
        EXPECT_EQ(console.Attribute(), 0x1C) << "bright red on blue";
        console.SetForeColor(false, true, true, false);
        EXPECT_EQ(console.Attribute(), 0x13);
        console.SetBackColor(true, true, true, true);
        EXPECT_EQ(console.Attribute(), 0xF3);
        console.SetCursorPosition(4, 0); // counted from 0
        console.PrintLine(L"Gr\u00fc\u00dfe");
        console.SetCursorPosition(-1, 3); // ignored
        console.Clear();
    }
    std::string text(static_cast<std::size_t>(std::ftell(stream)), '\0');
    std::rewind(stream);
    EXPECT_EQ(std::fread(text.data(), 1, text.size(), stream), text.size());
    std::fclose(stream);
    EXPECT_EQ(text, "\x1b]2;Console \xc3\xa9]0;\x07" // a title cannot smuggle in commands
                    "\x1b[91m\x1b[44m\x1b[36m\x1b[107m"
                    "\x1b[1;5HGr\xc3\xbc\xc3\x9f"
                    "e\n\x1b[H\x1b[2J\x1b[3J\x1b[0m");
}
