#include "params/item_access.h"

namespace orvil::detail {

void ItemAccess::link_before(CVpItem& item, VPLIST& place) {
    item.prev = place.prev;
    item.next = &place;
    place.prev->next = &item;
    place.prev = &item;
}

void ItemAccess::unlink(CVpItem& item) {
    item.prev->next = item.next;
    item.next->prev = item.prev;
    item.prev = &item;
    item.next = &item;
}

void ItemAccess::drop_owner(CVpItem& item, const CVpList& list) {
    if (item.list_ == &list) {
        item.list_ = nullptr;
    }
}

// The list looks for an item that its index does not know: it may be one that was never entered.
void ItemAccess::forget(CVpItem& item) {
    if (CVpList* list = item.list_) {
        if (is_indexed(*list, item)) {
            list->index_.RemoveKey(item.name_);
            --list->count_;
        } else if (is_linked(*list, item)) {
            --list->count_;
        }
        item.list_ = nullptr;
    }
    unlink(item);
}

bool ItemAccess::is_linked(const CVpList& list, const CVpItem& item) {
    const VPLIST* link = list.next;
    while (link != &list && link != &item) {
        link = link->next;
    }
    return link == &item;
}

bool ItemAccess::enter(CVpList& list, CVpItem& item, VPLIST& place) {
    link_before(item, place);
    list.OnInsertItem(&item);
    const bool refused = item.list_ == &list && !is_indexed(list, item);
    if (refused) {
        item.Delete();
    }
    return !refused;
}

bool ItemAccess::add(CVpList& list, CVpItem* item, bool first) {
    if (item == nullptr || item->list_ != nullptr || list.IsExist(item->name_)) {
        return false;
    }
    unlink(*item);
    return enter(list, *item, first ? *list.next : list);
}

bool ItemAccess::insert_beside(CVpItem& neighbour, CVpItem* item, bool behind) {
    CVpList* list = neighbour.list_;
    if (item == nullptr || item == &neighbour || item->list_ != nullptr ||
        (list != nullptr && list->IsExist(item->name_))) {
        return false;
    }
    unlink(*item);
    VPLIST& place = behind ? *neighbour.next : neighbour;
    if (list != nullptr) {
        return enter(*list, *item, place);
    }
    link_before(*item, place);
    return true;
}

bool ItemAccess::move(CVpItem& item, CVpList* list, bool first) {
    if (list == nullptr) {
        return false;
    }
    item.Delete();
    return !list->IsExist(item.name_) && enter(*list, item, first ? *list->next : *list);
}

void ItemAccess::move_or_keep(CVpList& list, CVpItem& item, CVpList& other) {
    VPLIST& place = *item.next;
    item.Delete();
    if (!enter(other, item, other)) {
        link_before(item, place);
        list.OnInsertItem(&item);
    }
}

// CVpList::OnRenameItem() leaves the old name in the index when it has no memory for the new one.
bool ItemAccess::rename(CVpItem& item, const char* name) {
    CVpList* list = item.list_;
    if (list == nullptr) {
        return true;
    }
    if (list->IsExist(name)) {
        return false;
    }
    const bool was_indexed = is_indexed(*list, item);
    list->OnRenameItem(&item, name);
    return !was_indexed || !is_indexed(*list, item);
}

// A copy that is in a list already belongs to that list.
bool ItemAccess::append_copy(CVpList& list, CVpItem* copy) {
    if (copy == nullptr) {
        return false;
    }
    const bool is_new = copy->list_ == nullptr;
    const bool is_known = list.IsExist(copy->name_);
    const bool is_entered = list.AddTail(copy);
    if (is_new && !is_entered) {
        delete copy;
    }
    return is_entered || is_known || !is_new;
}

void ItemAccess::abandon(CVpList& list) {
    while (CVpItem* item = list.GetHead()) {
        unlink(*item);
        item->list_ = nullptr;
    }
    list.index_.RemoveAll();
    list.count_ = 0;
}

}  // namespace orvil::detail
