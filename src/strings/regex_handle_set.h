// The addresses of the cached patterns, so that a handle is known without reading what it points to.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvil::detail {

// A hash set with open addressing, at most half full. It has no destructor: clear() releases its memory.
class RegexHandleSet {
public:
    bool contains(const void* address) const {
        if (address == nullptr || slots_ == nullptr) {
            return false;
        }
        std::size_t slot = home_of(address);
        while (slots_[slot] != nullptr && slots_[slot] != address) {
            slot = next(slot);
        }
        return slots_[slot] == address;
    }

    // False when there is no memory; then the set is as it was. The address is neither null nor in the set.
    bool insert(const void* address);

    void erase(const void* address);

    void clear();

private:
    std::size_t home_of(const void* address) const {
        const auto bits = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(address));
        return static_cast<std::size_t>((bits * 0x9E3779B97F4A7C15u) >> 32) & mask_;
    }
    std::size_t next(std::size_t slot) const { return (slot + 1) & mask_; }
    bool grow();
    void place(const void* address);

    const void** slots_ = nullptr;  // mask_ + 1 of them, a power of two
    std::size_t mask_ = 0;
    std::size_t count_ = 0;
};

}  // namespace orvil::detail
