// A text that grows, for results whose length is not known beforehand. It says when there is no memory instead of
// throwing: a C runtime without memory cannot always throw.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace orvil::detail {

class BoundedText {
public:
    // A text of at most `longest` bytes; appending more fails as if there were no memory.
    explicit BoundedText(std::size_t longest) : longest_(longest) {}
    ~BoundedText() { std::free(bytes_); }
    BoundedText(const BoundedText&) = delete;
    BoundedText& operator=(const BoundedText&) = delete;

    // Its data is never null.
    std::string_view view() const { return {bytes_ != nullptr ? bytes_ : "", length_}; }
    std::size_t length() const { return length_; }

    // False when there is no memory, for good: the text is then incomplete and stays so.
    bool append(std::string_view text) {
        if (failed_ || text.size() > longest_ - length_ || !reserve(length_ + text.size())) {
            return fail();
        }
        if (!text.empty()) {
            std::memcpy(bytes_ + length_, text.data(), text.size());
            length_ += text.size();
        }
        return true;
    }

    // Makes the text incomplete. False, like the append that it stands for.
    bool fail() {
        failed_ = true;
        return false;
    }
    bool failed() const { return failed_; }

    void cut(std::size_t length) { length_ = length; }

private:
    bool reserve(std::size_t length) {
        if (length <= capacity_) {
            return true;
        }
        const std::size_t capacity = length + length / 2 + 64;
        void* bytes = std::realloc(bytes_, capacity);
        if (bytes == nullptr) {
            return false;
        }
        bytes_ = static_cast<char*>(bytes);
        capacity_ = capacity;
        return true;
    }

    char* bytes_ = nullptr;
    std::size_t length_ = 0;
    std::size_t capacity_ = 0;
    std::size_t longest_;
    bool failed_ = false;
};

}  // namespace orvil::detail
