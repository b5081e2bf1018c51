// Memory for the nodes of trees and their lists of children, which are made and freed by the million.
//
// It is the C runtime's, in a pool but for large blocks: neither the statistics nor a private heap know of it, so that
// nodes may outlive the heap.
#pragma once

#include <cstddef>

#include "runtime/block_pool.h"
#include "runtime/heap_state.h"

namespace orvil::detail {

// Where nodes come from but in mode 1.
extern BlockPool nodes;

// Behind a node there may be room for a short text, which saves a block. Such a text goes with its node: for
// orv_heap_free() there is nothing to do, and orv_heap_realloc() moves it out.
inline constexpr std::size_t kTextRoom = 8;

inline bool nodes_have_room() {
    ensure_heap();
    return heap.pools_nodes;
}

// The same as the next two, where the pool does not serve.
void* allocate_node_seldom(std::size_t size);
void* allocate_cleared_seldom(std::size_t size);

// A block with undefined content, or null.
inline void* allocate_node(std::size_t size) {
    return heap.pools_nodes && size <= BlockPool::kLargestBlock ? nodes.allocate_dirty(size)
                                                                : allocate_node_seldom(size);
}

// A zero-filled block, or null.
inline void* allocate_cleared(std::size_t size) {
    return heap.pools_nodes && size <= BlockPool::kLargestBlock ? nodes.allocate(size) : allocate_cleared_seldom(size);
}

// Moves a block of `held` bytes into a larger one of `size`, whose new bytes hold anything. Null when there is no
// memory; then the block is as it was.
void* resize_node(void* block, std::size_t held, std::size_t size);

// Takes a block back; null is ignored.
void free_node(void* node);

// Takes back a block that was asked for with this size and never resized.
inline void free_node(void* node, std::size_t size) {
    if (heap.pools_nodes && size <= BlockPool::kLargestBlock) {
        nodes.release(node);
    } else {
        free_node(node);
    }
}

}  // namespace orvil::detail
