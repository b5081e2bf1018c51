// The rotation that is kept, as another thread would meet it.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "geometry/turn.h"

namespace {

using orvil::LastTurn;
using orvil::Turn;

std::uint64_t bits_of(double angle) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &angle, sizeof bits);
    return bits;
}

// The version stands first.
std::uint32_t version_of(const LastTurn& last) {
    std::uint32_t version = 0;
    std::memcpy(&version, static_cast<const void*>(&last), sizeof version);
    return version;
}

void set_version(LastTurn& last, std::uint32_t version) {
    std::memcpy(static_cast<void*>(&last), &version, sizeof version);
}

TEST(LastTurn, IsTheOneByZeroAtFirst) {
    const LastTurn last;
    Turn turn{};
    EXPECT_TRUE(last.read(bits_of(0.0), turn));
    EXPECT_EQ(turn.cosine, 1.0);
    EXPECT_EQ(turn.sine, 0.0);
    EXPECT_FALSE(last.read(bits_of(-0.0), turn));
}

TEST(LastTurn, IsTheOneThatWasWritten) {
    LastTurn last;
    last.write(bits_of(2.0), {0.25, 0.5});
    Turn turn{};
    EXPECT_FALSE(last.read(bits_of(0.0), turn));
    EXPECT_TRUE(last.read(bits_of(2.0), turn));
    EXPECT_EQ(turn.cosine, 0.25);
    EXPECT_EQ(turn.sine, 0.5);
}

TEST(LastTurn, IsNotReadWhileAThreadWrites) {
    LastTurn last;
    set_version(last, 7);
    Turn turn{};
    EXPECT_FALSE(last.read(bits_of(0.0), turn));
}

TEST(LastTurn, IsNotWrittenWhileAThreadWrites) {
    LastTurn last;
    set_version(last, 7);
    last.write(bits_of(2.0), {0.25, 0.5});
    EXPECT_EQ(version_of(last), 7U);
    set_version(last, 8);
    Turn turn{};
    EXPECT_TRUE(last.read(bits_of(0.0), turn));
    EXPECT_FALSE(last.read(bits_of(2.0), turn));
}

TEST(LastTurn, HasAnotherVersionAfterEachWrite) {
    LastTurn last;
    const std::uint32_t before = version_of(last);
    last.write(bits_of(2.0), {0.25, 0.5});
    EXPECT_EQ(version_of(last), before + 2);
    EXPECT_EQ(version_of(last) % 2, 0U);
}

}  // namespace
