/// @file
/// The slots that CExtStrArray and CExtArray have in common. Hosts include those; this is where their protected members
/// are described.
#pragma once

#include <cstdint>
#include <cstring>

#include "orvil/export.h"

namespace orvil::detail {

/// Where CExtArray takes its slots from: the C runtime's memory, not the private heap of strings.
///
/// Behind the stated capacity stands a block of the next power of two of slots, so that appending one element at a time
/// takes amortised constant time although the capacity grows by sixteens. The reserve follows from the capacity alone.
struct ORVIL_API RuntimeSlots {
    /// @return the slots of the block behind @p capacity, which is at least 1
    static std::size_t Reserve(int capacity);
    /// @return a block for @p capacity slots, all null, or null
    static void* Allocate(int capacity);
    /// @return the block with room for @p to slots instead of @p from, or null, when @p block is as it was. The new
    /// slots hold anything.
    static void* Grow(void* block, int from, int to);
    /// Releases the block behind @p capacity; null is ignored.
    static void Free(void* block, int capacity);
};

/// A growable array of slots, each of which is null or owns one T made with `new`.
///
/// The capacity is a multiple of 16 (or 4, after AllocFew()), grows to the next one strictly above the size that is
/// asked for, and never shrinks until FreeArray(). Slots from the size up are null. Only pointers are moved, never
/// elements, so an element stays where it is until it is replaced or removed. T may be incomplete where an array is
/// declared as a member.
///
/// Everything here is protected: the classes on top decide what is public. Sizes that an int cannot hold are refused
/// like an allocation that fails.
template <typename T, typename Slots>
class SlotArray {
protected:
    SlotArray() = default;
    ~SlotArray() = default;
    SlotArray(const SlotArray&) = delete;
    SlotArray& operator=(const SlotArray&) = delete;

    /// The largest size whose capacity an int can hold.
    static constexpr int kLargestSize = INT32_MAX - 16;

    /// The capacity of an array that AllocFew() has begun.
    static constexpr int kFewSlots = 4;

    /// @return the capacity that @p n elements need when @p cap does not suffice, else 0. Negative when an int cannot
    /// hold it.
    static int CalcNewArraySize(int n, int cap) {
        if (n > kLargestSize) {
            return -1;
        }
        const int need = (n / 16 + 1) * 16;
        return cap < need ? need : 0;
    }

    /// Takes slots for @p n elements, all null, in place of what the array holds. @return false when @p n is negative
    /// or there is no memory; then the array is as it was
    bool AllocArray(int n) {
        const int capacity = n < 0 ? -1 : CalcNewArraySize(n, 0);
        void* block = capacity < 0 ? nullptr : Slots::Allocate(capacity);
        if (block == nullptr) {
            return false;
        }
        FreeArray();
        slots_ = static_cast<T**>(block);
        size_ = n;
        capacity_ = capacity;
        return true;
    }

    /// Takes a block of four slots, one of them in use, for an array without slots. @return false when there is no
    /// memory; then the array is as it was
    bool AllocFew() {
        void* block = Slots::Allocate(kFewSlots);
        if (block == nullptr) {
            return false;
        }
        slots_ = static_cast<T**>(block);
        size_ = 1;
        capacity_ = kFewSlots;
        return true;
    }

    /// Changes the size; the first slots ever come with a size of at least 1. Growing adds empty slots; shrinking
    /// leaves the slots beyond the size as they are, for callers to clear before. @return false when there is no
    /// memory; then the array is as it was
    bool ResizeArray(int n) {
        if (slots_ == nullptr && capacity_ == 0) {
            return AllocArray(n > 0 ? n : 1);
        }
        const int need = CalcNewArraySize(n, capacity_);
        if (need < 0 || (need > 0 && !GrowSlots(need))) {
            return false;
        }
        size_ = n;
        return true;
    }

    /// Grows the array, if need be, so that @p i is in range. @return false when @p i is negative or there is no
    /// memory; then the array is as it was
    bool ReachIndex(int i) { return IsIndex(i) || (i >= 0 && i < kLargestSize && ResizeArray(i + 1)); }

    /// Opens a gap of @p n empty slots at @p i, which stands at the end when @p i is not below the size. @return false
    /// when @p i is negative or there is no memory; then the array is as it was
    bool MoveElements(int i, int n) {
        const int old_size = size_;
        const std::int64_t new_size = std::int64_t{old_size} + n;
        if (i < 0 || new_size > INT32_MAX || new_size < INT32_MIN || !ResizeArray(static_cast<int>(new_size))) {
            return false;
        }
        if (i >= old_size || n < 1) {
            return true;
        }
        ClearSlots(old_size, size_);
        std::memmove(slots_ + i + n, slots_ + i, SlotBytes(old_size - i));
        std::memset(slots_ + i, 0, SlotBytes(n));
        return true;
    }

    /// Opens a gap of one slot.
    bool MoveElement(int i) { return MoveElements(i, 1); }

    /// Deletes @p n elements from @p i on and closes the gap; as many as there are when @p n is greater, all from @p i
    /// on when it is below 1. Nothing happens when @p i is out of range. @return true
    bool DeleteElements(int i, int n) {
        if (i < 0 || i >= size_) {
            return true;
        }
        const int behind = size_ - i;
        const int dropped = n < 1 || n > behind ? behind : n;
        ClearSlots(i, i + dropped);
        std::memmove(slots_ + i, slots_ + i + dropped, SlotBytes(behind - dropped));
        size_ -= dropped;
        std::memset(slots_ + size_, 0, SlotBytes(dropped));
        return true;
    }

    /// Deletes every element and releases the slots. @return true
    bool FreeArray() {
        if (slots_ == nullptr) {
            return Init();
        }
        ClearSlots(0, capacity_);
        Slots::Free(slots_, capacity_);
        return Init();
    }

    /// Forgets the slots without releasing anything. @return true
    bool Init() {
        slots_ = nullptr;
        size_ = 0;
        capacity_ = 0;
        return true;
    }

    /// @return whether @p i is between 0 and the size minus 1
    bool IsIndex(int i) const { return slots_ != nullptr && i >= 0 && i < size_; }

    /// Stores @p element, which becomes the array's own, in slot @p i, deleting what stood there. @return false when @p
    /// i is out of range; then the element stays the caller's
    bool ReplaceSlot(int i, T* element) {
        if (!IsIndex(i)) {
            return false;
        }
        T* former = slots_[i];
        slots_[i] = element;
        if (former != element) {
            delete former;
        }
        return true;
    }

    /// Deletes the elements of the slots from @p from up to, not including, @p to.
    void ClearSlots(int from, int to) {
        for (int i = from < 0 ? 0 : from; i < to; ++i) {
            T* former = slots_[i];
            slots_[i] = nullptr;
            delete former;
        }
    }

    /// @return the size of @p n slots in bytes
    static std::size_t SlotBytes(int n) { return static_cast<std::size_t>(n) * sizeof(T*); }

    T** slots_ = nullptr;  ///< null until the first element is stored
    int size_ = 0;         ///< elements in use
    int capacity_ = 0;     ///< slots allocated, as stated

private:
    bool GrowSlots(int capacity) {
        void* block = Slots::Grow(slots_, capacity_, capacity);
        if (block == nullptr) {
            return false;
        }
        slots_ = static_cast<T**>(block);
        ClearSlots(size_, capacity_);
        std::memset(slots_ + capacity_, 0, SlotBytes(capacity - capacity_));
        capacity_ = capacity;
        return true;
    }
};

}  // namespace orvil::detail
