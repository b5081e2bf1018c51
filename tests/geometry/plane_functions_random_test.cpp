// Random figures, against what must hold for every one of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "orvil/geometry/plane_functions.h"
#include "orvil/geometry/scalars.h"

namespace {

constexpr double kTurn = 6.283185307179586;

class RandomFigures : public testing::Test {
protected:
    static constexpr int kFigures = 20000;

    double between(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }
    double angle() { return between(0, kTurn); }
    C2DPoint point() {
        const double x = between(-10, 10);
        return {x, between(-10, 10)};
    }
    C2DPoint axis() {
        const double r = between(0.5, 5), t = angle();
        return {r * std::cos(t), r * std::sin(t)};
    }

    std::mt19937 random_{20260706};
};

double cross(const C2DPoint& a, const C2DPoint& b, const C2DPoint& p) {
    return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
}

double distance_from_line(const C2DPoint& p, const C2DPoint& a, const C2DPoint& b) {
    return std::fabs(cross(a, b, p)) / a.GetDistance(b);
}

// 0 for a point of the ellipse, by its equation.
double off_ellipse(const C2DPoint& p, const C2DPoint& centre, const C2DPoint& axis, double ratio) {
    const double squared = axis.x * axis.x + axis.y * axis.y;
    const double x = ((p.x - centre.x) * axis.x + (p.y - centre.y) * axis.y) / squared;
    const double y = ((p.y - centre.y) * axis.x - (p.x - centre.x) * axis.y) / squared / ratio;
    return std::fabs(x * x + y * y - 1);
}

C2DPoint point_of(const C2DPoint& centre, const C2DPoint& axis, double ratio, double t) {
    return {centre.x + std::cos(t) * axis.x - std::sin(t) * ratio * axis.y,
            centre.y + std::cos(t) * axis.y + std::sin(t) * ratio * axis.x};
}

TEST_F(RandomFigures, SegmentsMeetWhereTheEndsOfEachLieOnBothSidesOfTheOther) {
    int met = 0;
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint a1 = point(), a2 = point(), b1 = point(), b2 = point();
        C2DPoint p;
        const int code = CA_INS2L(a1, a2, b1, b2, p);
        const bool separate = cross(a1, a2, b1) * cross(a1, a2, b2) < 0 && cross(b1, b2, a1) * cross(b1, b2, a2) < 0;
        ASSERT_EQ(code, separate ? 0 : 1);
        const double reach = 1e-13 * std::max({20.0, std::fabs(p.x), std::fabs(p.y)});
        ASSERT_LT(distance_from_line(p, a1, a2), 100 * reach);
        ASSERT_LT(distance_from_line(p, b1, b2), 100 * reach);
        met += separate ? 1 : 0;
    }
    EXPECT_GT(met, kFigures / 10);
}

// Figures so large and so small that rounding and tolerances decide, with corners that all but touch.
TEST_F(RandomFigures, SegmentsMeetWhereTheMeetingPointIsOnBothAndNowhereElse) {
    int codes[3] = {};
    int near_ends = 0;
    for (int i = 0; i < 20 * kFigures; ++i) {
        const double size = std::pow(10.0, between(-9, 9));
        const auto any = [&] {
            const C2DPoint p = point();
            return C2DPoint(size * p.x, size * p.y);
        };
        const C2DPoint a1 = any(), a2 = any(), b2 = any();
        const double along = between(-0.2, 1.2), aside = between(-3e-8, 3e-8) / size;
        const C2DPoint b1 = i % 2 == 0 ? any()
                                       : C2DPoint(a1.x + along * (a2.x - a1.x) + aside * (b2.x - a1.x),
                                                  a1.y + along * (a2.y - a1.y) + aside * (b2.y - a1.y));
        C2DPoint p;
        const int code = CA_INS2L(a1, a2, b1, b2, p);
        if (code != 2) {
            ASSERT_EQ(code, CA_ONLIN(a1, a2, p) == 0 && CA_ONLIN(b1, b2, p) == 0 ? 0 : 1) << i;
            near_ends += p.GetDistance(b1) < 1e-7 ? 1 : 0;
        }
        ++codes[code];
    }
    EXPECT_GT(*std::min_element(codes, codes + 3), 100);
    EXPECT_GT(near_ends, 100);
}

TEST_F(RandomFigures, PointsOfASegmentAreOnIt) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint a = point(), b = point();
        const double t = between(-0.5, 1.5);
        const C2DPoint p(a.x + t * (b.x - a.x), a.y + t * (b.y - a.y));
        ASSERT_EQ(CA_ONLIN(a, b, p), t >= 0 && t <= 1 ? 0 : 1) << t;
        const C2DPoint aside(p.x - 1e-3 * (b.y - a.y), p.y + 1e-3 * (b.x - a.x));
        int side = 7;
        ASSERT_EQ(CA_POSLN(C2DLine(a, b), aside, side), 0);
        ASSERT_EQ(side, 1e-3 * a.GetDistance(b) * a.GetDistance(b) > 1e-8 ? -1 : 0);
    }
}

TEST_F(RandomFigures, FootOfThePerpendicularIsTheMiddleOfTheMirrorImage) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint a = point(), b = point(), p = point();
        C2DPoint foot, image;
        double distance = 0;
        ASSERT_GE(CA_PERLN(a, b, p, foot, distance), 0);
        ASSERT_TRUE(CA_MIRROR(p, a, b, image));
        ASSERT_NEAR(distance, distance_from_line(p, a, b), 1e-11);
        ASSERT_NEAR(foot.x, (p.x + image.x) / 2, 1e-10);
        ASSERT_NEAR(foot.y, (p.y + image.y) / 2, 1e-10);
        ASSERT_NEAR(image.GetDistance(a), p.GetDistance(a), 1e-10);
    }
}

TEST_F(RandomFigures, ChordsLieOnTheCircleAndOnTheLine) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DEllipse circle(point(), axis(), between(0.1, 1), 0, 0);
        const C2DLine line(point(), point());
        C2DPoint p1, p2;
        int count = -1;
        ASSERT_EQ(CA_INSLC(circle, line, p1, p2, count), 0);
        const double distance = distance_from_line(circle.center, line.start, line.end);
        ASSERT_EQ(count, distance < circle.GetLongRadius() ? 2 : 0);
        if (count == 2) {
            ASSERT_NEAR(p1.GetDistance(circle.center), circle.GetLongRadius(), 1e-11);
            ASSERT_NEAR(p2.GetDistance(circle.center), circle.GetLongRadius(), 1e-11);
            ASSERT_LT(distance_from_line(p1, line.start, line.end), 1e-10);
            const C2DPoint along(line.end.x - line.start.x, line.end.y - line.start.y);
            ASSERT_GT((p1.x - p2.x) * along.x + (p1.y - p2.y) * along.y, 0);
        }
    }
}

TEST_F(RandomFigures, ArcsRunCounterClockwiseThroughTheirThreePoints) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint p[3] = {point(), point(), point()};
        C2DPoint centre;
        double radius = 0, start = 0, end = 0;
        ASSERT_EQ(CA_ARC3P(p[0], p[1], p[2], centre, radius, start, end), std::fabs(cross(p[0], p[1], p[2])) >= 1e-4);
        for (const C2DPoint& each : p) {
            ASSERT_NEAR(centre.GetDistance(each) / radius, 1, 1e-9);
            ASSERT_EQ(A2D_CHKDEGR(start - 1e-6, end + 1e-6, GET_ANGLE(each, centre)), 0);
        }
        ASSERT_NEAR(
            std::fabs(std::sin((GET_ANGLE(p[0], centre) - start) / 2) * std::sin((GET_ANGLE(p[0], centre) - end) / 2)),
            0, 1e-6);
    }
}

TEST_F(RandomFigures, TangentsAreAtRightAnglesToTheRadius) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint centre = point(), p = point();
        const double r = between(0.1, 8);
        C2DPoint t1, t2;
        int count = -1;
        ASSERT_TRUE(CA_PCTAN(centre, r, p, t1, t2, count));
        ASSERT_EQ(count, p.GetDistance(centre) > r ? 2 : 0);
        if (count == 2) {
            ASSERT_NEAR(t1.GetDistance(centre), r, 1e-11);
            ASSERT_NEAR((t1.x - centre.x) * (p.x - t1.x) + (t1.y - centre.y) * (p.y - t1.y), 0, 1e-9);
            ASSERT_LT(cross(centre, p, t1), 0);
            ASSERT_GT(cross(centre, p, t2), 0);
        }
    }
}

TEST_F(RandomFigures, CirclesCrossOnTheRightAndOnTheLeft) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint c1 = point(), c2 = point();
        const double r1 = between(0.1, 10), r2 = between(0.1, 10), d = c1.GetDistance(c2);
        C2DPoint p1, p2;
        int count = -1;
        ASSERT_EQ(CA_INS2C(c1, r1, 0, kTurn, c2, r2, 1, 1, p1, p2, count), 0);
        ASSERT_EQ(count, d < r1 + r2 && d > std::fabs(r1 - r2) ? 2 : 0);
        if (count == 2) {
            ASSERT_NEAR(p1.GetDistance(c1), r1, 1e-10);
            ASSERT_NEAR(p2.GetDistance(c1), r1, 1e-10);
            ASSERT_NEAR(p1.GetDistance(c2), r2, 1e-10);
            ASSERT_NEAR(p2.GetDistance(c2), r2, 1e-10);
            ASSERT_LT(cross(c1, c2, p1), 0);
            ASSERT_GT(cross(c1, c2, p2), 0);
        }
    }
}

// An angle well inside of an arc or well outside of it; in between the model cannot tell.
enum class Where { kInside, kOutside, kNear };

Where where(double start, double end, double t) {
    const auto turned = [](double value) { return value - kTurn * std::floor(value / kTurn); };
    const double sweep = turned(end - start);
    const double along = turned(t - start);
    if (std::min({along, kTurn - along, std::fabs(along - sweep)}) < 1e-6) {
        return Where::kNear;
    }
    return along < sweep ? Where::kInside : Where::kOutside;
}

TEST_F(RandomFigures, ArcsKeepTheCrossingsThatLieOnBoth) {
    int kept[3] = {};
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint c1 = point(), c2 = point();
        const double r1 = between(3, 10), r2 = between(3, 10), s1 = angle(), e1 = angle(), s2 = angle(), e2 = angle();
        C2DPoint a, b, p1, p2;
        int crossings = 0, count = -1;
        CA_INS2C(c1, r1, 0, 0, c2, r2, 0, 0, a, b, crossings);
        ASSERT_EQ(CA_INS2C(c1, r1, s1, e1, c2, r2, s2, e2, p1, p2, count), 0);
        int expected = 0;
        bool is_clear = true;
        for (const C2DPoint& p : {a, b}) {
            const Where on1 = where(s1, e1, GET_ANGLE(p, c1)), on2 = where(s2, e2, GET_ANGLE(p, c2));
            is_clear = is_clear && on1 != Where::kNear && on2 != Where::kNear;
            expected += on1 == Where::kInside && on2 == Where::kInside ? 1 : 0;
        }
        if (crossings == 2 && is_clear) {
            ASSERT_EQ(count, expected);
            ++kept[count];
        }
    }
    EXPECT_GT(*std::min_element(kept, kept + 3), 100);
}

TEST_F(RandomFigures, LinesMeetEllipsesWhereBothEquationsHold) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint l1 = point(), l2 = point(), centre = point(), major = axis();
        const double ratio = between(0.1, 1.5);
        C2DPoint p1, p2;
        int count = -1;
        ASSERT_TRUE(CAL_INSLE(l1, l2, centre, major, ratio, p1, p2, count));
        const C2DPoint found[2] = {p1, p2};
        for (int j = 0; j < count; ++j) {
            ASSERT_LT(off_ellipse(found[j], centre, major, ratio), 1e-5);
            ASSERT_LT(distance_from_line(found[j], l1, l2), 2e-6);
        }
        if (count == 2) {
            ASSERT_GT((p1.x - p2.x) * major.x + (p1.y - p2.y) * major.y, 0);
        }
    }
}

TEST_F(RandomFigures, LinesThroughAnInnerPointMeetEllipsesTwice) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint centre = point(), major = axis();
        const double ratio = between(0.1, 1.5);
        const C2DPoint rim = point_of(centre, major, ratio, angle());
        const double inside = between(0, 0.99);
        const C2DPoint inner(centre.x + inside * (rim.x - centre.x), centre.y + inside * (rim.y - centre.y));
        C2DPoint p1, p2;
        int count = -1;
        ASSERT_TRUE(CAL_INSLE(inner, point(), centre, major, ratio, p1, p2, count));
        ASSERT_EQ(count, 2);
        ASSERT_LT(off_ellipse(p1, centre, major, ratio), 1e-9);
        ASSERT_LT(off_ellipse(p2, centre, major, ratio), 1e-9);
    }
}

// The tangent's direction at a point is that of the derivative by the parameter.
TEST_F(RandomFigures, TangentPointsHaveTheTangent) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint centre = point(), major = axis();
        const double ratio = between(0.1, 1.5), t = angle();
        const C2DPoint on = point_of(centre, major, ratio, t);
        const C2DPoint along(-std::sin(t) * major.x - std::cos(t) * ratio * major.y,
                             -std::sin(t) * major.y + std::cos(t) * ratio * major.x);
        C2DPoint p1, p2;
        ASSERT_TRUE(CAL_ELPPN(centre, major, ratio, std::atan2(along.y, along.x), p1, p2));
        ASSERT_LT(std::min(p1.GetDistance(on), p2.GetDistance(on)), 1e-6);
        ASSERT_NEAR(p1.x + p2.x, 2 * centre.x, 1e-12);
    }
}

TEST_F(RandomFigures, ParameterPointsAreThoseOfTheClosedForm) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint centre = point(), major = axis();
        const double ratio = between(0.1, 1), t = angle();
        C2DPoint p;
        ASSERT_TRUE(CAL_ELPCP(centre, major, ratio, t, p));
        const bool is_near_tip = 1 - std::fabs(std::cos(t)) < 2e-5;
        ASSERT_LT(p.GetDistance(point_of(centre, major, ratio, t)), is_near_tip ? 0.05 : 1e-10) << t;
    }
}

TEST_F(RandomFigures, ConjugateSemiDiametersGiveTheAxesBack) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint centre = point(), major = axis();
        const double ratio = between(0.1, 0.95), t = angle();
        double longer = 0, shorter = 0, direction = 0;
        ASSERT_TRUE(CAL_ELPDT(point_of(centre, major, ratio, t), point_of(centre, major, ratio, t + kTurn / 4), centre,
                              longer, shorter, direction));
        ASSERT_NEAR(longer, std::hypot(major.x, major.y), 1e-11);
        ASSERT_NEAR(shorter, ratio * std::hypot(major.x, major.y), 1e-11);
        ASSERT_NEAR(std::sin(direction - std::atan2(major.y, major.x)), 0, 1e-8);
    }
}

// The box of an arc by walking along it.
TEST_F(RandomFigures, BoxOfAnArcIsThatOfAWalkAlongIt) {
    for (int i = 0; i < kFigures / 40; ++i) {
        const C2DPoint centre = point();
        const double a = between(0.5, 5), b = between(0.5, 5), rotation = angle(), start = angle(), end = angle();
        const double sweep = end > start ? end - start : end - start + kTurn;
        const C2DPoint major(a * std::cos(rotation), a * std::sin(rotation));
        C2DPoint low(1e9, 1e9), high(-1e9, -1e9);
        for (int step = 0; step <= 2000; ++step) {
            const C2DPoint p = point_of(centre, major, b / a, start + sweep * step / 2000);
            low.SetData(std::min(low.x, p.x), std::min(low.y, p.y));
            high.SetData(std::max(high.x, p.x), std::max(high.y, p.y));
        }
        C2DPoint corner, opposite;
        ASSERT_TRUE(CA_ELAMN2(centre, 2 * a, 2 * b, rotation, start, end, corner, opposite));
        for (const double difference : {low.x - corner.x, low.y - corner.y, opposite.x - high.x, opposite.y - high.y}) {
            ASSERT_GT(difference, -1e-9);
            ASSERT_LT(difference, 1e-4);
        }
    }
}

TEST_F(RandomFigures, BothWaysToTheBoundsOfAnArcAgree) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint centre = point(), major = axis();
        const double ratio = between(0.1, 1), start = angle(), end = angle(), direction = angle();
        C2DPoint p1, p2, q1, q2;
        const double a = std::hypot(major.x, major.y);
        ASSERT_TRUE(CAL_ANGPT(centre, a, a * ratio, GET_ANGLE(major, C2DPoint()), start, end, direction, p1, p2));
        ASSERT_TRUE(CAL_ELAMN(centre, major, ratio, start, end, direction, q1, q2));
        const double straight = std::max(p1.GetDistance(q1), p2.GetDistance(q2));
        const double crossed = std::max(p1.GetDistance(q2), p2.GetDistance(q1));
        ASSERT_LT(std::min(straight, crossed), 0.02);
    }
}

// An arc of a circle is also an elliptic arc with equal diameters.
TEST_F(RandomFigures, LinesMeetEllipticArcsAsTheyMeetTheirEllipse) {
    int kept[3] = {};
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint centre = point(), l1 = point(), l2 = point();
        const double a = between(2, 6), b = between(1, 6), rotation = angle(), start = angle(), end = angle();
        const double from[2] = {l1.x, l1.y}, to[2] = {l2.x, l2.y}, middle[2] = {centre.x, centre.y};
        const double angles[2] = {start, end};
        double q[2][2];
        int count = -1, crossings = 0;
        ASSERT_EQ(A2D_INSL1(from, to, middle, 2 * a, 2 * b, rotation, angles, q[0], q[1], &count), 0);
        C2DPoint p[2];
        const C2DPoint major(a * std::cos(rotation), a * std::sin(rotation));
        CAL_INSLE(l1, l2, centre, major, b / a, p[0], p[1], crossings);
        int expected = 0;
        bool is_clear = true;
        for (int j = 0; j < crossings; ++j) {
            const double x = (p[j].x - centre.x) * std::cos(rotation) + (p[j].y - centre.y) * std::sin(rotation);
            const double y = (p[j].y - centre.y) * std::cos(rotation) - (p[j].x - centre.x) * std::sin(rotation);
            const Where on = where(start, end, std::atan2(y / b, x / a));
            is_clear = is_clear && on != Where::kNear;
            if (is_clear && on == Where::kInside) {
                ASSERT_NEAR(q[expected][0], p[j].x, 1e-12);
                ASSERT_NEAR(q[expected][1], p[j].y, 1e-12);
                ++expected;
            }
        }
        if (is_clear) {
            ASSERT_EQ(count, expected);
            ++kept[count];
        }
    }
    EXPECT_GT(*std::min_element(kept, kept + 3), 100);
}

TEST_F(RandomFigures, PointsInADirectionAreOnTheArcAroundIt) {
    for (int i = 0; i < kFigures; ++i) {
        const C2DPoint centre = point();
        const double r = between(0.1, 10), degrees = between(-180, 360);
        C2DPoint p;
        ASSERT_TRUE(GET_ONPC(centre, r, degrees, p));
        ASSERT_EQ(ChkOnArc(centre, r, degrees - 1, degrees + 1, p), 0);
        ASSERT_EQ(ChkOnArc(centre, r, degrees + 1, degrees + 300, p), 1);
        ASSERT_EQ(ChkOnEllipse(&centre, degrees, angle(), angle(), &p), 0);
    }
}

}  // namespace
