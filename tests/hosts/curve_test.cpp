#include <filesystem>

#include "orvil_program.h"

namespace orvil::test {
namespace {

// Writes a file of curves, and runs the command on it.
class OrvilCurve : public testing::Test {
protected:
    ProgramResult draw(const std::string& curves, const std::vector<std::string>& options = {}) {
        source_ = folder_.write("curves.cfg", curves);
        std::vector<std::string> arguments{"curve", source_, "-o", target()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return orvil_program(arguments);
    }
    std::string target() const { return folder_.path("picture.svg"); }
    std::string segments() const { return read_file(target() + ".cfg"); }
    bool has(const std::string& text) const { return read_file(target()).find(text) != std::string::npos; }
    bool is_anything_written() const {
        return std::filesystem::exists(target()) || std::filesystem::exists(target() + ".cfg");
    }

    void expect_refused(const std::string& curves, const std::string& place, const std::string& what) {
        const ProgramResult result = draw(curves);
        expect_result(result, 1, "", source_ + ":" + place + ": expected " + what + "\n");
        EXPECT_FALSE(is_anything_written());
    }

    TempDir folder_;
    std::string source_;
};

const std::string kCorner = "Corner { Degree = 1; Points { 0 0  4 0  4 3 } }\n";

TEST_F(OrvilCurve, SegmentsStandBesideThePicture) {
    expect_result(draw(kCorner, {"--divisions", "2"}), 0, "Corner: degree 1, 3 control points, 4 segments, length 7\n",
                  "");
    EXPECT_EQ(segments(),
              "// Segments of curves: x y z of the start, x y z of the end.\r\n"
              "\r\n"
              "Corner {\r\n"
              "\tSegment = 0.0 0.0 0.0 2.0 0.0 0.0;\r\n"
              "\tSegment = 2.0 0.0 0.0 4.0 0.0 0.0;\r\n"
              "\tSegment = 4.0 0.0 0.0 4.0 1.5 0.0;\r\n"
              "\tSegment = 4.0 1.5 0.0 4.0 3.0 0.0;\r\n"
              "}\r\n");
    EXPECT_EQ(orvil_program({"check", target() + ".cfg"}).exit_code, 0);
}

TEST_F(OrvilCurve, PictureShowsCurveAndControlPolygon) {
    draw("Title = \"A corner\";\n" + kCorner, {"--divisions", "1"});
    // The box is 4 by 3; 4 is 760 pixels, behind a margin of 40 and a title of 24.
    EXPECT_TRUE(has("<polyline class=\"aid\" points=\"40,634 800,634 800,64 \"/>"));
    EXPECT_TRUE(has("<polyline class=\"figure\" points=\"40,634 800,634 800,64 \"/>"));
    EXPECT_TRUE(has("<circle class=\"dot-aid\" cx=\"800\" cy=\"64\" r=\"4\"/>"));
    EXPECT_TRUE(has(">Corner</text>"));
    EXPECT_TRUE(has("<title>A corner</title>"));
}

TEST_F(OrvilCurve, PictureShowsThePointsPassedThrough) {
    expect_result(draw("Line { Fit { 0 0  2 0  4 0 } }\n"), 0,
                  "Line: degree 3, 5 control points, 32 segments, length 4\n", "");
    EXPECT_TRUE(has("<circle class=\"dot-construction\" cx=\"40\""));
    EXPECT_TRUE(has("<circle class=\"dot-construction\" cx=\"420\""));
    EXPECT_TRUE(has("<circle class=\"dot-construction\" cx=\"800\""));
}

TEST_F(OrvilCurve, AssignmentsServeAsListings) {
    EXPECT_EQ(draw("Corner { Degree { 1 } Points = 0 0 4 0 4 3; }\n", {"--divisions", "1"}).out,
              "Corner: degree 1, 3 control points, 2 segments, length 7\n");
}

TEST_F(OrvilCurve, HeightsAndWeightsCount) {
    draw("Ramp { Degree = 1; Points { 0 0  8 0  8 4 } Heights { 0 1 2 } Weights { 1 3 3 } }\n", {"--divisions", "2"});
    EXPECT_NE(segments().find("Segment = 0.0 0.0 0.0 6.0 0.0 0.75;"), std::string::npos);
    EXPECT_NE(segments().find("Segment = 8.0 2.0 1.5 8.0 4.0 2.0;"), std::string::npos);
}

TEST_F(OrvilCurve, KnotsCount) {
    draw("Bent { Degree = 1; Points { 0 0  8 0  8 4 } Knots { 0 0 1 5 5 } }\n", {"--divisions", "1"});
    EXPECT_NE(segments().find("Segment = 8.0 0.0 0.0 8.0 4.0 0.0;"), std::string::npos);
}

TEST_F(OrvilCurve, AnotherNumberOfKnotsIsRefused) {
    expect_refused("Bar { Degree = 1; Points { 0 0  8 0  8 4 } Knots { 0 0 1 5 } }\n", "1:44", "5 knots, found 4");
}

TEST_F(OrvilCurve, NumbersReadBackAsTheyAre) {
    draw("Far { Degree = 1; Points { 0.1 -1.0e+40  0.2 0.0  1.0e-5 0.0 } }\n", {"--divisions", "1"});
    EXPECT_NE(segments().find("Segment = 0.1 -1.0e+40 0.0 0.2 0.0 0.0;"), std::string::npos);
    EXPECT_NE(segments().find(" 1.0e-05 0.0 0.0;"), std::string::npos);
    EXPECT_EQ(orvil_program({"check", target() + ".cfg"}).exit_code, 0);
}

TEST_F(OrvilCurve, SampleIsDrawn) {
    const ProgramResult result = orvil_program({"curve", "examples/data/curves.cfg", "-o", target()});
    expect_result(result, 0,
                  "Shore: degree 3, 10 control points, 112 segments, length 17.5221\n"
                  "Road: degree 4, 7 control points, 48 segments, length 11.5483\n"
                  "Well: degree 2, 9 control points, 64 segments, length 10.049\n"
                  "Near: degree 2, 3 control points, 16 segments, length 6.20901\n"
                  "Middle: degree 2, 3 control points, 16 segments, length 4.60696\n"
                  "Far: degree 2, 3 control points, 16 segments, length 3.2758\n",
                  "");
}

// --- curves that cannot be drawn -------------------------------------------------------------------------------------

TEST_F(OrvilCurve, FewerThanThreePointsAreRefused) {
    expect_refused("Bar { Fit { 0 0  4 0 } }\n", "1:7", "at least 3 points, found 2");
    expect_refused("Bar { Degree = 1; Points { 0 0  4 0 } }\n", "1:19", "at least 3 points, found 2");
}

TEST_F(OrvilCurve, CoincidentPointsAreRefused) {
    expect_refused("Bar { Fit { 0 0  4 0  4 0  5 0 } }\n", "1:7",
                   "each point apart from the one before, found 4 points of which two coincide");
}

TEST_F(OrvilCurve, PointsWithoutASolutionAreRefused) {
    expect_refused("Bar { Degree = 7; Fit { 0 0  4 0  6 0 } }\n", "1:19",
                   "points that a curve of degree 7 passes through, found 3 points without a solution");
}

TEST_F(OrvilCurve, WeightsThatAddUpToZeroAreRefused) {
    expect_refused("Bar { Degree = 2; Points { 0 0  1 2  2 0 } Weights { 0 1 1 } }\n", "1:44",
                   "weights that do not add up to 0 along the curve, found such a sum");
    expect_result(
        orvil_program({"curve", "examples/data/bad_curve.cfg", "-o", target()}), 1, "",
        "examples/data/bad_curve.cfg:6:5: expected weights that do not add up to 0 along the curve, found such "
        "a sum\n");
}

TEST_F(OrvilCurve, FewerPointsThanTheDegreeNeedsAreRefused) {
    expect_refused("Bar { Points { 0 0  1 2  2 0 } }\n", "1:7", "at least 4 points for that degree, found 3");
}

TEST_F(OrvilCurve, KnotsThatAreNotClampedAreRefused) {
    expect_refused("Bar { Degree = 1; Points { 0 0  1 2  2 0 } Knots { 0 1 2 3 3 } }\n", "1:44",
                   "the first and the last knot 2 times, found other ends");
    expect_refused("Bar { Degree = 1; Points { 0 0  1 2  2 0 } Knots { 0 0 2 3 4 } }\n", "1:44",
                   "the first and the last knot 2 times, found other ends");
    expect_refused("Bar { Degree = 1; Points { 0 0  1 2  2 0 } Knots { 0 0 2 1 1 } }\n", "1:44",
                   "knots that do not decrease, found others");
    expect_refused("Bar { Degree = 1; Points { 0 0  1 2  2 0 } Knots { 0 0 0 0 0 } }\n", "1:44",
                   "knots more than 1e-8 apart, --divisions counted, found closer ones");
}

TEST_F(OrvilCurve, OtherDegreesAreRefused) {
    for (const char* degree : {"0", "8", "2.5", "2 3", "-1"}) {
        expect_refused(std::string("Bar { Degree = ") + degree + "; Fit { 0 0  1 2  2 0 } }\n", "1:7",
                       "one whole number from 1 to 7, found another degree");
    }
}

TEST_F(OrvilCurve, EntriesThatDoNotFitAreRefused) {
    expect_refused("Bar { Degree = 1; }\n", "1:1", "either Points or Fit in the curve, found none");
    expect_refused("Bar { Fit { 0 0 } Points { 0 0 } }\n", "1:7", "either Points or Fit in the curve, found both");
    expect_refused("Bar { Fit { 0 0  1 2  2 } }\n", "1:7", "an x and a y for each point, found a number left over");
    expect_refused("Bar { Fit { 0 0  1 2  2 0 } Weights { 1 1 1 } }\n", "1:29",
                   "weights beside Points only, found Fit");
    expect_refused("Bar { Fit { 0 0  1 2  2 0 } Knots { 1 1 1 } }\n", "1:29", "knots beside Points only, found Fit");
    expect_refused("Bar { Fit { 0 0  1 2  2 0 } Heights { 1 } }\n", "1:29",
                   "as many numbers as points, found 1 number");
    expect_refused("Bar { Fit { 0 0  1 2  2 0 } Fit { 1 } }\n", "1:29", "each of a curve's entries once, found 'Fit'");
    expect_refused("Bar { Colour = 1; }\n", "1:7", "Degree, Knots, Points, Fit, Weights or Heights, found 'Colour'");
    expect_refused("Bar { Fit { 0 0  1.2.3 2 } }\n", "1:7", "numbers up to 1e50, found 'Fit'");
    expect_refused("Bar = 5;\n", "1:1", "a curve, found 'Bar'");
}

TEST_F(OrvilCurve, TooManySegmentsAreRefused) {
    const ProgramResult result =
        draw(kCorner + "Bar { Fit { 0 0 1 1 2 0 3 1 4 0 5 1 6 0 7 1 8 0 9 1 } }\n", {"--divisions", "100000"});
    EXPECT_EQ(result.exit_code, 1);
    EXPECT_EQ(result.err, source_ + ":2:7: expected at most 1000000 segments, found 1200000\n");
    EXPECT_FALSE(is_anything_written());
}

TEST_F(OrvilCurve, AFileWithoutACurveIsRefused) {
    const ProgramResult result = draw("Title = \"Nothing\";\n");
    expect_result(result, 1, "", "orvil: " + source_ + " holds no curve\n");
    EXPECT_FALSE(is_anything_written());
    EXPECT_EQ(orvil_program({"curve", folder_.path("none.cfg"), "-o", target()}).exit_code, 1);
}

TEST_F(OrvilCurve, AFolderIsNoPicture) {
    source_ = folder_.write("curves.cfg", kCorner);
    std::filesystem::create_directory(target() + ".cfg");
    const ProgramResult result = orvil_program({"curve", source_, "-o", target()});
    expect_result(result, 1, "", "orvil: " + target() + ".cfg is a folder\n");
    EXPECT_FALSE(std::filesystem::exists(target()));
}

TEST_F(OrvilCurve, AMisusedCommandLineIsSaid) {
    EXPECT_EQ(orvil_program({"curve", "examples/data/curves.cfg"}).exit_code, 64);
    EXPECT_EQ(orvil_program({"curve", "-o", target()}).exit_code, 64);
    for (const char* divisions : {"0", "-1", "100001", "x", "2x", "99999999999"}) {
        const ProgramResult result = draw(kCorner, {"--divisions", divisions});
        EXPECT_EQ(result.exit_code, 64) << divisions;
        EXPECT_EQ(result.err.rfind("orvil: --divisions takes a number from 1 to 100000\n", 0), 0U);
    }
    EXPECT_FALSE(is_anything_written());
}

TEST_F(OrvilCurve, HelpSaysWhereTheSegmentsGo) {
    const ProgramResult result = orvil_program({"curve", "--help"});
    EXPECT_EQ(result.exit_code, 0);
    EXPECT_NE(result.out.find("The segments go to OUT.cfg"), std::string::npos);
}

}  // namespace
}  // namespace orvil::test
