// What placement steps make of ellipses and elliptic arcs.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "geometry/figures.h"
#include "orvil/geometry/plane_transforms.h"
#include "orvil/geometry/scalars.h"

namespace {

using orvil::test::exactly;
using orvil::test::near;

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kHalfPi = 1.5707963267948966;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

C2DMatrixItem scale_by(double sx, double sy) {
    C2DMatrixItem step;
    step.scale.SetData(sx, sy);
    return step;
}

C2DEllipse at_origin(double ax, double ay, double ratio, double start, double end) {
    return C2DEllipse(C2DPoint(), C2DPoint(ax, ay), ratio, start, end);
}

C2DEllipse placed(C2DEllipse ellipse, const C2DMatrixItem& step) {
    EXPECT_TRUE(ellipse.MatrixCalculation(step));
    return ellipse;
}

TEST(PlacedEllipse, UnderTheStepThatChangesNothingStays) {
    const C2DEllipse ellipse(C2DPoint(1.0, 2.0), C2DPoint(4.0, 0.0), 0.5, 1.0, 2.0);
    EXPECT_TRUE(near(placed(ellipse, C2DMatrixItem()), ellipse, 1e-15));
}

TEST(PlacedEllipse, ScalesAlongItsAxes) {
    const C2DEllipse ellipse = at_origin(2.0, 0.0, 0.5, kHalfPi, kPi);
    EXPECT_TRUE(near(placed(ellipse, scale_by(3.0, 4.0)), at_origin(6.0, 0.0, 4.0 / 6.0, kHalfPi, kPi), 1e-15));
}

TEST(PlacedEllipse, GetsItsMajorAxisWhereItWasMinor) {
    // x is 2 cos t, y is 4 sin t: the major axis now points up, and angles count from it.
    const C2DEllipse ellipse = at_origin(2.0, 0.0, 0.5, kPi, 1.5 * kPi);
    const C2DEllipse expected = at_origin(0.0, 4.0, 0.5, kHalfPi, kPi);
    EXPECT_TRUE(near(placed(ellipse, scale_by(1.0, 4.0)), expected, 1e-15));
}

TEST(PlacedEllipse, TurnsItsAxisButNotItsAngles) {
    C2DMatrixItem step;
    step.base.SetData(1.0, 1.0);
    step.move.SetData(10.0, 20.0);
    step.angle = kHalfPi;
    const C2DEllipse ellipse(C2DPoint(2.0, 1.0), C2DPoint(2.0, 0.0), 0.5, kHalfPi, kPi);
    const C2DEllipse expected(C2DPoint(10.0, 21.0), C2DPoint(0.0, 2.0), 0.5, kHalfPi, kPi);
    EXPECT_TRUE(near(placed(ellipse, step), expected, 1e-14));
}

TEST(PlacedEllipse, MirroredOnceExchangesItsEnds) {
    const C2DEllipse ellipse = at_origin(2.0, 0.0, 0.5, kPi / 6.0, kPi / 3.0);
    const C2DEllipse left = at_origin(2.0, 0.0, 0.5, kPi * 2.0 / 3.0, kPi * 5.0 / 6.0);
    EXPECT_TRUE(near(placed(ellipse, scale_by(-1.0, 1.0)), left, 1e-14) ||
                near(placed(ellipse, scale_by(-1.0, 1.0)), at_origin(-2.0, 0.0, 0.5, kPi * 5.0 / 3.0, kPi * 11.0 / 6.0),
                     1e-14));
    const C2DEllipse below = at_origin(2.0, 0.0, 0.5, kPi * 5.0 / 3.0, kPi * 11.0 / 6.0);
    EXPECT_TRUE(near(placed(ellipse, scale_by(1.0, -1.0)), below, 1e-14));
}

TEST(PlacedEllipse, MirroredTwiceKeepsTheOrderOfItsEnds) {
    const C2DEllipse ellipse = at_origin(2.0, 0.0, 0.5, kPi / 6.0, kPi / 3.0);
    const C2DEllipse turned = placed(ellipse, scale_by(-1.0, -1.0));
    EXPECT_NEAR(turned.end - turned.start, kPi / 6.0, 1e-14);
}

TEST(PlacedCircle, GetsPlainDirectionsAsAngles) {
    // The axis points up, so that the arc runs from the direction pi/2 + 0.25 to pi/2 + 1.
    const C2DEllipse circle = at_origin(0.0, 2.0, 1.0, 0.25, 1.0);
    const C2DEllipse expected = at_origin(6.0, 0.0, 1.0, kHalfPi + 0.25, kHalfPi + 1.0);
    EXPECT_TRUE(near(placed(circle, scale_by(3.0, 3.0)), expected, 1e-14));
}

TEST(PlacedCircle, HasItsAxisInTheDirectionOfTheStep) {
    C2DMatrixItem step;
    step.angle = kPi / 6.0;
    const C2DEllipse circle = placed(at_origin(0.0, 2.0, 1.0, 0.25, 1.0), step);
    EXPECT_TRUE(near(circle.axis, 2.0 * std::cos(kPi / 6.0), 2.0 * std::sin(kPi / 6.0), 1e-15));
    EXPECT_NEAR(circle.start, kHalfPi + 0.25, 1e-15);
}

TEST(PlacedEllipse, ThatBecomesACircleGetsPlainDirections) {
    // x is 2 cos t, y is 2 sin t.
    const C2DEllipse ellipse = at_origin(2.0, 0.0, 0.5, 0.25, 1.0);
    EXPECT_TRUE(near(placed(ellipse, scale_by(1.0, 2.0)), at_origin(2.0, 0.0, 1.0, 0.25, 1.0), 1e-14));
}

TEST(PlacedEllipse, OfAWholeTurnStaysOne) {
    std::mt19937_64 random(4);
    std::uniform_real_distribution<double> any(-7.0, 7.0);
    for (int i = 0; i < 20000; ++i) {
        const double start = any(random);
        const C2DEllipse ellipse = at_origin(any(random), any(random), 0.3, start, start + kTwoPi);
        const C2DEllipse image = placed(ellipse, scale_by(any(random), any(random)));
        ASSERT_EQ(image.start, image.end);
    }
}

// --- failures --------------------------------------------------------------------------------------------------------

void expect_refused(C2DEllipse ellipse, const C2DMatrixItem& step) {
    const C2DEllipse before = ellipse;
    EXPECT_FALSE(ellipse.MatrixCalculation(step));
    EXPECT_EQ(ellipse.center.x, before.center.x);
    EXPECT_EQ(ellipse.axis.x, before.axis.x);
    EXPECT_EQ(ellipse.axis.y, before.axis.y);
    EXPECT_EQ(ellipse.ratio, before.ratio);
    EXPECT_EQ(ellipse.end, before.end);
}

TEST(PlacedEllipse, IsLeftWhenAScaleIsZero) {
    const C2DEllipse ellipse(C2DPoint(1.0, 2.0), C2DPoint(4.0, 1.0), 0.5, 1.0, 2.0);
    C2DMatrixItem step = scale_by(0.0, 1.0);
    step.base.SetData(5.0, 5.0);
    expect_refused(ellipse, step);
    expect_refused(ellipse, scale_by(1.0, 0.0));
    expect_refused(ellipse, scale_by(0.0, 0.0));
}

TEST(PlacedEllipse, IsLeftWhenItHasNoRadius) {
    expect_refused(at_origin(0.0, 0.0, 0.5, 1.0, 2.0), C2DMatrixItem());
    expect_refused(at_origin(4.0, 0.0, 0.0, 1.0, 2.0), C2DMatrixItem());
}

TEST(PlacedEllipse, IsLeftWhenARadiusFallsBelowTheTolerance) {
    const C2DEllipse ellipse = at_origin(2.0, 0.0, 0.5, 1.0, 2.0);
    expect_refused(ellipse, scale_by(1.0, 0.9e-6));
    EXPECT_NEAR(placed(ellipse, scale_by(1.0, 1.1e-6)).GetShortRadius(), 1.1e-6, 1e-15);
    expect_refused(ellipse, scale_by(0.4e-6, 0.4e-6));
}

TEST(PlacedEllipse, IsLeftWhenANumberIsNotFinite) {
    for (double odd : {kNan, kInfinity, -kInfinity}) {
        const C2DEllipse ellipse = at_origin(2.0, 0.0, 0.5, 1.0, 2.0);
        C2DMatrixItem step;
        step.angle = odd;
        expect_refused(ellipse, step);
        expect_refused(ellipse, scale_by(odd, 1.0));
        expect_refused(at_origin(2.0, 0.0, 0.5, 1.0, kTwoPi), scale_by(1.0, odd));
        C2DEllipse odd_start = ellipse;
        odd_start.start = odd;
        expect_refused(odd_start, C2DMatrixItem());
        step = C2DMatrixItem();
        step.move.SetData(odd, 0.0);
        expect_refused(ellipse, step);
    }
}

TEST(PlacedEllipse, IsLeftWhenItsSquaresOverflow) {
    expect_refused(at_origin(1e200, 0.0, 0.5, 1.0, 2.0), C2DMatrixItem());
}

// --- random placements -----------------------------------------------------------------------------------------------

C2DPoint point_at(const C2DEllipse& e, double t) {
    const double c = std::cos(t);
    const double s = std::sin(t) * e.ratio;
    return C2DPoint(e.center.x + c * e.axis.x - s * e.axis.y, e.center.y + c * e.axis.y + s * e.axis.x);
}

double sweep_of(const C2DEllipse& e) {
    const double sweep = std::fmod(e.end - e.start, kTwoPi);
    return sweep > 0.0 ? sweep : sweep + kTwoPi;
}

// An affine map keeps parameters of an ellipse up to an offset and a sign, so points at equal parts of the sweep stay
// so.
void expect_same_points(const C2DEllipse& before, const C2DEllipse& after, const C2DMatrixItem& step, double size) {
    const bool is_reversed = (step.scale.x < 0.0) != (step.scale.y < 0.0);
    for (int i = 0; i <= 8; ++i) {
        const double part = i / 8.0;
        C2DPoint point = point_at(before, before.start + part * sweep_of(before));
        point.MatrixCalculation(step);
        const double part_after = is_reversed ? 1.0 - part : part;
        const C2DPoint image = point_at(after, after.start + part_after * sweep_of(after));
        ASSERT_LT(point.GetDistance(image), 2e-7 * size) << "part " << i;
    }
}

TEST(PlacedEllipse, RunsThroughThePlacedPointsOfTheArc) {
    std::mt19937_64 random(5);
    std::uniform_real_distribution<double> any(-10.0, 10.0);
    std::uniform_real_distribution<double> part(0.01, 1.0);
    for (int i = 0; i < 20000; ++i) {
        const C2DEllipse before(C2DPoint(any(random), any(random)), C2DPoint(any(random), any(random)), part(random),
                                any(random), any(random));
        C2DMatrixItem step = scale_by(any(random), any(random));
        step.base.SetData(any(random), any(random));
        step.move.SetData(any(random), any(random));
        step.angle = any(random);
        C2DEllipse after = before;
        if (sweep_of(before) < 0.01 || !after.MatrixCalculation(step)) {
            continue;
        }
        expect_same_points(before, after, step, after.GetLongRadius());
        if (HasFatalFailure()) {
            FAIL() << "case " << i << ": " << before.GetDumpText().GetString() << " to "
                   << after.GetDumpText().GetString();
        }
    }
}

TEST(PlacedEllipse, HasItsMajorAxisAsTheLongerOne) {
    std::mt19937_64 random(6);
    std::uniform_real_distribution<double> any(-10.0, 10.0);
    for (int i = 0; i < 20000; ++i) {
        const C2DEllipse image = placed(at_origin(any(random), any(random), 0.5, 1.0, 2.0), scale_by(any(random), 1.0));
        ASSERT_GT(image.ratio, 0.0);
        ASSERT_LE(image.ratio, 1.0);
    }
}

}  // namespace
