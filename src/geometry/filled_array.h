// Making an array as long as it is going to be, all at once.
#pragma once

#include <new>

#include "orvil/strings/ext_array.h"

namespace orvil::detail {

// Makes the array `count` slots long. Those that are new are empty, elements beyond are deleted, the others stay with
// any content. Returns false when memory runs out.
template <typename T>
bool resize_slots(CExtArray<T>& array, int count) {
    while (array.GetSize() > count) {
        delete array.TakeLast();
    }
    return array.GetSize() == count || array.SetAdopted(count - 1, nullptr);
}

// Makes the elements of the empty slots among those from `from` up to, not including, `to`. Returns false when memory
// runs out; then some stay empty.
template <typename T>
bool fill_slots(CExtArray<T>& array, int from, int to) {
    for (int i = from; i < to; ++i) {
        if (array.Slots()[i] != nullptr) {
            continue;
        }
        T* element = new (std::nothrow) T();
        if (element == nullptr) {
            return false;
        }
        array.SetAdopted(i, element);
    }
    return true;
}

}  // namespace orvil::detail
