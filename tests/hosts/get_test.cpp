#include "orvil_program.h"

namespace orvil::test {
namespace {

struct Case {
    const char* situation;
    const char* file;
    const char* name;
    const char* out;
};

class OrvilGet : public testing::TestWithParam<Case> {};

TEST_P(OrvilGet, PrintsKindAndValue) {
    expect_result(orvil_program({"get", std::string("examples/data/") + GetParam().file, GetParam().name}), 0,
                  GetParam().out, "");
}

INSTANTIATE_TEST_SUITE_P(
    Samples, OrvilGet,
    testing::Values(Case{"Decimal", "converter.cfg", "MaxSheets", "Decimal 250\n"},
                    Case{"DecimalWithItsSign", "converter.cfg", "Level", "Decimal +2\n"},
                    Case{"HexaDecimal", "converter.cfg", "LogMask", "HexaDecimal 0xFF00\n"},
                    Case{"DoubleDeepInside", "converter.cfg", "Height", "Double 594.0\n"},
                    Case{"DoubleWithAnExponent", "converter.cfg", "Precision", "Double 1.0e-6\n"},
                    Case{"Symbol", "converter.cfg", "Recursive", "Symbol On\n"},
                    Case{"StringWithAsterisk", "converter.cfg", "Pattern", "String \"*.plt\"\n"},
                    Case{"StringWithBackslash", "converter.cfg", "Folder", "String \"drawings/in\"\n"},
                    Case{"StringWithQuotes", "converter.cfg", "Title", "String \"Sheet \\\"A\\\" of \\'B\\'\"\n"},
                    Case{"StringWithEscapes", "converter.cfg", "Columns", "String \"No.\\tName\\tScale\"\n"},
                    Case{"SeveralValues", "converter.cfg", "Margins",
                         "Decimal 10\nDecimal 10\nDecimal 20\nDecimal 10\n"},
                    Case{"Delimiters", "units.cfg", "Default", "Decimal 1\n<<MetaChar>> :\nDecimal 50\n"},
                    Case{"FirstOfTheName", "layers.cfg", "Pens", "Symbol Thin\nSymbol Medium\n"}),
    [](const auto& test) { return std::string(test.param.situation); });

TEST(OrvilGetText, AssignmentWithoutValuesIsEmpty) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "x = ;\n");
    expect_result(orvil_program({"get", path, "x"}), 0, "Empty\n", "");
}

TEST(OrvilGetText, AssignmentInABlockComesBeforeALaterOuterOne) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", "View { x = 1; }\nx = 2;\n");
    expect_result(orvil_program({"get", path, "x"}), 0, "Decimal 1\n", "");
}

TEST(OrvilGetText, AbsentNameFails) {
    expect_result(orvil_program({"get", "examples/data/fonts.cfg", "Weight"}), 1, "",
                  "orvil: examples/data/fonts.cfg assigns nothing to Weight\n");
}

TEST(OrvilGetText, NameOfABlockIsNoAssignment) {
    expect_result(orvil_program({"get", "examples/data/fonts.cfg", "Gothic"}), 1, "",
                  "orvil: examples/data/fonts.cfg assigns nothing to Gothic\n");
}

TEST(OrvilGetText, DeepestOfAHundredThousandBlocksIsFound) {
    const TempDir folder;
    const std::string path = folder.write("x.cfg", repeated("x{", 100000) + "y = 1;" + repeated("}", 100000));
    expect_result(orvil_program({"get", path, "y"}), 0, "Decimal 1\n", "");
}

TEST(OrvilGetText, MissingFileFails) {
    const TempDir folder;
    const std::string path = folder.path("none.cfg");
    expect_result(orvil_program({"get", path, "x"}), 1, "", "orvil: Can not open source file [" + path + "]\n");
}

TEST(OrvilGetText, TextThatNamesNothingIsAMisuse) {
    expect_result(orvil_program({"get", "examples/data/fonts.cfg", "Face"}), 64, "",
                  "orvil: 'Face' is no name: it reads as a hexadecimal number, as all words of the letters a to f do\n"
                  "usage: orvil get FILE NAME\n");
    expect_result(orvil_program({"get", "examples/data/fonts.cfg", ""}), 64, "",
                  "orvil: a name is missing\nusage: orvil get FILE NAME\n");
}

TEST(OrvilGetText, NeedsAFileAndAName) {
    expect_result(orvil_program({"get", "examples/data/fonts.cfg"}), 64, "",
                  "orvil: a file and a name are needed\nusage: orvil get FILE NAME\n");
}

}  // namespace
}  // namespace orvil::test
