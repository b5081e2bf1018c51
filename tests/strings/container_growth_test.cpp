// The number of blocks that the containers take: none is taken twice, so that all work grows with the content only.
#include <gtest/gtest.h>

#include <cstdint>

#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_str_hash.h"
#include "orvil/strings/ext_str_list.h"
#include "support/failing_allocator.h"

namespace orvil::test {
namespace {

template <typename Operation>
std::int64_t allocations_of(Operation operation) {
    start_counting_allocations();
    operation();
    return stop_counting_allocations();
}

// Two blocks for an element, and slots for every sixteen.
TEST(ContainerGrowth, ArrayTakesAsManyBlocksAsItsContentNeeds) {
    CExtStrArray array;
    EXPECT_EQ(allocations_of([&] { array.Add("text", 999); }), 2 * 999 + 63);
    CExtStrArray one_by_one;
    EXPECT_EQ(allocations_of([&] {
                  for (int i = 0; i < 999; ++i) {
                      one_by_one.Add("text");
                  }
              }),
              2 * 999 + 63);
    EXPECT_EQ(allocations_of([&] { array.Insert(5, "text", 16); }), 2 * 16 + 1);
    EXPECT_EQ(allocations_of([&] { array.Remove(5, 500); }), 0);
    EXPECT_EQ(allocations_of([&] { array.Reverse(); }), 0);
    EXPECT_LE(allocations_of([&] { array.Sort(); }), 1);
}

TEST(ContainerGrowth, CopiesTakeTheirSlotsAtOnce) {
    CExtStrArray array;
    array.Add("text", 999);
    CExtStrArray copy;
    EXPECT_EQ(allocations_of([&] { copy.CopyData(array); }), 2 * 999 + 1);
    EXPECT_EQ(allocations_of([&] { copy.InsertArray(5, array); }), 2 * 999 + 1);
}

// A joined text takes a larger block for every eight bytes.
TEST(ContainerGrowth, JoinedTextTakesNoBlockForAnElement) {
    CExtStrArray array;
    array.Add("x", 4000);
    int length = 0;
    EXPECT_EQ(allocations_of([&] { length = array.Join(",").GetLength(); }), 1000);
    EXPECT_EQ(length, 7999);
    const CExtStrList list(array, 0, -1);
    EXPECT_EQ(allocations_of([&] { length = list.Join(nullptr).GetLength(); }), 501);
    EXPECT_EQ(length, 4000);
}

TEST(ContainerGrowth, HashTakesANodeAKeyAndAValueForAnEntry) {
    CExtStrHash hash;
    EXPECT_EQ(allocations_of([&] {
                  for (int key = 0; key < 500; ++key) {
                      hash.SetAt(key, "value");
                  }
              }),
              1 + 3 * 500);
    EXPECT_EQ(allocations_of([&] { hash.Keys(); }), 2 * 500 + 32);
    EXPECT_EQ(allocations_of([&] { hash.OpenKeys(); }), 1);
    EXPECT_EQ(allocations_of([&] { hash.IsExistKey(7); }), 0);
}

}  // namespace
}  // namespace orvil::test
