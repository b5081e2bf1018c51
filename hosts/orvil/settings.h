// NAME=VALUE of the command line, as an assignment.
#pragma once

#include <string>

#include "orvil/tokens/lex_token_block.h"

namespace orvil_host {

// Adds the assignment that a text stands for to a block. Returns why it cannot, or nothing.
//
//     5, -5, +5          decimal, of 32 bits
//     0xFF               hexadecimal, of 32 bits
//     1.5, 1e5           double
//     On, Off            a switch
//     anything else      a string
std::string add_setting(CLexTokenBlock& block, const std::string& setting);

}  // namespace orvil_host
