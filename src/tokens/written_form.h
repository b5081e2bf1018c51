// The written form of tokens, appended to a text that is being put together.
#pragma once

#include "orvil/tokens/lex_token.h"
#include "tokens/lead_bytes.h"
#include "tokens/output_text.h"

namespace orvil::detail {

// What CLexToken::CreateOutputString() gives. False for a token without a written form; whether there was memory is for
// the buffer to tell.
bool append_written_form(OutputText& out, const CLexToken& token, const LeadBytes& lead_bytes);

}  // namespace orvil::detail
