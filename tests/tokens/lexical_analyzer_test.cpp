// The lexical rules by example: what each text gives, token by token.
#include "orvil/tokens/lexical_analyzer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "support/temp_dir.h"
#include "tokens/lexer_comparison.h"

using orvil::test::MemoryStream;
using orvil::test::NaiveToken;
using orvil::test::seen;
using orvil::test::TempDir;

namespace {

// The tokens of a text as "kind:text", up to the first failure ("! message") or the end ("$").
std::vector<std::string> lex(CStreamMemFile& stream) {
    std::vector<std::string> tokens;
    for (;;) {
        CLexicalAnalyzer analyzer(stream);
        CLexToken token;
        if (!analyzer.DoAnalyze(token)) {
            EXPECT_EQ(seen(token), NaiveToken());
            tokens.push_back("! " + std::string(analyzer.GetInformation().GetString()));
            return tokens;
        }
        EXPECT_STREQ(analyzer.GetInformation(), "");
        if (token.GetTokenKind() == eTokenNone) {
            EXPECT_EQ(seen(token), NaiveToken());
            tokens.push_back("$");
            return tokens;
        }
        tokens.push_back(std::to_string(token.GetTokenKind()) + ":" + token.GetString());
    }
}

std::vector<std::string> lex(const std::string& text) {
    MemoryStream stream(text);
    return lex(stream);
}

using Tokens = std::vector<std::string>;

// The protected operations.
class Analyzer : public CLexicalAnalyzer {
public:
    using CLexicalAnalyzer::AblateComment;
    using CLexicalAnalyzer::AblatePreprocess;
    using CLexicalAnalyzer::AddInfo;
    using CLexicalAnalyzer::CheckConditionBehavior;
    using CLexicalAnalyzer::CLexicalAnalyzer;
    using CLexicalAnalyzer::CreateCurrentToken;
    using CLexicalAnalyzer::IsCommentStart;
    using CLexicalAnalyzer::ParseEscapeSequence;
    using CLexicalAnalyzer::ResetBinderCharacter;
    using CLexicalAnalyzer::SearchEscapeSequenceTable;
    using CLexicalAnalyzer::SetBinderCharacter;
};

bool comment_starts(const std::string& text) {
    MemoryStream stream(text);
    bool is_comment = true;
    EXPECT_TRUE(Analyzer(stream).IsCommentStart(is_comment));
    EXPECT_EQ(stream.QueryCurrentColm(), -1);
    return is_comment;
}

}  // namespace

TEST(LexicalAnalyzer, IsAsLargeAsItsFields) {
    EXPECT_EQ(sizeof(CLexicalAnalyzer), 128U);
    EXPECT_EQ(sizeof(ELexConditionBehavior), 4U);
}

// --- lexemes --------------------------------------------------------------------------------------------------------

TEST(LexicalAnalyzerLexemes, DelimitersNeedNoSeparators) {
    EXPECT_EQ(lex("x=1;"), (Tokens{"7:x", "2:=", "3:1", "2:;", "$"}));
    EXPECT_EQ(lex("a=1;"), (Tokens{"4:a", "2:=", "3:1", "2:;", "$"}));
    EXPECT_EQ(lex("f(x,y)[2]*{z}:q/r;"), (Tokens{"4:f", "2:(", "7:x", "2:,", "7:y", "2:)", "2:[", "3:2", "2:]", "2:*",
                                                 "2:{", "7:z", "2:}", "2::", "7:q", "2:/", "7:r", "2:;", "$"}));
}

TEST(LexicalAnalyzerLexemes, SeparatorsOnlySeparate) {
    EXPECT_EQ(lex(" \t\r\n x \n\r\t y\n"), (Tokens{"7:x", "7:y", "! "}));
    EXPECT_EQ(lex("x y "), (Tokens{"7:x", "7:y", "! "}));
}

TEST(LexicalAnalyzerLexemes, SignAndPointAreOrdinary) {
    EXPECT_EQ(lex("x-1 -1 - + . a.b 1.5+2;"),
              (Tokens{"7:x-1", "3:-1", "2:-", "2:+", "2:.", "7:a.b", "7:1.5+2", "2:;", "$"}));
}

TEST(LexicalAnalyzerLexemes, KindFollowsFromTheText) {
    EXPECT_EQ(lex("12 ff 007 1e5 0x 1.5 .5 -2. Name 5. 1.2.3 -007 +00 1e+;"),
              (Tokens{"3:12", "4:ff", "4:007", "4:1e5", "4:0x", "5:1.5", "5:.5", "5:-2.", "7:Name", "5:5.", "5:1.2.3",
                      "5:-007", "5:+00", "5:1e+", "2:;", "$"}));
}

TEST(LexicalAnalyzerLexemes, OpenLexemeAtTheEndIsDroppedSilently) {
    EXPECT_EQ(lex("x=1"), (Tokens{"7:x", "2:=", "! "}));
    EXPECT_EQ(lex("name"), (Tokens{"! "}));
    EXPECT_EQ(lex("'open string"), (Tokens{"! "}));
    EXPECT_EQ(lex(" \n"), (Tokens{"! "}));
}

TEST(LexicalAnalyzerLexemes, EndItselfIsATokenOfNoKind) {
    EXPECT_EQ(lex(";"), (Tokens{"2:;", "$"}));
}

TEST(LexicalAnalyzerLexemes, NulNeitherEndsNorJoins) {
    EXPECT_EQ(lex(std::string("xy\0zw;", 6)), (Tokens{"7:xyzw", "2:;", "$"}));
    EXPECT_EQ(lex(std::string("\0'a\0b'", 6)), (Tokens{"6:ab", "$"}));
    EXPECT_EQ(lex(std::string("\0\0", 2)), (Tokens{"! "}));
}

TEST(LexicalAnalyzerLexemes, ControlCharactersAreOrdinary) {
    EXPECT_EQ(lex("\x01\x1F\x7F~!$%&;"), (Tokens{"7:\x01\x1F\x7F~!$%&", "2:;", "$"}));
}

TEST(LexicalAnalyzerLexemes, SlashAsTheLastByteIsADelimiter) {
    EXPECT_EQ(lex("/"), (Tokens{"2:/", "$"}));
    EXPECT_EQ(lex("x/"), (Tokens{"7:x", "2:/", "$"}));
    EXPECT_EQ(lex("/ /"), (Tokens{"2:/", "2:/", "$"}));
}

TEST(LexicalAnalyzerLexemes, PositionIsWhereTheAnalysisBeganBeforeBlanks) {
    MemoryStream stream(" x\n =\r\ny;");
    const NaiveToken expected[] = {{7, "x", 0, -1}, {2, "=", 0, 1}, {7, "y", 1, 4}, {2, ";", 2, 2}};
    for (const NaiveToken& token : expected) {
        CLexToken found;
        EXPECT_TRUE(CLexicalAnalyzer(stream).DoAnalyze(found));
        EXPECT_EQ(seen(found), token);
    }
    EXPECT_TRUE(stream.IsEof());
}

// --- strings --------------------------------------------------------------------------------------------------------

TEST(LexicalAnalyzerStrings, EverythingButQuotesAndBackslashIsOrdinaryInside) {
    EXPECT_EQ(lex("\"a b\""), (Tokens{"6:a b", "$"}));
    EXPECT_EQ(lex("'/* # */ = ; {}\t\r\n//'"), (Tokens{"6:/* # */ = ; {}\t\r\n//", "$"}));
    EXPECT_EQ(lex("\";\" '12' \"#\""), (Tokens{"6:;", "6:12", "6:#", "$"}));
}

TEST(LexicalAnalyzerStrings, LineEndsInsideAreCounted) {
    MemoryStream stream("'a\r\nb\nc' ;");
    CLexToken token;
    EXPECT_TRUE(CLexicalAnalyzer(stream).DoAnalyze(token));
    EXPECT_EQ(stream.QueryCurrentLine(), 2);
    EXPECT_EQ(stream.QueryCurrentColm(), 5);
}

TEST(LexicalAnalyzerStrings, EmptyStringIsAnEmptyToken) {
    EXPECT_EQ(lex("\"\" '' ;"), (Tokens{"1:", "1:", "2:;", "$"}));
}

TEST(LexicalAnalyzerStrings, OtherQuoteIsDroppedInside) {
    EXPECT_EQ(lex("'it\"s'"), (Tokens{"6:its", "$"}));
    EXPECT_EQ(lex("\"it's\""), (Tokens{"6:its", "$"}));
}

TEST(LexicalAnalyzerStrings, OtherQuoteTakesOverAnEmptyString) {
    EXPECT_EQ(lex("'\"ab\""), (Tokens{"6:ab", "$"}));
    EXPECT_EQ(lex("\"'ab\" '"), (Tokens{"6:ab ", "$"}));
}

TEST(LexicalAnalyzerStrings, QuoteInsideAnOpenLexemeVanishes) {
    EXPECT_EQ(lex("ab\"cd'ef;"), (Tokens{"4:abcdef", "2:;", "$"}));
}

TEST(LexicalAnalyzerStrings, HighBytesAreOrdinaryInside) {
    EXPECT_EQ(lex("'\x80\xFF'"), (Tokens{"6:\x80\xFF", "$"}));
}

// --- escapes --------------------------------------------------------------------------------------------------------

TEST(LexicalAnalyzerEscapes, SixAreKnownInsideAndOutsideOfStrings) {
    EXPECT_EQ(lex("'\\\"\\'\\\\\\n\\r\\t'"), (Tokens{"6:\"'\\\n\r\t", "$"}));
    EXPECT_EQ(lex("x\\\"\\'\\\\\\n\\r\\tx;"), (Tokens{"7:x\"'\\\n\r\tx", "2:;", "$"}));
    EXPECT_EQ(lex("a\\tb;"), (Tokens{"7:a\tb", "2:;", "$"}));
}

TEST(LexicalAnalyzerEscapes, LoneEscapedMetaCharacterIsAMetaToken) {
    EXPECT_EQ(lex("\\n;\\\" \\\\;"), (Tokens{"2:\n", "2:;", "2:\"", "2:\\", "2:;", "$"}));
}

TEST(LexicalAnalyzerEscapes, EscapedQuoteMakesTheLexemeNonEmpty) {
    EXPECT_EQ(lex("\\'\"x;"), (Tokens{"7:'x", "2:;", "$"}));
}

TEST(LexicalAnalyzerEscapes, UnknownOnesFailAndOnlyTheBackslashIsConsumed) {
    MemoryStream stream("\n ab\\q;");
    EXPECT_EQ(lex(stream), (Tokens{"! FilePos(0,-1) : EscapeSequence<\\q> is not format.\n"}));
    EXPECT_EQ(stream.QueryQue(), 'q');
    EXPECT_EQ(stream.QueryCurrentColm(), 4);
    EXPECT_EQ(lex(stream), (Tokens{"7:q", "2:;", "$"}));
}

TEST(LexicalAnalyzerEscapes, NoNumericFormsExist) {
    for (const char* text : {"\\0;", "\\x41;", "\\u0041;", "\\N;", "\\ ;", "\\;", "\\a;"}) {
        const std::string character(1, text[1]);
        EXPECT_EQ(lex(text), (Tokens{"! FilePos(0,-1) : EscapeSequence<\\" + character + "> is not format.\n"}));
    }
    EXPECT_EQ(lex(std::string("\\\0;", 3)), (Tokens{"! FilePos(0,-1) : EscapeSequence<\\> is not format.\n"}));
}

TEST(LexicalAnalyzerEscapes, BackslashAsTheLastByteIsAStreamFailure) {
    TempDir folder;
    const std::string path = folder.write("50%s", "x;\n\\");
    CStreamMemFile stream(eTransRead, 4096);
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    EXPECT_EQ(lex(stream), (Tokens{"7:x", "2:;", "! " + path + "(1) : EOF : Stream I/O Error.\n"}));
    EXPECT_EQ(path + "(1) : EOF", stream.GetErrorInformation());
    EXPECT_TRUE(stream.IsEof());
}

// --- comments -------------------------------------------------------------------------------------------------------

TEST(LexicalAnalyzerComments, LineCommentKeepsItsSlashesAndNotItsLineEnd) {
    EXPECT_EQ(lex("// a b \r\nx;"), (Tokens{"9:// a b ", "7:x", "2:;", "$"}));
    EXPECT_EQ(lex("//\nx;"), (Tokens{"9://", "7:x", "2:;", "$"}));
    EXPECT_EQ(lex("//"), (Tokens{"9://", "$"}));
    EXPECT_EQ(lex("// end"), (Tokens{"9:// end", "$"}));
}

TEST(LexicalAnalyzerComments, CarriageReturnAloneIsDroppedAndEndsNoLine) {
    EXPECT_EQ(lex("//a\rb\r\rc\n;"), (Tokens{"9://abc", "2:;", "$"}));
    EXPECT_EQ(lex("#a\rb\n;"), (Tokens{"10:#ab", "2:;", "$"}));
}

TEST(LexicalAnalyzerComments, NulEndsALineAndIsConsumed) {
    EXPECT_EQ(lex(std::string("//ab\0cg;", 8)), (Tokens{"9://ab", "7:cg", "2:;", "$"}));
    EXPECT_EQ(lex(std::string("#ab\0cg;", 7)), (Tokens{"10:#ab", "7:cg", "2:;", "$"}));
}

TEST(LexicalAnalyzerComments, BlockCommentKeepsEverything) {
    EXPECT_EQ(lex("/* a\r\n//b\n */x;"), (Tokens{"8:/* a\r\n//b\n */", "7:x", "2:;", "$"}));
    EXPECT_EQ(lex("/**/;"), (Tokens{"8:/**/", "2:;", "$"}));
    EXPECT_EQ(lex("/***/;"), (Tokens{"8:/***/", "2:;", "$"}));
    EXPECT_EQ(lex("/* \\q \" ' \xFF **/;"), (Tokens{"8:/* \\q \" ' \xFF **/", "2:;", "$"}));
}

TEST(LexicalAnalyzerComments, OwnStarClosesNoBlock) {
    EXPECT_EQ(lex("/*/ x */;"), (Tokens{"8:/*/ x */", "2:;", "$"}));
    EXPECT_EQ(lex("/*/"), (Tokens{"8:/*/", "$"}));
}

TEST(LexicalAnalyzerComments, UnterminatedBlockIsAToken) {
    EXPECT_EQ(lex("/* open\n*"), (Tokens{"8:/* open\n*", "$"}));
    EXPECT_EQ(lex("/*"), (Tokens{"8:/*", "$"}));
}

TEST(LexicalAnalyzerComments, NulInABlockIsDroppedAndKeepsStarAndSlashApart) {
    EXPECT_EQ(lex(std::string("/*a\0b*/;", 8)), (Tokens{"8:/*ab*/", "2:;", "$"}));
    EXPECT_EQ(lex(std::string("/**\0/ */;", 9)), (Tokens{"8:/**/ */", "2:;", "$"}));
}

TEST(LexicalAnalyzerComments, OpenLexemeBecomesTheStart) {
    EXPECT_EQ(lex("abc//x"), (Tokens{"9:abc//x", "$"}));
    EXPECT_EQ(lex("12/*y*/;"), (Tokens{"8:12/*y*/", "2:;", "$"}));
    EXPECT_EQ(lex("x#y z\n;"), (Tokens{"10:x#y z", "2:;", "$"}));
    EXPECT_EQ(lex("\\t//x"), (Tokens{"9:\t//x", "$"}));
    EXPECT_EQ(lex("http://host\n;"), (Tokens{"7:http", "2::", "9://host", "2:;", "$"}));
}

TEST(LexicalAnalyzerComments, CountersFollowTheComment) {
    MemoryStream stream("/*\r\n*/;//x\n;");
    const NaiveToken expected[] = {{8, "/*\r\n*/", 0, -1}, {2, ";", 1, 3}, {9, "//x", 1, 4}, {2, ";", 2, 8}};
    for (const NaiveToken& token : expected) {
        CLexToken found;
        EXPECT_TRUE(CLexicalAnalyzer(stream).DoAnalyze(found));
        EXPECT_EQ(seen(found), token);
    }
}

TEST(LexicalAnalyzerPreprocessor, LineIsOneToken) {
    EXPECT_EQ(lex("#version 2\r\nx;"), (Tokens{"10:#version 2", "7:x", "2:;", "$"}));
    EXPECT_EQ(lex("#\n#"), (Tokens{"10:#", "10:#", "$"}));
    EXPECT_EQ(lex("#a // b /* c 'd\\q\xFF"), (Tokens{"10:#a // b /* c 'd\\q\xFF", "$"}));
}

// --- failures -------------------------------------------------------------------------------------------------------

TEST(LexicalAnalyzerFailures, HighByteOutsideAStringIsNotConsumed) {
    TempDir folder;
    const std::string path = folder.write("f", "ab\xFF;");
    CStreamMemFile stream(eTransRead, 4096);
    ASSERT_TRUE(stream.OpenFile(path.c_str()));
    EXPECT_EQ(lex(stream), (Tokens{"!  : Stream \xFF is not parsed.\n"}));
    EXPECT_EQ(stream.QueryCurrentColm(), 1);
    EXPECT_EQ(lex(stream), (Tokens{"!  : Stream \xFF is not parsed.\n"}));
    EXPECT_EQ(stream.QueryCurrentColm(), 1);
    EXPECT_STREQ(stream.GetErrorInformation(), "");
}

TEST(LexicalAnalyzerFailures, MessageCarriesTheStreamsErrorText) {
    MemoryStream stream("\x80");
    char first = '\0';
    char second = '\0';
    stream.GetCurrentData(first, second);
    stream.GetCurrentData(first, second);
    stream.Rewind();
    EXPECT_EQ(lex(stream), (Tokens{"! (0) : EOF : Stream \x80 is not parsed.\n"}));
}

TEST(LexicalAnalyzerFailures, UnopenedAndClosedStreamsAreRefused) {
    CStreamMemFile unopened(eTransRead, 4096);
    EXPECT_EQ(lex(unopened), (Tokens{"!  : Stream I/O Error.\n"}));
    MemoryStream closed("abc");
    closed.CloseFile();
    EXPECT_EQ(lex(closed), (Tokens{"!  : Stream I/O Error.\n"}));
}

TEST(LexicalAnalyzerFailures, StreamForWritingEndsInARefusal) {
    MemoryStream stream("x ;", eTransWrite);
    EXPECT_EQ(lex(stream), (Tokens{"7:x", "2:;", "!  : Stream I/O Error.\n"}));
}

TEST(LexicalAnalyzerFailures, CommentRefusedByAStreamForWritingPutsItBack) {
    MemoryStream stream("x; /*", eTransWrite);
    EXPECT_EQ(lex(stream), (Tokens{"7:x", "2:;", "! (0) : EOF : Stream I/O Error.\n"}));
    EXPECT_EQ(stream.QueryQue(), '/');
    EXPECT_EQ(stream.QueryCurrentColm(), 2);
    EXPECT_STREQ(stream.GetErrorInformation(), "");
}

TEST(LexicalAnalyzerFailures, ObjectUsedAgainIsStillInsideTheString) {
    MemoryStream stream("'a\\q b' c;");
    CLexicalAnalyzer analyzer(stream);
    CLexToken token;
    EXPECT_FALSE(analyzer.DoAnalyze(token));
    EXPECT_TRUE(analyzer.DoAnalyze(token));
    EXPECT_EQ(seen(token), (NaiveToken{6, "q b", 0, 2}));
    EXPECT_STREQ(analyzer.GetInformation(), "");
    EXPECT_TRUE(analyzer.DoAnalyze(token));
    EXPECT_EQ(seen(token), (NaiveToken{4, "c", 0, 6}));
}

TEST(LexicalAnalyzerFailures, OldTokenIsResetAtTheEnd) {
    MemoryStream stream(";");
    CLexicalAnalyzer analyzer(stream);
    CLexToken token;
    EXPECT_TRUE(analyzer.DoAnalyze(token));
    EXPECT_TRUE(analyzer.DoAnalyze(token));
    EXPECT_EQ(seen(token), NaiveToken());
}

TEST(LexicalAnalyzerCopies, CopiesShareTheStream) {
    MemoryStream first_stream("'a\\q' x;");
    MemoryStream second_stream("y;");
    CLexicalAnalyzer first(first_stream);
    CLexicalAnalyzer second(second_stream);
    CLexToken token;
    EXPECT_FALSE(first.DoAnalyze(token));
    CLexicalAnalyzer copy(first);
    EXPECT_STREQ(copy.GetInformation(), "FilePos(0,-1) : EscapeSequence<\\q> is not format.\n");
    second = first;
    EXPECT_TRUE(second.DoAnalyze(token));
    EXPECT_STREQ(token.GetString(), "q");
    EXPECT_EQ(first_stream.QueryCurrentColm(), 4);
    EXPECT_EQ(second_stream.QueryCurrentColm(), -1);
}

// --- roles and protected operations ---------------------------------------------------------------------------------

TEST(LexicalAnalyzerRoles, EachByteHasItsRole) {
    MemoryStream stream("x");
    const Analyzer analyzer(stream);
    for (int code = 1; code < 256; ++code) {
        const char text[] = {static_cast<char>(code), '\0'};
        ELexConditionBehavior expected = code < 128 ? eLexOrdinary : eLexNone;
        if (std::string("\t\n\r ").find(text[0]) != std::string::npos) {
            expected = eLexSeparator;
        } else if (std::string("\"'").find(text[0]) != std::string::npos) {
            expected = eLexBinder;
        } else if (std::string("#()*,/:;=[\\]{}").find(text[0]) != std::string::npos) {
            expected = eLexDelimiter;
        }
        EXPECT_EQ(analyzer.CheckConditionBehavior(text), expected) << code;
    }
    EXPECT_EQ(analyzer.CheckConditionBehavior(""), eLexOrdinary);
    EXPECT_EQ(analyzer.CheckConditionBehavior(nullptr), eLexOrdinary);
    EXPECT_EQ(analyzer.CheckConditionBehavior(";;"), eLexOrdinary);
}

TEST(LexicalAnalyzerRoles, InsideAStringOnlyQuotesAndBackslashAreSpecial) {
    MemoryStream stream("x");
    Analyzer analyzer(stream);
    analyzer.SetBinderCharacter('"');
    for (const char* text : {"#", ";", " ", "x", "\xFF"}) {
        EXPECT_EQ(analyzer.CheckConditionBehavior(text), eLexOrdinary) << text;
    }
    EXPECT_EQ(analyzer.CheckConditionBehavior("'"), eLexBinder);
    EXPECT_EQ(analyzer.CheckConditionBehavior("\""), eLexBinder);
    EXPECT_EQ(analyzer.CheckConditionBehavior("\\"), eLexDelimiter);
    analyzer.ResetBinderCharacter();
    EXPECT_EQ(analyzer.CheckConditionBehavior(";"), eLexDelimiter);
}

TEST(LexicalAnalyzerRoles, BinderDecidesWhereAStringEnds) {
    MemoryStream stream("a;b\" c;");
    Analyzer analyzer(stream);
    analyzer.SetBinderCharacter('"');
    CLexToken token;
    EXPECT_TRUE(analyzer.DoAnalyze(token));
    EXPECT_EQ(seen(token), (NaiveToken{6, "a;b", 0, -1}));
}

TEST(LexicalAnalyzerRoles, EscapeTableKnowsSixTexts) {
    MemoryStream stream("x");
    const Analyzer analyzer(stream);
    EXPECT_EQ(analyzer.SearchEscapeSequenceTable("\""), '"');
    EXPECT_EQ(analyzer.SearchEscapeSequenceTable("'"), '\'');
    EXPECT_EQ(analyzer.SearchEscapeSequenceTable("\\"), '\\');
    EXPECT_EQ(analyzer.SearchEscapeSequenceTable("n"), '\n');
    EXPECT_EQ(analyzer.SearchEscapeSequenceTable("r"), '\r');
    EXPECT_EQ(analyzer.SearchEscapeSequenceTable("t"), '\t');
    for (const char* text : {"", "nn", "\\n", "a", "0", "\xFF", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(analyzer.SearchEscapeSequenceTable(text), '\0');
    }
    for (int code = 1, known = 0; code < 256; ++code) {
        const char text[] = {static_cast<char>(code), '\0'};
        known += analyzer.SearchEscapeSequenceTable(text) != '\0' ? 1 : 0;
        EXPECT_LE(known, 6);
    }
}

TEST(LexicalAnalyzerProtected, InfoIsFormattedAndAppended) {
    MemoryStream stream("x");
    Analyzer analyzer(stream);
    EXPECT_TRUE(analyzer.AddInfo("%s-%d", "50%s", 7));
    EXPECT_TRUE(analyzer.AddInfo("%s", std::string(5000, 'y').c_str()));
    EXPECT_EQ("50%s-7" + std::string(5000, 'y'), analyzer.GetInformation().GetString());
    const char* no_format = nullptr;
    EXPECT_FALSE(analyzer.AddInfo(no_format));
}

TEST(LexicalAnalyzerProtected, CommentStartLooksAtTwoCharacters) {
    EXPECT_TRUE(comment_starts("//"));
    EXPECT_TRUE(comment_starts("/*"));
    EXPECT_FALSE(comment_starts("/x"));
    EXPECT_FALSE(comment_starts("/"));
    EXPECT_FALSE(comment_starts("x/"));
    MemoryStream at_end("");
    bool is_comment = true;
    EXPECT_FALSE(Analyzer(at_end).IsCommentStart(is_comment));
    EXPECT_FALSE(is_comment);
}

TEST(LexicalAnalyzerProtected, PartsConsumeWhatBeginsWithThem) {
    MemoryStream stream("/*a*/#b\n\\n\\q//c");
    Analyzer analyzer(stream);
    EXPECT_FALSE(analyzer.AblatePreprocess());
    EXPECT_FALSE(analyzer.ParseEscapeSequence());
    EXPECT_TRUE(analyzer.AblateComment());
    EXPECT_EQ(stream.QueryQue(), '#');
    EXPECT_FALSE(analyzer.AblateComment());
    EXPECT_TRUE(analyzer.AblatePreprocess());
    EXPECT_TRUE(analyzer.ParseEscapeSequence());
    EXPECT_STREQ(analyzer.GetInformation(), "");
    EXPECT_FALSE(analyzer.ParseEscapeSequence());
    EXPECT_STREQ(analyzer.GetInformation(), "FilePos(-1,-1) : EscapeSequence<\\q> is not format.\n");
    EXPECT_EQ(stream.QueryQue(), 'q');
    stream.IncrementQue(true);
    EXPECT_TRUE(analyzer.AblateComment());
    EXPECT_TRUE(stream.IsEof());
    EXPECT_FALSE(analyzer.AblateComment());
    EXPECT_FALSE(analyzer.AblatePreprocess());
    EXPECT_FALSE(analyzer.ParseEscapeSequence());
}

TEST(LexicalAnalyzerProtected, CurrentTokenIsMadeOfWhatWasCollected) {
    MemoryStream stream("\\n");
    Analyzer analyzer(stream);
    EXPECT_TRUE(analyzer.CreateCurrentToken(eTokenDecimal));
    EXPECT_TRUE(analyzer.ParseEscapeSequence());
    EXPECT_TRUE(analyzer.CreateCurrentToken(eTokenNone));
    EXPECT_FALSE(analyzer.CreateCurrentToken(eTokenDecimal));
}

// --- size -----------------------------------------------------------------------------------------------------------

TEST(LexicalAnalyzerSize, HugeTokensAreReadInOneGo) {
    std::string body(20000000, 'x');
    for (std::size_t i = 100; i < body.size(); i += 1000) {
        body[i] = '\n';
    }
    for (const std::string& text : {"/*" + body + "*/", "'" + body + "'"}) {
        MemoryStream stream(text);
        CLexToken token;
        const auto start = std::chrono::steady_clock::now();
        EXPECT_TRUE(CLexicalAnalyzer(stream).DoAnalyze(token));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
        EXPECT_TRUE(text.find(token.GetString()) < 2);
        EXPECT_GE(token.GetPureString().GetLength(), 20000000);
    }
}

// The last token holds an escape, so that it is put together from pieces.
TEST(LexicalAnalyzerSize, TokensOfAHundredMegabytesComeFromAFile) {
    const TempDir folder;
    const std::string body(100'000'000, 'x');
    for (const char* const ending : {"g ", "\\tg "}) {
        CStreamMemFile stream(eTransRead, 4096);
        ASSERT_TRUE(stream.OpenFile(folder.write("huge", body + ending).c_str()));
        CLexToken token;
        const auto start = std::chrono::steady_clock::now();
        ASSERT_TRUE(CLexicalAnalyzer(stream).DoAnalyze(token));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
        EXPECT_TRUE(token.IsSymbolToken());
        EXPECT_TRUE(token.GetString() == body + (*ending == 'g' ? "g" : "\tg"));
    }
}

TEST(LexicalAnalyzerSize, ManyEscapesAndNulsInOneStringStayLinear) {
    std::string text = "'";
    std::string expected;
    for (int i = 0; i < 2000000; ++i) {
        text += i % 2 == 0 ? std::string("\\n") : std::string("\0y", 2);
        expected += i % 2 == 0 ? '\n' : 'y';
    }
    MemoryStream stream(text + "'");
    CLexToken token;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(CLexicalAnalyzer(stream).DoAnalyze(token));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_TRUE(expected == token.GetString());
}

TEST(LexicalAnalyzerSize, CommentsDoNotCostTheFileEach) {
    std::string text;
    for (int i = 0; i < 100000; ++i) {
        text += i % 2 == 0 ? "/* comment */" : "// line\n";
    }
    MemoryStream stream(text);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(lex(stream).size(), 100001U);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}
