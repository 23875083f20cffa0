#include "platform/Unicode.h"

#include <gtest/gtest.h>

using platform::FromUtf8;
using platform::ToUtf8;

TEST(Unicode, EveryLengthOfSequenceSurvivesTheRoundTrip) {
    const std::string utf8 = "a\x7f\xc2\x80\xdf\xbf\xe0\xa0\x80\xef\xbf\xbf\xf0\x90\x80\x80\xf4\x8f\xbf\xbf";
    const std::wstring wide = FromUtf8(utf8);
    EXPECT_EQ(wide, L"a\x7f\x80\x7ff\x800\xffff\U00010000\U0010ffff");
    EXPECT_EQ(ToUtf8(wide), utf8);
}

TEST(Unicode, WhatIsNoCharacterIsReplaced) {
    const std::wstring lone = {wchar_t(0xD800), L'x', wchar_t(0xDC00)};
    EXPECT_EQ(ToUtf8(lone), "\xef\xbf\xbdx\xef\xbf\xbd");
    // Cut short, continuation first, too long for its value, half of a pair, beyond the last code point.
    EXPECT_EQ(FromUtf8("\xc3"), L"\xfffd");
    EXPECT_EQ(FromUtf8("\xbfz"), L"\xfffdz");
    EXPECT_EQ(FromUtf8("\xc0\xaf"), L"\xfffd\xfffd");
    EXPECT_EQ(FromUtf8("\xed\xa0\x80"), L"\xfffd\xfffd\xfffd");
    EXPECT_EQ(FromUtf8("\xf4\x90\x80\x80"), L"\xfffd\xfffd\xfffd\xfffd");
    EXPECT_EQ(FromUtf8("\xe2\x82!"), L"\xfffd\xfffd!");
}
