// Comparisons and searches.
#include <gtest/gtest.h>

#include "orvil/strings/ext_string.h"
#include "strings/ext_string_probe.h"

namespace {

// Less, equal, greater as the six operators say it; 2 when they contradict each other.
template <typename Left, typename Right>
int order(const Left& left, const Right& right) {
    const bool less = left<right, equal = left == right, greater = left> right;
    const bool consistent = (left <= right) == (less || equal) && (left >= right) == (greater || equal) &&
                            (left != right) == !equal && less + equal + greater == 1;
    return consistent ? greater - less : 2;
}

struct OrderRow {
    const char* left;
    const char* right;
    int expected;
};

const OrderRow kOrderRows[] = {
    {"abc", "abc", 0}, {"abc", "abd", -1},   {"abd", "abc", 1},   {"abc", "abcd", -1},
    {"", "", 0},       {"", "a", -1},        {"a", "", 1},        {"A", "a", -1},
    {"Z", "a", -1},    {"\x7F", "\x80", -1}, {"\xFF", "\x01", 1}, {"a\x80", "ab", 1},
};

}  // namespace

TEST(ExtStringCompare, EachRowGivesMinusOneZeroOrOne) {
    for (const OrderRow& row : kOrderRows) {
        EXPECT_EQ(CExtString(row.left).Compare(row.right), row.expected) << row.left << " and " << row.right;
    }
}

TEST(ExtStringCompare, TheOperatorsAgreeInAllThreeForms) {
    for (const OrderRow& row : kOrderRows) {
        const CExtString left(row.left), right(row.right);
        EXPECT_EQ(order(left, right), row.expected) << row.left << " and " << row.right;
        EXPECT_EQ(order(left, row.right), row.expected) << row.left << " and " << row.right;
        EXPECT_EQ(order(row.left, right), row.expected) << row.left << " and " << row.right;
    }
}

TEST(ExtStringCompare, NullIsTheEmptyText) {
    const CExtString empty, text("a");
    const char* null = nullptr;
    EXPECT_EQ(empty.Compare(null), 0);
    EXPECT_EQ(text.Compare(null), 1);
    EXPECT_EQ(order(empty, null), 0);
    EXPECT_EQ(order(null, text), -1);
    EXPECT_GT(text.CompareNoCase(null), 0);
    EXPECT_EQ(empty.CompareNoCase(null), 0);
    EXPECT_GT(text.Collate(null), 0);
    EXPECT_EQ(empty.Collate(null), 0);
}

TEST(ExtStringCompare, EmptyWithAndWithoutBufferAreEqual) {
    EXPECT_TRUE(CExtString() == CExtString('x', 0));
    EXPECT_TRUE(CExtString('x', 0) == "");
}

TEST(ExtStringCompareNoCase, ComparesLowerCaseBytes) {
    EXPECT_EQ(CExtString("AbC").CompareNoCase("aBc"), 0);
    EXPECT_LT(CExtString("abc").CompareNoCase("ABD"), 0);
    EXPECT_GT(CExtString("ABD").CompareNoCase("abc"), 0);
    EXPECT_GT(CExtString("A").CompareNoCase("_"), 0);
    EXPECT_GT(CExtString("abc").CompareNoCase("AB"), 0);
}

TEST(ExtStringCollate, FollowsTheLocale) {
    EXPECT_EQ(CExtString("abc").Collate("abc"), 0);
    EXPECT_LT(CExtString("abc").Collate("abd"), 0);
    EXPECT_GT(CExtString("b").Collate("a"), 0);
}

TEST(ExtStringFind, CharacterGivesTheFirstIndex) {
    const CExtString s("abcabc");
    EXPECT_EQ(s.Find('a'), 0);
    EXPECT_EQ(s.Find('c'), 2);
    EXPECT_EQ(s.Find('x'), -1);
    EXPECT_EQ(CExtString("a\xE9").Find('\xE9'), 1);
    EXPECT_EQ(CExtString().Find('a'), -1);
}

TEST(ExtStringFind, ZeroCharacterGivesTheVisibleLength) {
    CExtString s("abcdef");
    EXPECT_EQ(s.Find('\0'), 6);
    s.SetAt(2, '\0');
    EXPECT_EQ(s.Find('\0'), 2);
    EXPECT_EQ(s.ReverseFind('\0'), 2);
    EXPECT_EQ(s.Find('e'), -1);
    EXPECT_EQ(CExtString().Find('\0'), 0);
}

TEST(ExtStringFind, TextGivesTheFirstIndex) {
    const CExtString s("abcabcd");
    EXPECT_EQ(s.Find("abc"), 0);
    EXPECT_EQ(s.Find("abcd"), 3);
    EXPECT_EQ(s.Find("abcde"), -1);
    EXPECT_EQ(s.Find(""), 0);
    EXPECT_EQ(CExtString().Find("a"), -1);
    EXPECT_EQ(CExtString().Find(""), 0);
}

TEST(ExtStringFind, NullTextIsNotFound) {
    const char* null = nullptr;
    EXPECT_EQ(CExtString("abc").Find(null), -1);
    EXPECT_EQ(CExtString().Find(null), -1);
}

TEST(ExtStringReverseFind, GivesTheLastIndex) {
    const CExtString s("abcabc");
    EXPECT_EQ(s.ReverseFind('a'), 3);
    EXPECT_EQ(s.ReverseFind('c'), 5);
    EXPECT_EQ(s.ReverseFind('x'), -1);
    EXPECT_EQ(s.ReverseFind('\0'), 6);
    EXPECT_EQ(CExtString().ReverseFind('a'), -1);
}

TEST(ExtStringFindOneOf, GivesTheFirstMember) {
    const CExtString s("abcdef");
    EXPECT_EQ(s.FindOneOf("fd"), 3);
    EXPECT_EQ(s.FindOneOf("a"), 0);
    EXPECT_EQ(s.FindOneOf("xyz"), -1);
    EXPECT_EQ(s.FindOneOf(""), -1);
    EXPECT_EQ(s.FindOneOf(nullptr), -1);
}

TEST(ExtStringFindOneOf, AnEmptyStringHasNone) {
    CExtString negative("ab");
    negative.ConcatCharacters('x', -5);
    EXPECT_EQ(CExtString().FindOneOf("a"), -1);
    EXPECT_EQ(CExtString('x', 0).FindOneOf("x"), -1);
    EXPECT_EQ(negative.FindOneOf("a"), -1);
}
