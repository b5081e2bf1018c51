// Lists of placement steps, of plane and space alike.
#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

#include "orvil/geometry/space_primitives.h"

namespace {

// Counts how many of it live.
template <typename Item>
class CountedStep : public Item {
public:
    explicit CountedStep(double number) {
        this->angle = number;
        ++living;
    }
    CountedStep(const CountedStep& other) : Item(other) { ++living; }
    ~CountedStep() override { --living; }
    CountedStep* GetCopyInstance() const override { return new CountedStep(*this); }

    static inline int living = 0;
};

// Cannot be copied.
template <typename Item>
class SingleStep : public Item {
public:
    SingleStep* GetCopyInstance() const override { return nullptr; }
};

template <typename List>
class ListProbe : public List {
public:
    using List::AppendItemPtr;
};

using Angles = std::vector<double>;

template <typename List>
Angles angles_of(const List& list) {
    Angles angles;
    for (__pos* pos = list.GetHeadPosition(); pos != nullptr;) {
        angles.push_back(list.GetNext(pos)->angle);
    }
    return angles;
}

struct Plane {
    using Item = C2DMatrixItem;
    using List = C2DMatrixList;
};

struct Space {
    using Item = C3DMatrixItem;
    using List = C3DMatrixList;
};

template <typename Dimension>
class StepList : public testing::Test {
protected:
    using Item = typename Dimension::Item;
    using List = typename Dimension::List;
    using Counted = CountedStep<Item>;
    using Single = SingleStep<Item>;
    using Probe = ListProbe<List>;

    static_assert(std::is_base_of_v<CExtList<Item>, List>);
};

using Dimensions = testing::Types<Plane, Space>;
TYPED_TEST_SUITE(StepList, Dimensions);

TYPED_TEST(StepList, IsEmptyAtFirst) {
    typename TestFixture::List list;
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_FALSE(list.PopItem());
    EXPECT_TRUE(list.DeleteAllItems());
}

TYPED_TEST(StepList, PushesCopiesAtTheTail) {
    typename TestFixture::List list;
    typename TestFixture::Item step;
    for (double angle : {1.0, 2.0, 3.0}) {
        step.angle = angle;
        EXPECT_TRUE(list.PushItem(step));
    }
    step.angle = 9.0;
    EXPECT_EQ(angles_of(list), (Angles{1.0, 2.0, 3.0}));
}

TYPED_TEST(StepList, PopsWhatWasPushedLast) {
    typename TestFixture::List list;
    list.PushItem(typename TestFixture::Counted(1.0));
    list.PushItem(typename TestFixture::Counted(2.0));
    EXPECT_EQ(TestFixture::Counted::living, 2);
    EXPECT_TRUE(list.PopItem());
    EXPECT_EQ(TestFixture::Counted::living, 1);
    EXPECT_EQ(angles_of(list), (Angles{1.0}));
    EXPECT_TRUE(list.PopItem());
    EXPECT_FALSE(list.PopItem());
    EXPECT_EQ(TestFixture::Counted::living, 0);
}

TYPED_TEST(StepList, KeepsTheClassOfItsSteps) {
    typename TestFixture::List list;
    list.PushItem(typename TestFixture::Counted(1.0));
    typename TestFixture::List copy(list);
    EXPECT_NE(dynamic_cast<typename TestFixture::Counted*>(copy.GetAt(copy.GetHeadPosition())), nullptr);
    EXPECT_EQ(TestFixture::Counted::living, 2);
}

TYPED_TEST(StepList, RefusesAStepThatMakesNoCopy) {
    typename TestFixture::List list;
    EXPECT_FALSE(list.PushItem(typename TestFixture::Single()));
    EXPECT_EQ(list.GetCount(), 0);
}

TYPED_TEST(StepList, TakesAStepItself) {
    typename TestFixture::Probe list;
    EXPECT_FALSE(list.AppendItemPtr(nullptr));
    EXPECT_EQ(list.GetCount(), 0);
    auto* step = new typename TestFixture::Counted(4.0);
    EXPECT_TRUE(list.AppendItemPtr(step));
    EXPECT_EQ(list.GetAt(list.GetTailPosition()), step);
    EXPECT_TRUE(list.DeleteAllItems());
    EXPECT_EQ(TestFixture::Counted::living, 0);
}

TYPED_TEST(StepList, DeletesAllItems) {
    typename TestFixture::List list;
    for (int i = 0; i < 5; ++i) {
        list.PushItem(typename TestFixture::Counted(i));
    }
    EXPECT_TRUE(list.DeleteAllItems());
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(TestFixture::Counted::living, 0);
}

TYPED_TEST(StepList, DeletesItsStepsAtItsEnd) {
    {
        typename TestFixture::List list;
        list.PushItem(typename TestFixture::Counted(1.0));
        EXPECT_EQ(TestFixture::Counted::living, 1);
    }
    EXPECT_EQ(TestFixture::Counted::living, 0);
}

TYPED_TEST(StepList, CopyReplacesWhatItHeld) {
    typename TestFixture::List list;
    list.PushItem(typename TestFixture::Counted(1.0));
    list.PushItem(typename TestFixture::Counted(2.0));
    typename TestFixture::List other;
    other.PushItem(typename TestFixture::Counted(9.0));
    EXPECT_TRUE(other.CopyData(list));
    EXPECT_EQ(angles_of(other), (Angles{1.0, 2.0}));
    EXPECT_EQ(TestFixture::Counted::living, 4);
    list.PopItem();
    EXPECT_EQ(&(other = list), &other);
    EXPECT_EQ(angles_of(other), (Angles{1.0}));
}

TYPED_TEST(StepList, CopiedOntoItselfStays) {
    typename TestFixture::List list;
    list.PushItem(typename TestFixture::Counted(1.0));
    const typename TestFixture::Item* step = list.GetAt(list.GetHeadPosition());
    EXPECT_TRUE(list.CopyData(list));
    EXPECT_EQ(list.GetAt(list.GetHeadPosition()), step);
}

TYPED_TEST(StepList, CopyLeavesOutStepsThatMakeNoCopy) {
    typename TestFixture::Probe list;
    list.AppendItemPtr(new typename TestFixture::Counted(1.0));
    list.AppendItemPtr(new typename TestFixture::Single());
    list.AppendItemPtr(new typename TestFixture::Counted(2.0));
    EXPECT_EQ(angles_of(typename TestFixture::List(list)), (Angles{1.0, 2.0}));
}

}  // namespace
