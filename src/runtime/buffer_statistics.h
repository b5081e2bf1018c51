// The books on string buffers: every place that makes, grows or releases one calls its function here.
#pragma once

#include <cstdint>

namespace orvil::detail {

// A new buffer of `capacity` usable bytes, which holds one more for the terminator.
void book_buffer(int capacity);

// A buffer that grew. One byte more than the difference is booked.
void book_growth(int old_capacity, int new_capacity);

// A released buffer. The terminator's byte stays in the books: the total creeps up by one for each buffer.
void book_release(int capacity);

// The bytes held by string buffers, as the books have it.
std::uint64_t booked_buffer_bytes();

}  // namespace orvil::detail
