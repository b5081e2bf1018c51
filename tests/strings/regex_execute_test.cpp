// regex_execute() through the public interface.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "orvil/strings/regex.h"
#include "regex_entry_view.h"

namespace orvil::test {
namespace {

class RegexExecute : public testing::Test {
protected:
    void SetUp() override { regex_cleanup(); }
    void TearDown() override { regex_cleanup(); }

    int run(const char* pattern, const std::string& subject, int start = 0, int options = 0) {
        ovector.assign(256, -7);
        return regex_execute(regex_compile(pattern), nullptr, subject.data(), static_cast<int>(subject.size()), start,
                             options, ovector.data(), static_cast<int>(ovector.size()));
    }

    std::vector<int> ovector;
};

TEST_F(RegexExecute, MatchWithoutGroupsGivesOnePair) {
    EXPECT_EQ(run("/b+/", "abbc"), 1);
    EXPECT_EQ(ovector[0], 1);
    EXPECT_EQ(ovector[1], 3);
}

TEST_F(RegexExecute, TwoGroupsGiveThreePairs) {
    EXPECT_EQ(run("/(\\w+)=(\\w+)/", "; key=value;"), 3);
    EXPECT_EQ(std::vector<int>(ovector.begin(), ovector.begin() + 6), (std::vector<int>{2, 11, 2, 5, 6, 11}));
}

TEST_F(RegexExecute, UnsetGroupHasMinusOne) {
    EXPECT_EQ(run("/(a)|(b)/", "b"), 3);
    EXPECT_EQ(ovector[2], -1);
    EXPECT_EQ(ovector[3], -1);
}

TEST_F(RegexExecute, TrailingUnsetGroupsAreNotCounted) {
    EXPECT_EQ(run("/a(b)?/", "ac"), 1);
}

TEST_F(RegexExecute, NoMatchGivesMinusOne) {
    EXPECT_EQ(run("/x/", "abc"), -1);
}

TEST_F(RegexExecute, NoMatchLeavesNoPair) {
    EXPECT_EQ(run("/a(x)/", "abc"), -1);
    EXPECT_EQ(ovector[0], -1);
    EXPECT_EQ(ovector[1], -1);
}

TEST_F(RegexExecute, VectorTooSmallGivesZero) {
    int pairs[3] = {-7, -7, -7};
    void* handle = regex_compile("/(a)(b)/");
    EXPECT_EQ(regex_execute(handle, nullptr, "ab", 2, 0, 0, pairs, 3), 0);
    EXPECT_EQ(pairs[0], 0);
    EXPECT_EQ(pairs[1], 2);
}

TEST_F(RegexExecute, VectorOfTwoIntsHoldsTheWholeMatch) {
    int pair[2] = {-7, -7};
    EXPECT_EQ(regex_execute(regex_compile("/b/"), nullptr, "ab", 2, 0, 0, pair, 2), 1);
    EXPECT_EQ(pair[0], 1);
    EXPECT_EQ(pair[1], 2);
}

TEST_F(RegexExecute, VectorOfOneOrNoIntHoldsNothing) {
    int pairs[2] = {-7, -7};
    void* handle = regex_compile("/a/");
    EXPECT_EQ(regex_execute(handle, nullptr, "a", 1, 0, 0, pairs, 0), 0);
    EXPECT_EQ(pairs[0], -7);
    EXPECT_EQ(regex_execute(handle, nullptr, "a", 1, 0, 0, pairs, 1), 0);
    EXPECT_EQ(pairs[1], -7);
}

TEST_F(RegexExecute, NullArgumentsAndNonHandlesGiveMinusOne) {
    int pairs[6];
    void* handle = regex_compile("/a/");
    EXPECT_EQ(regex_execute(nullptr, nullptr, "a", 1, 0, 0, pairs, 6), -1);
    EXPECT_EQ(regex_execute("/a/", nullptr, "a", 1, 0, 0, pairs, 6), -1);
    EXPECT_EQ(regex_execute(handle, nullptr, nullptr, 1, 0, 0, pairs, 6), -1);
    EXPECT_EQ(regex_execute(handle, nullptr, "a", 1, 0, 0, nullptr, 6), -1);
}

TEST_F(RegexExecute, ReservedArgumentIsIgnored) {
    int pairs[6];
    EXPECT_EQ(regex_execute(regex_compile("/a/"), "no study data", "a", 1, 0, 0, pairs, 6), 1);
}

TEST_F(RegexExecute, SearchBeginsAtTheStartAndSeesTheTextBefore) {
    EXPECT_EQ(run("/a/", "aba", 1), 1);
    EXPECT_EQ(ovector[0], 2);
    EXPECT_EQ(run("/^b/", "ab", 1), -1);
    EXPECT_EQ(run("/(?<=a)b/", "ab", 1), 1);
}

TEST_F(RegexExecute, StartOutsideTheSubjectGivesPcresError) {
    constexpr int kBadOffset = -24;
    EXPECT_EQ(run("/a/", "aba", 4), kBadOffset);
    EXPECT_EQ(run("/a/", "aba", -1), kBadOffset);
    EXPECT_EQ(run("/x*/", "aba", 3), 1);
}

TEST_F(RegexExecute, NegativeLengthOrSizeGivesPcresError) {
    int pairs[6];
    void* handle = regex_compile("/a/");
    constexpr int kBadLength = -32;
    constexpr int kBadCount = -15;
    EXPECT_EQ(regex_execute(handle, nullptr, "a", -1, 0, 0, pairs, 6), kBadLength);
    EXPECT_EQ(regex_execute(handle, nullptr, "a", 1, 0, 0, pairs, -3), kBadCount);
}

TEST_F(RegexExecute, OptionsReachPcre) {
    constexpr int kAnchored = 0x10;
    constexpr int kNotBeginOfLine = 0x80;
    constexpr int kNotEndOfLine = 0x100;
    constexpr int kNotEmpty = 0x400;
    constexpr int kPartial = 0x8000;
    EXPECT_EQ(run("/b/", "ab", 0, kAnchored), -1);
    EXPECT_EQ(run("/^a/", "ab", 0, kNotBeginOfLine), -1);
    EXPECT_EQ(run("/b$/", "ab", 0, kNotEndOfLine), -1);
    EXPECT_EQ(run("/x*/", "ab", 0, kNotEmpty), -1);
    EXPECT_EQ(run("/abc/", "xab", 0, kPartial), -12);
    EXPECT_EQ(run("/abc/", "xab", 0, 0x1), -3);
}

TEST_F(RegexExecute, ZeroBytesInTheSubjectAreText) {
    EXPECT_EQ(run("/b/", std::string("a\0b", 3)), 1);
    EXPECT_EQ(ovector[0], 2);
}

TEST_F(RegexExecute, NothingBeyondTheLengthIsRead) {
    const std::unique_ptr<char[]> exact(new char[3]{'a', 'b', 'c'});
    int pairs[6];
    EXPECT_EQ(regex_execute(regex_compile("/c(?!d)/"), nullptr, exact.get(), 3, 0, 0, pairs, 6), 1);
    EXPECT_EQ(regex_execute(regex_compile("/abcd?$/"), nullptr, exact.get(), 3, 0, 0, pairs, 6), 1);
}

TEST_F(RegexExecute, EachFlagHasItsEffect) {
    EXPECT_EQ(run("/a/i", "A"), 1);
    EXPECT_EQ(run("/^b$/m", "a\nb\nc"), 1);
    EXPECT_EQ(run("/a.b/s", "a\nb"), 1);
    EXPECT_EQ(run("/a b # c/x", "ab"), 1);
    EXPECT_EQ(run("/q/A", "aq"), -1);
    EXPECT_EQ(run("/z$/E", "z\n"), -1);
    EXPECT_EQ(regex_compile("/\\y/X"), nullptr);
    EXPECT_EQ(run("/u+/U", "uuu"), 1);
    EXPECT_EQ(ovector[1], 1);
}

TEST_F(RegexExecute, WithoutFlagsNoneOfTheirEffects) {
    EXPECT_EQ(run("/a/", "A"), -1);
    EXPECT_EQ(run("/^b$/", "a\nb\nc"), -1);
    EXPECT_EQ(run("/a.b/", "a\nb"), -1);
    EXPECT_EQ(run("/a b # c/", "ab"), -1);
    EXPECT_EQ(run("/q/", "aq"), 1);
    EXPECT_EQ(run("/z$/", "z\n"), 1);
    EXPECT_NE(regex_compile("/\\y/"), nullptr);
    EXPECT_EQ(run("/u+/", "uuu"), 1);
    EXPECT_EQ(ovector[1], 3);
}

TEST_F(RegexExecute, NewlineIsTheLineFeedAlone) {
    EXPECT_EQ(run("/^b/m", "a\rb"), -1);
    EXPECT_EQ(run("/a.b/", "a\rb"), 1);
    EXPECT_EQ(run("/r$/", "r\r\n"), -1);
}

// --- long subjects ---------------------------------------------------------------------------------------------------

TEST_F(RegexExecute, NestedRepeatOverTenMegabytesEndsWithoutAMatch) {
    EXPECT_LT(run("/^(a|b)*$/", std::string(10000000, 'a')), 0);
}

TEST_F(RegexExecute, NestedRepeatOverAShortSubjectMatches) {
    EXPECT_EQ(run("/^(a|b)*$/", std::string(1000, 'a')), 2);
}

// The machine code's own stack is used up long before the interpreter's.
TEST_F(RegexExecute, SubjectBeyondTheMachineCodesStackStillMatches) {
    EXPECT_EQ(run("/^(a|b)*$/", std::string(2500, 'a')), 2);
}

TEST_F(RegexExecute, PlainRepeatOverTenMegabytesMatches) {
    EXPECT_EQ(run("/^a*$/", std::string(10000000, 'a')), 1);
    EXPECT_EQ(ovector[1], 10000000);
}

TEST_F(RegexExecute, ExplosiveBacktrackingEndsWithoutAMatch) {
    EXPECT_LT(run("/^(a+)+$/", std::string(40, 'a') + "b"), 0);
}

TEST_F(RegexExecute, EndlessRecursionOfAPatternEndsWithoutAMatch) {
    EXPECT_LT(run("/^(a?(?1))*b/", "aaaa"), 0);
}

TEST_F(RegexExecute, LongSubjectIsSafeOnAnotherThread) {
    const std::string subject(10000000, 'b');
    int result = 0;
    std::thread([&] { result = run("/^(?:(a)|(b))*$/", subject); }).join();
    EXPECT_LT(result, 0);
}

TEST_F(RegexExecute, InvalidUtf8IsAnErrorForPatternsThatAskForUtf8) {
    constexpr int kBadUtf8 = -10;
    EXPECT_EQ(run("/(*UTF8)a/", "a\xFF"), kBadUtf8);
    EXPECT_EQ(run("/(*UTF8)^.$/", "\xC3\xA4"), 1);
}

}  // namespace
}  // namespace orvil::test
