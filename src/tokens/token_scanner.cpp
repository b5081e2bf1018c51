#include "tokens/token_scanner.h"

namespace orvil::detail {

bool TokenScanner::next(CLexToken& token, char* room) {
    TokenAccess::reset(token);
    if (!information_.IsEmpty()) {
        information_.Empty();
    }
    if (StreamAccess::at_end(stream_)) {
        return true;
    }
    const TextPosition position = StreamAccess::position(stream_);
    PlainLexeme plain;
    if (scanner_.scan_plain(plain)) {
        const bool made =
            TokenAccess::make_plain(token, plain.text, plain.size, position.line, position.column, plain.quoted, room);
        out_of_memory_ = out_of_memory_ || !made;
        return made;
    }
    binder_ = '\0';
    LexemeBuilder& lexeme = scanner_.lexeme();
    lexeme.clear();
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
