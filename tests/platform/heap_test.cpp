// The private heap of the system.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

#include "platform/platform.h"

using namespace orvil::platform;

#ifdef _WIN32

namespace {

class PrivateHeap : public testing::Test {
protected:
    void* heap_ = heap_create();

    void SetUp() override { ASSERT_NE(heap_, nullptr); }
    void TearDown() override { EXPECT_NE(heap_destroy(heap_), 0u); }

    static bool is_zero(const void* block, std::size_t begin, std::size_t end) {
        const char* bytes = static_cast<const char*>(block);
        for (std::size_t i = begin; i < end; ++i) {
            if (bytes[i] != 0) {
                return false;
            }
        }
        return true;
    }
};

}  // namespace

TEST_F(PrivateHeap, BlocksAreZeroEvenWhenTheirMemoryWasUsedBefore) {
    void* used = heap_alloc(heap_, 1000);
    std::fill_n(static_cast<char*>(used), 1000, 'x');
    heap_free(heap_, used);
    void* block = heap_alloc(heap_, 1000);
    EXPECT_TRUE(is_zero(block, 0, 1000));
    heap_free(heap_, block);
}

TEST_F(PrivateHeap, AGrownBlockKeepsItsBytesAndHasAZeroTail) {
    void* block = heap_alloc(heap_, 100);
    std::fill_n(static_cast<char*>(block), 100, 'x');
    block = heap_realloc(heap_, block, 5000);
    EXPECT_EQ(std::count(static_cast<char*>(block), static_cast<char*>(block) + 100, 'x'), 100);
    EXPECT_TRUE(is_zero(block, 100, 5000));
    heap_free(heap_, block);
}

TEST_F(PrivateHeap, ReallocatingNullGivesNull) {
    EXPECT_EQ(heap_realloc(heap_, nullptr, 10), nullptr);
}

TEST_F(PrivateHeap, ItGrowsBeyondItsInitialCommit) {
    void* block = heap_alloc(heap_, 0x1000000);
    EXPECT_NE(block, nullptr);
    heap_free(heap_, block);
}

TEST_F(PrivateHeap, AnImpossibleSizeGivesNull) {
    EXPECT_EQ(heap_alloc(heap_, SIZE_MAX / 2), nullptr);
}

TEST_F(PrivateHeap, TheLowFragmentationPolicyIsReportedAsTheSystemGrantsIt) {
    EXPECT_LE(heap_compatibility(heap_), 2u);
    heap_enable_low_fragmentation(heap_);
    EXPECT_LE(heap_compatibility(heap_), 2u);
}

#else

TEST(PrivateHeap, ThereIsNone) {
    EXPECT_EQ(heap_create(), nullptr);
}

TEST(PrivateHeap, WithoutOneNothingIsGiven) {
    char block[8];
    heap_enable_low_fragmentation(nullptr);
    EXPECT_EQ(heap_alloc(nullptr, 8), nullptr);
    EXPECT_EQ(heap_realloc(nullptr, block, 8), nullptr);
    heap_free(nullptr, block);
    EXPECT_EQ(heap_destroy(nullptr), 0u);
}

#endif

TEST(PrivateHeapPolicy, NoHeapHasNone) {
    EXPECT_EQ(heap_compatibility(nullptr), kNoHeapInformation);
}
