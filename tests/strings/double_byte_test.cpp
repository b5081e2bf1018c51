// Double-byte characters in strings.
#include <gtest/gtest.h>

#include <string>

#include "orvil/strings/ext_string.h"
#include "strings/ext_string_probe.h"
#include "support/code_page_932.h"

using orvil::test::capacity_of;

namespace {

class DoubleByteString : public testing::Test {
protected:
    const orvil::test::CodePage932 code_page;
};

}  // namespace

TEST_F(DoubleByteString, CaseOfBothBytesStaysAsItIs) {
    CExtString s("a\x83\x61z\x83\x83p");
    EXPECT_TRUE(s.ChangeUpper());
    EXPECT_STREQ(s, "A\x83\x61Z\x83\x83P");
    s = "A\x83\x41Z\xFC\xFCP";
    EXPECT_TRUE(s.ChangeLower());
    EXPECT_STREQ(s, "a\x83\x41z\xFC\xFCp");
}

TEST_F(DoubleByteString, LeadByteAtTheEndEndsTheCaseChange) {
    CExtString s("abcdef\x83");
    ASSERT_EQ(capacity_of(s), 8);
    EXPECT_TRUE(s.ChangeUpper());
    EXPECT_STREQ(s, "ABCDEF\x83");
    EXPECT_TRUE(s.ChangeLower());
    EXPECT_STREQ(s, "abcdef\x83");
}

TEST_F(DoubleByteString, LeadByteBeforeAHiddenZeroEndsTheCaseChange) {
    CExtString s("a\x83zz");
    s.SetAt(2, '\0');
    EXPECT_TRUE(s.ChangeUpper());
    EXPECT_STREQ(s, "A\x83");
    EXPECT_EQ(s.GetAt(3), 'z');
}

TEST_F(DoubleByteString, ReverseReversesItsBytesToo) {
    CExtString s("a\x83\x61");
    EXPECT_TRUE(s.Reverse());
    EXPECT_STREQ(s,
                 "\x61\x83"
                 "a");
}

TEST_F(DoubleByteString, FindOneOfNeverMatchesEitherByte) {
    const CExtString s(
        "x\x83\x61"
        "a");
    EXPECT_EQ(s.FindOneOf("a"), 3);
    EXPECT_EQ(s.FindOneOf("\x83"), -1);
    EXPECT_EQ(CExtString("\x83\x83"
                         "a")
                  .FindOneOf("a"),
              2);
}

TEST_F(DoubleByteString, LeadByteAtTheEndEndsFindOneOf) {
    const CExtString s("abcdef\x83");
    EXPECT_EQ(s.FindOneOf("x"), -1);
    EXPECT_EQ(s.FindOneOf("\x83"), -1);
}

TEST_F(DoubleByteString, LeadByteBeforeAHiddenZeroEndsFindOneOf) {
    CExtString s("a\x83zz");
    s.SetAt(2, '\0');
    EXPECT_EQ(s.FindOneOf("z"), -1);
}
