// Filling an array anew with as few allocations as can be.
#pragma once

#include <new>

#include "orvil/strings/ext_array.h"

namespace orvil::detail {

// Hands out the elements of an array from the first on, to be written over, then new ones behind them.
template <typename T>
class ArrayRewriter {
public:
    explicit ArrayRewriter(CExtArray<T>& array) : array_(array) {}

    // The next element, with any content; null when memory runs out.
    T* next() {
        T* element = array_.GetAt(count_);
        if (element == nullptr) {
            element = new (std::nothrow) T();
            if (element == nullptr || !array_.SetAdopted(count_, element)) {
                delete element;
                return nullptr;
            }
        }
        ++count_;
        return element;
    }

    // Drops what was not handed out.
    void finish() {
        while (array_.GetSize() > count_) {
            delete array_.TakeLast();
        }
    }

private:
    CExtArray<T>& array_;
    int count_ = 0;
};

}  // namespace orvil::detail
