// Appending, by members and by operators.
#include <gtest/gtest.h>

#include <climits>

#include "orvil/strings/ext_string.h"
#include "strings/ext_string_probe.h"

using orvil::test::capacity_of;
using orvil::test::counted;
using orvil::test::has_buffer;
using orvil::test::letters;
using orvil::test::with_hidden_zero;

TEST(ExtStringConcat, SevenBytesGiveCapacityEight) {
    for (int n = 1; n <= 7; ++n) {
        CExtString s;
        EXPECT_TRUE(s.ConcatString(letters(n).c_str()));
        EXPECT_EQ(capacity_of(s), 8) << n;
    }
}

TEST(ExtStringConcat, EightBytesGiveCapacitySixteen) {
    CExtString s;
    EXPECT_TRUE(s.ConcatString("12345678"));
    EXPECT_EQ(counted(s), "8:12345678");
    EXPECT_EQ(capacity_of(s), 16);
}

TEST(ExtStringConcat, GrowthIsByNeedAndCapacityNeverShrinks) {
    CExtString s("1234567");
    EXPECT_TRUE(s.ConcatString("8"));
    EXPECT_EQ(capacity_of(s), 16);
    EXPECT_TRUE(s.ConcatString(letters(100).c_str()));
    EXPECT_EQ(capacity_of(s), 112);
    EXPECT_TRUE(s.ConcatString("abc"));
    EXPECT_EQ(capacity_of(s), 112);
    EXPECT_TRUE(s.ConcatString("d"));
    EXPECT_EQ(capacity_of(s), 120);
}

TEST(ExtStringConcat, NullOrEmptyTextChangesNothing) {
    CExtString s("abc");
    EXPECT_TRUE(s.ConcatString(nullptr));
    EXPECT_TRUE(s.ConcatString(""));
    EXPECT_TRUE(s.ConcatStringLen(nullptr, 3));
    EXPECT_TRUE(s.ConcatStringLen("", 3));
    EXPECT_TRUE(s.ConcatObject(CExtString()));
    EXPECT_EQ(counted(s), "3:abc");
}

TEST(ExtStringConcat, EmptyTextOnAnEmptyStringReleasesItsBuffer) {
    CExtString s('x', 0);
    ASSERT_TRUE(has_buffer(s));
    EXPECT_TRUE(s.ConcatString(""));
    EXPECT_FALSE(has_buffer(s));
    s.CreateFromCharacters('x', 0);
    EXPECT_TRUE(s.ConcatStringLen("abc", 0));
    EXPECT_FALSE(has_buffer(s));
}

TEST(ExtStringConcat, ObjectAppendsItsText) {
    CExtString s("abc");
    EXPECT_TRUE(s.ConcatObject(CExtString("def")));
    EXPECT_EQ(counted(s), "6:abcdef");
    EXPECT_TRUE(s.ConcatObject(with_hidden_zero()));
    EXPECT_EQ(counted(s), "9:abcdefabc");
}

TEST(ExtStringConcat, CountedTextAppendsTheSmaller) {
    CExtString s("abc");
    EXPECT_TRUE(s.ConcatStringLen("defghi", 2));
    EXPECT_EQ(counted(s), "5:abcde");
    EXPECT_TRUE(s.ConcatStringLen("xyz", 99));
    EXPECT_EQ(counted(s), "8:abcdexyz");
    EXPECT_EQ(capacity_of(s), 16);
    EXPECT_TRUE(s.ConcatStringLen("xyz", -1));
    EXPECT_EQ(counted(s), "8:abcdexyz");
}

TEST(ExtStringConcat, CountedTextReadsNoByteBehindTheCount) {
    const char unterminated[3] = {'d', 'e', 'f'};
    CExtString s("abc");
    EXPECT_TRUE(s.ConcatStringLen(unterminated, 3));
    EXPECT_EQ(counted(s), "6:abcdef");
}

TEST(ExtStringConcat, CountedTextOnAnEmptyStringBeginsIt) {
    CExtString s;
    EXPECT_TRUE(s.ConcatStringLen("abcdef", 3));
    EXPECT_EQ(counted(s), "3:abc");
    EXPECT_EQ(capacity_of(s), 8);
}

TEST(ExtStringConcat, OwnTextCanBeAppended) {
    CExtString s("abcdefg");
    EXPECT_TRUE(s.ConcatString(s));
    EXPECT_EQ(counted(s), "14:abcdefgabcdefg");
    EXPECT_TRUE(s.ConcatString(s.GetString() + 12));
    EXPECT_EQ(counted(s), "16:abcdefgabcdefgfg");
    EXPECT_TRUE(s.ConcatStringLen(s.GetString() + 1, 3));
    EXPECT_EQ(counted(s), "19:abcdefgabcdefgfgbcd");
    EXPECT_TRUE(s.ConcatObject(s));
    EXPECT_EQ(s.GetLength(), 38);
}

TEST(ExtStringConcat, OwnTextBehindTheLengthCanBeAppended) {
    CExtString s("abc");
    s.ConcatCharacters('x', 0);
    EXPECT_TRUE(s.ConcatString(s));
    EXPECT_EQ(counted(s), "7:abcabcx");
}

TEST(ExtStringConcat, OwnTextOfANegativeLengthBecomesTheText) {
    CExtString s = "ab";
    s.ConcatCharacters('x', -5);
    EXPECT_TRUE(s.ConcatString(s.GetString() + 1));
    EXPECT_EQ(counted(s), "2:bx");
}

TEST(ExtStringConcat, TextIsWrittenOverWhatStoodBehindTheLength) {
    CExtString s("abc");
    s.ConcatCharacters('x', 0);
    ASSERT_EQ(counted(s), "3:abcx");
    EXPECT_TRUE(s.ConcatString("Z"));
    EXPECT_EQ(counted(s), "4:abcZ");
}

TEST(ExtStringConcat, AppendingGoesBehindAHiddenZero) {
    CExtString s = "abcdef";
    s.SetAt(3, '\0');
    EXPECT_TRUE(s.ConcatString("Z"));
    EXPECT_EQ(counted(s), "7:abc");
    EXPECT_EQ(s.GetAt(6), 'Z');
}

TEST(ExtStringConcatCharacters, AppendsCopies) {
    CExtString s("abc");
    EXPECT_TRUE(s.ConcatCharacters('x', 1));
    EXPECT_EQ(counted(s), "4:abcx");
    EXPECT_TRUE(s.ConcatCharacters('y', 4));
    EXPECT_EQ(counted(s), "8:abcxyyyy");
    EXPECT_EQ(capacity_of(s), 16);
}

TEST(ExtStringConcatCharacters, OnAnEmptyStringFillsIt) {
    CExtString s;
    EXPECT_TRUE(s.ConcatCharacters('x', 3));
    EXPECT_EQ(counted(s), "3:xxx");
    CExtString none;
    EXPECT_TRUE(none.ConcatCharacters('x', 0));
    EXPECT_EQ(counted(none), "0:");
    EXPECT_EQ(capacity_of(none), 8);
}

TEST(ExtStringConcatCharacters, ZeroCountWritesOneCharacterBehindTheLength) {
    CExtString s("abc");
    EXPECT_TRUE(s.ConcatCharacters('x', 0));
    EXPECT_EQ(counted(s), "3:abcx");
}

TEST(ExtStringConcatCharacters, NegativeCountWritesOneCharacterAndLowersTheLength) {
    CExtString s("abc");
    EXPECT_TRUE(s.ConcatCharacters('x', -2));
    EXPECT_EQ(counted(s), "1:abcx");
    EXPECT_TRUE(s.ConcatCharacters('y', -4));
    EXPECT_EQ(counted(s), "-3:ay");
    EXPECT_TRUE(s.IsEmpty());
}

TEST(ExtStringConcatCharacters, ZeroCountWithAFullBufferStaysInside) {
    CExtString s("1234567");
    ASSERT_EQ(capacity_of(s), 8);
    EXPECT_TRUE(s.ConcatCharacters('x', 0));
    EXPECT_EQ(counted(s), "7:1234567x");
    EXPECT_EQ(capacity_of(s), 8);
}

TEST(ExtStringConcatCharacters, AStringOfNegativeLengthCountsAsEmpty) {
    CExtString s = "ab";
    s.ConcatCharacters('x', -5);
    EXPECT_TRUE(s.ConcatCharacters('z', 2));
    EXPECT_EQ(counted(s), "2:zz");
    s.ConcatCharacters('x', INT_MIN);
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_TRUE(s.ConcatString("new"));
    EXPECT_EQ(counted(s), "3:new");
}

TEST(ExtStringConcatCharacters, LengthNearIntMaxFailsAndChangesNothing) {
    CExtString s("abc");
    EXPECT_FALSE(s.ConcatCharacters('x', INT_MAX));
    EXPECT_FALSE(s.ConcatCharacters('x', INT_MAX - 10));
    EXPECT_EQ(counted(s), "3:abc");
    EXPECT_EQ(capacity_of(s), 8);
}

TEST(ExtStringAppendOperators, AppendStringTextAndCharacter) {
    CExtString s;
    s += CExtString("ab");
    s += "cd";
    s += 'e';
    EXPECT_EQ(counted(s), "5:abcde");
    s += static_cast<const char*>(nullptr);
    EXPECT_EQ(counted(s), "5:abcde");
}

TEST(ExtStringAppendOperators, CharacterByCharacterKeepsTheCapacityRule) {
    CExtString s;
    for (int n = 1; n <= 5000; ++n) {
        s += static_cast<char>('a' + n % 26);
        ASSERT_EQ(s.GetLength(), n);
        ASSERT_EQ(capacity_of(s), n / 8 * 8 + 8);
        ASSERT_EQ(s.GetString()[n - 1], 'a' + n % 26);
        ASSERT_EQ(s.GetString()[n], '\0');
    }
}

TEST(ExtStringPlus, MakesANewStringOfBoth) {
    const CExtString a("ab"), b("cd");
    EXPECT_EQ(counted(a + b), "4:abcd");
    EXPECT_EQ(counted(a + 'x'), "3:abx");
    EXPECT_EQ(counted(a + "text"), "6:abtext");
    EXPECT_EQ(counted('x' + a), "3:xab");
    EXPECT_EQ(counted("text" + a), "6:textab");
    EXPECT_EQ(counted(a), "2:ab");
    EXPECT_EQ(counted(b), "2:cd");
}

TEST(ExtStringPlus, NullAndEmptyOperandsAddNothing) {
    const CExtString a("ab");
    const char* null = nullptr;
    EXPECT_EQ(counted(a + null), "2:ab");
    EXPECT_EQ(counted(null + a), "2:ab");
    EXPECT_EQ(counted(CExtString() + a), "2:ab");
    EXPECT_EQ(counted(CExtString() + CExtString()), "0:");
}

TEST(ExtStringPlus, ChainsAndKeepsTheCapacityRule) {
    const CExtString s = CExtString("a") + "b" + 'c' + CExtString("defgh");
    EXPECT_EQ(counted(s), "8:abcdefgh");
    EXPECT_EQ(capacity_of(s), 16);
}
