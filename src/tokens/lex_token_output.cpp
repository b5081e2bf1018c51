// The form in which tokens are written to a file.
#include <climits>
#include <cstring>

#include "orvil/tokens/lex_token.h"
#include "strings/string_access.h"
#include "tokens/lead_bytes.h"
#include "tokens/meta_characters.h"

using orvil::detail::LeadBytes;
using orvil::detail::meta_character;
using orvil::detail::StringAccess;

namespace {

// Line and column of a header marker.
constexpr int kHeaderMarker = -999;

// Calls visit(from, size, letter) for the runs of a text that stand as they are, with the escape letter of the
// character that follows the run and is not part of it; 0 at the end. Both bytes of a double-byte character stand as
// they are.
template <typename Visit>
void for_each_run(const char* from, const char* end, Visit visit) {
    const LeadBytes lead_bytes;
    const char* at = from;
    while (at != end) {
        const char letter = meta_character(*at).escape_letter;
        if (letter != '\0') {
            visit(from, at - from, letter);
            from = ++at;
        } else {
            at += lead_bytes.contains(*at) && end - at > 1 ? 2 : 1;
        }
    }
    visit(from, end - from, '\0');
}

// The text is filled with quotes first; the one at its end stays.
bool quote(CExtString& out, const char* text, int length) {
    long long size = 2;
    for_each_run(text, text + length,
                 [&size](const char*, std::ptrdiff_t run, char letter) { size += run + (letter != '\0' ? 2 : 0); });
    if (size > INT_MAX || !out.CreateFromCharacters('"', static_cast<int>(size))) {
        return false;
    }
    char* at = StringAccess::bytes(out) + 1;
    for_each_run(text, text + length, [&at](const char* from, std::ptrdiff_t run, char letter) {
        std::memcpy(at, from, static_cast<std::size_t>(run));
        at += run;
        if (letter != '\0') {
            *at++ = '\\';
            *at++ = letter;
        }
    });
    return true;
}

}  // namespace

bool CLexToken::CreateOutputString(CExtString& out) const {
    out.Empty();
    if (CompareFilePosition(kHeaderMarker, kHeaderMarker)) {
        return out.ConcatString("// ") && out.ConcatObject(text_) && out.ConcatString(" : ");
    }
    switch (kind_) {
        case eTokenEmpty:
            return true;
        case eTokenMetaChar: {
            const char* written = TransMetaCharToString(IsMetaCharacter(text_.GetAt(0)));
            return written != nullptr && out.CreateFromString(written);
        }
        case eTokenString:
            return quote(out, text_, text_.GetLength());
        case eTokenDecimal:
        case eTokenHexaDecimal:
        case eTokenDouble:
        case eTokenSymbol:
        case eTokenComment:
        case eTokenSingleComment:
        case eTokenPreprocessor:
            return out.CreateFromString(text_);
        default:
            return false;
    }
}
