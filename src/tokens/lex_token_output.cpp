// The form in which tokens are written to a file.
#include "orvil/tokens/lex_token.h"
#include "strings/string_access.h"
#include "tokens/written_form.h"

bool CLexToken::CreateOutputString(CExtString& out) const {
    orvil::detail::OutputText text;
    if (!orvil::detail::append_written_form(text, *this, orvil::detail::LeadBytes()) || !text.good()) {
        out.Empty();
        return false;
    }
    return orvil::detail::StringAccess::assign(out, text.data(), static_cast<int>(text.size()));
}
