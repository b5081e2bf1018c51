#include "left_out.h"

namespace orvil_host {
namespace {

std::optional<std::size_t> find_nul(std::string_view bytes) {
    const std::size_t place = bytes.find('\0');
    return place == std::string_view::npos ? std::nullopt : std::optional(place);
}

// A token that is the rest of its line ends at a line feed or a NUL byte, and keeps no carriage return before it.
std::optional<std::size_t> find_lone_return(std::string_view bytes) {
    std::size_t place = bytes.find('\r');
    while (place != std::string_view::npos && (place + 1 == bytes.size() || bytes[place + 1] == '\n')) {
        place = bytes.find('\r', place + 1);
    }
    return place == std::string_view::npos ? std::nullopt : std::optional(place);
}

bool is_quote(char character) {
    return character == '"' || character == '\'';
}

// A quote opens a string while the word is empty, and then its like closes it. A second opener takes the place of the
// first one, and every other quote is left out. A backslash takes the next character as it is.
std::optional<std::size_t> find_lone_quote(std::string_view bytes) {
    std::optional<std::size_t> opener;
    bool is_empty = true;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (opener && bytes[i] == bytes[*opener]) {
            return std::nullopt;
        }
        if (bytes[i] == '\0' || (is_quote(bytes[i]) && !is_empty)) {
            return i;
        }
        if (is_quote(bytes[i]) && opener) {
            return opener;
        }
        if (is_quote(bytes[i])) {
            opener = i;
            continue;
        }
        is_empty = false;
        if (bytes[i] == '\\') {
            ++i;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::size_t> find_left_out(std::string_view bytes, const CLexToken& token) {
    if (token.IsCommentToken()) {
        return find_nul(bytes);
    }
    return token.IsSingleCommentToken() || token.IsPreprocessorToken() ? find_lone_return(bytes)
                                                                       : find_lone_quote(bytes);
}

}  // namespace orvil_host
