#include "orvil_program.h"

namespace orvil::test {
namespace {

using namespace std::string_literals;

const std::string kHint = "; --drop leaves out comments and plain values";

// Formats a text onto a file that exists, which must stay as it is.
void expect_refused(const std::string& text, const std::string& finding, const std::vector<std::string>& options = {}) {
    const TempDir folder;
    const std::string path = folder.write("in.cfg", text);
    const std::string out = folder.write("out.cfg", "mine");
    std::vector<std::string> arguments{"format", path, "-o", out};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const std::string hint = options.empty() ? kHint : "";
    expect_result(orvil_program(arguments), 2, "",
                  path + finding + "\norvil: " + out + " is not written, as it would lose this" + hint + "\n");
    EXPECT_EQ(read_file(out), "mine");
    EXPECT_FALSE(std::filesystem::exists(folder.path("out.cfg.new1")));
}

// Formats a text whose writing would not bring back the same tokens.
void expect_changed(const std::string& text, const std::string& finding) {
    const TempDir folder;
    const std::string path = folder.write("in.cfg", text);
    const std::string out = folder.write("out.cfg", "mine");
    expect_result(orvil_program({"format", path, "-o", out, "--drop"}), 2, "",
                  path + finding + "\norvil: " + out + " is not written\n");
    EXPECT_EQ(read_file(out), "mine");
    EXPECT_FALSE(std::filesystem::exists(folder.path("out.cfg.new1")));
}

TEST(OrvilFormatLoss, CommentInABlock) {
    expect_refused("View {\r\n\tx = 1; // one\r\n}\r\n", ":2:9: expected no comment inside a block, found '// one'");
}

TEST(OrvilFormatLoss, CommentInAnAssignment) {
    expect_refused("x = 1 /* one */;\n", ":1:7: expected no comment inside an assignment, found '/* one */'");
}

TEST(OrvilFormatLoss, CommentBehindAName) {
    expect_refused("x = 1;\ny // why\n= 2;\n",
                   ":2:3: expected no comment or empty string behind the name 'y', found '// why'");
}

TEST(OrvilFormatLoss, ValueInABlock) {
    expect_refused("View {\n  Colors { 0xFF 0x80 }\n}\n",
                   ":2:12: expected an assignment or a block inside of 'Colors', found '0xFF'");
}

TEST(OrvilFormatLoss, PreprocessorLineInABlock) {
    expect_refused("View {\n#if x\n}\n", ":2:1: expected an assignment or a block inside of 'View', found '#if x'");
}

TEST(OrvilFormatLoss, DelimiterInABlock) {
    expect_refused("View { x = 1;; }\n", ":1:14: expected an assignment or a block inside of 'View', found ';'");
}

TEST(OrvilFormatLoss, EmptyString) {
    expect_refused("Title = \"\";\n", ":1:9: expected a value that can be written, found '\"\"'");
}

TEST(OrvilFormatLoss, PlacesDoNotDependOnLineEnds) {
    for (const std::string end : {"\n", "\r\n"}) {
        expect_refused("// one" + end + end + "View {" + end + "\t" + "5 }" + end,
                       ":4:2: expected an assignment or a block inside of 'View', found '5'");
    }
}

TEST(OrvilFormatLoss, CarriageReturnsAndNulBytesDoNotShiftPlaces) {
    expect_refused("x = \"a\rb\rc\" \r\0; View { 5 }\n"s,
                   ":1:24: expected an assignment or a block inside of 'View', found '5'");
}

TEST(OrvilFormatLoss, QuoteThatIsLeftOut) {
    expect_refused("x = 1;\ny = 'a \"quote\"';\n", ":2:8: expected \\\", found '\"'");
}

TEST(OrvilFormatLoss, NulByteInAName) {
    expect_refused("x\0y = 1;\n"s, ":1:2: expected a character that is kept, found '\\x00'");
}

TEST(OrvilFormatLoss, DroppingWritesWhatTheLibraryReads) {
    const TempDir folder;
    const std::string path = folder.write("in.cfg", "View { x = \"it's\"; /* one */ 'a\"b' }\n");
    const std::string out = folder.path("out.cfg");
    expect_result(orvil_program({"format", path, "-o", out, "--drop"}), 0, "",
                  path + ":1:15: dropped: expected \\', found '''\n" +  //
                      path + ":1:20: dropped: expected no comment inside a block, found '/* one */'\n" + path +
                      ":1:30: dropped: expected an assignment or a block inside of 'View', found '\"ab\"'\n" + path +
                      ":1:32: dropped: expected \\\", found '\"'\n");
    EXPECT_NE(read_file(out).find("\r\nView {\r\n\tx = \"its\";\r\n}\r\n"), std::string::npos);
}

TEST(OrvilFormatLoss, FirstOfTheConverterSample) {
    const TempDir folder;
    const std::string out = folder.path("out.cfg");
    expect_result(orvil_program({"format", "examples/data/converter.cfg", "-o", out}), 2, "",
                  "examples/data/converter.cfg:7:37: expected no comment inside a block, found '// every plot file'\n"
                  "orvil: " +
                      out + " is not written, as it would lose this" + kHint + "\n");
}

TEST(OrvilFormatLoss, DroppedPiecesAreAllNamed) {
    const TempDir folder;
    const std::string path = folder.write("in.cfg", "View { // one\n  5 x = \"\" 1 /* two */;\n}\n");
    const std::string out = folder.path("out.cfg");
    expect_result(orvil_program({"format", path, "-o", out, "--drop"}), 0, "",
                  path + ":1:8: dropped: expected no comment inside a block, found '// one'\n" +  //
                      path + ":2:3: dropped: expected an assignment or a block inside of 'View', found '5'\n" + path +
                      ":2:9: dropped: expected a value that can be written, found '\"\"'\n" + path +
                      ":2:14: dropped: expected no comment inside an assignment, found '/* two */'\n");
    EXPECT_NE(read_file(out).find("\r\nView {\r\n\tx = 1;\r\n}\r\n"), std::string::npos);
}

TEST(OrvilFormatLoss, DroppingKeepsTheCommentsThatCanBeKept) {
    const TempDir folder;
    const std::string out = folder.path("out.cfg");
    EXPECT_EQ(orvil_program({"format", "examples/data/pens.cfg", "-o", out, "--drop"}).exit_code, 0);
    const std::string text = read_file(out);
    EXPECT_NE(text.find("\r\n// Pens with the dash patterns that values in blocks describe.\r\n\r\nPens {\r\n"),
              std::string::npos);
    EXPECT_NE(text.find("\t\tWidth = 0.7;\r\n\r\n\t\tPattern {\r\n\t\t}\r\n\t}\r\n}\r\n"), std::string::npos);
}

TEST(OrvilFormatLoss, PreprocessorLineInAnAssignmentCannotBeDropped) {
    const std::string text = "x = 1 #2 ;\n3;\n";
    const std::string finding = ":1:7: expected no line with # inside an assignment, found '#2 ;'";
    expect_refused(text, finding);
    expect_refused(text, finding, {"--drop"});
}

TEST(OrvilFormatLoss, SymbolThatHoldsATabWouldFallApart) {
    expect_changed("y = 1;\nx = a\\tb;\n", ":2:5: expected a token that reads back as it is written, found 'a\\x09b'");
}

TEST(OrvilFormatLoss, NumberBehindAnEscapedTabWouldLoseIt) {
    expect_changed("x = \\t12;\n", ":1:5: expected a token that reads back as it is written, found '\\x0912'");
}

TEST(OrvilFormatLoss, CarriageReturnInACommentWouldVanish) {
    expect_changed("/* a\rb */\nx = 1;\n",
                   ":1:1: expected a token that reads back as it is written, found '/* a\\x0Db */'");
}

}  // namespace
}  // namespace orvil::test
