#include "orvil_program.h"

namespace orvil::test {
namespace {

ProgramResult params_of(const std::string& text, const std::vector<std::string>& more = {}) {
    const TempDir folder;
    std::vector<std::string> arguments{"params", folder.write("x.cfg", text)};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return orvil_program(arguments);
}

// What a table of the block X with these rows looks like when no cell is wider than the captions' columns.
std::string table_of(const std::string& name, int count, int width, const std::string& rows) {
    return "Parameter | Value\n----------+-" + std::string(static_cast<std::size_t>(width), '-') + "\nParameters (" +
           std::to_string(count) + ") of " + name + "\n" + rows;
}

TEST(OrvilParams, PrintsATableForEachBlockOfTheSample) {
    expect_result(orvil_program({"params", "examples/data/plotter.cfg"}), 0,
                  "Parameter | Value\n"
                  "----------+--------------------------\n"
                  "Parameters (6) of Plotter\n"
                  "Colour    | ==> (Str) [On]\n"
                  "Margins   | ==> (Str) [10 10 20 10]\n"
                  "Mask      | ==> (Int) [255]\n"
                  "MaxSpeed  | ==> (Dbl) [42.500000]\n"
                  "Model     | ==> (Str) [DesignLine 36]\n"
                  "Pens      | ==> (Int) [8]\n"
                  "\n"
                  "Parameter | Value\n"
                  "----------+-----------------------\n"
                  "Parameters (3) of Plotter.Paper\n"
                  "Kind      | ==> (Str) [roll]\n"
                  "Length    | ==> (Int) [30000]\n"
                  "Width     | ==> (Dbl) [914.400000]\n"
                  "\n"
                  "Parameter | Value\n"
                  "----------+---------------------------\n"
                  "Parameters (2) of Queue\n"
                  "Host      | ==> (Str) [drawing office]\n"
                  "Retries   | ==> (Int) [3]\n",
                  "");
}

TEST(OrvilParams, PrintsTheBlockThatIsNamed) {
    expect_result(params_of("U { x = 1; W { y = 2; } } W { z = 3; }", {"U.W"}), 0,
                  table_of("U.W", 1, 13, "y         | ==> (Int) [2]\n"), "");
}

TEST(OrvilParams, LongNameWidensTheFirstColumn) {
    expect_result(params_of("V { ANameThatIsLonger = 1; }"), 0,
                  "Parameter         | Value\n"
                  "------------------+--------------\n"
                  "Parameters (1) of V\n"
                  "ANameThatIsLonger | ==> (Int) [1]\n",
                  "");
}

TEST(OrvilParams, LastAssignmentOfANameCounts) {
    expect_result(params_of("V { x = 1; x = two; }"), 0, table_of("V", 1, 15, "x         | ==> (Str) [two]\n"), "");
}

TEST(OrvilParams, BlocksOfOneNameAreOneTable) {
    expect_result(params_of("V { x = 1; y = 2; } W { x = 5; } V { x = 3; }"), 0,
                  table_of("V", 2, 13, "x         | ==> (Int) [3]\ny         | ==> (Int) [2]\n") + "\n" +
                      table_of("W", 1, 13, "x         | ==> (Int) [5]\n"),
                  "");
}

TEST(OrvilParams, WholeNumbersBeyondThirtyTwoBitsAreTexts) {
    expect_result(params_of("X { u = 2147483647; v = 2147483648; w = 0xFFFFFFFF; y = -2147483648; z = +7; }"), 0,
                  table_of("X", 5, 23,
                           "u         | ==> (Int) [2147483647]\n"
                           "v         | ==> (Str) [2147483648]\n"
                           "w         | ==> (Str) [0xFFFFFFFF]\n"
                           "y         | ==> (Int) [-2147483648]\n"
                           "z         | ==> (Int) [7]\n"),
                  "");
}

TEST(OrvilParams, AssignmentWithoutValuesIsAnEmptyText) {
    expect_result(params_of("V { x = ; }"), 0, table_of("V", 1, 12, "x         | ==> (Str) []\n"), "");
}

TEST(OrvilParams, SeveralValuesAreOneTextAsAFileHoldsThem) {
    expect_result(params_of("V { x = 1 \"a b\" : 0x0F; }"), 0,
                  table_of("V", 1, 26, "x         | ==> (Str) [1 \"a b\" : 0x0F]\n"), "");
}

TEST(OrvilParams, ControlCharactersAndHighBytesStayInTheirCell) {
    expect_result(params_of("V { x = \"a\\n\x1B\xC8\"; }"), 0,
                  table_of("V", 1, 25, "x         | ==> (Str) [a\\x0A\\x1B\\xC8]\n"), "");
}

TEST(OrvilParams, BlocksThatAssignNothingAreLeftOut) {
    expect_result(params_of("V { 1.0 W { x = 1; } } U { }"), 0, table_of("V.W", 1, 13, "x         | ==> (Int) [1]\n"),
                  "");
}

TEST(OrvilParams, FileWithoutSuchABlockFails) {
    const TempDir folder;
    for (const char* text : {"", "x = 1;", "V { 1.0 }"}) {
        const std::string path = folder.write("x.cfg", text);
        expect_result(orvil_program({"params", path}), 1, "",
                      "orvil: " + path + " has no block that assigns anything\n");
    }
}

TEST(OrvilParams, AbsentBlockFails) {
    for (const char* name : {"Printer", "Paper", "plotter", ""}) {
        expect_result(
            orvil_program({"params", "examples/data/plotter.cfg", name}), 1, "",
            "orvil: examples/data/plotter.cfg has no block " + std::string(name) + " that assigns anything\n");
    }
}

TEST(OrvilParams, DamagedFileFails) {
    const ProgramResult result = orvil_program({"params", "examples/data/broken.cfg"});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err.rfind("examples/data/broken.cfg:5:12: expected '=' or '{' after 'Height'", 0), 0u);
}

TEST(OrvilParams, MissingFileFails) {
    const TempDir folder;
    const std::string path = folder.path("none.cfg");
    expect_result(orvil_program({"params", path}), 1, "", "orvil: Can not open source file [" + path + "]\n");
}

TEST(OrvilParams, ThousandBlocksDeepIsShownAndOneMoreIsNot) {
    EXPECT_EQ(params_of(repeated("x{", 1000) + "y = 1;" + repeated("}", 1000)).exit_code, 0);
    const ProgramResult result = params_of(repeated("x{", 1001) + "y = 1;" + repeated("}", 1001));
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_NE(result.err.find(" is nested 1001 deep, and parameters are shown to 1000\n"), std::string::npos);
}

TEST(OrvilParams, NeedsOneFileAndAtMostOneBlock) {
    const std::string trouble =
        "orvil: one file is needed, and at most the name of one block\nusage: orvil params FILE [BLOCK]\n";
    expect_result(orvil_program({"params"}), 64, "", trouble);
    expect_result(orvil_program({"params", "a", "b", "c"}), 64, "", trouble);
}

}  // namespace
}  // namespace orvil::test
