// What strings book: + capacity + 1 for a buffer, + growth + 1, - capacity, each in its order.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "orvil/runtime/heap.h"
#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_string.h"
#include "runtime/buffer_statistics.h"
#include "strings/ext_string_probe.h"
#include "strings/string_access.h"

using orvil::detail::booked_buffer_bytes;
using orvil::test::capacity_of;
using orvil::test::StringProbe;

namespace {

// What an operation adds to the books.
template <typename Operation>
std::int64_t booked_by(Operation operation) {
    const std::uint64_t before = booked_buffer_bytes();
    operation();
    return static_cast<std::int64_t>(booked_buffer_bytes() - before);
}

// A text with a buffer of capacity 104.
std::string long_text() {
    return std::string(100, 'x');
}

// Brings the total up to its high-water mark, so that the next addition shows.
class AtHighWaterMark {
public:
    AtHighWaterMark() : filler_('x', static_cast<int>(st_dwMostLargeSize - booked_buffer_bytes()) + 64) {
        EXPECT_EQ(st_dwMostLargeSize, booked_buffer_bytes());
    }

private:
    CExtString filler_;
};

// How far an operation raises the mark.
template <typename Operation>
std::int64_t raised_by(Operation operation) {
    const AtHighWaterMark at_mark;
    const std::uint64_t before = st_dwMostLargeSize;
    operation();
    return static_cast<std::int64_t>(st_dwMostLargeSize - before);
}

}  // namespace

// --- amounts --------------------------------------------------------------------------------------------------------

TEST(ExtStringStatistics, ConstructionAddsCapacityAndOne) {
    StringProbe s;
    const CExtString source("abc");
    EXPECT_EQ(booked_by([&] { new (&s) StringProbe(); }), 0);
    EXPECT_EQ(booked_by([&] { s.FillCharacter('x', 8); }), 17);
    EXPECT_EQ(booked_by([&] { CExtString copy(source); }), 9 - 8);
    EXPECT_EQ(booked_by([&] { CExtString copy('x', 0); }), 9 - 8);
    EXPECT_EQ(booked_by([&] { CExtString copy("12345678"); }), 17 - 16);
    EXPECT_EQ(booked_by([&] { CExtString copy("12345678", 3); }), 9 - 8);
    EXPECT_EQ(booked_by([&] { CExtString copy(""); }), 0);
    EXPECT_EQ(booked_by([&] { CExtString copy(CExtString('x', 0)); }), 1);
}

TEST(ExtStringStatistics, FillCharacterWithoutCapacityAddsOne) {
    StringProbe s;
    EXPECT_EQ(booked_by([&] { s.FillCharacter('x', -8); }), 1);
    EXPECT_EQ(booked_by([&] { s.Empty(); }), 0);
}

TEST(ExtStringStatistics, EmptyingSubtractsTheCapacity) {
    CExtString s("12345678");
    EXPECT_EQ(booked_by([&] { s.Empty(); }), -16);
    EXPECT_EQ(booked_by([&] { s.Empty(); }), 0);
}

TEST(ExtStringStatistics, ReplacingAddsTheNewAndSubtractsTheOld) {
    CExtString s(long_text().c_str());
    EXPECT_EQ(booked_by([&] { s = "abc"; }), 9 - 104);
    EXPECT_EQ(booked_by([&] { s = "abc"; }), 1);
    EXPECT_EQ(booked_by([&] { s.CreateFromString("12345678"); }), 17 - 8);
    EXPECT_EQ(booked_by([&] { s.CreateFromStringLen("12345678", 7); }), 9 - 16);
    EXPECT_EQ(booked_by([&] { s = 'c'; }), 9 - 8);
    EXPECT_EQ(booked_by([&] { s.CreateFromCharacters('c', 8); }), 17 - 8);
    EXPECT_EQ(booked_by([&] { s.Format("%d", 5); }), 9 - 16);
    EXPECT_EQ(booked_by([&] { s = ""; }), -8);
}

TEST(ExtStringStatistics, CopyingReplacesLikeATextDoes) {
    CExtString s("12345678");
    const CExtString other("abc");
    EXPECT_EQ(booked_by([&] { s = other; }), 9 - 16);
    EXPECT_EQ(booked_by([&] { s.CopyData(other); }), 1);
    const CExtString& same = s;
    EXPECT_EQ(booked_by([&] { s = same; }), 1);
    EXPECT_EQ(booked_by([&] { s.CopyData(CExtString()); }), -8);
}

TEST(ExtStringStatistics, GrowthAddsTheDifferenceAndOne) {
    CExtString s("1234567");
    EXPECT_EQ(booked_by([&] { s.ConcatString("8"); }), 16 - 8 + 1);
    EXPECT_EQ(booked_by([&] { s.ConcatString("9"); }), 0);
    EXPECT_EQ(booked_by([&] { s.ConcatStringLen("1234567", 7); }), 24 - 16 + 1);
    EXPECT_EQ(booked_by([&] { s.ConcatCharacters('x', 100); }), 120 - 24 + 1);
    const CExtString other("1234");
    EXPECT_EQ(booked_by([&] { s.ConcatObject(other); }), 128 - 120 + 1);
}

TEST(ExtStringStatistics, CharacterByCharacterEachGrowthBooksNine) {
    CExtString s("1234567");
    for (int n = 8; n < 200; ++n) {
        EXPECT_EQ(booked_by([&] { s += 'x'; }), n % 8 == 0 ? 9 : 0) << n;
    }
}

TEST(ExtStringStatistics, AppendingToAnEmptyStringReleasesItsBuffer) {
    CExtString s('x', 0);
    EXPECT_EQ(booked_by([&] { s.ConcatString("abc"); }), 9 - 8);
    s.CreateFromCharacters('x', 0);
    EXPECT_EQ(booked_by([&] { s.ConcatCharacters('y', 1); }), 9 - 8);
    s.CreateFromCharacters('x', 0);
    EXPECT_EQ(booked_by([&] { s.ConcatString(""); }), -8);
}

TEST(ExtStringStatistics, PartsBookTheirOwnBuffer) {
    const CExtString s(long_text().c_str());
    EXPECT_EQ(booked_by([&] { s.Left(-1); }), 1);
    CExtString kept;
    EXPECT_EQ(booked_by([&] { new (&kept) CExtString(s.Mid(3, 10)); }), 17);
    EXPECT_EQ(booked_by([&] { s.Right(0); }), 0);
}

TEST(ExtStringStatistics, TrimsBookTheFreshBufferAndTheCopy) {
    CExtString s("  1234567");
    EXPECT_EQ(booked_by([&] { s.TrimLeft(); }), (9 - 16) + (9 - 8));
    EXPECT_EQ(booked_by([&] { s.TrimRight(); }), (9 - 8) + (9 - 8));
    EXPECT_EQ(booked_by([&] { s.TrimAll(); }), (9 - 8) + (9 - 8));
    EXPECT_EQ(booked_by([&] { s.TrimAll("1234567"); }), -8);
}

TEST(ExtStringStatistics, ChangesInPlaceBookNothing) {
    CExtString s("abc\n");
    EXPECT_EQ(booked_by([&] {
                  s.ChangeUpper();
                  s.ChangeLower();
                  s.Reverse();
                  s.SetAt(1, 'x');
                  s.Reverse();
                  s.Chomp(true);
                  s.Chomp(false);
              }),
              0);
}

TEST(ExtStringStatistics, PlusBooksTheCopyAndItsGrowth) {
    const CExtString left("1234567"), right("8");
    EXPECT_EQ(booked_by([&] { left + right; }), 9 + (16 - 8 + 1) - 16);
    EXPECT_EQ(booked_by([&] { left + '8'; }), 9 + (16 - 8 + 1) - 16);
    EXPECT_EQ(booked_by([&] { "1234567" + right; }), 9 + (16 - 8 + 1) - 16);
}

TEST(ExtStringStatistics, AnEmptyFormatBooksItsBuffer) {
    CExtString s;
    EXPECT_EQ(booked_by([&] { s.Format("%s", ""); }), 9);
    EXPECT_EQ(booked_by([&] { s.Format("%s", ""); }), 9 - 8);
}

TEST(ExtStringStatistics, ATemplateBooksItsAppends) {
    CExtStrArray values;
    values.Add("12345");
    CExtString s(long_text().c_str());
    EXPECT_EQ(booked_by([&] { s.ExtFormat("<%1%%1%>", values); }), -104 + 9 + (16 - 8 + 1));
}

TEST(ExtStringStatistics, SwappingBooksNothingAndDetachingReleases) {
    CExtString a("abc"), b(long_text().c_str());
    EXPECT_EQ(booked_by([&] { orvil::detail::StringAccess::swap(a, b); }), 0);
    EXPECT_EQ(booked_by([&] { const orvil::detail::FormerBuffer former(a); }), -104);
    EXPECT_EQ(booked_by([&] { const orvil::detail::FormerBuffer former(a); }), 0);
}

// --- order, which the high-water mark shows -------------------------------------------------------------------------

TEST(ExtStringHighWaterMark, AssignmentAddsBeforeItSubtracts) {
    CExtString s;
    const CExtString other("abc");
    const auto refill = [&] { s = long_text().c_str(); };
    refill();
    EXPECT_EQ(raised_by([&] { s = "abc"; }), 9);
    refill();
    EXPECT_EQ(raised_by([&] { s = other; }), 9);
    refill();
    EXPECT_EQ(raised_by([&] { s.CreateFromString("abc"); }), 9);
    refill();
    EXPECT_EQ(raised_by([&] { s.CopyData(other); }), 9);
}

TEST(ExtStringHighWaterMark, TrimsAddBeforeTheySubtract) {
    CExtString s((long_text() + " ").c_str());
    EXPECT_EQ(raised_by([&] { s.TrimRight("x "); }), 0);
    s = "  abc";
    EXPECT_EQ(raised_by([&] { s.TrimAll(); }), 9 - 8 + 9);
}

TEST(ExtStringHighWaterMark, CharactersAndFormatsSubtractFirst) {
    CExtString s;
    CExtStrArray values;
    const auto refill = [&] { s = long_text().c_str(); };
    refill();
    EXPECT_EQ(raised_by([&] { s = 'c'; }), 0);
    refill();
    EXPECT_EQ(raised_by([&] { s.CreateFromCharacters('c', 3); }), 0);
    refill();
    EXPECT_EQ(raised_by([&] { s.Format("%d", 5); }), 0);
    refill();
    EXPECT_EQ(raised_by([&] { s.ExtFormat("%1%", values); }), 0);
}

TEST(ExtStringHighWaterMark, ItIsRaisedByGrowth) {
    CExtString s("1234567");
    EXPECT_EQ(raised_by([&] { s += "8"; }), 9);
}

TEST(ExtStringHighWaterMark, TheLargestRequestIsCapacityAndOne) {
    const int length = static_cast<int>(st_dwMoreLargeSize) + 100;
    CExtString s('x', length);
    EXPECT_EQ(st_dwMoreLargeSize, static_cast<std::uint64_t>(capacity_of(s)) + 1);
    s += s;
    EXPECT_EQ(st_dwMoreLargeSize, static_cast<std::uint64_t>(capacity_of(s)) + 1);
}
