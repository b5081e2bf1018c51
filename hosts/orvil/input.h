// Reading a file for a command: into a tree, with failures said.
#pragma once

#include <string>

#include "orvil/tokens/lex_token_block.h"
#include "review.h"
#include "source_text.h"

namespace orvil_host {

struct Input {
    CLexTokenBlock root;
    SourceText text;
    Review review;
};

// Whether the file reads whole. When it does not, that has been said on standard error.
bool read_input(const std::string& path, Input& input);

}  // namespace orvil_host
