// The books on string buffers.
#include "runtime/buffer_statistics.h"

#include <gtest/gtest.h>

#include "orvil/runtime/heap.h"

using orvil::detail::book_buffer;
using orvil::detail::book_growth;
using orvil::detail::book_release;
using orvil::detail::booked_buffer_bytes;

TEST(BufferStatistics, ABufferCountsItsTerminatorAndLeavesItBehind) {
    const auto before = booked_buffer_bytes();
    book_buffer(8);
    EXPECT_EQ(booked_buffer_bytes(), before + 9);
    book_release(8);
    EXPECT_EQ(booked_buffer_bytes(), before + 1);
}

TEST(BufferStatistics, GrowthCountsTheDifferenceAndOneByte) {
    const auto before = booked_buffer_bytes();
    book_buffer(8);
    book_growth(8, 24);
    EXPECT_EQ(booked_buffer_bytes(), before + 9 + 17);
    book_release(24);
    EXPECT_EQ(booked_buffer_bytes(), before + 2);
}

TEST(BufferStatistics, TheHighWaterMarkFollowsAdditionsAndNeverFalls) {
    const auto before = booked_buffer_bytes();
    const int to_the_mark = static_cast<int>(st_dwMostLargeSize - before);
    book_buffer(to_the_mark + 8);
    EXPECT_EQ(st_dwMostLargeSize, before + static_cast<unsigned>(to_the_mark) + 9);
    const auto mark = st_dwMostLargeSize;
    book_release(to_the_mark + 8);
    book_buffer(2);
    EXPECT_EQ(st_dwMostLargeSize, mark);
    book_release(2);
}

TEST(BufferStatistics, GrowthRaisesTheMark) {
    book_buffer(8);
    book_growth(8, 1000000);
    EXPECT_EQ(st_dwMostLargeSize, booked_buffer_bytes());
    book_release(1000000);
}
