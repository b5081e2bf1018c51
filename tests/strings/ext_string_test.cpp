// Storage, construction, assignment and parts.
#include "orvil/strings/ext_string.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <type_traits>

#include "strings/ext_string_probe.h"

using orvil::test::capacity_of;
using orvil::test::counted;
using orvil::test::has_buffer;
using orvil::test::letters;
using orvil::test::StringProbe;
using orvil::test::with_hidden_zero;
using orvil::test::with_negative_length;
using orvil::test::with_text_behind_the_length;

// --- layout ---------------------------------------------------------------------------------------------------------

TEST(ExtStringLayout, TableBufferLengthAndCapacityStandInThatOrder) {
    StringProbe s("abcdefgh");
    const char* base = reinterpret_cast<const char*>(static_cast<CExtString*>(&s));
    EXPECT_EQ(sizeof(CExtString), 24u);
    EXPECT_EQ(reinterpret_cast<const char*>(&s.buffer_) - base, 8);
    EXPECT_EQ(reinterpret_cast<const char*>(&s.length_) - base, 16);
    EXPECT_EQ(reinterpret_cast<const char*>(&s.capacity_) - base, 20);
    EXPECT_EQ(s.length_, 8);
    EXPECT_EQ(s.capacity_, 16);
}

TEST(ExtStringLayout, TheDestructorIsVirtual) {
    EXPECT_TRUE(std::has_virtual_destructor_v<CExtString>);
}

TEST(ExtStringLayout, AssignmentsAndAppendsReturnConstReferences) {
    CExtString s;
    EXPECT_TRUE((std::is_same_v<decltype(s = s), const CExtString&>));
    EXPECT_TRUE((std::is_same_v<decltype(s = 'c'), const CExtString&>));
    EXPECT_TRUE((std::is_same_v<decltype(s = "c"), const CExtString&>));
    EXPECT_TRUE((std::is_same_v<decltype(s += s), const CExtString&>));
    EXPECT_TRUE((std::is_same_v<decltype(s += 'c'), const CExtString&>));
    EXPECT_TRUE((std::is_same_v<decltype(s += "c"), const CExtString&>));
}

// --- the buffer policy ----------------------------------------------------------------------------------------------

TEST(ExtStringPolicy, SafeStrlenOfNullAndEmptyIsZero) {
    EXPECT_EQ(StringProbe::SafeStrlen(nullptr), 0);
    EXPECT_EQ(StringProbe::SafeStrlen(""), 0);
    EXPECT_EQ(StringProbe::SafeStrlen("abc"), 3);
}

TEST(ExtStringPolicy, NewBufferSizeIsTheNextEightStrictlyAboveTheLength) {
    EXPECT_EQ(StringProbe::CalcNewBufferSize(0, 0), 8);
    EXPECT_EQ(StringProbe::CalcNewBufferSize(7, 0), 8);
    EXPECT_EQ(StringProbe::CalcNewBufferSize(8, 0), 16);
    EXPECT_EQ(StringProbe::CalcNewBufferSize(15, 8), 16);
    EXPECT_EQ(StringProbe::CalcNewBufferSize(16, 16), 24);
}

TEST(ExtStringPolicy, NewBufferSizeIsZeroWhenTheCapacitySuffices) {
    EXPECT_EQ(StringProbe::CalcNewBufferSize(7, 8), 0);
    EXPECT_EQ(StringProbe::CalcNewBufferSize(8, 16), 0);
    EXPECT_EQ(StringProbe::CalcNewBufferSize(3, 800), 0);
}

TEST(ExtStringPolicy, NewBufferSizeThatAnIntCannotHoldIsRefusedByTheAllocator) {
    EXPECT_EQ(StringProbe::CalcNewBufferSize(INT_MAX - 8, 0), INT_MAX - 7);
    const int refused = StringProbe::CalcNewBufferSize(INT_MAX - 7, 0);
    EXPECT_LT(refused, 0);
    EXPECT_EQ(StringProbe::CalcNewBufferSize(INT_MAX, INT_MAX), refused);
    EXPECT_EQ(StringProbe::AllocBuffer(refused), nullptr);
    char* buffer = StringProbe::AllocBuffer(8);
    EXPECT_EQ(StringProbe::ReallocBuffer(buffer, refused), nullptr);
    StringProbe::FreeBuffer(buffer);
}

TEST(ExtStringPolicy, AllocatedBufferIsZeroUpToTheTerminatorsByte) {
    char* buffer = StringProbe::AllocBuffer(16);
    ASSERT_NE(buffer, nullptr);
    EXPECT_EQ(std::string(buffer, 17), std::string(17, '\0'));
    EXPECT_TRUE(StringProbe::FreeBuffer(buffer));
}

TEST(ExtStringPolicy, ReallocatedBufferKeepsItsBytes) {
    char* buffer = StringProbe::AllocBuffer(8);
    std::memcpy(buffer, "12345678", 9);
    buffer = StringProbe::ReallocBuffer(buffer, 4000);
    ASSERT_NE(buffer, nullptr);
    EXPECT_STREQ(buffer, "12345678");
    buffer[4000] = '\0';
    EXPECT_TRUE(StringProbe::FreeBuffer(buffer));
}

TEST(ExtStringPolicy, FreeBufferAcceptsNull) {
    EXPECT_TRUE(StringProbe::FreeBuffer(nullptr));
}

// --- builders -------------------------------------------------------------------------------------------------------

TEST(ExtStringBuilders, InitForgetsTheBufferWithoutFreeingIt) {
    StringProbe s("abc");
    char* buffer = s.buffer_;
    EXPECT_TRUE(s.Init());
    EXPECT_EQ(s.buffer_, nullptr);
    EXPECT_EQ(s.length_, 0);
    EXPECT_EQ(s.capacity_, 0);
    EXPECT_STREQ(buffer, "abc");
    StringProbe::FreeBuffer(buffer);
}

TEST(ExtStringBuilders, FillCharacterLeavesTheOldBufferToTheCaller) {
    StringProbe s("abc");
    char* old = s.buffer_;
    EXPECT_TRUE(s.FillCharacter('z', 9));
    EXPECT_STREQ(old, "abc");
    EXPECT_EQ(counted(s), "9:zzzzzzzzz");
    EXPECT_EQ(s.capacity_, 16);
    StringProbe::FreeBuffer(old);
}

TEST(ExtStringBuilders, FillCharacterWithNegativeCountHasLengthZeroAndSmallCapacity) {
    struct Row {
        int n, capacity;
    };
    for (const Row row : {Row{0, 8}, Row{-1, 8}, Row{-7, 8}, Row{-8, 0}, Row{-15, 0}, Row{-16, 0}, Row{INT_MIN, 0}}) {
        StringProbe s;
        EXPECT_TRUE(s.FillCharacter('z', row.n));
        EXPECT_EQ(counted(s), "0:") << row.n;
        EXPECT_EQ(s.capacity_, row.capacity) << row.n;
        EXPECT_TRUE(has_buffer(s)) << row.n;
    }
}

TEST(ExtStringBuilders, FillCharacterNearIntMaxFailsAndLeavesTheString) {
    StringProbe s("abc");
    EXPECT_FALSE(s.FillCharacter('z', INT_MAX));
    EXPECT_FALSE(s.FillCharacter('z', INT_MAX - 7));
    EXPECT_EQ(counted(s), "3:abc");
}

TEST(ExtStringBuilders, DuplicateStringTakesAFreshBufferEvenWhenTheOldOneIsLargeEnough) {
    StringProbe s(letters(100).c_str());
    EXPECT_EQ(s.capacity_, 104);
    EXPECT_TRUE(s.DuplicateString("abc"));
    EXPECT_EQ(counted(s), "3:abc");
    EXPECT_EQ(s.capacity_, 8);
}

TEST(ExtStringBuilders, DuplicateStringOfNullOrEmptyEmpties) {
    for (const char* text : {static_cast<const char*>(nullptr), ""}) {
        StringProbe s("abc");
        EXPECT_TRUE(s.DuplicateString(text));
        EXPECT_FALSE(has_buffer(s));
        EXPECT_EQ(s.capacity_, 0);
    }
}

TEST(ExtStringBuilders, DuplicateStringLenTakesTheSmallerOfLengthAndCount) {
    StringProbe s;
    EXPECT_TRUE(s.DuplicateStringLen("abcdef", 4));
    EXPECT_EQ(counted(s), "4:abcd");
    EXPECT_TRUE(s.DuplicateStringLen("abcdef", 99));
    EXPECT_EQ(counted(s), "6:abcdef");
    EXPECT_TRUE(s.DuplicateStringLen("abcdefgh", INT_MAX));
    EXPECT_EQ(s.capacity_, 16);
}

TEST(ExtStringBuilders, DuplicateStringLenBelowOneByteEmpties) {
    for (int n : {0, -1, INT_MIN}) {
        StringProbe s("abc");
        EXPECT_TRUE(s.DuplicateStringLen("xyz", n));
        EXPECT_FALSE(has_buffer(s));
    }
    StringProbe s("abc");
    EXPECT_TRUE(s.DuplicateStringLen(nullptr, 5));
    EXPECT_FALSE(has_buffer(s));
}

TEST(ExtStringBuilders, DuplicateStringLenReadsNoByteBehindTheCount) {
    const char unterminated[4] = {'a', 'b', 'c', 'd'};
    StringProbe s;
    EXPECT_TRUE(s.DuplicateStringLen(unterminated, 4));
    EXPECT_EQ(counted(s), "4:abcd");
}

// --- construction ---------------------------------------------------------------------------------------------------

TEST(ExtStringConstruction, DefaultIsEmptyWithoutBuffer) {
    const CExtString s;
    EXPECT_STREQ(s.GetString(), "");
    EXPECT_EQ(s.GetString(), CExtString::sm_pszNull);
    EXPECT_EQ(s.GetLength(), 0);
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_EQ(capacity_of(s), 0);
}

TEST(ExtStringConstruction, CopyIsDeep) {
    CExtString source("abc");
    const CExtString copy(source);
    source.SetAt(0, 'X');
    EXPECT_EQ(counted(copy), "3:abc");
    EXPECT_NE(copy.GetString(), source.GetString());
}

TEST(ExtStringConstruction, CopyOfEmptyHasNoBuffer) {
    EXPECT_FALSE(has_buffer(CExtString(CExtString())));
    const CExtString with_buffer('x', 0);
    ASSERT_TRUE(has_buffer(with_buffer));
    EXPECT_FALSE(has_buffer(CExtString(with_buffer)));
}

TEST(ExtStringConstruction, CopyFollowsTheVisibleText) {
    const CExtString zero = with_hidden_zero();
    EXPECT_EQ(counted(CExtString(zero)), "3:abc");
    const CExtString behind = with_text_behind_the_length();
    EXPECT_EQ(counted(CExtString(behind)), "4:abcx");
}

TEST(ExtStringConstruction, CopyOfANegativeLengthIsEmpty) {
    const CExtString negative = with_negative_length();
    ASSERT_EQ(counted(negative), "-3:abx");
    const CExtString copy(negative);
    EXPECT_EQ(counted(copy), "0:");
    EXPECT_FALSE(has_buffer(copy));
}

TEST(ExtStringConstruction, CharactersRepeat) {
    EXPECT_EQ(counted(CExtString('x', 1)), "1:x");
    EXPECT_EQ(counted(CExtString('x', 3)), "3:xxx");
    EXPECT_EQ(capacity_of(CExtString('x', 7)), 8);
    EXPECT_EQ(capacity_of(CExtString('x', 8)), 16);
}

TEST(ExtStringConstruction, NoCharacterGivesAnEmptyBufferOfCapacityEight) {
    const CExtString s('x', 0);
    EXPECT_EQ(counted(s), "0:");
    EXPECT_TRUE(s.IsEmpty());
    EXPECT_TRUE(has_buffer(s));
    EXPECT_EQ(capacity_of(s), 8);
}

TEST(ExtStringConstruction, ZeroCharactersCountButDoNotShow) {
    EXPECT_EQ(counted(CExtString('\0', 2)), "2:");
}

TEST(ExtStringConstruction, TextIsCopied) {
    char text[] = "abc";
    const CExtString s(text);
    text[0] = 'X';
    EXPECT_EQ(counted(s), "3:abc");
}

TEST(ExtStringConstruction, NullOrEmptyTextIsEmptyWithoutBuffer) {
    EXPECT_FALSE(has_buffer(CExtString(static_cast<const char*>(nullptr))));
    EXPECT_FALSE(has_buffer(CExtString("")));
    EXPECT_FALSE(has_buffer(CExtString(static_cast<const char*>(nullptr), 3)));
}

TEST(ExtStringConstruction, TextWithCountTakesTheSmaller) {
    EXPECT_EQ(counted(CExtString("abcdef", 2)), "2:ab");
    EXPECT_EQ(counted(CExtString("abcdef", 7)), "6:abcdef");
    EXPECT_FALSE(has_buffer(CExtString("abcdef", 0)));
    EXPECT_FALSE(has_buffer(CExtString("abcdef", -1)));
}

TEST(ExtStringConstruction, TextConvertsImplicitly) {
    const auto length = [](const CExtString& s) { return s.GetLength(); };
    EXPECT_EQ(length("abc"), 3);
}

TEST(ExtStringConstruction, CapacityIsTheNextEightStrictlyAboveTheLength) {
    for (int n = 1; n < 100; ++n) {
        EXPECT_EQ(capacity_of(CExtString(letters(n).c_str())), n / 8 * 8 + 8) << n;
    }
}

// --- reading --------------------------------------------------------------------------------------------------------

TEST(ExtStringReading, TextConvertsToAPointer) {
    const CExtString s("abc");
    const char* text = s;
    EXPECT_EQ(text, s.GetString());
}

TEST(ExtStringReading, ByteOutsideTheLengthIsZero) {
    const CExtString s("abc");
    EXPECT_EQ(s.GetAt(0), 'a');
    EXPECT_EQ(s[2], 'c');
    EXPECT_EQ(s.GetAt(3), '\0');
    EXPECT_EQ(s[-1], '\0');
    EXPECT_EQ(s.GetAt(INT_MIN), '\0');
    EXPECT_EQ(s.GetAt(INT_MAX), '\0');
    EXPECT_EQ(CExtString().GetAt(0), '\0');
}

TEST(ExtStringReading, ByteBehindACountedLengthIsZero) {
    EXPECT_EQ(with_text_behind_the_length().GetAt(3), '\0');
    EXPECT_EQ(with_negative_length().GetAt(0), '\0');
}

TEST(ExtStringReading, ByteBehindAHiddenZeroIsReadable) {
    EXPECT_EQ(with_hidden_zero().GetAt(4), 'e');
}

// --- replacing ------------------------------------------------------------------------------------------------------

TEST(ExtStringReplacing, EmptyReleasesTheBuffer) {
    CExtString s("abc");
    s.Empty();
    EXPECT_FALSE(has_buffer(s));
    EXPECT_EQ(capacity_of(s), 0);
    s.Empty();
    EXPECT_TRUE(s.IsEmpty());
}

TEST(ExtStringReplacing, SetAtStoresInsideTheLengthOnly) {
    CExtString s("abc");
    EXPECT_TRUE(s.SetAt(0, 'X'));
    EXPECT_TRUE(s.SetAt(2, 'Z'));
    EXPECT_FALSE(s.SetAt(3, 'Q'));
    EXPECT_FALSE(s.SetAt(-1, 'Q'));
    EXPECT_EQ(counted(s), "3:XbZ");
    CExtString empty;
    EXPECT_FALSE(empty.SetAt(0, 'Q'));
}

TEST(ExtStringReplacing, ZeroStoredShortensTheVisibleTextNotTheLength) {
    EXPECT_EQ(counted(with_hidden_zero()), "6:abc");
}

TEST(ExtStringReplacing, CopyDataCopiesOrEmpties) {
    CExtString s("old");
    EXPECT_TRUE(s.CopyData("new text"));
    EXPECT_EQ(counted(s), "8:new text");
    EXPECT_EQ(capacity_of(s), 16);
    EXPECT_TRUE(s.CopyData(CExtString()));
    EXPECT_FALSE(has_buffer(s));
}

TEST(ExtStringReplacing, CopyDataFollowsTheVisibleText) {
    CExtString s("old");
    EXPECT_TRUE(s.CopyData(with_text_behind_the_length()));
    EXPECT_EQ(counted(s), "4:abcx");
    EXPECT_TRUE(s.CopyData(with_hidden_zero()));
    EXPECT_EQ(counted(s), "3:abc");
    EXPECT_TRUE(s.CopyData(with_negative_length()));
    EXPECT_FALSE(has_buffer(s));
}

TEST(ExtStringReplacing, CreateFromCharactersReplacesTheText) {
    CExtString s("old");
    EXPECT_TRUE(s.CreateFromCharacters('-', 10));
    EXPECT_EQ(counted(s), "10:----------");
    EXPECT_TRUE(s.CreateFromCharacters('-', 0));
    EXPECT_EQ(counted(s), "0:");
    EXPECT_EQ(capacity_of(s), 8);
}

TEST(ExtStringReplacing, CreateFromStringReplacesTheText) {
    CExtString s("old");
    EXPECT_TRUE(s.CreateFromString("new"));
    EXPECT_EQ(counted(s), "3:new");
    EXPECT_TRUE(s.CreateFromStringLen("newer", 4));
    EXPECT_EQ(counted(s), "4:newe");
    EXPECT_TRUE(s.CreateFromString(nullptr));
    EXPECT_FALSE(has_buffer(s));
}

TEST(ExtStringReplacing, AssignmentsReplaceTheText) {
    CExtString s("old");
    s = CExtString("string");
    EXPECT_EQ(counted(s), "6:string");
    s = 'c';
    EXPECT_EQ(counted(s), "1:c");
    s = "text";
    EXPECT_EQ(counted(s), "4:text");
    s = static_cast<const char*>(nullptr);
    EXPECT_FALSE(has_buffer(s));
}

TEST(ExtStringReplacing, AssignmentOfAZeroCharacterCountsOne) {
    CExtString s("old");
    s = '\0';
    EXPECT_EQ(counted(s), "1:");
}

TEST(ExtStringReplacing, AssignmentFromTheOwnTextIsSafe) {
    CExtString s("abcdefgh");
    s = s.GetString() + 3;
    EXPECT_EQ(counted(s), "5:defgh");
    EXPECT_TRUE(s.CreateFromStringLen(s.GetString() + 1, 2));
    EXPECT_EQ(counted(s), "2:ef");
    s = s.GetString() + 2;
    EXPECT_FALSE(has_buffer(s));
}

TEST(ExtStringReplacing, AssignmentOfItselfKeepsTheText) {
    CExtString s("abc");
    const CExtString& same = s;
    s = same;
    EXPECT_EQ(counted(s), "3:abc");
    EXPECT_TRUE(s.CopyData(same));
    EXPECT_EQ(counted(s), "3:abc");
}

// --- parts ----------------------------------------------------------------------------------------------------------

TEST(ExtStringLeft, GivesTheFirstBytes) {
    const CExtString s("abc");
    EXPECT_EQ(counted(s.Left(2)), "2:ab");
    EXPECT_EQ(counted(s.Left(3)), "3:abc");
    EXPECT_EQ(counted(s.Left(0)), "0:");
    EXPECT_FALSE(has_buffer(s.Left(0)));
}

TEST(ExtStringLeft, NegativeOrTooLargeGivesTheWholeText) {
    const CExtString s("abc");
    EXPECT_EQ(counted(s.Left(-1)), "3:abc");
    EXPECT_EQ(counted(s.Left(99)), "3:abc");
    EXPECT_EQ(counted(s.Left(INT_MIN)), "3:abc");
}

TEST(ExtStringLeft, OfAnEmptyStringIsEmpty) {
    for (int n : {-1, 0, 1}) {
        EXPECT_FALSE(has_buffer(CExtString().Left(n)));
        EXPECT_FALSE(has_buffer(CExtString('x', 0).Left(n)));
        EXPECT_FALSE(has_buffer(with_negative_length().Left(n)));
    }
}

TEST(ExtStringLeft, EndsAtAHiddenZero) {
    EXPECT_EQ(counted(with_hidden_zero().Left(5)), "3:abc");
    EXPECT_EQ(counted(with_text_behind_the_length().Left(3)), "3:abc");
}

TEST(ExtStringRight, GivesTheLastBytes) {
    const CExtString s("abc");
    EXPECT_EQ(counted(s.Right(2)), "2:bc");
    EXPECT_EQ(counted(s.Right(3)), "3:abc");
    EXPECT_EQ(counted(s.Right(0)), "0:");
}

TEST(ExtStringRight, MoreThanTheLengthGivesTheWholeText) {
    EXPECT_EQ(counted(CExtString("abc").Right(4)), "3:abc");
    EXPECT_EQ(counted(CExtString("abc").Right(INT_MAX)), "3:abc");
}

TEST(ExtStringRight, NegativeGivesAnEmptyText) {
    EXPECT_EQ(counted(CExtString("abc").Right(-1)), "0:");
    EXPECT_EQ(counted(CExtString("abc").Right(INT_MIN)), "0:");
}

TEST(ExtStringRight, OfAnEmptyStringIsEmpty) {
    for (int n : {-1, 0, 1}) {
        EXPECT_FALSE(has_buffer(CExtString().Right(n)));
        EXPECT_FALSE(has_buffer(with_negative_length().Right(n)));
    }
}

TEST(ExtStringRight, CountsHiddenBytes) {
    EXPECT_EQ(counted(with_hidden_zero().Right(2)), "2:ef");
    EXPECT_EQ(counted(with_hidden_zero().Right(4)), "1:c");
}

TEST(ExtStringMid, GivesBytesFromTheStart) {
    const CExtString s("abcdef");
    EXPECT_EQ(counted(s.Mid(2, 3)), "3:cde");
    EXPECT_EQ(counted(s.Mid(0, 6)), "6:abcdef");
    EXPECT_EQ(counted(s.Mid(3, 0)), "0:");
}

TEST(ExtStringMid, NegativeOrTooLargeCountGoesToTheEnd) {
    const CExtString s("abcdef");
    EXPECT_EQ(counted(s.Mid(2, -1)), "4:cdef");
    EXPECT_EQ(counted(s.Mid(2, 5)), "4:cdef");
    EXPECT_EQ(counted(s.Mid(2, INT_MAX)), "4:cdef");
    EXPECT_EQ(counted(s.Mid(6, 1)), "0:");
}

TEST(ExtStringMid, NegativeStartIsZeroAndOneBehindTheTextGivesNothing) {
    const CExtString s("abcdef");
    EXPECT_EQ(counted(s.Mid(-3, 2)), "2:ab");
    EXPECT_EQ(counted(s.Mid(INT_MIN, INT_MAX)), "6:abcdef");
    EXPECT_EQ(counted(s.Mid(7, 1)), "0:");
    EXPECT_EQ(counted(s.Mid(INT_MAX, INT_MAX)), "0:");
}

TEST(ExtStringMid, OfAnEmptyStringIsEmpty) {
    EXPECT_FALSE(has_buffer(CExtString().Mid(0, 1)));
    EXPECT_FALSE(has_buffer(with_negative_length().Mid(0, 1)));
}
