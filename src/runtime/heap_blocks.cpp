// The blocks behind orv_heap_alloc() and its fellows.
//
// In mode 1 every block is one of the C runtime's. In the other modes small blocks come from a pool that takes its
// chunks from the heap, and large ones carry a record in front, so that a text that grows by eight bytes at a time is
// moved a logarithmic number of times only.
#include <cstdlib>
#include <cstring>

#include "orvil/runtime/heap.h"
#include "platform/platform.h"
#include "runtime/block_pool.h"
#include "runtime/heap_state.h"
#include "runtime/node_memory.h"
#include "runtime/text_memory.h"

namespace orvil::detail {
namespace {

void* obtain_from_heap(std::size_t size) {
    return heap.is_private() ? platform::heap_alloc(heap.handle, size) : std::calloc(1, size);
}

void* resize_in_heap(void* memory, std::size_t size) {
    return heap.is_private() ? platform::heap_realloc(heap.handle, memory, size) : std::realloc(memory, size);
}

void release_to_heap(void* memory) {
    if (heap.is_private()) {
        platform::heap_free(heap.handle, memory);
    } else {
        std::free(memory);
    }
}

void* obtain_chunk_from_heap(std::size_t size) {
    return heap.is_private() ? platform::heap_alloc(heap.handle, size) : std::malloc(size);
}

// The record in front of a large block. What lies between the two sizes is zero in a private heap.
struct alignas(16) LargeBlock {
    std::size_t physical;
    std::size_t requested;
};

LargeBlock* record_of(void* block) {
    return static_cast<LargeBlock*>(block) - 1;
}

void* allocate_large(std::size_t size) {
    if (size > SIZE_MAX - sizeof(LargeBlock)) {
        return nullptr;
    }
    auto* record = static_cast<LargeBlock*>(obtain_from_heap(sizeof(LargeBlock) + size));
    if (record == nullptr) {
        return nullptr;
    }
    *record = {size, size};
    return record + 1;
}

constinit BlockPool::PageMap small_block_pages = {};
constinit BlockPool::PageMap node_pages = {};

}  // namespace

// Large trees are made and released in less time where the system maps them by large pages.
constinit BlockPool small_blocks({obtain_chunk_from_heap, release_to_heap, platform::prefer_large_pages},
                                 small_block_pages);

// Nodes outlive a private heap that a host has destroyed: their chunks are always the C runtime's.
constinit BlockPool nodes({std::malloc, std::free, platform::prefer_large_pages}, node_pages, alignof(void*));

namespace {

void* allocate(std::size_t size) {
    return size <= BlockPool::kLargestBlock ? small_blocks.allocate(size) : allocate_large(size);
}

void* resize_small(void* block, std::size_t size) {
    const std::size_t held = BlockPool::block_size(block);
    if (size <= held) {
        std::memset(static_cast<char*>(block) + size, 0, held - size);
        return block;
    }
    void* moved = allocate(size);
    if (moved != nullptr) {
        std::memcpy(moved, block, held);
        small_blocks.release(block);
    }
    return moved;
}

// Moves a text out of the room behind its node.
void* resize_roomed(const void* block, std::size_t size) {
    void* moved = allocate(size < kTextRoom ? kTextRoom : size);
    if (moved != nullptr) {
        std::memcpy(moved, block, kTextRoom);
    }
    return moved;
}

void* resize_large(void* block, std::size_t size) {
    LargeBlock* record = record_of(block);
    if (size <= record->physical) {
        if (size < record->requested) {
            std::memset(static_cast<char*>(block) + size, 0, record->requested - size);
        }
        record->requested = size;
        return block;
    }
    if (size > SIZE_MAX / 2) {
        return nullptr;
    }
    std::size_t physical = record->physical + record->physical / 2;
    physical = physical < size ? size : physical;
    void* moved = resize_in_heap(record, sizeof(LargeBlock) + physical);
    if (moved == nullptr && physical > size) {
        physical = size;
        moved = resize_in_heap(record, sizeof(LargeBlock) + physical);
    }
    if (moved == nullptr) {
        return nullptr;
    }
    record = static_cast<LargeBlock*>(moved);
    *record = {physical, size};
    return record + 1;
}

// Every block in a mode above 1 is of the pool or carries a record.
bool is_plain() {
    return heap.mode == kRuntimeHeap;
}

// A private heap that could not be created, or has been destroyed, serves nothing and drops what comes back.
bool is_gone() {
    return heap.is_private() && heap.handle == nullptr;
}

}  // namespace

void abandon_small_blocks() {
    small_blocks.abandon();
}

void trim_heap() {
    if (!is_gone()) {
        small_blocks.trim();
    }
    nodes.trim();
}

void* allocate_block(std::size_t size) {
    ensure_heap();
    if (is_gone()) {
        return nullptr;
    }
    return is_plain() ? std::calloc(1, size) : allocate(size);
}

void* allocate_node_seldom(std::size_t size) {
    ensure_heap();
    return is_plain() || size > BlockPool::kLargestBlock ? std::malloc(size) : nodes.allocate_dirty(size);
}

void* allocate_cleared_seldom(std::size_t size) {
    ensure_heap();
    return is_plain() || size > BlockPool::kLargestBlock ? std::calloc(1, size) : nodes.allocate(size);
}

void* resize_node(void* block, std::size_t held, std::size_t size) {
    if (!nodes.owns(block)) {
        return std::realloc(block, size);
    }
    void* moved = allocate_node(size);
    if (moved != nullptr) {
        std::memcpy(moved, block, held);
        nodes.release(block);
    }
    return moved;
}

void free_node(void* node) {
    if (nodes.owns(node)) {
        nodes.release(node);
    } else {
        std::free(node);
    }
}

}  // namespace orvil::detail

using namespace orvil::detail;

void* orv_heap_alloc(size_t size) {
    return allocate_text(size);
}

void* orv_heap_realloc(void* block, size_t size) {
    note_request(size);
    ensure_heap();
    if (is_gone()) {
        return nullptr;
    }
    if (is_plain()) {
        return std::realloc(block, size);
    }
    if (block == nullptr) {
        return allocate(size);
    }
    if (small_blocks.owns(block)) {
        return resize_small(block, size);
    }
    return nodes.owns(block) ? resize_roomed(block, size) : resize_large(block, size);
}

void orv_heap_free(void* block) {
    if (block == nullptr) {
        return;
    }
    ensure_heap();
    if (is_gone()) {
        return;
    }
    if (is_plain()) {
        std::free(block);
    } else if (small_blocks.owns(block)) {
        small_blocks.release(block);
    } else if (!nodes.owns(block)) {
        release_to_heap(record_of(block));
    }
}
