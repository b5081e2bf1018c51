#include <filesystem>

#include "orvil_program.h"

namespace orvil::test {
namespace {

class OrvilBackup : public testing::Test {
protected:
    OrvilBackup() : file(folder.write("plan.cfg", "x = 1;")), pattern(folder.path("plan.%d.bak")) {
        folder.write("plan.1.bak", "first");
    }

    const TempDir folder;
    const std::string file;
    const std::string pattern;
    const std::string usage = "usage: orvil backup FILE PATTERN [--limit N]\n";
};

TEST_F(OrvilBackup, CopiesToTheFirstFreeNumber) {
    const std::string second = folder.path("plan.2.bak");
    expect_result(orvil_program({"backup", file, pattern}), 0, file + " is kept as " + second + "\n", "");
    EXPECT_EQ(read_file(second), "x = 1;");
    EXPECT_EQ(read_file(folder.path("plan.1.bak")), "first");
}

TEST_F(OrvilBackup, LimitIsTheFirstNumberThatIsNotTried) {
    expect_result(orvil_program({"backup", file, pattern, "--limit", "2"}), 1, "",
                  "orvil: all numbers below 2 are taken\n");
    EXPECT_FALSE(std::filesystem::exists(folder.path("plan.2.bak")));
    expect_result(orvil_program({"backup", "--limit=3", file, pattern}), 0,
                  file + " is kept as " + folder.path("plan.2.bak") + "\n", "");
}

TEST_F(OrvilBackup, PlainNameReplacesWhatIsThere) {
    const std::string first = folder.path("plan.1.bak");
    expect_result(orvil_program({"backup", file, first}), 0, file + " is kept as " + first + "\n", "");
    EXPECT_EQ(read_file(first), "x = 1;");
}

TEST_F(OrvilBackup, TwoPercentSignsAreOne) {
    expect_result(orvil_program({"backup", file, folder.path("50%% %d")}), 0,
                  file + " is kept as " + folder.path("50% 1") + "\n", "");
    EXPECT_EQ(read_file(folder.path("50% 1")), "x = 1;");
}

TEST_F(OrvilBackup, OtherPercentSignsMakeNoSense) {
    const std::string two = folder.path("%d.%s");
    expect_result(orvil_program({"backup", file, two}), 64, "",
                  "orvil: " + two + " may hold %d once, and %% for a percent sign, and no other %\n" + usage);
}

TEST_F(OrvilBackup, WhatIsNoFileFails) {
    std::filesystem::create_directory(folder.path("sub"));
    for (const std::string& path : {folder.path("none"), folder.path("sub"), std::string()}) {
        expect_result(orvil_program({"backup", path, pattern}), 1, "",
                      "orvil: " + path + " is no file that can be copied\n");
    }
}

TEST_F(OrvilBackup, TargetThatCannotBeMadeFails) {
    expect_result(orvil_program({"backup", file, folder.path("none/%d"), "--limit", "9"}), 1, "",
                  "orvil: " + file + " cannot be copied to " + folder.path("none/1") + "\n");
    expect_result(orvil_program({"backup", file, file}), 1, "",
                  "orvil: " + file + " cannot be copied to " + file + "\n");
}

TEST_F(OrvilBackup, LimitIsAWholeNumberFromTwoOn) {
    for (const char* limit : {"1", "0", "-3", "x", "2.5"}) {
        const ProgramResult result = orvil_program({"backup", file, pattern, std::string("--limit=") + limit});
        expect_result(result, 64, "", "orvil: a limit is a whole number from 2 on\n" + usage);
    }
}

TEST_F(OrvilBackup, NeedsAFileAndAName) {
    const std::string trouble = "orvil: a file and a name for its backup are needed\n" + usage;
    expect_result(orvil_program({"backup", file}), 64, "", trouble);
    expect_result(orvil_program({"backup", file, pattern, "more"}), 64, "", trouble);
}

}  // namespace
}  // namespace orvil::test
