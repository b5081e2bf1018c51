// The three functions that stand for those of a C runtime.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "orvil/runtime/heap.h"

TEST(StrCaseCmp, CaseIsIgnored) {
    EXPECT_EQ(st_ImpFunc_strcasecmp("Layer", "lAYER"), 0);
    EXPECT_LT(st_ImpFunc_strcasecmp("layer", "LAYERS"), 0);
    EXPECT_GT(st_ImpFunc_strcasecmp("LAYERS", "layer"), 0);
    EXPECT_EQ(st_ImpFunc_strcasecmp("", ""), 0);
}

TEST(StrCaseCmp, LettersCompareAsLowerCase) {
    EXPECT_GT(st_ImpFunc_strcasecmp("A", "_"), 0);
}

TEST(StrCaseCmp, NullIsTheEmptyText) {
    EXPECT_EQ(st_ImpFunc_strcasecmp(nullptr, ""), 0);
    EXPECT_LT(st_ImpFunc_strcasecmp(nullptr, "a"), 0);
    EXPECT_GT(st_ImpFunc_strcasecmp("a", nullptr), 0);
}

TEST(StrNCaseCmp, TheLimitEndsTheComparison) {
    EXPECT_EQ(st_ImpFunc_strncasecmp("abcX", "ABCy", 3), 0);
    EXPECT_LT(st_ImpFunc_strncasecmp("abcX", "ABCy", 4), 0);
    EXPECT_LT(st_ImpFunc_strncasecmp("a", "B", 1), 0);
    EXPECT_EQ(st_ImpFunc_strncasecmp("abc", "ABC", 2147483647), 0);
}

TEST(StrNCaseCmp, ALimitBelowOneComparesNothing) {
    EXPECT_EQ(st_ImpFunc_strncasecmp("a", "b", 0), 0);
    EXPECT_EQ(st_ImpFunc_strncasecmp("a", "b", -1), 0);
}

TEST(StrNCaseCmp, NullIsTheEmptyText) {
    EXPECT_EQ(st_ImpFunc_strncasecmp(nullptr, nullptr, 5), 0);
    EXPECT_GT(st_ImpFunc_strncasecmp("a", nullptr, 5), 0);
}

TEST(StrDup, LengthThreeOfSixLettersGivesTheFirstThree) {
    char* copy = st_ImpFunc_strdup("abcdef", 3);
    EXPECT_STREQ(copy, "abc");
    std::free(copy);
}

TEST(StrDup, LengthZeroGivesTheWholeText) {
    char* copy = st_ImpFunc_strdup("abcdef", 0);
    EXPECT_STREQ(copy, "abcdef");
    std::free(copy);
}

TEST(StrDup, ALengthBeyondTheTextIsFilledWithZeros) {
    char* copy = st_ImpFunc_strdup("ab", 9);
    EXPECT_EQ(std::string(copy, 10), std::string("ab", 2) + std::string(8, '\0'));
    std::free(copy);
}

TEST(StrDup, NothingIsReadBehindTheTextsEnd) {
    char* text = static_cast<char*>(std::malloc(3));
    std::memcpy(text, "ab", 3);
    char* copy = st_ImpFunc_strdup(text, 1000);
    EXPECT_STREQ(copy, "ab");
    std::free(copy);
    std::free(text);
}

TEST(StrDup, AnEmptyTextIsOneZero) {
    char* copy = st_ImpFunc_strdup("", 0);
    EXPECT_STREQ(copy, "");
    std::free(copy);
}

TEST(StrDup, NullGivesNull) {
    EXPECT_EQ(st_ImpFunc_strdup(nullptr, 0), nullptr);
    EXPECT_EQ(st_ImpFunc_strdup(nullptr, 5), nullptr);
}

TEST(StrDup, IsNoRequestOfTheAllocator) {
    const auto mark = st_dwMoreLargeSize;
    char* copy = st_ImpFunc_strdup("abc", 50000000);
    EXPECT_EQ(st_dwMoreLargeSize, mark);
    std::free(copy);
}
