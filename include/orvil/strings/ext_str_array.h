/// @file
/// CExtStrArray, a growable array of strings.
#pragma once

#include <cstdarg>
#include <cstdio>

#include "orvil/export.h"
#include "orvil/strings/ext_string.h"
#include "orvil/strings/slot_array.h"

class CExtStrList;
struct __pos;

namespace orvil::detail {

class ArrayAccess;

/// Where CExtStrArray takes its slots from: the library's allocator, which is asked for the stated number of slots and
/// keeps room behind large blocks, so that appending takes amortised constant time.
struct ORVIL_API HeapSlots {
    /// @return a zero-filled block of @p capacity slots, or null
    static void* Allocate(int capacity);
    /// @return the block with room for @p to slots, or null, when @p block is as it was
    static void* Grow(void* block, int from, int to);
    /// Releases the block of @p capacity slots; null is ignored.
    static void Free(void* block, int capacity);
};

}  // namespace orvil::detail

/// A growable, indexed array of owned strings in the current code page.
///
/// A slot is empty or owns one string. Storing an empty or null text leaves the slot empty; storing any other text
/// makes a fresh string, so that texts handed out stay valid until their own element is replaced or removed, whatever
/// happens to its neighbours. Inserting, removing, reversing and sorting move pointers, never texts.
///
/// The capacity is the next multiple of 16 strictly above the size, so 16 elements have a capacity of 32; it never
/// shrinks until RemoveAll(). Indices count from 0.
///
/// No member throws or writes a message. With false an array is as it was, unless a member says otherwise; a string
/// that cannot be copied for want of memory leaves an element with an empty text. Members take time linear in the
/// elements that they store, move or read. Not for use by several threads at a time.
/// @code
/// CExtStrArray names("beta", "alpha", (const char*)0);
/// names.Sort();
/// printf("%s\n", (const char*)names.Join(", "));
/// @endcode
class ORVIL_API CExtStrArray : protected orvil::detail::SlotArray<CExtString, orvil::detail::HeapSlots> {
public:
    // --- construction ------------------------------------------------------------------------------------------------

    /// An empty array without slots.
    CExtStrArray();
    /// A deep copy, as by CopyData().
    CExtStrArray(const CExtStrArray& other);
    /// The texts from @p first on; the list ends with a null of pointer type.
    CExtStrArray(const char* first, ...);
    /// Elements of a list; see CreateFromListObject().
    CExtStrArray(const CExtStrList& list, __pos* from, __pos* to);
    /// Texts of a C array; see CreateFromStringArray().
    CExtStrArray(const char* const* texts, int n);
    /// Lines of a stream; see CreateFromStream().
    CExtStrArray(FILE* fp, bool bStrip, bool bCRLF);
    /// Deletes every element.
    virtual ~CExtStrArray();

    // --- reading -----------------------------------------------------------------------------------------------------

    /// @return the number of elements, the empty ones among them
    int GetSize() const { return slots_ == nullptr ? 0 : size_; }
    /// @return whether there is no element
    bool IsEmpty() const { return slots_ == nullptr || size_ < 1; }
    /// Copies the element at @p i to @p out, which an empty slot empties.
    /// @return false when @p i is out of range; then @p out is as it was
    bool GetAt(int i, CExtString& out) const;
    /// @return the text of the element at @p i, valid until it is replaced or removed; null when @p i is out of range
    /// and when the slot is empty
    const char* GetAt(int i) const { return IsIndex(i) && slots_[i] != nullptr ? slots_[i]->GetString() : nullptr; }
    /// As GetAt().
    const char* operator[](int i) const { return GetAt(i); }
    /// @return the index of the first element equal to @p s, or -1. Empty slots are never found, not even by an empty
    /// text. @param nocase compares without regard to case
    int IndexOf(const char* s, bool nocase = false) const;

    // --- changing elements -------------------------------------------------------------------------------------------
    // A text argument may be one of the array's own.

    /// Stores a copy of @p s at @p i, growing the array with empty slots when @p i is not below the size.
    /// @return false when @p i is negative or there is no memory. The array may have grown then.
    bool SetAt(int i, const char* s);
    /// Inserts @p n copies of @p s before the element at @p i; nothing when @p n is below 1.
    /// @return false when @p i is not between 0 and the size minus 1, so not at the end, or there is no memory. In the
    /// latter case empty slots may have been inserted.
    bool Insert(int i, const char* s, int n = 1);
    /// Removes @p n elements from @p i on: as many as there are when @p n is greater, and all from @p i on when it is
    /// below 1. The slots stay allocated.
    /// @return false when @p i is out of range
    bool Remove(int i, int n = 1);
    /// Appends @p n copies of @p s; nothing when @p n is below 1.
    /// @return false when there is no memory. Some elements may have been appended then, the last of them empty.
    bool Add(const char* s, int n = 1);
    /// Appends a text formatted as by CExtString::FormatV().
    /// @return false when there is no memory
    bool AddFormat(const char* format, ...) ORVIL_PRINTF(2, 3);
    /// As AddFormat().
    bool AddFormatV(const char* format, va_list args) ORVIL_PRINTF(2, 0);
    /// Deletes every element and releases the slots. @return true
    bool RemoveAll();

    // --- taking over many elements -----------------------------------------------------------------------------------
    // Where these append, the elements that are there stay. With false some elements may have been appended.

    /// Appends copies of the elements of @p other, which may be this array. @return false when there is no memory
    bool ConcatArray(const CExtStrArray& other);
    /// Inserts copies of the elements of @p other, which may be this array, before the element at @p i.
    /// @return false when @p i is not between 0 and the size minus 1 or there is no memory. In the latter case empty
    /// slots may have been inserted.
    bool InsertArray(int i, const CExtStrArray& other);
    /// Becomes a deep copy of @p other. Copying an array onto itself does nothing.
    /// @return false when there is no memory; then the array is empty or ends with empty slots
    bool CopyData(const CExtStrArray& other);
    /// Appends the texts from @p first on; the list ends with a null of pointer type. @return false when there is no
    /// memory
    bool CreateFromStrings(const char* first, ...);
    /// Appends the first @p n texts, all of them when @p n is negative; a null text ends them in any case.
    /// @return false when @p texts is null or there is no memory
    bool CreateFromStringArray(const char* const* texts, int n);
    /// Appends the text at @p from (null: the head) and, only if the node behind it is @p to (null: the tail), the text
    /// at @p to. So the default positions copy a list of one or two texts whole, and of a longer one the first text.
    /// @return false when there is no memory or the list is empty
    bool CreateFromListObject(const CExtStrList& list, __pos* from, __pos* to);
    /// Appends the lines of a stream, each read by CExtString::CreateFromStream() with these flags, up to the end of
    /// the file or the first line that cannot be read: a last line of less than 32 bytes without a line end is lost.
    /// @return whether at least one line was appended; false when @p fp is null
    bool CreateFromStream(FILE* fp, bool bStrip, bool bCRLF);

    // --- joining -----------------------------------------------------------------------------------------------------

    /// @return all elements in one text. @p separator (null: none) stands before every element but those that have
    /// nothing but empty elements before them: "", "a", "", "b" joined by a comma give "a,,b".
    CExtString Join(const char* separator) const;
    /// Stores all elements in one text in @p out. @return true
    bool MakeCombinedString(CExtString& out) const;
    /// Writes a text file. Without a separator (null or empty) each element is a line; with one it follows every
    /// element, the last one too, and no line end is written. An empty slot is written as "(null)". On Windows line
    /// feeds are written as CR LF.
    /// @return false when the file cannot be opened
    bool WriteJoinedFile(const char* path, const char* separator) const;

    // --- ordering ----------------------------------------------------------------------------------------------------

    /// Sorts by the C runtime's qsort(), which is not stable, with compare_func_for_sort() or, when @p numeric, with
    /// compare_func_for_sort_num(). Where empty slots end up is not defined.
    /// @return false when there are fewer than two elements
    bool Sort(bool numeric = false);
    /// Reverses the order of the elements. @return false when there is none
    bool Reverse();

    /// Compares two slots byte-wise, as unsigned bytes: -1, 0 or 1; 0 when either is empty.
    static int compare_func_for_sort(const void* left, const void* right);
    /// Compares two slots by the integers that their texts begin with (0 when there is none): -1, 0 or 1; 0 when either
    /// slot is empty.
    static int compare_func_for_sort_num(const void* left, const void* right);

    // --- operators ---------------------------------------------------------------------------------------------------

    /// Appends one element.
    CExtStrArray& operator+=(const char* s);
    /// As ConcatArray().
    CExtStrArray& operator+=(const CExtStrArray& other);
    /// As CopyData().
    CExtStrArray& operator=(const CExtStrArray& other);

protected:
    /// Stores a copy of @p s at @p i; an empty slot when it is empty or null. @return false when @p i is out of range
    /// or there is no memory for a string; then the slot is as it was
    bool ReplaceElement(int i, const char* s);
    /// Stores copies of @p s in @p n slots from @p i on; nothing when @p n is below 1. @return false at the first
    /// failure
    bool ReplaceElements(int i, const char* s, int n);
    /// Appends one element. @return false when there is no memory. The element may have been appended then, empty.
    bool AppendElement(const char* s);
    /// Appends the texts from @p first on, up to a null. @return false when there is no memory
    bool CreateFromStringsV(const char* first, va_list args);

private:
    friend class orvil::detail::ArrayAccess;

    bool AppendTexts(const char* const* texts, int n);
};
