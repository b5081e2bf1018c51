#include "orvil_program.h"

namespace orvil::test {
namespace {

TEST(OrvilTree, PrintsTheTree) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "Count = 3;\nView {\n}\n");
    const std::string rule(40, '-');
    expect_result(orvil_program({"tree", path}), 0,
                  "    " + rule + "\n     { ... Token(2) ... }\n" +    //
                      "        " + rule + "\n        Count = 3 ;\n" +  //
                      "Token[*]-<<MetaChar>> <=> Pos(0:4) Token[*]-Decimal <3> Pos(0:6) "
                      "Token[*]-<<MetaChar>> <;> Pos(0:8) " +
                      "        " + rule + "\n        View { ... Token(2) ... }\n" +
                      "Token[*]-<<MetaChar>> <{> Pos(1:14) Token[*]-<<MetaChar>> <}> Pos(1:16) \n",
                  "");
}

TEST(OrvilTree, EmptyFileIsAnEmptyRoot) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "");
    expect_result(orvil_program({"tree", path}), 0, "    " + std::string(40, '-') + "\n     { ... Token(0) ... }\n\n",
                  "");
}

TEST(OrvilTree, PercentSignsAreText) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "x = \"%s%n\";\n");
    const ProgramResult result = orvil_program({"tree", path});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_NE(result.out.find("Token[*]-String <%s%n> Pos(0:2) "), std::string::npos) << result.out;
}

TEST(OrvilTree, BrokenFileHasNone) {
    expect_result(orvil_program({"tree", "examples/data/broken.cfg"}), 1, "",
                  "examples/data/broken.cfg:5:12: expected '=' or '{' after 'Height', found '594.0'\n");
}

TEST(OrvilTree, ThousandBlocksDeepIsShown) {
    const TempDir folder;
    for (int depth : {999, 1000}) {
        const std::string path = folder.write("x.cfg", repeated("x{", depth) + repeated("}", depth));
        const ProgramResult result = orvil_program({"tree", path});
        EXPECT_EQ(result.exit_code, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_NE(result.out.find(repeated(" ", 4 * (depth + 1)) + "x { ... Token(2) ... }\n"), std::string::npos);
    }
}

TEST(OrvilTree, DeeperIsRefused) {
    const TempDir folder;
    for (int depth : {1001, 100000}) {
        const std::string path = folder.write("x.cfg", repeated("x{", depth) + repeated("}", depth));
        expect_result(
            orvil_program({"tree", path}), 1, "",
            "orvil: " + path + " is nested " + std::to_string(depth) + " deep, and a tree is shown to 1000\n");
    }
}

TEST(OrvilTree, NeedsOneFile) {
    expect_result(orvil_program({"tree"}), 64, "", "orvil: one file is needed\nusage: orvil tree FILE\n");
    expect_result(orvil_program({"tree", "a", "b"}), 64, "", "orvil: one file is needed\nusage: orvil tree FILE\n");
}

}  // namespace
}  // namespace orvil::test
