// Memory for the nodes of trees and their lists of children, which are made and freed by the million.
//
// It is the C runtime's, in a pool but for large blocks: neither the statistics nor a private heap know of it, so that
// nodes may outlive the heap.
#pragma once

#include <cstddef>

namespace orvil::detail {

// A block with undefined content, or null.
void* allocate_node(std::size_t size);

// A zero-filled block, or null.
void* allocate_cleared(std::size_t size);

// Moves a block of `held` bytes into a larger one of `size`, whose new bytes hold anything. Null when there is no
// memory; then the block is as it was.
void* resize_node(void* block, std::size_t held, std::size_t size);

// Takes a block back; null is ignored.
void free_node(void* node);

}  // namespace orvil::detail
