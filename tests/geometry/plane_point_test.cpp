// Points of the plane.
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

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

static_assert(sizeof(C2DPoint) == 24);
static_assert(std::has_virtual_destructor_v<C2DPoint>);

TEST(PlanePoint, IsTheOriginByDefault) {
    EXPECT_TRUE(exactly(C2DPoint(), 0.0, 0.0));
}

TEST(PlanePoint, IsMadeOfCoordinatesOrAnotherPoint) {
    const C2DPoint point(1.5, -2.5);
    EXPECT_TRUE(exactly(point, 1.5, -2.5));
    EXPECT_TRUE(exactly(C2DPoint(point), 1.5, -2.5));
}

TEST(PlanePoint, IsSetAndAssigned) {
    C2DPoint point;
    EXPECT_TRUE(point.SetData(1.0, 2.0));
    EXPECT_TRUE(exactly(point, 1.0, 2.0));
    EXPECT_TRUE(point.SetData(C2DPoint(3.0, 4.0)));
    EXPECT_TRUE(exactly(point, 3.0, 4.0));
    EXPECT_EQ(&(point = C2DPoint(5.0, 6.0)), &point);
    EXPECT_TRUE(exactly(point, 5.0, 6.0));
}

TEST(PlanePoint, IsZeroByEachCoordinateBelowTheTolerance) {
    EXPECT_TRUE(C2DPoint(0.0, 0.99e-8).IsZero());
    EXPECT_TRUE(C2DPoint(-0.99e-8, -0.99e-8).IsZero());
    EXPECT_FALSE(C2DPoint(1e-8, 0.0).IsZero());
    EXPECT_FALSE(C2DPoint(0.0, -1e-8).IsZero());
    EXPECT_FALSE(C2DPoint(0.0, kNan).IsZero());
}

TEST(PlanePoint, IsZeroByAToleranceGiven) {
    EXPECT_TRUE(C2DPoint(0.4, -0.4).IsZero(0.5));
    EXPECT_FALSE(C2DPoint(0.5, 0.0).IsZero(0.5));
    EXPECT_FALSE(C2DPoint(0.0, -0.5).IsZero(0.5));
    EXPECT_FALSE(C2DPoint(0.0, 0.0).IsZero(0.0));
}

TEST(PlanePoint, EqualsAnotherByTheirDistance) {
    const C2DPoint origin;
    const C2DPoint near_by(0.9e-8, 0.9e-8);
    EXPECT_TRUE(near_by.IsZero());
    EXPECT_FALSE(near_by == origin);
    EXPECT_TRUE(near_by != origin);
    EXPECT_FALSE(near_by.Compare(origin));
}

TEST(PlanePoint, EqualsAnotherBelowTheToleranceStrictly) {
    EXPECT_TRUE(C2DPoint(0.7e-8, 0.7e-8) == C2DPoint());
    EXPECT_TRUE(C2DPoint(0.7e-8, 0.7e-8).Compare(C2DPoint()));
    EXPECT_FALSE(C2DPoint(0.7e-8, 0.7e-8) != C2DPoint());
    EXPECT_FALSE(C2DPoint(1e-8, 0.0) == C2DPoint());
    EXPECT_TRUE(C2DPoint(5.0, 6.0) == C2DPoint(5.0, 6.0));
}

TEST(PlanePoint, ThatIsNanEqualsNothing) {
    const C2DPoint nan(kNan, 0.0);
    EXPECT_FALSE(nan == nan);
    EXPECT_TRUE(nan != nan);
}

TEST(PlanePoint, AddsOffsets) {
    C2DPoint point(1.0, 2.0);
    EXPECT_TRUE(point.AddPoint(10.0, 20.0));
    EXPECT_TRUE(exactly(point, 11.0, 22.0));
    EXPECT_TRUE(point.AddPoint(C2DPoint(1.0, -1.0)));
    EXPECT_TRUE(exactly(point, 12.0, 21.0));
    EXPECT_TRUE(point.Move(C2DPoint(-2.0, -1.0)));
    EXPECT_TRUE(exactly(point, 10.0, 20.0));
    EXPECT_EQ(&(point += C2DPoint(0.5, 0.25)), &point);
    EXPECT_TRUE(exactly(point, 10.5, 20.25));
}

TEST(PlanePoint, SubtractsOffsets) {
    C2DPoint point(1.0, 2.0);
    EXPECT_TRUE(point.SubPoint(10.0, 20.0));
    EXPECT_TRUE(exactly(point, -9.0, -18.0));
    EXPECT_TRUE(point.SubPoint(C2DPoint(1.0, -1.0)));
    EXPECT_TRUE(exactly(point, -10.0, -17.0));
    EXPECT_EQ(&(point -= C2DPoint(0.5, 0.25)), &point);
    EXPECT_TRUE(exactly(point, -10.5, -17.25));
}

TEST(PlanePoint, AddsAndSubtractsItself) {
    C2DPoint point(1.0, 2.0);
    point += point;
    EXPECT_TRUE(exactly(point, 2.0, 4.0));
    point -= point;
    EXPECT_TRUE(exactly(point, 0.0, 0.0));
}

TEST(PlanePoint, DistanceIsEuclidean) {
    const C2DPoint point(1.0, 2.0);
    EXPECT_EQ(point.GetDistance(4.0, 6.0), 5.0);
    EXPECT_EQ(point.GetDistance(C2DPoint(-2.0, -2.0)), 5.0);
    EXPECT_EQ(point.GetDistance(point), 0.0);
    EXPECT_EQ(point.GetDistance(1e200, 0.0), kInfinity);
}

TEST(PlanePoint, RotatesCounterClockwiseAboutACentre) {
    C2DPoint point(3.0, 1.0);
    EXPECT_TRUE(point.Rotate(C2DPoint(1.0, 1.0), kHalfPi));
    EXPECT_TRUE(near(point, 1.0, 3.0, 1e-15));
    C2DPoint other(1.0, 0.0);
    EXPECT_TRUE(other.Rotate(C2DPoint(), kHalfPi / 3.0));
    EXPECT_TRUE(near(other, std::sqrt(0.75), 0.5, 1e-15));
}

TEST(PlanePoint, RotatesByTheFormulaToTheLastBit) {
    for (double angle : {0.1, 0.1, -2.5, 0.1, 1e6, 0.0, -0.0}) {
        C2DPoint point(3.0, 4.0);
        point.Rotate(C2DPoint(0.5, -0.25), angle);
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        EXPECT_TRUE(exactly(point, c * 2.5 - s * 4.25 + 0.5, s * 2.5 + c * 4.25 + -0.25)) << angle;
    }
}

TEST(PlanePoint, RotatedAboutItselfStays) {
    C2DPoint point(3.0, 1.0);
    point.Rotate(point, 1.0);
    EXPECT_TRUE(exactly(point, 3.0, 1.0));
}

TEST(PlanePoint, StretchesAboutABase) {
    C2DPoint point(3.0, 5.0);
    EXPECT_TRUE(point.Stretch(C2DPoint(1.0, 1.0), 2.0, -3.0));
    EXPECT_TRUE(exactly(point, 5.0, -11.0));
}

TEST(PlanePoint, StretchedAboutItselfStays) {
    C2DPoint point(3.0, 5.0);
    point.Stretch(point, 2.0, -3.0);
    EXPECT_TRUE(exactly(point, 3.0, 5.0));
}

TEST(PlanePoint, MirrorsInALine) {
    C2DPoint point(3.0, 1.0);
    EXPECT_TRUE(point.Mirror(C2DPoint(0.0, 0.0), C2DPoint(2.0, 2.0)));
    EXPECT_TRUE(exactly(point, 1.0, 3.0));
    EXPECT_TRUE(point.Mirror(C2DPoint(0.0, 5.0), C2DPoint(1.0, 5.0)));
    EXPECT_TRUE(exactly(point, 1.0, 7.0));
    EXPECT_TRUE(point.Mirror(C2DPoint(-1.0, 9.0), C2DPoint(-1.0, -9.0)));
    EXPECT_TRUE(exactly(point, -3.0, 7.0));
}

TEST(PlanePoint, OnTheAxisOfTheMirrorStays) {
    C2DPoint point(5.0, 5.0);
    EXPECT_TRUE(point.Mirror(C2DPoint(0.0, 0.0), C2DPoint(2.0, 2.0)));
    EXPECT_TRUE(exactly(point, 5.0, 5.0));
}

TEST(PlanePoint, DoesNotMirrorInAnAxisShorterThanTheRootOfTheTolerance) {
    C2DPoint point(3.0, 1.0);
    EXPECT_FALSE(point.Mirror(C2DPoint(1.0, 1.0), C2DPoint(1.0, 1.0)));
    EXPECT_FALSE(point.Mirror(C2DPoint(0.0, 0.0), C2DPoint(0.99e-4, 0.0)));
    EXPECT_TRUE(exactly(point, 3.0, 1.0));
    EXPECT_TRUE(point.Mirror(C2DPoint(0.0, 0.0), C2DPoint(1.01e-4, 0.0)));
    EXPECT_TRUE(exactly(point, 3.0, -1.0));
}

TEST(PlanePoint, MirrorsInAnAxisThatItEnds) {
    C2DPoint point(3.0, 1.0);
    EXPECT_TRUE(point.Mirror(point, C2DPoint(7.0, 4.0)));
    EXPECT_TRUE(exactly(point, 3.0, 1.0));
    EXPECT_TRUE(point.Mirror(C2DPoint(7.0, 4.0), point));
    EXPECT_TRUE(near(point, 3.0, 1.0, 1e-15));
}

TEST(PlanePoint, DumpsFifteenDigitsOfEachCoordinate) {
    EXPECT_STREQ(C2DPoint(1.5, -2.0).GetDumpText(), "1.500000000000000,-2.000000000000000");
    EXPECT_STREQ(C2DPoint().GetDumpText(), "0.000000000000000,0.000000000000000");
    EXPECT_STREQ(C2DPoint(1.0 / 3.0, 1e-16).GetDumpText(), "0.333333333333333,0.000000000000000");
}

TEST(PlanePoint, DumpsTheGreatestCoordinates) {
    const double most = std::numeric_limits<double>::max();
    EXPECT_EQ(C2DPoint(-most, most).GetDumpText().GetLength(), 1 + 2 * (309 + 1 + 15) + 1);
}

TEST(PlanePoint, TakesNumbersThatAreNotFinite) {
    for (double odd : {kNan, kInfinity, -kInfinity}) {
        C2DPoint point(odd, 1.0);
        EXPECT_TRUE(point.Rotate(C2DPoint(odd, odd), odd));
        EXPECT_TRUE(point.Stretch(C2DPoint(odd, 1.0), odd, odd));
        EXPECT_TRUE(point.Move(point));
        point.Mirror(C2DPoint(odd, 1.0), C2DPoint(1.0, odd));
        EXPECT_TRUE(std::isnan(point.x));
    }
}

}  // namespace
