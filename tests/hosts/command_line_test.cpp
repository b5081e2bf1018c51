#include <filesystem>

#include "orvil_program.h"

namespace orvil::test {
namespace {

TEST(OrvilCommandLine, HelpListsTheCommands) {
    const char* help =
        "usage: orvil COMMAND ...\n"
        "\n"
        "Looks into token-block files and writes them; finds files and backs them up.\n"
        "\n"
        "  check     say whether files read whole, and where they do not\n"
        "  tree      print the tree that a file reads into\n"
        "  get       print the values of a name\n"
        "  format    write a file anew in the standard layout\n"
        "  new       make a file with one block of settings\n"
        "  messages  list messages, look one up, or put message files together\n"
        "  figure    draw figures, and where they meet, as SVG\n"
        "  params    print the parameters of blocks as tables\n"
        "  curve     draw NURBS curves as SVG, and write their segments\n"
        "  find      print the paths of matching files and folders\n"
        "  backup    copy a file under the next free number\n"
        "\n"
        "orvil COMMAND --help    more about a command\n"
        "orvil --version         the program's version\n"
        "Exit code 64 means that the command line makes no sense.\n";
    expect_result(orvil_program({"--help"}), 0, help, "");
}

TEST(OrvilCommandLine, HelpIsACommandToo) {
    expect_result(orvil_program({"help"}), 0, orvil_program({"--help"}).out, "");
}

TEST(OrvilCommandLine, EachCommandHasItsHelp) {
    for (const std::string command :
         {"check", "tree", "get", "format", "new", "messages", "figure", "params", "curve", "find", "backup"}) {
        const ProgramResult result = orvil_program({command, "--help"});
        EXPECT_EQ(result.exit_code, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.out.find("usage: orvil " + command + " "), 0U) << result.out;
        EXPECT_NE(result.out.find("\nExit codes: 0 "), std::string::npos) << result.out;
    }
}

TEST(OrvilCommandLine, VersionIsThatOfTheProject) {
    expect_result(orvil_program({"--version"}), 0, "orvil " ORVIL_EXPECTED_VERSION "\n", "");
}

TEST(OrvilCommandLine, NoCommandIsAMisuse) {
    expect_result(orvil_program({}), 64, "", "orvil: a command is needed; orvil --help lists them\n");
}

TEST(OrvilCommandLine, UnknownCommandIsAMisuse) {
    expect_result(orvil_program({"chekc", "x"}), 64, "", "orvil: there is no command chekc; orvil --help lists them\n");
}

TEST(OrvilCommandLine, UnknownOptionIsAMisuse) {
    expect_result(orvil_program({"check", "--fast"}), 64, "",
                  "orvil: there is no option --fast\nusage: orvil check FILE...\n");
}

TEST(OrvilCommandLine, OptionWithoutItsValueIsAMisuse) {
    expect_result(orvil_program({"format", "x", "-o"}), 64, "",
                  "orvil: option -o needs a value\nusage: orvil format FILE -o OUT [--drop]\n");
}

TEST(OrvilCommandLine, OptionGivenTwiceIsAMisuse) {
    expect_result(orvil_program({"format", "x", "-o", "y", "-o", "z"}), 64, "",
                  "orvil: option -o is given twice\nusage: orvil format FILE -o OUT [--drop]\n");
}

TEST(OrvilCommandLine, OptionGivenTwiceInSeveralFormsIsAMisuse) {
    expect_result(orvil_program({"format", "x", "--out=y", "-o:z"}), 64, "",
                  "orvil: option -o is given twice\nusage: orvil format FILE -o OUT [--drop]\n");
    expect_result(orvil_program({"new", "--block", "a", "--block=b"}), 64, "",
                  "orvil: option --block is given twice\nusage: orvil new -o OUT [--block NAME] NAME=VALUE...\n");
}

TEST(OrvilCommandLine, UnknownOptionIsNamedAsItStands) {
    const std::string usage = "\nusage: orvil format FILE -o OUT [--drop]\n";
    for (const std::string option : {"-x", "-ox", "--outer", "--out=", "-1", "---", "--=x"}) {
        expect_result(orvil_program({"format", "a", "-o", "b", "--drop", option, "c"}), 64, "",
                      "orvil: there is no option " + option + usage);
    }
}

TEST(OrvilCommandLine, SwitchWithAValueThatSaysNothingIsAMisuse) {
    expect_result(orvil_program({"format", "x", "-o", "y", "--drop=maybe"}), 64, "",
                  "orvil: value 'maybe' is not boolean symbol : name [drop]\n"
                  "usage: orvil format FILE -o OUT [--drop]\n");
}

TEST(OrvilCommandLine, EachFormOfAValueIsTaken) {
    const TempDir folder;
    const std::string out = folder.path("made.cfg");
    const std::vector<std::vector<std::string>> forms = {{"-o", out},    {"-o=" + out},    {"-o:" + out},
                                                         {"--out", out}, {"--out=" + out}, {"--out:" + out}};
    for (std::vector<std::string> form : forms) {
        form.insert(form.begin(), "new");
        form.emplace_back("x=1");
        expect_result(orvil_program(form), 0, "", "");
        EXPECT_TRUE(std::filesystem::remove(out));
    }
}

// A value may begin with a dash; the option parser alone would leave the option out.
TEST(OrvilCommandLine, ValueMayBeginWithADash) {
    const TempDir folder;
    expect_result(orvil_program({"new", "-o", folder.path("x"), "--block", "-", "x=1"}), 64, "",
                  "orvil: '-' is no name: it reads as a delimiter\n"
                  "usage: orvil new -o OUT [--block NAME] NAME=VALUE...\n");
}

TEST(OrvilCommandLine, EmptyValueIsAValue) {
    expect_result(orvil_program({"format", "x", "-o", ""}), 64, "",
                  "orvil: one file and -o with a file are needed\nusage: orvil format FILE -o OUT [--drop]\n");
}

TEST(OrvilCommandLine, ValueBeforeTwoDashesIsMissing) {
    expect_result(orvil_program({"format", "-o", "--", "x"}), 64, "",
                  "orvil: option -o needs a value\nusage: orvil format FILE -o OUT [--drop]\n");
}

// "plan" ends like "n", which the option parser alone would take for the switch's value.
TEST(OrvilCommandLine, WordBehindASwitchIsNotItsValue) {
    const TempDir folder;
    expect_result(orvil_program({"format", "--drop", "no such plan", "-o", folder.path("x")}), 1, "",
                  "orvil: Can not open source file [no such plan]\n");
    const ProgramResult help = orvil_program({"check", "--help", "no"});
    EXPECT_EQ(help.out, orvil_program({"check", "--help"}).out);
}

TEST(OrvilCommandLine, SwitchMayBeTurnedOff) {
    expect_result(orvil_program({"check", "--help=no"}), 64, "",
                  "orvil: no file is given\nusage: orvil check FILE...\n");
}

TEST(OrvilCommandLine, SingleDashIsAWord) {
    expect_result(orvil_program({"check", "-"}), 1, "", "orvil: Can not open source file [-]\n");
}

TEST(OrvilCommandLine, BehindTwoDashesEverythingIsAWord) {
    expect_result(orvil_program({"check", "--", "--help"}), 1, "", "orvil: Can not open source file [--help]\n");
}

}  // namespace
}  // namespace orvil::test
