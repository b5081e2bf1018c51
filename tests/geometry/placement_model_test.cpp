// Random use of lists of placement steps beside vectors, and of chains of steps beside their matrices.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "geometry/figures.h"
#include "orvil/geometry/space_primitives.h"

namespace {

template <typename List>
class StepListModel : public testing::Test {};

using Lists = testing::Types<C2DMatrixList, C3DMatrixList>;
TYPED_TEST_SUITE(StepListModel, Lists);

// Forwards and backwards.
template <typename List>
testing::AssertionResult holds(const List& list, const std::vector<double>& model) {
    std::vector<double> forwards;
    for (__pos* pos = list.GetHeadPosition(); pos != nullptr;) {
        forwards.push_back(list.GetNext(pos)->angle);
    }
    std::vector<double> backwards;
    for (__pos* pos = list.GetTailPosition(); pos != nullptr;) {
        backwards.insert(backwards.begin(), list.GetPrev(pos)->angle);
    }
    const bool same = forwards == model && backwards == model && list.GetCount() == static_cast<int>(model.size());
    return same ? testing::AssertionSuccess() : testing::AssertionFailure() << "the list differs from its model";
}

TYPED_TEST(StepListModel, HoldsAfterEachRandomStep) {
    std::mt19937_64 random(7);
    TypeParam lists[2];
    std::vector<double> models[2];
    for (int i = 0; i < 5000; ++i) {
        const std::size_t at = random() % 2;
        const auto kind = random() % 16;
        if (kind < 8) {
            std::remove_pointer_t<decltype(lists[0].GetAt(nullptr))> step;
            step.angle = i;
            ASSERT_TRUE(lists[at].PushItem(step));
            models[at].push_back(i);
        } else if (kind < 14) {
            ASSERT_EQ(lists[at].PopItem(), !models[at].empty());
            models[at].resize(models[at].empty() ? 0 : models[at].size() - 1);
        } else if (kind < 15) {
            const std::size_t from = random() % 2;
            ASSERT_TRUE(lists[at].CopyData(lists[from]));
            models[at] = std::vector<double>(models[from]);
        } else if (random() % 8 == 0) {
            ASSERT_TRUE(lists[at].DeleteAllItems());
            models[at].clear();
        }
        ASSERT_TRUE(holds(lists[at], models[at])) << "after step " << i;
    }
}

// An affine map of the plane, in long double.
struct Affine {
    long double m[2][3] = {{1.0L, 0.0L, 0.0L}, {0.0L, 1.0L, 0.0L}};

    // This map, and then the step.
    void append(const C2DMatrixItem& step) {
        const long double c = std::cos(static_cast<long double>(step.angle));
        const long double s = std::sin(static_cast<long double>(step.angle));
        m[0][2] -= step.base.x;
        m[1][2] -= step.base.y;
        for (int column = 0; column < 3; ++column) {
            const long double x = m[0][column] * step.scale.x;
            const long double y = m[1][column] * step.scale.y;
            m[0][column] = c * x - s * y;
            m[1][column] = s * x + c * y;
        }
        m[0][2] += step.move.x;
        m[1][2] += step.move.y;
    }

    double apply(int row, double x, double y) const {
        return static_cast<double>(m[row][0] * x + m[row][1] * y + m[row][2]);
    }
};

C2DMatrixItem any_step(std::mt19937_64& random) {
    std::uniform_real_distribution<double> any(-2.0, 2.0);
    C2DMatrixItem step;
    step.base.SetData(any(random), any(random));
    step.move.SetData(any(random), any(random));
    step.scale.SetData(any(random), any(random));
    step.angle = any(random);
    return step;
}

TEST(PlacementChain, IsTheProductOfItsMatrices) {
    std::mt19937_64 random(8);
    std::uniform_real_distribution<double> any(-10.0, 10.0);
    for (int i = 0; i < 2000; ++i) {
        C2DMatrixList chain;
        Affine product;
        for (int n = 0; n < 6; ++n) {
            const C2DMatrixItem step = any_step(random);
            chain.PushItem(step);
            product.append(step);
        }
        const C2DPoint before(any(random), any(random));
        C2DPoint point = before;
        for (__pos* pos = chain.GetHeadPosition(); pos != nullptr;) {
            point.MatrixCalculation(*chain.GetNext(pos));
        }
        const double x = product.apply(0, before.x, before.y);
        const double y = product.apply(1, before.x, before.y);
        ASSERT_TRUE(orvil::test::near(point, x, y, 1e-11)) << "case " << i;
    }
}

}  // namespace
