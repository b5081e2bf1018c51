// Placement steps of space, and what they make of figures.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <type_traits>

#include "geometry/figures.h"
#include "orvil/geometry/space_primitives.h"

namespace {

using orvil::test::exactly;
using orvil::test::near;

constexpr double kHalfPi = 1.5707963267948966;

static_assert(sizeof(C3DMatrixItem) == 112);

C3DMatrixItem make_step(const C3DPoint& base, const C3DPoint& move, const C3DPoint& scale, double angle) {
    C3DMatrixItem step;
    step.base = base;
    step.move = move;
    step.scale = scale;
    step.angle = angle;
    return step;
}

C3DMatrixItem sample() {
    return make_step(C3DPoint(1.0, 2.0, 3.0), C3DPoint(4.0, 5.0, 6.0), C3DPoint(7.0, 8.0, 9.0), 10.0);
}

testing::AssertionResult same_step(const C3DMatrixItem& a, const C3DMatrixItem& b) {
    const testing::AssertionResult points =
        near(a.base, a.move, {b.base.x, b.base.y, b.base.z, b.move.x, b.move.y, b.move.z}, 0.0);
    return points ? orvil::test::numbers_near({a.scale.x, a.scale.y, a.scale.z, a.angle},
                                              {b.scale.x, b.scale.y, b.scale.z, b.angle}, 0.0)
                  : points;
}

// --- steps -----------------------------------------------------------------------------------------------------------

TEST(SpaceStep, ChangesNothingByDefault) {
    EXPECT_TRUE(same_step(C3DMatrixItem(), make_step(C3DPoint(), C3DPoint(), C3DPoint(1.0, 1.0, 1.0), 0.0)));
}

TEST(SpaceStep, IsCopiedAndAssigned) {
    const C3DMatrixItem step = sample();
    EXPECT_TRUE(same_step(C3DMatrixItem(step), step));
    C3DMatrixItem other;
    EXPECT_TRUE(other.CopyData(step));
    EXPECT_TRUE(same_step(other, step));
    C3DMatrixItem third;
    EXPECT_EQ(&(third = step), &third);
    EXPECT_TRUE(third.CopyData(third));
    EXPECT_TRUE(same_step(third, step));
}

TEST(SpaceStep, MakesACopyOfItself) {
    C3DMatrixItem* copy = sample().GetCopyInstance();
    ASSERT_NE(copy, nullptr);
    EXPECT_TRUE(same_step(*copy, sample()));
    delete copy;
}

// The table of virtual functions: two entries of destructors in this platform's convention, then GetCopyInstance().
TEST(SpaceStep, HasItsDestructorBeforeGetCopyInstance) {
    const C3DMatrixItem step = sample();
    using Copy = C3DMatrixItem* (*)(const C3DMatrixItem*);
    const Copy* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(&step), sizeof table);
    C3DMatrixItem* copy = table[2](&step);
    ASSERT_NE(copy, nullptr);
    EXPECT_TRUE(same_step(*copy, step));
    delete copy;
}

TEST(SpaceStep, MakesAPlaneStepWithoutItsHeights) {
    C2DMatrixItem plane;
    EXPECT_TRUE(sample().Make2DItem(plane));
    EXPECT_TRUE(exactly(plane.base, 1.0, 2.0));
    EXPECT_TRUE(exactly(plane.move, 4.0, 5.0));
    EXPECT_TRUE(exactly(plane.scale, 7.0, 8.0));
    EXPECT_EQ(plane.angle, 10.0);
}

TEST(SpaceStep, AndItsPlaneStepPlaceAlike) {
    const C3DMatrixItem step = sample();
    C2DMatrixItem plane;
    step.Make2DItem(plane);
    C3DPoint point(-3.0, 5.0, 7.0);
    C2DPoint plane_point(-3.0, 5.0);
    point.MatrixCalculation(step);
    plane_point.MatrixCalculation(plane);
    EXPECT_EQ(point.x, plane_point.x);
    EXPECT_EQ(point.y, plane_point.y);
}

// --- figures ---------------------------------------------------------------------------------------------------------

TEST(PlacedSpacePoint, GoesFromBaseByScaleToMove) {
    C3DPoint point(3.0, 4.0, 5.0);
    const C3DMatrixItem step =
        make_step(C3DPoint(1.0, 1.0, 1.0), C3DPoint(10.0, 0.0, -1.0), C3DPoint(2.0, 3.0, 4.0), 0.0);
    EXPECT_TRUE(point.MatrixCalculation(step));
    EXPECT_TRUE(exactly(point, C3DPoint(14.0, 9.0, 15.0)));
}

TEST(PlacedSpacePoint, IsScaledBeforeItIsRotatedAboutZ) {
    C3DPoint point(2.0, 3.0, 4.0);
    point.MatrixCalculation(
        make_step(C3DPoint(1.0, 1.0, 1.0), C3DPoint(10.0, 20.0, 30.0), C3DPoint(3.0, 5.0, 2.0), kHalfPi));
    EXPECT_TRUE(near(point, C3DPoint(0.0, 23.0, 36.0), 1e-14));
}

TEST(PlacedSpacePoint, MayBeAPointOfTheStep) {
    for (C3DPoint C3DMatrixItem::*field : {&C3DMatrixItem::base, &C3DMatrixItem::move, &C3DMatrixItem::scale}) {
        C3DMatrixItem step = sample();
        C3DPoint expected = step.*field;
        expected.MatrixCalculation(step);
        EXPECT_TRUE((step.*field).MatrixCalculation(step));
        EXPECT_TRUE(exactly(step.*field, expected));
    }
}

TEST(PlacedSpaceLine, IsPlacedByBothPoints) {
    C3DLine line(3.0, 4.0, 5.0, 1.0, 1.0, 1.0);
    EXPECT_TRUE(line.MatrixCalculation(
        make_step(C3DPoint(1.0, 1.0, 1.0), C3DPoint(10.0, 0.0, -1.0), C3DPoint(2.0, 3.0, 4.0), 0.0)));
    EXPECT_TRUE(exactly(line, {14, 9, 15, 10, 0, -1}));
}

TEST(PlacedSpaceVectorLine, ShiftsItsBaseTwiceAndScalesItsVectorAsAPoint) {
    C3DVectorLine line(10.0, 20.0, 30.0, 3.0, 4.0, 5.0);
    EXPECT_TRUE(line.MatrixCalculation(
        make_step(C3DPoint(1.0, 2.0, 3.0), C3DPoint(100.0, 200.0, 300.0), C3DPoint(2.0, 3.0, 4.0), 0.0)));
    // base: (9, 18, 27), then (8, 16, 24) scaled is (16, 48, 96), plus (1, 2, 3)
    // vector: (2, 2, 2) scaled is (4, 6, 8), plus (1, 2, 3)
    EXPECT_TRUE(exactly(line, {117, 250, 399, 5, 8, 11}));
}

TEST(PlacedSpaceVectorLine, IsRotatedAboutZAndMovedByItsBase) {
    C3DVectorLine line(1.0, 0.0, 5.0, 0.0, 2.0, 6.0);
    line.MatrixCalculation(make_step(C3DPoint(), C3DPoint(10.0, 20.0, 30.0), C3DPoint(1.0, 1.0, 1.0), kHalfPi));
    EXPECT_TRUE(near(line, {10, 21, 35, -2, 0, 6}, 1e-14));
}

}  // namespace
