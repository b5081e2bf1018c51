#include "geometry/turn.h"

#include <cmath>

namespace orvil {

LastTurn last_turn;

// While another thread writes, this rotation is not kept.
void LastTurn::write(std::uint64_t angle, const Turn& turn) {
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

Turn new_turn(double angle) {
    const Turn turn{std::cos(angle), std::sin(angle)};
    std::uint64_t bits = 0;
    std::memcpy(&bits, &angle, sizeof bits);
    last_turn.write(bits, turn);
    return turn;
}

}  // namespace orvil
