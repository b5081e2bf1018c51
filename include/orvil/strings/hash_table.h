/// @file
/// Keys, nodes and buckets that CExtStrHash and CExtHash have in common. Hosts include those.
#pragma once

#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

#include "orvil/export.h"
#include "orvil/runtime/heap.h"
#include "orvil/strings/ext_str_array.h"

namespace orvil::detail {

struct HashAccess;

/// The reserved forms of keys that are no texts. Each begins with the bytes FF FF, a letter for the kind, FF FF, so
/// that keys of different kinds never meet, nor any ordinary text.
struct ORVIL_API HashKeyForms {
    /// Writes the key form of an int: letter s, then "0x" and eight upper-case hexadecimal digits. @p buffer holds at
    /// least 64 bytes. @return @p buffer; null when it is null
    static const char* KeyToStr(char* buffer, int key);
    /// The same with letter u.
    static const char* KeyToStr(char* buffer, unsigned int key);
    /// The same with letter d and the value as "%.15lg" prints it: values equal at 15 digits are one key.
    static const char* KeyToStr(char* buffer, double key);
    /// The same with letter p and the value as "%p" prints it.
    static const char* KeyToStr(char* buffer, void* key);
    /// Writes the 32-bit form with any letter. @return false when @p buffer is null
    static bool __Key_Format_I32_to_String(char* buffer, unsigned int value, char letter);
};

/// A key that is no text, as text, for the length of one call.
class KeyText {
public:
    /// @p key is an int, an unsigned int, a double or a pointer.
    template <typename Key>
    explicit KeyText(Key key) {
        HashKeyForms::KeyToStr(buffer_, key);
    }
    KeyText(const KeyText&) = delete;
    KeyText& operator=(const KeyText&) = delete;
    operator const char*() const { return buffer_; }

private:
    char buffer_[64];
};

/// What a node of a hash consists of. @p Node is the structure that inherits this. Copies copy the link and the bucket
/// and, deeply, key and value.
template <typename Node, typename Value>
struct HashNodeParts {
    Node* next = nullptr;          ///< next node in the same bucket; null at the end
    std::uint32_t bucket = 0;      ///< index of the node's bucket
    char* key = nullptr;           ///< the key's text, from orv_heap_alloc()
    std::uint32_t key_length = 0;  ///< bytes of the key
    Value value{};                 ///< the value

    HashNodeParts() = default;
    HashNodeParts(const HashNodeParts& other) : next(other.next), bucket(other.bucket), value(other.value) {
        CopyKey(other.key, other.key_length);
    }
    HashNodeParts& operator=(const HashNodeParts& other) {
        if (this != &other) {
            next = other.next;
            bucket = other.bucket;
            orv_heap_free(key);
            CopyKey(other.key, other.key_length);
            value = other.value;
        }
        return *this;
    }
    ~HashNodeParts() { orv_heap_free(key); }

    /// Takes a copy of @p length bytes of @p text; none when @p text is null. What @c key pointed to is not released.
    /// @return false when there is no memory; then the node has no key
    bool CopyKey(const char* text, std::size_t length) {
        key = text == nullptr ? nullptr : static_cast<char*>(orv_heap_alloc(length + 1));
        key_length = key == nullptr ? 0 : static_cast<std::uint32_t>(length);
        if (key != nullptr) {
            std::memcpy(key, text, length);
        }
        return key != nullptr || text == nullptr;
    }
};

/// A table of nodes by text key, chained in a fixed number of buckets.
///
/// There are no buckets until the first insertion, and none again when the last entry goes. The table never grows:
/// choose a size near the number of entries. New entries stand at the head of their chain. In a table that ignores case
/// the spelling of a key that came first is kept. A null key is the empty key, which is a key like any other.
///
/// Operations on one key take time linear in the key and in its chain, where entries whose keys differ in length cost
/// one comparison of numbers.
template <typename Node>
class HashTable : public HashKeyForms {
public:
    /// @return the number of entries
    int GetCount() const { return count_; }
    /// @return whether there is no entry
    bool IsEmpty() const { return count_ < 1; }

    /// @name Whether a key has an entry
    /// @{
    bool IsExistKey(const char* key) const { return IsExistItem(key); }
    bool IsExistKey(unsigned int key) const { return IsExistItem(KeyText(key)); }
    bool IsExistKey(int key) const { return IsExistItem(KeyText(key)); }
    bool IsExistKey(double key) const { return IsExistItem(KeyText(key)); }
    bool IsExistKey(void* key) const { return IsExistItem(KeyText(key)); }
    /// @}

    /// @name Removing an entry
    /// @{

    /// Each closes the snapshot of OpenKeys() when something is removed, and returns false when there is no such entry.
    bool RemoveKey(const char* key) { return RemoveItem(key); }
    bool RemoveKey(unsigned int key) { return RemoveItem(KeyText(key)); }
    bool RemoveKey(int key) { return RemoveItem(KeyText(key)); }
    bool RemoveKey(double key) { return RemoveItem(KeyText(key)); }
    bool RemoveKey(void* key) { return RemoveItem(KeyText(key)); }
    /// @}

    /// Releases every entry, the buckets and the snapshot of OpenKeys(). @return true
    bool RemoveAll() {
        CloseKeys();
        FreeNodes();
        orv_heap_free(buckets_);
        buckets_ = nullptr;
        return true;
    }

    /// @return all keys in the order of buckets, each chain from its head. Without memory the keys end at the first
    /// that could not be stored, whose element may be empty.
    CExtStrArray Keys() const {
        CExtStrArray keys;
        const Node* node = FirstNode();
        while (node != nullptr && keys.Add(node->key)) {
            node = NodeAfter(node);
        }
        return keys;
    }

    /// Takes a snapshot of the keys for KeyAt(), in the order of Keys(), closing an open one. It is closed by
    /// CloseKeys() and when an entry is added or removed.
    /// @return the number of keys; 0 when there is no memory
    int OpenKeys();
    /// @return key @p i of the snapshot; null when @p i is not between 0 and the count minus 1 or no snapshot is open
    const char* KeyAt(int i) const { return snapshot_ == nullptr || i < 0 || i >= count_ ? nullptr : snapshot_[i]; }
    /// Closes the snapshot of OpenKeys(). @return true
    bool CloseKeys() {
        orv_heap_free(snapshot_);
        snapshot_ = nullptr;
        return true;
    }

    /// Sets whether keys are compared without regard to case. All entries are removed first, even when nothing changes.
    /// @return true
    bool ChangeHashKeyCalculator(bool ignoreCase) {
        if (count_ > 0) {
            RemoveAll();
        }
        ignore_case_ = ignoreCase;
        return true;
    }

    /// Removes all entries and releases the buckets. When @p allocate, takes @p size buckets (37 when it is below 1),
    /// which becomes the table's size; otherwise the size stays.
    /// @return false when there is no memory for the buckets; then the size stays, too
    bool InitializeHashTable(int size, bool allocate);

protected:
    /// An empty table of @p size buckets (37 when it is below 1) that are not allocated yet.
    HashTable(int size, bool ignoreCase) : ignore_case_(ignoreCase), table_size_(CheckedSize(size)) {}
    ~HashTable() { RemoveAll(); }
    HashTable(const HashTable&) = delete;
    HashTable& operator=(const HashTable&) = delete;

    /// @return the bucket of @p key: h * 33 + c over its bytes, upper-cased when case is ignored, in 32 bits, modulo
    /// the table's size
    std::uint32_t CalcHashValue(const char* key) const {
        std::size_t length = 0;
        return BucketOf(TextOrEmpty(key), length);
    }
    /// Finds the node of @p key. @return the node, or null. @p bucket receives the key's bucket in any case.
    Node* SearchNode(const char* key, std::uint32_t& bucket) const {
        std::size_t length = 0;
        return NodeOf(TextOrEmpty(key), bucket, length);
    }
    /// Makes a node, not linked, and counts it. @return the node, or null when there is no memory
    Node* CreateNewNode() {
        void* memory = std::malloc(sizeof(Node));
        if (memory == nullptr) {
            return nullptr;
        }
        ++count_;
        return new (memory) Node();
    }
    /// Finds or makes the node of @p key. A new one has an empty value and closes the snapshot.
    /// @return the node, or null when there is no memory
    Node* MakeItemNode(const char* key);
    /// Releases a node that is no longer linked and takes it off the count. Null is ignored.
    void FreeNode(Node* node) {
        if (node != nullptr) {
            node->~Node();
            std::free(node);
            --count_;
        }
    }
    /// @return the node of @p key, or null
    Node* FindNode(const char* key) const {
        std::uint32_t bucket = 0;
        return SearchNode(key, bucket);
    }
    /// @return whether @p key has an entry
    bool IsExistItem(const char* key) const { return FindNode(key) != nullptr; }
    /// Removes the entry of @p key, and with the last one the buckets. @return false when there is none
    bool RemoveItem(const char* key);

    /// @return the first node in the order of buckets, or null
    Node* FirstNode() const { return buckets_ == nullptr ? nullptr : NodeFrom(0); }
    /// @return the node after @p node in the order of buckets, or null
    Node* NodeAfter(const Node* node) const {
        return node->next != nullptr ? node->next : NodeFrom(static_cast<int>(node->bucket) + 1);
    }

    bool ignore_case_;                 ///< keys are compared without regard to case
    int count_ = 0;                    ///< number of entries
    int table_size_;                   ///< number of buckets
    Node** buckets_ = nullptr;         ///< null until the first insertion
    const char** snapshot_ = nullptr;  ///< what OpenKeys() took, or null

private:
    friend struct HashAccess;

    static constexpr int kDefaultSize = 37;

    static const char* TextOrEmpty(const char* key) { return key == nullptr ? "" : key; }
    static int CheckedSize(int size) { return size < 1 ? kDefaultSize : size; }
    std::uint32_t BucketOf(const char* key, std::size_t& length) const;
    Node* NodeOf(const char* key, std::uint32_t& bucket, std::size_t& length) const;
    bool IsKeyOf(const Node* node, const char* key, std::size_t length) const {
        return node->key_length == length &&
               (ignore_case_ ? st_ImpFunc_strcasecmp(node->key, key) == 0 : std::memcmp(node->key, key, length) == 0);
    }
    Node* NodeFrom(int bucket) const;
    void FreeNodes();
};

template <typename Node>
std::uint32_t HashTable<Node>::BucketOf(const char* key, std::size_t& length) const {
    std::uint32_t hash = 0;
    const char* end = key;
    for (; *end != '\0'; ++end) {
        const auto byte = static_cast<unsigned char>(*end);
        hash = hash * 33 + (ignore_case_ ? static_cast<unsigned char>(std::toupper(byte)) : byte);
    }
    length = static_cast<std::size_t>(end - key);
    return hash % static_cast<std::uint32_t>(table_size_);
}

template <typename Node>
Node* HashTable<Node>::NodeOf(const char* key, std::uint32_t& bucket, std::size_t& length) const {
    bucket = BucketOf(key, length);
    Node* node = buckets_ == nullptr ? nullptr : buckets_[bucket];
    while (node != nullptr && !IsKeyOf(node, key, length)) {
        node = node->next;
    }
    return node;
}

template <typename Node>
Node* HashTable<Node>::MakeItemNode(const char* key) {
    std::uint32_t bucket = 0;
    std::size_t length = 0;
    key = TextOrEmpty(key);
    Node* node = NodeOf(key, bucket, length);
    if (node != nullptr || (buckets_ == nullptr && !InitializeHashTable(table_size_, true))) {
        return node;
    }
    node = CreateNewNode();
    if (node == nullptr) {
        return nullptr;
    }
    if (!node->CopyKey(key, length)) {
        FreeNode(node);
        return nullptr;
    }
    CloseKeys();
    node->bucket = bucket;
    node->next = buckets_[bucket];
    buckets_[bucket] = node;
    return node;
}

template <typename Node>
bool HashTable<Node>::RemoveItem(const char* key) {
    std::uint32_t bucket = 0;
    Node* node = SearchNode(key, bucket);
    if (node == nullptr) {
        return false;
    }
    Node** link = &buckets_[bucket];
    while (*link != node) {
        link = &(*link)->next;
    }
    *link = node->next;
    CloseKeys();
    FreeNode(node);
    if (count_ < 1) {
        RemoveAll();
    }
    return true;
}

template <typename Node>
int HashTable<Node>::OpenKeys() {
    CloseKeys();
    snapshot_ = static_cast<const char**>(orv_heap_alloc((static_cast<std::size_t>(count_) + 1) * sizeof(char*)));
    if (snapshot_ == nullptr) {
        return 0;
    }
    int stored = 0;
    for (const Node* node = FirstNode(); node != nullptr && stored < count_; node = NodeAfter(node)) {
        snapshot_[stored++] = node->key;
    }
    return stored;
}

template <typename Node>
bool HashTable<Node>::InitializeHashTable(int size, bool allocate) {
    RemoveAll();
    if (!allocate) {
        return true;
    }
    const int buckets = CheckedSize(size);
    buckets_ = static_cast<Node**>(orv_heap_alloc(static_cast<std::size_t>(buckets) * sizeof(Node*)));
    if (buckets_ == nullptr) {
        return false;
    }
    table_size_ = buckets;
    return true;
}

template <typename Node>
Node* HashTable<Node>::NodeFrom(int bucket) const {
    for (; bucket < table_size_; ++bucket) {
        if (buckets_[bucket] != nullptr) {
            return buckets_[bucket];
        }
    }
    return nullptr;
}

template <typename Node>
void HashTable<Node>::FreeNodes() {
    for (int bucket = 0; buckets_ != nullptr && bucket < table_size_; ++bucket) {
        while (buckets_[bucket] != nullptr) {
            Node* node = buckets_[bucket];
            buckets_[bucket] = node->next;
            FreeNode(node);
        }
    }
    count_ = 0;
}

}  // namespace orvil::detail
