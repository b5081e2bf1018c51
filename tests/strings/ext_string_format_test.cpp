// printf-style formats, values by kind, and templates with placeholders.
#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_string.h"
#include "strings/ext_string_probe.h"

using orvil::test::capacity_of;
using orvil::test::counted;
using orvil::test::has_buffer;

namespace {

// Behind what the compiler checks: formats that are null, empty or unusual.
const char* const kNull = nullptr;
const char* unchecked(const char* format) {
    return format;
}

std::string letters(int n) {
    return std::string(static_cast<std::size_t>(n), 'x');
}

}  // namespace

// --- Format ---------------------------------------------------------------------------------------------------------

TEST(ExtStringFormat, FormatsAndReturnsTheLength) {
    CExtString s("old");
    EXPECT_EQ(s.Format("%s=%d (%.2f)", "name", 42, 1.5), 14);
    EXPECT_EQ(counted(s), "14:name=42 (1.50)");
}

TEST(ExtStringFormat, CapacityIsTheNextEightStrictlyAboveTheLength) {
    for (int n = 1; n < 40; ++n) {
        CExtString s;
        EXPECT_EQ(s.Format("%*s", n, ""), n);
        EXPECT_EQ(capacity_of(s), n / 8 * 8 + 8) << n;
    }
}

TEST(ExtStringFormat, AnEmptyResultHasABufferOfCapacityEight) {
    CExtString s("old");
    EXPECT_EQ(s.Format("%s", ""), 0);
    EXPECT_EQ(counted(s), "0:");
    EXPECT_TRUE(has_buffer(s));
    EXPECT_EQ(capacity_of(s), 8);
}

TEST(ExtStringFormat, ANullFormatGivesAnEmptyText) {
    CExtString s("old");
    EXPECT_EQ(s.Format(unchecked(kNull)), 0);
    EXPECT_FALSE(has_buffer(s));
}

TEST(ExtStringFormat, AnEmbeddedZeroCounts) {
    CExtString s;
    EXPECT_EQ(s.Format("a%cb", 0), 3);
    EXPECT_EQ(counted(s), "3:a");
    EXPECT_EQ(s.GetAt(2), 'b');
}

TEST(ExtStringFormat, LongTextsComeOutWhole) {
    for (int n : {510, 511, 512, 513, 1000, 100000}) {
        CExtString s;
        EXPECT_EQ(s.Format("%s", letters(n).c_str()), n);
        EXPECT_EQ(s.GetString(), letters(n)) << n;
        EXPECT_EQ(capacity_of(s), n / 8 * 8 + 8) << n;
    }
}

TEST(ExtStringFormat, EveryLengthComesOutWhole) {
    for (std::size_t length = 500; length < 530; ++length) {
        const std::string text = std::string(length - 1, 'x') + "y";
        CExtString s;
        EXPECT_EQ(s.Format("%s", text.c_str()), static_cast<int>(length));
        EXPECT_EQ(text, s.GetString());
    }
}

TEST(ExtStringFormat, ALongTextWithAnEmbeddedZeroComesOutWhole) {
    CExtString s;
    EXPECT_EQ(s.Format("%s%c%s", letters(600).c_str(), 0, "end"), 604);
    EXPECT_STREQ(s.GetString() + 601, "end");
}

TEST(ExtStringFormat, TheOwnTextMayBeAnArgument) {
    CExtString s("abc");
    EXPECT_EQ(s.Format("[%s][%s]", s.GetString(), s.GetString() + 1), 9);
    EXPECT_EQ(counted(s), "9:[abc][bc]");
    s = letters(700).c_str();
    EXPECT_EQ(s.Format("%s!", s.GetString()), 701);
    EXPECT_EQ(s.GetString(), letters(700) + "!");
}

TEST(ExtStringFormat, TheOwnTextMayBeTheFormat) {
    CExtString s("%d and %s");
    EXPECT_EQ(s.Format(unchecked(s), 7, "more"), 10);
    EXPECT_EQ(counted(s), "10:7 and more");
}

// Only some C runtimes refuse a character that the locale lacks; the string follows the one it runs on.
TEST(ExtStringFormat, AFailedFormatGivesMinusOneAsTheLengthToo) {
    const wchar_t unpaired[] = {static_cast<wchar_t>(0xD800), 0};
    char ignored[16];
    const int expected = std::snprintf(ignored, sizeof ignored, "ab%ls", unpaired);
    CExtString s("old");
    EXPECT_EQ(s.Format("ab%ls", unpaired), expected);
    EXPECT_EQ(s.GetLength(), expected);
    EXPECT_EQ(capacity_of(s), 8);
    if (expected < 0) {
        EXPECT_EQ(counted(s), "-1:");
        EXPECT_TRUE(s.ConcatString("new"));
        EXPECT_EQ(counted(s), "3:new");
    }
}

// --- values by kind -------------------------------------------------------------------------------------------------

namespace {

struct Parsed {
    bool accepted;
    std::string text;
    int next;  // the argument behind, which shows that exactly the value was taken
};

Parsed parse(int kind, ...) {
    va_list args;
    va_start(args, kind);
    CExtString out("old");
    const bool accepted = gExtFormat_ParseParts(out, static_cast<EFT>(kind), args);
    const int next = va_arg(args, int);
    va_end(args);
    return {accepted, counted(out), next};
}

std::uint32_t bits_of(float value) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

void expect_parsed(const Parsed& parsed, const char* text) {
    EXPECT_TRUE(parsed.accepted);
    EXPECT_EQ(parsed.text, text);
    EXPECT_EQ(parsed.next, 99);
}

std::string formatted_pointer(const void* p) {
    CExtString s;
    s.Format("%p", p);
    return counted(s);
}

}  // namespace

TEST(ExtFormatKinds, ValuesAreNumberedAsStated) {
    EXPECT_EQ(EFT_END, 0);
    EXPECT_EQ(EFT_CHAR, 1);
    EXPECT_EQ(EFT_TEXT, 9);
    EXPECT_EQ(EFT_POINTER, 10);
    EXPECT_EQ(EFT_FORMATTED_CHAR, 11);
    EXPECT_EQ(EFT_FORMATTED_POINTER, 20);
}

TEST(ExtFormatKinds, PlainKindsUseTheirOwnFormat) {
    const char byte = '\xE9';
    const unsigned char unsigned_byte = 0xE9;
    expect_parsed(parse(1, 'c', 99), "1:c");
    expect_parsed(parse(1, byte, 99), "1:\xE9");
    expect_parsed(parse(2, unsigned_byte, 99), "1:\xE9");
    expect_parsed(parse(3, -32768, 99), "6:-32768");
    expect_parsed(parse(4, 65535, 99), "5:65535");
    expect_parsed(parse(5, -2147483647L, 99), "11:-2147483647");
    expect_parsed(parse(6, 4294967295UL, 99), "10:4294967295");
    expect_parsed(parse(7, bits_of(1.5f), 99), "8:1.500000");
    expect_parsed(parse(8, -2.25, 99), "9:-2.250000");
    expect_parsed(parse(9, "text", 99), "4:text");
}

TEST(ExtFormatKinds, APointerIsFormattedLikeFormatDoes) {
    int object = 0;
    expect_parsed(parse(10, static_cast<const void*>(&object), 99), formatted_pointer(&object).c_str());
}

TEST(ExtFormatKinds, SmallTypesAreNarrowed) {
    expect_parsed(parse(3, 65536 + 7, 99), "1:7");
    expect_parsed(parse(3, 40000, 99), "6:-25536");
    expect_parsed(parse(4, -1, 99), "5:65535");
    expect_parsed(parse(1, 256 + 'c', 99), "1:c");
}

TEST(ExtFormatKinds, LongsHaveThirtyTwoBitsOnEverySystem) {
    const long wide = static_cast<long>(0x180000000LL);  // all of it where a long has 64 bits
    expect_parsed(parse(5, wide, 99), sizeof(long) == 4 ? "11:-2147483648" : "11:-2147483648");
    expect_parsed(parse(6, -1L, 99), "10:4294967295");
    expect_parsed(parse(15, "<%ld>", -1L, 99), "4:<-1>");
    expect_parsed(parse(16, "<%lx>", -1L, 99), "10:<ffffffff>");
}

TEST(ExtFormatKinds, AZeroCharacterCounts) {
    expect_parsed(parse(1, 0, 99), "1:");
}

TEST(ExtFormatKinds, FormattedKindsUseTheCallersFormat) {
    const unsigned char byte = 0xE9;
    expect_parsed(parse(11, "<%c>", 'c', 99), "3:<c>");
    expect_parsed(parse(12, "<%c>", byte, 99), "3:<\xE9>");
    expect_parsed(parse(13, "%05d", -12, 99), "5:-0012");
    expect_parsed(parse(14, "%x", 0xBEEF, 99), "4:beef");
    expect_parsed(parse(15, "%6ld|", 1234L, 99), "7:  1234|");
    expect_parsed(parse(16, "%lX", 0xABCDUL, 99), "4:ABCD");
    expect_parsed(parse(17, "%.1f", bits_of(0.25f), 99), "3:0.2");
    expect_parsed(parse(18, "%.3e", 12345.0, 99), "9:1.234e+04");
    expect_parsed(parse(19, "[%-5s]", "ab", 99), "7:[ab   ]");
}

TEST(ExtFormatKinds, AFormattedPointerIsFormattedLikeFormatDoes) {
    int object = 0;
    CExtString expected;
    expected.Format("<%p>", static_cast<void*>(&object));
    expect_parsed(parse(20, "<%p>", static_cast<const void*>(&object), 99), counted(expected).c_str());
}

TEST(ExtFormatKinds, UnknownKindsTakeNothingAndEmptyTheText) {
    for (int kind : {0, 21, 25, 31}) {
        const Parsed parsed = parse(kind, 99);
        EXPECT_FALSE(parsed.accepted) << kind;
        EXPECT_EQ(parsed.text, "0:") << kind;
        EXPECT_EQ(parsed.next, 99) << kind;
    }
}

TEST(ExtFormatKinds, NullTextsAndFormatsGiveAnEmptyTextAndTakeTheirSlots) {
    expect_parsed(parse(9, kNull, 99), "0:");
    expect_parsed(parse(19, "<%s>", kNull, 99), "0:");
    expect_parsed(parse(13, kNull, 5, 99), "0:");
    expect_parsed(parse(18, kNull, 5.0, 99), "0:");
}

TEST(ExtFormatKinds, TheTargetsOwnTextMayBeTheValueOrTheFormat) {
    CExtString s("own text");
    EXPECT_TRUE(orvil::test::parse_part(s, EFT_TEXT, s.GetString() + 4));
    EXPECT_EQ(counted(s), "4:text");
    s = "%d!";
    EXPECT_TRUE(orvil::test::parse_part(s, EFT_FORMATTED_SHORT, s.GetString(), 5));
    EXPECT_EQ(counted(s), "2:5!");
}

// --- templates with values of an array ------------------------------------------------------------------------------

namespace {

struct TemplateRow {
    const char* format;
    const char* expected;
};

// The values are "x", "y", an empty one and "%1%".
const TemplateRow kTemplateRows[] = {
    {"%2%-%1%", "y-x"},
    {"plain", "plain"},
    {"%1%", "x"},
    {"a%1%b%2%c", "axbyc"},
    {"%1%%2%", "xy"},
    {"[%3%]", "[]"},
    {"[%5%]", "[]"},
    {"[%99999999999999999999%]", "[]"},
    {"[%4294967297%]", "[]"},
    {"[%2147483648%]", "[]"},
    {"%4%", "%1%"},
    {"%01%", "x"},
    {"%002%", "y"},
    {"%", "%"},
    {"100%", "100%"},
    {"%a", "%a"},
    {"%d items", "%d items"},
    {"%1", "%1"},
    {"%1 %2%", "%1 y"},
    {"% 1%", "% 1%"},
    {"%+1%", "%+1%"},
    {"%-1%", "%-1%"},
    {"%1x%2%", "%1xy"},
    {"%%", "%%"},
    {"%%%", "%%%"},
    {"%%1%", "%x"},
    {"%%1%%", "%x%"},
    {"%0%", "%0%"},
    {"%0%1%", "%0x"},
    {"%00%", "%00%"},
    {"%1%1%", "x1%"},
    {"%1%2%1%", "x2x"},
    {"%1%2%3%", "x2"},
};

void fill_values(CExtStrArray& values) {
    values.Add("x");
    values.Add("y");
    values.Add("");
    values.Add("%1%");
}

}  // namespace

TEST(ExtFormatTemplate, EachRowIsReplacedAsStated) {
    CExtStrArray values;
    fill_values(values);
    for (const TemplateRow& row : kTemplateRows) {
        CExtString s("old");
        const int length = s.ExtFormat(row.format, values);
        EXPECT_STREQ(s, row.expected) << row.format;
        EXPECT_EQ(length, static_cast<int>(std::strlen(row.expected))) << row.format;
        EXPECT_EQ(s.GetLength(), length) << row.format;
    }
}

TEST(ExtFormatTemplate, ANumberWithALeadingZeroIsDecimal) {
    CExtStrArray values;
    values.Add("other", 9);
    values.Add("tenth");
    CExtString s;
    s.ExtFormat("%010%", values);
    EXPECT_STREQ(s, "tenth");
}

TEST(ExtFormatTemplate, AnEmptyOrNullFormatEmpties) {
    CExtStrArray values;
    fill_values(values);
    for (const char* format : {kNull, ""}) {
        CExtString s("old");
        EXPECT_EQ(s.ExtFormat(format, values), 0);
        EXPECT_FALSE(has_buffer(s));
    }
}

TEST(ExtFormatTemplate, NoValuesReplaceEveryPlaceholderByNothing) {
    CExtString s;
    EXPECT_EQ(s.ExtFormat("a%1%b%2%c", CExtStrArray()), 3);
    EXPECT_EQ(counted(s), "3:abc");
}

TEST(ExtFormatTemplate, TheOwnTextMayBeTheFormat) {
    CExtStrArray values;
    fill_values(values);
    CExtString s("<%2%%1%>, a longer template than eight bytes");
    EXPECT_EQ(s.ExtFormat(s, values), 40);
    EXPECT_STREQ(s, "<yx>, a longer template than eight bytes");
}

TEST(ExtFormatTemplate, CapacityFollowsTheAppends) {
    CExtStrArray values;
    values.Add(letters(20).c_str());
    CExtString s;
    EXPECT_EQ(s.ExtFormat("%1%%1%", values), 40);
    EXPECT_EQ(capacity_of(s), 48);
}

TEST(ExtFormatTemplate, LongRunsWithoutPlaceholdersComeOutWhole) {
    const std::string digits = "%" + std::string(1 << 20, '1');
    const std::string percents(1 << 14, '%');
    CExtString s;
    EXPECT_EQ(s.ExtFormat(digits.c_str(), CExtStrArray()), (1 << 20) + 1);
    EXPECT_EQ(s.GetString(), digits);
    EXPECT_EQ(s.ExtFormat(percents.c_str(), CExtStrArray()), 1 << 14);
    EXPECT_EQ(s.GetString(), percents);
}

// --- templates with values of an argument list ----------------------------------------------------------------------

TEST(ExtFormatList, TextsReplaceTheirPlaceholders) {
    CExtString s;
    EXPECT_EQ(s.ExtFormat("%2%-%1%", EFT_TEXT, "x", EFT_TEXT, "y", EFT_END), 3);
    EXPECT_EQ(counted(s), "3:y-x");
}

TEST(ExtFormatList, EveryKindCanStandInOneList) {
    CExtString s;
    const unsigned char byte = 'b';
    s.ExtFormat("%1%|%2%|%3%|%4%|%5%|%6%|%7%|%8%|%9%", EFT_CHAR, 'a', EFT_UCHAR, byte, EFT_SHORT, -3, EFT_USHORT, 4,
                EFT_LONG, -5L, EFT_ULONG, 6UL, EFT_FLOAT_BITS, bits_of(7.5f), EFT_DOUBLE, 8.5, EFT_TEXT, "nine",
                EFT_END);
    EXPECT_STREQ(s, "a|b|-3|4|-5|6|7.500000|8.500000|nine");
}

TEST(ExtFormatList, FormattedKindsTakeTwoArguments) {
    CExtString s;
    s.ExtFormat("%3%, %2%, %1%", EFT_FORMATTED_SHORT, "%03d", 7, EFT_FORMATTED_DOUBLE, "%.1f", 2.5, EFT_FORMATTED_TEXT,
                "<%s>", "t", EFT_END);
    EXPECT_STREQ(s, "<t>, 2.5, 007");
}

TEST(ExtFormatList, ManyValuesSpillOutOfTheRegisters) {
    CExtString s;
    s.ExtFormat("%1%%2%%3%%4%%5%%6%%7%%8%%9%%10%%11%", EFT_DOUBLE, 1.0, EFT_SHORT, 2, EFT_DOUBLE, 3.0, EFT_SHORT, 4,
                EFT_DOUBLE, 5.0, EFT_SHORT, 6, EFT_DOUBLE, 7.0, EFT_SHORT, 8, EFT_DOUBLE, 9.0, EFT_SHORT, 10,
                EFT_DOUBLE, 11.0, EFT_END);
    EXPECT_STREQ(s, "1.00000023.00000045.00000067.00000089.0000001011.000000");
}

TEST(ExtFormatList, AFirstEndOrUnknownKindCollectsNothing) {
    CExtString s;
    EXPECT_EQ(s.ExtFormat("<%1%>", EFT_END), 2);
    EXPECT_EQ(s.ExtFormat("<%1%>", static_cast<EFT>(21), "x", EFT_END), 2);
    EXPECT_STREQ(s, "<>");
}

TEST(ExtFormatList, AKindAboveTwentyEndsTheList) {
    CExtString s;
    s.ExtFormat("<%1%%2%>", EFT_TEXT, "x", 21, "y", EFT_END);
    EXPECT_STREQ(s, "<x>");
    s.ExtFormat("<%1%%2%>", EFT_TEXT, "x", 1000, "y", EFT_END);
    EXPECT_STREQ(s, "<x>");
    s.ExtFormat("<%1%%2%>", EFT_TEXT, "x", -1, "y", EFT_END);
    EXPECT_STREQ(s, "<x>");
}

TEST(ExtFormatList, EmptyTextsKeepTheirNumbers) {
    CExtString s;
    s.ExtFormat("<%1%%2%%3%>", EFT_TEXT, kNull, EFT_TEXT, "", EFT_TEXT, "z", EFT_END);
    EXPECT_STREQ(s, "<z>");
}

TEST(ExtFormatList, ValuesAreNotSearchedForPlaceholders) {
    CExtString s;
    s.ExtFormat("%1%", EFT_TEXT, "%2%", EFT_TEXT, "y", EFT_END);
    EXPECT_STREQ(s, "%2%");
}

TEST(ExtFormatList, TheOwnTextMayBeAValueOrTheFormat) {
    CExtString s("own");
    s.ExtFormat("<%1%>", EFT_TEXT, s.GetString(), EFT_END);
    EXPECT_STREQ(s, "<own>");
    s = "[%1%]";
    s.ExtFormat(s, EFT_TEXT, "value", EFT_END);
    EXPECT_STREQ(s, "[value]");
}

TEST(ExtFormatList, ANullFormatEmpties) {
    CExtString s("old");
    EXPECT_EQ(s.ExtFormat(kNull, EFT_TEXT, "x", EFT_END), 0);
    EXPECT_FALSE(has_buffer(s));
}
