#include "strings/regex_rest_search.h"

#include "strings/regex_execute.h"

namespace orvil::detail {

bool RegexRestSearch::find(std::string_view rest) {
    const int options = is_checked(rest) ? PCRE_NO_UTF8_CHECK : 0;
    const int result =
        execute_regex(entry_, {rest.data(), static_cast<int>(rest.size()), 0, options, ovector_.data(), kOvectorSize});
    if (entry_.is_utf8 && result != PCRE_ERROR_BADUTF8) {
        checked_end_ = rest.data() + rest.size();
    }
    pairs_ = result == 0 ? kMostPairs : result;
    return result >= 0;
}

// PCRE checks a whole subject before it searches in UTF-8. The end of a text that passed would pass too, if it begins
// with a whole character; checking it again and again would take quadratic time.
bool RegexRestSearch::is_checked(std::string_view rest) const {
    return entry_.is_utf8 && checked_end_ == rest.data() + rest.size() &&
           (rest.empty() || (static_cast<unsigned char>(rest.front()) & 0xC0) != 0x80);
}

}  // namespace orvil::detail
