// A token-block file as it stands on disk: all of its tokens one after the other, comments and empty strings too, each
// with its place. The tree leaves some of them out; here nothing is.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "orvil/tokens/lex_token.h"
#include "report.h"

namespace orvil_host {

struct SourceToken {
    CLexToken token;
    Place place;  // of its first byte, a string's quote included
};

// A character of a token that the library leaves out: a quote within a word or within a string of the other quote, a
// NUL byte, or a carriage return alone in a line that is a token.
struct LeftOut {
    std::size_t token;
    Place place;
    char character;
};

struct SourceText {
    std::deque<SourceToken> tokens;
    std::vector<LeftOut> left_out;  // the first one of each token that has any
    Place end;
    std::optional<Finding> fault;  // where the tokens end before the file does
};

// Nothing when the file cannot be opened or read.
std::optional<SourceText> read_source_text(const std::string& path);

}  // namespace orvil_host
