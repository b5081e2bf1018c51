// The heap's state, shared by its life cycle (heap.cpp) and its blocks (heap_blocks.cpp).
#pragma once

#include <cstdint>

namespace orvil::detail {

inline constexpr std::uint32_t kRuntimeHeap = 1;
inline constexpr std::uint32_t kRuntimeHeapByFallback = 2;
inline constexpr std::uint32_t kPrivateHeap = 3;
inline constexpr std::uint32_t kPrivateHeapLowFragmentation = 4;

struct HeapState {
    std::uint32_t mode = kPrivateHeapLowFragmentation;
    void* handle = nullptr;
    bool initialised = false;  // never cleared again, so that no second heap is made
    bool pools_texts = false;  // small blocks come from their pool
    bool pools_nodes = false;  // nodes do, also when the private heap has gone

    bool is_private() const { return mode >= kPrivateHeap; }
};

extern HeapState heap;

// Makes the heap ready, falling back to the C runtime where a private heap cannot be had.
void make_heap_ready();

inline void ensure_heap() {
    if (!heap.initialised) {
        make_heap_ready();
    }
}

// Destroys the private heap and forgets its handle; the result is that of orv_heap_term().
std::uint32_t destroy_private_heap();

// The pool of small blocks has gone with the private heap.
void abandon_small_blocks();

// Gives memory without a living block back, when the library is unloaded.
void trim_heap();

}  // namespace orvil::detail
