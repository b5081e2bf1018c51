// Replacing what a pattern matches.
#pragma once

#include <string_view>

#include "strings/bounded_text.h"
#include "strings/regex_entry.h"

namespace orvil::detail {

// Appends to `result` the text with every match replaced. When a match has groups, the groups are replaced and the text
// behind the last of them is dropped; the search goes on at the last group's start plus the replacement's length in the
// new text.
//
// Patterns that would go on for ever end the run: the text is then what it was before the empty matches that kept it
// going, or, when groups made it grow, what it was when the rest repeated itself.
//
// False when there is no memory or the result gets too long; then `result` is incomplete.
bool replace_regex(const regex_entry& entry, std::string_view text, std::string_view replacement, BoundedText& result);

}  // namespace orvil::detail
