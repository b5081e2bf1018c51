#include "orvil/strings/ext_str_array.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

#include "orvil/runtime/heap.h"
#include "orvil/strings/ext_str_list.h"
#include "support/array_probe.h"
#include "support/temp_dir.h"

namespace {

using orvil::test::ArrayProbe;
using orvil::test::read_file;
using orvil::test::show;
using orvil::test::TempDir;

constexpr const char* kEnd = nullptr;  // ends a list of arguments

#ifdef _WIN32
constexpr const char* kLineEnd = "\r\n";
#else
constexpr const char* kLineEnd = "\n";
#endif

bool call_format_v(CExtStrArray& array, const char* format, ...) {
    va_list args;
    va_start(args, format);
    const bool added = array.AddFormatV(format, args);
    va_end(args);
    return added;
}

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

// --- construction ----------------------------------------------------------------------------------------------------

TEST(ExtStrArrayConstruct, FromArgumentsUpToTheNull) {
    EXPECT_EQ(show(CExtStrArray("a", "", "b", kEnd)), "[a][~][b]");
    EXPECT_EQ(show(CExtStrArray(kEnd)), "");
}

TEST(ExtStrArrayConstruct, CopyIsDeepAndKeepsEmptySlots) {
    ArrayProbe source({"a", "", "b"});
    ArrayProbe copy(static_cast<const ArrayProbe&>(source));
    EXPECT_EQ(show(copy), "[a][~][b]");
    EXPECT_NE(copy.slots_[0], source.slots_[0]);
    source.SetAt(0, "changed");
    EXPECT_STREQ(copy[0], "a");
}

TEST(ExtStrArrayConstruct, FromACArrayUpToTheCountOrTheNull) {
    const char* const texts[] = {"a", "", "c", nullptr, "e"};
    EXPECT_EQ(show(CExtStrArray(texts, 2)), "[a][~]");
    EXPECT_EQ(show(CExtStrArray(texts, -1)), "[a][~][c]");
    EXPECT_EQ(show(CExtStrArray(texts, 99)), "[a][~][c]");
    EXPECT_EQ(show(CExtStrArray(texts, 0)), "");
    EXPECT_EQ(show(CExtStrArray(texts + 3, 2)), "");
    EXPECT_EQ(show(CExtStrArray(static_cast<const char* const*>(nullptr), 2)), "");
}

TEST(ExtStrArrayCreate, FromStringsKeepsWhatIsThere) {
    CExtStrArray array("a", kEnd);
    EXPECT_TRUE(array.CreateFromStrings("b", "", "c", kEnd));
    EXPECT_TRUE(array.CreateFromStrings(kEnd));
    EXPECT_EQ(show(array), "[a][b][~][c]");
}

TEST(ExtStrArrayCreate, FromStringArrayKeepsWhatIsThere) {
    const char* const texts[] = {"b", "c", nullptr};
    CExtStrArray array("a", kEnd);
    EXPECT_FALSE(array.CreateFromStringArray(nullptr, 1));
    EXPECT_TRUE(array.CreateFromStringArray(texts + 2, 1));
    EXPECT_TRUE(array.CreateFromStringArray(texts, 1));
    EXPECT_TRUE(array.CreateFromStringArray(texts, -3));
    EXPECT_EQ(show(array), "[a][b][b][c]");
}

// --- reading and storing ---------------------------------------------------------------------------------------------

TEST(ExtStrArrayGetAt, TextIsNullOutOfRangeAndForAnEmptySlot) {
    const CExtStrArray array("a", "", kEnd);
    EXPECT_STREQ(array.GetAt(0), "a");
    EXPECT_STREQ(array[0], "a");
    EXPECT_EQ(array.GetAt(1), nullptr);
    EXPECT_EQ(array[1], nullptr);
    EXPECT_EQ(array.GetAt(2), nullptr);
    EXPECT_EQ(array[-1], nullptr);
    EXPECT_EQ(CExtStrArray().GetAt(0), nullptr);
}

TEST(ExtStrArrayGetAt, ElementWithAnEmptyTextGivesTheStaticEmptyText) {
    ArrayProbe array({"a"});
    array.slots_[0]->Empty();
    EXPECT_EQ(array.GetAt(0), CExtString::sm_pszNull);
    EXPECT_EQ(array.IndexOf(""), 0);
    EXPECT_EQ(array.IndexOf(nullptr), 0);
}

TEST(ExtStrArrayGetAt, CopyIsEmptiedByAnEmptySlotAndLeftAloneOutOfRange) {
    const CExtStrArray array("a", "", kEnd);
    CExtString out = "before";
    EXPECT_FALSE(array.GetAt(2, out));
    EXPECT_FALSE(array.GetAt(-1, out));
    EXPECT_FALSE(CExtStrArray().GetAt(0, out));
    EXPECT_STREQ(out, "before");
    EXPECT_TRUE(array.GetAt(1, out));
    EXPECT_STREQ(out, "");
    EXPECT_TRUE(array.GetAt(0, out));
    EXPECT_STREQ(out, "a");
}

TEST(ExtStrArraySetAt, BehindTheEndGrowsWithEmptySlots) {
    ArrayProbe array({"a"});
    EXPECT_TRUE(array.SetAt(4, "e"));
    EXPECT_EQ(show(array), "[a][~][~][~][e]");
    EXPECT_TRUE(array.SetAt(15, "p"));
    EXPECT_EQ(array.size_, 16);
    EXPECT_EQ(array.capacity_, 32);
    EXPECT_FALSE(array.SetAt(-1, "x"));
}

TEST(ExtStrArraySetAt, ReplacesAndEmpties) {
    CExtStrArray array("a", "b", kEnd);
    EXPECT_TRUE(array.SetAt(0, "x"));
    EXPECT_TRUE(array.SetAt(1, nullptr));
    EXPECT_EQ(show(array), "[x][~]");
    CExtStrArray fresh;
    EXPECT_TRUE(fresh.SetAt(0, ""));
    EXPECT_EQ(show(fresh), "[~]");
}

TEST(ExtStrArraySetAt, TakesATextOfItsOwn) {
    CExtStrArray array("abc", "d", kEnd);
    EXPECT_TRUE(array.SetAt(0, array[0] + 1));
    EXPECT_TRUE(array.SetAt(1, array[0]));
    EXPECT_EQ(show(array), "[bc][bc]");
}

TEST(ExtStrArrayInsert, GapTakesCopies) {
    CExtStrArray array("a", "b", kEnd);
    EXPECT_TRUE(array.Insert(1, "x"));
    EXPECT_TRUE(array.Insert(0, "", 2));
    EXPECT_TRUE(array.Insert(0, array[2], 2));
    EXPECT_EQ(show(array), "[a][a][~][~][a][x][b]");
}

TEST(ExtStrArrayInsert, AtTheEndOrOutsideIsRefused) {
    CExtStrArray array("a", kEnd);
    EXPECT_FALSE(array.Insert(1, "x", 1));
    EXPECT_FALSE(array.Insert(-1, "x", 1));
    EXPECT_FALSE(CExtStrArray().Insert(0, "x", 1));
    EXPECT_FALSE(array.Insert(1, "x", 0));
    EXPECT_EQ(show(array), "[a]");
}

TEST(ExtStrArrayInsert, NoneOrFewerOpensNothing) {
    CExtStrArray array("a", "b", kEnd);
    EXPECT_TRUE(array.Insert(0, "x", 0));
    EXPECT_TRUE(array.Insert(0, "x", -5));
    EXPECT_TRUE(array.Insert(1, "x", INT_MIN));
    EXPECT_EQ(show(array), "[a][b]");
}

TEST(ExtStrArrayRemove, RangeIsTaken) {
    CExtStrArray array("a", "b", "c", "d", kEnd);
    EXPECT_TRUE(array.Remove(0));
    EXPECT_TRUE(array.Remove(1, 2));
    EXPECT_EQ(show(array), "[b]");
    EXPECT_FALSE(array.Remove(1, 1));
    EXPECT_FALSE(array.Remove(-1, 1));
    EXPECT_FALSE(CExtStrArray().Remove(0, 0));
}

TEST(ExtStrArrayRemove, ZeroFromTheStartRemovesAllButKeepsTheSlots) {
    ArrayProbe array({"a", "b"});
    EXPECT_TRUE(array.Remove(0, 0));
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.capacity_, 16);
    EXPECT_NE(array.slots_, nullptr);
    EXPECT_TRUE(array.Add("c"));
    EXPECT_EQ(show(array), "[c]");
}

TEST(ExtStrArrayRemove, MoreThanThereIsOrFewerThanOneGoesToTheEnd) {
    ArrayProbe array({"a", "b", "c", "d"});
    EXPECT_TRUE(array.Remove(3, INT_MAX));
    EXPECT_EQ(show(array), "[a][b][c]");
    EXPECT_TRUE(array.Remove(2, 0));
    EXPECT_EQ(show(array), "[a][b]");
    EXPECT_TRUE(array.Remove(1, INT_MIN));
    EXPECT_EQ(show(array), "[a]");
    EXPECT_TRUE(array.is_sound());
}

TEST(ExtStrArrayAdd, AppendsCopies) {
    CExtStrArray array;
    EXPECT_TRUE(array.Add("a"));
    EXPECT_TRUE(array.Add("b", 2));
    EXPECT_TRUE(array.Add("x", 0));
    EXPECT_TRUE(array.Add("x", -1));
    EXPECT_TRUE(array.Add(array[0]));
    EXPECT_EQ(show(array), "[a][b][b][a]");
    EXPECT_NE(array[1], array[2]);
}

TEST(ExtStrArrayAdd, EmptyTextStoresAnEmptySlot) {
    CExtStrArray array;
    EXPECT_TRUE(array.Add(""));
    EXPECT_TRUE(array.Add(nullptr));
    EXPECT_EQ(array.GetSize(), 2);
    EXPECT_EQ(array.GetAt(0), nullptr);
    EXPECT_EQ(array.IndexOf(""), -1);
    EXPECT_EQ(array.IndexOf(nullptr), -1);
}

TEST(ExtStrArrayAdd, ManyCopiesHaveTheCapacityOfSingleOnes) {
    ArrayProbe array;
    EXPECT_TRUE(array.Add("x", 31));
    EXPECT_EQ(array.capacity_, 32);
    EXPECT_TRUE(array.Add("x", 1));
    EXPECT_EQ(array.capacity_, 48);
}

TEST(ExtStrArrayAdd, FormatsOneElement) {
    CExtStrArray array;
    EXPECT_TRUE(array.AddFormat("%d-%s", 7, "x"));
    EXPECT_TRUE(call_format_v(array, "%03d", 5));
    EXPECT_TRUE(array.AddFormat("%s", ""));
    EXPECT_EQ(show(array), "[7-x][005][~]");
}

TEST(ExtStrArrayAdd, OperatorsAppendAndReturnTheArray) {
    CExtStrArray array;
    ((array += "a") += "") += CExtStrArray("b", "", kEnd);
    EXPECT_EQ(show(array), "[a][~][b][~]");
}

TEST(ExtStrArrayRemoveAll, ReleasesTheSlots) {
    ArrayProbe array({"a"});
    EXPECT_TRUE(array.RemoveAll());
    EXPECT_EQ(array.slots_, nullptr);
    EXPECT_EQ(array.capacity_, 0);
    EXPECT_TRUE(array.RemoveAll());
}

// --- many elements ---------------------------------------------------------------------------------------------------

TEST(ExtStrArrayConcat, AppendsEveryElement) {
    CExtStrArray array("a", kEnd);
    EXPECT_TRUE(array.ConcatArray(CExtStrArray("b", "", kEnd)));
    EXPECT_TRUE(array.ConcatArray(CExtStrArray()));
    EXPECT_EQ(show(array), "[a][b][~]");
}

TEST(ExtStrArrayConcat, AppendsItselfOnce) {
    CExtStrArray array("a", "", "c", kEnd);
    EXPECT_TRUE(array.ConcatArray(array));
    EXPECT_EQ(show(array), "[a][~][c][a][~][c]");
}

TEST(ExtStrArrayInsertArray, FillsTheGap) {
    CExtStrArray array("a", "b", kEnd);
    EXPECT_TRUE(array.InsertArray(1, CExtStrArray("x", "", "y", kEnd)));
    EXPECT_EQ(show(array), "[a][x][~][y][b]");
    EXPECT_TRUE(array.InsertArray(0, CExtStrArray()));
    EXPECT_EQ(array.GetSize(), 5);
}

TEST(ExtStrArrayInsertArray, AtTheEndIsRefused) {
    CExtStrArray array("a", kEnd);
    const CExtStrArray other("x", kEnd);
    EXPECT_FALSE(array.InsertArray(1, other));
    EXPECT_FALSE(array.InsertArray(-1, other));
    EXPECT_FALSE(CExtStrArray().InsertArray(0, other));
}

TEST(ExtStrArrayInsertArray, InsertsItselfAtAnyIndex) {
    for (int i = 0; i < 3; ++i) {
        CExtStrArray array("a", "", "c", kEnd);
        const CExtStrArray copy(array);
        CExtStrArray expected(array);
        expected.InsertArray(i, copy);
        EXPECT_TRUE(array.InsertArray(i, array));
        EXPECT_EQ(show(array), show(expected)) << i;
    }
    CExtStrArray array("a", "", "c", kEnd);
    array.InsertArray(1, array);
    EXPECT_EQ(show(array), "[a][a][~][c][~][c]");
}

TEST(ExtStrArrayCopy, ReplacesEverythingWithTheStatedCapacity) {
    ArrayProbe array({"x", "y"});
    array.ResizeArray(100);
    EXPECT_TRUE(array.CopyData(CExtStrArray("a", "", kEnd)));
    EXPECT_EQ(show(array), "[a][~]");
    EXPECT_EQ(array.capacity_, 16);
    EXPECT_TRUE(array.CopyData(CExtStrArray()));
    EXPECT_EQ(array.slots_, nullptr);
}

TEST(ExtStrArrayCopy, OntoItselfChangesNothing) {
    CExtStrArray array("a", kEnd);
    const CExtStrArray& self = array;
    EXPECT_TRUE(array.CopyData(self));
    EXPECT_EQ(&(array = self), &array);
    EXPECT_EQ(show(array), "[a]");
}

TEST(ExtStrArrayCopy, AssignmentCopiesDeeply) {
    CExtStrArray source("a", kEnd);
    CExtStrArray array("x", "y", kEnd);
    array = source;
    source.SetAt(0, "changed");
    EXPECT_EQ(show(array), "[a]");
}

// --- from a list -----------------------------------------------------------------------------------------------------

TEST(ExtStrArrayFromList, OneOrTwoTextsAreCopiedWhole) {
    EXPECT_EQ(show(CExtStrArray(CExtStrList("a", kEnd), nullptr, nullptr)), "[a]");
    EXPECT_EQ(show(CExtStrArray(CExtStrList("a", "b", kEnd), nullptr, nullptr)), "[a][b]");
    EXPECT_EQ(show(CExtStrArray(CExtStrList("a", "", kEnd), nullptr, nullptr)), "[a][~]");
}

TEST(ExtStrArrayFromList, OfThreeOrMoreOnlyTheFirstIsCopied) {
    CExtStrArray array("x", kEnd);
    EXPECT_TRUE(array.CreateFromListObject(CExtStrList("a", "b", "c", kEnd), nullptr, nullptr));
    EXPECT_EQ(show(array), "[x][a]");
}

TEST(ExtStrArrayFromList, WalkGoesOnOnlyOntoTheEndNode) {
    CExtStrList list("a", "b", "c", "d", kEnd);
    __pos* second = list.GetHeadPosition();
    list.GetNext(second);
    __pos* third = second;
    list.GetNext(third);
    EXPECT_EQ(show(CExtStrArray(list, second, third)), "[b][c]");
    EXPECT_EQ(show(CExtStrArray(list, second, nullptr)), "[b]");
    EXPECT_EQ(show(CExtStrArray(list, third, nullptr)), "[c][d]");
    EXPECT_EQ(show(CExtStrArray(list, second, second)), "[b]");
    EXPECT_EQ(show(CExtStrArray(list, third, second)), "[c]");
    EXPECT_EQ(show(CExtStrArray(list, nullptr, second)), "[a][b]");
    EXPECT_EQ(show(CExtStrArray(list, list.GetTailPosition(), nullptr)), "[d]");
}

TEST(ExtStrArrayFromList, EmptyListIsRefusedAtOnce) {
    CExtStrArray array;
    EXPECT_FALSE(array.CreateFromListObject(CExtStrList(), nullptr, nullptr));
    EXPECT_TRUE(array.IsEmpty());
}

// --- from a stream ---------------------------------------------------------------------------------------------------

struct StreamResult {
    bool created;
    std::string content;
};

StreamResult lines_of(const std::string& bytes, bool strip, bool cr_lf) {
    TempDir folder;
    FILE* fp = std::fopen(folder.write("lines.txt", bytes).c_str(), "rb");
    CExtStrArray array("x", kEnd);
    const bool created = array.CreateFromStream(fp, strip, cr_lf);
    std::fclose(fp);
    return {created, show(array)};
}

TEST(ExtStrArrayFromStream, EachLineIsAnElementAndAnEmptyLineAnEmptySlot) {
    const StreamResult result = lines_of("one\r\n\ntwo\n", true, false);
    EXPECT_TRUE(result.created);
    EXPECT_EQ(result.content, "[x][one][~][two]");
}

TEST(ExtStrArrayFromStream, FlagsArePassedOn) {
    EXPECT_EQ(lines_of("a\nb\r\n", false, false).content, "[x][a\n][b\n]");
    EXPECT_EQ(lines_of("a\nb\r\n", false, true).content, "[x][a\r\n][b\r\n]");
}

TEST(ExtStrArrayFromStream, LastLineWithoutALineEndIsLostBelowThirtyTwoBytes) {
    const std::string short_line(31, 's');
    const std::string long_line(32, 'l');
    EXPECT_EQ(lines_of("a\n" + short_line, true, false).content, "[x][a]");
    EXPECT_EQ(lines_of("a\n" + long_line, true, false).content, "[x][a][" + long_line + "]");
    EXPECT_TRUE(lines_of(long_line, true, false).created);
    EXPECT_FALSE(lines_of(short_line, true, false).created);
}

TEST(ExtStrArrayFromStream, NothingToReadGivesFalse) {
    EXPECT_FALSE(lines_of("", true, false).created);
    CExtStrArray array;
    EXPECT_FALSE(array.CreateFromStream(nullptr, true, false));
    TempDir folder;
    FILE* fp = std::fopen(folder.write("lines.txt", "a\n").c_str(), "rb");
    while (std::fgetc(fp) != EOF) {
    }
    EXPECT_FALSE(array.CreateFromStream(fp, true, false));
    EXPECT_TRUE(CExtStrArray(fp, true, false).IsEmpty());
    std::rewind(fp);
    EXPECT_EQ(show(CExtStrArray(fp, true, false)), "[a]");
    std::fclose(fp);
}

// --- joining ---------------------------------------------------------------------------------------------------------

TEST(ExtStrArrayJoin, SeparatorStandsOnlyBehindSomething) {
    EXPECT_STREQ(CExtStrArray("", "", "a", "", "b", kEnd).Join(","), "a,,b");
    EXPECT_STREQ(CExtStrArray("a", "", "", kEnd).Join(", "), "a, , ");
    EXPECT_STREQ(CExtStrArray("", "", kEnd).Join(","), "");
    EXPECT_STREQ(CExtStrArray().Join(","), "");
}

TEST(ExtStrArrayJoin, EmptyOrNullSeparatorIsNone) {
    const CExtStrArray array("", "a", "", "b", kEnd);
    EXPECT_STREQ(array.Join(""), "ab");
    EXPECT_STREQ(array.Join(nullptr), "ab");
}

TEST(ExtStrArrayJoin, CombinedStringReplacesTheOutput) {
    CExtString out = "before";
    EXPECT_TRUE(CExtStrArray("a", "", "bc", kEnd).MakeCombinedString(out));
    EXPECT_STREQ(out, "abc");
    EXPECT_TRUE(CExtStrArray().MakeCombinedString(out));
    EXPECT_STREQ(out, "");
}

TEST(ExtStrArrayFile, WithoutASeparatorEachElementIsALine) {
    TempDir folder;
    const std::string path = folder.path("out.txt");
    const std::string expected = std::string("a") + kLineEnd + "(null)" + kLineEnd + "b" + kLineEnd + kLineEnd;
    const CExtStrArray array("a", "", "b\n", kEnd);
    EXPECT_TRUE(array.WriteJoinedFile(path.c_str(), ""));
    EXPECT_EQ(read_file(path), expected);
    EXPECT_TRUE(array.WriteJoinedFile(path.c_str(), nullptr));
    EXPECT_EQ(read_file(path), expected);
}

TEST(ExtStrArrayFile, WithASeparatorItFollowsEveryElement) {
    TempDir folder;
    const std::string path = folder.path("out.txt");
    EXPECT_TRUE(CExtStrArray("a", "", "b", kEnd).WriteJoinedFile(path.c_str(), ","));
    EXPECT_EQ(read_file(path), "a,(null),b,");
    EXPECT_TRUE(CExtStrArray("a", "b", kEnd).WriteJoinedFile(path.c_str(), ";\n"));
    EXPECT_EQ(read_file(path), std::string("a;") + kLineEnd + "b;" + kLineEnd);
}

TEST(ExtStrArrayFile, ElementWithAnEmptyTextIsWrittenAsNothing) {
    TempDir folder;
    ArrayProbe array({"a"});
    array.slots_[0]->Empty();
    EXPECT_TRUE(array.WriteJoinedFile(folder.path("out.txt").c_str(), ","));
    EXPECT_EQ(read_file(folder.path("out.txt")), ",");
}

TEST(ExtStrArrayFile, EmptyArrayMakesAnEmptyFile) {
    TempDir folder;
    const std::string path = folder.write("out.txt", "former");
    EXPECT_TRUE(CExtStrArray().WriteJoinedFile(path.c_str(), ","));
    EXPECT_EQ(read_file(path), "");
}

TEST(ExtStrArrayFile, PathThatCannotBeOpenedGivesFalse) {
    TempDir folder;
    EXPECT_FALSE(CExtStrArray("a", kEnd).WriteJoinedFile(folder.path("none/out.txt").c_str(), ","));
    EXPECT_FALSE(CExtStrArray("a", kEnd).WriteJoinedFile(nullptr, ","));
}

// --- ordering and searching ------------------------------------------------------------------------------------------

TEST(ExtStrArraySort, TextOrNumber) {
    CExtStrArray array("10", "9", "100", kEnd);
    EXPECT_TRUE(array.Sort(true));
    EXPECT_EQ(show(array), "[9][10][100]");
    EXPECT_TRUE(array.Sort(false));
    EXPECT_EQ(show(array), "[10][100][9]");
    EXPECT_TRUE(array.Sort());
    EXPECT_EQ(show(array), "[10][100][9]");
}

TEST(ExtStrArraySort, TextsCompareAsUnsignedBytes) {
    CExtStrArray array("\x80", "z", "Z", kEnd);
    EXPECT_TRUE(array.Sort());
    EXPECT_EQ(show(array), "[Z][z][\x80]");
}

TEST(ExtStrArraySort, FewerThanTwoElementsGiveFalse) {
    CExtStrArray one("a", kEnd);
    EXPECT_FALSE(one.Sort());
    EXPECT_FALSE(CExtStrArray().Sort(true));
}

TEST(ExtStrArraySort, EmptySlotsSurviveSomewhere) {
    CExtStrArray array("b", "", "a", "", "c", kEnd);
    EXPECT_TRUE(array.Sort());
    int empty = 0;
    for (int i = 0; i < 5; ++i) {
        empty += array[i] == nullptr ? 1 : 0;
    }
    EXPECT_EQ(empty, 2);
    EXPECT_GE(array.IndexOf("a"), 0);
    EXPECT_GE(array.IndexOf("b"), 0);
    EXPECT_GE(array.IndexOf("c"), 0);
}

int compare_texts(const char* left, const char* right) {
    ArrayProbe array({left, right});
    return CExtStrArray::compare_func_for_sort(&array.slots_[0], &array.slots_[1]);
}

int compare_numbers(const char* left, const char* right) {
    ArrayProbe array({left, right});
    return CExtStrArray::compare_func_for_sort_num(&array.slots_[0], &array.slots_[1]);
}

TEST(ExtStrArraySort, ComparatorsGiveMinusOneZeroOrOne) {
    EXPECT_EQ(compare_texts("a", "c"), -1);
    EXPECT_EQ(compare_texts("c", "a"), 1);
    EXPECT_EQ(compare_texts("a", "a"), 0);
    EXPECT_EQ(compare_texts("a\x80", "az"), 1);
    EXPECT_EQ(compare_numbers("-5", "3"), -1);
    EXPECT_EQ(compare_numbers("30x", "4"), 1);
    EXPECT_EQ(compare_numbers("7", "007"), 0);
    EXPECT_EQ(compare_numbers("-2147483648", "2147483647"), -1);
    EXPECT_EQ(compare_numbers("2147483647", "-2147483648"), 1);
    EXPECT_EQ(compare_numbers("text", "0"), 0);
}

TEST(ExtStrArraySort, EmptySlotsCompareEqualToAnything) {
    EXPECT_EQ(compare_texts("", "a"), 0);
    EXPECT_EQ(compare_texts("a", ""), 0);
    EXPECT_EQ(compare_numbers("", "5"), 0);
    EXPECT_EQ(compare_numbers("5", ""), 0);
}

TEST(ExtStrArraySort, ElementWithAnEmptyTextCountsAsZero) {
    ArrayProbe array({"1", "-1"});
    array.slots_[0]->Empty();
    EXPECT_EQ(CExtStrArray::compare_func_for_sort_num(&array.slots_[0], &array.slots_[1]), 1);
}

TEST(ExtStrArrayReverse, SlotsSwapPlaces) {
    ArrayProbe array({"a", "", "c"});
    const CExtString* first = array.slots_[0];
    EXPECT_TRUE(array.Reverse());
    EXPECT_EQ(show(array), "[c][~][a]");
    EXPECT_EQ(array.slots_[2], first);
    EXPECT_FALSE(CExtStrArray().Reverse());
    array.Remove(0, 0);
    EXPECT_FALSE(array.Reverse());
}

TEST(ExtStrArrayIndexOf, FirstEqualElementOrMinusOne) {
    const CExtStrArray array("a", "", "B", "b", kEnd);
    EXPECT_EQ(array.IndexOf("b"), 3);
    EXPECT_EQ(array.IndexOf("b", true), 2);
    EXPECT_EQ(array.IndexOf("A"), -1);
    EXPECT_EQ(array.IndexOf("A", true), 0);
    EXPECT_EQ(array.IndexOf("", true), -1);
    EXPECT_EQ(array.IndexOf("ab"), -1);
}

}  // namespace
