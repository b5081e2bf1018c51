#include "orvil/strings/ext_str_hash.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "orvil/strings/ext_str_list.h"
#include "strings/text_collection.h"

using orvil::detail::is_empty_text;

namespace orvil::detail {
namespace {

constexpr std::size_t kKeyBufferSize = 64;

}  // namespace

bool HashKeyForms::__Key_Format_I32_to_String(char* buffer, unsigned int value, char letter) {
    if (buffer == nullptr) {
        return false;
    }
    const char start[] = {'\xFF', '\xFF', letter, '\xFF', '\xFF', '0', 'x'};
    char* end = std::copy(std::begin(start), std::end(start), buffer);
    for (int shift = 28; shift >= 0; shift -= 4) {
        *end++ = "0123456789ABCDEF"[value >> shift & 0xF];
    }
    *end = '\0';
    return true;
}

const char* HashKeyForms::KeyToStr(char* buffer, int key) {
    __Key_Format_I32_to_String(buffer, static_cast<unsigned int>(key), 's');
    return buffer;
}

const char* HashKeyForms::KeyToStr(char* buffer, unsigned int key) {
    __Key_Format_I32_to_String(buffer, key, 'u');
    return buffer;
}

const char* HashKeyForms::KeyToStr(char* buffer, double key) {
    if (buffer != nullptr) {
        std::snprintf(buffer, kKeyBufferSize,
                      "\xFF\xFF"
                      "d"
                      "\xFF\xFF"
                      "%.15lg",
                      key);
    }
    return buffer;
}

const char* HashKeyForms::KeyToStr(char* buffer, void* key) {
    if (buffer != nullptr) {
        std::snprintf(buffer, kKeyBufferSize,
                      "\xFF\xFF"
                      "p"
                      "\xFF\xFF"
                      "%p",
                      key);
    }
    return buffer;
}

}  // namespace orvil::detail

namespace {

// Hosts rely on the layout: the virtual table's pointer, then the members.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct Layout : CExtStrHash {
    static constexpr bool is_as_promised() {
        return sizeof(CExtStrHash) == 40 && offsetof(Layout, ignore_case_) == 8 && offsetof(Layout, count_) == 12 &&
               offsetof(Layout, table_size_) == 16 && offsetof(Layout, buckets_) == 24 &&
               offsetof(Layout, snapshot_) == 32;
    }
    static constexpr bool is_node_as_promised() {
        using Node = CExtStrHash_THashNode;
        return sizeof(Node) == 56 && offsetof(Node, next) == 0 && offsetof(Node, bucket) == 8 &&
               offsetof(Node, key) == 16 && offsetof(Node, key_length) == 24 && offsetof(Node, value) == 32;
    }
};
static_assert(Layout::is_as_promised());
static_assert(Layout::is_node_as_promised());
#pragma GCC diagnostic pop

}  // namespace

CExtStrHash::CExtStrHash(int size, bool ignoreCase) : HashTable(size, ignoreCase) {
}

CExtStrHash::CExtStrHash(const CExtStrHash& other) : CExtStrHash() {
    CopyData(other);
}

CExtStrHash::CExtStrHash(const char* key, ...) : CExtStrHash() {
    va_list args;
    va_start(args, key);
    CreateFromStringsV(key, args);
    va_end(args);
}

CExtStrHash::CExtStrHash(const char* const* texts, int n) : CExtStrHash() {
    CreateFromStringArray(texts, n);
}

CExtStrHash::CExtStrHash(const CExtStrArray& array) : CExtStrHash() {
    CreateFromArray(array);
}

CExtStrHash::CExtStrHash(const CExtStrList& list) : CExtStrHash() {
    CreateFromList(list);
}

CExtStrHash::~CExtStrHash() = default;

// --- one entry -------------------------------------------------------------------------------------------------------

bool CExtStrHash::LookupItem(const char* key, CExtString& value) const {
    const CExtStrHash_THashNode* node = FindNode(key);
    if (node == nullptr) {
        return false;
    }
    value = node->value;
    return true;
}

bool CExtStrHash::SetAtItem(const char* key, const char* value) {
    CExtStrHash_THashNode* node = MakeItemNode(key);
    if (node == nullptr) {
        return false;
    }
    orvil::detail::store_text(node->value, value);
    return true;
}

const char* CExtStrHash::TextOf(const char* key) const {
    const CExtStrHash_THashNode* node = FindNode(key);
    return node == nullptr ? nullptr : node->value.GetString();
}

CExtString& CExtStrHash::ValueOf(const char* key) {
    CExtStrHash_THashNode* node = MakeItemNode(key);
    if (node != nullptr) {
        return node->value;
    }
    static CExtString spare;
    spare.Empty();
    return spare;
}

// --- all entries -----------------------------------------------------------------------------------------------------

bool CExtStrHash::IsValueExist(const char* value, bool ignoreCase) const {
    const auto compare = ignoreCase ? st_ImpFunc_strcasecmp : std::strcmp;
    const char* wanted = value == nullptr ? "" : value;
    for (const CExtStrHash_THashNode* node = FirstNode(); node != nullptr; node = NodeAfter(node)) {
        if (compare(node->value.GetString(), wanted) == 0) {
            return true;
        }
    }
    return false;
}

bool CExtStrHash::MakeArray(CExtStrArray& array) const {
    array.RemoveAll();
    for (const CExtStrHash_THashNode* node = FirstNode(); node != nullptr; node = NodeAfter(node)) {
        if (!array.Add(node->key) || !array.Add(node->value)) {
            return false;
        }
    }
    return true;
}

// --- replacing all entries -------------------------------------------------------------------------------------------

bool CExtStrHash::CopyData(const CExtStrHash& other) {
    if (this == &other) {
        return true;
    }
    RemoveAll();
    for (const CExtStrHash_THashNode* node = other.FirstNode(); node != nullptr; node = other.NodeAfter(node)) {
        if (!SetAtItem(node->key, node->value)) {
            return false;
        }
    }
    return true;
}

bool CExtStrHash::CreateFromArray(const CExtStrArray& array) {
    RemoveAll();
    for (int i = 0; i < array.GetSize() && !is_empty_text(array[i]); i += 2) {
        if (!SetAtItem(array[i], array[i + 1])) {
            return false;
        }
    }
    return true;
}

bool CExtStrHash::CreateFromList(const CExtStrList& list) {
    RemoveAll();
    __pos* pos = list.GetHeadPosition();
    while (pos != nullptr) {
        const char* key = list.GetNext(pos);
        if (is_empty_text(key)) {
            break;
        }
        if (!SetAtItem(key, list.GetNext(pos))) {
            return false;
        }
    }
    return true;
}

bool CExtStrHash::CreateFromStringArray(const char* const* texts, int n) {
    RemoveAll();
    if (texts == nullptr) {
        return false;
    }
    const auto is_text = [texts, n](int k) { return (n < 0 || k < n) && texts[k] != nullptr; };
    for (int k = 0; is_text(k) && *texts[k] != '\0'; k += 2) {
        const char* value = is_text(k + 1) ? texts[k + 1] : nullptr;
        if (!SetAtItem(texts[k], value)) {
            return false;
        }
        if (value == nullptr) {
            break;
        }
    }
    return true;
}

bool CExtStrHash::CreateFromStringsV(const char* key, va_list args) {
    while (!is_empty_text(key)) {
        const char* value = va_arg(args, const char*);
        if (!SetAtItem(key, value)) {
            return false;
        }
        key = value == nullptr ? nullptr : va_arg(args, const char*);
    }
    return true;
}

bool CExtStrHash::CreateFromStrings(const char* key, ...) {
    RemoveAll();
    va_list args;
    va_start(args, key);
    const bool created = CreateFromStringsV(key, args);
    va_end(args);
    return created;
}

CExtStrHash& CExtStrHash::operator=(const CExtStrHash& other) {
    CopyData(other);
    return *this;
}

CExtStrHash& CExtStrHash::operator=(const CExtStrArray& array) {
    CreateFromArray(array);
    return *this;
}
