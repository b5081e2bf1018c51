// A growing run of bytes, for texts that are put together from many pieces.
#pragma once

#include <climits>
#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace orvil::detail {

// Grows by doubling, up to what a string can hold. A piece that does not fit changes nothing, and from then on nothing
// is taken: callers may look at good() once at the end.
class OutputText {
public:
    OutputText() = default;
    ~OutputText() { std::free(bytes_); }
    OutputText(const OutputText&) = delete;
    OutputText& operator=(const OutputText&) = delete;

    bool good() const { return good_; }
    std::size_t size() const { return size_; }
    const char* data() const { return bytes_; }

    void append(const char* text, std::size_t length) {
        if (length > 0 && reserve(length)) {
            std::memcpy(bytes_ + size_, text, length);
            size_ += length;
        }
    }
    void append(const char* text) { append(text, std::strlen(text)); }
    void append(std::size_t count, char c) {
        if (count > 0 && reserve(count)) {
            std::memset(bytes_ + size_, c, count);
            size_ += count;
        }
    }

    // Drops everything behind the first `size` bytes.
    void truncate(std::size_t size) { size_ = size; }

private:
    static constexpr std::size_t kFirstBlock = 256;
    static constexpr std::size_t kLimit = INT_MAX - 16;

    bool reserve(std::size_t more) {
        if (good_ && more <= capacity_ - size_) {
            return true;
        }
        good_ = good_ && more <= kLimit - size_ && grow(size_ + more);
        return good_;
    }

    bool grow(std::size_t least) {
        std::size_t capacity = capacity_ == 0 ? kFirstBlock : capacity_;
        while (capacity < least) {
            capacity *= 2;
        }
        void* block = std::realloc(bytes_, capacity);
        if (block == nullptr) {
            return false;
        }
        bytes_ = static_cast<char*>(block);
        capacity_ = capacity;
        return true;
    }

    char* bytes_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
    bool good_ = true;
};

}  // namespace orvil::detail
