// Placement steps of the plane, and what they make of figures.
#include "orvil/geometry/plane_transforms.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

#include "geometry/figures.h"

namespace {

using orvil::test::exactly;
using orvil::test::near;

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

static_assert(sizeof(C2DMatrixItem) == 88);

C2DMatrixItem make_step(const C2DPoint& base, const C2DPoint& move, const C2DPoint& scale, double angle) {
    C2DMatrixItem step;
    step.base = base;
    step.move = move;
    step.scale = scale;
    step.angle = angle;
    return step;
}

C2DMatrixItem sample() {
    return make_step(C2DPoint(1.0, 2.0), C2DPoint(3.0, 4.0), C2DPoint(5.0, 6.0), 7.0);
}

testing::AssertionResult same_step(const C2DMatrixItem& a, const C2DMatrixItem& b) {
    return orvil::test::numbers_near({a.base.x, a.base.y, a.move.x, a.move.y, a.scale.x, a.scale.y, a.angle},
                                     {b.base.x, b.base.y, b.move.x, b.move.y, b.scale.x, b.scale.y, b.angle}, 0.0);
}

// --- steps -----------------------------------------------------------------------------------------------------------

TEST(PlaneStep, ChangesNothingByDefault) {
    const C2DMatrixItem step;
    EXPECT_TRUE(same_step(step, make_step(C2DPoint(), C2DPoint(), C2DPoint(1.0, 1.0), 0.0)));
}

TEST(PlaneStep, IsCopiedAndAssigned) {
    const C2DMatrixItem step = sample();
    EXPECT_TRUE(same_step(C2DMatrixItem(step), step));
    C2DMatrixItem other;
    EXPECT_TRUE(other.CopyData(step));
    EXPECT_TRUE(same_step(other, step));
    C2DMatrixItem third;
    EXPECT_EQ(&(third = step), &third);
    EXPECT_TRUE(same_step(third, step));
    EXPECT_TRUE(third.CopyData(third));
    EXPECT_TRUE(same_step(third, step));
}

TEST(PlaneStep, MakesACopyOfItself) {
    const C2DMatrixItem step = sample();
    C2DMatrixItem* copy = step.GetCopyInstance();
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, &step);
    EXPECT_TRUE(same_step(*copy, step));
    delete copy;
}

// The table of virtual functions: two entries of destructors in this platform's convention, then GetCopyInstance().
TEST(PlaneStep, HasItsDestructorBeforeGetCopyInstance) {
    const C2DMatrixItem step = sample();
    using Copy = C2DMatrixItem* (*)(const C2DMatrixItem*);
    const Copy* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(&step), sizeof table);
    C2DMatrixItem* copy = table[2](&step);
    ASSERT_NE(copy, nullptr);
    EXPECT_TRUE(same_step(*copy, step));
    delete copy;
}

// --- points and lines ------------------------------------------------------------------------------------------------

TEST(PlacedPoint, GoesFromBaseByScaleToMove) {
    C2DPoint point(3.0, 4.0);
    EXPECT_TRUE(point.MatrixCalculation(make_step(C2DPoint(1.0, 1.0), C2DPoint(10.0, 0.0), C2DPoint(2.0, 2.0), 0.0)));
    EXPECT_TRUE(exactly(point, 14.0, 6.0));
}

TEST(PlacedPoint, IsRotatedAboutTheOrigin) {
    C2DPoint point(1.0, 0.0);
    EXPECT_TRUE(point.MatrixCalculation(make_step(C2DPoint(), C2DPoint(), C2DPoint(1.0, 1.0), kHalfPi)));
    EXPECT_TRUE(near(point, 0.0, 1.0, 1e-15));
}

TEST(PlacedPoint, IsScaledBeforeItIsRotated) {
    C2DPoint point(2.0, 3.0);
    point.MatrixCalculation(make_step(C2DPoint(1.0, 1.0), C2DPoint(10.0, 20.0), C2DPoint(3.0, 5.0), kHalfPi));
    EXPECT_TRUE(near(point, 0.0, 23.0, 1e-14));
}

TEST(PlacedPoint, AtTheBaseGoesToTheMovePoint) {
    C2DPoint point(1.0, 2.0);
    point.MatrixCalculation(sample());
    EXPECT_TRUE(exactly(point, 3.0, 4.0));
}

TEST(PlacedPoint, MayBeAPointOfTheStep) {
    for (C2DPoint C2DMatrixItem::*field : {&C2DMatrixItem::base, &C2DMatrixItem::move, &C2DMatrixItem::scale}) {
        C2DMatrixItem step = sample();
        C2DPoint expected = step.*field;
        expected.MatrixCalculation(step);
        EXPECT_TRUE((step.*field).MatrixCalculation(step));
        EXPECT_TRUE(exactly(step.*field, expected.x, expected.y));
    }
}

TEST(PlacedLine, IsPlacedByBothPoints) {
    C2DLine line(3.0, 4.0, 1.0, 1.0);
    EXPECT_TRUE(line.MatrixCalculation(make_step(C2DPoint(1.0, 1.0), C2DPoint(10.0, 0.0), C2DPoint(2.0, 3.0), 0.0)));
    EXPECT_TRUE(exactly(line, 14.0, 9.0, 10.0, 0.0));
}

TEST(PlacedVectorLine, ShiftsItsBaseTwiceAndScalesItsVectorAsAPoint) {
    C2DVectorLine line(10.0, 20.0, 3.0, 4.0);
    EXPECT_TRUE(line.MatrixCalculation(make_step(C2DPoint(1.0, 2.0), C2DPoint(100.0, 200.0), C2DPoint(2.0, 3.0), 0.0)));
    // base: (9, 18), then (8, 16) scaled is (16, 48), plus (1, 2); vector: (2, 2) scaled is (4, 6), plus (1, 2)
    EXPECT_TRUE(exactly(line, 117.0, 250.0, 5.0, 8.0));
}

TEST(PlacedVectorLine, IsRotatedAboutTheOriginAndMovedByItsBase) {
    C2DVectorLine line(1.0, 0.0, 0.0, 2.0);
    line.MatrixCalculation(make_step(C2DPoint(), C2DPoint(10.0, 20.0), C2DPoint(1.0, 1.0), kHalfPi));
    EXPECT_TRUE(near(line, 10.0, 21.0, -2.0, 0.0, 1e-15));
}

TEST(PlacedFigure, OfNumbersThatAreNotFiniteReturns) {
    const C2DMatrixItem step = make_step(C2DPoint(kNan, 0.0), C2DPoint(0.0, kNan), C2DPoint(1.0, 1.0), kNan);
    C2DPoint point(1.0, 1.0);
    EXPECT_TRUE(point.MatrixCalculation(step));
    C2DVectorLine line(1.0, 1.0, 1.0, 1.0);
    EXPECT_TRUE(line.MatrixCalculation(step));
    EXPECT_TRUE(std::isnan(point.x) && std::isnan(line.base.x));
}

}  // namespace
