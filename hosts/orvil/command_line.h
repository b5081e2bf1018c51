// The command line, read by the library's option parser.
#pragma once

#include <string>
#include <vector>

namespace orvil_host {

inline constexpr char kNoLetter = '\0';

struct OptionRule {
    const char* name;  // "drop", given as --drop
    char letter;       // 'o', given as -o
    bool takes_value;  // -o OUT, -o=OUT, --out OUT, --out=OUT
};

// What read_arguments() has read; there is one command line in a process. Options are asked for by name.
struct Arguments {
    std::vector<std::string> words;  // what is no option, and everything behind "--"

    bool has(const char* option) const;
    std::string value(const char* option, const std::string& otherwise = "") const;
};

// Sorts arguments into options and words. Returns what is wrong with them, or nothing.
std::string read_arguments(const std::vector<std::string>& given, const std::vector<OptionRule>& rules,
                           Arguments& arguments);

}  // namespace orvil_host
