// The forms of declarations, options and boolean values. They are those of regular expressions, matched by hand:
//
//     declaration       /^\s*([^:]+)\s*:\s*([A-Za-z])\s*$/
//     long option       /^--([^:=]+)([:=](.+))?$/
//     short option      /^-([^:=])([:=](.+))?$/
//     boolean symbol    /^(True|On|Set|Yes|Ok|Enable|1|Y|y)|(False|Off|Reset|No|Cancel|Disable|0|N|n)$/i
//     true word         /^(True|On|Set|Yes|Ok|Enable|1|Y|y)$/i
//
// There, a dollar also matches before a line feed that ends the text; a dot matches no line feed, and a class that
// excludes other characters does.
#pragma once

#include <string_view>

namespace orvil::detail {

struct Declaration {
    std::string_view name;
    char letter = '\0';  // zero for none
};

// A text that is not of the form is a name as a whole.
Declaration read_declaration(std::string_view text);

struct OptionArgument {
    std::string_view name;  // a long name or a letter
    bool is_long = false;
    bool has_value = false;
    std::string_view value;
};

// Reads an argument that begins with a dash and has more. False when it has neither form, or the short one with another
// character than a letter, which nothing can declare.
bool read_option_argument(std::string_view argument, OptionArgument& option);

bool is_boolean_symbol(std::string_view text);
bool is_true_word(std::string_view text);

}  // namespace orvil::detail
