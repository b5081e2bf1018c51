#include "options/kept_text.h"

#include <algorithm>
#include <climits>

namespace orvil::detail {

const char* keep_text(Arena& arena, std::string_view text) {
    char* copy = static_cast<char*>(arena.take(text.size() + 1, 1));
    if (copy != nullptr) {
        *std::copy(text.begin(), text.end(), copy) = '\0';
    }
    return copy;
}

// --- KeptText --------------------------------------------------------------------------------------------------------

void KeptText::assign(Arena& arena, std::initializer_list<std::string_view> parts) {
    std::size_t length = 0;
    for (std::string_view part : parts) {
        length += part.size();
    }
    if (!make_room(arena, length + 1)) {
        *this = KeptText();
        return;
    }
    char* end = bytes_;
    for (std::string_view part : parts) {
        end = std::copy(part.begin(), part.end(), end);
    }
    *end = '\0';
}

// Doubling keeps what is given up within the size of the longest text.
bool KeptText::make_room(Arena& arena, std::size_t size) {
    if (size <= capacity_) {
        return true;
    }
    const std::size_t capacity = std::max(size, 2 * capacity_);
    char* bytes = static_cast<char*>(arena.take(capacity, 1));
    if (bytes == nullptr) {
        return false;
    }
    bytes_ = bytes;
    capacity_ = capacity;
    return true;
}

// --- KeptTexts -------------------------------------------------------------------------------------------------------

void KeptTexts::add(Arena& arena, std::string_view text) {
    if (count_ == capacity_ && !make_room(arena)) {
        return;
    }
    const char* copy = keep_text(arena, text);
    if (copy != nullptr) {
        texts_[count_++] = copy;
    }
}

bool KeptTexts::make_room(Arena& arena) {
    const int capacity = std::min(std::max(8, capacity_), INT_MAX / 2) * 2;
    void* memory = arena.take(static_cast<std::size_t>(capacity) * sizeof(char*), alignof(char*));
    if (memory == nullptr || capacity == capacity_) {
        return false;
    }
    std::copy_n(texts_, count_, static_cast<const char**>(memory));
    texts_ = static_cast<const char**>(memory);
    capacity_ = capacity;
    return true;
}

}  // namespace orvil::detail
