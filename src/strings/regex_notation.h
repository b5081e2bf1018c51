// The notation of a regular expression, taken apart.
#pragma once

#include <cstddef>
#include <optional>

namespace orvil::detail {

struct RegexNotation {
    const char* pattern;  // inside the notation text
    std::size_t length;   // of the pattern
    int options;          // for pcre_compile()
};

// Nothing when the text, which is not null, is no notation.
std::optional<RegexNotation> parse_regex_notation(const char* text);

}  // namespace orvil::detail
