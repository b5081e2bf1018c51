// What the rest of the library may do with string arrays beyond their public members: the same results with less work.
#pragma once

#include <new>

#include "orvil/strings/ext_str_array.h"
#include "strings/string_access.h"

namespace orvil::detail {

class ArrayAccess {
public:
    // Add() for n bytes that are known to hold no zero; an empty element when n is below 1.
    static bool append(CExtStrArray& array, const char* text, int n) { return store(array, array.GetSize(), text, n); }

    // SetAt() for n bytes that are known to hold no zero, at an index whose slot is empty or does not exist yet. An
    // element without memory is empty.
    static bool store(CExtStrArray& array, int i, const char* text, int n) {
        if (!array.ReachIndex(i)) {
            return false;
        }
        if (n < 1) {
            return true;
        }
        CExtString* element = new (std::nothrow) CExtString;
        if (element == nullptr) {
            return false;
        }
        StringAccess::assign(*element, text, n);
        return array.ReplaceSlot(i, element);
    }
};

}  // namespace orvil::detail
