/// @file
/// CExtStrHash, a hash from keys to strings.
#pragma once

#include <cstdarg>

#include "orvil/export.h"
#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_string.h"
#include "orvil/strings/hash_table.h"

class CExtStrList;

/// A node of CExtStrHash: next node, bucket, key, key length and value. Copies copy the link and the bucket and,
/// deeply, key and value.
struct CExtStrHash_THashNode : orvil::detail::HashNodeParts<CExtStrHash_THashNode, CExtString> {};

/// A hash from keys to owned strings, optionally ignoring case, with chains in a fixed number of buckets.
///
/// Keys are texts in the current code page, ints, unsigned ints, doubles or pointers. Keys of different kinds are
/// different entries: SetAt(5, s), SetAt(5u, s) and SetAt("5", s) make three. Keys that are no texts are stored as
/// texts in a reserved form (see KeyToStr()), which is what Keys() shows. A null text is the empty key, which is a key
/// like any other. Doubles are the same key when they agree in 15 digits; 0.0 and -0.0 differ.
///
/// There are no buckets until the first entry, and none again when the last one goes. The number of buckets never
/// changes by itself: choose it near the number of entries. Entries are listed bucket by bucket, the newest of a bucket
/// first. In a hash that ignores case the spelling of a key that came first is kept.
///
/// A value stays where it is until its entry is removed. No member throws or writes a message; a string that cannot be
/// copied for want of memory leaves an empty value. Members on one key take time linear in the key and in its chain,
/// the others in the number of entries and buckets. Not for use by several threads at a time.
/// @code
/// CExtStrHash colours;
/// colours.SetAt("sky", "blue");
/// colours[7] = "red";
/// if (const char* sky = static_cast<const CExtStrHash&>(colours)["sky"]) printf("%s\n", sky);
/// @endcode
class ORVIL_API CExtStrHash : public orvil::detail::HashTable<CExtStrHash_THashNode> {
    using KeyText = orvil::detail::KeyText;

public:
    // --- construction ------------------------------------------------------------------------------------------------
    // The number of buckets is 37 and case matters where nothing else is said.

    /// An empty hash of @p size buckets, 37 when it is below 1.
    CExtStrHash(int size = 37, bool ignoreCase = false);
    /// A copy of the entries of @p other, whose number of buckets and case mode are not taken over.
    CExtStrHash(const CExtStrHash& other);
    /// Key, value, key, value and so on; the list of arguments ends with a null key of pointer type.
    CExtStrHash(const char* key, ...);
    /// Pairs in a C array; see CreateFromStringArray().
    CExtStrHash(const char* const* texts, int n);
    /// Pairs in an array; see CreateFromArray().
    CExtStrHash(const CExtStrArray& array);
    /// Pairs in a list; see CreateFromList().
    CExtStrHash(const CExtStrList& list);
    /// Releases every entry.
    virtual ~CExtStrHash();

    // --- one entry ---------------------------------------------------------------------------------------------------

    /// @name Copying the value of a key to @p value
    /// @{

    /// Each returns false when there is no entry; then @p value is as it was.
    bool Lookup(const char* key, CExtString& value) const { return LookupItem(key, value); }
    bool Lookup(unsigned int key, CExtString& value) const { return LookupItem(KeyText(key), value); }
    bool Lookup(int key, CExtString& value) const { return LookupItem(KeyText(key), value); }
    bool Lookup(double key, CExtString& value) const { return LookupItem(KeyText(key), value); }
    bool Lookup(void* key, CExtString& value) const { return LookupItem(KeyText(key), value); }
    /// @}

    /// @name The text of a key's value, or null when there is no entry
    /// @{

    /// The text holds until the value is changed or its entry removed.
    const char* operator[](const char* key) const { return TextOf(key); }
    const char* operator[](unsigned int key) const { return TextOf(KeyText(key)); }
    const char* operator[](int key) const { return TextOf(KeyText(key)); }
    const char* operator[](double key) const { return TextOf(KeyText(key)); }
    const char* operator[](void* key) const { return TextOf(KeyText(key)); }
    /// @}

    /// @name The value of a key, made empty when there is none
    /// @{

    /// The reference holds until the entry is removed. When there is no memory it is to a spare value that no entry
    /// has.
    CExtString& operator[](const char* key) { return ValueOf(key); }
    CExtString& operator[](unsigned int key) { return ValueOf(KeyText(key)); }
    CExtString& operator[](int key) { return ValueOf(KeyText(key)); }
    CExtString& operator[](double key) { return ValueOf(KeyText(key)); }
    CExtString& operator[](void* key) { return ValueOf(KeyText(key)); }
    /// @}

    /// @name Storing a copy of a text under a key, or replacing the value that is there
    /// @{

    /// Each returns false when there is no memory for a new entry; then the hash is as it was.
    bool SetAt(const char* key, const char* value) { return SetAtItem(key, value); }
    bool SetAt(unsigned int key, const char* value) { return SetAtItem(KeyText(key), value); }
    bool SetAt(int key, const char* value) { return SetAtItem(KeyText(key), value); }
    bool SetAt(double key, const char* value) { return SetAtItem(KeyText(key), value); }
    bool SetAt(void* key, const char* value) { return SetAtItem(KeyText(key), value); }
    /// @}

    // --- all entries -------------------------------------------------------------------------------------------------

    /// @return whether any value equals @p value byte by byte; all are looked through
    bool IsExistValue(const char* value) const { return IsValueExist(value, false); }
    /// As IsExistValue(), without regard to case.
    bool IsExistValueNC(const char* value) const { return IsValueExist(value, true); }
    /// Fills @p array, emptied first, with key, value, key, value and so on in the order of Keys(), as
    /// CreateFromArray() reads them. @return false when there is no memory
    bool MakeArray(CExtStrArray& array) const;

    // --- replacing all entries ---------------------------------------------------------------------------------------
    // The number of buckets and the case mode stay. With false some entries are missing.

    /// Replaces the entries by copies of those of @p other. Copying a hash onto itself does nothing. @return false when
    /// there is no memory
    bool CopyData(const CExtStrHash& other);
    /// Replaces the entries by those of @p array, whose elements are key, value, key, value and so on. The first empty
    /// key ends them; a last key without a value gets an empty one. @return false when there is no memory
    bool CreateFromArray(const CExtStrArray& array);
    /// As CreateFromArray(), with the texts of a list.
    bool CreateFromList(const CExtStrList& list);
    /// As CreateFromArray(), with the first @p n texts, all of them when @p n is negative; a null text ends them in any
    /// case. @return false when @p texts is null or there is no memory
    bool CreateFromStringArray(const char* const* texts, int n);
    /// As CreateFromArray(), with the arguments; the list ends with a null of pointer type.
    bool CreateFromStrings(const char* key, ...);

    /// As CopyData().
    CExtStrHash& operator=(const CExtStrHash& other);
    /// As CreateFromArray().
    CExtStrHash& operator=(const CExtStrArray& array);

protected:
    /// As Lookup().
    bool LookupItem(const char* key, CExtString& value) const;
    /// As SetAt().
    bool SetAtItem(const char* key, const char* value);
    /// @return whether any value equals @p value
    bool IsValueExist(const char* value, bool ignoreCase) const;
    /// Adds the pairs of the arguments. @return false when there is no memory
    bool CreateFromStringsV(const char* key, va_list args);

private:
    const char* TextOf(const char* key) const;
    CExtString& ValueOf(const char* key);
};
