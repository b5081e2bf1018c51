// What the soak test finds in the module that works with the library.
#pragma once

namespace orvil::soak {

// Works once with each subsystem, differently for different numbers, with files in the working folder. The result names
// the first subsystem that gave a wrong result, or is null.
using Round = const char* (*)(unsigned number);
inline constexpr char kRoundName[] = "soak_round";

}  // namespace orvil::soak
