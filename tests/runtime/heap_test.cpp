#include "orvil/runtime/heap.h"

#include <gtest/gtest.h>

TEST(HeapStatistics, ALargeRequestRaisesTheMarkAndASmallerReallocationKeepsIt) {
    void* block = orv_heap_alloc(123456);
    EXPECT_GE(st_dwMoreLargeSize, 123456u);
    const auto mark = st_dwMoreLargeSize;
    block = orv_heap_realloc(block, 10);
    EXPECT_EQ(st_dwMoreLargeSize, mark);
    orv_heap_free(block);
}

TEST(HeapStatistics, AByteMoreRaisesTheMarkByOne) {
    orv_heap_free(orv_heap_alloc(123456));
    const auto mark = st_dwMoreLargeSize;
    void* block = orv_heap_alloc(mark + 1);
    EXPECT_EQ(st_dwMoreLargeSize, mark + 1);
    orv_heap_free(orv_heap_realloc(block, mark + 2));
    EXPECT_EQ(st_dwMoreLargeSize, mark + 2);
}
