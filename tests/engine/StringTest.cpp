#include "engine/String.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

std::string Text(const String& string) { return string.ToUtf8(); }

TEST(String, AppendsTextAndNumbersAsStreamsWriteThem) {
    EXPECT_EQ(Text(String(L"Score: ") + 100), "Score: 100");
    EXPECT_EQ(Text(String("n") + -5 + 7U + L'x' + 'y' + "z" + L"!"), "n-57xyz!");
    const struct {
        double number;
        const char* text;
    } defaults[] = {{2.5, "2.5"},         {3.14159265, "3.14159"}, {0.1, "0.1"}, {1e6, "1e+06"},
                    {123456.7, "123457"}, {0.00001, "1e-05"},      {-2.0, "-2"}, {0.0, "0"}};
    for (const auto& [number, text] : defaults) EXPECT_EQ(Text(String(L"") + number), text);
    String fixed(L"x=[");
    EXPECT_EQ(Text(fixed.SetPrecision(2) + 1.5 + L", " + -2.0), "x=[1.50, -2.00");
    EXPECT_EQ(Text(String(L"").SetPrecision(0) + 1e308).size(), 309U);
    EXPECT_EQ(Text(String(L"") + std::numeric_limits<double>::infinity()), "inf");
}

TEST(String, CopyTakesThePrecisionAndAssignmentKeepsIt) {
    String two(L"");
    two.SetPrecision(2);
    String copy(two);
    EXPECT_EQ(Text(copy + 2.5), "2.50");
    String plain(L"a");
    plain = two;
    EXPECT_EQ(Text(plain + 2.5), "2.5");
    two = String(L"b");
    EXPECT_EQ(Text(two + 2.5), "b2.50");
}

TEST(String, AnswersAtTheEdgesOfTheText) {
    const String abc(L"abc");
    EXPECT_EQ(abc.CharAt(2), L'c');
    EXPECT_EQ(abc.CharAt(3), L'\0');
    EXPECT_EQ(abc.CharAt(-1), L'\0');
    const String letters(L"abcdef");
    EXPECT_EQ(Text(letters.SubStr(2, 3)), "cde");
    EXPECT_EQ(Text(letters.SubStr(4, 3)), "");
    EXPECT_EQ(Text(letters.SubStr(4)), "ef");
    EXPECT_EQ(Text(letters.SubStr(6)), "");
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int smallest = std::numeric_limits<int>::min();
    for (const int index : {smallest, -1, largest}) EXPECT_EQ(Text(letters.SubStr(index)), "");
    for (const int index : {smallest, -1, 1, largest})
        for (const int length : {smallest, -1, 0, largest}) EXPECT_EQ(Text(letters.SubStr(index, length)), "");
    EXPECT_EQ(String(L"a b a").LastIndexOf(L'a'), 4);
    EXPECT_EQ(String(L"a b a").LastIndexOf(L'z'), -1);
    EXPECT_TRUE(letters.StartsWith(L"abc"));
    EXPECT_FALSE(abc.StartsWith(letters));
    EXPECT_EQ(Text(String(L"  hi\t  ").Trim()), "hi\t");
    EXPECT_EQ(Text(String(L"    ").Trim()), "");
    EXPECT_EQ(Text(String(L"aZ\u00e4").ToUpperCase()), "AZ\u00e4");
    EXPECT_EQ(Text(String(L"aZ\u00c4").ToLowerCase()), "az\u00c4");
}

TEST(String, ReadsTheNumberAtItsStart) {
    EXPECT_EQ(String(L"  +42abc").ToInteger(), 42);
    EXPECT_EQ(String(L"abc").ToInteger(), 0);
    EXPECT_EQ(String(L"99999999999999").ToInteger(), std::numeric_limits<int>::max());
    const struct {
        const wchar_t* text;
        double number;
    } numbers[] = {{L"2.5e1 apples", 25.0}, {L" \t-.5", -0.5}, {L"+3", 3.0},  {L"1e5", 1e5},  {L"2eggs", 2.0},
                   {L"0x10", 0.0},          {L"7.,8", 7.0},    {L"1,5", 1.0}, {L"info", 0.0}, {L"-inf", 0.0},
                   {L"nano", 0.0},          {L"+-3", 0.0},     {L"e5", 0.0},  {L".", 0.0},    {L"", 0.0},
                   {L"1e999", 0.0},         {L"\u0661", 0.0}};
    for (const auto& [text, number] : numbers) EXPECT_EQ(String(text).ToDouble(), number) << Text(text);
}

TEST(String, GrowsBeyondItsInlineRoomAndIntoItself) {
    String text(L"0123456789");
    for (int i = 0; i < 5; ++i) text += text;
    EXPECT_EQ(text.GetLength(), 320);
    EXPECT_EQ(text.CharAt(319), L'9');
    const String copy = text;
    text += L'!';
    EXPECT_EQ(copy.GetLength(), 320);
    EXPECT_FALSE(copy == text);
    EXPECT_TRUE(text.SubStr(0, 320) == copy);
}

TEST(String, KeepsTextOutsideAscii) {
    EXPECT_EQ(Text(String("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80")), "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(String("\xFF").GetLength(), 1);
    EXPECT_EQ(String('\xE4').CharAt(0), L'\xE4');
}

} // namespace
