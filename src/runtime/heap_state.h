// The private heap's end, shared by orv_heap_term() and the unloading of the library.
#pragma once

#include <cstdint>

namespace orvil::detail {

// Destroys the private heap and forgets its handle; the result is that of orv_heap_term().
std::uint32_t destroy_private_heap();

}  // namespace orvil::detail
