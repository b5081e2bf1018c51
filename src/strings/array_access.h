// What the rest of the library may do with string arrays beyond their public members: the same results with less work.
#pragma once

#include <new>

#include "orvil/strings/ext_str_array.h"
#include "strings/string_access.h"

namespace orvil::detail {

class ArrayAccess {
public:
    // Add() for n bytes that are known to hold no zero; an empty element when n is below 1.
    static bool append(CExtStrArray& array, const char* text, int n) {
        if (n < 1) {
            return array.AppendElement(nullptr);
        }
        CExtString* element = new (std::nothrow) CExtString;
        if (element == nullptr) {
            return false;
        }
        StringAccess::assign(*element, text, n);
        if (!array.ResizeArray(array.GetSize() + 1)) {
            delete element;
            return false;
        }
        return array.ReplaceSlot(array.GetSize() - 1, element);
    }
};

}  // namespace orvil::detail
