// Memory for the nodes of trees, which are made and freed by the million.
#pragma once

#include <cstddef>

namespace orvil::detail {

// A block for one node, or null. It is no string buffer: neither the statistics nor a private heap know of it, so that
// nodes may outlive the heap.
void* allocate_node(std::size_t size);

// Takes a block of allocate_node() back; null is ignored.
void free_node(void* node);

}  // namespace orvil::detail
