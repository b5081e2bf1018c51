#include "orvil_program.h"

namespace orvil::test {
namespace {

const std::string kSamples = "examples/data/messages.cfg";
const std::string kSite = "examples/data/site_messages.cfg";
const std::string kUsage = "usage: orvil messages FILE [--code N] | FILE... -o OUT\n";

// A file with one map of these entries, code 2, title T.
std::string map_file(const TempDir& folder, const std::string& entries, int code = 2) {
    return folder.write("map.cfg", "MessageMap { Subject { Title = \"T\"; KeyCode = " + std::to_string(code) + "; } " +
                                       entries + " }\n");
}

// --- listing --------------------------------------------------------------------------------------------------------

TEST(OrvilMessages, ListsMapsByCodeWithTheirErrorNumbers) {
    expect_result(orvil_program({"messages", kSamples}), 0,
                  "0 \"Converter\"\n"
                  "  100 \"Converting drawings\"\n"
                  "  101 \"%1% of %2% sheets\"\n"
                  "  1001 \"The input folder is missing\"\n"
                  "  1002 \"The output folder cannot be written\"\n"
                  "3 \"Writing sheets\"\n"
                  "  31001 \"The sheet \\\"%1%\\\" is larger than the paper\"\n"
                  "  31002 \"The pen %1% has no width\"\n"
                  "12 \"Reading drawings\"\n"
                  "  121001 \"The file cannot be read\"\n"
                  "  121002 \"The kind of entity is unknown: %1%\"\n"
                  "  121003 \"The layer %1% is not in the table of layers\"\n"
                  "  123456 \"The file ends inside of an entity.\\nIt has been cut off, most likely while it was "
                  "copied.\"\n",
                  "");
}

TEST(OrvilMessages, SaysWhatMakesNoMessage) {
    const TempDir folder;
    const std::string path = map_file(folder, "1 \"one\" 10000 \"big\" x = 5; 7");
    expect_result(orvil_program({"messages", path}), 0, "2 \"T\"\n  20001 \"one\"\n",
                  "orvil: " + path + ": 4 entries make no message in map 2 'T'\n");
}

TEST(OrvilMessages, SaysASingleEntryThatMakesNoMessage) {
    const TempDir folder;
    const std::string path = map_file(folder, "1 \"one\" 7");
    expect_result(orvil_program({"messages", path}), 0, "2 \"T\"\n  20001 \"one\"\n",
                  "orvil: " + path + ": 1 entry makes no message in map 2 'T'\n");
}

TEST(OrvilMessages, SaysCodesThatOccurAgain) {
    const TempDir folder;
    const std::string path = map_file(folder, "1 \"old\" 1 \"new\"");
    expect_result(orvil_program({"messages", path}), 0, "2 \"T\"\n  20001 \"old\"\n  20001 \"new\"\n",
                  "orvil: " + path + ": map 2 'T' has message 1 again; the last one counts\n");
}

TEST(OrvilMessages, SaysMapsThatAreRefusedAndEntriesThatAreNone) {
    const TempDir folder;
    const std::string path = folder.write("maps.cfg",
                                          "x = 1;\nMessageMap { 1 \"one\" }\n"
                                          "MessageMap { Subject { Title = \"T\"; KeyCode = 2; } }\n"
                                          "MessageMap { Subject { Title = \"U\"; KeyCode = 2; } }\n");
    expect_result(orvil_program({"messages", path}), 0, "2 \"T\"\n",
                  "orvil: " + path + ": a map is refused: it has no Subject with a Title and a KeyCode\n" +
                      "orvil: " + path + ": map 2 'U' is refused: " + path + " has a map of that code\n" +
                      "orvil: " + path + ": 1 entry is no message map\n");
}

TEST(OrvilMessages, FileWithoutMapsFails) {
    expect_result(orvil_program({"messages", "examples/data/layers.cfg"}), 1, "",
                  "orvil: examples/data/layers.cfg: 2 entries are no message maps\n"
                  "orvil: there is no message map in examples/data/layers.cfg\n");
}

TEST(OrvilMessages, DamagedFileFailsWithTheParsersMessage) {
    const TempDir folder;
    const std::string path = folder.write("bad.cfg", "MessageMap 5\n");
    expect_result(orvil_program({"messages", path}), 1, "",
                  path +
                      ":1:12: expected '=' or '{' after 'MessageMap', found '5' "
                      "(Not supported grammer. Token:5)\n");
    expect_result(orvil_program({"messages", "examples/data/broken.cfg"}), 1, "",
                  "examples/data/broken.cfg:5:12: expected '=' or '{' after 'Height', found '594.0'\n");
}

TEST(OrvilMessages, MissingFileFails) {
    const TempDir folder;
    const std::string path = folder.path("none.cfg");
    expect_result(orvil_program({"messages", path}), 1, "", "orvil: Can not open source file [" + path + "]\n");
}

// --- looking up -----------------------------------------------------------------------------------------------------

TEST(OrvilMessagesCode, PrintsTheTextOfAnErrorNumber) {
    expect_result(orvil_program({"messages", kSamples, "--code", "121002"}), 0, "The kind of entity is unknown: %1%\n",
                  "");
    expect_result(orvil_program({"messages", kSamples, "--code", "101"}), 0, "%1% of %2% sheets\n", "");
    expect_result(orvil_program({"messages", kSamples, "--code", "123456"}), 0,
                  "The file ends inside of an entity.\nIt has been cut off, most likely while it was copied.\n", "");
}

TEST(OrvilMessagesCode, LastMessageOfACodeCounts) {
    const TempDir folder;
    const std::string path = map_file(folder, "1 \"old\" 1 \"new\"");
    EXPECT_EQ(orvil_program({"messages", path, "--code", "20001"}).out, "new\n");
}

TEST(OrvilMessagesCode, NumbersOfNegativeMapsAndOfThoseBeyondThirtyTwoBitsAreFound) {
    const TempDir folder;
    EXPECT_EQ(orvil_program({"messages", map_file(folder, "5 \"five\"", -3), "--code", "-29995"}).out, "five\n");
    EXPECT_EQ(orvil_program({"messages", map_file(folder, "5 \"five\"", 429497), "--code", "2709"}).out, "five\n");
}

TEST(OrvilMessagesCode, NumberWithoutAMessageFails) {
    for (const char* number : {"121004", "130001", "-1", "9999"}) {
        expect_result(orvil_program({"messages", kSamples, "--code", number}), 1, "",
                      "orvil: " + kSamples + " has no message " + number + "\n");
    }
}

TEST(OrvilMessagesCode, WhatIsNoNumberIsAMisuse) {
    for (const char* number : {"", "x", "5x", " 5", "0x5", "1.5", "2147483648", "-2147483649"}) {
        expect_result(orvil_program({"messages", kSamples, "--code", number}), 64, "",
                      "orvil: --code needs a number of 32 bits\n" + kUsage);
    }
}

// --- putting together -----------------------------------------------------------------------------------------------

TEST(OrvilMessagesMerge, WritesTheMapsOfAllFilesAndSaysWhichWereRefused) {
    const TempDir folder;
    const std::string out = folder.path("out.cfg");
    expect_result(orvil_program({"messages", kSamples, kSite, "-o", out}), 0, "",
                  "orvil: " + kSite + ": map 3 'Plotting' is refused: " + kSamples + " has a map of that code\n");
    const ProgramResult listed = orvil_program({"messages", out});
    const std::string sample = orvil_program({"messages", kSamples}).out;
    expect_result(listed, 0,
                  sample +
                      "50 \"Archive\"\n"
                      "  501001 \"The drawing is in the archive already\"\n"
                      "  501002 \"The drawing number %1% is not free\"\n",
                  "");
}

TEST(OrvilMessagesMerge, LaysTheFileOutToTheByte) {
    const TempDir folder;
    const std::string out = folder.path("out.cfg");
    expect_result(orvil_program({"messages", map_file(folder, "7 \"b\" 1 \"a\""), "-o", out}), 0, "", "");
    EXPECT_EQ(read_file(out),
              "// out.cfg : \r\n"
              "/************************************/\r\n"
              "/*  Messages put together by orvil  */\r\n"
              "/************************************/\r\n"
              "\r\n"
              "\r\n"
              "MessageMap {\r\n"
              "\r\n"
              "\tSubject {\r\n"
              "\t\tTitle = \"T\";\r\n"
              "\t\tKeyCode = 2;\r\n"
              "\t}\r\n"
              "\t1 \"a\"\r\n"
              "\t7 \"b\"\r\n"
              "}\r\n"
              "\r\n"
              "/* END OF FILE */\r\n"
              "\r\n");
}

TEST(OrvilMessagesMerge, TargetMayBeOneOfTheFiles) {
    const TempDir folder;
    const std::string path = map_file(folder, "7 \"b\" 1 \"a\"");
    EXPECT_EQ(orvil_program({"messages", path, kSite, "-o", path}).exit_code, 0);
    const std::string listed = orvil_program({"messages", path}).out;
    EXPECT_EQ(listed.substr(0, listed.find("3 ")), "2 \"T\"\n  20001 \"a\"\n  20007 \"b\"\n");
}

TEST(OrvilMessagesMerge, DamagedFileLeavesTheTargetAsItIs) {
    const TempDir folder;
    const std::string out = folder.write("out.cfg", "old");
    const std::string bad = folder.write("bad.cfg", "MessageMap 5\n");
    EXPECT_EQ(orvil_program({"messages", kSamples, bad, "-o", out}).exit_code, 1);
    EXPECT_EQ(orvil_program({"messages", bad, kSamples, "-o", out}).exit_code, 1);
    EXPECT_EQ(orvil_program({"messages", "examples/data/layers.cfg", "-o", out}).exit_code, 1);
    EXPECT_EQ(read_file(out), "old");
}

TEST(OrvilMessagesMerge, TargetThatCannotBeWrittenFails) {
    const TempDir folder;
    const std::string out = folder.path("none/out.cfg");
    expect_result(orvil_program({"messages", kSamples, "-o", out}), 1, "", "orvil: " + out + " cannot be written\n");
    expect_result(orvil_program({"messages", kSamples, "-o", folder.path(".")}), 1, "",
                  "orvil: " + folder.path(".") + " is a folder\n");
}

// --- the command line -----------------------------------------------------------------------------------------------

TEST(OrvilMessagesLine, NeedsOneFileOrATarget) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{}, {kSamples, kSite}}) {
        std::vector<std::string> arguments{"messages"};
        arguments.insert(arguments.end(), words.begin(), words.end());
        expect_result(orvil_program(arguments), 64, "", "orvil: one file, or -o with a file, is needed\n" + kUsage);
    }
}

TEST(OrvilMessagesLine, TargetNeedsFilesAndAName) {
    const std::string trouble = "orvil: files, and -o with a file, are needed\n" + kUsage;
    expect_result(orvil_program({"messages", "-o", "out.cfg"}), 64, "", trouble);
    expect_result(orvil_program({"messages", kSamples, "-o", ""}), 64, "", trouble);
}

TEST(OrvilMessagesLine, CodeAndTargetDoNotGoTogether) {
    expect_result(orvil_program({"messages", kSamples, "--code", "5", "-o", "out.cfg"}), 64, "",
                  "orvil: --code and -o do not go together\n" + kUsage);
}

}  // namespace
}  // namespace orvil::test
