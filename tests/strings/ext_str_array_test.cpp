#include "orvil/strings/ext_str_array.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdarg>

#include "support/array_probe.h"

namespace {

using orvil::test::ArrayProbe;
using orvil::test::show;

constexpr const char* kEnd = nullptr;  // ends a list of arguments

bool call_format_v(CExtStrArray& array, const char* format, ...) {
    va_list args;
    va_start(args, format);
    const bool added = array.AddFormatV(format, args);
    va_end(args);
    return added;
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
