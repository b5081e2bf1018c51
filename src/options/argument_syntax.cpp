#include "options/argument_syntax.h"

#include <algorithm>
#include <iterator>

namespace orvil::detail {
namespace {

constexpr char kLineFeed = '\n';

bool is_letter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool is_space(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// What may stand before the last line feed stands at the end.
std::string_view without_last_line_feed(std::string_view text) {
    return text.ends_with(kLineFeed) ? text.substr(0, text.size() - 1) : text;
}

bool is_separator(char c) {
    return c == ':' || c == '=';
}

bool is_attachable(std::string_view value) {
    return !value.empty() && value.find(kLineFeed) == std::string_view::npos;
}

// --- words -----------------------------------------------------------------------------------------------------------

constexpr std::string_view kTrueWords[] = {"true", "on", "set", "yes", "ok", "enable", "1", "y"};
constexpr std::string_view kFalseWords[] = {"false", "off", "reset", "no", "cancel", "disable", "0", "n"};

char to_lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool is_word(std::string_view text, std::string_view word) {
    return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                      [](char left, char right) { return to_lower(left) == right; });
}

bool begins_with(std::string_view text, std::string_view word) {
    return text.size() >= word.size() && is_word(text.substr(0, word.size()), word);
}

bool ends_with(std::string_view text, std::string_view word) {
    return text.size() >= word.size() && is_word(text.substr(text.size() - word.size()), word);
}

}  // namespace

bool is_boolean_symbol(std::string_view text) {
    const std::string_view visible = without_last_line_feed(text);
    return std::any_of(std::begin(kTrueWords), std::end(kTrueWords),
                       [&](std::string_view word) { return begins_with(text, word); }) ||
           std::any_of(std::begin(kFalseWords), std::end(kFalseWords),
                       [&](std::string_view word) { return ends_with(visible, word); });
}

bool is_true_word(std::string_view text) {
    const std::string_view visible = without_last_line_feed(text);
    return std::any_of(std::begin(kTrueWords), std::end(kTrueWords),
                       [&](std::string_view word) { return is_word(visible, word); });
}

// --- declarations ----------------------------------------------------------------------------------------------------

// The name ends at the first colon. When there is nothing but white space before it, the last of that is the name.
Declaration read_declaration(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || colon == 0) {
        return {text};
    }
    const std::string_view before = text.substr(0, colon);
    const auto name = std::find_if_not(before.begin(), before.end() - 1, is_space);
    const std::string_view behind = text.substr(colon + 1);
    const auto letter = std::find_if_not(behind.begin(), behind.end(), is_space);
    if (letter == behind.end() || !is_letter(*letter) || !std::all_of(letter + 1, behind.end(), is_space)) {
        return {text};
    }
    return {before.substr(static_cast<std::size_t>(name - before.begin())), *letter};
}

// --- options ---------------------------------------------------------------------------------------------------------

bool read_option_argument(std::string_view argument, OptionArgument& option) {
    option.is_long = argument[1] == '-';
    const auto begin = argument.begin() + (option.is_long ? 2 : 1);
    const auto end = option.is_long ? std::find_if(begin, argument.end(), is_separator) : begin + 1;
    option.name = {begin, end};
    if (option.is_long ? option.name.empty() : !is_letter(option.name.front())) {
        return false;
    }
    const std::string_view rest(end, argument.end());
    option.has_value = !without_last_line_feed(rest).empty();
    if (!option.has_value) {
        return true;
    }
    option.value = without_last_line_feed(rest.substr(1));
    return is_separator(rest.front()) && is_attachable(option.value);
}

}  // namespace orvil::detail
