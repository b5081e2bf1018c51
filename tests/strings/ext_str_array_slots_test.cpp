// The slots of a string array: layout, growth and the helpers that derived classes reach.
#include <gtest/gtest.h>

#include <climits>

#include "orvil/runtime/heap.h"
#include "orvil/strings/ext_str_array.h"
#include "support/array_probe.h"

namespace {

using orvil::test::ArrayProbe;
using orvil::test::show;

// --- layout and growth -----------------------------------------------------------------------------------------------

TEST(ExtStrArrayLayout, MembersFollowTheVirtualTable) {
    ArrayProbe array({"a"});
    const char* start = reinterpret_cast<const char*>(static_cast<CExtStrArray*>(&array));
    EXPECT_EQ(sizeof(CExtStrArray), 24U);
    EXPECT_EQ(reinterpret_cast<const char*>(&array.slots_) - start, 8);
    EXPECT_EQ(reinterpret_cast<const char*>(&array.size_) - start, 16);
    EXPECT_EQ(reinterpret_cast<const char*>(&array.capacity_) - start, 20);
}

TEST(ExtStrArrayGrowth, NewArrayHasNoSlots) {
    const ArrayProbe array;
    EXPECT_EQ(array.slots_, nullptr);
    EXPECT_EQ(array.size_, 0);
    EXPECT_EQ(array.capacity_, 0);
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_TRUE(array.IsEmpty());
}

TEST(ExtStrArrayGrowth, FirstElementGivesCapacitySixteenAndTheSixteenthThirtyTwo) {
    ArrayProbe array;
    for (int size = 1; size <= 100; ++size) {
        ASSERT_TRUE(array.Add("x"));
        EXPECT_EQ(array.size_, size);
        EXPECT_EQ(array.capacity_, (size / 16 + 1) * 16) << size;
        ASSERT_TRUE(array.is_sound());
    }
}

TEST(ExtStrArrayGrowth, RequestsAreEightBytesForEachSlotOfTheCapacity) {
    ArrayProbe array;
    st_dwMoreLargeSize = 0;
    array.Add("");
    EXPECT_EQ(st_dwMoreLargeSize, 128U);
    array.Add("", 15);
    EXPECT_EQ(st_dwMoreLargeSize, 256U);
    array.Add("", 984);
    EXPECT_EQ(st_dwMoreLargeSize, 1008U * 8);
}

TEST(ExtStrArrayGrowth, CalcNewArraySizeGivesTheNextSixteenOrZero) {
    EXPECT_EQ(ArrayProbe::CalcNewArraySize(0, 0), 16);
    EXPECT_EQ(ArrayProbe::CalcNewArraySize(15, 0), 16);
    EXPECT_EQ(ArrayProbe::CalcNewArraySize(16, 0), 32);
    EXPECT_EQ(ArrayProbe::CalcNewArraySize(15, 16), 0);
    EXPECT_EQ(ArrayProbe::CalcNewArraySize(16, 16), 32);
    EXPECT_EQ(ArrayProbe::CalcNewArraySize(16, 31), 32);
    EXPECT_EQ(ArrayProbe::CalcNewArraySize(16, 32), 0);
}

TEST(ExtStrArrayGrowth, CalcNewArraySizeBeyondAnIntIsNegative) {
    EXPECT_EQ(ArrayProbe::CalcNewArraySize(INT_MAX - 16, 0), INT_MAX - 15);
    EXPECT_LT(ArrayProbe::CalcNewArraySize(INT_MAX - 15, 0), 0);
    EXPECT_LT(ArrayProbe::CalcNewArraySize(INT_MAX, 0), 0);
}

TEST(ExtStrArrayGrowth, AllocArrayGivesEmptySlotsAndTheSize) {
    ArrayProbe array;
    EXPECT_TRUE(array.AllocArray(17));
    EXPECT_EQ(array.size_, 17);
    EXPECT_EQ(array.capacity_, 32);
    for (int i = 0; i < 32; ++i) {
        EXPECT_EQ(array.slots_[i], nullptr);
    }
    EXPECT_TRUE(array.AllocArray(0));
    EXPECT_EQ(array.size_, 0);
    EXPECT_EQ(array.capacity_, 16);
}

TEST(ExtStrArrayGrowth, AllocArrayOfANegativeSizeFailsAndOverElementsReleasesThem) {
    ArrayProbe array({"a", "b"});
    EXPECT_FALSE(array.AllocArray(-1));
    EXPECT_FALSE(array.AllocArray(INT_MAX));
    EXPECT_EQ(show(array), "[a][b]");
    EXPECT_TRUE(array.AllocArray(1));
    EXPECT_EQ(show(array), "[~]");
}

TEST(ExtStrArrayResize, FirstUseHasASizeOfAtLeastOne) {
    for (const int n : {0, -5, 1}) {
        ArrayProbe array;
        EXPECT_TRUE(array.ResizeArray(n));
        EXPECT_EQ(array.size_, 1);
        EXPECT_EQ(array.capacity_, 16);
    }
    ArrayProbe array;
    EXPECT_TRUE(array.ResizeArray(16));
    EXPECT_EQ(array.size_, 16);
    EXPECT_EQ(array.capacity_, 32);
}

TEST(ExtStrArrayResize, LaterUseTakesAnySizeAndNeverGivesSlotsBack) {
    ArrayProbe array({"a"});
    EXPECT_TRUE(array.ResizeArray(40));
    EXPECT_EQ(array.capacity_, 48);
    EXPECT_TRUE(array.ResizeArray(1));
    EXPECT_EQ(array.capacity_, 48);
    EXPECT_EQ(show(array), "[a]");
    EXPECT_TRUE(array.is_sound());
}

TEST(ExtStrArrayResize, ShrinkingLeavesTheElementsInTheirSlots) {
    ArrayProbe array({"a", "b", "c"});
    EXPECT_TRUE(array.ResizeArray(1));
    EXPECT_STREQ(array.slots_[1]->GetString(), "b");
    EXPECT_TRUE(array.ResizeArray(3));
    EXPECT_EQ(show(array), "[a][b][c]");
    EXPECT_TRUE(array.ResizeArray(0));
    EXPECT_TRUE(array.IsEmpty());
}

TEST(ExtStrArrayResize, GrowingEmptiesTheSlotsFromTheOldSizeOn) {
    ArrayProbe array({"a", "b", "c"});
    array.ResizeArray(1);
    EXPECT_TRUE(array.ResizeArray(20));
    EXPECT_EQ(array.GetAt(1), nullptr);
    EXPECT_EQ(array.GetAt(2), nullptr);
    EXPECT_TRUE(array.is_sound());
}

TEST(ExtStrArrayResize, NegativeSizesReadNothing) {
    ArrayProbe array({"a"});
    EXPECT_TRUE(array.ResizeArray(-5));
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetAt(0), nullptr);
    EXPECT_TRUE(array.ResizeArray(32));
    EXPECT_EQ(array.GetAt(0), nullptr);
    EXPECT_TRUE(array.is_sound());
}

TEST(ExtStrArrayResize, SizesBeyondAnIntAreRefused) {
    ArrayProbe array({"a"});
    EXPECT_FALSE(array.ResizeArray(INT_MAX));
    EXPECT_FALSE(array.ResizeArray(INT_MAX - 15));
    EXPECT_FALSE(array.MoveElements(0, INT_MAX));
    EXPECT_FALSE(array.SetAt(INT_MAX, "x"));
    EXPECT_FALSE(array.Insert(0, "x", INT_MAX));
    EXPECT_FALSE(array.Add("x", INT_MAX));
    EXPECT_EQ(show(array), "[a]");
    EXPECT_EQ(array.capacity_, 16);
}

// --- protected helpers -----------------------------------------------------------------------------------------------

TEST(ExtStrArrayReplace, FreshElementTakesTheSlot) {
    ArrayProbe array({"a", "b"});
    const CExtString* former = array.slots_[1];
    const CExtString* neighbour = array.slots_[0];
    EXPECT_TRUE(array.ReplaceElement(1, "bb"));
    EXPECT_NE(array.slots_[1], former);
    EXPECT_EQ(array.slots_[0], neighbour);
    EXPECT_EQ(show(array), "[a][bb]");
}

TEST(ExtStrArrayReplace, EmptyOrNullTextEmptiesTheSlot) {
    ArrayProbe array({"a", "b"});
    EXPECT_TRUE(array.ReplaceElement(0, ""));
    EXPECT_TRUE(array.ReplaceElement(1, nullptr));
    EXPECT_EQ(array.slots_[0], nullptr);
    EXPECT_EQ(array.slots_[1], nullptr);
}

TEST(ExtStrArrayReplace, OutOfRangeIsRefused) {
    ArrayProbe array({"a"});
    EXPECT_FALSE(array.ReplaceElement(-1, "x"));
    EXPECT_FALSE(array.ReplaceElement(1, "x"));
    EXPECT_FALSE(array.ReplaceElement(INT_MAX, "x"));
    EXPECT_FALSE(ArrayProbe().ReplaceElement(0, "x"));
}

TEST(ExtStrArrayReplace, SeveralStopAtTheFirstFailure) {
    ArrayProbe array({"a", "b", "c"});
    EXPECT_TRUE(array.ReplaceElements(0, "x", 2));
    EXPECT_EQ(show(array), "[x][x][c]");
    EXPECT_TRUE(array.ReplaceElements(7, "y", 0));
    EXPECT_TRUE(array.ReplaceElements(-7, "y", -1));
    EXPECT_FALSE(array.ReplaceElements(2, "y", 2));
    EXPECT_EQ(show(array), "[x][x][y]");
    EXPECT_FALSE(array.ReplaceElements(-1, "z", 2));
}

TEST(ExtStrArrayMove, GapOfEmptySlotsOpensWithoutCopyingTexts) {
    ArrayProbe array({"a", "b", "c"});
    const CExtString* last = array.slots_[2];
    EXPECT_TRUE(array.MoveElements(1, 20));
    EXPECT_EQ(array.size_, 23);
    EXPECT_EQ(array.slots_[22], last);
    EXPECT_EQ(array.GetAt(1), nullptr);
    EXPECT_EQ(array.GetAt(20), nullptr);
    EXPECT_STREQ(array.GetAt(21), "b");
    EXPECT_TRUE(array.MoveElement(0));
    EXPECT_EQ(array.size_, 24);
    EXPECT_STREQ(array.GetAt(1), "a");
}

TEST(ExtStrArrayMove, GapAtOrBehindTheEndJustGrows) {
    ArrayProbe array({"a"});
    EXPECT_TRUE(array.MoveElements(1, 2));
    EXPECT_TRUE(array.MoveElements(99, 1));
    EXPECT_EQ(show(array), "[a][~][~][~]");
    EXPECT_FALSE(array.MoveElements(-1, 1));
}

TEST(ExtStrArrayMove, GapOverwritesNothingThatAShrinkLeftBehind) {
    ArrayProbe array({"a", "b", "c"});
    array.ResizeArray(1);
    EXPECT_TRUE(array.MoveElements(0, 2));
    EXPECT_EQ(show(array), "[~][~][a]");
}

TEST(ExtStrArrayMove, NegativeGapShrinks) {
    ArrayProbe array({"a", "b"});
    EXPECT_TRUE(array.MoveElements(0, -1));
    EXPECT_EQ(show(array), "[a]");
    EXPECT_TRUE(array.MoveElements(0, INT_MIN));
    EXPECT_TRUE(array.IsEmpty());
}

TEST(ExtStrArrayDelete, RangeClosesAndFreedSlotsAreNull) {
    ArrayProbe array({"a", "b", "c", "d"});
    EXPECT_TRUE(array.DeleteElements(1, 2));
    EXPECT_EQ(show(array), "[a][d]");
    EXPECT_TRUE(array.is_sound());
    EXPECT_EQ(array.capacity_, 16);
}

TEST(ExtStrArrayDelete, OutOfRangeDoesNothingAndIsTrue) {
    ArrayProbe array({"a"});
    EXPECT_TRUE(array.DeleteElements(-1, 1));
    EXPECT_TRUE(array.DeleteElements(1, 1));
    EXPECT_TRUE(ArrayProbe().DeleteElements(0, 0));
    EXPECT_EQ(show(array), "[a]");
}

TEST(ExtStrArrayLifecycle, FreeArrayReleasesAndInitForgets) {
    ArrayProbe array({"a", "b"});
    EXPECT_TRUE(array.FreeArray());
    EXPECT_EQ(array.slots_, nullptr);
    EXPECT_EQ(array.size_, 0);
    EXPECT_EQ(array.capacity_, 0);
    ArrayProbe other({"a"});
    CExtString** slots = other.slots_;
    EXPECT_TRUE(other.Init());
    EXPECT_TRUE(other.is_sound());
    other.slots_ = slots;
    other.size_ = 1;
    other.capacity_ = 16;
}

TEST(ExtStrArrayLifecycle, FreeArrayDeletesUpToTheCapacity) {
    ArrayProbe array({"a", "b", "c"});
    array.ResizeArray(1);
    EXPECT_TRUE(array.FreeArray());  // the leak checker would find b and c
    EXPECT_TRUE(array.is_sound());
}

}  // namespace
