// What the rest of the library may do with strings beyond their public members: the same results with less work.
#pragma once

#include <cstdint>
#include <cstring>
#include <utility>

#include "orvil/runtime/heap.h"
#include "orvil/strings/ext_string.h"
#include "runtime/buffer_statistics.h"
#include "runtime/text_memory.h"

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

    // The same for a string without a buffer, quicker.
    static bool create(CExtString& target, const char* text, int n) {
        if (n < 1 || n > kShortText) {
            return assign(target, text, n);
        }
        const int capacity = n / 8 * 8 + 8;
        auto* buffer = static_cast<char*>(allocate_text(static_cast<std::size_t>(capacity) + 1));
        if (buffer == nullptr) {
            return false;
        }
        book_buffer(capacity);
        copy_short(buffer, text, n);
        buffer[n] = '\0';
        target.buffer_ = buffer;
        target.length_ = n;
        target.capacity_ = capacity;
        return true;
    }

    // The same for at most 7 bytes, in a buffer of 8 that stands behind the string's node.
    static void create_in_room(CExtString& target, char* room, const char* text, int n) {
        constexpr int kCapacity = 8;
        note_request(kCapacity + 1);
        book_buffer(kCapacity);
        copy_short(room, text, n);
        room[n] = '\0';
        target.buffer_ = room;
        target.length_ = n;
        target.capacity_ = kCapacity;
    }

    // Releases the buffer, if it is not the one behind the node, of a string that is not used again, not even to
    // destroy it. It is a string that the library alone has worked on, so that the buffer is one of its capacity.
    static void abandon(const CExtString& string, const char* room) {
        if (string.buffer_ == nullptr) {
            return;
        }
        book_release(string.capacity_);
        if (string.buffer_ != room) {
            free_text(string.buffer_, static_cast<std::size_t>(string.capacity_) + 1);
        }
    }

    // ConcatStringLen for n bytes that are known to hold no zero. The text may lie in the target's own buffer.
    static bool append(CExtString& target, const char* text, int n) {
        if (target.length_ < 1) {
            return target.StartWith(assign(target, text, n));
        }
        return n < 1 || target.AppendKnown(text, n);
    }

    static bool has_buffer(const CExtString& string) { return string.buffer_ != nullptr; }
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

    // Copies n > 0 bytes into a block of their own. Most texts are short: two overlapping moves spare the call.
    static void copy_text(char* to, const char* from, int n) {
        if (n <= kShortText) {
            copy_short(to, from, n);
        } else {
            std::memcpy(to, from, static_cast<std::size_t>(n));
        }
    }

private:
    static constexpr int kShortText = 16;

    static void copy_short(char* to, const char* from, int n) {
        if (n == 1) {
            *to = *from;
        } else if (n < 4) {
            move_ends<std::uint16_t>(to, from, n);
        } else if (n < 8) {
            move_ends<std::uint32_t>(to, from, n);
        } else {
            move_ends<std::uint64_t>(to, from, n);
        }
    }

    template <typename Word>
    static void move_ends(char* to, const char* from, int n) {
        Word first;
        Word last;
        const std::size_t behind = static_cast<std::size_t>(n) - sizeof(Word);
        std::memcpy(&first, from, sizeof first);
        std::memcpy(&last, from + behind, sizeof last);
        std::memcpy(to, &first, sizeof first);
        std::memcpy(to + behind, &last, sizeof last);
    }
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
