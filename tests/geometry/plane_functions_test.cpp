// What the captioned cases cannot say: outputs that are inputs, and figures of every hostile kind.
#include "orvil/geometry/plane_functions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <random>

#include "orvil/geometry/scalars.h"

namespace {

void expect_point(const C2DPoint& point, double x, double y) {
    EXPECT_NEAR(point.x, x, 1e-12);
    EXPECT_NEAR(point.y, y, 1e-12);
}

// --- outputs that are inputs ----------------------------------------------------------------------------------------

TEST(PlaneAliases, MeetingPointMayBeAnyEnd) {
    for (int i = 0; i < 4; ++i) {
        C2DPoint ends[4] = {{0, 0}, {2, 2}, {0, 2}, {2, 0}};
        EXPECT_EQ(CA_INS2L(ends[0], ends[1], ends[2], ends[3], ends[i]), 0) << i;
        expect_point(ends[i], 1, 1);
    }
}

TEST(PlaneAliases, FootMayBeAnyPoint) {
    for (int i = 0; i < 3; ++i) {
        C2DPoint points[3] = {{0, 0}, {4, 0}, {1, 3}};
        double distance = 0;
        EXPECT_EQ(CA_PERLN(points[0], points[1], points[2], points[i], distance), 0) << i;
        expect_point(points[i], 1, 0);
        EXPECT_EQ(distance, 3);
    }
}

TEST(PlaneAliases, ReflectionMayBeAnyPoint) {
    for (int i = 0; i < 3; ++i) {
        C2DPoint points[3] = {{3, 1}, {0, 0}, {1, 1}};
        EXPECT_TRUE(CA_MIRROR(points[0], points[1], points[2], points[i])) << i;
        expect_point(points[i], 1, 3);
    }
}

TEST(PlaneAliases, ChordMayReplaceTheLine) {
    const C2DEllipse circle(C2DPoint(0, 0), C2DPoint(5, 0), 1, 0, 0);
    C2DLine line(0, 3, 1, 3);
    int count = 0;
    EXPECT_EQ(CA_INSLC(circle, line, line.start, line.end, count), 0);
    expect_point(line.start, 4, 3);
    expect_point(line.end, -4, 3);
}

TEST(PlaneAliases, ChordMayReplaceCentreAndAxis) {
    C2DEllipse circle(C2DPoint(0, 0), C2DPoint(5, 0), 1, 0, 0);
    int count = 0;
    EXPECT_EQ(CA_INSLC(circle, C2DLine(0, 3, 1, 3), circle.center, circle.axis, count), 0);
    expect_point(circle.center, 4, 3);
    expect_point(circle.axis, -4, 3);
}

TEST(PlaneAliases, CentreOfAnArcMayBeAnyPoint) {
    for (int i = 0; i < 3; ++i) {
        C2DPoint points[3] = {{15, 20}, {10, 25}, {5, 20}};
        double radius = 0, start = 0, end = 0;
        EXPECT_TRUE(CA_ARC3P(points[0], points[1], points[2], points[i], radius, start, end)) << i;
        expect_point(points[i], 10, 20);
        EXPECT_NEAR(radius, 5, 1e-12);
        EXPECT_NEAR(start, 0, 1e-12);
        EXPECT_NEAR(end, r_PAI(), 1e-12);
    }
}

TEST(PlaneAliases, TangentPointsMayReplaceCentreAndPoint) {
    C2DPoint centre(0, 0), p(5, 0);
    int count = 0;
    CA_PCTAN(centre, 3, p, centre, p, count);
    expect_point(centre, 1.8, -2.4);
    expect_point(p, 1.8, 2.4);
}

TEST(PlaneAliases, PointOnCircleMayReplaceTheCentre) {
    C2DPoint centre(1, 2);
    GET_ONPC(centre, 5, 90, centre);
    expect_point(centre, 1, 7);
}

TEST(PlaneAliases, CrossingsMayReplaceTheCentres) {
    const double turn = 2 * r_PAI();
    C2DPoint c1(0, 0), c2(6, 0);
    int count = 0;
    EXPECT_EQ(CA_INS2C(c1, 5, 0, turn, c2, 5, 0, turn, c1, c2, count), 0);
    expect_point(c1, 3, -4);
    expect_point(c2, 3, 4);
}

TEST(PlaneAliases, CrossingsMayReplaceLineCentreAndAxis) {
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            C2DPoint points[4] = {{-5, 0}, {5, 0}, {0, 0}, {2, 0}};
            if (i == j) {
                continue;
            }
            int count = 0;
            EXPECT_TRUE(CAL_INSLE(points[0], points[1], points[2], points[3], 0.5, points[i], points[j], count));
            expect_point(points[i], 2, 0);
            expect_point(points[j], -2, 0);
        }
    }
}

TEST(PlaneAliases, CrossingsOfAnArcMayReplaceLineCentreAndAngles) {
    double l1[2] = {-5, 0}, l2[2] = {5, 0}, centre[2] = {0, 0}, angles[2] = {0, 0};
    int count = 0;
    EXPECT_EQ(A2D_INSL1(l1, l2, centre, 4, 2, 0, angles, centre, angles, &count), 0);
    EXPECT_NEAR(centre[0], 2, 1e-12);
    EXPECT_NEAR(angles[0], -2, 1e-12);
    centre[0] = angles[0] = angles[1] = 0;
    EXPECT_EQ(A2D_INSL1(l1, l2, centre, 4, 2, 0, angles, l1, l2, &count), 0);
    EXPECT_NEAR(l1[0], 2, 1e-12);
    EXPECT_NEAR(l2[0], -2, 1e-12);
}

TEST(PlaneAliases, PointsOfAnEllipseMayReplaceCentreAndAxis) {
    C2DPoint centre(0, 0), axis(2, 0);
    CAL_ELPPN(centre, axis, 0.5, 0, centre, axis);
    expect_point(centre, 0, 1);
    expect_point(axis, 0, -1);
    centre.SetData(0, 0);
    CAL_ELPCP(centre, C2DPoint(2, 0), 0.5, r_PAI() / 2, centre);
    expect_point(centre, 0, 1);
}

TEST(PlaneAliases, ChosenPointMayReplaceTheOthers) {
    C2DPoint q1(1, 1), q2(5, 6);
    EXPECT_TRUE(CAL_ELPRR(C2DPoint(0, 0), C2DPoint(2, 0), 0.5, q1, q2, q1, q2));
    expect_point(q1, 0, 1);
    expect_point(q2, 1, 1);
    q1.SetData(1, -1);
    q2.SetData(5, 6);
    EXPECT_TRUE(CAL_ELPRR(C2DPoint(0, 0), C2DPoint(2, 0), 0.5, q1, q2, q2, q1));
    expect_point(q2, 0, 1);
    expect_point(q1, 5, 6);
}

TEST(PlaneAliases, BoundsOfAnArcMayReplaceItsCentre) {
    C2DPoint centre(10, 20), other;
    CAL_ANGPT(centre, 2, 1, 0, 0, 0, 0, centre, other);
    expect_point(centre, 10, 21);
    expect_point(other, 10, 19);
    centre.SetData(10, 20);
    CA_ELAMN2(centre, 4, 2, 0, 0, 1e-3 - r_PAI(), centre, other);
    expect_point(centre, 8, 20 - std::sin(1e-3));
    expect_point(other, 12, 21);
    centre.SetData(0, 0);
    C2DPoint axis(2, 0);
    CAL_ELAMN(centre, axis, 0.5, 0, 0, 0, centre, axis);
    expect_point(centre, 0, 1);
    expect_point(axis, 0, -1);
}

// --- hostile figures ------------------------------------------------------------------------------------------------

// Every call must return one of its codes; a sanitizer and the time limit of the test see the rest.
class HostileFigures : public testing::Test {
protected:
    static constexpr int kCalls = 20000;

    double number() {
        constexpr double kInfinity = std::numeric_limits<double>::infinity();
        static const double values[] = {0,
                                        -0.0,
                                        1,
                                        -1,
                                        2,
                                        0.5,
                                        1e-8,
                                        -1e-9,
                                        1e-160,
                                        5e-324,
                                        1e50,
                                        -1e76,
                                        1e154,
                                        -1e200,
                                        1e308,
                                        1e17,
                                        6.283185307179586,
                                        3.141592653589793,
                                        kInfinity,
                                        -kInfinity,
                                        std::nan("")};
        return values[random_() % std::size(values)];
    }
    C2DPoint point() {
        const double x = number();
        return {x, number()};
    }

    C2DPoint p1_, p2_;
    int count_ = 0;

private:
    std::mt19937 random_{20260705};
};

bool is_count(int count) {
    return count >= 0 && count <= 2;
}

TEST_F(HostileFigures, LinesReturnTheirCodes) {
    double distance = 0;
    for (int i = 0; i < kCalls; ++i) {
        const int met = CA_INS2L(point(), point(), point(), point(), p1_);
        ASSERT_TRUE(met >= 0 && met <= 2);
        const int on = CA_ONLIN(point(), point(), point());
        ASSERT_TRUE(on == 0 || on == 1);
        int side = 0;
        const int has_side = CA_POSLN(C2DLine(point(), point()), point(), side);
        ASSERT_TRUE((has_side == 0 || has_side == 1) && side >= -1 && side <= 1);
        const int foot = CA_PERLN(point(), point(), point(), p1_, distance);
        ASSERT_TRUE(foot >= -1 && foot <= 1);
        CA_MIRROR(point(), point(), point(), p1_);
    }
}

TEST_F(HostileFigures, CirclesReturnTheirCodes) {
    double radius = 0, start = 0, end = 0;
    for (int i = 0; i < kCalls; ++i) {
        const C2DEllipse circle(point(), point(), number(), number(), number());
        const int met = CA_INSLC(circle, C2DLine(point(), point()), p1_, p2_, count_);
        ASSERT_TRUE((met == 0 || met == 1) && is_count(count_) && (met == 0 || count_ == 0));
        if (CA_ARC3P(point(), point(), point(), p1_, radius, start, end)) {
            ASSERT_TRUE(std::isfinite(radius) && start >= 0 && end >= 0);
        }
        ASSERT_TRUE(CA_PCTAN(point(), number(), point(), p1_, p2_, count_));
        ASSERT_TRUE(count_ == 0 || count_ == 2);
        ASSERT_TRUE(GET_ONPC(point(), number(), number(), p1_));
    }
}

TEST_F(HostileFigures, ArcsReturnTheirCodes) {
    for (int i = 0; i < kCalls; ++i) {
        const int met =
            CA_INS2C(point(), number(), number(), number(), point(), number(), number(), number(), p1_, p2_, count_);
        ASSERT_TRUE((met == 0 || met == 1) && is_count(count_) && (met == 0 || count_ == 0));
        const int on_arc = ChkOnArc(point(), number(), number(), number(), point());
        ASSERT_TRUE(on_arc == 0 || on_arc == 1);
        const C2DPoint centre = point(), p = point();
        const double start = number(), end = number();
        const int on_ellipse = ChkOnEllipse(&centre, number(), start, end, &p);
        ASSERT_TRUE(on_ellipse == 0 || (on_ellipse == 1 && !(std::isfinite(start) && std::isfinite(end))));
    }
}

TEST_F(HostileFigures, LinesAcrossEllipsesReturnTheirCodes) {
    for (int i = 0; i < kCalls; ++i) {
        const bool solved = CAL_INSLE(point(), point(), point(), point(), number(), p1_, p2_, count_);
        ASSERT_TRUE(is_count(count_) && (solved || count_ == 0));
        const double l1[2] = {number(), number()}, l2[2] = {number(), number()}, centre[2] = {number(), number()};
        const double angles[2] = {number(), number()};
        double q1[2], q2[2];
        const int met = A2D_INSL1(l1, l2, centre, number(), number(), number(), angles, q1, q2, &count_);
        ASSERT_TRUE((met == 0 || met == -1) && is_count(count_) && (met == 0 || count_ == 0));
    }
}

TEST_F(HostileFigures, PointsOfEllipsesReturn) {
    double longer = 0, shorter = 0, angle = 0;
    for (int i = 0; i < kCalls; ++i) {
        ASSERT_TRUE(CAL_ELPPN(point(), point(), number(), number(), p1_, p2_));
        CAL_ELPRR(point(), point(), number(), point(), point(), p1_, p2_);
        CAL_ELPCP(point(), point(), number(), number(), p1_);
        ASSERT_TRUE(CAL_ANGPT(point(), number(), number(), number(), number(), number(), number(), p1_, p2_));
        CAL_ELAMN(point(), point(), number(), number(), number(), number(), p1_, p2_);
        CA_ELAMN2(point(), number(), number(), number(), number(), number(), p1_, p2_);
        if (CAL_ELPDT(point(), point(), point(), longer, shorter, angle)) {
            ASSERT_TRUE(std::isfinite(longer) && shorter >= 1e-6 && angle >= 0);
        }
    }
}

}  // namespace
