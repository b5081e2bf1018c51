// What named items and their lists do to each other beyond their public members.
#pragma once

#include "orvil/params/named_items.h"

namespace orvil::detail {

class ItemAccess {
public:
    // Unlinks an item, which stands alone then. Its list is not told.
    static void unlink(CVpItem& item);

    static void set_owner(CVpItem& item, CVpList& list) { item.list_ = &list; }

    // The item names `list` as its owner no longer. An override of a hook may have kept it, or found another one.
    static void drop_owner(CVpItem& item, const CVpList& list);

    // Takes an item out of its list, if it is in one, without calling a hook.
    static void forget(CVpItem& item);

    // Links an item that stands alone before `place` and tells the list. When the index has no memory for it, the item
    // leaves again and the result is false.
    static bool enter(CVpList& list, CVpItem& item, VPLIST& place);

    // enter(), for an item that may be null, in a list or of a name that is there already: then it is false. An item
    // that is linked with others outside of a list leaves them first.
    static bool add(CVpList& list, CVpItem* item, bool first);

    // Links an item behind or before another one, by the rules of add() where that one is in a list.
    static bool insert_beside(CVpItem& neighbour, CVpItem* item, bool behind);

    // Takes an item out of its list before the other list is asked for the name.
    static bool move(CVpItem& item, CVpList* list, bool first);

    // Moves an item to the end of another list. One that the other list has no memory for goes back to its place.
    static void move_or_keep(CVpList& list, CVpItem& item, CVpList& other);

    // Changes the name in the index of the item's list, if it is in one. False, and nothing has changed, when the name
    // is there already or there is no memory.
    static bool rename(CVpItem& item, const char* name);

    // Appends what CVpItem::duplicate() gave, or deletes it when its name is there already. False when there is no
    // memory.
    static bool append_copy(CVpList& list, CVpItem* copy);

    // Lets all items go, without calling a hook.
    static void abandon(CVpList& list);

    // Whether the index finds the item by its name.
    static bool is_indexed(const CVpList& list, const CVpItem& item) { return list.Find(item.name_) == &item; }

private:
    static void link_before(CVpItem& item, VPLIST& place);
    static bool is_linked(const CVpList& list, const CVpItem& item);
};

}  // namespace orvil::detail
