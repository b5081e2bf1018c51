// How documents show tokens and trees: a token a line, as its kind and its text; what is in a node is indented.
#pragma once

#include <string>

#include "orvil/orvil.h"

namespace orvil::test {

// The tokens of a file as the analyser cuts them, up to the end of the file or a failure; the message of a failure is a
// last line "failure ...". With positions each line begins with "line:column ".
std::string token_lines(const std::string& path, bool with_positions);

// The children of a root. Delimiters in their regular places are left out: `=` and `;` of an assignment, `{` and `}` of
// a block. A block without its `}` is marked as open.
std::string tree_outline(const CLexTokenBlock& root);

}  // namespace orvil::test
