// Curves through given points.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <utility>

#include "nurbs_probe.h"

namespace orvil::test {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

NurbsProbe fitted(int dimension, const std::vector<Place>& places) {
    NurbsProbe curve(dimension);
    for (const Place& place : places) {
        curve.add_fit(place[0], place[1], place[2]);
    }
    return curve;
}

std::vector<Place> random_places(int count, unsigned seed, double size = 10) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> number(-size, size);
    std::vector<Place> places;
    for (int i = 0; i < count; ++i) {
        places.push_back({number(random), number(random), number(random)});
    }
    return places;
}

// The curve at a parameter, from all basis functions. The last knot belongs to the last control point.
Place at(const NurbsProbe& curve, double t) {
    const int n = curve.ctrl_count();
    if (t == curve.GetKnot(curve.GetKnotSize() - 1)) {
        return curve.ctrl_place(n - 1);
    }
    Place sum{};
    for (int i = 0; i < n; ++i) {
        const double base = curve.GetSplineBase(curve.dimension_ + 1, i, t);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            sum[axis] += base * curve.ctrl_place(i)[axis];
        }
    }
    return sum;
}

double fit_parameter(const NurbsProbe& curve, int j) {
    const int n = curve.GetFitSize();
    return j * curve.GetKnot(curve.GetKnotSize() - 1) / (n - 1);
}

void expect_near(const Place& actual, const Place& expected, double tolerance) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(actual[axis], expected[axis], tolerance);
    }
}

void expect_through_fits(const NurbsProbe& curve, double tolerance) {
    for (int j = 0; j < curve.GetFitSize(); ++j) {
        const C3DPoint& fit = curve.GetFit(j)->point;
        SCOPED_TRACE(testing::Message() << "dimension " << curve.dimension_ << ", fit point " << j << " of "
                                        << curve.GetFitSize());
        expect_near(at(curve, fit_parameter(curve, j)), {fit.x, fit.y, fit.z}, tolerance);
    }
}

// (second - first) / (u[first + d + 1] - u[first + 1]), the difference of two neighbouring control points.
Place slope(const NurbsProbe& curve, int first) {
    const double width = curve.GetKnot(first + curve.dimension_ + 1) - curve.GetKnot(first + 1);
    const Place from = curve.ctrl_place(first);
    const Place to = curve.ctrl_place(first + 1);
    return {(to[0] - from[0]) / width, (to[1] - from[1]) / width, (to[2] - from[2]) / width};
}

void expect_refused(NurbsProbe& curve) {
    curve.add_knots({1, 2, 3});
    curve.add_ctrl(1, 1);
    EXPECT_FALSE(curve.CreateCtrl());
    EXPECT_EQ(curve.GetKnotSize(), 0);
    EXPECT_EQ(curve.ctrl_count(), 0);
}

// --- what comes out --------------------------------------------------------------------------------------------------

TEST(NurbsCreateCtrl, KnotsAreClampedOverTwoMorePoints) {
    NurbsProbe curve = fitted(3, random_places(5, 1));
    curve.add_knots({7, 8, 9});
    curve.add_ctrl(9, 9);
    ASSERT_TRUE(curve.CreateCtrl());
    EXPECT_EQ(curve.knots(), (std::vector<double>{0, 0, 0, 0, 1, 2, 3, 4, 4, 4, 4}));
    EXPECT_EQ(curve.ctrl_count(), 7);
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(curve.ctrl(i).weight, 1.0);
    }
    EXPECT_EQ(curve.GetFitSize(), 5);
}

TEST(NurbsCreateCtrl, EveryDimensionPassesThroughItsPoints) {
    for (int d = 1; d <= 7; ++d) {
        for (int n = std::max(2, d - 1); n <= 25; ++n) {
            NurbsProbe curve = fitted(d, random_places(n, static_cast<unsigned>(100 * d + n)));
            ASSERT_TRUE(curve.CreateCtrl()) << "dimension " << d << ", " << n << " points";
            expect_through_fits(curve, 1e-8);
        }
    }
}

TEST(NurbsCreateCtrl, TwoToFourDimensionsAreExactForManyPoints) {
    for (int d = 2; d <= 4; ++d) {
        NurbsProbe curve = fitted(d, random_places(1000, 5));
        ASSERT_TRUE(curve.CreateCtrl());
        expect_through_fits(curve, 1e-13);
    }
}

TEST(NurbsCreateCtrl, EndsAreNatural) {
    for (int d = 1; d <= 7; ++d) {
        NurbsProbe curve = fitted(d, random_places(12, static_cast<unsigned>(d)));
        ASSERT_TRUE(curve.CreateCtrl());
        const int n = curve.GetFitSize();
        expect_near(slope(curve, 0), slope(curve, 1), 1e-9);
        expect_near(slope(curve, n - 1), slope(curve, n), 1e-9);
    }
}

// The classic example by hand: x = 0, 1, 0 at t = 0, 1, 2 has the moments 0, -3, 0, so the slope 1.5 at the start.
TEST(NurbsCreateCtrl, TheCubicIsTheNaturalSpline) {
    NurbsProbe curve = fitted(3, {{0, 0, 0}, {1, 5, 0}, {0, 10, 0}});
    ASSERT_TRUE(curve.CreateCtrl());
    EXPECT_EQ(curve.knots(), (std::vector<double>{0, 0, 0, 0, 1, 2, 2, 2, 2}));
    const double expected_x[] = {0, 0.5, 1.5, 0.5, 0};
    for (int i = 0; i < 5; ++i) {
        EXPECT_NEAR(curve.ctrl(i).point.x, expected_x[i], 1e-15);
    }
    EXPECT_NEAR(at(curve, 0.5)[0], 1.5 * 0.5 - 0.5 * 0.125, 1e-15);
    EXPECT_NEAR(at(curve, 0.5)[1], 2.5, 1e-15);
}

// Dimension 1 by hand: two points, knots 0 0 1 2 3 3, fit at 0 and 3; the conditions say that there is no kink.
TEST(NurbsCreateCtrl, TheLinearCurveOfTwoPointsIsStraight) {
    NurbsProbe curve = fitted(1, {{0, 0, 0}, {3, 6, 9}});
    ASSERT_TRUE(curve.CreateCtrl());
    EXPECT_EQ(curve.knots(), (std::vector<double>{0, 0, 1, 2, 3, 3}));
    for (int i = 0; i < 4; ++i) {
        expect_near(curve.ctrl_place(i), {1.0 * i, 2.0 * i, 3.0 * i}, 1e-15);
    }
}

TEST(NurbsCreateCtrl, CollinearPointsStayCollinear) {
    for (int d = 1; d <= 7; ++d) {
        NurbsProbe curve(d);
        for (int i = 0; i < 10; ++i) {
            curve.add_fit(i * i, 2.0 * i * i, 5);
        }
        ASSERT_TRUE(curve.CreateCtrl());
        for (int i = 0; i < 12; ++i) {
            EXPECT_NEAR(curve.ctrl(i).point.y, 2 * curve.ctrl(i).point.x, 1e-9);
            EXPECT_NEAR(curve.ctrl(i).point.z, 5, 1e-9);
        }
    }
}

TEST(NurbsCreateCtrl, LinesEndOnTheOuterFitPoints) {
    for (int d = 2; d <= 5; ++d) {
        const std::vector<Place> places = random_places(9, static_cast<unsigned>(d));
        NurbsProbe curve = fitted(d, places);
        ASSERT_TRUE(curve.CreateCtrl());
        ASSERT_TRUE(curve.CreateLines(8));
        expect_near(curve.chain().front(), places.front(), 1e-14);
        expect_near(curve.chain().back(), places.back(), 1e-14);
    }
}

TEST(NurbsCreateCtrl, CoincidentPointsAreNoObstacle) {
    NurbsProbe curve = fitted(3, {{1, 1, 1}, {1, 1, 1}, {1, 1, 1}, {1, 1, 1}});
    ASSERT_TRUE(curve.CreateCtrl());
    for (int i = 0; i < 6; ++i) {
        expect_near(curve.ctrl_place(i), {1, 1, 1}, 1e-15);
    }
}

TEST(NurbsCreateCtrl, PointsAtTheOriginGiveTheOrigin) {
    NurbsProbe curve = fitted(3, {{0, 0, 0}, {0, 0, 0}, {0, 0, 0}});
    ASSERT_TRUE(curve.CreateCtrl());
    expect_near(curve.ctrl_place(2), {0, 0, 0}, 0);
}

TEST(NurbsCreateCtrl, SizeDoesNotMatter) {
    for (const double size : {1e-300, 1e-9, 1e9, 1e300}) {
        NurbsProbe curve = fitted(3, random_places(20, 6, size));
        ASSERT_TRUE(curve.CreateCtrl()) << size;
        expect_through_fits(curve, 1e-14 * size);
    }
}

// --- what is refused -------------------------------------------------------------------------------------------------

TEST(NurbsCreateCtrl, FewerThanTwoPointsAreRefused) {
    for (int d = 1; d <= 7; ++d) {
        NurbsProbe none(d);
        expect_refused(none);
        NurbsProbe one = fitted(d, {{1, 2, 3}});
        expect_refused(one);
    }
}

TEST(NurbsCreateCtrl, FewerPointsThanTheDimensionLessOneAreRefused) {
    for (int d = 4; d <= 7; ++d) {
        NurbsProbe few = fitted(d, random_places(d - 2, 1));
        expect_refused(few);
        NurbsProbe enough = fitted(d, random_places(d - 1, 1));
        EXPECT_TRUE(enough.CreateCtrl());
        EXPECT_EQ(enough.GetKnot(d + 1), 1.0);
    }
}

TEST(NurbsCreateCtrl, AWrongDimensionIsRefused) {
    for (const int d : {0, -1, 8, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        NurbsProbe curve = fitted(3, random_places(5, 1));
        curve.dimension_ = d;
        expect_refused(curve);
    }
}

TEST(NurbsCreateCtrl, PointsThatAreNotFiniteAreRefused) {
    for (const double bad : {kInfinity, -kInfinity, kNaN}) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            for (std::size_t j : {0U, 3U, 5U}) {
                std::vector<Place> places = random_places(6, 1);
                places[j][axis] = bad;
                NurbsProbe curve = fitted(3, places);
                expect_refused(curve);
            }
        }
    }
}

TEST(NurbsCreateCtrl, MissingPointsAreRefused) {
    for (const int missing : {0, 2, 4}) {
        NurbsProbe curve = fitted(3, random_places(5, 1));
        curve.fit_points_.ClearAt(missing);
        expect_refused(curve);
    }
}

// Rounding grows with the number of points here; a curve that would miss a point is none.
TEST(NurbsCreateCtrl, ACurveThatWouldMissAPointIsRefused) {
    for (const int d : {1, 6, 7}) {
        NurbsProbe curve = fitted(d, random_places(400, 9));
        expect_refused(curve);
    }
}

TEST(NurbsCreateCtrl, TheStatedNumbersOfPointsAreMet) {
    for (const auto& [d, n] : {std::pair{1, 60}, {5, 150}, {6, 70}, {7, 50}}) {
        for (unsigned seed = 0; seed < 20; ++seed) {
            NurbsProbe curve = fitted(d, random_places(n, seed));
            EXPECT_TRUE(curve.CreateCtrl()) << "dimension " << d << ", seed " << seed;
        }
    }
}

// Knots and control points are written over.
TEST(NurbsCreateCtrl, AnotherNumberOfPointsGivesTheSameAsANewCurve) {
    NurbsProbe curve = fitted(3, random_places(40, 1));
    ASSERT_TRUE(curve.CreateCtrl());
    curve.ctrl_points_.GetAt(2)->weight = 7;
    curve.ClearFit();
    for (const Place& place : random_places(9, 2)) {
        curve.add_fit(place[0], place[1], place[2]);
    }
    ASSERT_TRUE(curve.CreateCtrl());
    NurbsProbe fresh = fitted(3, random_places(9, 2));
    ASSERT_TRUE(fresh.CreateCtrl());
    EXPECT_EQ(curve.knots(), fresh.knots());
    ASSERT_EQ(curve.ctrl_count(), 11);
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ(curve.ctrl_place(i), fresh.ctrl_place(i));
        EXPECT_EQ(curve.ctrl(i).weight, 1.0);
    }
}

TEST(NurbsCreateCtrl, SuccessMeansThatEveryPointIsMet) {
    for (const int d : {1, 5, 6, 7}) {
        for (int n = 20; n <= 140; n += 8) {
            NurbsProbe curve = fitted(d, random_places(n, static_cast<unsigned>(n)));
            if (curve.CreateCtrl()) {
                expect_through_fits(curve, 1e-5);
            } else {
                EXPECT_EQ(curve.ctrl_count(), 0);
            }
        }
    }
}

TEST(NurbsCreateCtrl, PointsWhoseControlPointsOverflowAreRefused) {
    NurbsProbe curve(3);
    for (int i = 0; i < 6; ++i) {
        curve.add_fit(i % 2 == 0 ? 1.7e308 : -1.7e308, 0);
    }
    expect_refused(curve);
}

}  // namespace
}  // namespace orvil::test
