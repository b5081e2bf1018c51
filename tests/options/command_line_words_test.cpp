// Splitting a command line into words.
#include "options/option_support.h"

namespace orvil::test {
namespace {

Texts split(const char* text, bool keep_first = true) {
    CExtStrList words = list_of({"what was there"});
    EXPECT_TRUE(getopt_parse_string_to_list(text, words, keep_first)) << text;
    return texts_of(words);
}

// --- what cannot be split --------------------------------------------------------------------------------------------

TEST(CommandLineWords, NullTextEmptiesTheList) {
    CExtStrList words = list_of({"a", "b"});
    EXPECT_FALSE(getopt_parse_string_to_list(nullptr, words, true));
    EXPECT_TRUE(words.IsEmpty());
}

TEST(CommandLineWords, BlankTextEmptiesTheList) {
    for (const char* text : {"", " ", "\t", " \t  \t"}) {
        CExtStrList words = list_of({"a", "b"});
        EXPECT_FALSE(getopt_parse_string_to_list(text, words, false));
        EXPECT_TRUE(words.IsEmpty());
    }
}

// --- the program's name ----------------------------------------------------------------------------------------------

TEST(CommandLineWords, FirstWordIsLeftOutOnDemand) {
    EXPECT_EQ(split("prog a b", true), Texts({"prog", "a", "b"}));
    EXPECT_EQ(split("prog a b", false), Texts({"a", "b"}));
    EXPECT_EQ(split("prog", false), Texts());
}

TEST(CommandLineWords, FirstWordEndsAtABlankOrTab) {
    EXPECT_EQ(split("  prog\ta"), Texts({"prog", "a"}));
    EXPECT_EQ(split("\tprog a"), Texts({"prog", "a"}));
    EXPECT_EQ(split("prog\na b"), Texts({"prog\na", "b"}));
}

TEST(CommandLineWords, FirstWordRunsToTheNextQuote) {
    EXPECT_EQ(split("\"my prog\" a"), Texts({"my prog", "a"}));
    EXPECT_EQ(split("\"my prog\"a b"), Texts({"my prog", "a", "b"}));
    EXPECT_EQ(split("\"\" a"), Texts({"", "a"}));
    EXPECT_EQ(split("\"\""), Texts({""}));
    EXPECT_EQ(split("\"open  end"), Texts({"open  end"}));
    EXPECT_EQ(split("\""), Texts({""}));
}

TEST(CommandLineWords, FirstWordHasNoEscapes) {
    EXPECT_EQ(split("\"c:\\dir\\\" a"), Texts({"c:\\dir\\", "a"}));
    EXPECT_EQ(split("c:\\\"my dir\" a"), Texts({"c:\\\"my", "dir a"}));
    EXPECT_EQ(split("pr\"og a"), Texts({"pr\"og", "a"}));
}

// --- further words ---------------------------------------------------------------------------------------------------

TEST(CommandLineWords, QuotesAndEscapesTogether) {
    EXPECT_EQ(split("prog \"a b\" c\\\"d \"e\"\"f\" x\\\\y", false), Texts({"a b", "c\"d", "e\"f", "x\\\\y"}));
    EXPECT_EQ(split("prog \"a b\" c\\\"d \"e\"\"f\" x\\\\y", true), Texts({"prog", "a b", "c\"d", "e\"f", "x\\\\y"}));
}

struct Line {
    const char* situation;
    const char* text;
    Texts words;
};

class CommandLineWord : public testing::TestWithParam<Line> {};

TEST_P(CommandLineWord, IsRead) {
    EXPECT_EQ(split((std::string("p ") + GetParam().text).c_str(), false), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, CommandLineWord,
    testing::Values(Line{"BlanksAndTabsSeparate", "a \t b\tc  ", {"a", "b", "c"}},
                    Line{"OtherWhiteSpaceDoesNot", "a\nb\vc", {"a\nb\vc"}},
                    Line{"QuotesInTheMiddle", "a\"b c\"d", {"ab cd"}}, Line{"EmptyQuotes", "\"\" a", {"", "a"}},
                    Line{"EmptyQuotesAtTheEnd", "a \"\"", {"a", ""}}, Line{"EmptyQuotesInAWord", "a\"\"b", {"ab"}},
                    Line{"OpenQuoteRunsToTheEnd", "\"a b ", {"a b "}}, Line{"OnlyAnOpenQuote", "\"", {""}},
                    Line{"TabInQuotes", "\"a\tb\"", {"a\tb"}},
                    Line{"DoubledQuoteInQuotes", "\"a\"\"b c\" d", {"a\"b c", "d"}},
                    Line{"ThreeQuotes", "\"\"\" a", {"\" a"}}, Line{"FourQuotes", "\"\"\"\" a", {"\"", "a"}},
                    Line{"QuotesClosedThenOpened", "\"a\"b\"c d\"", {"abc d"}}, Line{"OneBackslash", "\\", {"\\"}},
                    Line{"BackslashesBeforeALetter", "\\\\\\a", {"\\\\\\a"}},
                    Line{"BackslashBeforeABlank", "a\\ b", {"a\\", "b"}},
                    Line{"OneBackslashBeforeAQuote", "a\\\"b c", {"a\"b", "c"}},
                    Line{"TwoBackslashesBeforeAQuote", "a\\\\\"b c\"", {"a\\b c"}},
                    Line{"ThreeBackslashesBeforeAQuote", "a\\\\\\\"b c", {"a\\\"b", "c"}},
                    Line{"FourBackslashesBeforeAQuote", "a\\\\\\\\\"b c\"", {"a\\\\b c"}},
                    Line{"BackslashBeforeAQuoteInQuotes", "\"a\\\"b c\" d", {"a\"b c", "d"}},
                    Line{"TwoBackslashesCloseQuotes", "\"a\\\\\" b", {"a\\", "b"}},
                    Line{"TwoBackslashesBeforeADoubledQuote", "\"a\\\\\"\"b c\" d", {"a\\\"b c", "d"}},
                    Line{"BackslashesInQuotes", "\"a\\b\\\\c\"", {"a\\b\\\\c"}},
                    Line{"EscapedQuoteBeforeAQuote", "\\\"\"a b\"", {"\"a b"}},
                    Line{"FolderInQuotes", "\"c:\\a b\\\\\"", {"c:\\a b\\"}}),
    [](const auto& test) { return std::string(test.param.situation); });

TEST(CommandLineWords, TextMayLieInTheList) {
    CExtStrList words = list_of({"prog a \"b c\"", "x"});
    EXPECT_TRUE(getopt_parse_string_to_list(words.GetHead(), words, true));
    EXPECT_EQ(texts_of(words), Texts({"prog", "a", "b c"}));
}

// A code page of single bytes: a byte that would lead a character elsewhere stands for itself.
TEST(CommandLineWords, BytesAbove127StandForThemselves) {
    EXPECT_EQ(split("\x83\" \x83\\\" \x83"), Texts({"\x83\"", "\x83\"", "\x83"}));
}

TEST(CommandLineWords, ManyWordsAreSplit) {
    std::string text = "prog";
    Texts expected;
    for (int i = 0; i < 100000; ++i) {
        expected.push_back(std::to_string(i));
        text += " \"" + expected.back() + "\"";
    }
    EXPECT_EQ(split(text.c_str(), false), expected);
}

}  // namespace
}  // namespace orvil::test
