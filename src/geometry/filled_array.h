// Making an array as long as it is going to be, all at once.
#pragma once

#include <new>

#include "orvil/strings/ext_array.h"

namespace orvil::detail {

// Makes the array `count` elements long, and makes those that are missing; the others stay, with any content. Returns
// false when memory runs out; then elements may be missing.
template <typename T>
bool resize_filled(CExtArray<T>& array, int count) {
    if (count > array.GetSize() && !array.SetAdopted(count - 1, nullptr)) {
        return false;
    }
    for (int i = 0; i < count; ++i) {
        if (array.Slots()[i] != nullptr) {
            continue;
        }
        T* element = new (std::nothrow) T();
        if (element == nullptr) {
            return false;
        }
        array.SetAdopted(i, element);
    }
    while (array.GetSize() > count) {
        delete array.TakeLast();
    }
    return true;
}

}  // namespace orvil::detail
