#include <gtest/gtest.h>

#include <cstdlib>

#include "orvil/runtime/heap.h"
#include "runtime/node_memory.h"
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

TEST(HeapFailure, ARefusedGrowthKeepsTheBlock) {
    orvil::test::sweep_allocation_failures([](auto failed) {
        char* block = static_cast<char*>(orv_heap_alloc(2000));
        if (block == nullptr) {
            return;
        }
        block[1999] = 'x';
        void* grown = orv_heap_realloc(block, 5000);
        EXPECT_EQ(grown == nullptr, failed());
        EXPECT_EQ(static_cast<char*>(grown == nullptr ? block : grown)[1999], 'x');
        orv_heap_free(grown == nullptr ? block : grown);
    });
}

TEST(NodeMemory, ARefusedNodeIsNull) {
    orvil::test::sweep_allocation_failures([](auto failed) {
        void* node = orvil::detail::allocate_node(96);
        EXPECT_EQ(node == nullptr, failed());
        orvil::detail::free_node(node);
    });
}
