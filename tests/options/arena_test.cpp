// Memory and texts of the option parser.
#include "options/arena.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "options/kept_text.h"
#include "support/failing_allocator.h"

namespace orvil::test {
namespace {

using detail::Arena;
using detail::KeptText;
using detail::KeptTexts;

// Arenas are static objects, and start with their own bytes anew after each release.
class ArenaTest : public testing::Test {
protected:
    ~ArenaTest() override { arena.release(); }

    std::int64_t allocations_of_taking(std::size_t size) {
        start_counting_allocations();
        void* piece = arena.take(size, 1);
        const std::int64_t count = stop_counting_allocations();
        EXPECT_NE(piece, nullptr);
        std::memset(piece, 'x', size);
        return count;
    }

    static inline Arena arena;
};

TEST_F(ArenaTest, SmallPiecesNeedNoMemory) {
    EXPECT_EQ(allocations_of_taking(1), 0);
    EXPECT_EQ(allocations_of_taking(4095), 0);
    EXPECT_EQ(allocations_of_taking(1), 1);
    arena.release();
    EXPECT_EQ(allocations_of_taking(4096), 0);
    EXPECT_EQ(allocations_of_taking(16384), 1);
    EXPECT_EQ(allocations_of_taking(32768), 1);
}

TEST_F(ArenaTest, UnusedArenaHasItsOwnBytesToo) {
    static Arena unused;
    start_counting_allocations();
    EXPECT_NE(unused.take(4096, 1), nullptr);
    EXPECT_EQ(stop_counting_allocations(), 0);
}

// Seven bytes are given up for the alignment, so that 4089 do not fit behind one.
TEST_F(ArenaTest, AlignedPieceMustFitBehindThePadding) {
    start_counting_allocations();
    EXPECT_NE(arena.take(1, 1), nullptr);
    EXPECT_NE(arena.take(4089, 8), nullptr);
    EXPECT_EQ(stop_counting_allocations(), 1);
}

TEST_F(ArenaTest, FirstPieceMayBeLarge) {
    EXPECT_EQ(allocations_of_taking(4097), 1);
    EXPECT_EQ(allocations_of_taking(16384 - 4104), 0);
    EXPECT_EQ(allocations_of_taking(5000000), 1);
}

// The arena's own 4 KiB, six blocks of 16 to 512 KiB, then blocks of 1 MiB.
TEST_F(ArenaTest, BlocksGrowToOneMebibyte) {
    std::int64_t allocations = 0;
    for (int kibibyte = 0; kibibyte < 4 + 1008 + 9 * 1024; ++kibibyte) {
        allocations += allocations_of_taking(1024);
    }
    EXPECT_EQ(allocations, 6 + 9);
}

TEST_F(ArenaTest, PiecesAreAlignedAndApart) {
    std::vector<char*> pieces;
    for (std::size_t i = 0; i < 3000; ++i) {
        auto* byte = static_cast<char*>(arena.take(1 + i % 3, 1));
        auto* pointer = static_cast<char*>(arena.take(8, 8));
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(pointer) % 8, 0U);
        std::memset(byte, 'b', 1 + i % 3);
        std::memset(pointer, 'p', 8);
        pieces.push_back(byte);
        pieces.push_back(pointer);
    }
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        ASSERT_EQ(*pieces[i], i % 2 == 0 ? 'b' : 'p');
    }
}

TEST_F(ArenaTest, EmptyPieceIsNoFailure) {
    EXPECT_NE(arena.take(0, 1), nullptr);
    EXPECT_NE(arena.take(4096, 8), nullptr);
    EXPECT_NE(arena.take(0, 8), nullptr);
}

TEST_F(ArenaTest, SizeThatNoBlockCanHaveIsRefused) {
    EXPECT_EQ(arena.take(SIZE_MAX, 1), nullptr);
    EXPECT_EQ(arena.take(SIZE_MAX - 7, 8), nullptr);
    EXPECT_EQ(arena.take(SIZE_MAX / 2 + 1, 1), nullptr);
    EXPECT_NE(arena.take(1, 1), nullptr);
}

TEST_F(ArenaTest, RefusedBlockLeavesTheRest) {
    EXPECT_EQ(allocations_of_taking(4000), 0);
    {
        const AllocationFailure failure(1);
        EXPECT_EQ(arena.take(97, 1), nullptr);
        EXPECT_NE(arena.take(96, 1), nullptr);
    }
    EXPECT_EQ(allocations_of_taking(97), 1);
}

// --- texts -----------------------------------------------------------------------------------------------------------

TEST_F(ArenaTest, TextUsesItsRoomAgain) {
    KeptText text;
    EXPECT_STREQ(text.get(), "");
    text.assign(arena, {"first ", "", "text"});
    const char* place = text.get();
    EXPECT_STREQ(place, "first text");
    text.assign(arena, {"other text"});
    EXPECT_EQ(text.get(), place);
    EXPECT_STREQ(place, "other text");
    text.assign(arena, {"a longer text"});
    EXPECT_NE(text.get(), place);
    EXPECT_STREQ(text.get(), "a longer text");
    place = text.get();
    text.assign(arena, {"twice ten and one byte"});  // has 22, as room was made for
    EXPECT_STREQ(text.get(), "twice ten and one byte");
}

// What a text gives up when it grows stays below what it needs.
TEST_F(ArenaTest, GrowingTextTakesLittleMemory) {
    KeptText text;
    std::string value;
    start_counting_allocations();
    for (int i = 0; i < 10000; ++i) {
        value += 'x';
        text.assign(arena, {value});
    }
    EXPECT_LT(stop_counting_allocations(), 30 + 20);  // the standard string allocates, too
    EXPECT_EQ(text.get(), value);
}

TEST_F(ArenaTest, TextWithoutMemoryIsEmpty) {
    const std::string large(9000, 'y');
    KeptText text;
    text.assign(arena, {"text"});
    {
        const AllocationFailure failure(1);
        text.assign(arena, {large});
        EXPECT_TRUE(failure.happened());
        EXPECT_STREQ(text.get(), "");
    }
    text.assign(arena, {large});
    EXPECT_EQ(text.get(), large);
}

TEST_F(ArenaTest, TextsKeepTheirOrderAndPlaces) {
    KeptTexts texts;
    EXPECT_EQ(texts.count(), 0);
    EXPECT_EQ(texts.at(0), nullptr);
    texts.add(arena, "0");
    const char* first = texts.at(0);
    for (int i = 1; i < 2000; ++i) {
        texts.add(arena, std::to_string(i));
    }
    EXPECT_EQ(texts.at(0), first);
    EXPECT_EQ(texts.count(), 2000);
    for (int i = 0; i < 2000; ++i) {
        ASSERT_EQ(texts.at(i), std::to_string(i));
    }
    EXPECT_EQ(texts.at(2000), nullptr);
    EXPECT_EQ(texts.at(-1), nullptr);
}

}  // namespace
}  // namespace orvil::test
