/// @file
/// CExtArray, a growable array of separately allocated elements.
#pragma once

#include <new>
#include <utility>

#include "orvil/strings/slot_array.h"

/// A growable array of elements of type @p T. Each slot is empty or owns one element, so an element's address stays the
/// same until it is replaced or removed, whatever happens to its neighbours.
///
/// T needs a copy constructor only, and only for the members that copy; it may be incomplete where an array is declared
/// as a member. The capacity grows by sixteens; behind it stands a block of the next power of two of slots, so
/// appending takes amortised constant time. Inserting moves the pointers behind the gap. Indices count from 0.
///
/// No member throws: with false an array is as it was, unless a member says otherwise. Elements are made with `new`,
/// the slots come from the C runtime. Not for use by several threads at a time.
/// @code
/// CExtArray<double> knots;
/// knots.Add(0.5);
/// for (int i = 0; i < knots.GetSize(); ++i) {
///     if (const double* knot = knots.GetAt(i)) printf("%g\n", *knot);
/// }
/// @endcode
template <typename T>
class CExtArray : protected orvil::detail::SlotArray<T, orvil::detail::RuntimeSlots> {
    using Base = orvil::detail::SlotArray<T, orvil::detail::RuntimeSlots>;

public:
    /// An empty array without slots.
    CExtArray() = default;

    /// A deep copy, as by CopyData().
    CExtArray(const CExtArray& other) : Base() { CopyData(other); }

    /// A deep copy, as by CopyData(). Assigning an array to itself does nothing.
    CExtArray& operator=(const CExtArray& other) {
        CopyData(other);
        return *this;
    }

    /// Deletes every element.
    virtual ~CExtArray() { RemoveAll(); }

    /// @return the number of slots in use, the empty ones among them
    int GetSize() const { return Base::slots_ == nullptr ? 0 : Base::size_; }

    /// @return the element, which stays the array's own; null when @p i is out of range or the slot is empty
    T* GetAt(int i) const { return Base::IsIndex(i) ? Base::slots_[i] : nullptr; }

    /// Stores a copy of @p value at @p i, growing the array with empty slots when @p i is not below the size.
    /// @return false when @p i is negative or there is no memory
    bool SetAt(int i, const T& value) {
        T* element = i < 0 ? nullptr : new (std::nothrow) T(value);
        return element != nullptr && KeepOrDelete(element, SetAdopted(i, element));
    }

    /// Appends a copy of @p value.
    /// @return false when there is no memory
    bool Add(const T& value) {
        T* element = new (std::nothrow) T(value);
        return element != nullptr && KeepOrDelete(element, AddAdopted(element));
    }

    /// Inserts a copy of @p value before the element at @p i.
    /// @return false when @p i is not between 0 and the size minus 1, so not at the end, or there is no memory
    bool Insert(int i, const T& value) {
        T* element = Base::IsIndex(i) ? new (std::nothrow) T(value) : nullptr;
        return element != nullptr && KeepOrDelete(element, InsertAdopted(i, element));
    }

    /// Deletes the element at @p i; its slot stays, empty.
    /// @return false when @p i is out of range
    bool ClearAt(int i) { return Base::ReplaceSlot(i, nullptr); }

    /// Deletes every element and releases the slots.
    /// @return true
    bool RemoveAll() { return Base::FreeArray(); }

    /// Becomes a deep copy of @p other, empty slots included. Copying an array onto itself does nothing.
    /// @return false when there is no memory; then the array ends with empty slots, or is empty
    bool CopyData(const CExtArray& other) {
        if (this == &other) {
            return true;
        }
        RemoveAll();
        return other.GetSize() < 1 || (Base::AllocArray(other.size_) && CopyElements(other));
    }

    // --- for builders of trees ---------------------------------------------------------------------------------------
    // An element made with `new` by the same module moves in or out without being copied.

    /// Appends @p element itself, which becomes the array's own; null appends an empty slot.
    /// @return false when there is no memory; then the element stays the caller's
    bool AddAdopted(T* element) {
        if (Base::size_ + 1 < Base::capacity_ && Base::slots_[Base::size_] == nullptr) {
            Base::slots_[Base::size_++] = element;
            return true;
        }
        if (Base::slots_ == nullptr) {
            return Base::AllocArray(1) && Base::ReplaceSlot(0, element);
        }
        return Base::MoveElements(Base::size_, 1) && Base::ReplaceSlot(Base::size_ - 1, element);
    }

    /// As AddAdopted() on an array without slots, with a block of four slots: for arrays of which there are millions
    /// and whose capacity nobody sees. From the fourth element on the capacity is as ever.
    bool StartAdopted(T* element) { return Base::AllocFew() && Base::ReplaceSlot(0, element); }

    /// As Insert(), with @p element itself; on failure it stays the caller's.
    bool InsertAdopted(int i, T* element) {
        return Base::IsIndex(i) && Base::MoveElement(i) && Base::ReplaceSlot(i, element);
    }

    /// As SetAt(), with @p element itself; on failure it stays the caller's.
    bool SetAdopted(int i, T* element) { return Base::ReachIndex(i) && Base::ReplaceSlot(i, element); }

    /// Takes the last slot away, with its element.
    /// @return the element, which is the caller's to delete; null when the slot is empty or the array is
    T* TakeLast() {
        if (GetSize() < 1) {
            return nullptr;
        }
        T* element = Base::slots_[--Base::size_];
        Base::slots_[Base::size_] = nullptr;
        return element;
    }

    /// @return the slots, as many as GetSize() says, or null. They are valid until the array changes.
    T* const* Slots() const { return Base::slots_; }

    /// Leaves the array @p n slots; the elements in the others are the caller's. Only for arrays whose slots are
    /// released afterwards: those beyond @p n keep what is in them.
    void ForgetFrom(int n) { Base::size_ = n; }

    /// Releases the slots of an array whose size is 0. Otherwise nothing happens.
    void ReleaseSlots() {
        if (Base::size_ == 0 && Base::slots_ != nullptr) {
            orvil::detail::RuntimeSlots::Free(Base::slots_, Base::capacity_);
            Base::Init();
        }
    }

    /// Releases the slots of an array that is not used again, not even to destroy it. The elements are the caller's.
    void AbandonSlots() const { orvil::detail::RuntimeSlots::Free(Base::slots_, Base::capacity_); }

    /// Takes the element at @p i out; its slot stays, empty.
    /// @return the element, which is the caller's to delete; null when there is none
    T* ReleaseAt(int i) {
        T* element = GetAt(i);
        if (element != nullptr) {
            Base::slots_[i] = nullptr;
        }
        return element;
    }

    /// Exchanges the elements of two arrays. Nothing is copied.
    void Swap(CExtArray& other) noexcept {
        std::swap(Base::slots_, other.slots_);
        std::swap(Base::size_, other.size_);
        std::swap(Base::capacity_, other.capacity_);
    }

private:
    static bool KeepOrDelete(T* element, bool kept) {
        if (!kept) {
            delete element;
        }
        return kept;
    }

    bool CopyElements(const CExtArray& other) {
        for (int i = 0; i < other.size_; ++i) {
            const T* source = other.slots_[i];
            if (source == nullptr) {
                continue;
            }
            Base::slots_[i] = new (std::nothrow) T(*source);
            if (Base::slots_[i] == nullptr) {
                return false;
            }
        }
        return true;
    }
};
