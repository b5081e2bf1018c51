#include <filesystem>

#include "orvil_program.h"

namespace orvil::test {
namespace {

// Writes a file of figures, and runs the command on it.
class OrvilFigure : public testing::Test {
protected:
    ProgramResult draw(const std::string& figures) {
        source_ = folder_.write("figures.cfg", figures);
        return orvil_program({"figure", source_, "-o", target()});
    }
    std::string target() const { return folder_.path("picture.svg"); }
    std::string picture() const { return read_file(target()); }
    bool is_written() const { return std::filesystem::exists(target()); }
    bool has(const std::string& text) const { return picture().find(text) != std::string::npos; }

    void expect_refused(const std::string& figures, const std::string& place, const std::string& what) {
        const ProgramResult result = draw(figures);
        expect_result(result, 1, "", source_ + ":" + place + ": expected " + what + "\n");
        EXPECT_FALSE(is_written());
    }

    TempDir folder_;
    std::string source_;
};

const std::string kWall = "Wall { Kind = Line; From { 0 0 } To { 4 3 } }\n";
const std::string kRail = "Rail { Kind = Line; From { 0 3 } To { 4 0 } }\n";
const std::string kDisc = "Disc { Kind = Circle; Centre { 0 0 } Radius = 5; }\n";

TEST_F(OrvilFigure, CrossingOfTwoLinesIsSaidAndDrawn) {
    expect_result(draw(kWall + kRail), 0, "Wall meets Rail at 2, 1.5\n", "");
    // The box is 4 by 3; 4 is 760 pixels, behind a margin of 40 and a title of 24.
    EXPECT_TRUE(has("<polyline class=\"figure\" points=\"40,634 800,64 \"/>"));
    EXPECT_TRUE(has("<circle class=\"dot-construction\" cx=\"420\" cy=\"349\" r=\"4\"/>"));
    EXPECT_TRUE(has(">Wall</text>"));
}

TEST_F(OrvilFigure, WholeFileIsOneSvgElement) {
    draw("Title = \"Two < three & more\";\n" + kWall);
    const std::string text = picture();
    EXPECT_EQ(text.rfind("<svg xmlns=\"http://www.w3.org/2000/svg\"", 0), 0U);
    EXPECT_EQ(text.substr(text.size() - 7), "</svg>\n");
    EXPECT_TRUE(has("<title>Two &lt; three &amp; more</title>"));
}

TEST_F(OrvilFigure, LinesThatMeetBeyondAnEndDoNotMeet) {
    expect_result(draw(kWall + "Short { Kind = Line; From { 0 3 } To { 1 2.25 } }\n"), 0, "", "");
}

TEST_F(OrvilFigure, LineMeetsACircleWithinItsEnds) {
    expect_result(draw(kDisc + "Bar { Kind = Line; From { 0 3 } To { 9 3 } }\n"), 0, "Disc meets Bar at 4, 3\n", "");
}

TEST_F(OrvilFigure, LineMeetsAnArcWithinItsAngles) {
    expect_result(draw("Bow { Kind = Arc; Centre { 0 0 } Radius = 5; Start = 90; End = 270; }\n"
                       "Bar { Kind = Line; From { -9 3 } To { 9 3 } }\n"),
                  0, "Bow meets Bar at -4, 3\n", "");
}

TEST_F(OrvilFigure, ArcOverTheDirectionZeroIsRead) {
    expect_result(draw("Bow { Kind = Arc; Centre { 0 0 } Radius = 5; Start = 300; End = 60; }\n"
                       "Bar { Kind = Line; From { -9 3 } To { 9 3 } }\n"),
                  0, "Bow meets Bar at 4, 3\n", "");
}

TEST_F(OrvilFigure, LineMeetsAnEllipseAndAnArcOfIt) {
    const std::string bar = "Bar { Kind = Line; From { 0 -9 } To { 0 9 } }\n";
    expect_result(draw("Pond { Kind = Ellipse; Centre { 0 0 } Axis { 2 0 } Ratio = 0.5; }\n" + bar), 0,
                  "Pond meets Bar at 0, 1\nPond meets Bar at 0, -1\n", "");
    expect_result(
        draw("Pond { Kind = Ellipse; Centre { 0 0 } Axis { 2 0 } Ratio = 0.5; Start = 0; End = 180; }\n" + bar), 0,
        "Pond meets Bar at 0, 1\n", "");
}

TEST_F(OrvilFigure, LineThroughTheEndOfAMinorAxisMeetsToo) {
    const ProgramResult result = draw(
        "Pond { Kind = Ellipse; Centre { 0 0 } Axis { 2 0 } Ratio = 0.5; }\n"
        "Bar { Kind = Line; From { -2 -1 } To { 1 2 } }\n");
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_NE(result.out.find("Pond meets Bar at -1.6, -0.6\n"), std::string::npos) << result.out;
    EXPECT_EQ(repeated("Pond meets Bar", 1), result.out.substr(0, 14));
    EXPECT_TRUE(has("class=\"dot-construction\""));
}

TEST_F(OrvilFigure, CirclesCross) {
    expect_result(draw(kDisc + "Ring { Kind = Circle; Centre { 6 0 } Radius = 5; }\n"), 0,
                  "Disc meets Ring at 3, -4\nDisc meets Ring at 3, 4\n", "");
}

TEST_F(OrvilFigure, SmallerCircleFirstTouchesWhereTheCirclesTouch) {
    expect_result(draw("Coin { Kind = Circle; Centre { 8 0 } Radius = 3; }\n" + kDisc), 0, "Coin meets Disc at 5, 0\n",
                  "");
}

TEST_F(OrvilFigure, TangentsFromAPointAreDrawn) {
    expect_result(draw("Eye { Kind = Point; At { 5 0 } }\nCoin { Kind = Circle; Centre { 0 0 } Radius = 3; }\n"), 0,
                  "Eye sees the edge of Coin at 1.8, -2.4\nEye sees the edge of Coin at 1.8, 2.4\n", "");
    EXPECT_TRUE(has("<polyline class=\"construction\""));
}

TEST_F(OrvilFigure, TangentsTouchAnArcWithinItsAngles) {
    expect_result(draw("Bow { Kind = Arc; Centre { 0 0 } Radius = 3; Start = 0; End = 90; }\n"
                       "Eye { Kind = Point; At { 5 0 } }\n"),
                  0, "Eye sees the edge of Bow at 1.8, 2.4\n", "");
}

TEST_F(OrvilFigure, EllipseIsDrawnAsTwoHalves) {
    EXPECT_EQ(draw("Pond { Kind = Ellipse; Centre { 0 0 } Axis { 0 2 } Ratio = 0.5; }\n").exit_code, 0);
    EXPECT_TRUE(has("d=\"M230,64 A380,190 -90 0 0 230,824 A380,190 -90 0 0 230,64\""));
}

TEST_F(OrvilFigure, SinglePointHasAPictureOfItsOwn) {
    expect_result(draw("Dot { Kind = Point; At { 1.0e40 -7 } }\n"), 0, "", "");
    EXPECT_TRUE(has("<circle class=\"dot-figure\" cx=\"120\" cy=\"144\" r=\"4\"/>"));
}

TEST_F(OrvilFigure, LargestFiguresAreDrawn) {
    EXPECT_EQ(draw("Wall { Kind = Line; From { -1.0e50 -1.0e50 } To { 1.0e50 1.0e50 } }\n").exit_code, 0);
    EXPECT_TRUE(has("points=\"40,824 800,64 \""));
    EXPECT_EQ(picture().find("nan"), std::string::npos);
    EXPECT_EQ(picture().find("inf"), std::string::npos);
}

TEST_F(OrvilFigure, PictureOfThatNameIsReplaced) {
    folder_.write("picture.svg", "old");
    EXPECT_EQ(draw(kWall).exit_code, 0);
    EXPECT_FALSE(has("old"));
}

// --- what is refused ------------------------------------------------------------------------------------------------

TEST_F(OrvilFigure, RefusesABlockWithoutAKind) {
    expect_refused(kWall + "// a comment\n  Gap { From { 0 0 } }\n", "3:3",
                   "a figure of Kind Point, Line, Circle, Arc or Ellipse, found 'Gap'");
}

TEST_F(OrvilFigure, RefusesAnUnknownKind) {
    expect_refused("Box { Kind = Square; }\n", "1:1",
                   "a figure of Kind Point, Line, Circle, Arc or Ellipse, found 'Box'");
}

TEST_F(OrvilFigure, RefusesAnAssignmentAmongTheFigures) {
    expect_refused(kWall + "\nScale = 2;\n", "3:1",
                   "a figure of Kind Point, Line, Circle, Arc or Ellipse, found 'Scale'");
}

TEST_F(OrvilFigure, RefusesAMissingField) {
    expect_refused("Wall { Kind = Line; From { 0 0 } }\n", "1:1", "To in the Line, found none");
}

TEST_F(OrvilFigure, RefusesAFieldOfAnotherKind) {
    expect_refused("Wall { Kind = Line; From { 0 0 } To { 1 1 } Radius = 3; }\n", "1:45",
                   "what belongs to a figure of Kind Line, found 'Radius'");
}

TEST_F(OrvilFigure, RefusesAFieldGivenTwice) {
    expect_refused("Wall { Kind = Line; From { 0 0 } From { 1 1 } }\n", "1:34",
                   "each of a figure's entries once, found 'From'");
}

TEST_F(OrvilFigure, RefusesAPointOfOneNumber) {
    expect_refused("Wall { Kind = Line; From { 0 } To { 1 1 } }\n", "1:21", "two numbers up to 1e50, found 'From'");
}

TEST_F(OrvilFigure, RefusesANumberThatIsNone) {
    for (const char* number : {"1.2.3", "0x10", "\"1\"", "1.0e51", "-1.0e400", "1e5", "east"}) {
        expect_refused("Disc { Kind = Circle; Centre { 0 0 } Radius = " + std::string(number) + "; }\n", "1:38",
                       "one number up to 1e50, found 'Radius'");
    }
}

TEST_F(OrvilFigure, RefusesALineWithoutLength) {
    expect_refused("Wall { Kind = Line; From { 1 1 } To { 1 1 } }\n", "1:1", "two ends apart, found 'Wall'");
}

TEST_F(OrvilFigure, RefusesARadiusThatIsTooSmall) {
    expect_refused("Disc { Kind = Circle; Centre { 0 0 } Radius = 0.99e-6; }\n", "1:1",
                   "radii from 1e-6 to 1e50, found 'Disc'");
    expect_refused("Disc { Kind = Circle; Centre { 0 0 } Radius = -3; }\n", "1:1",
                   "radii from 1e-6 to 1e50, found 'Disc'");
}

TEST_F(OrvilFigure, RefusesAnEllipseThatIsFlat) {
    const std::string why = "radii from 1e-6 to 1e50, found 'Pond'";
    expect_refused("Pond { Kind = Ellipse; Centre { 0 0 } Axis { 0 0 } Ratio = 0.5; }\n", "1:1", why);
    expect_refused("Pond { Kind = Ellipse; Centre { 0 0 } Axis { 1 0 } Ratio = 0; }\n", "1:1", why);
    expect_refused("Pond { Kind = Ellipse; Centre { 0 0 } Axis { 1 0 } Ratio = -0.5; }\n", "1:1", why);
    expect_refused("Pond { Kind = Ellipse; Centre { 0 0 } Axis { 1.0e50 0 } Ratio = 3; }\n", "1:1", why);
}

TEST_F(OrvilFigure, RefusesAFileWithoutFigures) {
    expect_result(draw("Title = \"Nothing\";\n"), 1, "",
                  "orvil: " + folder_.path("figures.cfg") + " holds no figure\n");
    EXPECT_FALSE(is_written());
}

TEST_F(OrvilFigure, RefusesAFileThatDoesNotReadWhole) {
    const ProgramResult result = draw(kWall + "Rail { Kind = Line; From { 0 0 }\n");
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_NE(result.err.find("figures.cfg:3:1: expected"), std::string::npos) << result.err;
    EXPECT_FALSE(is_written());
}

TEST_F(OrvilFigure, RefusesAFileThatIsNotThere) {
    const ProgramResult result = orvil_program({"figure", folder_.path("none.cfg"), "-o", target()});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_FALSE(is_written());
}

TEST_F(OrvilFigure, RefusesATargetThatIsAFolder) {
    const std::string source = folder_.write("figures.cfg", kWall);
    const ProgramResult result = orvil_program({"figure", source, "-o", folder_.path("")});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_NE(result.err.find("is a folder"), std::string::npos) << result.err;
}

TEST_F(OrvilFigure, RefusesATargetInNoFolder) {
    const std::string source = folder_.write("figures.cfg", kWall);
    const std::string nowhere = folder_.path("none/picture.svg");
    expect_result(orvil_program({"figure", source, "-o", nowhere}), 1, "",
                  "orvil: " + nowhere + " cannot be written\n");
}

TEST_F(OrvilFigure, ThousandFiguresAreDrawnAndOneMoreIsNot) {
    const std::string dot = "Dot { Kind = Point; At { 0 0 } }\n";
    EXPECT_EQ(draw(repeated(dot, 1000)).exit_code, 0);
    const ProgramResult result = draw(repeated(dot, 1001));
    expect_result(result, 1, "", "orvil: " + source_ + " holds more than 1000 figures\n");
}

TEST_F(OrvilFigure, NeedsAFileAndATarget) {
    const std::string why = "orvil: one file and -o with a file are needed\nusage: orvil figure FILE -o OUT\n";
    expect_result(orvil_program({"figure", "examples/data/figures.cfg"}), 64, "", why);
    expect_result(orvil_program({"figure", "-o", target()}), 64, "", why);
}

TEST_F(OrvilFigure, SampleIsDrawn) {
    const ProgramResult result = orvil_program({"figure", "examples/data/figures.cfg", "-o", target()});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_NE(result.out.find("Tower meets Bow at "), std::string::npos);
    EXPECT_TRUE(has("<title>A yard with a pond</title>"));
}

}  // namespace
}  // namespace orvil::test
