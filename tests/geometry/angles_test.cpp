// Normalisers of single angles and of the two angles of an arc.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>
#include <random>

#include "orvil/geometry/scalars.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kBound = 6.283185297179586;  // 2 pi - 1e-8
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

double degrees(double angle) {
    EXPECT_EQ(CA_ANGLE(angle), 0);
    return angle;
}

double radians(double angle) {
    EXPECT_EQ(CA_ANGLE_RAD(angle), 0);
    return angle;
}

double converted(double angle) {
    ANG_CVT_STD(angle);
    return angle;
}

double standard(double angle) {
    ANGSTDDEG(angle);
    return angle;
}

struct Arc {
    double start;
    double end;
};

bool operator==(const Arc& a, const Arc& b) {
    return a.start == b.start && a.end == b.end;
}

std::ostream& operator<<(std::ostream& out, const Arc& arc) {
    return out.precision(17), out << "(" << arc.start << ", " << arc.end << ")";
}

Arc arc_in_degrees(double start, double end) {
    EXPECT_EQ(CA_ARCAN(start, end), 0);
    return {start, end};
}

Arc arc_in_radians(double start, double end) {
    EXPECT_EQ(CA_ARCAN_RAD(start, end), 0);
    return {start, end};
}

Arc standard_arc(double start, double end) {
    A2D_STDSEDEG(start, end);
    return {start, end};
}

// --- CA_ANGLE, CA_ANGLE_RAD ------------------------------------------------------------------------------------------

TEST(AngleInDegrees, StaysFromZeroToAWholeTurn) {
    EXPECT_EQ(degrees(0.0), 0.0);
    EXPECT_EQ(degrees(123.25), 123.25);
    EXPECT_EQ(degrees(360.0), 360.0);
}

TEST(AngleInDegrees, BelowZeroIsRaised) {
    EXPECT_EQ(degrees(-30.0), 330.0);
    EXPECT_EQ(degrees(-360.0), 0.0);
    EXPECT_EQ(degrees(-750.0), 330.0);
}

TEST(AngleInDegrees, AboveAWholeTurnIsLoweredAndMayEndAtIt) {
    EXPECT_EQ(degrees(360.5), 0.5);
    EXPECT_EQ(degrees(720.0), 360.0);
    EXPECT_EQ(degrees(1080.0), 360.0);
}

TEST(AngleInDegrees, TooSmallToBeToldFromAWholeTurnBecomesOne) {
    EXPECT_EQ(degrees(-1e-20), 360.0);
}

TEST(AngleInRadians, IsTheSameWithTwoPi) {
    EXPECT_EQ(radians(0.0), 0.0);
    EXPECT_EQ(radians(kTwoPi), kTwoPi);
    EXPECT_EQ(radians(2.0 * kTwoPi), kTwoPi);
    EXPECT_EQ(radians(-kTwoPi), 0.0);
    EXPECT_EQ(radians(-1.0), -1.0 + kTwoPi);
    EXPECT_EQ(radians(7.0), 7.0 - kTwoPi);
}

TEST(Angle, ThatIsNotFiniteStays) {
    for (double angle : {kInfinity, -kInfinity}) {
        EXPECT_EQ(degrees(angle), angle);
        EXPECT_EQ(radians(angle), angle);
        EXPECT_EQ(converted(angle), angle);
        EXPECT_EQ(standard(angle), angle);
    }
    EXPECT_TRUE(std::isnan(degrees(kNan)));
    EXPECT_TRUE(std::isnan(radians(kNan)));
    EXPECT_TRUE(std::isnan(converted(kNan)));
    EXPECT_TRUE(std::isnan(standard(kNan)));
}

TEST(HugeAngle, OfWholeTurnsBecomesOneWhenPositiveAndNoneWhenNegative) {
    EXPECT_EQ(degrees(360.0 * 1e9), 360.0);
    EXPECT_EQ(degrees(-360.0 * 1e9), 0.0);
    EXPECT_EQ(radians(kTwoPi * std::ldexp(1.0, 40)), kTwoPi);
    EXPECT_EQ(radians(-kTwoPi * std::ldexp(1.0, 40)), 0.0);
}

TEST(HugeAngle, OfWholeTurnsIsConvertedToNone) {
    for (double sign : {1.0, -1.0}) {
        EXPECT_EQ(converted(sign * kTwoPi * std::ldexp(1.0, 40)), 0.0);
        EXPECT_EQ(standard(sign * kTwoPi * std::ldexp(1.0, 40)), 0.0);
    }
}

TEST(HugeAngle, IsReducedExactly) {
    EXPECT_EQ(degrees(360.0 * 1e10 + 45.0), 45.0);
    EXPECT_EQ(degrees(-360.0 * 1e10 - 45.0), 315.0);
    EXPECT_EQ(radians(1e300), std::fmod(1e300, kTwoPi));
    EXPECT_EQ(radians(-1e300), std::fmod(-1e300, kTwoPi) + kTwoPi);
    EXPECT_EQ(converted(-1e300), std::fmod(-1e300, kTwoPi));
    EXPECT_EQ(standard(-1e300), std::fmod(-1e300, kTwoPi) + kTwoPi);
}

TEST(HugeAngle, OfTheGreatestMagnitudeComesIntoRange) {
    for (double angle : {DBL_MAX, -DBL_MAX, 6.283185307e6, -6.283185308e6, 360e6, -360.1e6, 1e17}) {
        EXPECT_GE(degrees(angle), 0.0);
        EXPECT_LE(degrees(angle), 360.0);
        EXPECT_GE(radians(angle), 0.0);
        EXPECT_LE(radians(angle), kTwoPi);
        EXPECT_LE(std::fabs(converted(angle)), kBound);
        EXPECT_GE(standard(angle), 0.0);
        EXPECT_LE(standard(angle), kTwoPi);
    }
}

TEST(ManyTurns, OfDegreesAreTakenAwayWithoutError) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 2000; ++i) {
        const double angle = std::uniform_real_distribution<double>(360.0, 360e3)(random);
        EXPECT_EQ(degrees(angle), std::fmod(angle, 360.0));
        EXPECT_EQ(degrees(-angle), 360.0 - std::fmod(angle, 360.0));
    }
}

// --- ANG_CVT_STD, ANGSTDDEG ------------------------------------------------------------------------------------------

TEST(ConvertedAngle, KeepsItsSign) {
    EXPECT_EQ(converted(1.0), 1.0);
    EXPECT_EQ(converted(-1.0), -1.0);
    EXPECT_EQ(converted(7.0), 7.0 - kTwoPi);
    EXPECT_EQ(converted(-7.0), -7.0 + kTwoPi);
    EXPECT_EQ(converted(-kTwoPi - kTwoPi - 1.0), -kTwoPi - kTwoPi - 1.0 + kTwoPi + kTwoPi);
}

TEST(ConvertedAngle, AtTheBoundStays) {
    EXPECT_EQ(converted(kBound), kBound);
    EXPECT_EQ(converted(-kBound), -kBound);
}

TEST(ConvertedAngle, BeyondTheBoundIsReducedByAFullPeriod) {
    const double angle = kTwoPi - 5e-9;
    EXPECT_EQ(converted(angle), angle - kTwoPi);
    EXPECT_LT(converted(angle), 0.0);
    EXPECT_EQ(converted(-angle), kTwoPi - angle);
    EXPECT_EQ(converted(kTwoPi), 0.0);
}

TEST(StandardAngle, LiesFromZeroToTheBound) {
    EXPECT_EQ(standard(0.0), 0.0);
    EXPECT_EQ(standard(1.0), 1.0);
    EXPECT_EQ(standard(kBound), kBound);
    EXPECT_EQ(standard(-1.0), -1.0 + kTwoPi);
    EXPECT_EQ(standard(7.0), 7.0 - kTwoPi);
    EXPECT_EQ(standard(-7.0), -7.0 + kTwoPi + kTwoPi);
    EXPECT_EQ(standard(kTwoPi), 0.0);
    EXPECT_EQ(standard(-kTwoPi), 0.0);
}

TEST(StandardAngle, AHairBelowAWholeTurnStaysThere) {
    EXPECT_NEAR(standard(kTwoPi - 5e-9), kTwoPi - 5e-9, 1e-15);
}

TEST(StandardAngle, OfATinyNegativeIsAWholeTurn) {
    EXPECT_EQ(standard(-1e-20), kTwoPi);
}

// --- CA_ARCAN, CA_ARCAN_RAD ------------------------------------------------------------------------------------------

TEST(ArcInDegrees, KeepsASweepOfNone) {
    EXPECT_EQ(arc_in_degrees(10.0, 10.0), (Arc{10.0, 10.0}));
    EXPECT_EQ(arc_in_degrees(370.0, 10.0), (Arc{0.0, 360.0}));  // 360 apart is a whole turn at entry
    EXPECT_EQ(arc_in_degrees(-10.0, -10.0), (Arc{350.0, 350.0}));
}

TEST(ArcInDegrees, AboveTheThresholdAtEntryIsAWholeTurn) {
    EXPECT_EQ(arc_in_degrees(0.0, 359.9995), (Arc{0.0, 360.0}));
    EXPECT_EQ(arc_in_degrees(359.9995, 0.0), (Arc{0.0, 360.0}));
    EXPECT_EQ(arc_in_degrees(90.0, 450.0), (Arc{0.0, 360.0}));
    EXPECT_EQ(arc_in_degrees(10.0, 1000.0), (Arc{0.0, 360.0}));
}

TEST(ArcInDegrees, AtTheThresholdIsNoWholeTurn) {
    EXPECT_EQ(arc_in_degrees(0.0, 359.999), (Arc{0.0, 359.999}));
    EXPECT_EQ(arc_in_degrees(0.0, std::nextafter(359.999, 360.0)), (Arc{0.0, 360.0}));
}

TEST(ArcInDegrees, ThatPassesZeroStartsBelowIt) {
    EXPECT_EQ(arc_in_degrees(350.0, 10.0), (Arc{-10.0, 10.0}));
    EXPECT_EQ(arc_in_degrees(-10.0, 10.0), (Arc{-10.0, 10.0}));
    EXPECT_EQ(arc_in_degrees(710.0, 730.0), (Arc{-10.0, 10.0}));
}

TEST(ArcInDegrees, ThatDoesNotPassZeroIsNormalised) {
    EXPECT_EQ(arc_in_degrees(10.0, 350.0), (Arc{10.0, 350.0}));
    EXPECT_EQ(arc_in_degrees(370.0, 380.0), (Arc{10.0, 20.0}));
    EXPECT_EQ(arc_in_degrees(0.0, 10.0), (Arc{0.0, 10.0}));
    EXPECT_EQ(arc_in_degrees(90.0, 360.0), (Arc{90.0, 360.0}));
}

TEST(ArcInDegrees, FromAWholeTurnStartsAtZero) {
    EXPECT_EQ(arc_in_degrees(360.0, 10.0), (Arc{0.0, 10.0}));
    EXPECT_EQ(arc_in_degrees(360.0, 360.0), (Arc{360.0, 360.0}));
}

TEST(ArcInDegrees, AboveTheThresholdOnceNormalisedIsAWholeTurn) {
    EXPECT_EQ(arc_in_degrees(10.0, 9.9995), (Arc{0.0, 360.0}));
    EXPECT_EQ(arc_in_degrees(10.0, 9.9), (Arc{10.0 - 360.0, 9.9 + 360.0 - 360.0}));
}

TEST(ArcInRadians, IsTheSameWithTwoPi) {
    EXPECT_EQ(arc_in_radians(1.0, 1.0), (Arc{1.0, 1.0}));
    EXPECT_EQ(arc_in_radians(1.0, 2.0), (Arc{1.0, 2.0}));
    EXPECT_EQ(arc_in_radians(6.0, 1.0), (Arc{6.0 - kTwoPi, 1.0 + kTwoPi - kTwoPi}));
    EXPECT_EQ(arc_in_radians(1.0, 8.0), (Arc{0.0, kTwoPi}));
    EXPECT_EQ(arc_in_radians(1.0, 1.0 - 0.5e-6), (Arc{0.0, kTwoPi}));
}

TEST(ArcInRadians, AtTheThresholdIsNoWholeTurn) {
    const double threshold = 6.283184307179586;
    EXPECT_EQ(arc_in_radians(0.0, threshold), (Arc{0.0, threshold}));
    EXPECT_EQ(arc_in_radians(0.0, std::nextafter(threshold, 7.0)), (Arc{0.0, kTwoPi}));
}

TEST(ArcThatIsNotFinite, AnInfiniteSweepIsAWholeTurn) {
    EXPECT_EQ(arc_in_degrees(0.0, kInfinity), (Arc{0.0, 360.0}));
    EXPECT_EQ(arc_in_degrees(-kInfinity, 5.0), (Arc{0.0, 360.0}));
    EXPECT_EQ(arc_in_radians(-kInfinity, kInfinity), (Arc{0.0, kTwoPi}));
}

TEST(ArcThatIsNotFinite, AngleStaysAndTheOtherIsNormalised) {
    const Arc nan_start = arc_in_degrees(kNan, 370.0);
    EXPECT_TRUE(std::isnan(nan_start.start));
    EXPECT_EQ(nan_start.end, 10.0);
    const Arc nan_end = arc_in_radians(-1.0, kNan);
    EXPECT_EQ(nan_end.start, -1.0 + kTwoPi);
    EXPECT_TRUE(std::isnan(nan_end.end));
    EXPECT_EQ(arc_in_degrees(kInfinity, kInfinity), (Arc{kInfinity, kInfinity}));
}

// --- A2D_STDSEDEG ----------------------------------------------------------------------------------------------------

TEST(StandardArc, OfCoincidentAnglesIsAWholeTurnThatEndsWhereItStarted) {
    EXPECT_EQ(standard_arc(1.0, 1.0), (Arc{1.0 - kTwoPi, 1.0 + kTwoPi - kTwoPi}));
    EXPECT_EQ(standard_arc(0.0, 0.0), (Arc{0.0, kTwoPi}));
    EXPECT_EQ(standard_arc(0.0, kTwoPi), (Arc{0.0, kTwoPi}));
}

TEST(StandardArc, TakesTheEndOfAWholeTurnFromTheStart) {
    const Arc arc = standard_arc(2.0, 2.0 + 0.9e-8);
    EXPECT_EQ(arc, (Arc{2.0 - kTwoPi, 2.0 + kTwoPi - kTwoPi}));
}

TEST(StandardArc, OfAnglesApartByTheToleranceIsNoWholeTurn) {
    const double end = 2.0 + 1.1e-8;
    EXPECT_EQ(standard_arc(2.0, end), (Arc{2.0, end}));
}

TEST(StandardArc, AcrossZeroIsNoWholeTurnHoweverSmall) {
    const Arc arc = standard_arc(-2e-9, 1e-9);
    EXPECT_NEAR(arc.end - arc.start, 3e-9, 1e-15);
    EXPECT_EQ(standard_arc(-1e-20, 0.0), (Arc{kTwoPi, kTwoPi}));
}

TEST(StandardArc, EndsAboveItsStart) {
    EXPECT_EQ(standard_arc(1.0, 2.0), (Arc{1.0, 2.0}));
    EXPECT_EQ(standard_arc(6.0, 1.0), (Arc{6.0 - kTwoPi, 1.0 + kTwoPi - kTwoPi}));
    EXPECT_EQ(standard_arc(2.0, 0.0), (Arc{2.0, kTwoPi}));
    EXPECT_EQ(standard_arc(-1.0, 1.0), (Arc{-1.0 + kTwoPi - kTwoPi, 1.0 + kTwoPi - kTwoPi}));
    EXPECT_EQ(standard_arc(8.0, 9.0), (Arc{8.0 - kTwoPi, 9.0 - kTwoPi}));
}

TEST(StandardArc, ThatIsNotFiniteStaysSo) {
    const Arc infinite = standard_arc(kInfinity, 1.0);
    EXPECT_EQ(infinite.start, kInfinity);
    EXPECT_TRUE(std::isnan(standard_arc(kNan, 1.0).start));
    EXPECT_TRUE(std::isnan(standard_arc(1.0, kNan).end));
    EXPECT_EQ(standard_arc(0.0, kInfinity).end, kInfinity);
}

// --- A2D_CHKDEGR -----------------------------------------------------------------------------------------------------

TEST(AngleOnArc, BelongsToItWithItsEnds) {
    EXPECT_EQ(A2D_CHKDEGR(1.0, 2.0, 1.0), 0);
    EXPECT_EQ(A2D_CHKDEGR(1.0, 2.0, 1.5), 0);
    EXPECT_EQ(A2D_CHKDEGR(1.0, 2.0, 2.0), 0);
    EXPECT_EQ(A2D_CHKDEGR(1.0, 2.0, 2.5), 1);
    EXPECT_EQ(A2D_CHKDEGR(1.0, 2.0, 0.5), 1);
    EXPECT_EQ(A2D_CHKDEGR(1.0, 2.0, 5.5), 1);
}

TEST(AngleOnArc, MayMissItsEndsByTheTolerance) {
    EXPECT_EQ(A2D_CHKDEGR(0.0, kPi / 2.0, kPi / 2.0 + 0.5e-8), 0);
    EXPECT_EQ(A2D_CHKDEGR(0.0, kPi / 2.0, kPi / 2.0 + 2e-8), 1);
    EXPECT_EQ(A2D_CHKDEGR(0.0, kPi / 2.0, -0.5e-8), 0);
    EXPECT_EQ(A2D_CHKDEGR(0.0, kPi / 2.0, -2e-8), 1);
}

TEST(AngleOnArc, BeyondAnEndByExactlyTheToleranceBelongsToIt) {
    EXPECT_EQ(A2D_CHKDEGR(0.5, 1.0, 1.0 + 1e-8), 0);
    EXPECT_EQ(A2D_CHKDEGR(0.5, 1.0, 0.5 - 1e-8), 0);
    EXPECT_EQ(A2D_CHKDEGR(0.5, 1.0, std::nextafter(0.5 - 1e-8, 0.0)), 1);
}

TEST(AngleOnArc, OfAnArcThatPassesZero) {
    for (double angle : {6.0, 6.2, 0.0, kTwoPi, 0.5, 1.0}) {
        EXPECT_EQ(A2D_CHKDEGR(6.0, 1.0, angle), 0) << angle;
    }
    EXPECT_EQ(A2D_CHKDEGR(6.0, 1.0, 1.1), 1);
    EXPECT_EQ(A2D_CHKDEGR(6.0, 1.0, 5.9), 1);
}

TEST(AngleOnArc, IsReducedFirst) {
    EXPECT_EQ(A2D_CHKDEGR(1.0 + kTwoPi, 2.0 - kTwoPi, 1.5 + 3.0 * kTwoPi), 0);
    EXPECT_EQ(A2D_CHKDEGR(1.0, 2.0, 2.5 - 5.0 * kTwoPi), 1);
}

TEST(AngleOnArc, OfAWholeTurnAlwaysBelongs) {
    for (double start : {0.0, 1.0, 6.28318530, -3.0}) {
        for (double angle = -7.0; angle < 7.0; angle += 0.0625) {
            EXPECT_EQ(A2D_CHKDEGR(start, start, angle), 0) << start << " " << angle;
            EXPECT_EQ(A2D_CHKDEGR(start, start + 0.5e-8, angle), 0) << start << " " << angle;
        }
    }
}

TEST(AngleOnArc, ThatIsNotFinite) {
    EXPECT_EQ(A2D_CHKDEGR(1.0, 2.0, kNan), 0);
    EXPECT_EQ(A2D_CHKDEGR(1.0, 2.0, -kInfinity), 0);
    EXPECT_EQ(A2D_CHKDEGR(1.0, 2.0, kInfinity), 1);
}

TEST(AngleOnArc, OfAnArcThatIsNotFiniteReturns) {
    for (double odd : {kNan, kInfinity, -kInfinity}) {
        EXPECT_EQ(A2D_CHKDEGR(odd, 1.0, 2.0) & ~1, 0);
        EXPECT_EQ(A2D_CHKDEGR(1.0, odd, 2.0) & ~1, 0);
        EXPECT_EQ(A2D_CHKDEGR(odd, odd, odd) & ~1, 0);
    }
}

// The arc by its sweep, in long double.
bool is_on_arc(double start, double end, double angle) {
    const long double turn = kTwoPi;
    const auto above = [&](long double a) {
        const long double rest = std::fmod(a - start, turn);
        return rest < 0.0L ? rest + turn : rest;
    };
    return above(angle) <= above(end);
}

TEST(AngleOnArc, AgreesWithTheSweepOfRandomArcs) {
    std::mt19937_64 random(2);
    std::uniform_real_distribution<double> any(-50.0, 50.0);
    for (int i = 0; i < 100000; ++i) {
        const double start = any(random);
        const double end = any(random);
        const double angle = any(random);
        ASSERT_EQ(A2D_CHKDEGR(start, end, angle), is_on_arc(start, end, angle) ? 0 : 1)
            << start << " " << end << " " << angle;
    }
}

// --- A2D_PIN_CHK -----------------------------------------------------------------------------------------------------

TEST(PointOnTurnedArc, IsTestedByItsDirectionLessTheRotation) {
    const double centre[2] = {10.0, 20.0};
    const double angles[2] = {0.0, kPi / 2.0};
    const double left[2] = {5.0, 20.5};
    const double right[2] = {15.0, 20.5};
    EXPECT_EQ(A2D_PIN_CHK(centre, 0.0, angles, right), 0);
    EXPECT_EQ(A2D_PIN_CHK(centre, 0.0, angles, left), 1);
    EXPECT_EQ(A2D_PIN_CHK(centre, kPi / 2.0, angles, left), 0);
    EXPECT_EQ(A2D_PIN_CHK(centre, kPi / 2.0, angles, right), 1);
}

TEST(PointOnTurnedArc, LeavesTheAnglesAlone) {
    const double centre[2] = {0.0, 0.0};
    const double angles[2] = {7.0, 7.0};
    const double point[2] = {1.0, 1.0};
    EXPECT_EQ(A2D_PIN_CHK(centre, 0.0, angles, point), 0);
    EXPECT_EQ(angles[0], 7.0);
    EXPECT_EQ(angles[1], 7.0);
}

TEST(PointOnTurnedArc, CoincidentAnglesMeanAWholeTurn) {
    const double centre[2] = {0.0, 0.0};
    const double angles[2] = {1.0, 1.0};
    const double point[2] = {-1.0, -1.0};
    EXPECT_EQ(A2D_PIN_CHK(centre, 0.3, angles, point), 0);
}

}  // namespace
