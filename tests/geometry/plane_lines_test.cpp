// Segments and vector lines of the plane.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "geometry/figures.h"
#include "orvil/geometry/plane_primitives.h"

namespace {

using orvil::test::exactly;
using orvil::test::near;

constexpr double kPi = 3.141592653589793;
constexpr double kHalfPi = 1.5707963267948966;

static_assert(sizeof(C2DLine) == 56 && sizeof(C2DVectorLine) == 56);
static_assert(std::has_virtual_destructor_v<C2DLine> && std::has_virtual_destructor_v<C2DVectorLine>);

// --- segments --------------------------------------------------------------------------------------------------------

TEST(PlaneLine, IsMadeInFourForms) {
    EXPECT_TRUE(exactly(C2DLine(), 0, 0, 0, 0));
    const C2DLine line(1.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(exactly(line, 1, 2, 3, 4));
    EXPECT_TRUE(exactly(C2DLine(line), 1, 2, 3, 4));
    EXPECT_TRUE(exactly(C2DLine(C2DPoint(5.0, 6.0), C2DPoint(7.0, 8.0)), 5, 6, 7, 8));
}

TEST(PlaneLine, IsSetInThreeFormsAndAssigned) {
    C2DLine line;
    EXPECT_TRUE(line.SetData(1.0, 2.0, 3.0, 4.0));
    EXPECT_TRUE(exactly(line, 1, 2, 3, 4));
    EXPECT_TRUE(line.SetData(C2DPoint(5.0, 6.0), C2DPoint(7.0, 8.0)));
    EXPECT_TRUE(exactly(line, 5, 6, 7, 8));
    EXPECT_TRUE(line.SetData(C2DLine(9.0, 10.0, 11.0, 12.0)));
    EXPECT_TRUE(exactly(line, 9, 10, 11, 12));
    EXPECT_EQ(&(line = C2DLine(1.0, 2.0, 3.0, 4.0)), &line);
    EXPECT_TRUE(exactly(line, 1, 2, 3, 4));
}

TEST(PlaneLine, IsReversedByItsOwnPoints) {
    C2DLine line(1.0, 2.0, 3.0, 4.0);
    line.SetData(line.end, line.start);
    EXPECT_TRUE(exactly(line, 3, 4, 1, 2));
}

TEST(PlaneLine, LengthIsTheDistanceOfItsPoints) {
    EXPECT_EQ(C2DLine(1.0, 2.0, 4.0, 6.0).GetLength(), 5.0);
    EXPECT_EQ(C2DLine().GetLength(), 0.0);
}

TEST(PlaneLine, AnglePointsFromStartToEnd) {
    EXPECT_EQ(C2DLine(3.0, 1.0, 3.0, 5.0).GetAngle(), kHalfPi);
    EXPECT_EQ(C2DLine(3.0, 5.0, 3.0, 1.0).GetAngle(), 4.71238898038469);
    EXPECT_EQ(C2DLine(5.0, 1.0, 2.0, 1.0 + 0.9e-8).GetAngle(), kPi);
    EXPECT_EQ(C2DLine(1.0, 1.0, 2.0, 2.0).GetAngle(), kPi / 4.0);
}

TEST(PlaneLine, EqualsAnotherPointByPoint) {
    const C2DLine line(1.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(line.Compare(line));
    EXPECT_TRUE(line.Compare(C2DLine(1.0, 2.0 + 0.9e-8, 3.0 - 0.9e-8, 4.0)));
    EXPECT_FALSE(line.Compare(C2DLine(1.0, 2.0 + 1.1e-8, 3.0, 4.0)));
    EXPECT_FALSE(line.Compare(C2DLine(1.0, 2.0, 3.0, 4.0 - 1.1e-8)));
    EXPECT_FALSE(C2DLine().Compare(C2DLine(0.9e-8, 0.9e-8, 0.0, 0.0)));  // by distance
    EXPECT_FALSE(C2DLine().Compare(C2DLine(0.0, 0.0, 1e-8, 0.0)));       // strictly
}

TEST(PlaneLine, EqualsTwoPoints) {
    const C2DLine line(1.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(line.Compare(C2DPoint(1.0, 2.0), C2DPoint(3.0, 4.0)));
    EXPECT_FALSE(line.Compare(C2DPoint(1.0, 2.0), C2DPoint(3.0, 5.0)));
    EXPECT_FALSE(line.Compare(C2DPoint(0.0, 2.0), C2DPoint(3.0, 4.0)));
}

TEST(PlaneLine, ReversedIsAnotherOne) {
    EXPECT_FALSE(C2DLine(1.0, 2.0, 3.0, 4.0).Compare(C2DLine(3.0, 4.0, 1.0, 2.0)));
}

TEST(PlaneLine, AddsOneOffsetToEachPoint) {
    C2DLine line(1.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(line.AddLine(10.0, 20.0, 30.0, 40.0));
    EXPECT_TRUE(exactly(line, 11, 22, 33, 44));
    EXPECT_TRUE(line.AddLine(C2DPoint(1.0, 0.0), C2DPoint(0.0, 1.0)));
    EXPECT_TRUE(exactly(line, 12, 22, 33, 45));
    EXPECT_TRUE(line.AddLine(C2DLine(1.0, 2.0, 3.0, 4.0)));
    EXPECT_TRUE(exactly(line, 13, 24, 36, 49));
    EXPECT_EQ(&(line += C2DLine(-1.0, -1.0, -1.0, -1.0)), &line);
    EXPECT_TRUE(exactly(line, 12, 23, 35, 48));
}

TEST(PlaneLine, SubtractsOneOffsetFromEachPoint) {
    C2DLine line(1.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(line.SubLine(10.0, 20.0, 30.0, 40.0));
    EXPECT_TRUE(exactly(line, -9, -18, -27, -36));
    EXPECT_TRUE(line.SubLine(C2DPoint(1.0, 0.0), C2DPoint(0.0, 1.0)));
    EXPECT_TRUE(exactly(line, -10, -18, -27, -37));
    EXPECT_TRUE(line.SubLine(C2DLine(1.0, 2.0, 3.0, 4.0)));
    EXPECT_TRUE(exactly(line, -11, -20, -30, -41));
    EXPECT_EQ(&(line -= C2DLine(-1.0, -1.0, -1.0, -1.0)), &line);
    EXPECT_TRUE(exactly(line, -10, -19, -29, -40));
}

TEST(PlaneLine, AddsAndSubtractsItsOwnPoints) {
    C2DLine line(1.0, 2.0, 3.0, 4.0);
    line.AddLine(line.end, line.start);
    EXPECT_TRUE(exactly(line, 4, 6, 4, 6));
    C2DLine other(1.0, 2.0, 3.0, 4.0);
    other.SubLine(other.end, other.start);
    EXPECT_TRUE(exactly(other, -2, -2, 2, 2));
    other -= other;
    EXPECT_TRUE(exactly(other, 0, 0, 0, 0));
}

TEST(PlaneLine, MovesItsStartOnly) {
    C2DLine line(0.0, 0.0, 1.0, 0.0);
    EXPECT_TRUE(line.Move(C2DPoint(5.0, 5.0)));
    EXPECT_TRUE(exactly(line, 5, 5, 1, 0));
}

TEST(PlaneLine, RotatesItsStartOnly) {
    C2DLine line(1.0, 0.0, 2.0, 0.0);
    EXPECT_TRUE(line.Rotate(C2DPoint(), kHalfPi));
    EXPECT_TRUE(near(line, 0, 1, 2, 0, 1e-15));
    EXPECT_TRUE(exactly(line.end, 2, 0));
}

TEST(PlaneLine, StretchesBothPoints) {
    C2DLine line(2.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(line.Stretch(C2DPoint(1.0, 1.0), 2.0, -1.0));
    EXPECT_TRUE(exactly(line, 3, 0, 5, -2));
}

TEST(PlaneLine, StretchesAboutItsOwnPoints) {
    C2DLine line(1.0, 2.0, 3.0, 4.0);
    line.Stretch(line.start, 2.0, 3.0);
    EXPECT_TRUE(exactly(line, 1, 2, 5, 8));
    line.Stretch(line.end, 0.5, 0.5);
    EXPECT_TRUE(exactly(line, 3, 5, 5, 8));
}

TEST(PlaneLine, StretchesWithoutLimitAboutItsOwnStart) {
    C2DLine line(1.0, 2.0, 3.0, 4.0);
    line.Stretch(line.start, std::numeric_limits<double>::infinity(), 1.0);
    EXPECT_EQ(line.end.x, std::numeric_limits<double>::infinity());
}

TEST(PlaneLine, MirrorsBothPoints) {
    C2DLine line(3.0, 1.0, 4.0, -2.0);
    EXPECT_TRUE(line.Mirror(C2DPoint(0.0, 0.0), C2DPoint(2.0, 2.0)));
    EXPECT_TRUE(exactly(line, 1, 3, -2, 4));
}

TEST(PlaneLine, IsNotMirroredInAPoint) {
    C2DLine line(3.0, 1.0, 4.0, -2.0);
    EXPECT_FALSE(line.Mirror(C2DPoint(1.0, 1.0), C2DPoint(1.0, 1.00009)));
    EXPECT_TRUE(exactly(line, 3, 1, 4, -2));
}

TEST(PlaneLine, MirrorsInItself) {
    C2DLine line(0.0, 0.0, 4.0, -2.0);
    EXPECT_TRUE(line.Mirror(line.start, line.end));
    EXPECT_TRUE(near(line, 0, 0, 4, -2, 1e-15));
}

TEST(PlaneLine, DumpsBothPoints) {
    EXPECT_STREQ(C2DLine(1.0, -2.5, 3.0, 0.0).GetDumpText(),
                 "SP:1.000000000000000,-2.500000000000000 EP:3.000000000000000,0.000000000000000");
}

// --- vector lines ----------------------------------------------------------------------------------------------------

TEST(PlaneVectorLine, IsMadeInFourForms) {
    EXPECT_TRUE(exactly(C2DVectorLine(), 0, 0, 0, 0));
    const C2DVectorLine line(1.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(exactly(line, 1, 2, 3, 4));
    EXPECT_TRUE(exactly(C2DVectorLine(line), 1, 2, 3, 4));
    EXPECT_TRUE(exactly(C2DVectorLine(C2DPoint(5.0, 6.0), C2DPoint(7.0, 8.0)), 5, 6, 7, 8));
}

TEST(PlaneVectorLine, IsSetInThreeFormsAndAssigned) {
    C2DVectorLine line;
    EXPECT_TRUE(line.SetData(1.0, 2.0, 3.0, 4.0));
    EXPECT_TRUE(exactly(line, 1, 2, 3, 4));
    EXPECT_TRUE(line.SetData(C2DPoint(5.0, 6.0), C2DPoint(7.0, 8.0)));
    EXPECT_TRUE(exactly(line, 5, 6, 7, 8));
    EXPECT_TRUE(line.SetData(C2DVectorLine(9.0, 10.0, 11.0, 12.0)));
    EXPECT_TRUE(exactly(line, 9, 10, 11, 12));
    EXPECT_EQ(&(line = C2DVectorLine(1.0, 2.0, 3.0, 4.0)), &line);
    EXPECT_TRUE(exactly(line, 1, 2, 3, 4));
}

TEST(PlaneVectorLine, IsSetFromItsOwnPoints) {
    C2DVectorLine line(1.0, 2.0, 3.0, 4.0);
    line.SetData(line.vector, line.base);
    EXPECT_TRUE(exactly(line, 3, 4, 1, 2));
}

TEST(PlaneVectorLine, LengthIsThatOfTheVector) {
    EXPECT_EQ(C2DVectorLine(100.0, 200.0, 3.0, 4.0).GetLength(), 5.0);
}

TEST(PlaneVectorLine, EqualsAnotherByBaseAndVector) {
    const C2DVectorLine line(1.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(line.Compare(line));
    EXPECT_TRUE(line.Compare(C2DVectorLine(1.0, 2.0 + 0.9e-8, 3.0 - 0.9e-8, 4.0)));
    EXPECT_FALSE(line.Compare(C2DVectorLine(1.0, 2.0 + 1.1e-8, 3.0, 4.0)));
    EXPECT_FALSE(line.Compare(C2DVectorLine(1.0, 2.0, 3.0, 4.0 - 1.1e-8)));
    EXPECT_TRUE(line.Compare(C2DPoint(1.0, 2.0), C2DPoint(3.0, 4.0)));
    EXPECT_FALSE(line.Compare(C2DPoint(1.0, 2.0), C2DPoint(3.0, 5.0)));
    EXPECT_FALSE(line.Compare(C2DPoint(2.0, 2.0), C2DPoint(3.0, 4.0)));
}

TEST(PlaneVectorLine, MovesItsBaseOnly) {
    C2DVectorLine line(1.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(line.Move(C2DPoint(10.0, 20.0)));
    EXPECT_TRUE(exactly(line, 11, 22, 3, 4));
}

TEST(PlaneVectorLine, OptimizeMultipliesByTheLength) {
    C2DVectorLine line(1.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(line.Optimize());
    EXPECT_TRUE(exactly(line, 1, 2, 15, 20));
    C2DVectorLine two(0.0, 0.0, 0.0, -2.0);
    EXPECT_TRUE(two.Optimize());
    EXPECT_TRUE(exactly(two, 0, 0, 0, -4));
    C2DVectorLine unit(0.0, 0.0, -1.0, 0.0);
    EXPECT_TRUE(unit.Optimize());
    EXPECT_TRUE(exactly(unit, 0, 0, -1, 0));
}

TEST(PlaneVectorLine, RotatesTheVectorAsAPoint) {
    C2DVectorLine line(2.0, 1.0, 1.0, 2.0);
    EXPECT_TRUE(line.Rotate(C2DPoint(1.0, 1.0), kHalfPi));
    EXPECT_TRUE(near(line, 1, 2, 0, 1, 1e-15));
}

TEST(PlaneVectorLine, StretchesTheVectorAsAPoint) {
    C2DVectorLine line(2.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(line.Stretch(C2DPoint(1.0, 1.0), 2.0, -1.0));
    EXPECT_TRUE(exactly(line, 3, 0, 5, -2));
}

TEST(PlaneVectorLine, StretchesAndRotatesAboutItsOwnBase) {
    C2DVectorLine line(1.0, 2.0, 3.0, 4.0);
    line.Stretch(line.base, 2.0, 3.0);
    EXPECT_TRUE(exactly(line, 1, 2, 5, 8));
    line.Stretch(line.vector, 2.0, 2.0);
    EXPECT_TRUE(exactly(line, -3, -4, 5, 8));
    C2DVectorLine turned(1.0, 2.0, 3.0, 2.0);
    turned.Rotate(turned.base, kHalfPi);
    EXPECT_TRUE(near(turned, 1, 2, 1, 4, 1e-15));
}

TEST(PlaneVectorLine, DumpsBaseAndVector) {
    EXPECT_STREQ(C2DVectorLine(1.0, -2.5, 3.0, 0.0).GetDumpText(),
                 "BP:1.000000000000000,-2.500000000000000 VP:3.000000000000000,0.000000000000000");
}

}  // namespace
