#include "command_line.h"

#include <algorithm>
#include <cstddef>

#include "orvil/options/option_parser.h"

namespace orvil_host {
namespace {

using Texts = std::vector<std::string>;

// --- rules -----------------------------------------------------------------------------------------------------------

std::string long_form(const OptionRule& rule) {
    return std::string("--") + rule.name;
}

std::string short_form(const OptionRule& rule) {
    return rule.letter == kNoLetter ? long_form(rule) : std::string("-") + rule.letter;
}

// A value's option is a list, so that a second value shows.
void declare(const OptionRule& rule) {
    const std::string text = rule.letter == kNoLetter ? rule.name : std::string(rule.name) + ": " + rule.letter;
    const char* const declarations[] = {text.c_str(), nullptr};
    rule.takes_value ? getopt_init_listmap(declarations) : getopt_init_boolmap(declarations);
}

// The rule of an option that stands without an attached value; null when there is none.
const OptionRule* find_rule(const std::vector<OptionRule>& rules, const std::string& argument) {
    const auto rule = std::find_if(rules.begin(), rules.end(), [&](const OptionRule& each) {
        return argument == long_form(each) || argument == short_form(each);
    });
    return rule == rules.end() ? nullptr : &*rule;
}

// --- reading ---------------------------------------------------------------------------------------------------------

// The option parser drops an option before an argument with a dash, and takes a name such as "plan" for the "off" of a
// switch before it. Attached values keep it from both.
Texts attach_values(const Texts& given, const std::vector<OptionRule>& rules) {
    Texts attached;
    for (std::size_t i = 0; i < given.size(); ++i) {
        const OptionRule* rule = find_rule(rules, given[i]);
        attached.push_back(given[i]);
        if (rule == nullptr) {
            continue;
        }
        if (!rule->takes_value) {
            attached.back() += "=True";
        } else if (i + 1 < given.size()) {
            ++i;
            given[i].starts_with('-') ? attached.back() += "=" + given[i] : attached.emplace_back(given[i]);
        }
    }
    return attached;
}

bool parse(const Texts& texts) {
    CExtStrList list;
    for (const std::string& text : texts) {
        list.AddTail(text.c_str());
    }
    return getopt_parse_arguments(list, true);
}

std::string why_refused(const Texts& texts) {
    const std::string note = getopt_get_errornote();
    const auto position = static_cast<std::size_t>(getopt_get_errorpos());
    return note.starts_with("unknown option") ? "there is no option " + texts[position] : note;
}

std::string why_incomplete(const Texts& texts, const std::vector<OptionRule>& rules) {
    if (static_cast<std::size_t>(getopt_get_errorpos()) > texts.size()) {
        return "option " + texts.back() + " needs a value";
    }
    for (const OptionRule& rule : rules) {
        if (rule.takes_value && getopt_list_count(rule.name) > 1) {
            return "option " + short_form(rule) + " is given twice";
        }
    }
    return "";
}

}  // namespace

bool Arguments::has(const char* option) const {
    return getopt_boolean(option) || getopt_list_count(option) > 0;
}

std::string Arguments::value(const char* option, const std::string& otherwise) const {
    return getopt_list_count(option) > 0 ? getopt_list(option, 0).GetString() : otherwise;
}

std::string read_arguments(const std::vector<std::string>& given, const std::vector<OptionRule>& rules,
                           Arguments& arguments) {
    getopt_initialize();
    std::for_each(rules.begin(), rules.end(), declare);
    const auto dashes = std::find(given.begin(), given.end(), "--");
    const Texts texts = attach_values({given.begin(), dashes}, rules);
    if (!parse(texts)) {
        return why_refused(texts);
    }
    for (int i = 0; i < getopt_item_count(); ++i) {
        arguments.words.emplace_back(getopt_item(i));
    }
    arguments.words.insert(arguments.words.end(), dashes == given.end() ? dashes : dashes + 1, given.end());
    return why_incomplete(texts, rules);
}

}  // namespace orvil_host
