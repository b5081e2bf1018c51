#include "runtime/buffer_statistics.h"

namespace orvil::detail {

std::uint64_t st_dwCurrentSize = 0;

}  // namespace orvil::detail
