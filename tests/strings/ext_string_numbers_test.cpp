// Number formats and their values.
#include <gtest/gtest.h>

#include <climits>

#include "orvil/strings/ext_string.h"

namespace {

struct FormatRow {
    const char* text;
    bool integer, hexadecimal, floating;
};

// The three answers for one text.
const FormatRow kFormatRows[] = {
    {nullptr, false, false, false},
    {"", false, true, false},
    {" ", false, true, false},
    {"\t ", false, true, false},
    {"0", true, true, true},
    {"-0", true, false, true},
    {"+0", true, false, true},
    {"00", false, true, true},
    {"007", false, true, true},
    {"01", false, true, true},
    {"-01", false, false, true},
    {"10", true, true, true},
    {"012", false, true, true},
    {" 12", true, true, true},
    {"\t12", true, true, true},
    {" \t -12", true, false, true},
    {"12 ", false, false, false},
    {"\n12", false, false, false},
    {"1 2", false, false, false},
    {"+", false, false, false},
    {"-", false, false, false},
    {" +", false, false, false},
    {"+-1", false, false, false},
    {"- 1", false, false, false},
    {"12345678901234567890", true, true, true},
    {"12a", false, true, false},
    {"a", false, true, false},
    {"ABCDEFabcdef", false, true, false},
    {"g", false, false, false},
    {"0x", false, true, false},
    {"0X", false, true, false},
    {" \t0xFf", false, true, false},
    {"x1", false, false, false},
    {"1x1", false, false, false},
    {"00x1", false, false, false},
    {"0x0x1", false, false, false},
    {"0x 1", false, false, false},
    {"0x-1", false, false, false},
    {"1.5", false, false, true},
    {"1.", false, false, true},
    {"1.2.3", false, false, true},
    {"1..", false, false, true},
    {".5", false, false, true},
    {"+.5", false, false, true},
    {"-.5e3", false, false, true},
    {".", false, false, false},
    {"-.", false, false, false},
    {".e1", false, false, false},
    {".5.", false, false, false},
    {".5.5", false, false, false},
    {"1e", false, true, true},
    {"1E", false, true, true},
    {"1e+", false, false, true},
    {"1e-", false, false, true},
    {"1e5", false, true, true},
    {"1e+05", false, false, true},
    {".5e", false, false, true},
    {"1.5E-10", false, false, true},
    {"1e5 ", false, false, false},
    {"1e+ ", false, false, false},
    {"1e1.5", false, false, false},
    {"1e++5", false, false, false},
    {"1ee5", false, true, false},
    {"e5", false, true, false},
    {"1f", false, true, false},
    {"1.f", false, false, false},
    {" 1.5", false, false, true},
    {"1 .5", false, false, false},
    {"inf", false, false, false},
    {"nan", false, false, false},
    {"\xE9", false, false, false},
    {"1\xB2", false, false, false},
};

int parsed_integer(const char* text) {
    int value = 77;
    EXPECT_TRUE(CExtString(text).ParseInteger(value)) << text;
    return value;
}

unsigned long parsed_hexadecimal(const char* text) {
    unsigned long value = 77;
    EXPECT_TRUE(CExtString(text).ParseHexaDecimal(value)) << text;
    return value;
}

double parsed_floating(const char* text) {
    double value = 77;
    EXPECT_TRUE(CExtString(text).ParseFloatingPoint(value)) << text;
    return value;
}

const char* shown(const char* text) {
    return text == nullptr ? "(null)" : text;
}

}  // namespace

TEST(ExtStringNumberFormats, EachRowHasTheStatedAnswers) {
    for (const FormatRow& row : kFormatRows) {
        EXPECT_EQ(CExtString::IsIntegerFormat(row.text), row.integer) << shown(row.text);
        EXPECT_EQ(CExtString::IsHexaDecimalFormat(row.text), row.hexadecimal) << shown(row.text);
        EXPECT_EQ(CExtString::IsFloatingPointFormat(row.text), row.floating) << shown(row.text);
    }
}

TEST(ExtStringNumberFormats, ParsingSucceedsForTheSameTexts) {
    for (const FormatRow& row : kFormatRows) {
        const CExtString s(row.text);
        int integer = 0;
        unsigned long hexadecimal = 0;
        double floating = 0;
        EXPECT_EQ(s.ParseInteger(integer), row.integer) << shown(row.text);
        // A null text is an empty one once it is in a string.
        EXPECT_EQ(s.ParseHexaDecimal(hexadecimal), row.text == nullptr || row.hexadecimal) << shown(row.text);
        EXPECT_EQ(s.ParseFloatingPoint(floating), row.floating) << shown(row.text);
    }
}

TEST(ExtStringNumberFormats, RefusedTextLeavesTheValue) {
    const CExtString s("xyz");
    int integer = 77;
    unsigned long hexadecimal = 77;
    double floating = 77;
    EXPECT_FALSE(s.ParseInteger(integer));
    EXPECT_FALSE(s.ParseHexaDecimal(hexadecimal));
    EXPECT_FALSE(s.ParseFloatingPoint(floating));
    EXPECT_EQ(integer, 77);
    EXPECT_EQ(hexadecimal, 77u);
    EXPECT_EQ(floating, 77);
}

TEST(ExtStringParseInteger, GivesTheValue) {
    EXPECT_EQ(parsed_integer("0"), 0);
    EXPECT_EQ(parsed_integer("-0"), 0);
    EXPECT_EQ(parsed_integer(" \t+12"), 12);
    EXPECT_EQ(parsed_integer("-2147483648"), INT_MIN);
    EXPECT_EQ(parsed_integer("2147483647"), INT_MAX);
}

TEST(ExtStringParseInteger, BeyondThirtyTwoBitsGivesTheNearestValue) {
    EXPECT_EQ(parsed_integer("2147483648"), INT_MAX);
    EXPECT_EQ(parsed_integer("-2147483649"), INT_MIN);
    EXPECT_EQ(parsed_integer("99999999999999999999999"), INT_MAX);
    EXPECT_EQ(parsed_integer("-99999999999999999999999"), INT_MIN);
}

TEST(ExtStringParseHexaDecimal, GivesTheValue) {
    EXPECT_EQ(parsed_hexadecimal("1F"), 0x1Fu);
    EXPECT_EQ(parsed_hexadecimal("0xabcdef"), 0xABCDEFu);
    EXPECT_EQ(parsed_hexadecimal("0XABCDEF"), 0xABCDEFu);
    EXPECT_EQ(parsed_hexadecimal(" \t0123456789"), 0x23456789u);
    EXPECT_EQ(parsed_hexadecimal("FFFFFFFF"), 0xFFFFFFFFu);
}

TEST(ExtStringParseHexaDecimal, MoreThanEightDigitsKeepTheLowThirtyTwoBits) {
    EXPECT_EQ(parsed_hexadecimal("123456789"), 0x23456789u);
    EXPECT_EQ(parsed_hexadecimal("F00000000"), 0u);
}

TEST(ExtStringParseHexaDecimal, NoDigitGivesZero) {
    EXPECT_EQ(parsed_hexadecimal(""), 0u);
    EXPECT_EQ(parsed_hexadecimal("  "), 0u);
    EXPECT_EQ(parsed_hexadecimal("0x"), 0u);
    EXPECT_EQ(parsed_hexadecimal("0"), 0u);
}

TEST(ExtStringParseFloatingPoint, GivesWhatStrtodReads) {
    EXPECT_EQ(parsed_floating("1.5"), 1.5);
    EXPECT_EQ(parsed_floating(" -1.5e3"), -1500.0);
    EXPECT_EQ(parsed_floating(".5"), 0.5);
    EXPECT_EQ(parsed_floating("1.2.3"), 1.2);
    EXPECT_EQ(parsed_floating("1e"), 1.0);
    EXPECT_EQ(parsed_floating("1e+"), 1.0);
    EXPECT_EQ(parsed_floating("1."), 1.0);
    EXPECT_EQ(parsed_floating("007"), 7.0);
}
