#include <algorithm>
#include <filesystem>

#include "orvil_program.h"

namespace orvil::test {
namespace {

// A folder with three plans, one of them a folder, and a note.
class OrvilFind : public testing::Test {
protected:
    void SetUp() override {
        folder.write("plan1.cfg", "");
        folder.write("Plan2.CFG", "");
        folder.write("note.txt", "");
        std::filesystem::create_directory(folder.path("plan3.cfg"));
        folder.write("plan3.cfg/plan4.cfg", "");
    }

    ProgramResult find(const std::vector<std::string>& more) const {
        std::vector<std::string> arguments{"find", folder.path("")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return orvil_program(arguments);
    }

    // The lines that these entries give.
    std::string lines(const std::vector<std::string>& names) const {
        std::string text;
        for (const std::string& name : names) {
            text += std::filesystem::path(folder.path(name)).make_preferred().string() + "\n";
        }
        return text;
    }

    const TempDir folder;
};

TEST_F(OrvilFind, PrintsPathsInOrderAndFoldersWithASeparator) {
    expect_result(find({"*.cfg"}), 0, lines({"Plan2.CFG", "plan1.cfg", "plan3.cfg/"}), "");
}

TEST_F(OrvilFind, LeavesOutTheDots) {
    expect_result(find({"*"}), 0, lines({"Plan2.CFG", "note.txt", "plan1.cfg", "plan3.cfg/"}), "");
}

TEST_F(OrvilFind, QuestionMarkIsOneByte) {
    expect_result(find({"plan?.cf?"}), 0, lines({"Plan2.CFG", "plan1.cfg", "plan3.cfg/"}), "");
    expect_result(find({"n?te.txt"}), 0, lines({"note.txt"}), "");
}

TEST_F(OrvilFind, RegexIsMatchedInItsCase) {
    expect_result(find({"/^p.*[12]/", "--regex"}), 0, lines({"plan1.cfg"}), "");
    expect_result(find({"--regex", "/^p.*[12]/i"}), 0, lines({"Plan2.CFG", "plan1.cfg"}), "");
}

TEST_F(OrvilFind, NothingThatMatchesFails) {
    expect_result(find({"*.none"}), 1, "", "orvil: nothing in " + folder.path("") + " matches *.none\n");
}

TEST_F(OrvilFind, WhatIsNoFolderFails) {
    for (const std::string& path : {folder.path("none"), folder.path("note.txt")}) {
        expect_result(orvil_program({"find", path, "*"}), 1, "",
                      "orvil: " + path + " is no folder that can be searched\n");
    }
}

TEST_F(OrvilFind, PatternMustBeValid) {
    const std::string usage = "usage: orvil find DIR PATTERN [--regex]\n";
    expect_result(find({"a|b"}), 64, "", "orvil: a|b is no valid pattern\n" + usage);
    expect_result(find({"plan", "--regex"}), 64, "", "orvil: plan is no valid pattern\n" + usage);
    expect_result(find({""}), 64, "", "orvil:  is no valid pattern\n" + usage);
}

TEST_F(OrvilFind, NeedsAFolderAndAPattern) {
    const std::string trouble = "orvil: a folder and a pattern are needed\nusage: orvil find DIR PATTERN [--regex]\n";
    expect_result(orvil_program({"find", "."}), 64, "", trouble);
    expect_result(find({"*", "*"}), 64, "", trouble);
}

}  // namespace
}  // namespace orvil::test
