#include "files/wildcard.h"

#include <cstdlib>
#include <cstring>
#include <string_view>

namespace orvil::detail {
namespace {

constexpr std::string_view kBegin = "|^";
constexpr std::string_view kEnd = "$|i";
constexpr std::string_view kEscaped = "()+.[]^$";

// Writes what a character becomes, two bytes at most, and returns where it ends. The bar and other characters that mean
// something in patterns are left as they are.
char* translate(char c, char* out) {
    if (c == '*') {
        *out++ = '.';
    } else if (kEscaped.find(c) != std::string_view::npos) {
        *out++ = '\\';
    }
    *out++ = c == '?' ? '.' : c;
    return out;
}

}  // namespace

OwnedText wildcard_notation(const char* wildcard) {
    const std::size_t most = kBegin.size() + 2 * std::strlen(wildcard) + kEnd.size() + 1;
    OwnedText notation(static_cast<char*>(std::malloc(most)));
    if (!notation) {
        return notation;
    }
    char* out = notation.get() + kBegin.copy(notation.get(), kBegin.size());
    for (; *wildcard != '\0'; ++wildcard) {
        out = translate(*wildcard, out);
    }
    out += kEnd.copy(out, kEnd.size());
    *out = '\0';
    return notation;
}

}  // namespace orvil::detail
