// The regular-expression members of CExtString.
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_string.h"
#include "orvil/strings/regex.h"
#include "regex_entry_view.h"

namespace orvil::test {
namespace {

using Texts = std::vector<std::string>;

Texts texts_of(const CExtStrArray& array) {
    Texts texts;
    for (int i = 0; i < array.GetSize(); ++i) {
        texts.emplace_back(array.GetAt(i) != nullptr ? array.GetAt(i) : "");
    }
    return texts;
}

// Reaches the protected members.
class Probe : public CExtString {
public:
    using CExtString::_MakeRegexV;
    using CExtString::_RegexMatch;
    using CExtString::CExtString;

    static Probe with_empty_buffer() {
        Probe probe;
        probe.CreateFromCharacters('x', 0);
        EXPECT_NE(probe.buffer_, nullptr);
        return probe;
    }
};

class ExtStringRegex : public testing::Test {
protected:
    void SetUp() override { regex_cleanup(); }
    void TearDown() override { regex_cleanup(); }

    static int match(const char* text, const char* pattern) { return CExtString(text).RegexMatch(pattern); }
    static std::string replaced(const char* text, const char* pattern, const char* replacement) {
        return CExtString(text).RegexReplace(pattern, replacement).GetString();
    }
    static Texts split(const char* text, const char* pattern) { return texts_of(CExtString(text).RegexSplit(pattern)); }
};

using ExtStringRegexHandle = ExtStringRegex;
using ExtStringRegexMatch = ExtStringRegex;
using ExtStringRegexReplace = ExtStringRegex;
using ExtStringRegexSplit = ExtStringRegex;

// --- _MakeRegexV -----------------------------------------------------------------------------------------------------

TEST_F(ExtStringRegexHandle, HandleIsReturnedItself) {
    void* handle = regex_compile("/a/");
    EXPECT_EQ(Probe::_MakeRegexV(static_cast<const char*>(handle)), handle);
    EXPECT_EQ(entry_of(handle).references, 1);
}

TEST_F(ExtStringRegexHandle, TextIsCompiledAndCountsAReference) {
    void* handle = Probe::_MakeRegexV("/a/");
    EXPECT_TRUE(regex_check(handle));
    EXPECT_EQ(Probe::_MakeRegexV("/a/"), handle);
    EXPECT_EQ(entry_of(handle).references, 2);
}

TEST_F(ExtStringRegexHandle, InvalidTextAndNullGiveNull) {
    EXPECT_EQ(Probe::_MakeRegexV("abc"), nullptr);
    EXPECT_EQ(Probe::_MakeRegexV(nullptr), nullptr);
}

TEST_F(ExtStringRegexHandle, EveryMemberTakesAHandle) {
    const char* handle = static_cast<const char*>(regex_compile("/,/"));
    EXPECT_EQ(match("a,b", handle), 1);
    EXPECT_EQ(replaced("a,b", handle, ";"), "a;b");
    EXPECT_EQ(split("a,b", handle), (Texts{"a", "b"}));
    EXPECT_EQ(entry_of(const_cast<char*>(handle)).references, 1);
}

TEST_F(ExtStringRegexHandle, EveryUseByTextCountsAReference) {
    void* handle = regex_compile("/,/");
    match("a,b", "/,/");
    replaced("a,b", "/,/", ";");
    split("a,b", "/,/");
    EXPECT_EQ(entry_of(handle).references, 4);
}

// --- RegexMatch ------------------------------------------------------------------------------------------------------

TEST_F(ExtStringRegexMatch, TwoGroupsFillThreeElements) {
    CExtStrArray parts;
    EXPECT_EQ(CExtString("x key=value;").RegexMatch("/(\\w+)=(\\w+)/", parts), 3);
    EXPECT_EQ(texts_of(parts), (Texts{"key=value", "key", "value"}));
}

TEST_F(ExtStringRegexMatch, PartsAreEmptiedFirst) {
    CExtStrArray parts("old", "older", "oldest", static_cast<const char*>(nullptr));
    EXPECT_EQ(CExtString("abc").RegexMatch("/b/", parts), 1);
    EXPECT_EQ(texts_of(parts), (Texts{"b"}));
    EXPECT_EQ(CExtString("abc").RegexMatch("/x/", parts), 0);
    EXPECT_TRUE(parts.IsEmpty());
}

TEST_F(ExtStringRegexMatch, PartsAreEmptiedEvenByABadPattern) {
    CExtStrArray parts("old", static_cast<const char*>(nullptr));
    EXPECT_EQ(CExtString("abc").RegexMatch("abc", parts), 0);
    EXPECT_TRUE(parts.IsEmpty());
}

TEST_F(ExtStringRegexMatch, PatternMayBeOneOfTheParts) {
    CExtStrArray parts("/b(c)/", static_cast<const char*>(nullptr));
    EXPECT_EQ(CExtString("abc").RegexMatch(parts.GetAt(0), parts), 2);
    EXPECT_EQ(texts_of(parts), (Texts{"bc", "c"}));
}

TEST_F(ExtStringRegexMatch, UnsetGroupGivesAnEmptyElement) {
    CExtStrArray parts;
    EXPECT_EQ(CExtString("b").RegexMatch("/(a)|(b)/", parts), 3);
    EXPECT_EQ(texts_of(parts), (Texts{"b", "", "b"}));
    EXPECT_EQ(parts.GetAt(1), nullptr);
}

TEST_F(ExtStringRegexMatch, TrailingUnsetGroupsAreNotCounted) {
    CExtStrArray parts;
    EXPECT_EQ(CExtString("ac").RegexMatch("/a(b)?(x)?/", parts), 1);
    EXPECT_EQ(parts.GetSize(), 1);
}

TEST_F(ExtStringRegexMatch, NoMatchAndInvalidPatternsGiveZero) {
    EXPECT_EQ(match("abc", "/x/"), 0);
    for (const char* pattern : {"abc", "1b1", "\\b\\", "/b/g", "/(/", ""}) {
        EXPECT_EQ(match("abc", pattern), 0) << pattern;
    }
    EXPECT_EQ(match("abc", nullptr), 0);
}

TEST_F(ExtStringRegexMatch, ProtectedFormTellsABadPatternFromNoMatch) {
    EXPECT_EQ(Probe("abc")._RegexMatch("/x/", nullptr), 0);
    EXPECT_EQ(Probe("abc")._RegexMatch("abc", nullptr), -1);
    EXPECT_EQ(Probe()._RegexMatch("abc", nullptr), -1);
    EXPECT_EQ(Probe()._RegexMatch("/x*/", nullptr), 0);
}

TEST_F(ExtStringRegexMatch, EmptyStringWithoutABufferNeverMatchesYetCompiles) {
    EXPECT_EQ(match("", "/^$/"), 0);
    EXPECT_TRUE(regex_remove("/^$/"));
}

TEST_F(ExtStringRegexMatch, EmptyStringWithABufferIsSearched) {
    const Probe empty = Probe::with_empty_buffer();
    EXPECT_EQ(Probe(empty)._RegexMatch("/^$/", nullptr), 0);  // a copy has no buffer
    EXPECT_EQ(empty._RegexMatch("/^$/", nullptr), 1);
}

TEST_F(ExtStringRegexMatch, CountedLengthIsSearchedPastAZeroByte) {
    CExtString text("abc");
    text.SetAt(1, '\0');
    CExtStrArray parts;
    EXPECT_EQ(text.RegexMatch("/c/"), 1);
    EXPECT_EQ(text.RegexMatch("/a.c/s", parts), 1);
    EXPECT_EQ(texts_of(parts), (Texts{"a"}));
}

TEST_F(ExtStringRegexMatch, CharactersBehindTheCountedLengthAreNotSearched) {
    CExtString text("abc");
    text.ConcatCharacters('d', 0);
    ASSERT_STREQ(text.GetString(), "abcd");
    EXPECT_EQ(text.RegexMatch("/d/"), 0);
    text.ConcatCharacters('d', -9);
    EXPECT_EQ(text.RegexMatch("/a/"), 0);
}

TEST_F(ExtStringRegexMatch, EightyFourGroupsFillTheVector) {
    std::string pattern = "/";
    for (int i = 0; i < 84; ++i) {
        pattern += "(a)";
    }
    CExtStrArray parts;
    EXPECT_EQ(CExtString('a', 84).RegexMatch((pattern + "/").c_str(), parts), 85);
    EXPECT_EQ(parts.GetSize(), 85);
    EXPECT_STREQ(parts.GetAt(84), "a");
}

TEST_F(ExtStringRegexMatch, MoreGroupsThanFitCountAsEightyFivePairs) {
    std::string pattern = "/";
    for (int i = 0; i < 100; ++i) {
        pattern += "(a)";
    }
    CExtStrArray parts;
    EXPECT_EQ(CExtString('a', 100).RegexMatch((pattern + "/").c_str(), parts), 85);
    EXPECT_EQ(parts.GetSize(), 85);
    EXPECT_STREQ(parts.GetAt(84), "a");
}

TEST_F(ExtStringRegexMatch, MatchThatEndsBeforeItBeginsGivesAnEmptyElement) {
    CExtStrArray parts;
    EXPECT_EQ(CExtString("ab").RegexMatch("/(?=ab\\K)/", parts), 1);
    EXPECT_EQ(texts_of(parts), (Texts{""}));
}

TEST_F(ExtStringRegexMatch, LaterFlagsAreLost) {
    EXPECT_EQ(match("ABC", "/abc/"), 0);
    EXPECT_EQ(match("ABC", "/abc/i"), 0);
}

// --- RegexReplace without groups -------------------------------------------------------------------------------------

TEST_F(ExtStringRegexReplace, EveryOccurrenceIsReplaced) {
    EXPECT_EQ(replaced("abcabc", "/b/", "X"), "aXcaXc");
    EXPECT_EQ(replaced("bb", "/b/", "XY"), "XYXY");
    EXPECT_EQ(replaced("abcabc", "/b/", ""), "acac");
    EXPECT_EQ(replaced("abc", "/b/", nullptr), "ac");
}

TEST_F(ExtStringRegexReplace, OriginalIsUnchanged) {
    const CExtString text("abc");
    text.RegexReplace("/b/", "X");
    EXPECT_STREQ(text.GetString(), "abc");
}

TEST_F(ExtStringRegexReplace, ReplacementIsLiteralAndNotSearched) {
    EXPECT_EQ(replaced("abc", "/b/", "$0\\1%1%"), "a$0\\1%1%c");
    EXPECT_EQ(replaced("aba", "/a/", "aa"), "aabaa");
}

TEST_F(ExtStringRegexReplace, NoMatchOrBadPatternGivesAnUnchangedCopy) {
    EXPECT_EQ(replaced("abc", "/x/", "Y"), "abc");
    EXPECT_EQ(replaced("abc", "abc", "Y"), "abc");
    EXPECT_EQ(replaced("abc", nullptr, "Y"), "abc");
}

TEST_F(ExtStringRegexReplace, EverySearchIsASubjectOfItsOwn) {
    EXPECT_EQ(replaced("aaab", "/^a/", "x"), "xxxb");
    EXPECT_EQ(replaced("abb", "/(?<=a)b/", "x"), "axb");
    EXPECT_EQ(replaced("aab", "/(?<!a)a/", "x"), "xxb");
}

TEST_F(ExtStringRegexReplace, WholeTextMayBeReplaced) {
    EXPECT_EQ(replaced("abc", "/^.*$/", "x"), "x");
    EXPECT_EQ(replaced("abc", "/.+/", ""), "");
    EXPECT_EQ(CExtString("abc").RegexReplace("/.+/", "").GetLength(), 0);
}

TEST_F(ExtStringRegexReplace, EmptyStringsAreSearchedToo) {
    EXPECT_EQ(replaced("", "/a/", "x"), "");
    EXPECT_EQ(replaced("", "/(a)|^/", "x"), "");
}

TEST_F(ExtStringRegexReplace, TextEndsAtAZeroByte) {
    CExtString text("abab");
    text.SetAt(2, '\0');
    EXPECT_STREQ(text.RegexReplace("/b/", "x").GetString(), "ax");
    EXPECT_EQ(text.RegexReplace("/b/", "x").GetLength(), 2);
}

TEST_F(ExtStringRegexReplace, ReplacementMayBeTheTextItself) {
    const CExtString text("ab");
    EXPECT_STREQ(text.RegexReplace("/b/", text).GetString(), "aab");
}

TEST_F(ExtStringRegexReplace, ArrayOfReplacementsReplacesNothing) {
    const CExtStrArray replacements("x", "y", static_cast<const char*>(nullptr));
    EXPECT_STREQ(CExtString("abc").RegexReplace("/b/", replacements).GetString(), "abc");
    EXPECT_FALSE(regex_remove("/b/"));
}

// --- RegexReplace with groups ----------------------------------------------------------------------------------------

TEST_F(ExtStringRegexReplace, GroupIsReplacedAndTheTextBehindItIsDropped) {
    EXPECT_EQ(replaced("abcde", "/b(c)d/", "X"), "abX");
    EXPECT_EQ(replaced("abcde", "/(c)/", ""), "ab");
    EXPECT_EQ(replaced("abcabc", "/(b)/", "X"), "aX");
}

TEST_F(ExtStringRegexReplace, TextBetweenGroupsIsKept) {
    EXPECT_EQ(replaced("key = value;", "/(\\w+) = (\\w+)/", "<>"), "<> = <>");
}

TEST_F(ExtStringRegexReplace, SearchGoesOnInsideTheNewText) {
    // "a--b" gives "X--X" and goes on at 3 + 1, its end: the empty rest does not match.
    EXPECT_EQ(replaced("a--b!", "/(a)--(b)/", "X"), "X--X");
    // "ab" gives "ba" + "ba" and goes on at 1 + 2 with the rest "a", which does not match.
    EXPECT_EQ(replaced("ab", "/(a)(b)/", "ba"), "baba");
    // "ab" gives "aba" + "aba" and goes on at 1 + 3 with the rest "ba", which does not match.
    EXPECT_EQ(replaced("ab", "/(a)(b)/", "aba"), "abaaba");
}

TEST_F(ExtStringRegexReplace, TrailingUnsetGroupsFollowTheRuleWithoutGroups) {
    EXPECT_EQ(replaced("a-a-", "/a(b)?/", "X"), "X-X-");
    EXPECT_EQ(replaced("a-ab-a", "/a(b)?/", "X"), "X-aX");
}

TEST_F(ExtStringRegexReplace, RestAfterGroupsIsReplacedWithoutThem) {
    // "cab" gives "c" + "xy" + "xy", and the search goes on at 2 + 2 with the rest "y".
    EXPECT_EQ(replaced("cab", "/(a)(b)|y/", "xy"), "cxyxxy");
}

TEST_F(ExtStringRegexReplace, OffsetBeyondTheNewTextEndsTheRun) {
    EXPECT_EQ(replaced("ab:cd", "/(\\w+):(\\w+)/", "-"), "-:-");
    EXPECT_EQ(CExtString("ab:cd").RegexReplace("/(\\w+):(\\w+)/", "-").GetLength(), 3);
}

TEST_F(ExtStringRegexReplace, UnsetGroupCopiesNothing) {
    EXPECT_EQ(replaced("xb!", "/(a)?(b)/", "-"), "-x-");
    EXPECT_EQ(replaced("xab", "/x(q)?a(b)/", "-"), "-xa-");
}

TEST_F(ExtStringRegexReplace, NestedGroupCopiesNothing) {
    // Group 2 lies inside group 1; the search goes on at 1 + 1 with the rest "-".
    EXPECT_EQ(replaced("zabc", "/((a)b)/", "-"), "z--");
    // Group 3 begins where group 1 ended, not where group 2 did.
    EXPECT_EQ(replaced("abcd", "/((a)bc)(d)/", "-"), "---");
}

TEST_F(ExtStringRegexReplace, GroupBeforeThePreviousOneCopiesNothing) {
    EXPECT_EQ(replaced("azb", "/(?=.*(b))(a)/", "-"), "az--");
}

TEST_F(ExtStringRegexReplace, GroupInALookAheadIsReplaced) {
    EXPECT_EQ(replaced("bc", "/(?=(b))/", "X"), "X");
}

TEST_F(ExtStringRegexReplace, MoreGroupsThanFitReplaceEightyFour) {
    std::string pattern = "/";
    for (int i = 0; i < 100; ++i) {
        pattern += "(a)";
    }
    EXPECT_EQ(CExtString('a', 100).RegexReplace((pattern + "/").c_str(), "x").GetLength(), 84);
}

TEST_F(ExtStringRegexReplace, UnsetGroupAtTheVectorsEndIsSafe) {
    std::string pattern = "/";
    for (int i = 0; i < 100; ++i) {
        pattern += i == 83 ? "(q)?" : "(a)";
    }
    EXPECT_EQ(CExtString('a', 99).RegexReplace((pattern + "/").c_str(), "").GetLength(), 0);
}

// --- RegexReplace: runs that would not end ---------------------------------------------------------------------------

TEST_F(ExtStringRegexReplace, GrowthWithoutEndStopsAtTheFirstRepetition) {
    EXPECT_EQ(replaced("ab", "/(a)(b)/", "xab"), "xabxab");
}

TEST_F(ExtStringRegexReplace, GrowthThatNeverRepeatsStopsToo) {
    EXPECT_GT(replaced("az", "/(?=.*(z))(a)/", "aazz").size(), 1000u);
}

TEST_F(ExtStringRegexReplace, EmptyMatchAtTheStartGivesTheUnchangedCopy) {
    EXPECT_EQ(replaced("abc", "/x*/", "-"), "abc");
    EXPECT_EQ(replaced("abc", "/^/", "-"), "abc");
    EXPECT_EQ(replaced("abc", "#|b#", "-"), "abc");
    EXPECT_EQ(replaced("", "/^$/", "-"), "");
}

TEST_F(ExtStringRegexReplace, EmptyMatchAfterOthersKeepsTheirReplacements) {
    EXPECT_EQ(replaced("bbc", "/b*/", "-"), "-c");
    EXPECT_EQ(replaced("bbc", "/(b*)/", "-"), "-");
}

TEST_F(ExtStringRegexReplace, EmptyMatchFurtherOnThatWouldRepeatIsNotReplaced) {
    EXPECT_EQ(replaced("abc", "/$/", "-"), "abc");
    EXPECT_EQ(replaced("abc", "/(?=c)/", "-"), "abc");
    EXPECT_EQ(replaced("abc", "/(x*)/", "-"), "abc");
    EXPECT_EQ(replaced("abc", "/()/", ""), "abc");
}

TEST_F(ExtStringRegexReplace, EmptyMatchThatCannotRepeatIsReplaced) {
    EXPECT_EQ(replaced("abcab", "/(?<=a)/", "-"), "a-bca-b");
}

TEST_F(ExtStringRegexReplace, MatchThatEndsBeforeItBeginsIsAnEmptyMatch) {
    EXPECT_EQ(replaced("ab", "/(?=ab\\K)/", "-"), "ab");
}

// --- RegexSplit ------------------------------------------------------------------------------------------------------

TEST_F(ExtStringRegexSplit, PiecesBetweenMatchesEmptyOnesToo) {
    EXPECT_EQ(split("a,b,,c", "/,/"), (Texts{"a", "b", "", "c"}));
    EXPECT_EQ(split(",a", "/,/"), (Texts{"", "a"}));
    EXPECT_EQ(CExtString("a,,b").RegexSplit("/,/").GetAt(1), nullptr);
}

TEST_F(ExtStringRegexSplit, NoEmptyPieceAtTheEnd) {
    EXPECT_EQ(split("a,b,", "/,/"), (Texts{"a", "b"}));
    EXPECT_EQ(split("a,,", "/,/"), (Texts{"a", ""}));
    EXPECT_EQ(split(",", "/,/"), (Texts{""}));
}

TEST_F(ExtStringRegexSplit, NoMatchGivesTheWholeText) {
    EXPECT_EQ(split("abc", "/,/"), (Texts{"abc"}));
}

TEST_F(ExtStringRegexSplit, EmptyStringGivesNothingAndCompilesNothing) {
    EXPECT_EQ(split("", "/,/"), Texts());
    EXPECT_FALSE(regex_remove("/,/"));
}

TEST_F(ExtStringRegexSplit, EmptyStringWithABufferGivesNothingButCompiles) {
    EXPECT_TRUE(Probe::with_empty_buffer().RegexSplit("/,/").IsEmpty());
    EXPECT_TRUE(Probe::with_empty_buffer().RegexSplit("/^$/").IsEmpty());
    EXPECT_TRUE(regex_remove("/,/"));
}

TEST_F(ExtStringRegexSplit, BadPatternGivesNothing) {
    EXPECT_EQ(split("abc", "b"), Texts());
    EXPECT_EQ(split("abc", nullptr), Texts());
}

TEST_F(ExtStringRegexSplit, GroupsAreNotAdded) {
    EXPECT_EQ(split("a1b2c", "/(\\d)/"), (Texts{"a", "b", "c"}));
}

TEST_F(ExtStringRegexSplit, EverySearchIsASubjectOfItsOwn) {
    EXPECT_EQ(split("aab", "/^a/"), (Texts{"", "", "b"}));
    EXPECT_EQ(split("abb", "/(?<=a)b/"), (Texts{"a", "b"}));
}

TEST_F(ExtStringRegexSplit, VisibleTextIsSplit) {
    CExtString text("a,b,c");
    text.SetAt(3, '\0');
    EXPECT_EQ(texts_of(text.RegexSplit("/,/")), (Texts{"a", "b"}));
    text = "a,";
    text.ConcatCharacters('b', 0);
    EXPECT_EQ(texts_of(text.RegexSplit("/,/")), (Texts{"a", "b"}));
}

TEST_F(ExtStringRegexSplit, EmptyMatchAppendsTheRest) {
    EXPECT_EQ(split("abc", "/x*/"), (Texts{"abc"}));
    EXPECT_EQ(split("a,bc", "/,|/"), (Texts{"a,bc"}));
    EXPECT_EQ(split(",abc", "/,*/"), (Texts{"", "abc"}));
}

TEST_F(ExtStringRegexSplit, EmptyMatchFurtherOnThatWouldRepeatAppendsTheRest) {
    EXPECT_EQ(split("abc", "/(?=c)/"), (Texts{"abc"}));
    EXPECT_EQ(split("abc", "/$/"), (Texts{"abc"}));
    EXPECT_EQ(split("x-abc", "/-|(?=c)/"), (Texts{"x", "abc"}));
}

TEST_F(ExtStringRegexSplit, EmptyMatchThatCannotRepeatCuts) {
    EXPECT_EQ(split("a,b,c", "/(?<=,)/"), (Texts{"a,", "b,", "c"}));
}

TEST_F(ExtStringRegexSplit, MatchThatEndsBeforeItBeginsIsAnEmptyMatch) {
    EXPECT_EQ(split("ab", "/(?=ab\\K)/"), (Texts{"ab"}));
}

// Checking each rest anew would read 30 gigabytes.
TEST_F(ExtStringRegexSplit, Utf8TextIsSplitInLinearTime) {
    std::string piece;
    for (int i = 0; i < 75; ++i) {
        piece += "\xC3\xA4";
    }
    std::string text;
    for (int i = 0; i < 20000; ++i) {
        text += piece + ",";
    }
    const CExtStrArray parts = CExtString(text.c_str()).RegexSplit("/(*UTF8),/");
    EXPECT_EQ(parts.GetSize(), 20000);
    EXPECT_STREQ(parts.GetAt(19999), piece.c_str());
}

TEST_F(ExtStringRegexSplit, RestThatBeginsInsideACharacterDoesNotMatch) {
    // \C is half of the first character, so that the rest is no UTF-8.
    EXPECT_EQ(split("\xC3\xA4;x;", "/(*UTF8)^\\C|;/"), (Texts{"", "\xA4;x;"}));
}

}  // namespace
}  // namespace orvil::test
