#include "orvil_program.h"

namespace orvil::test {
namespace {

// What the program writes: a heading with the file's name, and a closing comment.
std::string dressed(const std::string& name, const std::string& body) {
    return "// " + name +
           " : \r\n"
           "/************************/\r\n"
           "/*  Formatted by orvil  */\r\n"
           "/************************/\r\n"
           "\r\n" +
           body +
           "\r\n/* END OF FILE */\r\n"
           "\r\n";
}

std::string format_to_text(const std::string& text) {
    const TempDir folder;
    const std::string path = folder.write("in.cfg", text);
    const std::string out = folder.path("out.cfg");
    expect_result(orvil_program({"format", path, "-o", out}), 0, "", "");
    return read_file(out);
}

TEST(OrvilFormat, FontsSampleIsLaidOut) {
    const TempDir folder;
    const std::string out = folder.path("out.cfg");
    expect_result(orvil_program({"format", "examples/data/fonts.cfg", "-o", out}), 0, "", "");
    EXPECT_EQ(read_file(out), dressed("out.cfg",
                                      "#define FontFolder fonts/stroke\r\n"
                                      "#define Fallback   Simplex\r\n"
                                      "\r\n"
                                      "Fonts {\r\n"
                                      "\r\n"
                                      "\tSimplex {\r\n"
                                      "\t\tFile = \"simplex.shp\";\r\n"
                                      "\t\tRatio = 0.85;\r\n"
                                      "\t\tSlant = 0.0;\r\n"
                                      "\t\tWidths = 6 6 8 6 7;\r\n"
                                      "\t}\r\n"
                                      "\r\n"
                                      "\tGothic {\r\n"
                                      "\t\tFile = \"gothic.shp\";\r\n"
                                      "\t\tRatio = 1.0;\r\n"
                                      "\t\tSlant = -12.5;\r\n"
                                      "\t\tWidths = 10 10 12 10 11;\r\n"
                                      "\t}\r\n"
                                      "}\r\n"
                                      "Default = Simplex;\r\n"));
}

TEST(OrvilFormat, EmptyFileBecomesAHeading) {
    EXPECT_EQ(format_to_text(""), dressed("out.cfg", ""));
}

TEST(OrvilFormat, CommentsBetweenOuterEntriesKeepTheirPlaces) {
    EXPECT_EQ(format_to_text("// one\nx = 1; /* two\n  lines */ y = 2;\n// last\n"),
              dressed("out.cfg", "// one\r\nx = 1;\r\n/* two\r\n  lines */\r\ny = 2;\r\n// last\r\n"));
}

TEST(OrvilFormat, CommentsBehindABlockKeepTheirPlaces) {
    EXPECT_EQ(format_to_text("View { Grid { } x = 1; }\n// between\ny = 2;\n// last\n"),
              dressed("out.cfg",
                      "\r\nView {\r\n\r\n\tGrid {\r\n\t}\r\n\tx = 1;\r\n}\r\n// between\r\ny = 2;\r\n// last\r\n"));
}

TEST(OrvilFormat, ValuesAndDelimitersOutsideOfBlocksAreKept) {
    EXPECT_EQ(format_to_text("0xFF 'a' 1.5; }\n"), dressed("out.cfg", "0xFF\r\n\"a\"\r\n1.5\r\n;\r\n}\r\n"));
}

TEST(OrvilFormat, StringsAreQuotedAndEscapedAnew) {
    EXPECT_EQ(format_to_text("x = 'it\\'s' \"a\\tb\\\\\" \"\xE9\";\n"),
              dressed("out.cfg", "x = \"it\\'s\" \"a\\tb\\\\\" \"\xE9\";\r\n"));
}

TEST(OrvilFormat, SecondTimeGivesTheSameBytes) {
    const TempDir folder;
    const std::string path = folder.path("out.cfg");
    ASSERT_EQ(orvil_program({"format", "examples/data/units.cfg", "-o", path}).exit_code, 0);
    const std::string once = read_file(path);
    expect_result(orvil_program({"format", path, "-o", path}), 0, "", "");
    EXPECT_EQ(read_file(path), once);
}

TEST(OrvilFormat, HeadingOfAFileKeepsItsWords) {
    const std::string box =
        "/*****************/\r\n"
        "/*  My           */\r\n"
        "/*  settings.    */\r\n"
        "/*****************/\r\n"
        "\r\n";
    EXPECT_EQ(format_to_text("// old.cfg : \r\n" + box + "x = 1;"),
              "// out.cfg : \r\n" + box + "x = 1;\r\n\r\n/* END OF FILE */\r\n\r\n");
}

TEST(OrvilFormat, BoxWhoseRulesDifferIsAComment) {
    const std::string box =
        "/*********/\r\n"
        "/*  My   */\r\n"
        "/**********/\r\n";
    EXPECT_EQ(format_to_text("// old.cfg : \r\n" + box + "x = 1;"),
              dressed("out.cfg", "// old.cfg : \r\n" + box + "x = 1;\r\n"));
}

TEST(OrvilFormat, BoxBelowALineWithoutANameIsAComment) {
    const std::string box =
        "// : \r\n"
        "/*********/\r\n"
        "/*  Me   */\r\n"
        "/*********/\r\n";
    EXPECT_EQ(format_to_text(box + "x = 1;"), dressed("out.cfg", box + "x = 1;\r\n"));
}

TEST(OrvilFormat, TargetMayBeTheFileItself) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "x=1;");
    expect_result(orvil_program({"format", path, "-o", path}), 0, "", "");
    EXPECT_EQ(read_file(path), dressed("x.cfg", "x = 1;\r\n"));
}

TEST(OrvilFormat, ExistingTargetIsReplaced) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "x=1;");
    const std::string out = folder.write("out.cfg", std::string(10000, ' '));
    expect_result(orvil_program({"format", path, "-o", out}), 0, "", "");
    EXPECT_EQ(read_file(out), dressed("out.cfg", "x = 1;\r\n"));
}

TEST(OrvilFormat, NothingElseIsLeftInTheFolder) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "x=1;");
    folder.write("out.cfg.new1", "mine");
    expect_result(orvil_program({"format", path, "-o", folder.path("out.cfg")}), 0, "", "");
    EXPECT_EQ(read_file(folder.path("out.cfg.new1")), "mine");
    EXPECT_FALSE(std::filesystem::exists(folder.path("out.cfg.new2")));
}

TEST(OrvilFormat, BrokenFileIsNotWritten) {
    const TempDir folder;
    const std::string out = folder.path("out.cfg");
    expect_result(orvil_program({"format", "examples/data/broken.cfg", "-o", out, "--drop"}), 1, "",
                  "examples/data/broken.cfg:5:12: expected '=' or '{' after 'Height', found '594.0'\n");
    EXPECT_FALSE(std::filesystem::exists(out));
}

TEST(OrvilFormat, TargetInAMissingFolderCannotBeWritten) {
    const TempDir folder;
    const std::string out = folder.path("none/out.cfg");
    expect_result(orvil_program({"format", "examples/data/fonts.cfg", "-o", out}), 1, "",
                  "orvil: " + out + " cannot be written\n");
}

TEST(OrvilFormat, FolderCannotBeTheTarget) {
    const TempDir folder;
    const TempDir target;
    const std::string out = target.path("inner");
    std::filesystem::create_directory(out);
    expect_result(orvil_program({"format", "examples/data/fonts.cfg", "-o", out}), 1, "",
                  "orvil: " + out + " is a folder\n");
}

TEST(OrvilFormat, ReadOnlyTargetIsLeftAlone) {
    const TempDir folder;
    const std::string out = folder.write("out.cfg", "mine");
    std::filesystem::permissions(out,
                                 std::filesystem::perms::owner_write | std::filesystem::perms::group_write |
                                     std::filesystem::perms::others_write,
                                 std::filesystem::perm_options::remove);
    expect_result(orvil_program({"format", "examples/data/fonts.cfg", "-o", out}), 1, "",
                  "orvil: " + out + " is read-only\n");
    EXPECT_EQ(read_file(out), "mine");
    std::filesystem::permissions(out, std::filesystem::perms::owner_write, std::filesystem::perm_options::add);
}

TEST(OrvilFormat, ThousandBlocksDeepIsWritten) {
    for (int depth : {999, 1000}) {
        const std::string text = format_to_text(repeated("x{", depth) + repeated("}", depth));
        EXPECT_NE(text.find("\r\n" + repeated("\t", depth - 1) + "x {\r\n" + repeated("\t", depth - 1) + "}\r\n"),
                  std::string::npos);
    }
}

TEST(OrvilFormat, DeeperIsRefused) {
    const TempDir folder;
    for (int depth : {1001, 100000}) {
        const std::string path = folder.write("x.cfg", repeated("x{", depth) + repeated("}", depth));
        expect_result(
            orvil_program({"format", path, "-o", folder.path("out.cfg")}), 2, "",
            "orvil: " + path + " is nested " + std::to_string(depth) + " deep, and files are written to 1000\n");
        EXPECT_FALSE(std::filesystem::exists(folder.path("out.cfg")));
    }
}

TEST(OrvilFormat, DeepestBlockDecidesWhereverItStands) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", repeated("x{", 1001) + repeated("}", 1001) + "y{}");
    expect_result(orvil_program({"format", path, "-o", folder.path("out.cfg")}), 2, "",
                  "orvil: " + path + " is nested 1001 deep, and files are written to 1000\n");
}

TEST(OrvilFormat, NeedsAFileAndATarget) {
    const std::string said =
        "orvil: one file and -o with a file are needed\nusage: orvil format FILE -o OUT [--drop]\n";
    expect_result(orvil_program({"format", "examples/data/fonts.cfg"}), 64, "", said);
    expect_result(orvil_program({"format", "-o", "x"}), 64, "", said);
    expect_result(orvil_program({"format", "examples/data/fonts.cfg", "-o", ""}), 64, "", said);
}

}  // namespace
}  // namespace orvil::test
