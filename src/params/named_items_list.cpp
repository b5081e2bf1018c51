#include <cstddef>

#include "orvil/params/named_items.h"
#include "params/item_access.h"

using orvil::detail::ItemAccess;

namespace {

constexpr int kBucketCount = 37;

// Hosts rely on the layout.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct Layout : CVpList {
    static constexpr bool is_as_promised() {
        return sizeof(Layout) == 80 && offsetof(Layout, prev) == 8 && offsetof(Layout, next) == 16 &&
               offsetof(Layout, case_sensitive_) == 24 && offsetof(Layout, bucket_count_) == 28 &&
               offsetof(Layout, count_) == 32 && offsetof(Layout, index_) == 40;
    }
};
#pragma GCC diagnostic pop
static_assert(Layout::is_as_promised());

}  // namespace

CVpList::CVpList(bool caseSensitive, int bucketCount)
    : case_sensitive_(caseSensitive),
      bucket_count_(bucketCount < 1 ? kBucketCount : bucketCount),
      count_(0),
      index_(bucket_count_, !caseSensitive) {
}

CVpList::CVpList(const CVpList& source) : CVpList(source.case_sensitive_, source.bucket_count_) {
    CVpList::Copy(source);
}

CVpList& CVpList::operator=(const CVpList& source) {
    if (this != &source) {
        Clear();
        Copy(source);
    }
    return *this;
}

CVpList::~CVpList() {
    Clear();
}

// An item for which the index has no memory is counted and owned all the same.
void CVpList::OnInsertItem(CVpItem* item) {
    if (item != nullptr) {
        index_.SetAt(item->GetName(), item);
        ++count_;
        ItemAccess::set_owner(*item, *this);
        item->OnAttachList(this);
    }
}

void CVpList::OnRemoveItem(CVpItem* item) {
    if (item == nullptr) {
        return;
    }
    const bool indexed = ItemAccess::is_indexed(*this, *item);
    if (indexed) {
        index_.RemoveKey(item->GetName());
    }
    if (indexed || item->Parent() == this) {
        --count_;
    }
    item->OnDetachList(this);
}

// Without memory for the new name the old one stays in the index.
void CVpList::OnRenameItem(CVpItem* item, const char* newName) {
    if (item == nullptr || Find(newName) == item) {
        return;
    }
    const bool indexed = ItemAccess::is_indexed(*this, *item);
    if (index_.SetAt(newName, item) && indexed) {
        index_.RemoveKey(item->GetName());
    }
}

bool CVpList::AddHead(CVpItem* item) {
    return ItemAccess::add(*this, item, true);
}

bool CVpList::AddTail(CVpItem* item) {
    return ItemAccess::add(*this, item, false);
}

CVpItem* CVpList::Find(const char* name) const {
    CVpItem* item = nullptr;
    index_.Lookup(name, item);
    return item;
}

CVpItem* CVpList::GetAt(int index) const {
    VPLIST* link = index < 0 ? nullptr : next;
    for (; link != nullptr && link != this; link = link->next) {
        if (index-- == 0) {
            return static_cast<CVpItem*>(link);
        }
    }
    return nullptr;
}

void CVpList::Clear() {
    while (CVpItem* item = GetHead()) {
        ItemAccess::unlink(*item);
        // NOLINTNEXTLINE(clang-analyzer-optin.cplusplus.VirtualCall): the destructor's own class is meant there
        OnRemoveItem(item);
        ItemAccess::drop_owner(*item, *this);
        item->OnDestroy();
        delete item;
    }
    index_.RemoveAll();
    count_ = 0;
}

bool CVpList::Splice(CVpList* other) {
    if (IsEmpty() || other == nullptr) {
        return false;
    }
    for (VPLIST* link = next; link != this;) {
        auto* item = static_cast<CVpItem*>(link);
        link = link->next;
        if (!other->IsExist(item->GetName())) {
            ItemAccess::move_or_keep(*this, *item, *other);
        }
    }
    return true;
}

bool CVpList::Copy(const CVpList& other) {
    if (this == &other) {
        return true;
    }
    ItemAccess::abandon(*this);
    case_sensitive_ = other.case_sensitive_;
    index_.ChangeHashKeyCalculator(!case_sensitive_);
    if (!index_.InitializeHashTable(other.bucket_count_, true)) {
        return false;
    }
    bucket_count_ = other.bucket_count_;
    bool complete = true;
    for (const VPLIST* link = other.next; complete && link != &other; link = link->next) {
        complete = ItemAccess::append_copy(*this, static_cast<const CVpItem*>(link)->duplicate());
    }
    return complete;
}
