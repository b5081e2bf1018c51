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
