#include "name_check.h"

#include <algorithm>
#include <string_view>

#include "orvil/tokens/lex_token.h"
#include "report.h"

namespace orvil_host {
namespace {

constexpr std::string_view kDelimiters = "\"'#()*,/:;=[\\]{}";

bool ends_a_name(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte <= ' ' || byte >= 0x7F || kDelimiters.find(character) != std::string_view::npos;
}

}  // namespace

std::string why_no_name(const std::string& text) {
    if (text.empty()) {
        return "a name is missing";
    }
    const auto bad = std::find_if(text.begin(), text.end(), ends_a_name);
    if (bad != text.end()) {
        return quoted(text) + " is no name: " + quoted(std::string(1, *bad)) + " cannot stand in one";
    }
    CLexToken token;
    token.Create(text.c_str(), 0, 0, true, eTokenNone);
    if (token.IsSymbolToken()) {
        return "";
    }
    return quoted(text) + " is no name: it reads as " +
           (token.IsHexaDecimalToken() ? "a hexadecimal number, as all words of the letters a to f do"
            : token.IsMetaCharToken()  ? "a delimiter"
                                       : "a number");
}

}  // namespace orvil_host
