#include <bit>
#include <cstddef>

#include "orvil/strings/slot_array.h"
#include "runtime/node_memory.h"

namespace orvil::detail {

std::size_t RuntimeSlots::Reserve(int capacity) {
    return capacity < 16 ? 4 : std::bit_ceil(static_cast<std::size_t>(capacity));
}

void* RuntimeSlots::Allocate(int capacity) {
    return allocate_cleared(Reserve(capacity) * sizeof(void*));
}

void* RuntimeSlots::Grow(void* block, int from, int to) {
    const std::size_t held = Reserve(from);
    const std::size_t wanted = Reserve(to);
    return held == wanted ? block : resize_node(block, held * sizeof(void*), wanted * sizeof(void*));
}

void RuntimeSlots::Free(void* block, int capacity) {
    if (block != nullptr) {
        free_node(block, Reserve(capacity) * sizeof(void*));
    }
}

}  // namespace orvil::detail
