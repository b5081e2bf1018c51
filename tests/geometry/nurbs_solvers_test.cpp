// The dense solvers of linear equations.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <utility>

#include "nurbs_probe.h"

namespace orvil::test {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

using Matrix = std::vector<std::vector<double>>;

// A buffer with memory of its own.
class Equations {
public:
    Equations(Matrix matrix, std::vector<double> sides)
        : rows_(std::move(matrix)),
          sides_(std::move(sides)),
          index_(sides_.size(), -1),
          scale_(sides_.size(), -1),
          solution_(sides_.size(), -1) {
        for (std::vector<double>& row : rows_) {
            pointers_.push_back(row.data());
        }
        buffer = {pointers_.data(), sides_.data(), index_.data(), scale_.data(), solution_.data()};
    }
    Equations(const Equations&) = delete;
    Equations& operator=(const Equations&) = delete;

    int size() const { return static_cast<int>(sides_.size()); }
    const Matrix& matrix() const { return rows_; }
    const std::vector<double>& sides() const { return sides_; }
    const std::vector<double>& solution() const { return solution_; }
    const std::vector<int>& index() const { return index_; }
    const std::vector<double>& scale() const { return scale_; }

    TCalcNurbsWorkBuffer buffer{};

private:
    Matrix rows_;
    std::vector<double> sides_;
    std::vector<int> index_;
    std::vector<double> scale_;
    std::vector<double> solution_;
    std::vector<double*> pointers_;
};

void expect_solution(const Equations& equations, const std::vector<double>& expected, double tolerance) {
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(equations.solution()[i], expected[i], tolerance) << "unknown " << i;
    }
}

bool decompose_and_solve(Equations& equations) {
    const NurbsProbe curve;
    double sign = 0;
    return curve.LU_Decomposition(equations.size(), equations.buffer, sign) &&
           curve.SolveLinerSystemOfEquations(equations.size(), equations.buffer);
}

// 2x + y - z = 8, -3x - y + 2z = -11, -2x + y + 2z = -3 has the solution 2, 3, -1.
const Matrix kThree{{2, 1, -1}, {-3, -1, 2}, {-2, 1, 2}};
const std::vector<double> kThreeSides{8, -11, -3};

TEST(NurbsGauseMethod, SolvesThreeEquations) {
    Equations equations(kThree, kThreeSides);
    equations.buffer.index = nullptr;
    equations.buffer.scale = nullptr;
    EXPECT_TRUE(NurbsProbe().GauseMethod(equations.buffer, 3));
    expect_solution(equations, {2, 3, -1}, 1e-14);
}

TEST(NurbsGauseMethod, ExchangesRowsWhereThePivotIsZero) {
    Equations equations({{0, 2}, {4, 0}}, {6, 8});
    EXPECT_TRUE(NurbsProbe().GauseMethod(equations.buffer, 2));
    expect_solution(equations, {2, 3}, 0);
}

TEST(NurbsGauseMethod, ChoosesTheLargestPivot) {
    Equations equations({{1e-20, 1}, {1, 1}}, {1, 2});
    EXPECT_TRUE(NurbsProbe().GauseMethod(equations.buffer, 2));
    expect_solution(equations, {1, 1}, 1e-15);
}

TEST(NurbsGauseMethod, OneEquationIsADivision) {
    Equations equations({{4}}, {10});
    EXPECT_TRUE(NurbsProbe().GauseMethod(equations.buffer, 1));
    expect_solution(equations, {2.5}, 0);
}

TEST(NurbsGauseMethod, RefusesWhatHasNoSolution) {
    for (const Matrix& matrix : {Matrix{{1, 2}, {2, 4}}, Matrix{{0, 0}, {0, 1}}, Matrix{{1, 1}, {0, 0}},
                                 Matrix{{kNaN, 1}, {1, 1}}, Matrix{{kInfinity, 1}, {1, 1}}}) {
        Equations equations(matrix, {1, 1});
        EXPECT_FALSE(NurbsProbe().GauseMethod(equations.buffer, 2));
    }
}

TEST(NurbsGauseMethod, RefusesASolutionThatIsNotFinite) {
    Equations side({{1, 0}, {0, 1}}, {kNaN, 1});
    EXPECT_FALSE(NurbsProbe().GauseMethod(side.buffer, 2));
    Equations overflow({{1e-300}}, {1e300});
    EXPECT_FALSE(NurbsProbe().GauseMethod(overflow.buffer, 1));
}

TEST(NurbsLuDecomposition, LeavesBothTriangles) {
    Equations equations({{4, 3}, {2, 3}}, {0, 0});
    double sign = 0;
    EXPECT_TRUE(NurbsProbe().LU_Decomposition(2, equations.buffer, sign));
    EXPECT_EQ(equations.matrix(), (Matrix{{4, 3}, {0.5, 1.5}}));
    EXPECT_EQ(equations.index(), (std::vector<int>{0, 1}));
    EXPECT_EQ(sign, 1.0);
}

// The first row is larger, but not in its own measure.
TEST(NurbsLuDecomposition, ChoosesRowsByScaledCoefficients) {
    Equations equations({{10, 1000}, {1, 1}}, {0, 0});
    double sign = 0;
    EXPECT_TRUE(NurbsProbe().LU_Decomposition(2, equations.buffer, sign));
    EXPECT_EQ(equations.index(), (std::vector<int>{1, 1}));
    EXPECT_EQ(sign, -1.0);
    EXPECT_EQ(equations.matrix(), (Matrix{{1, 1}, {10, 990}}));
    EXPECT_EQ(equations.scale(), (std::vector<double>{1, 1e-3}));
}

TEST(NurbsLuDecomposition, SignTellsEvenFromOdd) {
    Equations even({{0, 1, 0}, {0, 0, 1}, {1, 0, 0}}, {0, 0, 0});
    double sign = 0;
    EXPECT_TRUE(NurbsProbe().LU_Decomposition(3, even.buffer, sign));
    EXPECT_EQ(sign, 1.0);
    Equations odd({{0, 1, 0}, {1, 0, 0}, {0, 0, 1}}, {0, 0, 0});
    EXPECT_TRUE(NurbsProbe().LU_Decomposition(3, odd.buffer, sign));
    EXPECT_EQ(sign, -1.0);
}

TEST(NurbsLuDecomposition, SignTimesTheDiagonalIsTheDeterminant) {
    Equations equations(kThree, kThreeSides);
    double sign = 0;
    EXPECT_TRUE(NurbsProbe().LU_Decomposition(3, equations.buffer, sign));
    EXPECT_NEAR(sign * equations.matrix()[0][0] * equations.matrix()[1][1] * equations.matrix()[2][2], -1.0, 1e-14);
}

TEST(NurbsLuDecomposition, RefusesSingularMatrices) {
    double sign = 0;
    for (const Matrix& matrix :
         {Matrix{{1, 2}, {2, 4}}, Matrix{{0, 0}, {0, 1}}, Matrix{{1, 1}, {0, 0}}, Matrix{{kNaN, 1}, {1, 1}},
          Matrix{{1, kNaN}, {1, 1}}, Matrix{{1, 1}, {1, kInfinity}}}) {
        Equations equations(matrix, {1, 1});
        EXPECT_FALSE(NurbsProbe().LU_Decomposition(2, equations.buffer, sign));
    }
}

TEST(NurbsLuDecomposition, TheLeastPivotIsRefused) {
    double sign = 0;
    Equations least({{1, 1}, {1, 1 + 8.9e-15}}, {1, 1});
    EXPECT_FALSE(NurbsProbe().LU_Decomposition(2, least.buffer, sign));
    Equations more({{1, 1}, {1, 1 + 1.2e-14}}, {1, 1});
    EXPECT_TRUE(NurbsProbe().LU_Decomposition(2, more.buffer, sign));
    Equations exact({{1, 0}, {1e-14, 1e-14}}, {1, 1});
    EXPECT_TRUE(NurbsProbe().LU_Decomposition(2, exact.buffer, sign));
}

TEST(NurbsSolve, SolvesThreeEquations) {
    Equations equations(kThree, kThreeSides);
    EXPECT_TRUE(decompose_and_solve(equations));
    expect_solution(equations, {2, 3, -1}, 1e-14);
    EXPECT_EQ(equations.sides(), kThreeSides);
}

TEST(NurbsSolve, SolvesAgainForOtherSides) {
    Equations equations(kThree, kThreeSides);
    ASSERT_TRUE(decompose_and_solve(equations));
    equations.buffer.rhs[0] = 2;
    equations.buffer.rhs[1] = -2;
    equations.buffer.rhs[2] = 1;
    EXPECT_TRUE(NurbsProbe().SolveLinerSystemOfEquations(3, equations.buffer));
    expect_solution(equations, {1, 1, 1}, 1e-14);
}

TEST(NurbsSolve, RandomEquationsAgreeWithElimination) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> number(-1, 1);
    for (std::size_t n = 1; n <= 30; ++n) {
        Matrix matrix(n, std::vector<double>(n));
        std::vector<double> known(n);
        for (std::size_t i = 0; i < n; ++i) {
            known[i] = number(random);
            for (double& value : matrix[i]) {
                value = number(random) * std::pow(10.0, static_cast<double>(i % 5));
            }
        }
        std::vector<double> sides(n, 0.0);
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t j = 0; j < n; ++j) {
                sides[i] += matrix[i][j] * known[j];
            }
        }
        Equations decomposed(matrix, sides);
        Equations eliminated(matrix, sides);
        EXPECT_TRUE(decompose_and_solve(decomposed));
        EXPECT_TRUE(NurbsProbe().GauseMethod(eliminated.buffer, eliminated.size()));
        expect_solution(decomposed, known, 1e-9);
        expect_solution(eliminated, known, 1e-9);
    }
}

TEST(NurbsSolve, RowIndicesOutOfRangeAreRefused) {
    for (const int bad : {-1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        Equations equations({{1, 0}, {0, 1}}, {1, 1});
        ASSERT_TRUE(decompose_and_solve(equations));
        equations.buffer.index[1] = bad;
        EXPECT_FALSE(NurbsProbe().SolveLinerSystemOfEquations(2, equations.buffer));
    }
}

TEST(NurbsSolve, PivotsOfZeroAreRefused) {
    Equations equations({{1, 0}, {0, 0}}, {1, 1});
    equations.buffer.index[0] = 0;
    equations.buffer.index[1] = 1;
    EXPECT_FALSE(NurbsProbe().SolveLinerSystemOfEquations(2, equations.buffer));
}

TEST(NurbsSolve, ASolutionThatIsNotFiniteIsRefused) {
    Equations equations({{1, 0}, {0, 1}}, {kNaN, 1});
    EXPECT_FALSE(decompose_and_solve(equations));
}

TEST(NurbsSolvers, NothingIsDoneForFewerThanOneEquation) {
    for (const int n : {0, -1, std::numeric_limits<int>::min()}) {
        Equations equations({{4}}, {10});
        double sign = 0;
        EXPECT_FALSE(NurbsProbe().GauseMethod(equations.buffer, n));
        EXPECT_FALSE(NurbsProbe().LU_Decomposition(n, equations.buffer, sign));
        EXPECT_FALSE(NurbsProbe().SolveLinerSystemOfEquations(n, equations.buffer));
        EXPECT_EQ(equations.solution()[0], -1);
    }
}

template <typename Clear>
void expect_refused(Clear clear, bool gauss, bool decomposition, bool solution) {
    const NurbsProbe curve;
    double sign = 0;
    Equations one({{4}}, {10});
    clear(one.buffer);
    EXPECT_EQ(curve.GauseMethod(one.buffer, 1), gauss);
    Equations two({{4}}, {10});
    two.buffer.index[0] = 0;
    clear(two.buffer);
    EXPECT_EQ(curve.LU_Decomposition(1, two.buffer, sign), decomposition);
    EXPECT_EQ(curve.SolveLinerSystemOfEquations(1, two.buffer), solution);
}

TEST(NurbsSolvers, ArraysThatAreNeededMustBeThere) {
    expect_refused([](TCalcNurbsWorkBuffer& buffer) { buffer.matrix = nullptr; }, false, false, false);
    expect_refused([](TCalcNurbsWorkBuffer& buffer) { buffer.matrix[0] = nullptr; }, false, false, false);
    expect_refused([](TCalcNurbsWorkBuffer& buffer) { buffer.rhs = nullptr; }, false, true, false);
    expect_refused([](TCalcNurbsWorkBuffer& buffer) { buffer.solution = nullptr; }, false, true, false);
    expect_refused([](TCalcNurbsWorkBuffer& buffer) { buffer.index = nullptr; }, true, false, false);
    expect_refused([](TCalcNurbsWorkBuffer& buffer) { buffer.scale = nullptr; }, true, false, true);
}

}  // namespace
}  // namespace orvil::test
