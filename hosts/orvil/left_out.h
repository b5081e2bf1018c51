// Characters that do not come into the token that they stand in.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "orvil/tokens/lex_token.h"

namespace orvil_host {

// Where the first of them stands in the bytes that a token was made of. These begin with the token's first byte and end
// where reading it ended.
std::optional<std::size_t> find_left_out(std::string_view bytes, const CLexToken& token);

}  // namespace orvil_host
