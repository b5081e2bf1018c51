// Case, reversal, trimming and chomping.
#include <gtest/gtest.h>

#include <string>

#include "orvil/strings/ext_string.h"
#include "strings/ext_string_probe.h"

using orvil::test::capacity_of;
using orvil::test::counted;
using orvil::test::has_buffer;

// --- case -----------------------------------------------------------------------------------------------------------

TEST(ExtStringCase, UpperAndLowerConvertLettersOnly) {
    CExtString s("aZ09_[`{\xE9");
    EXPECT_TRUE(s.ChangeUpper());
    EXPECT_EQ(counted(s), "9:AZ09_[`{\xE9");
    EXPECT_TRUE(s.ChangeLower());
    EXPECT_EQ(counted(s), "9:az09_[`{\xE9");
}

TEST(ExtStringCase, AnEmptyStringGivesFalse) {
    CExtString s, with_buffer('x', 0);
    EXPECT_FALSE(s.ChangeUpper());
    EXPECT_FALSE(s.ChangeLower());
    EXPECT_FALSE(with_buffer.ChangeUpper());
    EXPECT_FALSE(with_buffer.ChangeLower());
}

// --- reversal -------------------------------------------------------------------------------------------------------

TEST(ExtStringReverse, ReversesBytes) {
    CExtString s("abc"), t("abcd"), one("a");
    EXPECT_TRUE(s.Reverse());
    EXPECT_TRUE(t.Reverse());
    EXPECT_TRUE(one.Reverse());
    EXPECT_EQ(counted(s), "3:cba");
    EXPECT_EQ(counted(t), "4:dcba");
    EXPECT_EQ(counted(one), "1:a");
}

TEST(ExtStringReverse, ReversesTheCountedLength) {
    CExtString behind("abc");
    behind.ConcatCharacters('x', 0);
    EXPECT_TRUE(behind.Reverse());
    EXPECT_EQ(counted(behind), "3:cbax");
}

TEST(ExtStringReverse, AnEmptyStringGivesFalse) {
    CExtString s, negative("ab");
    negative.ConcatCharacters('x', -5);
    EXPECT_FALSE(s.Reverse());
    EXPECT_FALSE(negative.Reverse());
    EXPECT_STREQ(negative, "abx");
}

// --- trims ----------------------------------------------------------------------------------------------------------

namespace {

struct TrimRow {
    const char* text;
    const char* set;
    const char* left;
    const char* right;
    const char* all;
};

const TrimRow kTrimRows[] = {
    {"  a b  ", nullptr, "a b  ", "  a b", "a b"},
    {"abc", nullptr, "abc", "abc", "abc"},
    {" \t\r\n\v\f", nullptr, "", "", ""},
    {" \t\r\n\v\fx \t\r\n\v\f", nullptr, "x \t\r\n\v\f", " \t\r\n\v\fx", "x"},
    {"1.50. .", ". ", "1.50. .", "1.50", "1.50"},
    {"..a..", ".", "a..", "..a", "a"},
    {"abcba", "ab", "cba", "abc", "c"},
    {"abcba", "abc", "", "", ""},
    {" a ", "", " a ", " a ", " a "},
    {"\xE9"
     "a\xE9",
     "\xE9", "a\xE9",
     "\xE9"
     "a",
     "a"},
    {"\xFF"
     "a\xFF",
     "b",
     "\xFF"
     "a\xFF",
     "\xFF"
     "a\xFF",
     "\xFF"
     "a\xFF"},
};

}  // namespace

TEST(ExtStringTrim, EachRowModifiesTheStringAndReturnsTheResult) {
    for (const TrimRow& row : kTrimRows) {
        CExtString left(row.text), right(row.text), all(row.text);
        EXPECT_STREQ(left.TrimLeft(row.set), row.left);
        EXPECT_STREQ(left, row.left);
        EXPECT_STREQ(right.TrimRight(row.set), row.right);
        EXPECT_STREQ(right, row.right);
        EXPECT_STREQ(all.TrimAll(row.set), row.all);
        EXPECT_STREQ(all, row.all);
    }
}

TEST(ExtStringTrim, TheDefaultSetIsWhiteSpace) {
    CExtString left("\t a"), right("a \n"), all(" a ");
    EXPECT_EQ(counted(left.TrimLeft()), "1:a");
    EXPECT_EQ(counted(right.TrimRight()), "1:a");
    EXPECT_EQ(counted(all.TrimAll()), "1:a");
}

TEST(ExtStringTrim, BlanksOnlyLeaveNoBuffer) {
    CExtString s("   ");
    EXPECT_TRUE(s.TrimAll().IsEmpty());
    EXPECT_FALSE(has_buffer(s));
    EXPECT_EQ(capacity_of(s), 0);
}

TEST(ExtStringTrim, TheKeptPartStandsInAFreshBufferEvenWhenNothingIsDropped) {
    CExtString left("abc"), right("abc"), all("abc");
    for (CExtString* s : {&left, &right, &all}) {
        s->ConcatCharacters('x', 40);
        s->SetAt(3, '\0');
        ASSERT_EQ(capacity_of(*s), 48);
    }
    left.TrimLeft();
    right.TrimRight();
    all.TrimAll();
    for (CExtString* s : {&left, &right, &all}) {
        EXPECT_EQ(counted(*s), "3:abc");
        EXPECT_EQ(capacity_of(*s), 8);
    }
}

TEST(ExtStringTrim, AnEmptyStringIsLeftAlone) {
    CExtString s('x', 0), negative("ab");
    EXPECT_FALSE(has_buffer(s.TrimLeft()));
    EXPECT_FALSE(has_buffer(s.TrimRight()));
    EXPECT_FALSE(has_buffer(s.TrimAll()));
    EXPECT_TRUE(has_buffer(s));
    negative.ConcatCharacters('x', -5);
    EXPECT_FALSE(has_buffer(negative.TrimAll()));
    EXPECT_EQ(counted(negative), "-3:abx");
}

TEST(ExtStringTrim, TheSetMayBeTheOwnText) {
    CExtString s("abc");
    EXPECT_EQ(counted(s.TrimLeft(s.GetString() + 2)), "3:abc");
    EXPECT_EQ(counted(s.TrimRight(s.GetString() + 2)), "2:ab");
    EXPECT_EQ(counted(s.TrimAll(s)), "0:");
}

// --- chomp ----------------------------------------------------------------------------------------------------------

TEST(ExtStringChomp, TheWholeRunOfLineEndsGoes) {
    CExtString s("text\r\n\r\n");
    EXPECT_EQ(s.Chomp(true), 5);
    EXPECT_EQ(counted(s), "4:text");
    CExtString odd("text\n\r\r\n\n");
    EXPECT_EQ(odd.Chomp(true), 6);
    EXPECT_EQ(counted(odd), "4:text");
}

TEST(ExtStringChomp, OneLineEndGivesTwoOrThree) {
    CExtString lf("a\n"), cr("a\r"), both("a\r\n"), inner("a\nb");
    EXPECT_EQ(lf.Chomp(true), 2);
    EXPECT_EQ(cr.Chomp(true), 2);
    EXPECT_EQ(both.Chomp(true), 3);
    EXPECT_EQ(inner.Chomp(true), 1);
    EXPECT_EQ(counted(both), "1:a");
    EXPECT_EQ(counted(inner), "3:a\nb");
}

TEST(ExtStringChomp, NoLineEndGivesOneAndAnEmptyStringZero) {
    CExtString s("text"), empty, with_buffer('x', 0);
    EXPECT_EQ(s.Chomp(true), 1);
    EXPECT_EQ(s.Chomp(false), 1);
    EXPECT_EQ(counted(s), "4:text");
    EXPECT_EQ(empty.Chomp(true), 0);
    EXPECT_EQ(with_buffer.Chomp(true), 0);
    EXPECT_EQ(empty.Chomp(false), 0);
}

TEST(ExtStringChomp, LineEndsOnlyStopAtTheBuffersStart) {
    CExtString s("\r\n\n\r");
    EXPECT_EQ(s.Chomp(true), 5);
    EXPECT_EQ(counted(s), "0:");
    EXPECT_TRUE(has_buffer(s));
    EXPECT_EQ(capacity_of(s), 8);
}

TEST(ExtStringChomp, WithoutAllOneLineFeedGoes) {
    CExtString s("a\n\n"), crlf("a\r\n"), cr("a\r");
    EXPECT_EQ(s.Chomp(false), 2);
    EXPECT_EQ(counted(s), "2:a\n");
    EXPECT_EQ(crlf.Chomp(false), 2);
    EXPECT_EQ(counted(crlf), "2:a\r");
    EXPECT_EQ(cr.Chomp(false), 1);
    EXPECT_EQ(counted(cr), "2:a\r");
}

TEST(ExtStringChomp, WithoutAllALoneLineFeedGoes) {
    CExtString s("\n");
    EXPECT_EQ(s.Chomp(false), 2);
    EXPECT_EQ(counted(s), "0:");
}

TEST(ExtStringChomp, TheLengthIsCountedAnew) {
    CExtString hidden("abcdef\n"), behind("abc");
    hidden.SetAt(3, '\0');
    EXPECT_EQ(hidden.Chomp(true), 2);
    EXPECT_EQ(counted(hidden), "3:abc");
    behind.ConcatCharacters('x', 0);
    EXPECT_EQ(behind.Chomp(true), 1);
    EXPECT_EQ(counted(behind), "4:abcx");
}
