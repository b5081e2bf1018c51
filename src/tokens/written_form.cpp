#include "tokens/written_form.h"

#include "tokens/meta_characters.h"

namespace orvil::detail {
namespace {

// Line and column of a header marker.
constexpr int kHeaderMarker = -999;

void append_quoted(OutputText& out, const char* text, std::size_t length, const LeadBytes& lead_bytes) {
    const char* const end = text + length;
    const char* run = text;
    out.append(1, '"');
    for (const char* at = text; at < end; ++at) {
        const char letter = meta_character(*at).escape_letter;
        if (letter != '\0') {
            out.append(run, static_cast<std::size_t>(at - run));
            out.append(1, '\\');
            out.append(1, letter);
            run = at + 1;
        } else if (lead_bytes.contains(*at) && end - at > 1) {
            ++at;
        }
    }
    out.append(run, static_cast<std::size_t>(end - run));
    out.append(1, '"');
}

}  // namespace

bool append_written_form(OutputText& out, const CLexToken& token, const LeadBytes& lead_bytes) {
    const CExtString& text = token.GetPureString();
    const std::size_t length = text.GetLength() > 0 ? static_cast<std::size_t>(text.GetLength()) : 0;
    if (token.CompareFilePosition(kHeaderMarker, kHeaderMarker)) {
        out.append("// ");
        out.append(text.GetString());
        out.append(" : ");
        return true;
    }
    switch (token.GetTokenKind()) {
        case eTokenEmpty:
            return true;
        case eTokenMetaChar: {
            const MetaCharacter& meta = meta_character(text.GetAt(0));
            out.append(meta.written);
            return meta.written[0] != '\0';
        }
        case eTokenString:
            append_quoted(out, text.GetString(), length, lead_bytes);
            return true;
        case eTokenDecimal:
        case eTokenHexaDecimal:
        case eTokenDouble:
        case eTokenSymbol:
        case eTokenComment:
        case eTokenSingleComment:
        case eTokenPreprocessor:
            out.append(text.GetString(), length);
            return true;
        default:
            return false;
    }
}

}  // namespace orvil::detail
