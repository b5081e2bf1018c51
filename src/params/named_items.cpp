#include "orvil/params/named_items.h"

#include <cstddef>
#include <cstring>
#include <new>

#include "params/item_access.h"
#include "strings/string_access.h"

using orvil::detail::ItemAccess;
using orvil::detail::StringAccess;

namespace {

// Hosts rely on the layout.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct Layout : CVpItem {
    static constexpr bool is_as_promised() {
        return sizeof(Layout) == 64 && offsetof(Layout, prev) == 8 && offsetof(Layout, next) == 16 &&
               offsetof(Layout, list_) == 24 && offsetof(Layout, name_) == 32 && offsetof(Layout, flags_) == 56;
    }
};
#pragma GCC diagnostic pop
static_assert(Layout::is_as_promised());

const char* text_or_empty(const char* text) {
    return text == nullptr ? "" : text;
}

}  // namespace

CVpItem::CVpItem() : list_(nullptr), flags_(0) {
}

// NOLINTNEXTLINE(bugprone-copy-constructor-init): a copy is in no list, so its links are fresh
CVpItem::CVpItem(const CVpItem& source) : VPLIST(), list_(nullptr), name_(source.name_), flags_(0) {
}

CVpItem& CVpItem::operator=(const CVpItem& source) {
    Copy(source);
    return *this;
}

CVpItem::~CVpItem() {
    ItemAccess::forget(*this);
}

CVpItem* CVpItem::duplicate() const {
    auto* copy = new (std::nothrow) CVpItem(*this);
    if (copy != nullptr && copy->GetNameLength() != GetNameLength()) {
        delete copy;
        return nullptr;
    }
    return copy;
}

int CVpItem::Compare(CVpItem* other) const {
    return CompareName(other == nullptr ? nullptr : other->GetName());
}

void CVpItem::OnDestroy() {
}

void CVpItem::OnAttachList(CVpList* list) {
    list_ = list;
}

void CVpItem::OnDetachList(CVpList*) {
    list_ = nullptr;
}

void CVpItem::Copy(const CVpItem& source) {
    ItemAccess::forget(*this);
    name_ = source.name_;
    flags_ = source.flags_;
}

bool CVpItem::SetName(const char* name) {
    CExtString renamed(text_or_empty(name));
    const bool has_memory = !renamed.IsEmpty() || *text_or_empty(name) == '\0';
    if (!has_memory || !ItemAccess::rename(*this, renamed)) {
        return false;
    }
    StringAccess::swap(name_, renamed);
    return true;
}

int CVpItem::CompareName(const char* name) const {
    const int order = std::strcmp(GetName(), text_or_empty(name));
    return (order > 0) - (order < 0);
}

int CVpItem::CompareNameNoCase(const char* name) const {
    return st_ImpFunc_strcasecmp(GetName(), text_or_empty(name));
}

bool CVpItem::InsertNext(CVpItem* item) {
    return ItemAccess::insert_beside(*this, item, true);
}

bool CVpItem::InsertPrev(CVpItem* item) {
    return ItemAccess::insert_beside(*this, item, false);
}

void CVpItem::Delete() {
    CVpList* list = list_;
    ItemAccess::unlink(*this);
    if (list != nullptr) {
        list->OnRemoveItem(this);
        ItemAccess::drop_owner(*this, *list);
    }
}

bool CVpItem::MoveHead(CVpList* list) {
    return ItemAccess::move(*this, list, true);
}

bool CVpItem::MoveTail(CVpList* list) {
    return ItemAccess::move(*this, list, false);
}
