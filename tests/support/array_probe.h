// A CExtStrArray whose protected members can be reached, and its content in a form that reads well in a failed test.
#pragma once

#include <initializer_list>
#include <string>

#include "orvil/strings/ext_str_array.h"

namespace orvil::test {

class ArrayProbe : public CExtStrArray {
public:
    ArrayProbe() = default;
    explicit ArrayProbe(std::initializer_list<const char*> texts) {
        for (const char* text : texts) {
            Add(text);
        }
    }
    using CExtStrArray::operator=;

    using CExtStrArray::AllocArray;
    using CExtStrArray::AppendElement;
    using CExtStrArray::CalcNewArraySize;
    using CExtStrArray::capacity_;
    using CExtStrArray::DeleteElements;
    using CExtStrArray::FreeArray;
    using CExtStrArray::Init;
    using CExtStrArray::MoveElement;
    using CExtStrArray::MoveElements;
    using CExtStrArray::ReplaceElement;
    using CExtStrArray::ReplaceElements;
    using CExtStrArray::ResizeArray;
    using CExtStrArray::size_;
    using CExtStrArray::slots_;

    // Whether the members are consistent: a capacity of sixteens above the size, and empty slots beyond the size.
    bool is_sound() const {
        if (slots_ == nullptr) {
            return size_ == 0 && capacity_ == 0;
        }
        for (int i = size_; i < capacity_; ++i) {
            if (slots_[i] != nullptr) {
                return false;
            }
        }
        return size_ >= 0 && size_ < capacity_ && capacity_ % 16 == 0;
    }
};

// The elements in brackets, an empty slot as a tilde: "[a][~][b]".
inline std::string show(const CExtStrArray& array) {
    std::string text;
    for (int i = 0; i < array.GetSize(); ++i) {
        text += std::string("[") + (array.GetAt(i) == nullptr ? "~" : array.GetAt(i)) + "]";
    }
    return text;
}

}  // namespace orvil::test
