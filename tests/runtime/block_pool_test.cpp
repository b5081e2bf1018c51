#include "runtime/block_pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <map>
#include <random>
#include <set>
#include <vector>

namespace {

using orvil::detail::BlockPool;

constexpr std::size_t kPageSize = 0x10000;
constexpr unsigned char kFreshByte = 0xCD;

std::map<void*, std::size_t> chunks;  // those that the pool has, with their sizes
std::vector<std::size_t> advised_at;  // how many pages the pool had when each of the advised chunks came
bool exhausted = false;

void* obtain(std::size_t size) {
    if (exhausted) {
        return nullptr;
    }
    void* chunk = std::malloc(size);
    std::memset(chunk, kFreshByte, size);
    chunks[chunk] = size;
    return chunk;
}

void release(void* chunk) {
    chunks.erase(chunk);
    std::free(chunk);
}

std::size_t pages_held() {
    std::size_t pages = 0;
    for (const auto& [chunk, size] : chunks) {
        pages += size / kPageSize - 1;
    }
    return pages;
}

void advise(void* chunk, std::size_t size) {
    EXPECT_EQ(chunks.at(chunk), size);
    advised_at.push_back(pages_held());
}

class BlockPoolTest : public testing::Test {
protected:
    BlockPoolTest() {
        chunks.clear();
        advised_at.clear();
        exhausted = false;
    }
    ~BlockPoolTest() override { pool.trim(); }

    BlockPool::PageMap pages = {};
    BlockPool pool{{obtain, release, advise}, pages};
};

bool all_are(unsigned char byte, const void* block, std::size_t size) {
    const auto* bytes = static_cast<const unsigned char*>(block);
    return std::all_of(bytes, bytes + size, [byte](unsigned char each) { return each == byte; });
}

bool all_zero(const void* block, std::size_t size) {
    return all_are(0, block, size);
}

TEST_F(BlockPoolTest, BlocksOfEverySizeAreZeroAlignedAndApart) {
    std::vector<unsigned char*> blocks;
    for (std::size_t size = 0; size <= BlockPool::kLargestBlock; ++size) {
        auto* block = static_cast<unsigned char*>(pool.allocate(size));
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % 16, 0u);
        EXPECT_GE(BlockPool::block_size(block), size);
        EXPECT_TRUE(all_zero(block, BlockPool::block_size(block))) << size;
        std::memset(block, static_cast<int>(size % 255 + 1), size);
        blocks.push_back(block);
    }
    for (std::size_t size = 0; size <= BlockPool::kLargestBlock; ++size) {
        for (std::size_t i = 0; i < size; ++i) {
            ASSERT_EQ(blocks[size][i], size % 255 + 1);
        }
        pool.release(blocks[size]);
    }
}

TEST_F(BlockPoolTest, AFreedBlockComesBackZeroed) {
    void* keeper = pool.allocate(24);
    void* block = pool.allocate(24);
    std::memset(block, 0xAA, 24);
    pool.release(block);
    void* again = pool.allocate(24);
    EXPECT_EQ(again, block);
    EXPECT_TRUE(all_zero(again, 32));
    pool.release(again);
    pool.release(keeper);
}

TEST_F(BlockPoolTest, ADirtyBlockIsTakenLikeAnyOther) {
    void* keeper = pool.allocate_dirty(96);
    void* block = pool.allocate_dirty(96);
    std::memset(block, 0xAA, 96);
    pool.release(block);
    EXPECT_EQ(pool.allocate_dirty(96), block);
    pool.release(block);
    EXPECT_TRUE(all_zero(pool.allocate(96), 96));
    pool.release(block);
    pool.release(keeper);
}

TEST_F(BlockPoolTest, APageWhoseBlocksAreAllFreedBeginsAnew) {
    std::vector<void*> blocks;
    for (int i = 0; i < 800; ++i) {
        blocks.push_back(pool.allocate(72));
        std::memset(blocks.back(), 0xAA, 72);
    }
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        pool.release(blocks[i * 7 % blocks.size()]);
    }
    for (void* const place : blocks) {
        void* block = pool.allocate(72);
        EXPECT_EQ(block, place);
        EXPECT_TRUE(all_zero(block, 72));
    }
    for (void* const block : blocks) {  // nothing of the former life is left in the bit map
        pool.release(block);
        EXPECT_EQ(pool.allocate(72), block);
    }
    for (void* const block : blocks) {
        pool.release(block);
    }
}

TEST_F(BlockPoolTest, FreedBlocksOfAFullPageAreAllTakenAgain) {
    std::vector<void*> blocks;
    for (int i = 0; i < 1000; ++i) {
        blocks.push_back(pool.allocate(1000));
    }
    std::set<void*> freed;
    for (std::size_t i = 0; i < blocks.size(); i += 3) {
        freed.insert(blocks[i]);
        pool.release(blocks[i]);
    }
    const std::size_t before = chunks.size();
    for (std::size_t i = 0; i < blocks.size(); i += 3) {
        blocks[i] = pool.allocate(1000);
        freed.erase(blocks[i]);
    }
    EXPECT_EQ(chunks.size(), before);
    EXPECT_LE(freed.size(), 64U);  // the rest came from the page that still had room
    for (void* block : blocks) {
        pool.release(block);
    }
}

TEST_F(BlockPoolTest, OwnsItsBlocksAndNothingElse) {
    int local = 0;
    void* foreign = std::malloc(100);
    void* block = pool.allocate(100);
    EXPECT_TRUE(pool.owns(block));
    EXPECT_FALSE(pool.owns(foreign));
    EXPECT_FALSE(pool.owns(&local));
    EXPECT_FALSE(pool.owns(nullptr));
    EXPECT_FALSE(pool.owns(reinterpret_cast<void*>(~std::uintptr_t{0})));
    pool.release(block);
    std::free(foreign);
}

TEST_F(BlockPoolTest, AnExhaustedSourceYieldsNullAndLaterServesAgain) {
    exhausted = true;
    EXPECT_EQ(pool.allocate(8), nullptr);
    exhausted = false;
    void* block = pool.allocate(8);
    EXPECT_NE(block, nullptr);
    pool.release(block);
}

TEST_F(BlockPoolTest, ChunksThatRunEmptyGoBackButFor256MiB) {
    std::vector<void*> blocks;
    for (int i = 0; i < 400000; ++i) {
        blocks.push_back(pool.allocate(1000));
    }
    EXPECT_GT(pages_held(), 6000U);
    for (void* block : blocks) {
        pool.release(block);
    }
    constexpr std::size_t kept = 4096;
    constexpr std::size_t largest_chunk = 128;
    EXPECT_LE(pages_held(), kept + largest_chunk);  // one more has the page that stays open for the next block
    EXPECT_GT(pages_held(), kept - largest_chunk);
    pool.trim();
    EXPECT_TRUE(chunks.empty());
}

TEST_F(BlockPoolTest, TheChunksOfALargePoolAreAdvisedUpToWhatIsKept) {
    std::vector<void*> blocks;
    for (int i = 0; i < 300000; ++i) {
        blocks.push_back(pool.allocate(1024));
    }
    std::vector<std::size_t> expected;
    for (std::size_t before = 16 + 2 * 128; before < 4096; before += 128) {
        expected.push_back(before + 128);
    }
    EXPECT_EQ(advised_at, expected);
    EXPECT_GT(pages_held(), 4096U + 128);
    for (void* block : blocks) {
        pool.release(block);
    }
}

TEST_F(BlockPoolTest, PagesThatHaveNotServedAreUntouched) {
    void* block = pool.allocate(1);
    const auto& [chunk, size] = *chunks.begin();
    const auto end_of_page = (reinterpret_cast<std::uintptr_t>(block) | (kPageSize - 1)) + 1;
    const std::size_t begun = end_of_page - reinterpret_cast<std::uintptr_t>(chunk);
    EXPECT_TRUE(all_are(kFreshByte, static_cast<char*>(chunk) + begun, size - begun));
    pool.release(block);
}

TEST_F(BlockPoolTest, TrimKeepsChunksWithLivingBlocks) {
    void* block = pool.allocate(64);
    pool.trim();
    EXPECT_EQ(chunks.size(), 1U);
    EXPECT_TRUE(pool.owns(block));
    pool.release(block);
}

TEST_F(BlockPoolTest, AnAbandonedPoolOwnsNothingAndStartsAnew) {
    void* lost = pool.allocate(64);
    ASSERT_NE(lost, nullptr);
    pool.release(lost);
    pool.trim();
    pool.abandon();
    EXPECT_FALSE(pool.owns(lost));
    void* block = pool.allocate(64);
    EXPECT_TRUE(all_zero(block, 64));
    pool.release(block);
}

TEST_F(BlockPoolTest, RandomTrafficKeepsEveryBlocksBytes) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    struct Held {
        unsigned char* block;
        std::size_t size;
        unsigned char mark;
    };
    std::vector<Held> held;
    for (int step = 0; step < 200000; ++step) {
        if (held.empty() || random() % 100 < (step / 20000 % 2 == 0 ? 70u : 30u)) {
            const std::size_t size = random() % 4 == 0 ? random() % 1025 : random() % 64;
            auto* block = static_cast<unsigned char*>(pool.allocate(size));
            ASSERT_TRUE(all_zero(block, size));
            held.push_back({block, size, static_cast<unsigned char>(random() | 1)});
            std::memset(block, held.back().mark, size);
        } else {
            std::swap(held[random() % held.size()], held.back());
            for (std::size_t i = 0; i < held.back().size; ++i) {
                ASSERT_EQ(held.back().block[i], held.back().mark);
            }
            pool.release(held.back().block);
            held.pop_back();
        }
    }
    for (const Held& last : held) {
        pool.release(last.block);
    }
    pool.trim();
    EXPECT_TRUE(chunks.empty());
}

}  // namespace
