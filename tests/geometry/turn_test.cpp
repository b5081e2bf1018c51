// Rotations of several threads at a time, which share the last one.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cmath>
#include <thread>
#include <vector>

#include "orvil/geometry/plane_primitives.h"

namespace {

constexpr std::array<double, 4> kAngles = {0.5, -1.25, 2.0, 3.0};

struct Expected {
    double x[4];
    double y[4];
};

Expected expected_points() {
    Expected expected{};
    for (std::size_t i = 0; i < kAngles.size(); ++i) {
        expected.x[i] = std::cos(kAngles[i]) * 3.0 - std::sin(kAngles[i]) * 4.0;
        expected.y[i] = std::sin(kAngles[i]) * 3.0 + std::cos(kAngles[i]) * 4.0;
    }
    return expected;
}

// Counts the rotations that differ in any bit. Runs of one angle make some of them find it kept.
int count_wrong(std::size_t seed, const Expected& expected) {
    int wrong = 0;
    for (std::size_t i = 0; i < 200000; ++i) {
        const std::size_t at = (i / 7 * (seed + 1) + seed) % kAngles.size();
        C2DPoint point(3.0, 4.0);
        point.Rotate(C2DPoint(), kAngles[at]);
        wrong += point.x != expected.x[at] || point.y != expected.y[at] ? 1 : 0;
    }
    return wrong;
}

TEST(RotationOfManyThreads, IsThatOfEachThreadsOwnAngle) {
    const Expected expected = expected_points();
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (std::size_t seed = 0; seed < 4; ++seed) {
        threads.emplace_back([&, seed] { wrong += count_wrong(seed, expected); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong.load(), 0);
}

}  // namespace
