#include "strings/regex_handle_set.h"

#include <cstdlib>

namespace orvil::detail {

bool RegexHandleSet::insert(const void* address) {
    if ((slots_ == nullptr || (count_ + 1) * 2 > mask_ + 1) && !grow()) {
        return false;
    }
    place(address);
    ++count_;
    return true;
}

bool RegexHandleSet::grow() {
    const std::size_t old_size = slots_ == nullptr ? 0 : mask_ + 1;
    const std::size_t size = old_size == 0 ? 32 : old_size * 2;
    auto** slots = static_cast<const void**>(std::calloc(size, sizeof(const void*)));
    if (slots == nullptr) {
        return false;
    }
    const void** old_slots = slots_;
    slots_ = slots;
    mask_ = size - 1;
    for (std::size_t i = 0; i < old_size; ++i) {
        if (old_slots[i] != nullptr) {
            place(old_slots[i]);
        }
    }
    std::free(old_slots);
    return true;
}

void RegexHandleSet::place(const void* address) {
    std::size_t slot = home_of(address);
    while (slots_[slot] != nullptr) {
        slot = next(slot);
    }
    slots_[slot] = address;
}

// The addresses behind the freed slot, up to the next free one, are placed anew: a search that starts at one of their
// home slots must not meet a gap.
void RegexHandleSet::erase(const void* address) {
    if (!contains(address)) {
        return;
    }
    std::size_t slot = home_of(address);
    while (slots_[slot] != address) {
        slot = next(slot);
    }
    slots_[slot] = nullptr;
    --count_;
    for (slot = next(slot); slots_[slot] != nullptr; slot = next(slot)) {
        const void* moved = slots_[slot];
        slots_[slot] = nullptr;
        place(moved);
    }
}

void RegexHandleSet::clear() {
    std::free(slots_);
    *this = RegexHandleSet();
}

}  // namespace orvil::detail
