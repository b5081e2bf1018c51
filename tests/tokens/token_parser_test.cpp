#include "orvil/tokens/token_parser.h"

#include <gtest/gtest.h>

#include "tokens/tree_support.h"

namespace orvil::test {
namespace {

Parsed ok(const std::string& children, const std::string& message = "") {
    return {true, message, "B 0:[" + children + "]"};
}

Parsed failed(const std::string& message, const std::string& tree) {
    return {false, message, tree};
}

std::string stray(const std::string& c) {
    return "Not Suppoerted. MetaChar [" + c + "]\n";
}
std::string wrong_meta(const std::string& text) {
    return "Not supported grammer. Metachar:" + text + "\n";
}
std::string wrong_token(const std::string& text) {
    return "Not supported grammer. Token:" + text + "\n";
}
std::string unterminated(const std::string& name) {
    return "Not found Expressio-Terminator token. Assign value = [" + name + "]\n";
}

// --- entries
// ----------------------------------------------------------------------------------------------------------

TEST(Parser, EmptyFileIsAnEmptyBlock) {
    EXPECT_EQ(parse(""), ok(""));
}

TEST(Parser, FileOfSeparatorsIsAnEmptyBlock) {
    EXPECT_EQ(parse(" \t\r\n\n"), ok(""));
}

TEST(Parser, AssignmentTakesEveryTokenUpToTheSemicolon) {
    EXPECT_EQ(parse("X=1;"), ok("A n:X[m:= d:1 m:;]"));
    EXPECT_EQ(parse("X = ;"), ok("A n:X[m:= m:;]"));
    EXPECT_EQ(parse("X = 1 { 2 } ;"), ok("A n:X[m:= d:1 m:{ d:2 m:} m:;]"));
    EXPECT_EQ(parse("X = = Y 0x1 1.5 'text' ;"), ok("A n:X[m:= m:= n:Y x:0x1 f:1.5 s:text m:;]"));
}

TEST(Parser, QuotedSemicolonEndsNoAssignment) {
    EXPECT_EQ(parse("X = ';' ;"), ok("A n:X[m:= s:; m:;]"));
}

TEST(Parser, BlockHoldsItsBracesAndEntries) {
    EXPECT_EQ(parse("View { x = 1; Grid { y = 2; } 3 'text' }"),
              ok("B n:View[m:{ A n:x[m:= d:1 m:;] B n:Grid[m:{ A n:y[m:= d:2 m:;] m:}] d:3 s:text m:}]"));
    EXPECT_EQ(parse("View{}"), ok("B n:View[m:{ m:}]"));
}

TEST(Parser, ValuesOfEveryKindAreKeptAsPlainTokens) {
    EXPECT_EQ(parse("1 0xFF 1.5 'text' #version 2\n"), ok("d:1 x:0xFF f:1.5 s:text p:#version 2"));
}

TEST(Parser, SampleFileGivesTheTreeItDescribes) {
    EXPECT_EQ(parse("/*** sample ***/\n#version 2\nView {\n    Width = 640;\n    Title = 'Main view';\n"
                    "    Scale = 1.5;\n    Colors { 0xFF 0x80 }\n    Margins = 4 4 8 8;\n}\nCount = 3;"),
              ok("p:#version 2 B n:View[m:{ A n:Width[m:= d:640 m:;] A n:Title[m:= s:Main view m:;] "
                 "A n:Scale[m:= f:1.5 m:;] B n:Colors[m:{ x:0xFF x:0x80 m:}] "
                 "A n:Margins[m:= d:4 d:4 d:8 d:8 m:;] m:}] A n:Count[m:= d:3 m:;]"));
}

TEST(Parser, NamesCarryTheirPositions) {
    const TempDir folder;
    CTokenParser parser(folder.write("in.txt", "View {\r\nx = 1;}").c_str(), false);
    CLexTokenBlock root;
    ASSERT_TRUE(parser.DoParse(root));
    EXPECT_EQ(describe(root, true), "B 0:@-1,-1[B n:View@0,-1[m:{@0,3 A n:x@0,5[m:=@1,2 d:1@1,4 m:;@1,6] m:}@1,7]]");
}

// --- words that are not names
// -----------------------------------------------------------------------------------------

TEST(Parser, WordsOfTheLettersAToFBeginNoEntry) {
    EXPECT_EQ(parse("a=1;"), ok("x:a m:= d:1 m:;", stray(";")));
    EXPECT_EQ(parse("Face { 1 }"), ok("x:Face m:{ d:1 m:}", stray("{")));
    EXPECT_EQ(parse("A = 1 { 2 } ;"), ok("x:A m:= d:1 m:{ d:2 m:} m:;", stray(";")));
}

TEST(Parser, ExponentsWithoutPointAndLeadingZerosAreHexadecimal) {
    EXPECT_EQ(parse("1e5 007 "), ok("x:1e5 x:007"));
}

TEST(Parser, EmptyStringsVanishEverywhere) {
    EXPECT_EQ(parse("View '' { x '' = '' 1 \"\" ; \"\" }"), ok("B n:View[m:{ A n:x[m:= d:1 m:;] m:}]"));
}

// --- comments
// ---------------------------------------------------------------------------------------------------------

TEST(Parser, CommentsAreDropped) {
    EXPECT_EQ(parse("/* one */ x /* two\n */ = // three\n 1;"), ok("A n:x[m:= d:1 m:;]"));
}

TEST(Parser, CommentsAreKeptOnRequest) {
    EXPECT_EQ(parse("/* one */ View { // two\n x = /* three */ 1; }", true),
              ok("c:/* one */ B n:View[m:{ l:// two A n:x[m:= c:/* three */ d:1 m:;] m:}]"));
}

TEST(Parser, KeptCommentBetweenANameAndWhatFollowsIsAFault) {
    EXPECT_EQ(parse("x /* c */ = 1;", true), failed(wrong_token("/* c */"), "0:"));
}

TEST(Parser, CommentSwallowsTheWordThatItTouches) {
    EXPECT_EQ(parse("Width// w\n = 1; "), ok("m:= d:1 m:;", ""));
    EXPECT_EQ(parse("5// w\n"), ok(""));
    EXPECT_EQ(parse("x = http://host ;\n"), Parsed(failed(unterminated("x"), "0:")));
    EXPECT_EQ(parse("5// w\n", true), ok("l:5// w"));
}

TEST(Parser, PreprocessorLineIsTakenAnywhereAndSwallowsTheWordThatItTouches) {
    EXPECT_EQ(parse("  #one\nx = 1;#two ;\n"), ok("p:#one A n:x[m:= d:1 m:;] p:#two ;"));
    EXPECT_EQ(parse("word#three\n"), ok("p:word#three"));
}

TEST(Parser, UnterminatedCommentIsAComment) {
    EXPECT_EQ(parse("x = 1; /* open"), ok("A n:x[m:= d:1 m:;]"));
    EXPECT_EQ(parse("x = 1; /* open", true), ok("A n:x[m:= d:1 m:;] c:/* open"));
}

TEST(Parser, EmptyStringClearsTheMessageOnlyWhenCommentsAreKept) {
    EXPECT_EQ(parse("; ''"), ok("m:;", stray(";")));
    EXPECT_EQ(parse("; ''", true), ok("m:;", ""));
    EXPECT_EQ(parse("View { left 1 } ''"), ok("m:}", wrong_token("1")));
    EXPECT_EQ(parse("View { left 1 } ''", true), ok("m:}", ""));
}

// --- strays
// -----------------------------------------------------------------------------------------------------------

TEST(Parser, LoneSemicolonIsKeptAndNoted) {
    EXPECT_EQ(parse(";"), ok("m:;", stray(";")));
}

TEST(Parser, EveryStrayCharacterIsKeptAndTheLastIsNoted) {
    EXPECT_EQ(parse("=({[]),:*/;"), ok("m:= m:( m:{ m:\\5B m:\\5D m:) m:, m:: m:* m:/ m:;", stray(";")));
    EXPECT_EQ(parse("- + . (", false), ok("m:- m:+ m:. m:(", stray("(")));
    EXPECT_EQ(parse("View { ; x = 1; }"), ok("B n:View[m:{ m:; A n:x[m:= d:1 m:;] m:}]", stray(";")));
}

TEST(Parser, EscapedLoneMetaCharacterIsAStray) {
    EXPECT_EQ(parse("\\\" ;"), ok("m:\" m:;", stray(";")));
    EXPECT_EQ(parse("\\\" (x"), Parsed({true, "", "B 0:[m:\" m:(]"}));
    EXPECT_EQ(parse("\\t;").tree, "B 0:[m:\\09 m:;]");
}

TEST(Parser, ClosingBraceAtTheTopLevelIsKeptSilently) {
    EXPECT_EQ(parse("} x = 1; }}"), ok("m:} A n:x[m:= d:1 m:;] m:} m:}"));
}

TEST(Parser, StrayMessageIsClearedByASilentEnd) {
    EXPECT_EQ(parse(";\n"), ok("m:;", ""));
}

TEST(Parser, StrayMessageIsReplacedByALaterOne) {
    EXPECT_EQ(parse("; x 1 ;"), failed(wrong_token("1"), "0:[m:;]"));
    EXPECT_EQ(parse("View { x 1 } ;"), ok("m:} m:;", stray(";")));
}

// --- the end of the file
// ----------------------------------------------------------------------------------------------

TEST(Parser, LastWordWithNothingBehindItIsLost) {
    EXPECT_EQ(parse("x = 1; 25"), ok("A n:x[m:= d:1 m:;]"));
    EXPECT_EQ(parse("25"), ok(""));
    EXPECT_EQ(parse("25\n"), ok("d:25"));
}

TEST(Parser, UnterminatedStringIsLost) {
    EXPECT_EQ(parse("x = 1; 'text"), ok("A n:x[m:= d:1 m:;]"));
}

TEST(Parser, NameWithNothingBehindItIsLostSilently) {
    EXPECT_EQ(parse("x = 1; name "), ok("A n:x[m:= d:1 m:;]", ""));
}

TEST(Parser, AssignmentWithoutSemicolonFailsAtTheTopLevel) {
    EXPECT_EQ(parse("y = 2; x = 1 "), failed(unterminated("x"), "0:[A n:y[m:= d:2 m:;]]"));
    EXPECT_EQ(parse("x = 1"), failed(unterminated("x"), "0:"));
    EXPECT_EQ(parse("x = 1\n"), failed(unterminated("x"), "0:"));
    EXPECT_EQ(parse("x ="), failed(unterminated("x"), "0:"));
    EXPECT_EQ(parse("x = (/* comment */"), failed(unterminated("x"), "0:"));
    EXPECT_EQ(parse("x = 1 // comment\n"), failed(unterminated("x"), "0:"));
}

TEST(Parser, AssignmentWithoutSemicolonInABlockDropsTheBlockAndSucceeds) {
    EXPECT_EQ(parse("y = 2; View { x = 1 "), ok("A n:y[m:= d:2 m:;]", unterminated("x")));
    EXPECT_EQ(parse("View { x = 1 \n"), ok("", unterminated("x")));
    EXPECT_EQ(parse("Sheet { View { x = 1 \n"), ok("B n:Sheet[m:{]", unterminated("x")));
}

TEST(Parser, BlockWithoutBraceIsKeptWhenNothingAtAllFollows) {
    EXPECT_EQ(parse("View { x = 1;"), ok("B n:View[m:{ A n:x[m:= d:1 m:;]]"));
    EXPECT_EQ(parse("Sheet{View{"), ok("B n:Sheet[m:{ B n:View[m:{]]"));
}

TEST(Parser, BlockWithoutBraceIsDroppedWhenALineEndOrCommentFollows) {
    EXPECT_EQ(parse("y = 2; View { x = 1;\n"), ok("A n:y[m:= d:2 m:;]"));
    EXPECT_EQ(parse("View { x = 1; /* c */"), ok(""));
    EXPECT_EQ(parse("Sheet { View { x = 1;\n"), ok("B n:Sheet[m:{]"));
    EXPECT_EQ(parse("Book { Sheet { View { x = 1;\n"), ok("B n:Book[m:{ B n:Sheet[m:{]]"));
}

TEST(Parser, BlockWithoutBraceIsKeptWhenAKeptCommentEndsTheFile) {
    EXPECT_EQ(parse("View { x = 1; /* c */", true), ok("B n:View[m:{ A n:x[m:= d:1 m:;] c:/* c */]"));
}

// --- faults
// -----------------------------------------------------------------------------------------------------------

TEST(ParserFault, NameFollowedByAValueEndsTheParseAtTheTopLevel) {
    EXPECT_EQ(parse("y = 2; left 1 ; z = 3;"), failed(wrong_token("1"), "0:[A n:y[m:= d:2 m:;]]"));
    EXPECT_EQ(parse("one two = 1;"), failed(wrong_token("two"), "0:"));
    EXPECT_EQ(parse("one 'a text' ;"), failed(wrong_token("a text"), "0:"));
}

TEST(ParserFault, NameFollowedByAnotherMetaCharacterEndsTheParseAtTheTopLevel) {
    EXPECT_EQ(parse("foo; x = 1;"), failed(wrong_meta(";"), "0:"));
    EXPECT_EQ(parse("foo } x = 1;"), failed(wrong_meta("}"), "0:"));
    EXPECT_EQ(parse("foo(1);"), failed(wrong_meta("("), "0:"));
}

TEST(ParserFault, OnTheVeryLastTokenTheParseSucceedsWithItsMessage) {
    EXPECT_EQ(parse("foo;"), ok("", wrong_meta(";")));
    EXPECT_EQ(parse("foo 'x'"), ok("", wrong_token("x")));
}

TEST(ParserFault, InABlockDropsItAndGoesOnInTheRoot) {
    EXPECT_EQ(parse("View { left 1 } x = 2;\n"), ok("m:} A n:x[m:= d:2 m:;]", ""));
    EXPECT_EQ(parse("View { left 1 } x = 2;"), ok("m:} A n:x[m:= d:2 m:;]", wrong_token("1")));
}

TEST(ParserFault, TwoLevelsDeepEndsTheHolderAsItStands) {
    EXPECT_EQ(parse("Sheet { Grid { left 1 } top = 2; }"),
              ok("B n:Sheet[m:{] m:} A n:top[m:= d:2 m:;] m:}", wrong_token("1")));
}

TEST(ParserFault, ThreeLevelsDeepGoesOnTwoLevelsUp) {
    EXPECT_EQ(parse("Book { u = 0; Sheet { v = 1; Grid { left 1 } top = 2; } z = 3; }"),
              ok("B n:Book[m:{ A n:u[m:= d:0 m:;] B n:Sheet[m:{ A n:v[m:= d:1 m:;]] m:}] A n:top[m:= d:2 m:;] m:} "
                 "A n:z[m:= d:3 m:;] m:}",
                 wrong_token("1")));
}

TEST(ParserFault, AfterItALaterMessageReplacesTheEarlier) {
    EXPECT_EQ(parse("View { left 1 } Grid { right 2 }"), ok("m:} m:}", wrong_token("2")));
}

// --- lexical faults
// ---------------------------------------------------------------------------------------------------

TEST(ParserLexicalFault, UnknownEscapeEndsTheParseAtTheTopLevel) {
    EXPECT_EQ(parse("x = 1; y = '\\q';"),
              failed("FilePos(0,9) : EscapeSequence<\\q> is not format.\n", "0:[A n:x[m:= d:1 m:;]]"));
}

TEST(ParserLexicalFault, InABlockDropsItAndTheRestIsReadOutsideTheString) {
    EXPECT_EQ(parse("View { x = '\\q'; }"), failed(wrong_meta(";"), "0:"));
    EXPECT_EQ(parse("View { x = '\\q' = 2; }"),
              ok("A n:q[m:= d:2 m:;] m:}", "FilePos(0,9) : EscapeSequence<\\q> is not format.\n"));
}

TEST(ParserLexicalFault, BackslashAsTheLastByteNamesTheEndOfTheFile) {
    EXPECT_EQ(parse("x = \\"), ok("", "PATH(0) : EOF : Stream I/O Error.\n"));
    EXPECT_EQ(parse("\n\\"), ok("", "PATH(1) : EOF : Stream I/O Error.\n"));
}

TEST(ParserLexicalFault, HighByteIsMetAgainByTheNextLevel) {
    EXPECT_EQ(parse("x = 1; \xE9 y = 2;"), failed(" : Stream \xE9 is not parsed.\n", "0:[A n:x[m:= d:1 m:;]]"));
    EXPECT_EQ(parse("Book { Sheet { x = 1; \xE9 } }"), failed(" : Stream \xE9 is not parsed.\n", "0:[B n:Book[m:{]]"));
}

TEST(ParserLexicalFault, HighByteInsideAStringIsOrdinary) {
    EXPECT_EQ(parse("x = '\xE9';"), ok("A n:x[m:= s:\\E9 m:;]"));
}

TEST(Parser, NulsAreSkippedInsideLexemes) {
    using namespace std::string_view_literals;
    EXPECT_EQ(parse("x\0y = 1\0"
                    "2;"sv),
              ok("A n:xy[m:= d:12 m:;]"));
    EXPECT_EQ(parse("// c\0x = 1;"sv), ok("A n:x[m:= d:1 m:;]"));
    EXPECT_EQ(parse("\0\0\0"sv), ok(""));
}

TEST(Parser, QuotesFollowTheAnalyser) {
    EXPECT_EQ(parse("x = '\"ab\";"), ok("A n:x[m:= s:ab m:;]"));
    EXPECT_EQ(parse("x = 'it\"s';"), ok("A n:x[m:= s:its m:;]"));
}

// --- the object
// -------------------------------------------------------------------------------------------------------

TEST(ParserObject, MissingFileFailsWithItsPathAndLeavesTheRoot) {
    const TempDir folder;
    const std::string path = folder.path("100%s none.txt");
    CTokenParser parser(path.c_str(), false);
    CLexTokenBlock root = assignment("x", 1);
    EXPECT_FALSE(parser.DoParse(root));
    EXPECT_EQ(std::string(parser.GetErrorMessage()), "Can not open source file [" + path + "]\n");
    EXPECT_EQ(describe(root), "A! n:x[m:= d:1 m:;]");
}

TEST(ParserObject, NullPathFails) {
    CTokenParser parser(nullptr, false);
    CLexTokenBlock root;
    EXPECT_STREQ(parser.GetErrorMessage(), "");
    EXPECT_FALSE(parser.DoParse(root));
    EXPECT_STREQ(parser.GetErrorMessage(), "Can not open source file []\n");
}

TEST(ParserObject, RootIsClearedFirst) {
    const TempDir folder;
    CTokenParser parser(folder.write("in.txt", "x = 1;").c_str(), false);
    CLexTokenBlock root = empty_block("Old");
    root.SetNoWriteDelimiter(true);
    EXPECT_TRUE(parser.DoParse(root));
    EXPECT_EQ(describe(root, true), "B 0:@-1,-1[A n:x@0,-1[m:=@0,0 d:1@0,2 m:;@0,4]]");
}

TEST(ParserObject, SecondParseCountsColumnsOn) {
    const TempDir folder;
    CTokenParser parser(folder.write("in.txt", "x=1;").c_str(), false);
    CLexTokenBlock root;
    EXPECT_TRUE(parser.DoParse(root));
    EXPECT_TRUE(parser.DoParse(root));
    EXPECT_EQ(describe(root, true), "B 0:@-1,-1[A n:x@0,3[m:=@0,4 d:1@0,5 m:;@0,6]]");
}

TEST(ParserObject, CopiesReadTheSameFileIndependently) {
    const TempDir folder;
    CTokenParser first(folder.write("in.txt", "x=1; foo;").c_str(), false);
    CLexTokenBlock root;
    EXPECT_TRUE(first.DoParse(root));
    CTokenParser second(first);
    CTokenParser third(nullptr, true);
    third = first;
    EXPECT_STREQ(second.GetErrorMessage(), first.GetErrorMessage());
    CLexTokenBlock again;
    EXPECT_TRUE(second.DoParse(again));
    EXPECT_TRUE(third.DoParse(again));
    EXPECT_EQ(describe(again), "B 0:[A n:x[m:= d:1 m:;]]");
}

// --- protected operations
// ---------------------------------------------------------------------------------------------

class OpenParser : public CTokenParser {
public:
    explicit OpenParser(const std::string& path, bool keep_comments = false)
        : CTokenParser(path.c_str(), keep_comments) {
        EXPECT_TRUE(stream_.OpenFile(source_path_));
    }
    using CTokenParser::DoLexAnalyze;
    using CTokenParser::DoParseAssignment;
    using CTokenParser::DoParseBlock;
};

TEST(ParserProtected, LexAnalyzeSkipsEmptyTokensAndComments) {
    const TempDir folder;
    OpenParser parser(folder.write("in.txt", "/* c */ '' x // d\n ;"));
    CLexToken token;
    EXPECT_TRUE(parser.DoLexAnalyze(token));
    EXPECT_EQ(describe_token(token), "n:x");
    EXPECT_TRUE(parser.DoLexAnalyze(token));
    EXPECT_EQ(describe_token(token), "m:;");
    EXPECT_FALSE(parser.DoLexAnalyze(token));
}

TEST(ParserProtected, LexAnalyzeClearsTheMessageWhenALexemeIsCutOff) {
    const TempDir folder;
    OpenParser parser(folder.write("in.txt", "\\q"));
    CLexToken token;
    EXPECT_FALSE(parser.DoLexAnalyze(token));
    EXPECT_STREQ(parser.GetErrorMessage(), "FilePos(0,-1) : EscapeSequence<\\q> is not format.\n");
    EXPECT_FALSE(parser.DoLexAnalyze(token));
    EXPECT_STREQ(parser.GetErrorMessage(), "");
}

TEST(ParserProtected, LexAnalyzeAtTheEndKeepsTheMessage) {
    const TempDir folder;
    OpenParser parser(folder.write("in.txt", "\\"));
    CLexToken token;
    EXPECT_FALSE(parser.DoLexAnalyze(token));
    const std::string message(parser.GetErrorMessage());
    EXPECT_NE(message, "");
    EXPECT_FALSE(parser.DoLexAnalyze(token));
    EXPECT_EQ(std::string(parser.GetErrorMessage()), message);
}

TEST(ParserProtected, BlockEndsBehindItsBrace) {
    const TempDir folder;
    OpenParser parser(folder.write("in.txt", "x = 1; } y = 2; ; "));
    CLexTokenBlock block;
    EXPECT_TRUE(parser.DoParseBlock(block));
    EXPECT_EQ(describe(block), "0:[A n:x[m:= d:1 m:;] m:}]");
    EXPECT_FALSE(parser.DoParseBlock(block));
    EXPECT_EQ(describe(block), "0:[A n:x[m:= d:1 m:;] m:} A n:y[m:= d:2 m:;] m:;]");
    EXPECT_TRUE(parser.DoParseBlock(block)) << "at the end of the file";
}

TEST(ParserProtected, StrayIsToldWhenTheCallReturns) {
    const TempDir folder;
    OpenParser parser(folder.write("in.txt", "; }"));
    CLexTokenBlock block;
    EXPECT_TRUE(parser.DoParseBlock(block));
    EXPECT_EQ(std::string(parser.GetErrorMessage()), stray(";"));
}

TEST(ParserProtected, ClosedBlockRefusesAValue) {
    const TempDir folder;
    OpenParser parser(folder.write("in.txt", "12 ;"));
    CLexTokenBlock block = empty_block("View");
    EXPECT_FALSE(parser.DoParseBlock(block));
    EXPECT_STREQ(parser.GetErrorMessage(), "Memory Error. parsed[12]\n");
    EXPECT_EQ(describe(block), "B! n:View[m:{ m:}]");
}

TEST(ParserProtected, ClosedBlockRefusesAnAssignmentAndABlock) {
    const TempDir folder;
    CLexTokenBlock block = empty_block("View");
    OpenParser of_assignment(folder.write("a.txt", "x = 1; y = 2;"));
    EXPECT_FALSE(of_assignment.DoParseBlock(block));
    EXPECT_EQ(std::string(of_assignment.GetErrorMessage()), wrong_meta("x"));
    OpenParser of_block(folder.write("b.txt", "Grid { x = 1; } y = 2;"));
    EXPECT_FALSE(of_block.DoParseBlock(block));
    EXPECT_EQ(std::string(of_block.GetErrorMessage()), wrong_meta("Grid"));
    EXPECT_EQ(describe(block), "B! n:View[m:{ m:}]");
}

TEST(ParserProtected, ClosedBlockLosesMetaCharacters) {
    const TempDir folder;
    CLexTokenBlock block = empty_block("View");
    OpenParser parser(folder.write("in.txt", "; } x"));
    EXPECT_TRUE(parser.DoParseBlock(block));
    EXPECT_EQ(std::string(parser.GetErrorMessage()), stray(";"));
    EXPECT_EQ(describe(block), "B! n:View[m:{ m:}]");
}

TEST(ParserProtected, AssignmentReadsItsValues) {
    const TempDir folder;
    OpenParser parser(folder.write("in.txt", "1 2 ; 3 "));
    CLexTokenBlock value = node("x", eGrammerAssign);
    EXPECT_TRUE(parser.DoParseAssignment(value));
    EXPECT_EQ(describe(value), "A n:x[d:1 d:2 m:;]");
    EXPECT_FALSE(parser.DoParseAssignment(value));
    EXPECT_EQ(std::string(parser.GetErrorMessage()), unterminated("x"));
    EXPECT_EQ(describe(value), "A n:x[d:1 d:2 m:; d:3]");
}

TEST(ParserProtected, UnopenedStreamEndsWithAMessage) {
    class Unopened : public CTokenParser {
    public:
        Unopened() : CTokenParser("none", false) {}
        using CTokenParser::DoParseBlock;
    };
    Unopened parser;
    CLexTokenBlock block;
    EXPECT_FALSE(parser.DoParseBlock(block));
    EXPECT_EQ(describe(block), "0:");
}

}  // namespace
}  // namespace orvil::test
