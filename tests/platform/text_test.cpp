// What the texts of the library ask of the system.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>

#include "platform/platform.h"

namespace {

using orvil::platform::compare_no_case;
using orvil::platform::has_lead_bytes;
using orvil::platform::is_lead_byte;
using orvil::platform::parse_int32;

}  // namespace

TEST(CompareNoCase, CaseIsIgnored) {
    EXPECT_EQ(compare_no_case("AbC", "aBc"), 0);
    EXPECT_LT(compare_no_case("abc", "ABD"), 0);
    EXPECT_GT(compare_no_case("abd", "ABC"), 0);
}

TEST(CompareNoCase, LettersCompareAsLowerCase) {
    EXPECT_GT(compare_no_case("A", "_"), 0);
    EXPECT_GT(compare_no_case("A", "_", 1), 0);
}

#ifndef _WIN32

// Wine's C runtime compares them as signed, against the rule of the one it stands for.
TEST(CompareNoCase, BytesAreUnsigned) {
    EXPECT_GT(compare_no_case("\xE9", "z"), 0);
    EXPECT_GT(compare_no_case("\xE9", "z", 1), 0);
}

#endif

TEST(CompareNoCase, BytesAbove127AreNoLetters) {
    EXPECT_EQ(compare_no_case("\xC9", "\xC9"), 0);
    EXPECT_NE(compare_no_case("\xC9", "\xE9"), 0);
    EXPECT_NE(compare_no_case("\xE9", "z"), 0);
}

TEST(CompareNoCase, AShorterTextIsLess) {
    EXPECT_LT(compare_no_case("ab", "ABC"), 0);
    EXPECT_LT(compare_no_case("", "a"), 0);
}

TEST(CompareNoCase, TheLimitEndsTheComparison) {
    EXPECT_EQ(compare_no_case("abcX", "ABCy", 3), 0);
    EXPECT_LT(compare_no_case("abcX", "ABCy", 4), 0);
    EXPECT_EQ(compare_no_case("abc", "ABC", 100), 0);
}

TEST(ParseInt32, ReadsTheNumberAtTheStart) {
    EXPECT_EQ(parse_int32("2abc"), 2);
    EXPECT_EQ(parse_int32(" \t-17 4"), -17);
    EXPECT_EQ(parse_int32("+5"), 5);
    EXPECT_EQ(parse_int32("010"), 10);
}

TEST(ParseInt32, NoNumberIsZero) {
    EXPECT_EQ(parse_int32(""), 0);
    EXPECT_EQ(parse_int32("word"), 0);
    EXPECT_EQ(parse_int32("0x10"), 0);
}

TEST(ParseInt32, TheEndsOfTheRangeAreKept) {
    EXPECT_EQ(parse_int32("2147483647"), INT32_MAX);
    EXPECT_EQ(parse_int32("-2147483648"), INT32_MIN);
}

TEST(ParseInt32, NumbersBeyond32BitsAreClamped) {
    EXPECT_EQ(parse_int32("2147483648"), INT32_MAX);
    EXPECT_EQ(parse_int32("4294967298"), INT32_MAX);
    EXPECT_EQ(parse_int32("-2147483649"), INT32_MIN);
    EXPECT_EQ(parse_int32("99999999999999999999999"), INT32_MAX);
    EXPECT_EQ(parse_int32("-99999999999999999999999"), INT32_MIN);
}

TEST(LeadByte, NoByteIsOneInTheLocaleOfC) {
    EXPECT_FALSE(has_lead_bytes());
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_FALSE(is_lead_byte(static_cast<unsigned char>(byte))) << byte;
    }
}

#ifdef _WIN32

TEST(LeadByte, CodePage932HasItsTwoRanges) {
    ASSERT_NE(std::setlocale(LC_CTYPE, "Japanese_Japan.932"), nullptr);
    EXPECT_TRUE(has_lead_bytes());
    for (int byte = 0; byte < 256; ++byte) {
        const bool expected = (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
        EXPECT_EQ(is_lead_byte(static_cast<unsigned char>(byte)), expected) << byte;
    }
    std::setlocale(LC_CTYPE, "C");
}

#endif
