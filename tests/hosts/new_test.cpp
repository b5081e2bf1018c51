#include "orvil_program.h"

namespace orvil::test {
namespace {

const char* const kUsage = "usage: orvil new -o OUT [--block NAME] NAME=VALUE...\n";

ProgramResult make_new(const std::string& target, std::vector<std::string> settings) {
    settings.insert(settings.begin(), {"new", "-o", target});
    return orvil_program(settings);
}

TEST(OrvilNew, WritesEachKindOfValue) {
    const TempDir folder;
    const std::string out = folder.path("made.cfg");
    expect_result(make_new(out, {"Count=-5", "Mask=0xff", "Scale=1.5", "Grid=On", "Snap=Off", "Title=Sheet \"1\""}), 0,
                  "", "");
    EXPECT_EQ(read_file(out),
              "// made.cfg : \r\n"
              "/*******************/\r\n"
              "/*  Made by orvil  */\r\n"
              "/*******************/\r\n"
              "\r\n"
              "\r\n"
              "Settings {\r\n"
              "\tCount = -5;\r\n"
              "\tMask = 0x000000FF;\r\n"
              "\tScale = 1.500000;\r\n"
              "\tGrid = On;\r\n"
              "\tSnap = Off;\r\n"
              "\tTitle = \"Sheet \\\"1\\\"\";\r\n"
              "}\r\n"
              "\r\n"
              "/* END OF FILE */\r\n"
              "\r\n");
}

TEST(OrvilNew, BlockTakesTheGivenName) {
    const TempDir folder;
    const std::string out = folder.path("made.cfg");
    expect_result(make_new(out, {"--block", "Page", "x=1"}), 0, "", "");
    EXPECT_NE(read_file(out).find("\r\nPage {\r\n\tx = 1;\r\n}\r\n"), std::string::npos);
}

struct Case {
    const char* situation;
    const char* value;
    const char* got;  // what `orvil get` prints for it
};

class OrvilNewValue : public testing::TestWithParam<Case> {};

TEST_P(OrvilNewValue, ReadsBack) {
    const TempDir folder;
    const std::string out = folder.path("made.cfg");
    expect_result(make_new(out, {std::string("x=") + GetParam().value}), 0, "", "");
    expect_result(orvil_program({"get", out, "x"}), 0, std::string(GetParam().got) + "\n", "");
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, OrvilNewValue,
    testing::Values(Case{"SignedDecimal", "+7", "Decimal 7"},
                    Case{"LeastDecimal", "-2147483648", "Decimal -2147483648"},
                    Case{"LargestDecimal", "2147483647", "Decimal 2147483647"},
                    Case{"LargestHexaDecimal", "0xFFFFFFFF", "HexaDecimal 0xFFFFFFFF"},
                    Case{"Exponent", "1e5", "Double 100000.000000"}, Case{"PointFirst", ".5", "Double 0.500000"},
                    Case{"SevenDigits", "0.1234567", "Double 0.123456700"},
                    Case{"TwelveDigits", "0.123456789012", "Double 0.123456789012"},
                    Case{"LargestWithoutExponent", "999999999999999.0", "Double 999999999999999.000000"},
                    Case{"LeadingZero", "007", "String \"007\""}, Case{"SeveralPoints", "1.2.3", "String \"1.2.3\""},
                    Case{"ExponentWithoutDigits", "1e", "String \"1e\""}, Case{"BarePrefix", "0x", "String \"0x\""},
                    Case{"HexaDecimalDigitsWithoutPrefix", "FF", "String \"FF\""},
                    Case{"LowerCaseOn", "on", "String \"on\""}, Case{"LeadingBlank", " 5", "String \" 5\""},
                    Case{"Blanks", "a  b", "String \"a  b\""}, Case{"EqualsSign", "a=b", "String \"a=b\""},
                    Case{"Percent", "100%d", "String \"100%d\""}, Case{"Delimiters", "};//", "String \"};//\""},
                    Case{"Backslashes", "c:\\new\\", "String \"c:\\\\new\\\\\""},
                    Case{"Apostrophe", "it's", "String \"it\\'s\""}),
    [](const auto& test) { return std::string(test.param.situation); });

class OrvilNewMisuse : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(OrvilNewMisuse, SaysWhyAndWritesNothing) {
    const TempDir folder;
    const std::string out = folder.path("made.cfg");
    expect_result(make_new(out, {"ok=1", GetParam().first}), 64, "",
                  std::string("orvil: ") + GetParam().second + "\n" + kUsage);
    EXPECT_FALSE(std::filesystem::exists(out));
}

INSTANTIATE_TEST_SUITE_P(
    Settings, OrvilNewMisuse,
    testing::Values(
        std::pair("Face=1",
                  "'Face' is no name: it reads as a hexadecimal number, as all words of the letters a to f do"),
        std::pair("12=1", "'12' is no name: it reads as a number"),
        std::pair("1.5=1", "'1.5' is no name: it reads as a number"),
        std::pair("+=1", "'+' is no name: it reads as a delimiter"),
        std::pair("a b=1", "'a b' is no name: ' ' cannot stand in one"),
        std::pair("x;y=1", "'x;y' is no name: ';' cannot stand in one"),
        std::pair("x\"y=1", "'x\"y' is no name: '\"' cannot stand in one"), std::pair("=1", "a name is missing"),
        std::pair("x\x7F=1", "'x\\x7F' is no name: '\\x7F' cannot stand in one"),
        std::pair("word", "'word' is not of the form NAME=VALUE"),
        std::pair("x=", "x is given an empty string, which a file cannot hold"), std::pair("ok=2", "ok is given twice"),
        std::pair("x=2147483648", "'2147483648' does not fit into 32 bits"),
        std::pair("x=-2147483649", "'-2147483649' does not fit into 32 bits"),
        std::pair("x=0x100000000", "'0x100000000' does not fit into 32 bits"),
        std::pair("x=1e999", "'1e999' does not fit into a double")));

TEST(OrvilNew, BlockNameOfTheLettersAToFIsAMisuse) {
    const TempDir folder;
    expect_result(
        make_new(folder.path("x"), {"--block", "cafe", "x=1"}), 64, "",
        "orvil: 'cafe' is no name: it reads as a hexadecimal number, as all words of the letters a to f do\n" +
            std::string(kUsage));
}

TEST(OrvilNew, NeedsATargetAndASetting) {
    const std::string said = std::string("orvil: -o with a file, and at least one NAME=VALUE, are needed\n") + kUsage;
    expect_result(orvil_program({"new", "x=1"}), 64, "", said);
    expect_result(orvil_program({"new", "-o", "x"}), 64, "", said);
}

TEST(OrvilNew, TargetInAMissingFolderCannotBeWritten) {
    const TempDir folder;
    const std::string out = folder.path("none/out.cfg");
    expect_result(make_new(out, {"x=1"}), 1, "", "orvil: " + out + " cannot be written\n");
}

TEST(OrvilNew, LargeDoubleIsWrittenWithAnExponent) {
    const TempDir folder;
    const std::string out = folder.path("made.cfg");
    expect_result(make_new(out, {"x=1e15"}), 0, "", "");
    EXPECT_EQ(orvil_program({"get", out, "x"}).out.find("Double 1.000000000000000e+"), 0U);
}

TEST(OrvilNew, SmallestDoubleKeepsItsValue) {
    const TempDir folder;
    const std::string out = folder.path("made.cfg");
    expect_result(make_new(out, {"x=4.9406564584124654e-324"}), 0, "", "");
    const std::string value = orvil_program({"get", out, "x"}).out;
    ASSERT_EQ(value.find("Double "), 0U) << value;
    EXPECT_EQ(std::strtod(value.c_str() + 7, nullptr), 4.9406564584124654e-324);
}

}  // namespace
}  // namespace orvil::test
