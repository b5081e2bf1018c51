// Double-byte characters in streams, tokens and lexemes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/code_page_932.h"
#include "tokens/lexer_comparison.h"

using namespace orvil::test;

namespace {

class DoubleByte : public testing::Test {
protected:
    CodePage932 code_page_;
};
using DoubleByteStream = DoubleByte;
using DoubleByteToken = DoubleByte;
using DoubleByteLexer = DoubleByte;

// A call of GetCurrentData or QueryCurrentData: "1" or "0", and the two bytes.
std::string get(CStreamMemFile& stream) {
    char first = 'x';
    char second = 'x';
    const bool result = stream.GetCurrentData(first, second);
    return std::string(result ? "1" : "0") + first + second;
}

std::string query(const CStreamMemFile& stream, int offset = 0) {
    char first = 'x';
    char second = 'x';
    const bool result = stream.QueryNextData(first, second, offset);
    return std::string(result ? "1" : "0") + first + second;
}

std::string bytes(const char* text, std::size_t size) {
    return std::string(text, size);
}

std::vector<std::string> lex(MemoryStream& stream) {
    std::vector<std::string> tokens;
    for (;;) {
        CLexicalAnalyzer analyzer(stream);
        CLexToken token;
        const bool result = analyzer.DoAnalyze(token);
        tokens.push_back(result ? std::to_string(token.GetTokenKind()) + ":" + token.GetString()
                                : "! " + std::string(analyzer.GetInformation().GetString()));
        if (!result || token.GetTokenKind() == eTokenNone) {
            return tokens;
        }
    }
}

std::vector<std::string> lex(const std::string& text) {
    MemoryStream stream(text);
    return lex(stream);
}

using Tokens = std::vector<std::string>;

std::string output(const char* text) {
    CLexToken token;
    token.Create(text, 0, 0, false, eTokenString);
    CExtString out;
    EXPECT_TRUE(token.CreateOutputString(out));
    return out.GetString();
}

}  // namespace

TEST_F(DoubleByteStream, BothBytesComeTogetherAndAreCounted) {
    MemoryStream stream("\x83\x5Cx");
    EXPECT_EQ(query(stream), "1\x83\x5C");
    EXPECT_EQ(get(stream), "1\x83\x5C");
    EXPECT_EQ(stream.QueryCurrentColm(), 1);
    EXPECT_EQ(get(stream), bytes("1x\0", 3));
}

TEST_F(DoubleByteStream, BytesBelowAndBetweenTheLeadBytesStandAlone) {
    MemoryStream stream("\x80\xA0\xDF\xFD.");
    for (const char byte : {'\x80', '\xA0', '\xDF', '\xFD'}) {
        EXPECT_EQ(get(stream), std::string("1") + byte + '\0');
    }
}

TEST_F(DoubleByteStream, LastCharacterIsDeliveredButFalse) {
    MemoryStream stream("\n\x82\xA0");
    get(stream);
    EXPECT_EQ(get(stream), "0\x82\xA0");
    EXPECT_STREQ(stream.GetErrorInformation(), "(1) : EOF");
    EXPECT_TRUE(stream.IsEof());
    EXPECT_EQ(stream.QueryCurrentColm(), 2);
}

TEST_F(DoubleByteStream, LeadByteWithoutTrailByteIsNotConsumed) {
    MemoryStream stream("\x82");
    EXPECT_EQ(query(stream), bytes("1\x82\0", 3));
    EXPECT_EQ(get(stream), bytes("0\x82\0", 3));
    EXPECT_STREQ(stream.GetErrorInformation(), "(0) : EOF");
    EXPECT_EQ(stream.QueryCurrentColm(), -1);
    EXPECT_FALSE(stream.IsEof());
}

TEST_F(DoubleByteStream, AnyByteMayBeATrailByteAndIsCountedAsItself) {
    MemoryStream stream("\x82\n\x82\r.");
    EXPECT_EQ(get(stream), "1\x82\n");
    EXPECT_EQ(stream.QueryCurrentLine(), 1);
    EXPECT_EQ(get(stream), "1\x82\r");
    EXPECT_EQ(stream.QueryCurrentColm(), 0);
}

TEST_F(DoubleByteStream, LookingAheadBeginsWhereItIsAskedTo) {
    MemoryStream stream("\x82\xA0\x82");
    EXPECT_EQ(query(stream, 1), bytes("1\xA0\0", 3));
    EXPECT_EQ(query(stream, 2), bytes("1\x82\0", 3));
}

TEST_F(DoubleByteStream, LinesAreReadByteByByte) {
    MemoryStream stream("a\x82\nb\n");
    CExtString line;
    ASSERT_TRUE(stream.ReadString(line));
    EXPECT_STREQ(line, "a\x82");
}

TEST_F(DoubleByteToken, CharactersAreWrittenUnchanged) {
    EXPECT_EQ(output("\x83\x5C\\"), "\"\x83\x5C\\\\\"");
    EXPECT_EQ(output("\x81\"\"\x81\n"), "\"\x81\"\\\"\x81\n\"");
    EXPECT_EQ(output("a\x83"), "\"a\x83\"");
    EXPECT_EQ(output("\xA0\\"), "\"\xA0\\\\\"");
}

TEST_F(DoubleByteLexer, CharactersAreOrdinaryEverywhere) {
    EXPECT_EQ(lex("\x83\x5Cx;"), (Tokens{"7:\x83\x5Cx", "2:;", "0:"}));
    EXPECT_EQ(lex("'\x83\x5C\x81\"' \x81;;"), (Tokens{"6:\x83\x5C\x81\"", "7:\x81;", "2:;", "0:"}));
    EXPECT_EQ(lex("/*\x81*/ */;"), (Tokens{"8:/*\x81*/ */", "2:;", "0:"}));
    EXPECT_EQ(lex("\x81/* ;"), (Tokens{"7:\x81/", "2:*", "2:;", "0:"}));
}

TEST_F(DoubleByteLexer, TrailLineFeedIsKeptAndEndsALineComment) {
    EXPECT_EQ(lex("//a\x81\nx;"), (Tokens{"9://a\x81\n", "7:x", "2:;", "0:"}));
    EXPECT_EQ(lex("//a\x81\rx\n;"), (Tokens{"9://a\x81\rx", "2:;", "0:"}));
    EXPECT_EQ(lex("#a\x81\n;"), (Tokens{"10:#a\x81\n", "2:;", "0:"}));
}

TEST_F(DoubleByteLexer, LastCharacterOfTheFileBelongsToItsComment) {
    const std::pair<const char*, const char*> comments[] = {
        {"//\x82\xA0", "9://\x82\xA0"}, {"/*\x82\xA0", "8:/*\x82\xA0"}, {"#\x82\xA0", "10:#\x82\xA0"}};
    for (const auto& [text, token] : comments) {
        MemoryStream stream(text);
        EXPECT_EQ(lex(stream), (Tokens{token, "0:"}));
        EXPECT_STREQ(stream.GetErrorInformation(), "(0) : EOF");
    }
}

TEST_F(DoubleByteLexer, LastCharacterOfTheFileIsDroppedWithItsLexeme) {
    EXPECT_EQ(lex("x\x82\xA0"), (Tokens{"! "}));
    EXPECT_EQ(lex("'x\x82\xA0"), (Tokens{"! "}));
}

TEST_F(DoubleByteLexer, LoneLeadByteAtTheEndOfAStringIsAStreamFailure) {
    MemoryStream stream("'a\x82");
    EXPECT_EQ(lex(stream), (Tokens{"! (0) : EOF : Stream I/O Error.\n"}));
    EXPECT_EQ(stream.QueryCurrentColm(), 1);
    EXPECT_STREQ(stream.GetErrorInformation(), "(0) : EOF");
}

TEST_F(DoubleByteLexer, LoneLeadByteAtTheEndOfACommentPutsTheStreamBack) {
    for (const char* text : {"\nx//a", "\nx/*a", "\nx#a"}) {
        MemoryStream stream(text + std::string("\x82"));
        EXPECT_EQ(lex(stream), (Tokens{"! (1) : EOF : Stream I/O Error.\n"})) << text;
        EXPECT_EQ(stream.QueryQue(), text[2]);
        EXPECT_EQ(stream.QueryCurrentLine(), 1);
        EXPECT_EQ(stream.QueryCurrentColm(), 1);
        EXPECT_STREQ(stream.GetErrorInformation(), "");
    }
}

TEST_F(DoubleByteLexer, LoneLeadByteAtTheEndElsewhereHasNoRole) {
    EXPECT_EQ(lex("x;\x82"), (Tokens{"7:x", "2:;", "!  : Stream \x82 is not parsed.\n"}));
    EXPECT_EQ(lex("\\\x82"), (Tokens{"! FilePos(0,-1) : EscapeSequence<\\\x82> is not format.\n"}));
}

TEST_F(DoubleByteLexer, LeadByteBeforeANul) {
    EXPECT_EQ(lex(bytes("'\x82\0x';", 6)), (Tokens{"6:\x82x", "2:;", "0:"}));
    EXPECT_EQ(lex(bytes("//\x82\0x\n;", 7)), (Tokens{"9://\x82x", "2:;", "0:"}));
    EXPECT_EQ(lex(bytes("\x82\0x", 3)), (Tokens{"!  : Stream \x82 is not parsed.\n"}));
    EXPECT_EQ(lex(bytes("'\x82\0", 3)), (Tokens{"! (0) : EOF : Stream I/O Error.\n"}));
}

TEST_F(DoubleByteLexer, EscapedCharacterIsUnknown) {
    EXPECT_EQ(lex("\\\x82n;"), (Tokens{"! FilePos(0,-1) : EscapeSequence<\\\x82n> is not format.\n"}));
}

TEST_F(DoubleByteLexer, RolesLookAtOneByteTextsAlone) {
    class Probe : public CLexicalAnalyzer {
    public:
        using CLexicalAnalyzer::CheckConditionBehavior;
        using CLexicalAnalyzer::CLexicalAnalyzer;
    };
    MemoryStream stream("x");
    EXPECT_EQ(Probe(stream).CheckConditionBehavior("\x82\xA0"), eLexOrdinary);
    EXPECT_EQ(Probe(stream).CheckConditionBehavior("\x82"), eLexNone);
}

TEST_F(DoubleByteLexer, RandomTextsAgreeWithTheNaiveLexer) {
    for_random_texts(20000, [](const std::string& text) {
        compare_fresh_analyzers(text, is_lead_byte_932);
        compare_one_analyzer(text, is_lead_byte_932);
        compare_fresh_analyzers(text, is_lead_byte_932, eTransWrite);
    });
}

TEST_F(DoubleByteToken, RandomStringsAreReadBack) {
    for_random_texts(10000, [](const std::string& random) {
        const std::string text = "x" + std::string(random.c_str()) + "xy";
        const std::string written = output(text.c_str()) + ";";
        MemoryStream stream(written);
        CLexToken token;
        EXPECT_TRUE(CLexicalAnalyzer(stream).DoAnalyze(token));
        EXPECT_TRUE(token.Compare(eTokenString, text.c_str()));
    });
}
