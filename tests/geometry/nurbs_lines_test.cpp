// Curves evaluated into segments.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "nurbs_probe.h"

namespace orvil::test {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// A polyline over the knots 0, 0, 1, 2 ... with its corners at the knots.
NurbsProbe polyline(const std::vector<Place>& corners) {
    NurbsProbe curve(1);
    for (const Place& corner : corners) {
        curve.add_ctrl(corner[0], corner[1], corner[2]);
    }
    curve.MakeKnotVector(2, static_cast<int>(corners.size()), KnotFormClamped);
    return curve;
}

NurbsProbe corner_curve() {
    return polyline({{0, 0, 0}, {4, 0, 8}, {4, 2, 8}});
}

void add_lines(NurbsProbe& curve, int count) {
    for (int i = 0; i < count; ++i) {
        curve.AppendLine(C3DLine(9, 9, 9, 9, 9, 9));
    }
}

void expect_no_lines(NurbsProbe& curve, int divisions, bool result) {
    add_lines(curve, 3);
    EXPECT_EQ(curve.CreateLines(divisions), result);
    EXPECT_EQ(curve.GetLineSize(), 0);
}

// --- plain curves ----------------------------------------------------------------------------------------------------

TEST(NurbsCreateLines, ALinearCurvePassesThroughItsPoints) {
    NurbsProbe curve = corner_curve();
    EXPECT_TRUE(curve.CreateLines(1));
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{0, 0, 0}, {4, 0, 8}, {4, 2, 8}}));
}

TEST(NurbsCreateLines, EachSpanIsDivided) {
    NurbsProbe curve = corner_curve();
    EXPECT_TRUE(curve.CreateLines(2));
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{0, 0, 0}, {2, 0, 4}, {4, 0, 8}, {4, 1, 8}, {4, 2, 8}}));
}

TEST(NurbsCreateLines, OldLinesAreReplaced) {
    NurbsProbe curve = corner_curve();
    add_lines(curve, 100);
    EXPECT_TRUE(curve.CreateLines(1));
    EXPECT_EQ(curve.GetLineSize(), 2);
    EXPECT_TRUE(curve.CreateLines(50));
    EXPECT_EQ(curve.GetLineSize(), 100);
}

TEST(NurbsCreateLines, AParabolaIsItself) {
    NurbsProbe curve(2);
    curve.add_knots({0, 0, 0, 1, 1, 1});
    curve.add_ctrl(0, 0);
    curve.add_ctrl(1, 2);
    curve.add_ctrl(2, 0);
    EXPECT_TRUE(curve.CreateLines(4));
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{0, 0, 0}, {0.5, 0.75, 0}, {1, 1, 0}, {1.5, 0.75, 0}, {2, 0, 0}}));
}

TEST(NurbsCreateLines, WeightsDrawTheCurve) {
    NurbsProbe curve(1);
    curve.add_knots({0, 0, 1, 1});
    curve.add_ctrl(0, 0, 0, 1);
    curve.add_ctrl(8, 0, 0, 3);
    EXPECT_TRUE(curve.CreateLines(2));
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{0, 0, 0}, {6, 0, 0}, {8, 0, 0}}));
}

TEST(NurbsCreateLines, EveryDegreeBeginsAndEndsOnItsPoints) {
    for (int degree = 1; degree <= 7; ++degree) {
        NurbsProbe curve(degree);
        for (int i = 0; i < 12; ++i) {
            curve.add_ctrl(i * 0.1, 1.0 / (i + 1), i * 0.7, 0.1 + i * 0.3);
        }
        curve.MakeKnotVector(degree + 1, 12, KnotFormClamped);
        ASSERT_TRUE(curve.CreateLines(3));
        EXPECT_EQ(curve.GetLineSize(), 3 * (12 - degree));
        EXPECT_EQ(curve.chain().front(), curve.ctrl_place(0));
        EXPECT_EQ(curve.chain().back(), curve.ctrl_place(11));
    }
}

// The quarter circle that nine control points give four times over.
NurbsProbe circle(double cx, double cy, double radius) {
    const double half = std::numbers::sqrt2 / 2;
    NurbsProbe curve(2);
    curve.add_knots({0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4});
    const double x[] = {1, 1, 0, -1, -1, -1, 0, 1, 1};
    const double y[] = {0, 1, 1, 1, 0, -1, -1, -1, 0};
    for (int i = 0; i < 9; ++i) {
        curve.add_ctrl(cx + radius * x[i], cy + radius * y[i], 0, i % 2 == 0 ? 1 : half);
    }
    return curve;
}

TEST(NurbsCreateLines, ARationalCircleLiesOnTheCircle) {
    for (const double radius : {1e-6, 0.1, 1.0, 3.7, 1e6, 1e150}) {
        NurbsProbe curve = circle(0, 0, radius);
        ASSERT_TRUE(curve.CreateLines(1000));
        ASSERT_EQ(curve.GetLineSize(), 4000);
        for (const Place& place : curve.chain()) {
            EXPECT_NEAR(std::hypot(place[0], place[1]) / radius, 1.0, 1e-14);
        }
    }
}

TEST(NurbsCreateLines, ACircleMeetsItsQuarterPointsExactly) {
    NurbsProbe curve = circle(0, 0, 3.7);
    ASSERT_TRUE(curve.CreateLines(7));
    const std::vector<Place> chain = curve.chain();
    EXPECT_EQ(chain[0], (Place{3.7, 0, 0}));
    EXPECT_EQ(chain[7], (Place{0, 3.7, 0}));
    EXPECT_EQ(chain[14], (Place{-3.7, 0, 0}));
    EXPECT_EQ(chain[21], (Place{0, -3.7, 0}));
    EXPECT_EQ(chain[28], (Place{3.7, 0, 0}));
}

// --- divisions -------------------------------------------------------------------------------------------------------

TEST(NurbsCreateLines, FewerThanOneDivisionGivesNoLines) {
    for (const int divisions : {0, -1, std::numeric_limits<int>::min()}) {
        NurbsProbe curve = corner_curve();
        expect_no_lines(curve, divisions, true);
    }
}

TEST(NurbsCreateLines, StepsBelowTheToleranceAreSkipped) {
    NurbsProbe curve = corner_curve();
    expect_no_lines(curve, 100'000'001, true);
    expect_no_lines(curve, std::numeric_limits<int>::max(), true);
}

NurbsProbe narrow_curve(double width) {
    NurbsProbe curve(1);
    curve.add_knots({0, 0, width, width});
    curve.add_ctrl(0, 0);
    curve.add_ctrl(1, 0);
    return curve;
}

TEST(NurbsCreateLines, AStepOfTheToleranceIsDrawn) {
    NurbsProbe whole = narrow_curve(1e-8);
    EXPECT_TRUE(whole.CreateLines(1));
    EXPECT_EQ(whole.chain(), (std::vector<Place>{{0, 0, 0}, {1, 0, 0}}));
    NurbsProbe halves = narrow_curve(2e-8);
    EXPECT_TRUE(halves.CreateLines(2));
    EXPECT_EQ(halves.chain(), (std::vector<Place>{{0, 0, 0}, {0.5, 0, 0}, {1, 0, 0}}));
}

TEST(NurbsCreateLines, AStepJustBelowTheToleranceIsNotDrawn) {
    NurbsProbe whole = narrow_curve(std::nextafter(1e-8, 0.0));
    expect_no_lines(whole, 1, true);
    NurbsProbe halves = narrow_curve(std::nextafter(2e-8, 0.0));
    expect_no_lines(halves, 2, true);
}

TEST(NurbsCreateLines, TheStepIsComparedNotTheSpan) {
    NurbsProbe curve(1);
    curve.add_knots({0, 0, 1, 1.5, 1.5});
    curve.add_ctrl(0, 0);
    curve.add_ctrl(1, 0);
    curve.add_ctrl(3, 0);
    EXPECT_TRUE(curve.CreateLines(4));
    EXPECT_EQ(curve.GetLineSize(), 8);
    curve.ClearKnot();
    curve.add_knots({0, 0, 1, 1 + 3e-8, 1 + 3e-8});
    EXPECT_TRUE(curve.CreateLines(2));
    EXPECT_EQ(curve.GetLineSize(), 4);
    EXPECT_TRUE(curve.CreateLines(4));
    EXPECT_EQ(curve.GetLineSize(), 4);
}

TEST(NurbsCreateLines, MoreSegmentsThanAnArrayHoldsAreRefused) {
    NurbsProbe curve(1);
    curve.add_knots({0, 0, 1e9, 2e9, 2e9});
    curve.add_ctrl(0, 0);
    curve.add_ctrl(1, 0);
    curve.add_ctrl(3, 0);
    expect_no_lines(curve, 1'100'000'000, false);
    expect_no_lines(curve, std::numeric_limits<int>::max(), false);
}

// --- spans -----------------------------------------------------------------------------------------------------------

TEST(NurbsCreateLines, RepeatedKnotsAreSkipped) {
    NurbsProbe curve(2);
    curve.add_knots({0, 0, 0, 1, 1, 1, 3, 3, 3});
    for (int i = 0; i < 6; ++i) {
        curve.add_ctrl(i, i * i);
    }
    EXPECT_TRUE(curve.CreateLines(5));
    EXPECT_EQ(curve.GetLineSize(), 10);
    EXPECT_EQ(curve.chain()[5], curve.ctrl_place(3));
}

TEST(NurbsCreateLines, UniformKnotsAreNotDrawn) {
    NurbsProbe curve(2);
    for (int i = 0; i < 6; ++i) {
        curve.add_ctrl(i, i * i);
    }
    curve.MakeKnotVector(3, 6, KnotFormUniform);
    expect_no_lines(curve, 5, true);
}

TEST(NurbsCreateLines, AnEndThatIsNotClampedIsNotDrawn) {
    NurbsProbe curve(1);
    curve.add_knots({0, 0, 1, 2, 3});
    for (int i = 0; i < 3; ++i) {
        curve.add_ctrl(i, 0);
    }
    expect_no_lines(curve, 5, true);
    NurbsProbe begin(1);
    begin.add_knots({0, 1, 2, 3, 3});
    for (int i = 0; i < 3; ++i) {
        begin.add_ctrl(i, 0);
    }
    expect_no_lines(begin, 5, true);
}

TEST(NurbsCreateLines, WithoutKnotsThereAreNoLines) {
    NurbsProbe curve(2);
    for (int i = 0; i < 6; ++i) {
        curve.add_ctrl(i, i * i);
    }
    expect_no_lines(curve, 5, true);
}

TEST(NurbsCreateLines, WithoutPointsThereAreNoLines) {
    NurbsProbe curve(2);
    expect_no_lines(curve, 5, true);
    curve.add_knots({0, 0, 0, 1, 1, 1});
    expect_no_lines(curve, 5, true);
    curve.add_ctrl(1, 1);
    curve.add_ctrl(2, 1);
    expect_no_lines(curve, 5, true);
}

TEST(NurbsCreateLines, StartsAndEndsWithinTheToleranceAreFound) {
    NurbsProbe curve(1);
    curve.add_knots({0, 5e-9, 1, 2, 2});
    curve.add_ctrl(0, 0);
    curve.add_ctrl(1, 0);
    curve.add_ctrl(3, 0);
    EXPECT_TRUE(curve.CreateLines(1));
    EXPECT_EQ(curve.GetLineSize(), 2);
    curve.ClearKnot();
    curve.add_knots({0, 1e-8, 1, 2, 2});
    expect_no_lines(curve, 1, true);
}

// The knots behind the end are near t1 but not equal: there every function is 0.
TEST(NurbsCreateLines, AnEndThatIsNotExactlyRepeatedFails) {
    NurbsProbe curve(1);
    curve.add_knots({0, 0, 1, 2, 2 + 5e-9});
    curve.add_ctrl(0, 0);
    curve.add_ctrl(1, 0);
    curve.add_ctrl(3, 0);
    expect_no_lines(curve, 4, false);
}

// The knot that is t1 within the tolerance lies behind it.
TEST(NurbsCreateLines, TheLastSpanEndsAtTheLastKnotItself) {
    NurbsProbe curve(1);
    curve.add_knots({0, 0, 1, 2 + 5e-9, 2, 2});
    for (int i = 0; i < 4; ++i) {
        curve.add_ctrl(i, 0);
    }
    ASSERT_TRUE(curve.CreateLines(2));
    ASSERT_EQ(curve.GetLineSize(), 4);
    EXPECT_NEAR(curve.chain()[3][0], 1.5 - 2.5e-9, 1e-12);
    EXPECT_NEAR(curve.chain()[4][0], 2 - 5e-9, 1e-12);
}

// A sample at such a knot lies in the narrow span.
TEST(NurbsCreateLines, InnerKnotsThatAreNearlyEqualFail) {
    NurbsProbe curve(1);
    curve.add_knots({0, 0, 1, 1 + 5e-9, 2, 2});
    for (int i = 0; i < 4; ++i) {
        curve.add_ctrl(i, 0);
    }
    expect_no_lines(curve, 4, false);
}

TEST(NurbsCreateLines, TheLastSampleIsTheLastPointWhateverItsWeight) {
    NurbsProbe curve(1);
    curve.add_knots({0, 0, 1, 1});
    curve.add_ctrl(0.1, 0, 0, 0.7);
    curve.add_ctrl(0.3, 0.1, 0.7, 1e300);
    EXPECT_TRUE(curve.CreateLines(3));
    EXPECT_EQ(curve.chain().front(), (Place{0.1, 0, 0}));
    EXPECT_EQ(curve.chain().back(), (Place{0.3, 0.1, 0.7}));
}

// Rounding leads the samples of these spans to the knot that ends them.
TEST(NurbsCreateLines, SamplesThatRoundToTheEndOfTheirSpanAreTheEnd) {
    NurbsProbe curve(1);
    const double from = std::ldexp(1.0, 53);
    curve.add_knots({from, from, from + 2, from + 4, from + 4});
    curve.add_ctrl(0, 0);
    curve.add_ctrl(1, 0);
    curve.add_ctrl(2, 0);
    ASSERT_TRUE(curve.CreateLines(4));
    const std::vector<Place> chain = curve.chain();
    ASSERT_EQ(chain.size(), 9U);
    for (const Place& place : chain) {
        EXPECT_TRUE(place[0] == 0 || place[0] == 1 || place[0] == 2) << place[0];
    }
    EXPECT_EQ(chain[3][0], 1);
    EXPECT_EQ(chain[7][0], 2);
}

// A knot of full order parts the curve; the place at it is the next piece's.
TEST(NurbsCreateLines, SamplesThatRoundToAKnotLieBehindIt) {
    NurbsProbe curve(1);
    const double from = std::ldexp(1.0, 53);
    curve.add_knots({from, from, from + 2, from + 2, from + 4, from + 4});
    for (const double x : {0, 1, 5, 6}) {
        curve.add_ctrl(x, 0);
    }
    ASSERT_TRUE(curve.CreateLines(4));
    const std::vector<Place> four = curve.chain();
    ASSERT_EQ(four.size(), 9U);
    EXPECT_EQ(four[2][0], 0);
    EXPECT_EQ(four[3][0], 5);
    EXPECT_EQ(four[4][0], 5);
    EXPECT_EQ(four[8][0], 6);
    ASSERT_TRUE(curve.CreateLines(6));
    EXPECT_EQ(curve.chain()[3][0], 0);
    EXPECT_EQ(curve.chain()[4][0], 5);
}

// --- knots that do not rise ------------------------------------------------------------------------------------------

TEST(NurbsCreateLines, DecreasingSpansAreSkipped) {
    NurbsProbe curve(1);
    curve.add_knots({0, 0, 2, 1, 3, 3});
    for (int i = 0; i < 4; ++i) {
        curve.add_ctrl(i, 0, 0, 1);
    }
    EXPECT_TRUE(curve.CreateLines(1));
    // At 2 the functions 1 (over 0, 2, 1) and 2 (over 2, 1, 3) are 0 and 1/2, and function 3 (over 1, 3, 3) is 1/2.
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{0, 0, 0}, {2.5, 0, 0}, {3, 0, 0}}));
}

TEST(NurbsCreateLines, TheStartMayLieInsideOfASpanOfDecreasingKnots) {
    NurbsProbe curve(1);
    curve.add_knots({1, 0, 2, 2, 2});
    for (int i = 0; i < 3; ++i) {
        curve.add_ctrl(i + 1, 0);
    }
    EXPECT_TRUE(curve.CreateLines(1));
    // Span 1 is drawn from 0, where function 0 (over 1, 0, 2) is 1 and function 1 (over 0, 2, 2) is 0.
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{1, 0, 0}, {3, 0, 0}}));
}

TEST(NurbsCreateLines, ASpanThatEndsAtTheStartDoesNotHaveItInside) {
    NurbsProbe curve(1);
    curve.add_knots({1, 0, 1 + 5e-9, 3, 3});
    for (const double x : {10, 20, 30}) {
        curve.add_ctrl(x, 0);
    }
    ASSERT_TRUE(curve.CreateLines(1));
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{20, 0, 0}, {30, 0, 0}}));
}

// Rounding leads the fourth of five samples of the last span to the last knot.
TEST(NurbsCreateLines, SamplesOfDecreasingKnotsThatRoundToTheEndAreTheEnd) {
    NurbsProbe curve(1);
    const double from = std::ldexp(1.0, 53);
    curve.add_knots({from, from, from + 4, from + 2, from + 6, from + 6});
    for (const double x : {10, 20, 30, 40}) {
        curve.add_ctrl(x, 0);
    }
    ASSERT_TRUE(curve.CreateLines(5));
    ASSERT_EQ(curve.GetLineSize(), 10);
    EXPECT_EQ(curve.chain()[8], (Place{35, 0, 0}));
    EXPECT_EQ(curve.chain()[9], (Place{40, 0, 0}));
    EXPECT_EQ(curve.chain()[10], (Place{40, 0, 0}));
}

TEST(NurbsCreateLines, MissingKnotsReadAsZero) {
    NurbsProbe curve(1);
    curve.add_knots({-1, -1, 0});
    for (int i = 0; i < 3; ++i) {
        curve.add_ctrl(i + 1, 0);
    }
    EXPECT_TRUE(curve.CreateLines(1));
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{1, 0, 0}, {3, 0, 0}}));
}

TEST(NurbsCreateLines, KnotsBeyondThoseNeededOnlySayWhereTheCurveEnds) {
    NurbsProbe curve(1);
    curve.add_knots({0, 0, 1, 2, 2, 1});
    for (int i = 0; i < 3; ++i) {
        curve.add_ctrl(i + 1, 0);
    }
    EXPECT_TRUE(curve.CreateLines(1));
    EXPECT_EQ(curve.chain(), (std::vector<Place>{{1, 0, 0}, {2, 0, 0}}));
}

TEST(NurbsCreateLines, AWrongDimensionFails) {
    for (const int d : {0, -1, 8, std::numeric_limits<int>::max()}) {
        NurbsProbe curve = corner_curve();
        curve.dimension_ = d;
        expect_no_lines(curve, 4, false);
    }
}

// --- what cannot be drawn --------------------------------------------------------------------------------------------

NurbsProbe weighted(double first, double second, double third) {
    NurbsProbe curve(1);
    curve.add_knots({0, 0, 1, 2, 2});
    curve.add_ctrl(0, 0, 0, first);
    curve.add_ctrl(1, 0, 0, second);
    curve.add_ctrl(2, 0, 0, third);
    return curve;
}

TEST(NurbsCreateLines, AWeightedSumOfZeroFails) {
    NurbsProbe zero = weighted(0, 0, 0);
    expect_no_lines(zero, 2, false);
    NurbsProbe at_start = weighted(0, 1, 1);
    expect_no_lines(at_start, 2, false);
    NurbsProbe at_end = weighted(1, 1, 0);
    expect_no_lines(at_end, 2, false);
    NurbsProbe inside = weighted(1, -1, -1);
    expect_no_lines(inside, 2, false);
}

TEST(NurbsCreateLines, NegativeWeightsThatDoNotCancelAreDrawn) {
    NurbsProbe curve = weighted(-1, -1, -3);
    EXPECT_TRUE(curve.CreateLines(2));
    EXPECT_EQ(curve.chain()[3], (Place{1.75, 0, 0}));
}

TEST(NurbsCreateLines, WeightsThatAreNotFiniteFail) {
    for (const double weight : {kInfinity, -kInfinity, kNaN}) {
        NurbsProbe curve = weighted(1, weight, 1);
        expect_no_lines(curve, 2, false);
    }
}

TEST(NurbsCreateLines, ProductsThatOverflowFail) {
    NurbsProbe product(1);
    product.add_knots({0, 0, 1, 2, 2});
    product.add_ctrl(1e200, 0, 0, 1e200);
    product.add_ctrl(-1e200, 0, 0, 1e200);
    product.add_ctrl(1e200, 0, 0, 1e200);
    expect_no_lines(product, 2, false);
}

TEST(NurbsCreateLines, AProductThatOverflowsInOneCoordinateFails) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        NurbsProbe curve(1);
        curve.add_knots({0, 0, 1, 1});
        Place place{1, 1, 1};
        place[axis] = 1e200;
        curve.add_ctrl(place[0], place[1], place[2], 1e200);
        curve.add_ctrl(1, 1, 1, 1);
        expect_no_lines(curve, 3, false);
    }
}

TEST(NurbsCreateLines, PointsThatAreNotFiniteFail) {
    for (const double bad : {kInfinity, -kInfinity, kNaN}) {
        for (int axis = 0; axis < 3; ++axis) {
            NurbsProbe curve(1);
            curve.add_knots({0, 0, 1, 2, 3, 4, 4});
            for (int i = 0; i < 5; ++i) {
                Place place{1, 1, 1};
                place[static_cast<std::size_t>(axis)] = i == 2 ? bad : 2;
                curve.add_ctrl(place[0], place[1], place[2]);
            }
            expect_no_lines(curve, 2, false);
        }
    }
}

TEST(NurbsCreateLines, BadPointsDoNotMatterWhenNothingIsDrawn) {
    NurbsProbe curve = weighted(kNaN, 1, 1);
    expect_no_lines(curve, 0, true);
}

TEST(NurbsCreateLines, KnotsThatAreNotFiniteNeverEndUpInLines) {
    for (const double bad : {kInfinity, kNaN}) {
        NurbsProbe inside(1);
        inside.add_knots({0, 0, bad, 2, 2});
        NurbsProbe end(1);
        end.add_knots({0, 0, 1, bad, bad});
        NurbsProbe start(1);
        start.add_knots({-bad, -bad, 1, 2, 2});
        for (NurbsProbe* curve : {&inside, &end, &start}) {
            for (int i = 0; i < 3; ++i) {
                curve->add_ctrl(i, 0);
            }
            curve->CreateLines(3);
            EXPECT_EQ(curve->GetLineSize(), 0);
        }
        EXPECT_FALSE(inside.CreateLines(3));
        EXPECT_TRUE(end.CreateLines(3));
        EXPECT_TRUE(start.CreateLines(3));
    }
}

TEST(NurbsCreateLines, KnotsWhoseDifferenceOverflowsFail) {
    NurbsProbe curve(1);
    curve.add_knots({-1.7e308, -1.7e308, 1.7e308, 1.7e308});
    curve.add_ctrl(0, 0);
    curve.add_ctrl(1, 0);
    expect_no_lines(curve, 1, false);
    expect_no_lines(curve, 2, false);
}

TEST(NurbsCreateLines, AnEmptySlotHasNoWeight) {
    NurbsProbe curve = corner_curve();
    curve.ctrl_points_.ClearAt(0);
    expect_no_lines(curve, 2, false);
    NurbsProbe knots = corner_curve();
    knots.knots_.ClearAt(2);
    knots.CreateLines(1);
    EXPECT_EQ(knots.chain(), (std::vector<Place>{{4, 0, 8}, {4, 2, 8}}));
}

TEST(NurbsCreateLines, HugeAndTinyCoordinatesAreKept) {
    for (const double size : {1e-300, 1e-8, 1e8, 1e300}) {
        NurbsProbe curve = polyline({{0, 0, 0}, {4 * size, 0, 8 * size}});
        EXPECT_TRUE(curve.CreateLines(2));
        EXPECT_EQ(curve.chain()[1], (Place{2 * size, 0, 4 * size}));
    }
}

}  // namespace
}  // namespace orvil::test
