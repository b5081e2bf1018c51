// Tolerances, values and directions.
#include "orvil/geometry/scalars.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "orvil/geometry/plane_primitives.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(Tolerances, PiIsTheDoubleNearestToIt) {
    EXPECT_EQ(r_PAI(), 3.141592653589793);
}

TEST(Tolerances, AreTheirExactDoubles) {
    EXPECT_EQ(r_EP1(), 0.1);
    EXPECT_EQ(r_EP2(), 0.01);
    EXPECT_EQ(r_EP3(), 0.001);
    EXPECT_EQ(r_EP4(), 0.0001);
    EXPECT_EQ(r_EP5(), 1e-5);
    EXPECT_EQ(r_EP6(), 1e-6);
    EXPECT_EQ(r_EP7(), 1e-7);
    EXPECT_EQ(r_EP8(), 1e-8);
    EXPECT_EQ(r_EP10(), 1e-10);
    EXPECT_EQ(r_EP11(), 1e-11);
    EXPECT_EQ(r_EP12(), 1e-12);
    EXPECT_EQ(r_EP13(), 1e-13);
}

TEST(Tolerances, TheNinthIsTheEighth) {
    EXPECT_EQ(r_EP9(), 1e-8);
    EXPECT_EQ(r_EP9(), r_EP8());
}

// --- exchanging ------------------------------------------------------------------------------------------------------

TEST(Swap, ExchangesInts) {
    int a = 1;
    int b = -2;
    SWAP(a, b);
    EXPECT_EQ(a, -2);
    EXPECT_EQ(b, 1);
}

TEST(Swap, ExchangesDoubles) {
    double a = 1.5;
    double b = -2.5;
    SWAP(a, b);
    EXPECT_EQ(a, -2.5);
    EXPECT_EQ(b, 1.5);
}

TEST(Swap, ExchangesTheCoordinatesOfPoints) {
    C2DPoint a(1.0, 2.0);
    C2DPoint b(3.0, 4.0);
    SWAP(a, b);
    EXPECT_EQ(a.x, 3.0);
    EXPECT_EQ(a.y, 4.0);
    EXPECT_EQ(b.x, 1.0);
    EXPECT_EQ(b.y, 2.0);
}

TEST(Swap, ExchangesBothPointsOfLines) {
    C2DLine a(1.0, 2.0, 3.0, 4.0);
    C2DLine b(5.0, 6.0, 7.0, 8.0);
    SWAP(a, b);
    EXPECT_TRUE(a.Compare(C2DLine(5.0, 6.0, 7.0, 8.0)));
    EXPECT_TRUE(b.Compare(C2DLine(1.0, 2.0, 3.0, 4.0)));
}

TEST(Swap, OfAPointWithItselfLeavesIt) {
    C2DPoint a(1.0, 2.0);
    SWAP(a, a);
    EXPECT_EQ(a.x, 1.0);
    EXPECT_EQ(a.y, 2.0);
}

// --- clamping --------------------------------------------------------------------------------------------------------

template <typename T>
T trimmed(T v, T low, T high) {
    TRIMVALUE(v, low, high);
    return v;
}

TEST(TrimValue, ClampsInts) {
    EXPECT_EQ(trimmed(-7, -3, 5), -3);
    EXPECT_EQ(trimmed(-3, -3, 5), -3);
    EXPECT_EQ(trimmed(0, -3, 5), 0);
    EXPECT_EQ(trimmed(5, -3, 5), 5);
    EXPECT_EQ(trimmed(6, -3, 5), 5);
}

TEST(TrimValue, ClampsDoubles) {
    EXPECT_EQ(trimmed(-7.5, -3.0, 5.0), -3.0);
    EXPECT_EQ(trimmed(0.5, -3.0, 5.0), 0.5);
    EXPECT_EQ(trimmed(kInfinity, -3.0, 5.0), 5.0);
    EXPECT_EQ(trimmed(-kInfinity, -3.0, 5.0), -3.0);
}

TEST(TrimValue, WithLowAboveHighIsAlwaysHigh) {
    for (int v : {-100, 2, 3, 4, 5, 6, 100}) {
        EXPECT_EQ(trimmed(v, 5, 3), 3) << v;
        EXPECT_EQ(trimmed(v * 1.0, 5.0, 3.0), 3.0) << v;
    }
}

TEST(TrimValue, LeavesNan) {
    EXPECT_TRUE(std::isnan(trimmed(kNan, -3.0, 5.0)));
}

// --- magnitudes ------------------------------------------------------------------------------------------------------

TEST(Abs, IsTheMagnitude) {
    EXPECT_EQ(ABS(-5), 5);
    EXPECT_EQ(ABS(5), 5);
    EXPECT_EQ(ABS(0), 0);
    EXPECT_EQ(ABS(-INT_MAX), INT_MAX);
}

TEST(Abs, OfTheLeastIntIsItself) {
    EXPECT_EQ(ABS(INT_MIN), INT_MIN);
}

TEST(Fabs, ClearsTheSignBit) {
    EXPECT_EQ(FABS(-2.5), 2.5);
    EXPECT_EQ(FABS(2.5), 2.5);
    EXPECT_FALSE(std::signbit(FABS(-0.0)));
    EXPECT_EQ(FABS(-kInfinity), kInfinity);
    EXPECT_FALSE(std::signbit(FABS(-kNan)));
}

TEST(Zero, IsStrict) {
    EXPECT_FALSE(ZERO(1e-8, 1e-8));
    EXPECT_FALSE(ZERO(-1e-8, 1e-8));
    EXPECT_TRUE(ZERO(std::nextafter(1e-8, 0.0), 1e-8));
    EXPECT_TRUE(ZERO(-0.5e-8, 1e-8));
    EXPECT_TRUE(ZERO(0.0, 1e-8));
    EXPECT_FALSE(ZERO(0.0, 0.0));
}

TEST(Zero, NanNeverIs) {
    EXPECT_FALSE(ZERO(kNan, 1.0));
    EXPECT_FALSE(ZERO(0.0, kNan));
}

// --- degrees ---------------------------------------------------------------------------------------------------------

TEST(Rtod, MultipliesThenDivides) {
    EXPECT_EQ(RTOD(3.141592653589793), 180.0);
    EXPECT_EQ(RTOD(-1.0), -1.0 * 180.0 / 3.141592653589793);
    EXPECT_EQ(RTOD(2e306), kInfinity);  // 180 times comes first, and 57 times would be finite
}

TEST(Dtor, MultipliesThenDivides) {
    EXPECT_EQ(DTOR(180.0), 3.141592653589793);
    EXPECT_EQ(DTOR(-90.0), -1.5707963267948966);
    EXPECT_EQ(DTOR(1e308), kInfinity);  // pi times comes first
    EXPECT_EQ(DTOR(37.0), 37.0 * 3.141592653589793 / 180.0);
}

// --- lengths ---------------------------------------------------------------------------------------------------------

TEST(Hypot, IsTheRootOfTheSumOfSquares) {
    EXPECT_EQ(HYPOT(3.0, 4.0), 5.0);
    EXPECT_EQ(HYPOT(-3.0, -4.0), 5.0);
    EXPECT_EQ(HYPOT(0.0, 0.0), 0.0);
}

TEST(Hypot, FormsTheSquaresAsTheyStand) {
    EXPECT_EQ(HYPOT(1e200, 1.0), kInfinity);
    EXPECT_EQ(HYPOT(1e-200, 1e-200), 0.0);
    EXPECT_TRUE(std::isnan(HYPOT(kNan, kInfinity)));
}

// --- directions ------------------------------------------------------------------------------------------------------

constexpr double kPi = 3.141592653589793;
constexpr double kHalfPi = 1.5707963267948966;
constexpr double kThreeHalfPi = 4.71238898038469;

TEST(GetAngle, OfNoVectorIsZero) {
    EXPECT_EQ(GET_ANGLE(0, 0, 0, 0), 0.0);
    EXPECT_EQ(GET_ANGLE(0.99e-8, -0.99e-8, 0, 0), 0.0);
}

TEST(GetAngle, AlongTheAxesIsExact) {
    EXPECT_EQ(GET_ANGLE(1, 0, 0, 0), 0.0);
    EXPECT_EQ(GET_ANGLE(0, 1, 0, 0), kHalfPi);
    EXPECT_EQ(GET_ANGLE(-1, 0, 0, 0), kPi);
    EXPECT_EQ(GET_ANGLE(0, -1, 0, 0), kThreeHalfPi);
}

TEST(GetAngle, NearTheAxesIsExactWithinTheTolerance) {
    EXPECT_EQ(GET_ANGLE(1, -1e-9, 0, 0), 0.0);
    EXPECT_EQ(GET_ANGLE(1, 0.99e-8, 0, 0), 0.0);
    EXPECT_EQ(GET_ANGLE(-0.99e-8, 1, 0, 0), kHalfPi);
    EXPECT_EQ(GET_ANGLE(-1, -0.99e-8, 0, 0), kPi);
    EXPECT_EQ(GET_ANGLE(0.99e-8, -1, 0, 0), kThreeHalfPi);
}

TEST(GetAngle, CountsWhatEqualsTheTolerance) {
    EXPECT_EQ(GET_ANGLE(1, 1e-8, 0, 0), std::atan2(1e-8, 1.0));
    EXPECT_GT(GET_ANGLE(1e-8, 1, 0, 0), 1.5);
    EXPECT_NE(GET_ANGLE(1e-8, 1, 0, 0), kHalfPi);
    EXPECT_EQ(GET_ANGLE(1e-8, 1e-8, 0, 0), kPi / 4.0);
}

TEST(GetAngle, ElsewhereIsAtan2RaisedByAWholeTurn) {
    EXPECT_EQ(GET_ANGLE(1, 1, 0, 0), kPi / 4.0);
    EXPECT_NEAR(GET_ANGLE(1, -1, 0, 0), 7.0 * kPi / 4.0, 1e-15);
    EXPECT_EQ(GET_ANGLE(1, -1e-4, 0, 0), std::atan2(-1e-4, 1.0) + 6.283185307179586);
    EXPECT_NEAR(GET_ANGLE(-1, -1, 0, 0), 5.0 * kPi / 4.0, 1e-15);
    EXPECT_NEAR(GET_ANGLE(-1, 1, 0, 0), 3.0 * kPi / 4.0, 1e-15);
}

TEST(GetAngle, PointsTowardsTheFirstPoint) {
    EXPECT_EQ(GET_ANGLE(3.0, 5.0, 3.0, 1.0), kHalfPi);
    EXPECT_EQ(GET_ANGLE(C2DPoint(3.0, 1.0), C2DPoint(3.0, 5.0)), kThreeHalfPi);
    EXPECT_EQ(GET_ANGLE(C2DPoint(7.0, 5.0), C2DPoint(3.0, 1.0)), kPi / 4.0);
}

TEST(GetAngle, OfNanIsNan) {
    EXPECT_TRUE(std::isnan(GET_ANGLE(kNan, 1, 0, 0)));
    EXPECT_TRUE(std::isnan(GET_ANGLE(kNan, 0, 0, 0)));
    EXPECT_TRUE(std::isnan(GET_ANGLE(0, kNan, 0, 0)));
    EXPECT_TRUE(std::isnan(GET_ANGLE(kInfinity, 0, kInfinity, 0)));
}

TEST(GetAngle, OfInfiniteVectorsFollowsAtan2) {
    EXPECT_EQ(GET_ANGLE(kInfinity, 0, 0, 0), 0.0);
    EXPECT_EQ(GET_ANGLE(0, -kInfinity, 0, 0), kThreeHalfPi);
    EXPECT_EQ(GET_ANGLE(kInfinity, kInfinity, 0, 0), kPi / 4.0);
}

}  // namespace
