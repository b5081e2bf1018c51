#include "command_line.h"

#include <algorithm>

namespace orvil_host {
namespace {

bool looks_like_option(const std::string& argument) {
    return argument.size() > 1 && argument.front() == '-';
}

const OptionRule* find_rule(const std::vector<OptionRule>& rules, const std::string& name) {
    const auto rule =
        std::find_if(rules.begin(), rules.end(), [&](const OptionRule& each) { return name == each.name; });
    return rule == rules.end() ? nullptr : &*rule;
}

}  // namespace

std::string Arguments::value(const std::string& option, const std::string& otherwise) const {
    const auto found = options.find(option);
    return found == options.end() ? otherwise : found->second;
}

std::string read_arguments(const std::vector<std::string>& given, const std::vector<OptionRule>& rules,
                           Arguments& arguments) {
    for (auto next = given.begin(); next != given.end(); ++next) {
        if (*next == "--") {
            arguments.words.insert(arguments.words.end(), next + 1, given.end());
            break;
        }
        if (!looks_like_option(*next)) {
            arguments.words.push_back(*next);
            continue;
        }
        const std::string& option = *next;
        const OptionRule* rule = find_rule(rules, option);
        if (rule == nullptr) {
            return "there is no option " + option;
        }
        if (arguments.has(option)) {
            return "option " + option + " is given twice";
        }
        if (rule->takes_value && ++next == given.end()) {
            return "option " + option + " needs a value";
        }
        arguments.options[option] = rule->takes_value ? *next : "";
    }
    return "";
}

}  // namespace orvil_host
