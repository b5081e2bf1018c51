// What the rest of the library may do with strings beyond their public members: the same results with less work.
#pragma once

#include <cstring>
#include <utility>

#include "orvil/runtime/heap.h"
#include "orvil/strings/ext_string.h"
#include "runtime/buffer_statistics.h"

namespace orvil::detail {

// min(strlen(s), n) without looking beyond n bytes; 0 for null and for n < 1.
inline int bounded_length(const char* s, int n) {
    if (s == nullptr || n < 1) {
        return 0;
    }
    const void* end = std::memchr(s, '\0', static_cast<std::size_t>(n));
    return end == nullptr ? n : static_cast<int>(static_cast<const char*>(end) - s);
}

// Text and capacity come out as those of the public members that are named.
class StringAccess {
public:
    // Exchanges the buffers. Nothing is allocated or booked.
    static void swap(CExtString& a, CExtString& b) noexcept {
        std::swap(a.buffer_, b.buffer_);
        std::swap(a.length_, b.length_);
        std::swap(a.capacity_, b.capacity_);
    }

    // CreateFromStringLen for n bytes that are known to hold no zero. The text may lie in the target's own buffer.
    static bool assign(CExtString& target, const char* text, int n) {
        if (n < 1) {
            target.Empty();
            return true;
        }
        return target.TakeFresh(text, n);
    }

    // ConcatStringLen for n bytes that are known to hold no zero. The text may lie in the target's own buffer.
    static bool append(CExtString& target, const char* text, int n) {
        if (target.length_ < 1) {
            return target.StartWith(assign(target, text, n));
        }
        return n < 1 || target.AppendKnown(text, n);
    }

    static int capacity(const CExtString& string) { return string.capacity_; }

    // Empties a string without releasing the buffer, of which the books say that it is released.
    static char* detach(CExtString& string) {
        char* buffer = string.buffer_;
        if (buffer != nullptr) {
            book_release(string.capacity_);
            string.Init();
        }
        return buffer;
    }

    // The bytes themselves, for changes in place; null when there is no buffer.
    static char* bytes(CExtString& string) { return string.buffer_; }
};

// Empties a string, whose former text stays readable as long as this object lives.
class FormerBuffer {
public:
    explicit FormerBuffer(CExtString& string) : buffer_(StringAccess::detach(string)) {}
    ~FormerBuffer() { orv_heap_free(buffer_); }
    FormerBuffer(const FormerBuffer&) = delete;
    FormerBuffer& operator=(const FormerBuffer&) = delete;

private:
    char* buffer_;
};

}  // namespace orvil::detail
