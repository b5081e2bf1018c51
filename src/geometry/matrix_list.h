// What the lists of placement steps of plane and space do alike.
#pragma once

#include "orvil/strings/ext_list.h"

namespace orvil {

// Appends an item that becomes the list's own. False when it is null; true also when there is no memory for the node,
// and the item is destroyed.
template <typename Item>
bool append_item(CExtList<Item>& list, Item* item) {
    if (item != nullptr && list.AddTailPtr(item) == nullptr) {
        delete item;
        return true;
    }
    return item != nullptr;
}

// Makes `list` hold copies of the other one's items, leaving out those for which there is no memory.
template <typename Item>
bool copy_items(CExtList<Item>& list, const CExtList<Item>& other) {
    if (&list == &other) {
        return true;
    }
    list.RemoveAll();
    for (__pos* pos = other.GetHeadPosition(); pos != nullptr;) {
        append_item(list, other.GetNext(pos)->GetCopyInstance());
    }
    return true;
}

}  // namespace orvil
