#include <gtest/gtest.h>

#include <cstdlib>

#include "orvil/runtime/heap.h"
#include "support/failing_allocator.h"

TEST(HeapFailure, ARefusedAllocationYieldsNullAndStillRaisesTheLargestRequest) {
    orvil::test::sweep_allocation_failures([](auto failed) {
        void* block = orv_heap_alloc(7777777);
        EXPECT_EQ(block == nullptr, failed());
        EXPECT_GE(st_dwMoreLargeSize, 7777777u);
        orv_heap_free(block);
    });
}

TEST(HeapFailure, ARefusedDuplicateIsNull) {
    orvil::test::sweep_allocation_failures([](auto failed) {
        char* copy = st_ImpFunc_strdup("abc", 0);
        EXPECT_EQ(copy == nullptr, failed());
        std::free(copy);
    });
}
