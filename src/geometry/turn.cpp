// Rotations, with the last one kept: hosts turn whole drawings by one angle.
#include <atomic>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "geometry/plane_math.h"

namespace orvil {

namespace {

std::uint64_t bits_of(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

// The last rotation of all threads, in a sequence lock: the version is odd while a thread writes, and a reader that
// finds it changed has read nothing. Nobody waits.
class LastTurn {
public:
    bool read(std::uint64_t angle, Turn& turn) const {
        const std::uint32_t before = version_.load(std::memory_order_acquire);
        const bool same = angle_.load(std::memory_order_relaxed) == angle;
        turn.cosine = cosine_.load(std::memory_order_relaxed);
        turn.sine = sine_.load(std::memory_order_relaxed);
        std::atomic_thread_fence(std::memory_order_acquire);
        return same && before % 2 == 0 && version_.load(std::memory_order_relaxed) == before;
    }

    void write(std::uint64_t angle, const Turn& turn) {
        std::uint32_t before = version_.load(std::memory_order_relaxed);
        if (before % 2 != 0 || !version_.compare_exchange_strong(before, before + 1, std::memory_order_relaxed)) {
            return;
        }
        std::atomic_thread_fence(std::memory_order_release);
        angle_.store(angle, std::memory_order_relaxed);
        cosine_.store(turn.cosine, std::memory_order_relaxed);
        sine_.store(turn.sine, std::memory_order_relaxed);
        version_.store(before + 2, std::memory_order_release);
    }

private:
    std::atomic<std::uint32_t> version_{0};
    std::atomic<std::uint64_t> angle_{0};  // the bits of 0.0
    std::atomic<double> cosine_{1.0};
    std::atomic<double> sine_{0.0};
};

LastTurn last_turn;

}  // namespace

Turn turn_by(double angle) {
    Turn turn{};
    const std::uint64_t bits = bits_of(angle);
    if (!last_turn.read(bits, turn)) {
        turn = {std::cos(angle), std::sin(angle)};
        last_turn.write(bits, turn);
    }
    return turn;
}

}  // namespace orvil
