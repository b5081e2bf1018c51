// Rotations, with the last one kept: hosts turn whole drawings by one angle.
#pragma once

#include <atomic>
#include <cstdint>
#include <cstring>

namespace orvil {

// A rotation, as the cosine and sine of its angle.
struct Turn {
    double cosine;
    double sine;
};

// The last rotation of all threads, in a sequence lock: the version is odd while a thread writes, and a reader that
// finds it changed has read nothing. Nobody waits.
class LastTurn {
public:
    // Whether `turn` now is the rotation by the angle of these bits.
    bool read(std::uint64_t angle, Turn& turn) const {
        const std::uint32_t before = version_.load(std::memory_order_acquire);
        const bool same = angle_.load(std::memory_order_relaxed) == angle;
        turn.cosine = cosine_.load(std::memory_order_relaxed);
        turn.sine = sine_.load(std::memory_order_relaxed);
        std::atomic_thread_fence(std::memory_order_acquire);
        return same && before % 2 == 0 && version_.load(std::memory_order_relaxed) == before;
    }

    void write(std::uint64_t angle, const Turn& turn);

private:
    std::atomic<std::uint32_t> version_{0};
    std::atomic<std::uint64_t> angle_{0};  // the bits of 0.0
    std::atomic<double> cosine_{1.0};
    std::atomic<double> sine_{0.0};
};

extern LastTurn last_turn;

// Computes a rotation and keeps it.
Turn new_turn(double angle);

// Whether `angle` was the last one asked for, and the rotation by it.
inline bool is_last_turn(double angle, Turn& turn) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &angle, sizeof bits);
    return last_turn.read(bits, turn);
}

// The rotation by an angle in radians. Asking for the same angle again and again costs next to nothing.
inline Turn turn_by(double angle) {
    Turn turn{};
    return is_last_turn(angle, turn) ? turn : new_turn(angle);
}

}  // namespace orvil
