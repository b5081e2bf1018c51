// Points, segments and vector lines of space.
#include "orvil/geometry/space_primitives.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "geometry/figures.h"

namespace {

using orvil::test::exactly;
using orvil::test::near;

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

static_assert(sizeof(C3DPoint) == 32 && sizeof(C3DLine) == 72 && sizeof(C3DVectorLine) == 72);
static_assert(std::has_virtual_destructor_v<C3DPoint> && std::has_virtual_destructor_v<C3DLine>);
static_assert(std::has_virtual_destructor_v<C3DVectorLine> && !std::is_base_of_v<C3DLine, C3DVectorLine>);

// --- points ----------------------------------------------------------------------------------------------------------

TEST(SpacePoint, IsMadeSetAndAssigned) {
    EXPECT_TRUE(exactly(C3DPoint(), C3DPoint(0.0, 0.0, 0.0)));
    const C3DPoint made(1.0, 2.0, 3.0);
    EXPECT_EQ(made.x, 1.0);
    EXPECT_EQ(made.y, 2.0);
    EXPECT_EQ(made.z, 3.0);
    C3DPoint point(made);
    EXPECT_TRUE(exactly(point, made));
    EXPECT_TRUE(point.SetData(4.0, 5.0, 6.0));
    EXPECT_TRUE(exactly(point, C3DPoint(4.0, 5.0, 6.0)));
    EXPECT_TRUE(point.SetData(made));
    EXPECT_TRUE(exactly(point, made));
    EXPECT_EQ(&(point = C3DPoint(7.0, 8.0, 9.0)), &point);
    EXPECT_TRUE(exactly(point, C3DPoint(7.0, 8.0, 9.0)));
}

TEST(SpacePoint, IsZeroByEachCoordinate) {
    EXPECT_TRUE(C3DPoint(0.99e-8, -0.99e-8, 0.99e-8).IsZero());
    EXPECT_FALSE(C3DPoint(1e-8, 0.0, 0.0).IsZero());
    EXPECT_FALSE(C3DPoint(0.0, -1e-8, 0.0).IsZero());
    EXPECT_FALSE(C3DPoint(0.0, 0.0, 1e-8).IsZero());
    EXPECT_FALSE(C3DPoint(0.0, 0.0, kNan).IsZero());
}

TEST(SpacePoint, IsZeroByAToleranceGiven) {
    EXPECT_TRUE(C3DPoint(0.4, -0.4, 0.4).IsZero(0.5));
    EXPECT_FALSE(C3DPoint(0.5, 0.0, 0.0).IsZero(0.5));
    EXPECT_FALSE(C3DPoint(0.0, 0.5, 0.0).IsZero(0.5));
    EXPECT_FALSE(C3DPoint(0.0, 0.0, -0.5).IsZero(0.5));
}

TEST(SpacePoint, EqualsAnotherByEachCoordinate) {
    const C3DPoint near_by(0.9e-8, 0.9e-8, 0.9e-8);
    EXPECT_TRUE(near_by == C3DPoint());
    EXPECT_TRUE(near_by.Compare(C3DPoint()));
    EXPECT_FALSE(near_by != C3DPoint());
    for (const C3DPoint& other : {C3DPoint(1e-8, 0, 0), C3DPoint(0, -1e-8, 0), C3DPoint(0, 0, 1e-8)}) {
        EXPECT_FALSE(other == C3DPoint());
        EXPECT_FALSE(other.Compare(C3DPoint()));
        EXPECT_TRUE(other != C3DPoint());
    }
}

TEST(SpacePoint, ThatIsNanEqualsNothing) {
    const C3DPoint nan(0.0, kNan, 0.0);
    EXPECT_FALSE(nan == nan);
    EXPECT_TRUE(nan != nan);
}

TEST(SpacePoint, DistanceIsEuclidean) {
    const C3DPoint point(1.0, 2.0, 3.0);
    EXPECT_EQ(point.GetDistance(3.0, 5.0, 9.0), 7.0);
    EXPECT_EQ(point.GetDistance(C3DPoint(-1.0, -1.0, -3.0)), 7.0);
    EXPECT_EQ(point.GetDistance(0.0, 0.0, 1e200), kInfinity);
}

TEST(SpacePoint, AddsAndSubtractsOffsets) {
    C3DPoint point(1.0, 2.0, 3.0);
    EXPECT_TRUE(point.AddPoint(10.0, 20.0, 30.0));
    EXPECT_TRUE(exactly(point, C3DPoint(11.0, 22.0, 33.0)));
    EXPECT_TRUE(point.AddPoint(C3DPoint(1.0, 2.0, 3.0)));
    EXPECT_TRUE(exactly(point, C3DPoint(12.0, 24.0, 36.0)));
    EXPECT_TRUE(point.Move(C3DPoint(-2.0, -4.0, -6.0)));
    EXPECT_TRUE(exactly(point, C3DPoint(10.0, 20.0, 30.0)));
    EXPECT_EQ(&(point += C3DPoint(0.5, 0.25, 0.125)), &point);
    EXPECT_TRUE(exactly(point, C3DPoint(10.5, 20.25, 30.125)));
    EXPECT_TRUE(point.SubPoint(10.0, 20.0, 30.0));
    EXPECT_TRUE(exactly(point, C3DPoint(0.5, 0.25, 0.125)));
    EXPECT_TRUE(point.SubPoint(C3DPoint(1.0, 1.0, 1.0)));
    EXPECT_TRUE(exactly(point, C3DPoint(-0.5, -0.75, -0.875)));
    EXPECT_EQ(&(point -= point), &point);
    EXPECT_TRUE(exactly(point, C3DPoint()));
}

TEST(SpacePoint, SelectsTwoCoordinatesOfAPlane) {
    const C3DPoint point(1.0, 2.0, 3.0);
    const double expected[3][2] = {{1.0, 2.0}, {2.0, 3.0}, {3.0, 1.0}};
    for (int plane = 1; plane <= 3; ++plane) {
        double a = 0.0;
        double b = 0.0;
        EXPECT_TRUE(point.Select2D(plane, a, b));
        EXPECT_EQ(a, expected[plane - 1][0]);
        EXPECT_EQ(b, expected[plane - 1][1]);
    }
}

TEST(SpacePoint, SelectsNothingOfAnotherPlane) {
    for (int plane : {0, 4, -1, 1000000, -2147483647 - 1, 2147483647}) {
        double a = 7.0;
        double b = 8.0;
        EXPECT_FALSE(C3DPoint(1.0, 2.0, 3.0).Select2D(plane, a, b)) << plane;
        EXPECT_EQ(a, 7.0);
        EXPECT_EQ(b, 8.0);
    }
}

TEST(SpacePoint, SelectsIntoItself) {
    C3DPoint point(1.0, 2.0, 3.0);
    EXPECT_TRUE(point.Select2D(3, point.x, point.y));
    EXPECT_TRUE(exactly(point, C3DPoint(3.0, 1.0, 3.0)));
}

C3DPoint rotated(C3DPoint point, const C3DPoint& centre, double ax, double ay, double az) {
    EXPECT_TRUE(point.Rotate(centre, ax, ay, az));
    return point;
}

TEST(SpacePoint, RotatesAboutEachAxis) {
    const C3DPoint o;
    EXPECT_TRUE(near(rotated(C3DPoint(1, 0, 0), o, 0, 0, kHalfPi), C3DPoint(0, 1, 0), 1e-15));
    EXPECT_TRUE(near(rotated(C3DPoint(0, 1, 0), o, 0, 0, kHalfPi), C3DPoint(-1, 0, 0), 1e-15));
    EXPECT_TRUE(near(rotated(C3DPoint(1, 0, 0), o, 0, kHalfPi, 0), C3DPoint(0, 0, -1), 1e-15));
    EXPECT_TRUE(near(rotated(C3DPoint(0, 0, 1), o, 0, kHalfPi, 0), C3DPoint(1, 0, 0), 1e-15));
    EXPECT_TRUE(near(rotated(C3DPoint(0, 1, 0), o, kHalfPi, 0, 0), C3DPoint(0, 0, 1), 1e-15));
    EXPECT_TRUE(near(rotated(C3DPoint(0, 0, 1), o, kHalfPi, 0, 0), C3DPoint(0, -1, 0), 1e-15));
}

TEST(SpacePoint, RotatesAboutXThenYThenZ) {
    // (0, 1, 0) goes to (0, 0, 1), to (1, 0, 0), to (0, 1, 0).
    EXPECT_TRUE(near(rotated(C3DPoint(0, 1, 0), C3DPoint(), kHalfPi, kHalfPi, kHalfPi), C3DPoint(0, 1, 0), 1e-15));
    // (0, 0, 1) goes to (0, -1, 0), stays, goes to (1, 0, 0).
    EXPECT_TRUE(near(rotated(C3DPoint(0, 0, 1), C3DPoint(), kHalfPi, kHalfPi, kHalfPi), C3DPoint(1, 0, 0), 1e-15));
}

TEST(SpacePoint, RotatesAboutACentre) {
    EXPECT_TRUE(near(rotated(C3DPoint(2, 1, 5), C3DPoint(1, 1, 1), 0, 0, kHalfPi), C3DPoint(1, 2, 5), 1e-15));
    EXPECT_TRUE(near(rotated(C3DPoint(2, 1, 1), C3DPoint(1, 1, 1), 0, kHalfPi, 0), C3DPoint(1, 1, 0), 1e-15));
    C3DPoint point(3.0, 4.0, 5.0);
    point.Rotate(point, 1.0, 2.0, 3.0);
    EXPECT_TRUE(exactly(point, C3DPoint(3.0, 4.0, 5.0)));
}

TEST(SpacePoint, StretchesEachCoordinateAboutABase) {
    C3DPoint point(3.0, 5.0, 7.0);
    EXPECT_TRUE(point.Stretch(C3DPoint(1.0, 1.0, 1.0), 2.0, -3.0, 0.5));
    EXPECT_TRUE(exactly(point, C3DPoint(5.0, -11.0, 4.0)));
    point.Stretch(point, 2.0, 2.0, 2.0);
    EXPECT_TRUE(exactly(point, C3DPoint(5.0, -11.0, 4.0)));
}

TEST(SpacePoint, DumpsSixDigitsOfEachCoordinate) {
    EXPECT_STREQ(C3DPoint(1.5, -2.0, 1.0 / 3.0).GetDumpText(), "1.500000,-2.000000,0.333333");
}

// --- segments --------------------------------------------------------------------------------------------------------

TEST(SpaceLine, IsMadeSetAndAssigned) {
    EXPECT_TRUE(exactly(C3DLine(), {0, 0, 0, 0, 0, 0}));
    const C3DLine line(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    EXPECT_TRUE(exactly(line, {1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(exactly(C3DLine(line), {1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(exactly(C3DLine(C3DPoint(1, 2, 3), C3DPoint(4, 5, 6)), {1, 2, 3, 4, 5, 6}));
    C3DLine other;
    EXPECT_TRUE(other.SetData(line));
    EXPECT_TRUE(exactly(other, {1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(other.SetData(other.end, other.start));
    EXPECT_TRUE(exactly(other, {4, 5, 6, 1, 2, 3}));
    EXPECT_TRUE(other.SetData(7.0, 8.0, 9.0, 10.0, 11.0, 12.0));
    EXPECT_TRUE(exactly(other, {7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(&(other = line), &other);
    EXPECT_TRUE(exactly(other, {1, 2, 3, 4, 5, 6}));
}

TEST(SpaceLine, LengthIsTheDistanceOfItsPoints) {
    EXPECT_EQ(C3DLine(1.0, 2.0, 3.0, 3.0, 5.0, 9.0).GetLength(), 7.0);
}

TEST(SpaceLine, EqualsAnotherCoordinateByCoordinate) {
    const C3DLine line(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    const double d = 0.9e-8;
    EXPECT_TRUE(line.Compare(C3DLine(1.0 + d, 2.0 - d, 3.0 + d, 4.0 - d, 5.0 + d, 6.0 - d)));
    EXPECT_FALSE(line.Compare(C3DLine(1.0, 2.0, 3.0 + 1.1e-8, 4.0, 5.0, 6.0)));
    EXPECT_FALSE(line.Compare(C3DLine(1.0, 2.0, 3.0, 4.0 + 1.1e-8, 5.0, 6.0)));
    EXPECT_FALSE(line.Compare(C3DLine(4.0, 5.0, 6.0, 1.0, 2.0, 3.0)));
}

TEST(SpaceLine, MovesBothPoints) {
    C3DLine line(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    EXPECT_TRUE(line.Move(C3DPoint(10.0, 20.0, 30.0)));
    EXPECT_TRUE(exactly(line, {11, 22, 33, 14, 25, 36}));
    line.Move(line.start);
    EXPECT_TRUE(exactly(line, {22, 44, 66, 25, 47, 69}));
}

TEST(SpaceLine, RotatesBothPoints) {
    C3DLine line(1.0, 0.0, 0.0, 2.0, 0.0, 1.0);
    EXPECT_TRUE(line.Rotate(C3DPoint(), 0.0, 0.0, kHalfPi));
    EXPECT_TRUE(near(line, {0, 1, 0, 0, 2, 1}, 1e-15));
    C3DLine own(1.0, 0.0, 0.0, 2.0, 0.0, 0.0);
    own.Rotate(own.start, 0.0, kHalfPi, 0.0);
    EXPECT_TRUE(near(own, {1, 0, 0, 1, 0, -1}, 1e-15));
}

TEST(SpaceLine, RotatesByAllThreeAngles) {
    C3DLine line(0.0, 1.0, 0.0, 0.0, 0.0, 1.0);
    line.Rotate(C3DPoint(), kHalfPi, kHalfPi, kHalfPi);
    EXPECT_TRUE(near(line, {0, 1, 0, 1, 0, 0}, 1e-15));
}

TEST(SpaceLine, StretchesBothPoints) {
    C3DLine line(2.0, 2.0, 2.0, 3.0, 4.0, 5.0);
    EXPECT_TRUE(line.Stretch(C3DPoint(1.0, 1.0, 1.0), 2.0, -1.0, 3.0));
    EXPECT_TRUE(exactly(line, {3, 0, 4, 5, -2, 13}));
    C3DLine own(1.0, 2.0, 3.0, 2.0, 4.0, 6.0);
    own.Stretch(own.start, 2.0, 3.0, 4.0);
    EXPECT_TRUE(exactly(own, {1, 2, 3, 3, 8, 15}));
}

TEST(SpaceLine, DumpsBothPoints) {
    EXPECT_STREQ(C3DLine(1.0, 2.0, 3.0, -4.0, 5.5, 0.0).GetDumpText(),
                 "SP:1.000000,2.000000,3.000000 EP:-4.000000,5.500000,0.000000");
}

// --- vector lines ----------------------------------------------------------------------------------------------------

TEST(SpaceVectorLine, IsMadeSetAndAssigned) {
    EXPECT_TRUE(exactly(C3DVectorLine(), {0, 0, 0, 0, 0, 0}));
    const C3DVectorLine line(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    EXPECT_TRUE(exactly(line, {1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(exactly(C3DVectorLine(line), {1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(exactly(C3DVectorLine(C3DPoint(1, 2, 3), C3DPoint(4, 5, 6)), {1, 2, 3, 4, 5, 6}));
    C3DVectorLine other;
    EXPECT_TRUE(other.SetData(line));
    EXPECT_TRUE(exactly(other, {1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(other.SetData(other.vector, other.base));
    EXPECT_TRUE(exactly(other, {4, 5, 6, 1, 2, 3}));
    EXPECT_TRUE(other.SetData(7.0, 8.0, 9.0, 10.0, 11.0, 12.0));
    EXPECT_TRUE(exactly(other, {7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(&(other = line), &other);
    EXPECT_TRUE(exactly(other, {1, 2, 3, 4, 5, 6}));
}

TEST(SpaceVectorLine, LengthIsThatOfTheVector) {
    EXPECT_EQ(C3DVectorLine(100.0, 200.0, 300.0, 2.0, 3.0, 6.0).GetLength(), 7.0);
}

TEST(SpaceVectorLine, EqualsAnotherCoordinateByCoordinate) {
    const C3DVectorLine line(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    const double d = 0.9e-8;
    EXPECT_TRUE(line.Compare(C3DVectorLine(1.0 + d, 2.0 - d, 3.0 + d, 4.0 - d, 5.0 + d, 6.0 - d)));
    EXPECT_FALSE(line.Compare(C3DVectorLine(1.0, 2.0 + 1.1e-8, 3.0, 4.0, 5.0, 6.0)));
    EXPECT_FALSE(line.Compare(C3DVectorLine(1.0, 2.0, 3.0, 4.0, 5.0, 6.0 + 1.1e-8)));
}

TEST(SpaceVectorLine, MovesItsBaseOnly) {
    C3DVectorLine line(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    EXPECT_TRUE(line.Move(C3DPoint(10.0, 20.0, 30.0)));
    EXPECT_TRUE(exactly(line, {11, 22, 33, 4, 5, 6}));
}

TEST(SpaceVectorLine, OptimizeMultipliesByTheLength) {
    C3DVectorLine line(1.0, 2.0, 3.0, 2.0, 3.0, 6.0);
    EXPECT_TRUE(line.Optimize());
    EXPECT_TRUE(exactly(line, {1, 2, 3, 14, 21, 42}));
    C3DVectorLine unit(1.0, 2.0, 3.0, 0.0, 0.0, -1.0);
    EXPECT_TRUE(unit.Optimize());
    EXPECT_TRUE(exactly(unit, {1, 2, 3, 0, 0, -1}));
}

TEST(SpaceVectorLine, RotatesTheVectorAsAPoint) {
    C3DVectorLine line(2.0, 1.0, 0.0, 1.0, 2.0, 3.0);
    EXPECT_TRUE(line.Rotate(C3DPoint(1.0, 1.0, 0.0), 0.0, 0.0, kHalfPi));
    EXPECT_TRUE(near(line, {1, 2, 0, 0, 1, 3}, 1e-15));
    C3DVectorLine own(1.0, 0.0, 0.0, 2.0, 0.0, 0.0);
    own.Rotate(own.base, kHalfPi, kHalfPi, kHalfPi);
    EXPECT_TRUE(near(own, {1, 0, 0, 1, 0, -1}, 1e-15));
}

TEST(SpaceVectorLine, StretchesTheVectorAsAPoint) {
    C3DVectorLine line(2.0, 2.0, 2.0, 3.0, 4.0, 5.0);
    EXPECT_TRUE(line.Stretch(C3DPoint(1.0, 1.0, 1.0), 2.0, -1.0, 3.0));
    EXPECT_TRUE(exactly(line, {3, 0, 4, 5, -2, 13}));
    line.Stretch(line.base, 2.0, 2.0, 2.0);
    EXPECT_TRUE(exactly(line, {3, 0, 4, 7, -4, 22}));
}

TEST(SpaceVectorLine, DumpsBaseAndVector) {
    EXPECT_STREQ(C3DVectorLine(1.0, 2.0, 3.0, -4.0, 5.5, 0.0).GetDumpText(),
                 "BP:1.000000,2.000000,3.000000 VP:-4.000000,5.500000,0.000000");
}

TEST(SpaceFigure, TakesNumbersThatAreNotFinite) {
    for (double odd : {kNan, kInfinity, -kInfinity}) {
        C3DVectorLine line(odd, 1.0, 2.0, 3.0, odd, 4.0);
        EXPECT_TRUE(line.Rotate(C3DPoint(odd, odd, odd), odd, odd, odd));
        EXPECT_TRUE(line.Stretch(line.vector, odd, odd, odd));
        EXPECT_TRUE(line.Optimize());
        EXPECT_TRUE(std::isnan(line.base.x));
    }
}

}  // namespace
