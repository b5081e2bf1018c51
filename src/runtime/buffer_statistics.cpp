#include "runtime/buffer_statistics.h"

#include "orvil/runtime/heap.h"

namespace orvil::detail {
namespace {

std::uint64_t st_dwCurrentSize = 0;

void add(std::int64_t bytes) {
    st_dwCurrentSize += static_cast<std::uint64_t>(bytes);
    if (st_dwMostLargeSize <= st_dwCurrentSize) {
        st_dwMostLargeSize = st_dwCurrentSize;
    }
}

}  // namespace

void book_buffer(int capacity) {
    add(std::int64_t{capacity} + 1);
}

void book_growth(int old_capacity, int new_capacity) {
    add(std::int64_t{new_capacity} - old_capacity + 1);
}

void book_release(int capacity) {
    st_dwCurrentSize -= static_cast<std::uint64_t>(capacity);
}

std::uint64_t booked_buffer_bytes() {
    return st_dwCurrentSize;
}

}  // namespace orvil::detail
