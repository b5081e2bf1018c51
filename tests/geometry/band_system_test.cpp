// Linear equations in band form, against full elimination.
#include "geometry/band_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace orvil::detail {
namespace {

using Matrix = std::vector<std::vector<long double>>;

void set(BandSystem& band, int row, int column, double value) {
    band.set_row(row, column, &value, 1);
}

// Gaussian elimination with full rows and the largest pivot.
std::vector<long double> solve_fully(Matrix matrix, std::vector<long double> sides) {
    const std::size_t n = sides.size();
    for (std::size_t c = 0; c < n; ++c) {
        std::size_t chosen = c;
        for (std::size_t i = c; i < n; ++i) {
            chosen = std::fabs(matrix[i][c]) > std::fabs(matrix[chosen][c]) ? i : chosen;
        }
        std::swap(matrix[c], matrix[chosen]);
        std::swap(sides[c], sides[chosen]);
        for (std::size_t i = c + 1; i < n; ++i) {
            const long double factor = matrix[i][c] / matrix[c][c];
            for (std::size_t j = c; j < n; ++j) {
                matrix[i][j] -= factor * matrix[c][j];
            }
            sides[i] -= factor * sides[c];
        }
    }
    for (std::size_t i = n; i-- > 0;) {
        for (std::size_t j = i + 1; j < n; ++j) {
            sides[i] -= matrix[i][j] * sides[j];
        }
        sides[i] /= matrix[i][i];
    }
    return sides;
}

void expect_full_solution(int size, int below, int above, std::mt19937& random) {
    std::uniform_real_distribution<double> number(-1, 1);
    BandSystem band;
    ASSERT_TRUE(band.allocate(size, below, above));
    Matrix matrix(static_cast<std::size_t>(size), std::vector<long double>(static_cast<std::size_t>(size), 0.0L));
    std::vector<long double> sides;
    for (int i = 0; i < size; ++i) {
        for (int j = std::max(i - below, 0); j <= std::min(i + above, size - 1); ++j) {
            const double value = number(random) * (i % 3 == 0 ? 1e6 : 1);
            set(band, i, j, value);
            matrix[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] = value;
        }
        const double side = number(random);
        band.set_right_side(i, {side, -side, 0});
        sides.push_back(side);
    }
    ASSERT_TRUE(band.solve());
    const std::vector<long double> expected = solve_fully(matrix, sides);
    for (int i = 0; i < size; ++i) {
        const auto value = static_cast<double>(expected[static_cast<std::size_t>(i)]);
        const double tolerance = 1e-7 * (1 + std::fabs(value));
        EXPECT_NEAR(band.solution(i).x, value, tolerance);
        EXPECT_EQ(band.solution(i).y, -band.solution(i).x);
        EXPECT_EQ(band.solution(i).z, 0);
    }
}

TEST(BandSystem, AgreesWithFullElimination) {
    std::mt19937 random(11);
    for (int size = 1; size <= 24; ++size) {
        for (const auto& [below, above] : {std::pair{0, 0}, {1, 1}, {0, 3}, {3, 0}, {2, 5}, {5, 2}}) {
            expect_full_solution(size, below, above, random);
        }
    }
}

TEST(BandSystem, PivotsAreExchanged) {
    BandSystem band;
    ASSERT_TRUE(band.allocate(2, 1, 1));
    set(band, 0, 1, 2);
    set(band, 1, 0, 4);
    band.set_right_side(0, {6, 60, 0});
    band.set_right_side(1, {8, 80, 4});
    ASSERT_TRUE(band.solve());
    EXPECT_EQ(band.solution(0).x, 2);
    EXPECT_EQ(band.solution(0).y, 20);
    EXPECT_EQ(band.solution(0).z, 1);
    EXPECT_EQ(band.solution(1).x, 3);
    EXPECT_EQ(band.solution(1).y, 30);
    EXPECT_EQ(band.solution(1).z, 0);
}

// The first row's 10 is the larger one, but not in that row's own measure; taken as a pivot it would leave x = 0.
TEST(BandSystem, PivotsAreChosenByScaledCoefficients) {
    BandSystem band;
    ASSERT_TRUE(band.allocate(2, 1, 1));
    set(band, 0, 0, 10);
    set(band, 0, 1, 1e20);
    set(band, 1, 0, 1);
    set(band, 1, 1, 1);
    band.set_right_side(0, {1e20, 0, 0});
    band.set_right_side(1, {2, 0, 0});
    ASSERT_TRUE(band.solve());
    EXPECT_EQ(band.solution(0).x, 1);
    EXPECT_EQ(band.solution(1).x, 1);
}

TEST(BandSystem, ARowOfZerosIsRefused) {
    BandSystem band;
    ASSERT_TRUE(band.allocate(3, 1, 1));
    set(band, 0, 0, 1);
    set(band, 2, 2, 1);
    EXPECT_FALSE(band.solve());
}

TEST(BandSystem, ALeastPivotIsRefused) {
    for (const double difference : {0.0, 8.9e-15, 1.2e-14}) {
        BandSystem band;
        ASSERT_TRUE(band.allocate(2, 1, 1));
        set(band, 0, 0, 1);
        set(band, 0, 1, 1);
        set(band, 1, 0, 1);
        set(band, 1, 1, 1 + difference);
        EXPECT_EQ(band.solve(), difference > 1e-14);
    }
}

TEST(BandSystem, AnEmptyDiagonalBelowIsRefused) {
    BandSystem band;
    ASSERT_TRUE(band.allocate(3, 0, 1));
    set(band, 0, 0, 1);
    set(band, 1, 2, 1);
    set(band, 2, 2, 1);
    EXPECT_FALSE(band.solve());
}

}  // namespace
}  // namespace orvil::detail
