#include "orvil/messages/message_map.h"

#include <charconv>
#include <cstddef>
#include <memory>
#include <new>

#include "strings/array_access.h"
#include "strings/hash_access.h"
#include "strings/string_access.h"

using orvil::detail::ArrayAccess;
using orvil::detail::HashAccess;
using orvil::detail::StringAccess;

namespace {

constexpr int kIndexBuckets = 277;
constexpr int kNoPosition = -1;
constexpr int kNoCode = -1;
constexpr int kFirstErrorCode = 1000;
constexpr int kLastCode = 9999;
constexpr std::size_t kCodeSize = 16;

// Hosts rely on the layout.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct Layout : CMessageMap {
    static constexpr bool is_as_promised() {
        return sizeof(Layout) == 104 && offsetof(Layout, subject_text_) == 8 && offsetof(Layout, subject_code_) == 32 &&
               offsetof(Layout, items_) == 40 && offsetof(Layout, index_) == 64 && sizeof(CMsgMapItem) == 32 &&
               offsetof(CMsgMapItem, code) == 0 && offsetof(CMsgMapItem, text) == 8;
    }
};
#pragma GCC diagnostic pop
static_assert(Layout::is_as_promised());

bool is_empty(const char* text) {
    return text == nullptr || *text == '\0';
}

// Becomes a copy of a text that may be the target's own; empty without memory for it.
void set_text(CExtString& target, const char* text) {
    CExtString copy(text);
    StringAccess::swap(target, copy);
}

}  // namespace

// --- construction ---------------------------------------------------------------------------------------------------

CMessageMap::CMessageMap() : subject_code_(0), index_(kIndexBuckets) {
}

CMessageMap::CMessageMap(const CMessageMap& source) : CMessageMap() {
    CopyData(source);
}

CMessageMap& CMessageMap::operator=(const CMessageMap& source) {
    CopyData(source);
    return *this;
}

CMessageMap::~CMessageMap() = default;

CMessageMap* CMessageMap::GetCopyInstance() const {
    std::unique_ptr<CMessageMap> copy(new (std::nothrow) CMessageMap);
    return copy != nullptr && copy->CopyData(*this) ? copy.release() : nullptr;
}

bool CMessageMap::CopyData(const CMessageMap& source) {
    if (this == &source) {
        return true;
    }
    set_text(subject_text_, source.subject_text_);
    subject_code_ = source.subject_code_;
    DeleteAllItems();
    const int buckets = HashAccess::buckets(source.index_);
    if (buckets != HashAccess::buckets(index_) && !index_.InitializeHashTable(buckets, true)) {
        return false;
    }
    for (int position = 0; position < source.GetItemCount(); ++position) {
        const CMsgMapItem* item = source.GetItem(position);
        if (item != nullptr && !AddItem(item->code, item->text)) {
            return false;
        }
    }
    return true;
}

// --- the subject ----------------------------------------------------------------------------------------------------

bool CMessageMap::SetupSubjectKey(int code, const char* text) {
    if (is_empty(text)) {
        return false;
    }
    set_text(subject_text_, text);
    subject_code_ = code;
    return true;
}

int CMessageMap::GetSubjectKeyCode() const {
    return subject_code_;
}

const char* CMessageMap::GetSubjectKeyText() const {
    return subject_text_;
}

// --- changing items -------------------------------------------------------------------------------------------------

// An item that cannot be stored or indexed leaves its position empty.
bool CMessageMap::AddItem(int code, const char* text) {
    if (!IsMsgCode(code) || is_empty(text) || !items_.AddAdopted(nullptr)) {
        return false;
    }
    const int position = items_.GetSize() - 1;
    std::unique_ptr<CMsgMapItem> item(new (std::nothrow) CMsgMapItem{code, CExtString(text)});
    if (item == nullptr || !items_.SetAdopted(position, item.get())) {
        return false;
    }
    static_cast<void>(item.release());
    if (!index_.SetAt(code, position)) {
        items_.ClearAt(position);
        return false;
    }
    return true;
}

bool CMessageMap::ReplaceItem(int oldCode, int newCode, const char* text) {
    if (!IsMsgCode(oldCode) || !IsMsgCode(newCode) || is_empty(text)) {
        return false;
    }
    const int position = SearchIndex(oldCode);
    CMsgMapItem* item = GetItem(position);
    if (item == nullptr) {
        return false;
    }
    set_text(item->text, text);
    if (oldCode == newCode) {
        return true;
    }
    index_.RemoveKey(oldCode);
    item->code = newCode;
    return index_.SetAt(newCode, position);
}

// Emptying a position that the array does not reach makes it reach it.
bool CMessageMap::DeleteItem(int code) {
    const int position = SearchIndex(code);
    if (position < 0) {
        return false;
    }
    items_.SetAdopted(position, nullptr);
    index_.RemoveKey(code);
    return true;
}

bool CMessageMap::DeleteAllItems() {
    items_.RemoveAll();
    index_.RemoveAll();
    return true;
}

// --- reading items --------------------------------------------------------------------------------------------------

int CMessageMap::GetItemCount() const {
    return items_.GetSize();
}

int CMessageMap::GetItemCode(int position) const {
    const CMsgMapItem* item = GetItem(position);
    return item == nullptr ? kNoCode : item->code;
}

const char* CMessageMap::GetItemText(int position) const {
    const CMsgMapItem* item = GetItem(position);
    return item == nullptr ? nullptr : item->text.GetString();
}

const char* CMessageMap::SearchItemText(int code) const {
    return GetItemText(SearchIndex(code));
}

bool CMessageMap::MakeCodeArray(CExtStrArray& out) const {
    out.RemoveAll();
    bool stored = true;
    for (int position = 0; stored && position < GetItemCount(); ++position) {
        if (const CMsgMapItem* item = GetItem(position)) {
            char code[kCodeSize];
            const char* end = std::to_chars(code, code + sizeof(code), item->code).ptr;
            stored = ArrayAccess::append(out, code, static_cast<int>(end - code));
        }
    }
    return true;
}

int CMessageMap::SearchIndex(int code) const {
    int position = kNoPosition;
    index_.Lookup(code, position);
    return position;
}

CMessageMap::CMsgMapItem* CMessageMap::GetItem(int position) const {
    return items_.GetAt(position);
}

// --- classes of codes -----------------------------------------------------------------------------------------------

bool CMessageMap::IsMsgCode(int code) {
    return code >= 0 && code <= kLastCode;
}

bool CMessageMap::IsResourceCode(int code) {
    return code >= 0 && code < kFirstErrorCode;
}

bool CMessageMap::IsErrorCode(int code) {
    return code >= kFirstErrorCode && code <= kLastCode;
}
