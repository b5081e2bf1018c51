// The command line, read by a plain table of options.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace orvil_host {

struct OptionRule {
    const char* name;  // "-o" or "--drop"
    bool takes_value;  // from the next argument
};

struct Arguments {
    std::map<std::string, std::string> options;
    std::vector<std::string> words;  // what is no option, and everything behind "--"

    bool has(const std::string& option) const { return options.contains(option); }
    std::string value(const std::string& option, const std::string& otherwise = "") const;
};

// Sorts arguments into options and words. Returns what is wrong with them, or nothing.
std::string read_arguments(const std::vector<std::string>& given, const std::vector<OptionRule>& rules,
                           Arguments& arguments);

}  // namespace orvil_host
