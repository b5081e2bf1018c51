// Memory for the numbers of one computation: freed on every way out of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <type_traits>

namespace orvil::detail {

template <typename T>
class ScratchArray {
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

public:
    ScratchArray() = default;
    ~ScratchArray() { std::free(items_); }
    ScratchArray(const ScratchArray&) = delete;
    ScratchArray& operator=(const ScratchArray&) = delete;

    // Takes memory for `count` items of zero bytes, once. Returns false when there is none.
    bool allocate(std::size_t count) {
        items_ = static_cast<T*>(std::calloc(count > 0 ? count : 1, sizeof(T)));
        return items_ != nullptr;
    }

    T* data() { return items_; }
    const T* data() const { return items_; }
    T& operator[](std::size_t i) { return items_[i]; }
    const T& operator[](std::size_t i) const { return items_[i]; }

private:
    T* items_ = nullptr;
};

}  // namespace orvil::detail
