// Memory that is taken piece by piece and given back all at once.
#pragma once

#include <cstddef>

namespace orvil::detail {

// What a usual command line needs is part of the object. More comes from the C runtime, so that it may outlive the
// library's heap. Arenas are static objects: the destructor releases nothing.
class Arena {
public:
    constexpr Arena() = default;
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    // Bytes of undefined content at an alignment up to that of a pointer; null when there is no memory.
    void* take(std::size_t size, std::size_t alignment) {
        const auto room = static_cast<std::size_t>(end_ - next_);
        const std::size_t padding = room % alignment;  // the end is aligned
        if (room - padding < size) {
            return take_from_fresh_block(size);
        }
        char* piece = next_ + padding;
        next_ = piece + size;
        return piece;
    }

    void release();

private:
    struct Block {
        Block* previous;
    };
    static constexpr std::size_t kFirstBlock = 4096;
    static constexpr std::size_t kSecondBlock = 4 * kFirstBlock;
    static constexpr std::size_t kLargestBlock = 256 * kFirstBlock;

    void* take_from_fresh_block(std::size_t size);
    void use(char* bytes, std::size_t size);

    char* next_ = nullptr;  // what is left of the block in use
    char* end_ = nullptr;
    Block* last_ = nullptr;
    std::size_t next_size_ = kSecondBlock;
    alignas(void*) char first_[kFirstBlock] = {};
};

}  // namespace orvil::detail
