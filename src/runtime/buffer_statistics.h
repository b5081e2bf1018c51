// The books on string buffers: every place that makes, grows or releases one calls its function here.
#pragma once

#include <cstdint>

#include "orvil/runtime/heap.h"

namespace orvil::detail {

extern std::uint64_t st_dwCurrentSize;

// The bytes held by string buffers, as the books have it.
inline std::uint64_t booked_buffer_bytes() {
    return st_dwCurrentSize;
}

inline void book(std::int64_t bytes) {
    st_dwCurrentSize += static_cast<std::uint64_t>(bytes);
    if (st_dwMostLargeSize <= st_dwCurrentSize) {
        st_dwMostLargeSize = st_dwCurrentSize;
    }
}

// A new buffer of `capacity` usable bytes, which holds one more for the terminator.
inline void book_buffer(int capacity) {
    book(std::int64_t{capacity} + 1);
}

// A buffer that grew. One byte more than the difference is booked.
inline void book_growth(int old_capacity, int new_capacity) {
    book(std::int64_t{new_capacity} - old_capacity + 1);
}

// A released buffer. The terminator's byte stays in the books: the total creeps up by one for each buffer.
inline void book_release(int capacity) {
    st_dwCurrentSize -= static_cast<std::uint64_t>(capacity);
}

}  // namespace orvil::detail
