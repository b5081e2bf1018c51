// Replacing what a pattern matches.
#pragma once

#include <climits>
#include <cstddef>
#include <string>
#include <string_view>

#include "strings/regex_entry.h"

namespace orvil::detail {

// The text with every match replaced. When a match has groups, the groups are replaced and the text behind the last of
// them is dropped; the search goes on at the last group's start plus the replacement's length in the new text.
//
// Patterns that would go on for ever end the run: the text is then what it was before the empty matches that kept it
// going, or, when groups made it grow, what it was when the rest repeated itself.
//
// Throws std::bad_alloc when there is no memory or the result is longer than the limit, which an int must be able to
// count.
std::string replace_regex(const regex_entry& entry, std::string_view text, std::string_view replacement,
                          std::size_t longest = INT_MAX);

}  // namespace orvil::detail
