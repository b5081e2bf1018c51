// The form in which tokens are written, and that it is read back.
#include <gtest/gtest.h>

#include <string>

#include "orvil/tokens/lexical_analyzer.h"
#include "tokens/lexer_comparison.h"

using orvil::test::for_random_texts;
using orvil::test::MemoryStream;

namespace {

// What is written for a text of a kind; "(refused)" when there is no written form.
std::string output(const std::string& text, int kind, int line = 0, int column = 0) {
    CLexToken token;
    token.Create(text.c_str(), line, column, false, static_cast<ETokenKind>(kind));
    CExtString out("old");
    if (!token.CreateOutputString(out)) {
        EXPECT_STREQ(out, "");
        return "(refused)";
    }
    EXPECT_EQ(out.GetLength(), static_cast<int>(std::string(out.GetString()).size()));
    return out.GetString();
}

}  // namespace

TEST(LexTokenOutput, StringsAreQuotedAndTheirSixSpecialCharactersEscaped) {
    EXPECT_EQ(output("it's", 6), "\"it\\'s\"");
    EXPECT_EQ(output("\t\n\r\"'\\", 6), "\"\\t\\n\\r\\\"\\'\\\\\"");
    EXPECT_EQ(output(" #()*+,-./:;=[]{}", 6), "\" #()*+,-./:;=[]{}\"");
    EXPECT_EQ(output("\x01\x7F\xFF\x80", 6), "\"\x01\x7F\xFF\x80\"");
    EXPECT_EQ(output("x", 6), "\"x\"");
}

TEST(LexTokenOutput, OtherTextsAreUnchanged) {
    for (const int kind : {4, 5, 7, 8, 9, 10}) {
        EXPECT_EQ(output("a \"b\"\\\n", kind), "a \"b\"\\\n") << kind;
    }
    EXPECT_EQ(output("12", 3), "12");
}

TEST(LexTokenOutput, MetaCharactersAreWrittenByTheirFirstCharacter) {
    EXPECT_EQ(output(";", 2), ";");
    EXPECT_EQ(output("\t", 2), "\\t");
    EXPECT_EQ(output("\"", 2), "\\\"");
    EXPECT_EQ(output("=x", 2), "=");
    EXPECT_EQ(output("x=", 2), "(refused)");
    EXPECT_EQ(output("\xFF", 2), "(refused)");
}

TEST(LexTokenOutput, EmptyTokenIsWrittenAsNothing) {
    EXPECT_EQ(output("", 6), "");
}

TEST(LexTokenOutput, NoKindIsRefused) {
    CExtString out("old");
    EXPECT_FALSE(CLexToken().CreateOutputString(out));
    EXPECT_STREQ(out, "");
    EXPECT_EQ(output("x", 11), "(refused)");
    EXPECT_EQ(output("x", -1), "(refused)");
}

TEST(LexTokenOutput, HeaderMarkerIsAComment) {
    EXPECT_EQ(output("File", 6, -999, -999), "// File : ");
    EXPECT_EQ(output("", 6, -999, -999), "//  : ");
    EXPECT_EQ(output("x", 11, -999, -999), "// x : ");
    EXPECT_EQ(output("x", 6, -999, 0), "\"x\"");
    EXPECT_EQ(output("x", 6, 0, -999), "\"x\"");
}

TEST(LexTokenOutput, CapacityIsThatOfAFreshCopy) {
    CLexToken token;
    token.Create("1234567890123", 0, 0, false, eTokenString);
    CExtString out;
    ASSERT_TRUE(token.CreateOutputString(out));
    EXPECT_EQ(out.GetLength(), 15);
}

TEST(LexTokenOutput, MillionsOfEscapesAreWrittenAtOnce) {
    const std::string quotes(4000000, '"');
    std::string expected = "\"";
    for (std::size_t i = 0; i < quotes.size(); ++i) {
        expected += "\\\"";
    }
    EXPECT_TRUE(output(quotes, 6) == expected + "\"");
}

// Strings come back whatever they hold.
TEST(LexTokenOutput, RandomStringsAreReadBack) {
    for_random_texts(20000, [](const std::string& random) {
        std::string text = random.c_str();
        text += "x";
        const std::string written = output(text, 6);
        MemoryStream stream(written);
        CLexToken token;
        EXPECT_TRUE(CLexicalAnalyzer(stream).DoAnalyze(token));
        EXPECT_TRUE(token.IsStringToken());
        EXPECT_EQ(text, token.GetString());
        EXPECT_TRUE(stream.IsEof());
    });
}
