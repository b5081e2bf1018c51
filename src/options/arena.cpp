#include "options/arena.h"

#include <algorithm>
#include <cstdint>
#include <new>

#include "runtime/node_memory.h"

namespace orvil::detail {

void Arena::use(char* bytes, std::size_t size) {
    next_ = bytes;
    end_ = bytes + size;
}

// Blocks double, so that there are few of them. What is left of the block before is given up.
void* Arena::take_from_fresh_block(std::size_t size) {
    if (next_ == nullptr && size <= kFirstBlock) {
        use(first_, kFirstBlock);
        return take(size, alignof(void*));
    }
    if (size > SIZE_MAX / 2) {
        return nullptr;
    }
    const std::size_t least = (size + alignof(void*) - 1) / alignof(void*) * alignof(void*);
    const std::size_t bytes = std::max(least, next_size_);
    void* memory = allocate_node(sizeof(Block) + bytes);
    if (memory == nullptr) {
        return nullptr;
    }
    last_ = new (memory) Block{last_};
    next_size_ = std::min(next_size_ * 2, kLargestBlock);
    use(reinterpret_cast<char*>(last_ + 1), bytes);
    return take(size, alignof(void*));
}

void Arena::release() {
    while (last_ != nullptr) {
        Block* block = last_;
        last_ = block->previous;
        free_node(block);
    }
    next_size_ = kSecondBlock;
    use(first_, kFirstBlock);
}

}  // namespace orvil::detail
