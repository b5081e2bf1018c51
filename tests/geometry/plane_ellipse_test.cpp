// Ellipses and elliptic arcs.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

#include "geometry/figures.h"
#include "orvil/geometry/plane_primitives.h"

namespace {

using orvil::test::exactly;
using orvil::test::near;

constexpr double kPi = 3.141592653589793;
constexpr double kHalfPi = 1.5707963267948966;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

static_assert(sizeof(C2DEllipse) == 80);
static_assert(std::has_virtual_destructor_v<C2DEllipse>);

C2DEllipse sample() {
    return C2DEllipse(C2DPoint(1.0, 2.0), C2DPoint(3.0, 4.0), 0.5, 0.25, 1.75);
}

C2DEllipse with_axis(const C2DPoint& axis, double ratio) {
    return C2DEllipse(C2DPoint(), axis, ratio, 0.0, 1.0);
}

TEST(PlaneEllipse, IsAllZeroByDefault) {
    const C2DEllipse ellipse;
    EXPECT_TRUE(exactly(ellipse.center, 0.0, 0.0));
    EXPECT_TRUE(exactly(ellipse.axis, 0.0, 0.0));
    EXPECT_EQ(ellipse.ratio, 0.0);
    EXPECT_EQ(ellipse.start, 0.0);
    EXPECT_EQ(ellipse.end, 0.0);
}

TEST(PlaneEllipse, IsMadeOfFiveValues) {
    const C2DEllipse ellipse = sample();
    EXPECT_TRUE(exactly(ellipse.center, 1.0, 2.0));
    EXPECT_TRUE(exactly(ellipse.axis, 3.0, 4.0));
    EXPECT_EQ(ellipse.ratio, 0.5);
    EXPECT_EQ(ellipse.start, 0.25);
    EXPECT_EQ(ellipse.end, 1.75);
}

TEST(PlaneEllipse, IsCopiedSetAndAssigned) {
    const C2DEllipse ellipse = sample();
    EXPECT_TRUE(exactly(C2DEllipse(ellipse), ellipse));
    C2DEllipse other;
    EXPECT_TRUE(other.SetData(ellipse));
    EXPECT_TRUE(exactly(other, ellipse));
    C2DEllipse third;
    EXPECT_EQ(&(third = ellipse), &third);
    EXPECT_TRUE(exactly(third, ellipse));
    C2DEllipse fourth;
    EXPECT_TRUE(fourth.SetData(C2DPoint(1.0, 2.0), C2DPoint(3.0, 4.0), 0.5, 0.25, 1.75));
    EXPECT_TRUE(exactly(fourth, ellipse));
}

TEST(PlaneEllipse, IsSetFromItsOwnPoints) {
    C2DEllipse ellipse = sample();
    ellipse.SetData(ellipse.axis, ellipse.center, 0.5, ellipse.end, ellipse.start);
    EXPECT_TRUE(exactly(ellipse, C2DEllipse(C2DPoint(3.0, 4.0), C2DPoint(1.0, 2.0), 0.5, 1.75, 0.25)));
}

TEST(PlaneEllipse, RadiiComeFromAxisAndRatio) {
    const C2DEllipse ellipse = with_axis(C2DPoint(2.0, 0.0), 0.5);
    EXPECT_EQ(ellipse.GetLongRadius(), 2.0);
    EXPECT_EQ(ellipse.GetShortRadius(), 1.0);
    EXPECT_EQ(sample().GetLongRadius(), 5.0);
    EXPECT_EQ(sample().GetShortRadius(), 2.5);
}

TEST(PlaneEllipse, IsACircleByTheDifferenceOfItsRadii) {
    EXPECT_FALSE(with_axis(C2DPoint(2.0, 0.0), 0.5).IsCircle());
    EXPECT_TRUE(with_axis(C2DPoint(2.0, 0.0), 0.5).IsEllipse());
    EXPECT_TRUE(with_axis(C2DPoint(1.0, 0.0), 1.0 - 1e-9).IsCircle());
    EXPECT_FALSE(with_axis(C2DPoint(1.0, 0.0), 1.0 - 1e-9).IsEllipse());
    EXPECT_TRUE(with_axis(C2DPoint(0.0, 1.0), 1.0 + 0.9e-8).IsCircle());
    EXPECT_FALSE(with_axis(C2DPoint(0.0, 1.0), 1.0 + 1.1e-8).IsCircle());
}

TEST(PlaneEllipse, IsACircleByAnAbsoluteDifference) {
    EXPECT_FALSE(with_axis(C2DPoint(100.0, 0.0), 1.0 - 1e-9).IsCircle());
    EXPECT_TRUE(with_axis(C2DPoint(1e-9, 0.0), 0.1).IsCircle());
}

TEST(PlaneEllipse, EqualsAnotherWithinTheToleranceOfItsPoints) {
    C2DEllipse other = sample();
    other.center.AddPoint(0.9e-8, 0.0);
    other.axis.AddPoint(0.0, -0.9e-8);
    EXPECT_TRUE(sample().Compare(other));
    EXPECT_TRUE(sample() == other);
    EXPECT_FALSE(sample() != other);
}

TEST(PlaneEllipse, DiffersByItsPointsBeyondTheTolerance) {
    C2DEllipse other = sample();
    other.center.AddPoint(0.9e-8, 0.9e-8);
    EXPECT_FALSE(sample() == other);
    EXPECT_TRUE(sample() != other);
    other = sample();
    other.axis.AddPoint(0.9e-8, 0.9e-8);
    EXPECT_FALSE(sample().Compare(other));
}

TEST(PlaneEllipse, DiffersByTheLeastDifferenceOfRatioOrAngles) {
    for (double C2DEllipse::*field : {&C2DEllipse::ratio, &C2DEllipse::start, &C2DEllipse::end}) {
        C2DEllipse other = sample();
        other.*field += 1e-15;
        EXPECT_FALSE(sample() == other);
        EXPECT_TRUE(sample() != other);
    }
}

TEST(PlaneEllipse, MovesByItsCentre) {
    C2DEllipse ellipse = sample();
    EXPECT_TRUE(ellipse.AddCenterPoint(C2DPoint(10.0, 20.0)));
    EXPECT_TRUE(ellipse.Move(C2DPoint(100.0, 200.0)));
    EXPECT_TRUE(ellipse.SubCenterPoint(C2DPoint(1.0, 1.0)));
    EXPECT_TRUE(exactly(ellipse, C2DEllipse(C2DPoint(110.0, 221.0), C2DPoint(3.0, 4.0), 0.5, 0.25, 1.75)));
}

TEST(PlaneEllipse, RotationTurnsCentreAndAnglesButNotTheAxis) {
    C2DEllipse ellipse = sample();
    EXPECT_TRUE(ellipse.Rotate(C2DPoint(1.0, 1.0), kHalfPi));
    const C2DEllipse turned(C2DPoint(0.0, 1.0), C2DPoint(3.0, 4.0), 0.5, 0.25 + kHalfPi, 1.75 + kHalfPi);
    EXPECT_TRUE(near(ellipse, turned, 1e-15));
    EXPECT_TRUE(exactly(ellipse.axis, 3.0, 4.0));
    EXPECT_EQ(ellipse.start, 0.25 + kHalfPi);
}

TEST(PlaneEllipse, RotatedAboutItsCentreKeepsIt) {
    C2DEllipse ellipse = sample();
    ellipse.Rotate(ellipse.center, 1.0);
    EXPECT_TRUE(exactly(ellipse.center, 1.0, 2.0));
}

TEST(PlaneEllipse, IsNotStretched) {
    C2DEllipse ellipse = sample();
    EXPECT_FALSE(ellipse.Stretch(C2DPoint(), 2.0, 2.0));
    EXPECT_TRUE(exactly(ellipse, sample()));
}

TEST(PlaneEllipse, DumpsAnglesInRadiansAndDegrees) {
    const C2DEllipse ellipse(C2DPoint(1.0, 2.0), C2DPoint(3.0, -4.0), 0.5, kHalfPi, -kPi);
    EXPECT_STREQ(ellipse.GetDumpText(),
                 "C:1.000000000000000,2.000000000000000 V:3.000000000000000,-4.000000000000000 R:0.500000 "
                 "AS:1.570796(90.000000) AE:-3.141593(-180.000000)");
}

// --- CalcFxEllipsAngle -----------------------------------------------------------------------------------------------

double parameter_angle(const C2DPoint& p, const C2DPoint& q, double r, double rotation) {
    double angle = -1.0;
    EXPECT_TRUE(C2DEllipse().CalcFxEllipsAngle(p, q, r, -99.0, rotation, angle));
    return angle;
}

TEST(ParameterAngle, OfTheEndsOfTheAxesIsExact) {
    const C2DPoint q(10.0, 20.0);
    EXPECT_EQ(parameter_angle(C2DPoint(12.0, 20.0), q, 2.0, 0.0), 0.0);
    EXPECT_EQ(parameter_angle(C2DPoint(10.0, 21.0), q, 2.0, 0.0), kHalfPi);
    EXPECT_EQ(parameter_angle(C2DPoint(8.0, 20.0), q, 2.0, 0.0), kPi);
    EXPECT_EQ(parameter_angle(C2DPoint(10.0, 19.0), q, 2.0, 0.0), 4.71238898038469);
}

TEST(ParameterAngle, TakesTheHeightFromTheAuxiliaryCircle) {
    EXPECT_NEAR(parameter_angle(C2DPoint(1.0, 0.001), C2DPoint(), 2.0, 0.0), kPi / 3.0, 1e-15);
    EXPECT_NEAR(parameter_angle(C2DPoint(1.0, 777.0), C2DPoint(), 2.0, 0.0), kPi / 3.0, 1e-15);
    EXPECT_NEAR(parameter_angle(C2DPoint(1.0, -0.001), C2DPoint(), 2.0, 0.0), 5.0 * kPi / 3.0, 1e-15);
    EXPECT_NEAR(parameter_angle(C2DPoint(1.0, 0.0), C2DPoint(), 2.0, 0.0), kPi / 3.0, 1e-15);
}

TEST(ParameterAngle, CountsFromTheMajorAxis) {
    EXPECT_NEAR(parameter_angle(C2DPoint(0.5, 1.0), C2DPoint(), 2.0, kHalfPi), kPi / 3.0 * 5.0, 1e-15);
    EXPECT_NEAR(parameter_angle(C2DPoint(-0.5, 1.0), C2DPoint(), 2.0, kHalfPi), kPi / 3.0, 1e-15);
}

TEST(ParameterAngle, OfAPointBeyondTheAuxiliaryCircleIsThatOfTheTip) {
    EXPECT_EQ(parameter_angle(C2DPoint(3.0, 1.0), C2DPoint(), 2.0, 0.0), 0.0);
    EXPECT_EQ(parameter_angle(C2DPoint(-3.0, -1.0), C2DPoint(), 2.0, 0.0), kPi);
}

TEST(ParameterAngle, OfExactTipsIsGoodToTheTolerance) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> turn(-3.0, 3.0);
    std::uniform_real_distribution<double> radius(0.1, 10.0);
    for (int i = 0; i < 20000; ++i) {
        const double rotation = turn(random);
        const double r = radius(random);
        const C2DPoint tip(r * std::cos(rotation), r * std::sin(rotation));
        const double angle = parameter_angle(tip, C2DPoint(), r, rotation);
        ASSERT_LT(std::fmin(angle, 2.0 * kPi - angle), 1e-7) << r << " " << rotation;
    }
}

TEST(ParameterAngle, MayBeStoredInTheEllipseItself) {
    C2DEllipse ellipse = sample();
    EXPECT_TRUE(ellipse.CalcFxEllipsAngle(C2DPoint(1.0, 4.5), ellipse.center, 5.0, 2.5, 0.0, ellipse.start));
    EXPECT_EQ(ellipse.start, kHalfPi);
}

TEST(ParameterAngle, OfNumbersThatAreNotFiniteReturns) {
    EXPECT_TRUE(std::isnan(parameter_angle(C2DPoint(kNan, 0.0), C2DPoint(), 2.0, 0.0)));
    EXPECT_EQ(parameter_angle(C2DPoint(1.0, 0.0), C2DPoint(), kNan, 0.0), 0.0);
}

}  // namespace
