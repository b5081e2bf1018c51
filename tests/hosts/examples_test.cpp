#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/run_program.h"
#include "support/temp_dir.h"
#include "support/working_folder.h"

namespace orvil::test {
namespace {

TEST(Examples, BackUpFilesKeepsNumberedCopies) {
    const TempDir folder;
    folder.write("plan.cfg", "12345");
    folder.write("50%d.cfg", "");
    folder.write("note.txt", "");
    const InFolder inside(folder.path(""));
    for (const char* number : {"1", "2"}) {
        const ProgramResult result = run_program("back_up_files", {"*.CFG"});
        EXPECT_EQ(result.exit_code, 0);
        EXPECT_EQ(result.out,
                  std::string("50%d.cfg: 0 bytes, backup ") + number + "\nplan.cfg: 5 bytes, backup " + number + "\n");
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(read_file(std::string("plan.cfg.") + number + ".bak"), "12345");
        EXPECT_EQ(read_file(std::string("50%d.cfg.") + number + ".bak"), "");
    }
}

TEST(Examples, BackUpFilesNeedsAWildcard) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"a|b"}, {"a", "b"}}) {
        const ProgramResult result = run_program("back_up_files", arguments);
        EXPECT_EQ(result.exit_code, 1);
        EXPECT_EQ(result.err, "usage: back_up_files WILDCARD\n");
    }
}

TEST(Examples, CollectRecordsPrintsRecordsTablesAndItems) {
    const ProgramResult result = run_program("collect_records", {});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.out,
              "pen has 3 records\n"
              "  colour: i\n"
              "  name: s\n"
              "  width: d\n"
              "width as text 0.350000000000000\n"
              "Pens of the plotter: Label 100, Value 100\n"
              "1 pens\n"
              "colour ==> (Int) [7]\n"
              "name ==> (Str) [pen 7]\n"
              "width ==> (Dbl) [0.350000]\n"
              "layers: Walls, Doors\n"
              "doors has colour 3\n");
    EXPECT_EQ(result.err, "");
}

TEST(Examples, ExplainErrorsFindsMapAndMessageOfEachNumber) {
    const ProgramResult result =
        run_program("explain_errors", {"examples/data/messages.cfg", "121001", "100", "31009"});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.out,
              "error 121001: The file cannot be read\n"
              "note 100: Converting drawings\n"
              "error 31009: The error is unknown\n");
    EXPECT_EQ(result.err, "");
}

TEST(Examples, ExplainErrorsNeedsAFile) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{}, {"examples/data/none.cfg", "5"}}) {
        const ProgramResult result = run_program("explain_errors", arguments);
        EXPECT_EQ(result.exit_code, 1);
        EXPECT_EQ(result.err, "usage: explain_errors FILE NUMBER...\n");
    }
}

TEST(Examples, ListLayersPrintsTheLayersSample) {
    const ProgramResult result = run_program("list_layers", {"examples/data/layers.cfg"});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.out,
              "Outline  0.35 mm, shown\n"
              "Hidden   0.18 mm, hidden\n"
              "Text     0.25 mm, shown\n");
    EXPECT_EQ(result.err, "");
}

TEST(Examples, ListLayersSaysThatAFileIsMissing) {
    const ProgramResult result = run_program("list_layers", {"examples/data/none.cfg"});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "cannot read the layers: Can not open source file [examples/data/none.cfg]\n");
}

TEST(Examples, PlaceFigurePrintsThePlacedDoor) {
    const ProgramResult result = run_program("place_figure", {});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.out,
              "leaf from (4.00, 2.00) to (4.00, 2.90)\n"
              "swing about (4.00, 2.00), radius 0.90, from 0 to 90 degrees\n");
    EXPECT_EQ(result.err, "");
}

TEST(Examples, RoundCornerFitsAnArcBetweenWalls) {
    const ProgramResult result = run_program("round_corner", {"1", "0", "1", "3.5", "1", "4", "4", "4", "1.5"});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.out,
              "corner (4.000, 1.000)\n"
              "walls end at (3.000, 1.000) and (4.000, 2.000)\n"
              "arc about (3.000, 2.000) from 270.0 to 360.0 degrees\n");
    EXPECT_EQ(run_program("round_corner", {"1", "4", "4", "4", "1", "0", "1", "4", "1"}).out,
              "corner (4.000, 1.000)\n"
              "walls end at (4.000, 2.000) and (3.000, 1.000)\n"
              "arc about (3.000, 2.000) from 270.0 to 360.0 degrees\n");
}

TEST(Examples, RoundCornerSaysWhatIsWrongWithTheWalls) {
    const ProgramResult parallel = run_program("round_corner", {"1", "0", "0", "4", "0", "0", "3", "4", "3"});
    EXPECT_EQ(parallel.exit_code, 1);
    EXPECT_EQ(parallel.err, "round_corner: the walls are parallel\n");
    const ProgramResult tight = run_program("round_corner", {"5", "0", "0", "4", "0", "4", "3", "4", "0"});
    EXPECT_EQ(tight.err, "round_corner: a wall is too short for this radius\n");
    EXPECT_EQ(run_program("round_corner", {"1"}).exit_code, 2);
}

TEST(Examples, ReadSettingsPrintsTheLayers) {
    const ProgramResult result = run_program("read_settings", {"examples/data/layers.cfg"});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.out,
              "layer 0 Outline: shown, 0.35 mm, colour FF0000\n"
              "  pen Thin\n"
              "  pen Medium\n"
              "layer 1 Hidden: hidden, 0.18 mm, colour 808080\n"
              "  pen Thin\n"
              "layer 2 Text: shown, 0.25 mm, colour 0000FF\n"
              "  pen Medium\n"
              "  pen Thick\n"
              "  pen Marker, red\n");
    EXPECT_EQ(result.err, "");
}

TEST(Examples, ReadSettingsNeedsLayers) {
    const ProgramResult result = run_program("read_settings", {"examples/data/fonts.cfg"});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.err, "there is no block Layers\n");
}

TEST(Examples, WriteSettingsWritesHeadingBlocksAndListing) {
    const TempDir folder;
    const ProgramResult result = run_program("write_settings", {folder.path("page.cfg")});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(read_file(folder.path("page.cfg")),
              "// page.cfg : \r\n"
              "/***************************/\r\n"
              "/*  Page settings          */\r\n"
              "/*  Written by an example  */\r\n"
              "/***************************/\r\n"
              "\r\n"
              "\r\n"
              "Page {\r\n"
              "\tKind = \"page settings\";\r\n"
              "\tWidth = 841.0;\r\n"
              "\tColour = 0x00FF8000;\r\n"
              "\tBorder = On;\r\n"
              "\tTitle = \"Sheet \\\"1\\\"\";\r\n"
              "\r\n"
              "\tMargins {\r\n"
              "\t\tLeft = 10;\r\n"
              "\t\tRight = 20;\r\n"
              "\t}\r\n"
              "}\r\n"
              "1 2 5 10\r\n"
              "\r\n"
              "/* END OF FILE */\r\n"
              "\r\n");
}

TEST(Examples, WriteSettingsSaysThatItCannotWrite) {
    const TempDir folder;
    const std::string path = folder.path("none/page.cfg");
    const ProgramResult result = run_program("write_settings", {path});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.err, path + " cannot be written\n");
}

TEST(Examples, ConvertOptionsPrintsWhatWasGiven) {
    const ProgramResult result = run_program("convert_options", {"--scale=2.5", "--layer", "Outline", "-l", "Text",
                                                                 "-v", "-o", "plot.out", "sheet1.plt", "sheet2.plt"});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.out,
              "output  plot.out\n"
              "scale   2.5\n"
              "layer   Outline\n"
              "layer   Text\n"
              "file    sheet1.plt\n"
              "file    sheet2.plt\n"
              "--- Scalar map [2] items. ---\n"
              "  0-scale: 2.5\n"
              "  1-output: plot.out\n"
              "\n"
              "--- List map [1] lists. ---\n"
              "  layer-0: Outline\n"
              "  layer-1: Text\n"
              "\n");
    EXPECT_EQ(result.err, "");
}

TEST(Examples, ConvertOptionsSaysWhichArgumentIsWrong) {
    const ProgramResult result = run_program("convert_options", {"sheet1.plt", "--colour", "red"});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "argument 2: unknown option name 'colour'\n");
}

TEST(Examples, StringsAndRegexPrintsItsSteps) {
    const ProgramResult result = run_program("strings_and_regex", {});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.out,
              "drawings/in/sheet007.plt has 24 bytes\n"
              "kind sheet, number 007\n"
              "drawings/out/sheet007.plt\n"
              "0: pen  Medium\n"
              "1: pen Thick\n"
              "2: pen Thin\n");
    EXPECT_EQ(result.err, "");
}

// A natural cubic rises by 11/16 of the way to its middle in the first half of it, as its moments are 0, -3/2 and 0.
TEST(Examples, DrawCurvePassesThroughThePoints) {
    const ProgramResult result = run_program("draw_curve", {"0", "0", "8", "4", "16", "0"});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.out,
              "0.000 0.000\n2.000 1.469\n4.000 2.750\n6.000 3.656\n8.000 4.000\n"
              "10.000 3.656\n12.000 2.750\n14.000 1.469\n16.000 0.000\n");
}

TEST(Examples, DrawCurveJoinsTwoPointsAndCoincidentOnesStraight) {
    EXPECT_EQ(run_program("draw_curve", {"0", "0", "8", "4"}).out, "0.000 0.000\n8.000 4.000\n");
    EXPECT_EQ(run_program("draw_curve", {"0", "0", "8", "4", "8", "4"}).out, "0.000 0.000\n8.000 4.000\n8.000 4.000\n");
}

TEST(Examples, DrawCurveNeedsPairs) {
    const ProgramResult result = run_program("draw_curve", {"0", "0", "8", "4", "16"});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.err, "usage: draw_curve X Y X Y ...\n");
}

}  // namespace
}  // namespace orvil::test
