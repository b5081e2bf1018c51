#include "tokens/token_scanner.h"

namespace orvil::detail {

bool TokenScanner::next(CLexToken& token) {
    TokenAccess::reset(token);
    information_.Empty();
    if (StreamAccess::at_end(stream_)) {
        return true;
    }
    binder_ = '\0';
    LexemeBuilder& lexeme = scanner_.lexeme();
    lexeme.clear();
    const TextPosition position = StreamAccess::position(stream_);
    scanner_.set_token_position(position);
    const std::optional<ETokenKind> kind = scanner_.scan();
    if (!kind) {
        return false;
    }
    if (!keep_comments_ && (*kind == eTokenComment || *kind == eTokenSingleComment)) {
        TokenAccess::make_without_text(token, position.line, position.column, *kind);
        return true;
    }
    const bool made = TokenAccess::make(token, lexeme.data(), lexeme.size(), position.line, position.column, *kind);
    out_of_memory_ = out_of_memory_ || !made;
    return made;
}

}  // namespace orvil::detail
