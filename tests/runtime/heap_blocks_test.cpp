// Blocks of every size keep their bytes through growth and shrinking, in whatever mode the library runs.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "orvil/runtime/heap.h"

namespace {

bool all_zero(const unsigned char* block, std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to; ++i) {
        if (block[i] != 0) {
            return false;
        }
    }
    return true;
}

struct Held {
    unsigned char* block;
    std::size_t size;
    unsigned char mark;
};

void check_bytes(const Held& held) {
    for (std::size_t i = 0; i < held.size; ++i) {
        ASSERT_EQ(held.block[i], held.mark) << "byte " << i << " of " << held.size;
    }
}

void resize(Held& held, std::size_t size) {
    auto* block = static_cast<unsigned char*>(orv_heap_realloc(held.block, size));
    ASSERT_NE(block, nullptr);
    held.block = block;
    if (size > held.size && orv_heap_gettype() >= 3) {
        ASSERT_TRUE(all_zero(block, held.size, size));
    }
    held.size = size < held.size ? size : held.size;
    check_bytes(held);
    std::memset(block, held.mark, size);
    held.size = size;
}

TEST(HeapBlocks, ABlockIsZeroFilledWhateverItsSize) {
    for (std::size_t size : {1u, 16u, 17u, 1024u, 1025u, 70000u, 3000000u}) {
        auto* block = static_cast<unsigned char*>(orv_heap_alloc(size));
        ASSERT_NE(block, nullptr);
        EXPECT_TRUE(all_zero(block, 0, size)) << size;
        std::memset(block, 0xFF, size);
        orv_heap_free(block);
    }
}

TEST(HeapBlocks, ARequestBeyondTheAddressSpaceIsNull) {
    EXPECT_EQ(orv_heap_alloc(SIZE_MAX - 8), nullptr);
    void* block = orv_heap_alloc(5000);
    EXPECT_EQ(orv_heap_realloc(block, SIZE_MAX - 8), nullptr);
    orv_heap_free(block);
}

TEST(HeapBlocks, ReleasingNullIsIgnored) {
    orv_heap_free(nullptr);
}

TEST(HeapBlocks, GrowthByEightBytesKeepsEveryByte) {
    Held held{static_cast<unsigned char*>(orv_heap_alloc(9)), 9, 0x5A};
    std::memset(held.block, held.mark, held.size);
    for (std::size_t size = 17; size < 6000; size += 8) {
        resize(held, size);
    }
    orv_heap_free(held.block);
}

TEST(HeapBlocks, RandomGrowthAndShrinkingKeepsEveryBlocksBytes) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    std::vector<Held> held;
    for (int step = 0; step < 20000; ++step) {
        const std::size_t size = 1 + (random() % 8 == 0 ? random() % 5000 : random() % 200);
        const auto choice = random() % 3;
        if (held.empty() || choice == 0) {
            held.push_back(
                {static_cast<unsigned char*>(orv_heap_alloc(size)), size, static_cast<unsigned char>(random() | 1)});
            ASSERT_TRUE(all_zero(held.back().block, 0, size));
            std::memset(held.back().block, held.back().mark, size);
            continue;
        }
        std::swap(held[random() % held.size()], held.back());
        check_bytes(held.back());
        if (choice == 1) {
            resize(held.back(), size);
        } else {
            orv_heap_free(held.back().block);
            held.pop_back();
        }
    }
    for (const Held& last : held) {
        orv_heap_free(last.block);
    }
}

}  // namespace
