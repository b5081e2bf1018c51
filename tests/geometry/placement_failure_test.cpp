// Lists of placement steps and texts, with each allocation refused in turn.
#include <gtest/gtest.h>

#include "orvil/geometry/space_primitives.h"
#include "support/failing_allocator.h"

namespace {

using orvil::test::AllocationFailure;
using orvil::test::sweep_allocation_failures;

template <typename List>
class ListProbe : public List {
public:
    using List::AppendItemPtr;
};

template <typename Types>
class StepListFailure : public testing::Test {};

struct Plane {
    using Item = C2DMatrixItem;
    using List = ListProbe<C2DMatrixList>;
};

struct Space {
    using Item = C3DMatrixItem;
    using List = ListProbe<C3DMatrixList>;
};

using Dimensions = testing::Types<Plane, Space>;
TYPED_TEST_SUITE(StepListFailure, Dimensions);

TYPED_TEST(StepListFailure, PushWithoutMemoryForTheCopyIsFalse) {
    typename TypeParam::List list;
    const typename TypeParam::Item step;
    AllocationFailure failure(1);
    EXPECT_FALSE(list.PushItem(step));
    EXPECT_EQ(list.GetCount(), 0);
}

TYPED_TEST(StepListFailure, PushWithoutMemoryForTheNodeIsTrueAndKeepsNothing) {
    typename TypeParam::List list;
    const typename TypeParam::Item step;
    AllocationFailure failure(2);
    EXPECT_TRUE(list.PushItem(step));
    EXPECT_TRUE(failure.happened());
    EXPECT_EQ(list.GetCount(), 0);
}

TYPED_TEST(StepListFailure, AppendWithoutMemoryForTheNodeIsTrueAndDestroysTheStep) {
    typename TypeParam::List list;
    auto* step = new typename TypeParam::Item();
    AllocationFailure failure(1);
    EXPECT_TRUE(list.AppendItemPtr(step));
    EXPECT_EQ(list.GetCount(), 0);
}

TYPED_TEST(StepListFailure, CopyIsTrueAndLeavesOutWhatFoundNoMemory) {
    typename TypeParam::List list;
    for (int i = 0; i < 4; ++i) {
        list.PushItem(typename TypeParam::Item());
    }
    sweep_allocation_failures([&](auto failed) {
        typename TypeParam::List copy;
        EXPECT_TRUE(copy.CopyData(list));
        EXPECT_EQ(copy.GetCount() < list.GetCount(), failed());
    });
}

TYPED_TEST(StepListFailure, CopyInstanceIsNullWithoutMemory) {
    const typename TypeParam::Item step;
    AllocationFailure failure(1);
    EXPECT_EQ(step.GetCopyInstance(), nullptr);
}

template <typename Figure>
void sweep_dump(const Figure& figure) {
    const CExtString whole = figure.GetDumpText();
    sweep_allocation_failures([&](auto failed) {
        const CExtString text = figure.GetDumpText();
        EXPECT_EQ(text != whole, failed());
    });
}

TEST(DumpFailure, GivesAShorterText) {
    sweep_dump(C2DPoint(1.0, 2.0));
    sweep_dump(C2DLine(1.0, 2.0, 3.0, 4.0));
    sweep_dump(C2DVectorLine(1.0, 2.0, 3.0, 4.0));
    sweep_dump(C2DEllipse(C2DPoint(1.0, 2.0), C2DPoint(3.0, 4.0), 0.5, 1.0, 2.0));
    sweep_dump(C3DPoint(1.0, 2.0, 3.0));
    sweep_dump(C3DLine(1.0, 2.0, 3.0, 4.0, 5.0, 6.0));
    sweep_dump(C3DVectorLine(1.0, 2.0, 3.0, 4.0, 5.0, 6.0));
}

TEST(DumpFailure, LeavesOutThePointForWhichThereIsNoMemory) {
    const C2DLine line(1.0, 2.0, 3.0, 4.0);
    AllocationFailure failure(1);
    EXPECT_STREQ(line.GetDumpText(), "SP: EP:3.000000000000000,4.000000000000000");
}

}  // namespace
