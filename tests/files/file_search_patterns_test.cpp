// Which names a search's wildcards and regular expressions take.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/file_search_probe.h"
#include "orvil/strings/regex.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace {

using orvil::test::found_by;
using orvil::test::InFolder;
using orvil::test::Search;
using orvil::test::TempDir;
using Names = std::vector<std::string>;

// Patterns of other tests are out of the cache.
class SearchPattern : public testing::Test {
protected:
    SearchPattern() : inside(folder.path("")) { regex_cleanup(); }

    void make(const Names& names) const {
        for (const std::string& name : names) {
            folder.write(name, "");
        }
    }

    const TempDir folder;
    const InFolder inside;
};

Names by_wildcard(const char* wildcard) {
    CFileSearch search;
    EXPECT_TRUE(search.Setup(wildcard));
    return found_by(search);
}

Names by_regex(const char* pattern) {
    CFileSearch search;
    EXPECT_TRUE(search.RegexSetup(pattern));
    return found_by(search);
}

}  // namespace

// --- wildcards -------------------------------------------------------------------------------------------------------

TEST_F(SearchPattern, WildcardTakesWholeNamesInEitherCase) {
    make({"a.txt", "B.Txt", "a.txt.bak", "atxt"});
    EXPECT_EQ(by_wildcard("*.TXT"), (Names{"B.Txt", "a.txt"}));
    EXPECT_EQ(by_wildcard("A.TXT"), Names{"a.txt"});
    EXPECT_EQ(by_wildcard("txt"), Names{});
}

TEST_F(SearchPattern, PlusAndPointStandForThemselves) {
    make({"a+b1.c", "aab1xc", "aab1.c", "a+b12.c", "a+b.c"});
    EXPECT_EQ(by_wildcard("a+b?.c"), Names{"a+b1.c"});
}

TEST_F(SearchPattern, EachCharacterOfTheSetStandsForItself) {
    for (const char c : std::string("()+.[]^$")) {
        const std::string name = std::string("x") + c + "y";
        make({name, "x1y", "xy", "xxy"});
        EXPECT_EQ(by_wildcard(name.c_str()), Names{name});
    }
}

TEST_F(SearchPattern, StarTakesAllEntriesTheDotsIncluded) {
    make({"a", "b.c"});
    EXPECT_EQ(by_wildcard("*"), (Names{".", "..", "a", "b.c"}));
}

TEST_F(SearchPattern, StarPointStarWantsAPoint) {
    make({"a", "b.c"});
    EXPECT_EQ(by_wildcard("*.*"), (Names{".", "..", "b.c"}));
}

TEST_F(SearchPattern, QuestionMarkIsExactlyOneByte) {
    make({"a", "ab", "abc"});
    EXPECT_EQ(by_wildcard("a?"), Names{"ab"});
    EXPECT_EQ(by_wildcard("?"), (Names{".", "a"}));
    EXPECT_EQ(by_wildcard("??"), (Names{"..", "ab"}));
}

TEST_F(SearchPattern, BracesKeepTheirMeaning) {
    make({"a{2}b", "aab"});
    EXPECT_EQ(by_wildcard("a{2}b"), Names{"aab"});
}

TEST_F(SearchPattern, BackslashKeepsItsMeaning) {
    make({"a1b", "adb", "x$"});
    EXPECT_EQ(by_wildcard("a\\db"), Names{"a1b"});
    EXPECT_EQ(by_wildcard("x\\"), Names{"x$"});
}

TEST_F(SearchPattern, BarEndsThePatternSoThatItIsInvalid) {
    CFileSearch search;
    EXPECT_FALSE(search.Setup("a|b"));
    EXPECT_FALSE(search.Setup("a|i"));
    EXPECT_FALSE(search.FindNext());
}

TEST_F(SearchPattern, WildcardThatIsNoPatternClosesTheSearch) {
    make({"a"});
    CFileSearch search;
    ASSERT_TRUE(search.Setup("a"));
    ASSERT_TRUE(search.FindNext());
    EXPECT_FALSE(search.Setup("a|b"));
    EXPECT_STREQ(search.GetFileName(), "");
    EXPECT_FALSE(search.FindNext());
}

TEST_F(SearchPattern, LongWildcardIsTakenWhole) {
    const std::string name(200, '+');
    make({name, name.substr(1)});
    EXPECT_EQ(by_wildcard(name.c_str()), Names{name});
}

// --- regular expressions ---------------------------------------------------------------------------------------------

TEST_F(SearchPattern, RegexTakesPartsOfNamesInTheirCase) {
    make({"plan1", "Plan2", "note"});
    EXPECT_EQ(by_regex("/lan\\d/"), (Names{"Plan2", "plan1"}));
    EXPECT_EQ(by_regex("/^p/"), Names{"plan1"});
    EXPECT_EQ(by_regex("#^P#i"), (Names{"Plan2", "plan1"}));
}

TEST_F(SearchPattern, NotationWhoseBeginningIsCachedGetsThatPattern) {
    make({"plan1", "Plan2"});
    EXPECT_EQ(by_regex("/^plan/"), Names{"plan1"});
    EXPECT_EQ(by_regex("/^plan/i"), Names{"plan1"});
}

TEST_F(SearchPattern, MoreGroupsThanOffsetsIsAMatch) {
    std::string pattern = "/^";
    for (int i = 0; i < 200; ++i) {
        pattern += "(n)?";
    }
    pattern += "$/";
    make({std::string(200, 'n'), "other"});
    EXPECT_EQ(by_regex(pattern.c_str()), Names{std::string(200, 'n')});
}

TEST_F(SearchPattern, InvalidRegexClosesTheSearch) {
    make({"a"});
    for (const char* pattern : {"", "abc", "/(/", "/a/q", "  "}) {
        CFileSearch search;
        ASSERT_TRUE(search.Setup("a"));
        EXPECT_FALSE(search.RegexSetup(pattern)) << pattern;
        EXPECT_FALSE(search.FindNext());
    }
}

// --- no pattern ------------------------------------------------------------------------------------------------------

TEST_F(SearchPattern, WithoutAPatternNothingIsFound) {
    Search search;
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(search.Setup("*"));
        ASSERT_TRUE(search.FindNext());
        EXPECT_TRUE(i == 0 ? search.Setup("") : i == 1 ? search.Setup(nullptr) : search.RegexSetup(nullptr));
        EXPECT_NE(search.directory_, nullptr);
        EXPECT_STREQ(search.GetFileName(), "");
        EXPECT_FALSE(search.FindNext());
        EXPECT_EQ(search.stream_, nullptr);
    }
}

// --- its own texts as patterns ---------------------------------------------------------------------------------------

TEST_F(SearchPattern, OwnNameCanBeTheNextPattern) {
    make({"#^a#", "abc"});
    CFileSearch search;
    ASSERT_TRUE(search.Setup("#*"));
    ASSERT_TRUE(search.FindNext());
    ASSERT_TRUE(search.RegexSetup(search.GetFileName()));
    EXPECT_EQ(found_by(search), Names{"abc"});
    ASSERT_TRUE(search.Setup("abc"));
    ASSERT_TRUE(search.FindNext());
    ASSERT_TRUE(search.Setup(search.GetFileName()));
    EXPECT_EQ(found_by(search), Names{"abc"});
}

TEST_F(SearchPattern, OwnNotationCanBeSetUpAgain) {
    make({"abc"});
    Search search;
    ASSERT_TRUE(search.Setup("a*"));
    ASSERT_TRUE(search.RegexSetup(search.pattern_));
    EXPECT_EQ(found_by(search), Names{"abc"});
}
