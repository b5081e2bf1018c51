// Which texts can name an assignment or a block.
#pragma once

#include <string>

namespace orvil_host {

// Why a text cannot be a name; empty when it can.
std::string why_no_name(const std::string& text);

}  // namespace orvil_host
