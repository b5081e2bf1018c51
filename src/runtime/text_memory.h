// Memory for short texts, which are made and freed by the million: orv_heap_alloc() and orv_heap_free() without a call.
#pragma once

#include "orvil/runtime/heap.h"
#include "runtime/block_pool.h"
#include "runtime/heap_state.h"

namespace orvil::detail {

// The pool behind orv_heap_alloc() and its fellows.
extern BlockPool small_blocks;

// orv_heap_alloc() for all requests but those that the pool serves.
void* allocate_block(std::size_t size);

inline void note_request(std::size_t size) {
    if (size > st_dwMoreLargeSize) {
        st_dwMoreLargeSize = size;
    }
}

inline void* allocate_text(std::size_t size) {
    note_request(size);
    return heap.pools_texts && size <= BlockPool::kLargestBlock ? small_blocks.allocate(size) : allocate_block(size);
}

// Frees a block of this size: the size that was asked for, or the last one to which it grew. The block has never been
// made smaller, and is no text behind a node.
inline void free_text(void* block, std::size_t size) {
    if (heap.pools_texts && size <= BlockPool::kLargestBlock) {
        small_blocks.release(block);
    } else {
        orv_heap_free(block);
    }
}

}  // namespace orvil::detail
