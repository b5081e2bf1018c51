// What message files of one map and of many have in common.
#pragma once

namespace orvil::detail {

inline constexpr const char* kMessageMapName = "MessageMap";

// The heading of a file that is given no other.
inline constexpr const char* kMessageFileBanner =
    "\n\n                         Message File.                         \n\n\n";

}  // namespace orvil::detail
