// Writing a file so that nothing is lost: into a new file beside the target, which is read back, compared, and takes
// the target's place only when it holds exactly what it should.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>

#include "orvil/tokens/lex_token_block.h"

namespace orvil_host {

// Nesting beyond this is not shown and not written: indentation makes such a text grow with the square of its depth.
inline constexpr std::size_t kDeepestShown = 1000;

struct WriteResult {
    std::string failure;                       // why there is no new file; empty when there is
    std::optional<std::size_t> first_changed;  // the first expected token that would not have come back
};

// Writes a root made by bt_make_master_block(); `expected` are the tokens between its heading and its closing comment.
WriteResult write_and_verify(const std::string& target, CLexTokenBlock& master, const std::deque<CLexToken>& expected);

// Writes a text, byte for byte. Returns why there is no new file; nothing when there is.
std::string write_text(const std::string& target, const std::string& text);

}  // namespace orvil_host
