#include "strings/regex_notation.h"

#include <pcre.h>

#include <cctype>
#include <cstring>

namespace orvil::detail {
namespace {

bool is_white_space(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

bool is_delimiter(char c) {
    return c != '\0' && c != '\\' && std::isalnum(static_cast<unsigned char>(c)) == 0;
}

// Nothing for a character that is no flag. A blank and a line feed are flags without effect.
std::optional<int> option_of(char flag) {
    switch (flag) {
        case 'i':
            return PCRE_CASELESS;
        case 'm':
            return PCRE_MULTILINE;
        case 's':
            return PCRE_DOTALL;
        case 'x':
            return PCRE_EXTENDED;
        case 'A':
            return PCRE_ANCHORED;
        case 'E':
            return PCRE_DOLLAR_ENDONLY;
        case 'X':
            return PCRE_EXTRA;
        case 'U':
            return PCRE_UNGREEDY;
        case ' ':
        case '\n':
            return 0;
        default:
            return std::nullopt;
    }
}

std::optional<int> parse_flags(const char* flags) {
    int options = 0;
    for (; *flags != '\0'; ++flags) {
        const std::optional<int> option = option_of(*flags);
        if (!option) {
            return std::nullopt;
        }
        options |= *option;
    }
    return options;
}

}  // namespace

std::optional<RegexNotation> parse_regex_notation(const char* text) {
    while (is_white_space(*text)) {
        ++text;
    }
    if (!is_delimiter(*text)) {
        return std::nullopt;
    }
    const char* pattern = text + 1;
    const char* closing = std::strchr(pattern, *text);
    if (closing == nullptr) {
        return RegexNotation{pattern, std::strlen(pattern), 0};
    }
    const std::optional<int> options = parse_flags(closing + 1);
    if (!options) {
        return std::nullopt;
    }
    // Two delimiters side by side enclose nothing: the pattern is the second one and all that follows, flags included.
    const std::size_t length = closing != pattern ? static_cast<std::size_t>(closing - pattern) : std::strlen(pattern);
    return RegexNotation{pattern, length, *options};
}

}  // namespace orvil::detail
