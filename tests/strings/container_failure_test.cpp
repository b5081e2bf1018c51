// Each allocating operation of the containers with each of its allocations refused.
#include <gtest/gtest.h>

#include <string>

#include "orvil/strings/ext_array.h"
#include "orvil/strings/ext_hash.h"
#include "orvil/strings/ext_list.h"
#include "orvil/strings/ext_str_hash.h"
#include "orvil/strings/ext_str_list.h"
#include "support/array_probe.h"
#include "support/failing_allocator.h"

namespace {

using orvil::test::AllocationFailure;
using orvil::test::ArrayProbe;

constexpr const char* kEnd = nullptr;  // ends a list of arguments

// Runs `operation` on a container that `make` fills beforehand, without refusals, with its 1st, 2nd, ... allocation
// refused. `check(container, result, refused)` sees what came of it.
template <typename Container, typename Make, typename Operation, typename Check>
void sweep(Make make, Operation operation, Check check) {
    for (bool and_all_later : {false, true}) {
        for (int nth = 1;; ++nth) {
            ASSERT_LT(nth, 1000) << "the operation never runs without a refused allocation";
            Container container;
            make(container);
            bool result = false;
            bool refused = false;
            {
                const AllocationFailure failure(nth, and_all_later);
                result = operation(container);
                refused = failure.happened();
            }
            check(container, result, refused);
            if (!refused) {
                EXPECT_GT(nth, 1) << "the operation allocates nothing";
                break;
            }
        }
    }
}

void fill(ArrayProbe& array, int n) {
    for (int i = 0; i < n; ++i) {
        array.AddFormat("%d", i);
    }
}

// Slots are in order and readable whatever happened; without a refusal the result is true.
void check_array(const ArrayProbe& array, bool result, bool refused) {
    EXPECT_TRUE(array.is_sound());
    EXPECT_TRUE(refused || result);
    EXPECT_FALSE(orvil::test::show(array).empty() && array.GetSize() > 0);
}

template <typename Operation>
void sweep_array(int size, Operation operation) {
    sweep<ArrayProbe>([size](ArrayProbe& array) { fill(array, size); }, operation, check_array);
}

TEST(ContainerFailure, ArrayWithoutSlotsForOneMoreIsAsItWas) {
    ArrayProbe array;
    fill(array, 15);
    {
        const AllocationFailure failure(1);
        EXPECT_FALSE(array.Add("x"));
    }
    EXPECT_EQ(array.GetSize(), 15);
    EXPECT_EQ(array.capacity_, 16);
    EXPECT_STREQ(array[14], "14");
}

TEST(ContainerFailure, FirstSlotsOfAnArrayRefused) {
    ArrayProbe array;
    {
        const AllocationFailure failure(1);
        EXPECT_FALSE(array.Add("x"));
    }
    EXPECT_EQ(array.slots_, nullptr);
    EXPECT_EQ(array.capacity_, 0);
}

TEST(ContainerFailure, ArrayElementWhoseTextIsRefusedIsKeptEmpty) {
    ArrayProbe array({"a"});
    bool replaced = false;
    {
        const AllocationFailure failure(2);  // the object, then its text
        replaced = array.ReplaceElement(0, "bb");
    }
    EXPECT_TRUE(replaced);
    EXPECT_EQ(array.GetAt(0), CExtString::sm_pszNull);
}

TEST(ContainerFailure, ArrayElementThatIsRefusedLeavesTheOldOne) {
    ArrayProbe array({"a"});
    bool replaced = true;
    {
        const AllocationFailure failure(1);
        replaced = array.ReplaceElement(0, "bb");
    }
    EXPECT_FALSE(replaced);
    EXPECT_STREQ(array[0], "a");
}

TEST(ContainerFailure, ArrayOperationsStaySound) {
    const CExtStrArray other("x", "", "y", kEnd);
    const char* const texts[] = {"x", "y", nullptr};
    sweep_array(14, [](ArrayProbe& array) { return array.Add("x", 4); });
    sweep_array(15, [](ArrayProbe& array) { return array.Insert(3, "x", 2); });
    sweep_array(15, [](ArrayProbe& array) { return array.SetAt(40, "x"); });
    sweep_array(15, [&](ArrayProbe& array) { return array.ConcatArray(other); });
    sweep_array(15, [&](ArrayProbe& array) { return array.InsertArray(2, other); });
    sweep_array(15, [](ArrayProbe& array) { return array.InsertArray(2, array); });
    sweep_array(15, [&](ArrayProbe& array) { return array.CopyData(other); });
    sweep_array(15, [&](ArrayProbe& array) { return array.CreateFromStringArray(texts, -1); });
    sweep_array(15, [](ArrayProbe& array) { return array.CreateFromStrings("x", "y", kEnd); });
    sweep_array(15, [](ArrayProbe& array) { return array.AddFormat("%d", 5); });
}

TEST(ContainerFailure, ArrayFromAListStaysSound) {
    const CExtStrList list("a", "b", kEnd);
    sweep_array(15, [&](ArrayProbe& array) { return array.CreateFromListObject(list, nullptr, nullptr); });
}

TEST(ContainerFailure, TemplateArrayIsAsItWas) {
    using Array = CExtArray<std::pair<int, int>>;
    const auto make = [](Array& array) {
        for (int i = 0; i < 15; ++i) {
            array.Add({i, i});
        }
    };
    const auto check = [](const Array& array, bool result, bool refused) {
        EXPECT_EQ(result, !refused);
        EXPECT_EQ(array.GetSize(), refused ? 15 : 16);
        EXPECT_EQ(array.GetAt(14)->first, refused || array.GetAt(15) != nullptr ? array.GetAt(14)->second : 14);
    };
    sweep<Array>(
        make,
        [](Array& array) {
            return array.Add({7, 7});
        },
        check);
    sweep<Array>(
        make,
        [](Array& array) {
            return array.Insert(3, {7, 7});
        },
        check);
    sweep<Array>(
        make,
        [](Array& array) {
            return array.SetAt(15, {7, 7});
        },
        check);
}

TEST(ContainerFailure, TemplateArrayCopyEndsWithEmptySlots) {
    CExtArray<int> source;
    source.Add(1);
    source.Add(2);
    CExtArray<int> copy;
    bool copied = true;
    {
        const AllocationFailure failure(3);  // the slots, the first element, the second
        copied = copy.CopyData(source);
    }
    EXPECT_FALSE(copied);
    ASSERT_EQ(copy.GetSize(), 2);
    EXPECT_EQ(*copy.GetAt(0), 1);
    EXPECT_EQ(copy.GetAt(1), nullptr);
}

TEST(ContainerFailure, RefusedAdoptionLeavesTheElementToTheCaller) {
    CExtArray<int> array;
    CExtList<int> list;
    int element = 5;
    const AllocationFailure failure(1, true);
    EXPECT_FALSE(array.AddAdopted(&element));
    EXPECT_FALSE(array.SetAdopted(3, &element));
    EXPECT_EQ(list.AddTailPtr(&element), nullptr);
}

template <typename Operation>
void sweep_list(Operation operation) {
    sweep<CExtStrList>([](CExtStrList& list) { list.CreateFromStrings("a", "b", kEnd); }, operation,
                       [](const CExtStrList& list, bool result, bool refused) {
                           int walked = 0;
                           for (__pos* pos = list.GetHeadPosition(); pos != nullptr; ++walked) {
                               EXPECT_NE(list.GetNext(pos), nullptr);
                           }
                           EXPECT_EQ(walked, list.GetCount());
                           EXPECT_TRUE(refused || result);
                       });
}

TEST(ContainerFailure, ListOperationsStaySound) {
    const CExtStrList other("x", "", kEnd);
    const CExtStrArray array("x", "y", kEnd);
    sweep_list([](CExtStrList& list) { return list.AddTail("x") != nullptr; });
    sweep_list([](CExtStrList& list) { return list.AddHead("x") != nullptr; });
    sweep_list([](CExtStrList& list) { return list.InsertBefore(list.GetTailPosition(), "x") != nullptr; });
    sweep_list([](CExtStrList& list) { return list.InsertAfter(list.GetHeadPosition(), "x") != nullptr; });
    sweep_list([&](CExtStrList& list) { return list.AddTail(other); });
    sweep_list([&](CExtStrList& list) { return list.AddHead(other); });
    sweep_list([&](CExtStrList& list) { return list.CopyData(other); });
    sweep_list([&](CExtStrList& list) { return list.CreateFromArrayObject(array, 0, -1); });
    sweep_list([](CExtStrList& list) { return list.CreateFromStrings("x", kEnd); });
}

TEST(ContainerFailure, ListNodeRefusedLeavesTheList) {
    CExtStrList list("a", kEnd);
    const AllocationFailure failure(1, true);
    EXPECT_EQ(list.AddTail("x"), nullptr);
    EXPECT_FALSE(list.CreateFromStrings("x", kEnd));
    EXPECT_EQ(list.GetCount(), 1);
    EXPECT_STREQ(list.GetTail(), "a");
}

TEST(ContainerFailure, ListTextRefusedIsEmpty) {
    CExtStrList list("a", kEnd);
    bool replaced = false;
    __pos* added = nullptr;
    {
        const AllocationFailure failure(1, true);
        replaced = list.SetAt(list.GetHeadPosition(), "bb");
    }
    {
        const AllocationFailure failure(2);  // the node, then its text
        added = list.AddTail("cc");
    }
    EXPECT_TRUE(replaced);
    EXPECT_STREQ(list.GetHead(), "");
    ASSERT_NE(added, nullptr);
    EXPECT_STREQ(list.GetAt(added), "");
}

TEST(ContainerFailure, TemplateListIsAsItWas) {
    sweep<CExtList<int>>([](CExtList<int>& list) { list.AddTail(1); },
                         [](CExtList<int>& list) { return list.AddTail(2) != nullptr; },
                         [](const CExtList<int>& list, bool result, bool refused) {
                             EXPECT_EQ(result, !refused);
                             EXPECT_EQ(list.GetCount(), refused ? 1 : 2);
                         });
}

template <typename Operation>
void sweep_hash(Operation operation) {
    sweep<CExtStrHash>([](CExtStrHash&) {}, operation,
                       [](const CExtStrHash& hash, bool result, bool refused) {
                           EXPECT_EQ(hash.Keys().GetSize(), hash.GetCount());
                           EXPECT_TRUE(refused || result);
                       });
}

TEST(ContainerFailure, HashOperationsStaySound) {
    const CExtStrHash other("x", "1", "y", "2", kEnd);
    const CExtStrArray array("x", "1", "y", "2", kEnd);
    const CExtStrList list("x", "1", "y", "2", kEnd);
    sweep_hash([](CExtStrHash& hash) { return hash.SetAt("a", "1"); });
    sweep_hash([](CExtStrHash& hash) { return hash.SetAt(5, "1"); });
    sweep_hash([&](CExtStrHash& hash) { return hash.CopyData(other); });
    sweep_hash([&](CExtStrHash& hash) { return hash.CreateFromArray(array); });
    sweep_hash([&](CExtStrHash& hash) { return hash.CreateFromList(list); });
    sweep_hash([](CExtStrHash& hash) { return hash.CreateFromStrings("x", "1", kEnd); });
    sweep_hash([](CExtStrHash& hash) { return hash.InitializeHashTable(50, true); });
}

TEST(ContainerFailure, HashEntryRefusedIsNotThere) {
    for (int nth = 1; nth <= 3; ++nth) {  // the buckets, the node, its key
        CExtStrHash hash;
        bool stored = true;
        {
            const AllocationFailure failure(nth);
            stored = hash.SetAt("a", "1");
        }
        EXPECT_FALSE(stored);
        EXPECT_EQ(hash.GetCount(), 0);
        EXPECT_FALSE(hash.IsExistKey("a"));
    }
}

TEST(ContainerFailure, HashValueRefusedIsEmpty) {
    CExtStrHash hash("a", "1", kEnd);
    bool stored = false;
    {
        const AllocationFailure failure(1);
        stored = hash.SetAt("a", "2");
    }
    EXPECT_TRUE(stored);
    EXPECT_TRUE(hash["a"].IsEmpty());
}

TEST(ContainerFailure, BracketsWithoutMemoryGiveASpareValue) {
    CExtStrHash texts;
    CExtHash<int> numbers;
    {
        const AllocationFailure failure(1, true);
        EXPECT_TRUE(texts["a"].IsEmpty());
        numbers["a"] = 5;
        EXPECT_EQ(numbers["b"], 0);
    }
    EXPECT_EQ(texts.GetCount(), 0);
    EXPECT_EQ(numbers.GetCount(), 0);
}

TEST(ContainerFailure, SpareValueIsEmptyEachTime) {
    CExtStrHash texts;
    CExtString* spare = nullptr;
    {
        const AllocationFailure failure(1, true);
        spare = &texts["a"];
    }
    *spare = "left behind";
    const AllocationFailure failure(1, true);
    EXPECT_TRUE(texts["b"].IsEmpty());
}

TEST(ContainerFailure, SnapshotWithoutMemoryIsNotOpen) {
    CExtStrHash hash("a", "1", kEnd);
    const AllocationFailure failure(1, true);
    EXPECT_EQ(hash.OpenKeys(), 0);
    EXPECT_EQ(hash.KeyAt(0), nullptr);
}

TEST(ContainerFailure, TemplateHashIsAsItWas) {
    sweep<CExtHash<int>>([](CExtHash<int>&) {}, [](CExtHash<int>& hash) { return hash.SetAt("a", 1); },
                         [](const CExtHash<int>& hash, bool result, bool refused) {
                             EXPECT_EQ(result, !refused);
                             EXPECT_EQ(hash.GetCount(), refused ? 0 : 1);
                         });
}

}  // namespace
