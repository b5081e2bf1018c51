// Wildcards as regular expressions.
#pragma once

#include "files/owned_text.h"

namespace orvil::detail {

// The notation of a wildcard: anchored at both ends, without regard to case. Null when there is no memory.
OwnedText wildcard_notation(const char* wildcard);

}  // namespace orvil::detail
