// Knot vectors, and basis functions against the recursion that defines them.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "nurbs_probe.h"

namespace orvil::test {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// --- knot vectors ----------------------------------------------------------------------------------------------------

std::vector<double> made_knots(int order, int count, EKnotVectorForm form) {
    NurbsProbe curve;
    curve.AppendKnot(99);
    EXPECT_TRUE(curve.MakeKnotVector(order, count, form));
    return curve.knots();
}

TEST(NurbsMakeKnotVector, ClampedHasEndsOfFullMultiplicity) {
    EXPECT_EQ(made_knots(3, 5, KnotFormClamped), (std::vector<double>{0, 0, 0, 1, 2, 3, 3, 3}));
    EXPECT_EQ(made_knots(4, 4, KnotFormClamped), (std::vector<double>{0, 0, 0, 0, 1, 1, 1, 1}));
    EXPECT_EQ(made_knots(2, 5, KnotFormClamped), (std::vector<double>{0, 0, 1, 2, 3, 4, 4}));
    EXPECT_EQ(made_knots(1, 2, KnotFormClamped), (std::vector<double>{0, 1, 2}));
}

TEST(NurbsMakeKnotVector, UniformCountsFromZero) {
    EXPECT_EQ(made_knots(3, 5, KnotFormUniform), (std::vector<double>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(made_knots(2, 1, KnotFormUniform), (std::vector<double>{0, 1, 2}));
}

TEST(NurbsMakeKnotVector, ClampedWithFewPointsInterleavesBothEnds) {
    EXPECT_EQ(made_knots(4, 2, KnotFormClamped), (std::vector<double>{0, 0, 0, -1, 0, -1, -1, -1}));
    EXPECT_EQ(made_knots(3, 2, KnotFormClamped), (std::vector<double>{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(made_knots(2, 0, KnotFormClamped), (std::vector<double>{0, -1, 0, -1}));
}

TEST(NurbsMakeKnotVector, CountsBelowZeroGiveWhatTheRuleYields) {
    EXPECT_EQ(made_knots(-1, -1, KnotFormClamped), std::vector<double>());
    EXPECT_EQ(made_knots(std::numeric_limits<int>::min(), -1, KnotFormUniform), std::vector<double>());
    EXPECT_EQ(made_knots(3, -1, KnotFormClamped), (std::vector<double>{0, -3, 0, -3}));
    EXPECT_EQ(made_knots(-1, 3, KnotFormUniform), (std::vector<double>{0, 1}));
}

TEST(NurbsMakeKnotVector, OtherFormsAreRefused) {
    for (const int form : {-1, 2, 99}) {
        NurbsProbe curve;
        curve.AppendKnot(99);
        EXPECT_FALSE(curve.MakeKnotVector(3, 5, static_cast<EKnotVectorForm>(form)));
        EXPECT_EQ(curve.GetKnotSize(), 0);
    }
}

// --- the recursion, as it is written ---------------------------------------------------------------------------------

double knot_at(const std::vector<double>& u, int i) {
    return i >= 0 && static_cast<std::size_t>(i) < u.size() ? u[static_cast<std::size_t>(i)] : 0.0;
}

double recursion(const std::vector<double>& u, int k, int i, double t) {
    if (k == 1) {
        return knot_at(u, i) <= t && t < knot_at(u, i + 1) ? 1.0 : 0.0;
    }
    double first = 0;
    double second = 0;
    if (!(std::fabs(knot_at(u, i + k - 1) - knot_at(u, i)) < 1e-8)) {
        first = (t - knot_at(u, i)) / (knot_at(u, i + k - 1) - knot_at(u, i)) * recursion(u, k - 1, i, t);
    }
    if (!(std::fabs(knot_at(u, i + k) - knot_at(u, i + 1)) < 1e-8)) {
        second = (knot_at(u, i + k) - t) / (knot_at(u, i + k) - knot_at(u, i + 1)) * recursion(u, k - 1, i + 1, t);
    }
    return first + second;
}

void expect_same_bits(double actual, double expected) {
    if (std::isnan(expected)) {
        EXPECT_TRUE(std::isnan(actual));
    } else {
        EXPECT_EQ(std::bit_cast<std::uint64_t>(actual), std::bit_cast<std::uint64_t>(expected))
            << actual << " instead of " << expected;
    }
}

// Compares all functions of orders 1 to 8 and a few indices outside.
void expect_recursion(const std::vector<double>& u, double t) {
    NurbsProbe curve;
    curve.add_knots(u);
    const int size = static_cast<int>(u.size());
    for (int k = 1; k <= 8; ++k) {
        for (int i = -3; i < size + 2; ++i) {
            SCOPED_TRACE(testing::Message() << "k = " << k << ", i = " << i << ", t = " << t);
            expect_same_bits(curve.GetSplineBase(k, i, t), recursion(u, k, i, t));
            if (testing::Test::HasFailure()) {
                return;
            }
        }
    }
}

class RandomKnots {
public:
    explicit RandomKnots(unsigned seed) : random_(seed) {}

    double number(double from, double to) { return std::uniform_real_distribution<double>(from, to)(random_); }
    int whole(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }

    // Knots that do not decrease, some of them repeated, some closer than the tolerance.
    std::vector<double> rising(int count) {
        std::vector<double> u{number(-5, 5)};
        while (static_cast<int>(u.size()) < count) {
            const double steps[] = {0, 0, 4e-9, 1e-8, 2e-8, 0.5, 1, number(0, 3)};
            u.push_back(u.back() + steps[whole(0, 7)]);
        }
        return u;
    }

    std::vector<double> shuffled(int count) {
        std::vector<double> u;
        for (int i = 0; i < count; ++i) {
            u.push_back(whole(0, 2) == 0 ? whole(-2, 2) : number(-3, 3));
        }
        return u;
    }

    // A parameter in the knots' range, often a knot itself.
    double parameter(const std::vector<double>& u) {
        const int last = static_cast<int>(u.size()) - 1;
        const double knot = u[static_cast<std::size_t>(whole(0, last))];
        return whole(0, 2) == 0 ? knot : knot + number(-1, 1);
    }

private:
    std::mt19937 random_;
};

TEST(NurbsSplineBase, RisingKnotsGiveTheRecursionsBits) {
    RandomKnots random(1);
    for (int round = 0; round < 300 && !HasFailure(); ++round) {
        const std::vector<double> u = random.rising(random.whole(1, 14));
        expect_recursion(u, random.parameter(u));
    }
}

TEST(NurbsSplineBase, DecreasingKnotsGiveTheRecursionsBits) {
    RandomKnots random(2);
    for (int round = 0; round < 300 && !HasFailure(); ++round) {
        const std::vector<double> u = random.shuffled(random.whole(1, 14));
        expect_recursion(u, random.parameter(u));
    }
}

TEST(NurbsSplineBase, MissingKnotsReadAsZero) {
    expect_recursion({}, 0.0);
    expect_recursion({}, 1.0);
    expect_recursion({-1, -0.5}, -0.25);
    expect_recursion({-1, -0.5}, -0.75);
    expect_recursion({1, 2, 3}, 0.5);
}

TEST(NurbsSplineBase, WhatIsNotFiniteGivesTheRecursionsBits) {
    for (const double t : {0.5, 1.0, kInfinity, -kInfinity, kNaN}) {
        expect_recursion({0, 0, 1, kInfinity, kInfinity}, t);
        expect_recursion({-kInfinity, 0, 1, 2, 3}, t);
        expect_recursion({0, kNaN, 1, 2, kNaN}, t);
        expect_recursion({-1.7e308, 0, 0.5, 1.7e308}, t);
    }
}

TEST(NurbsSplineBase, HigherOrdersGiveTheRecursionsBits) {
    RandomKnots random(3);
    const std::vector<double> u = random.rising(16);
    NurbsProbe curve;
    curve.add_knots(u);
    for (int round = 0; round < 20; ++round) {
        const double t = random.parameter(u);
        expect_same_bits(curve.GetSplineBase(13, 1, t), recursion(u, 13, 1, t));
    }
}

// --- single facts ----------------------------------------------------------------------------------------------------

TEST(NurbsSplineBase, SpansAreHalfOpen) {
    NurbsProbe curve;
    curve.add_knots({0, 1, 2});
    EXPECT_EQ(curve.GetSplineBase(1, 0, 0.0), 1.0);
    EXPECT_EQ(curve.GetSplineBase(1, 0, std::nextafter(1.0, 0.0)), 1.0);
    EXPECT_EQ(curve.GetSplineBase(1, 0, 1.0), 0.0);
    EXPECT_EQ(curve.GetSplineBase(1, 1, 1.0), 1.0);
    EXPECT_EQ(curve.GetSplineBase(1, 1, 2.0), 0.0);
}

TEST(NurbsSplineBase, ALinearFunctionIsATent) {
    NurbsProbe curve;
    curve.add_knots({0, 1, 3});
    EXPECT_EQ(curve.GetSplineBase(2, 0, 0.25), 0.25);
    EXPECT_EQ(curve.GetSplineBase(2, 0, 1.0), 1.0);
    EXPECT_EQ(curve.GetSplineBase(2, 0, 2.5), 0.25);
}

TEST(NurbsSplineBase, AWidthOfTheToleranceCounts) {
    NurbsProbe curve;
    curve.add_knots({0, 1e-8, 1});
    EXPECT_EQ(curve.GetSplineBase(2, 0, 5e-9), 0.5);
    NurbsProbe narrow;
    narrow.add_knots({0, std::nextafter(1e-8, 0.0), 1});
    EXPECT_EQ(narrow.GetSplineBase(2, 0, 5e-9), 0.0);
}

TEST(NurbsSplineBase, OrdersBelowOneAreZero) {
    NurbsProbe curve;
    curve.add_knots({0, 1, 2});
    for (const int k : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(curve.GetSplineBase(k, 0, 0.5), 0.0);
    }
}

TEST(NurbsSplineBase, OrdersUpToSixtyFourAreComputed) {
    NurbsProbe curve;
    EXPECT_TRUE(curve.MakeKnotVector(64, 64, KnotFormClamped));
    EXPECT_EQ(curve.GetSplineBase(64, 0, 0.5), std::pow(0.5, 63));
    EXPECT_TRUE(curve.MakeKnotVector(65, 65, KnotFormClamped));
    EXPECT_EQ(curve.GetSplineBase(65, 0, 0.5), 0.0);
    EXPECT_EQ(curve.GetSplineBase(std::numeric_limits<int>::max(), 0, 0.5), 0.0);
}

TEST(NurbsSplineBase, IndicesAtTheEndsOfIntAreZero) {
    NurbsProbe curve;
    curve.add_knots({0, 1, 2});
    for (const int i : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_EQ(curve.GetSplineBase(4, i, 0.5), 0.0);
    }
}

TEST(NurbsSplineBase, FunctionsOfAClampedVectorAddUpToOne) {
    NurbsProbe curve;
    curve.MakeKnotVector(4, 9, KnotFormClamped);
    for (double t = 0; t < 6; t += 0.125) {
        double sum = 0;
        for (int i = 0; i < 9; ++i) {
            sum += curve.GetSplineBase(4, i, t);
        }
        EXPECT_NEAR(sum, 1.0, 1e-15);
    }
}

}  // namespace
}  // namespace orvil::test
