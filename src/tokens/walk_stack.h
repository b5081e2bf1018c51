// The explicit stack of a walk over a tree: it takes the place of recursion, so that nesting is bounded by memory
// alone.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <type_traits>

namespace orvil::detail {

// Shallow walks stay within the object itself; deeper ones take memory from the C runtime. References to items are
// invalidated by push().
template <typename Item>
class WalkStack {
    static_assert(std::is_trivially_copyable_v<Item> && std::is_trivially_destructible_v<Item>);

public:
    WalkStack() = default;
    ~WalkStack() {
        if (items_ != inline_items()) {
            std::free(items_);
        }
    }
    WalkStack(const WalkStack&) = delete;
    WalkStack& operator=(const WalkStack&) = delete;

    bool empty() const { return size_ == 0; }
    std::size_t size() const { return size_; }
    Item& top() { return items_[size_ - 1]; }
    void pop() { --size_; }

    // False when there is no memory; then nothing has changed.
    bool push(const Item& item) {
        if (size_ == capacity_ && !grow()) {
            return false;
        }
        items_[size_++] = item;
        return true;
    }

private:
    static constexpr std::size_t kInlineItems = 24;

    Item* inline_items() { return reinterpret_cast<Item*>(inline_bytes_); }

    bool grow() {
        void* block = std::malloc(2 * capacity_ * sizeof(Item));
        if (block == nullptr) {
            return false;
        }
        std::memcpy(block, items_, size_ * sizeof(Item));
        if (items_ != inline_items()) {
            std::free(items_);
        }
        items_ = static_cast<Item*>(block);
        capacity_ *= 2;
        return true;
    }

    alignas(Item) unsigned char inline_bytes_[kInlineItems * sizeof(Item)];
    Item* items_ = inline_items();
    std::size_t size_ = 0;
    std::size_t capacity_ = kInlineItems;
};

}  // namespace orvil::detail
