// Texts that are kept in an arena.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "options/arena.h"

namespace orvil::detail {

// A copy with a zero behind it; null when there is no memory.
const char* keep_text(Arena& arena, std::string_view text);

// A text that is replaced many times: room that it once had is used again.
class KeptText {
public:
    const char* get() const { return bytes_ == nullptr ? "" : bytes_; }
    // Becomes the parts, one behind the other; empty when there is no memory.
    void assign(Arena& arena, std::initializer_list<std::string_view> parts);

private:
    bool make_room(Arena& arena, std::size_t size);

    char* bytes_ = nullptr;
    std::size_t capacity_ = 0;
};

// A growing array of texts.
class KeptTexts {
public:
    int count() const { return count_; }
    // The text at an index; null when there is none.
    const char* at(int i) const { return i < 0 || i >= count_ ? nullptr : texts_[i]; }
    // Appends a copy, or nothing when there is no memory.
    void add(Arena& arena, std::string_view text);

private:
    bool make_room(Arena& arena);

    const char** texts_ = nullptr;
    int count_ = 0;
    int capacity_ = 0;
};

}  // namespace orvil::detail
