// The characters of a token while it is read.
#pragma once

#include <climits>
#include <cstdlib>
#include <cstring>

namespace orvil::detail {

// A text made of pieces. As long as they lie side by side in the stream's buffer nothing is copied; the first one that
// does not (behind an escape, a NUL or a dropped character) moves all into a block, which grows geometrically.
class LexemeBuilder {
public:
    LexemeBuilder() = default;
    ~LexemeBuilder() { std::free(block_); }
    LexemeBuilder(const LexemeBuilder&) = delete;
    LexemeBuilder& operator=(const LexemeBuilder&) = delete;

    // Starts anew. The block is kept for the next text.
    void clear() {
        data_ = nullptr;
        size_ = 0;
    }

    bool empty() const { return size_ == 0; }

    // Whether there ever was no memory.
    bool failed() const { return failed_; }
    const char* data() const { return data_; }
    int size() const { return static_cast<int>(size_); }

    // Adds bytes that stay where they are until the text has been used. False when there is no memory.
    bool append(const char* bytes, std::size_t size) {
        if (size == 0) {
            return true;
        }
        if (size_ == 0) {
            data_ = bytes;
            size_ = size;
            return true;
        }
        if (data_ + size_ == bytes && data_ != block_) {
            size_ += size;
            return true;
        }
        return append_copy(bytes, size);
    }

    // Adds a byte that may go away.
    bool append_byte(char byte) { return append_copy(&byte, 1); }

private:
    bool append_copy(const char* bytes, std::size_t size) {
        if (!make_room(size_ + size)) {
            failed_ = true;
            return false;
        }
        std::memcpy(block_ + size_, bytes, size);
        size_ += size;
        return true;
    }

    // Moves the text into the block, with room for `size` bytes in all.
    bool make_room(std::size_t size) {
        if (size > INT_MAX) {
            return false;
        }
        if (size > room_) {
            const bool inside = data_ == block_;
            const std::size_t room = size < kLeastRoom ? kLeastRoom : 2 * size;
            void* block = std::realloc(block_, room);
            if (block == nullptr) {
                return false;
            }
            data_ = inside ? static_cast<char*>(block) : data_;
            block_ = static_cast<char*>(block);
            room_ = room;
        }
        if (data_ != block_ && size_ > 0) {
            std::memcpy(block_, data_, size_);
        }
        data_ = block_;
        return true;
    }

    static constexpr std::size_t kLeastRoom = 256;

    const char* data_ = nullptr;
    std::size_t size_ = 0;
    char* block_ = nullptr;
    std::size_t room_ = 0;
    bool failed_ = false;
};

}  // namespace orvil::detail
