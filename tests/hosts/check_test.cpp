#include "orvil_program.h"

namespace orvil::test {
namespace {

TEST(OrvilCheck, SampleFilesReadWhole) {
    expect_result(orvil_program({"check", "examples/data/converter.cfg", "examples/data/layers.cfg",
                                 "examples/data/pens.cfg", "examples/data/fonts.cfg", "examples/data/units.cfg"}),
                  0,
                  "examples/data/converter.cfg: 5 entries\n"
                  "examples/data/layers.cfg: 2 entries\n"
                  "examples/data/pens.cfg: 1 entry\n"
                  "examples/data/fonts.cfg: 4 entries\n"
                  "examples/data/units.cfg: 4 entries\n",
                  "");
}

TEST(OrvilCheck, BrokenSampleNamesThePlace) {
    expect_result(orvil_program({"check", "examples/data/broken.cfg"}), 1, "",
                  "examples/data/broken.cfg:5:12: expected '=' or '{' after 'Height', found '594.0'\n");
}

TEST(OrvilCheck, OneBrokenFileFailsTheCallAndTheOthersAreStillRead) {
    expect_result(orvil_program({"check", "examples/data/broken.cfg", "examples/data/fonts.cfg"}), 1,
                  "examples/data/fonts.cfg: 4 entries\n",
                  "examples/data/broken.cfg:5:12: expected '=' or '{' after 'Height', found '594.0'\n");
}

TEST(OrvilCheck, MissingFileIsSaid) {
    const TempDir folder;
    const std::string path = folder.path("none.cfg");
    expect_result(orvil_program({"check", path}), 1, "", "orvil: Can not open source file [" + path + "]\n");
}

TEST(OrvilCheck, FolderIsNoFile) {
    const TempDir folder;
    const std::string path = folder.path("");
    expect_result(orvil_program({"check", path}), 1, "", "orvil: Can not open source file [" + path + "]\n");
}

struct Case {
    const char* situation;
    std::string text;
    int exit_code;
    const char* out;  // behind the file's name
    const char* err;  // behind the file's name
};

class OrvilCheckText : public testing::TestWithParam<Case> {};

TEST_P(OrvilCheckText, IsJudged) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", GetParam().text);
    const std::string out = GetParam().out;
    const std::string err = GetParam().err;
    expect_result(orvil_program({"check", path}), GetParam().exit_code, out.empty() ? "" : path + out,
                  err.empty() ? "" : path + err);
}

std::string situation(const testing::TestParamInfo<Case>& info) {
    return info.param.situation;
}

using namespace std::string_literals;

INSTANTIATE_TEST_SUITE_P(
    Whole, OrvilCheckText,
    testing::Values(
        Case{"Empty", "", 0, ": 0 entries\n", ""}, Case{"BlanksOnly", " \t\r\n", 0, ": 0 entries\n", ""},
        Case{"CommentsOnly", "// a\n/* b */\n", 0, ": 0 entries\n", ""},
        Case{"NulByteBetweenWords", "x = 1;\0 y = 2;\0\n"s, 0, ": 2 entries\n", ""},
        Case{"NulByteInAWord", "x\0y = 1;\n"s, 0, ": 1 entry\n",
             ":1:2: warning: expected a character that is kept, found '\\x00'\n"},
        Case{"NulByteInAComment", "/* a\0b */\n"s, 0, ": 0 entries\n",
             ":1:5: warning: expected a character that is kept, found '\\x00'\n"},
        Case{"OtherQuoteInAString", "x = \"it's\";\n", 0, ": 1 entry\n", ":1:8: warning: expected \\', found '''\n"},
        Case{"EscapedQuotesInAString", "x = \"a\\\"\\'\\\\\";\n", 0, ": 1 entry\n", ""},
        Case{"OtherQuoteAtTheStartOfAString", "x = '\"a\";\n", 0, ": 1 entry\n",
             ":1:5: warning: expected \\', found '''\n"},
        Case{"QuoteInAWord", "x = a\"b;\n", 0, ": 1 entry\n", ":1:6: warning: expected \\\", found '\"'\n"},
        Case{"CarriageReturnInALine", "// a\rb\r\n#x\r\n", 0, ": 1 entry\n",
             ":1:5: warning: expected a character that is kept, found '\\x0D'\n"},
        Case{"CarriageReturnAtTheEndOfTheFile", "x = 1; // a\r", 0, ": 1 entry\n", ""},
        Case{"CarriageReturnInAString", "x = \"a\rb\";\n", 0, ": 1 entry\n", ""},
        Case{"HighByteInAString", "x = \"\xE9\";\n", 0, ": 1 entry\n", ""},
        Case{"CommentBehindAName", "x /* y */ = 1;\n", 0, ": 1 entry\n", ""},
        Case{"SeveralThingsBehindAName", "x /* y */ '' // z\n = 1;\n", 0, ": 1 entry\n", ""},
        Case{"LoneDelimiter", "x = 1;;\n", 0, ": 2 entries\n", ":1:7: warning: expected an entry, found ';'\n"},
        Case{"LoneClosingBrace", "}\n", 0, ": 1 entry\n", ":1:1: warning: expected an entry, found '}'\n"},
        Case{"HundredThousandBlocksDeep", repeated("x{", 100000) + repeated("}", 100000), 0, ": 1 entry\n", ""}),
    situation);

INSTANTIATE_TEST_SUITE_P(
    NotWhole, OrvilCheckText,
    testing::Values(Case{"UnfinishedAssignment", "x = 1\n", 1, "",
                         ":2:1: expected ';' to end the assignment of 'x' in line 1, found the end of the file "
                         "(Not found Expressio-Terminator token. Assign value = [x])\n"},
                    Case{"UnfinishedBlock", "View {\r\n\tx = 1;\r\n", 1, "",
                         ":3:1: expected '}' to close 'View' of line 1, found the end of the file\n"},
                    Case{"UnfinishedString", "Title = \"abc\n", 1, "",
                         ":1:9: expected a closing \" for this string, found the end of the file "
                         "(Not found Expressio-Terminator token. Assign value = [Title])\n"},
                    Case{"UnfinishedComment", "x = 1;\n /* abc\n", 1, "",
                         ":3:1: expected */ to close the comment of line 2, found the end of the file\n"},
                    Case{"CommentThatEndsInItsOwnStar", "/*/\n", 1, "",
                         ":2:1: expected */ to close the comment of line 1, found the end of the file\n"},
                    Case{"UnfinishedCommentInAnAssignment", "x = 1\n/* abc\n", 1, "",
                         ":3:1: expected */ to close the comment of line 2, found the end of the file "
                         "(Not found Expressio-Terminator token. Assign value = [x])\n"},
                    Case{"UnfinishedCommentBehindAName", "x\n/* abc\n", 1, "",
                         ":3:1: expected */ to close the comment of line 2, found the end of the file\n"},
                    Case{"LastWordWithoutAnEnd", "x = 1;\n 5", 1, "",
                         ":2:2: expected a blank, a line end or a delimiter after '5', found the end of the file\n"},
                    Case{"UnknownEscape", "x = \"a\\qb\";\n", 1, "",
                         ":1:7: expected one of \\\" \\' \\\\ \\n \\r \\t, found '\\q' "
                         "(FilePos(0,2) : EscapeSequence<\\q> is not format.)\n"},
                    Case{"UnknownEscapeBehindAName", "x = 1;\ny \\q\n", 1, "",
                         ":2:3: expected one of \\\" \\' \\\\ \\n \\r \\t, found '\\q' "
                         "(FilePos(1,7) : EscapeSequence<\\q> is not format.)\n"},
                    Case{"HighByte", "x = \\\\\xE9;\n", 1, "",
                         ":1:7: expected a plain character outside of a string, found '\\xE9' "
                         "( : Stream \\xE9 is not parsed.)\n"},
                    Case{"NameWithoutAnything", "x = 1;\ny\n", 1, "",
                         ":3:1: expected '=' or '{' after 'y', found the end of the file\n"},
                    Case{"NameBeforeAnotherDelimiter", "x (1);\n", 1, "",
                         ":1:3: expected '=' or '{' after 'x', found '(' (Not supported grammer. Metachar:()\n"},
                    Case{"HundredThousandBlocksLeftOpen", repeated("x{", 100000), 1, "",
                         ":1:200001: expected '}' to close 'x' of line 1, found the end of the file\n"}),
    situation);

TEST(OrvilCheck, NameOfTheLettersAToFIsPointedOut) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "Face = 1;\n");
    expect_result(orvil_program({"check", path}), 0, path + ": 4 entries\n",
                  path + ":1:6: warning: expected a name before it ('Face' reads as a number), found '='\n" + path +
                      ":1:9: warning: expected an entry, found ';'\n");
}

TEST(OrvilCheck, BlockNameOfTheLettersAToFIsPointedOut) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "Face { 1 }\n");
    expect_result(orvil_program({"check", path}), 0, path + ": 4 entries\n",
                  path + ":1:6: warning: expected a name before it ('Face' reads as a number), found '{'\n" + path +
                      ":1:10: warning: expected an entry, found '}'\n");
}

TEST(OrvilCheck, OtherDelimitersBehindANumberAreJustStrays) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "Face ( 'a' = \n");
    expect_result(orvil_program({"check", path}), 0, path + ": 4 entries\n",
                  path + ":1:6: warning: expected an entry, found '('\n" + path +
                      ":1:12: warning: expected an entry, found '='\n");
}

TEST(OrvilCheck, WarningsComeInTheFilesOrder) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "; x = \"it's\";\n; y = \"it's\";\n");
    const std::string warning = " warning: expected ";
    expect_result(orvil_program({"check", path}), 0, path + ": 4 entries\n",
                  path + ":1:1:" + warning + "an entry, found ';'\n" + path + ":1:10:" + warning + "\\', found '''\n" +
                      path + ":2:1:" + warning + "an entry, found ';'\n" + path + ":2:10:" + warning +
                      "\\', found '''\n");
}

TEST(OrvilCheck, StrayComesBeforeWhatIsLeftOutOfIt) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "-\0 \n"s);
    expect_result(orvil_program({"check", path}), 0, path + ": 1 entry\n",
                  path + ":1:1: warning: expected an entry, found '-'\n" + path +
                      ":1:2: warning: expected a character that is kept, found '\\x00'\n");
}

TEST(OrvilCheck, LongTextsAreCutInMessages) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "x " + std::string(50, 'y') + ";\n");
    const ProgramResult result = orvil_program({"check", path});
    EXPECT_NE(result.err.find(", found '" + std::string(40, 'y') + "...'"), std::string::npos) << result.err;
}

TEST(OrvilCheck, WithoutAFileIsAMisuse) {
    expect_result(orvil_program({"check"}), 64, "", "orvil: no file is given\nusage: orvil check FILE...\n");
}

}  // namespace
}  // namespace orvil::test
