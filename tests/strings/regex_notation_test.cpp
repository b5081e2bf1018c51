#include "strings/regex_notation.h"

#include <gtest/gtest.h>

#include <string>

namespace orvil::detail {
namespace {

struct Parsed {
    bool valid;
    std::string pattern;
    int options;
};

Parsed parse(const char* text) {
    const auto notation = parse_regex_notation(text);
    return notation ? Parsed{true, std::string(notation->pattern, notation->length), notation->options}
                    : Parsed{false, "", -1};
}

#define EXPECT_NOTATION(text, expected_pattern, expected_options) \
    do {                                                          \
        const Parsed parsed = parse(text);                        \
        EXPECT_TRUE(parsed.valid) << (text);                      \
        EXPECT_EQ(parsed.pattern, expected_pattern) << (text);    \
        EXPECT_EQ(parsed.options, expected_options) << (text);    \
    } while (false)

#define EXPECT_INVALID(text) EXPECT_FALSE(parse(text).valid) << (text)

TEST(RegexNotation, EmptyAndBlankTextsAreInvalid) {
    EXPECT_INVALID("");
    EXPECT_INVALID(" ");
    EXPECT_INVALID(" \t\n\v\f\r");
}

TEST(RegexNotation, LeadingWhiteSpaceOfAllSixKindsIsSkipped) {
    EXPECT_NOTATION(" \t\n\v\f\r/abc/", "abc", 0);
}

TEST(RegexNotation, LettersDigitsAndBackslashAreNoDelimiters) {
    EXPECT_INVALID("abca");
    EXPECT_INVALID("ZabcZ");
    EXPECT_INVALID("0abc0");
    EXPECT_INVALID("9abc9");
    EXPECT_INVALID("\\abc\\");
    EXPECT_INVALID("  xabcx");
}

TEST(RegexNotation, EveryOtherCharacterIsADelimiter) {
    for (int c = 1; c < 256; ++c) {
        const bool letter_or_digit = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        const bool white = c == ' ' || (c >= 9 && c <= 13);
        if (letter_or_digit || white || c == '\\') {
            continue;
        }
        const std::string text = std::string(1, static_cast<char>(c)) + "zz" + static_cast<char>(c) + "i";
        EXPECT_NOTATION(text.c_str(), "zz", 0x0001);
    }
}

TEST(RegexNotation, BracketsAreClosedByThemselvesNotByTheirPartners) {
    EXPECT_NOTATION("(abc(", "abc", 0);
    EXPECT_NOTATION("{abc{i", "abc", 0x0001);
    EXPECT_NOTATION("(abc)", "abc)", 0);
    EXPECT_NOTATION("{abc}", "abc}", 0);
}

TEST(RegexNotation, BackslashDoesNotProtectADelimiter) {
    EXPECT_NOTATION("/a\\/i", "a\\", 0x0001);
    EXPECT_INVALID("/a\\/b/");
}

TEST(RegexNotation, MissingClosingDelimiterTakesTheWholeRest) {
    EXPECT_NOTATION("/abc", "abc", 0);
    EXPECT_NOTATION("#a/i", "a/i", 0);
    EXPECT_NOTATION("/^", "^", 0);
}

TEST(RegexNotation, LoneDelimiterIsTheEmptyPattern) {
    EXPECT_NOTATION("/", "", 0);
}

TEST(RegexNotation, TwoDelimitersSideBySideTakeTheRestAndItsFlags) {
    EXPECT_NOTATION("//", "/", 0);
    EXPECT_NOTATION("//i", "/i", 0x0001);
    EXPECT_NOTATION("//im", "/im", 0x0003);
    EXPECT_NOTATION("## x", "# x", 0x0008);
    EXPECT_INVALID("//g");
    EXPECT_INVALID("//a/");
}

TEST(RegexNotation, EachFlagHasItsOption) {
    EXPECT_NOTATION("/a/i", "a", 0x0001);
    EXPECT_NOTATION("/a/m", "a", 0x0002);
    EXPECT_NOTATION("/a/s", "a", 0x0004);
    EXPECT_NOTATION("/a/x", "a", 0x0008);
    EXPECT_NOTATION("/a/A", "a", 0x0010);
    EXPECT_NOTATION("/a/E", "a", 0x0020);
    EXPECT_NOTATION("/a/X", "a", 0x0040);
    EXPECT_NOTATION("/a/U", "a", 0x0200);
}

TEST(RegexNotation, FlagsAddUpAndMayRepeat) {
    EXPECT_NOTATION("/a/imsxAEXU", "a", 0x027F);
    EXPECT_NOTATION("/a/iii", "a", 0x0001);
}

TEST(RegexNotation, BlanksAndLineFeedsAmongFlagsAreSkipped) {
    EXPECT_NOTATION("/a/ i\n m \n", "a", 0x0003);
}

TEST(RegexNotation, EveryOtherFlagCharacterIsInvalid) {
    const std::string allowed = "imsxAEXU \n";
    for (int c = 1; c < 256; ++c) {
        const char flag = static_cast<char>(c);
        const std::string text = std::string("/a/i") + flag;
        EXPECT_EQ(parse(text.c_str()).valid, allowed.find(flag) != std::string::npos) << c;
    }
}

TEST(RegexNotation, TextBehindASecondClosingDelimiterIsFlags) {
    EXPECT_INVALID("/a/b/");
    EXPECT_INVALID("/a/i/");
}

}  // namespace
}  // namespace orvil::detail
