/// @file
/// CExtHash, a hash from keys to values of any type.
#pragma once

#include "orvil/strings/hash_table.h"

namespace orvil::detail {

/// A node of CExtHash.
template <typename T>
struct ValueNode : HashNodeParts<ValueNode<T>, T> {};

}  // namespace orvil::detail

/// A hash from keys to values of type @p T, optionally ignoring case: the twin of CExtStrHash, whose rules on keys,
/// buckets, order and snapshots hold here.
///
/// T needs a default constructor, a copy constructor and an assignment; a new entry's value is `T()`. A value stays
/// where it is until its entry is removed. Values that are pointers are never deleted. Keys are texts (null is the
/// empty text), ints, unsigned ints, doubles or pointers; keys of different kinds are different entries. No member
/// throws unless T does. Not for use by several threads at a time.
/// @code
/// CExtHash<int> lines(277);
/// lines.SetAt("alpha", 12);
/// int line = 0;
/// if (lines.Lookup("alpha", line)) printf("%d\n", line);
/// @endcode
template <typename T>
class CExtHash : public orvil::detail::HashTable<orvil::detail::ValueNode<T>> {
    using Node = orvil::detail::ValueNode<T>;
    using Base = orvil::detail::HashTable<Node>;
    using KeyText = orvil::detail::KeyText;

public:
    /// An empty hash of @p size buckets, 37 when it is below 1.
    CExtHash(int size = 37, bool ignoreCase = false) : Base(size, ignoreCase) {}
    /// A copy of the entries of @p other in a hash of 37 buckets that heeds case.
    CExtHash(const CExtHash& other) : CExtHash() { CopyData(other); }
    /// As CopyData().
    CExtHash& operator=(const CExtHash& other) {
        CopyData(other);
        return *this;
    }
    /// Releases every entry.
    virtual ~CExtHash() = default;

    /// @name Storing a copy of a value under a key, or replacing the one that is there
    /// @{

    /// Each returns false when there is no memory; then the hash is as it was.
    bool SetAt(const char* key, const T& value) { return SetAtItem(key, value); }
    bool SetAt(unsigned int key, const T& value) { return SetAtItem(KeyText(key), value); }
    bool SetAt(int key, const T& value) { return SetAtItem(KeyText(key), value); }
    bool SetAt(double key, const T& value) { return SetAtItem(KeyText(key), value); }
    bool SetAt(void* key, const T& value) { return SetAtItem(KeyText(key), value); }
    /// @}

    /// @name Copying the value of a key to @p value
    /// @{

    /// Each returns false when there is no entry; then @p value is as it was.
    bool Lookup(const char* key, T& value) const { return LookupItem(key, value); }
    bool Lookup(unsigned int key, T& value) const { return LookupItem(KeyText(key), value); }
    bool Lookup(int key, T& value) const { return LookupItem(KeyText(key), value); }
    bool Lookup(double key, T& value) const { return LookupItem(KeyText(key), value); }
    bool Lookup(void* key, T& value) const { return LookupItem(KeyText(key), value); }
    /// @}

    /// @name The value of a key, made as T() when there is none
    /// @{

    /// The reference holds until the entry is removed. When there is no memory it is to a spare value that no entry
    /// has.
    T& operator[](const char* key) { return ValueOf(key); }
    T& operator[](unsigned int key) { return ValueOf(KeyText(key)); }
    T& operator[](int key) { return ValueOf(KeyText(key)); }
    T& operator[](double key) { return ValueOf(KeyText(key)); }
    T& operator[](void* key) { return ValueOf(KeyText(key)); }
    /// @}

    /// Replaces the entries by copies of those of @p other. The number of buckets and the case mode stay. Copying a
    /// hash onto itself does nothing.
    /// @return false when there is no memory; then some entries are missing
    bool CopyData(const CExtHash& other) {
        if (this == &other) {
            return true;
        }
        Base::RemoveAll();
        for (const Node* node = other.FirstNode(); node != nullptr; node = other.NodeAfter(node)) {
            if (!SetAtItem(node->key, node->value)) {
                return false;
            }
        }
        return true;
    }

protected:
    /// As SetAt().
    bool SetAtItem(const char* key, const T& value) {
        Node* node = Base::MakeItemNode(key);
        if (node == nullptr) {
            return false;
        }
        node->value = value;
        return true;
    }
    /// As Lookup().
    bool LookupItem(const char* key, T& value) const {
        const Node* node = Base::FindNode(key);
        if (node == nullptr) {
            return false;
        }
        value = node->value;
        return true;
    }

private:
    T& ValueOf(const char* key) {
        Node* node = Base::MakeItemNode(key);
        if (node != nullptr) {
            return node->value;
        }
        static T spare;
        spare = T();
        return spare;
    }
};
