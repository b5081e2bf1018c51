// What the library's own makers of tokens may do beyond the public members.
#pragma once

#include <utility>

#include "orvil/tokens/lex_token.h"
#include "runtime/node_memory.h"
#include "strings/string_access.h"
#include "tokens/meta_characters.h"

namespace orvil::detail {

struct TokenAccess {
    // Becomes a token of `size` bytes without a NUL, which are copied once. Position, kind and result are those of
    // Create() with analyze set when `kind` is none, else those of Create() with that kind.
    static bool make(CLexToken& token, const char* text, int size, int line, int column, ETokenKind kind) {
        if (!StringAccess::assign(token.text_, text, size)) {
            reset(token);
            return false;
        }
        token.line_ = line;
        token.column_ = column;
        token.kind_ = kind == eTokenNone && is_lone_meta_character(token) ? eTokenMetaChar : kind;
        return token.AnalyzeString();
    }

    // The same for a token that is reset: of bytes between quotes, or of a word or a delimiter, whose text decides.
    // `room` is null, or where a text of less than kTextRoom bytes may stand.
    static bool make_plain(CLexToken& token, const char* text, int size, int line, int column, bool quoted,
                           char* room) {
        if (room != nullptr && size < static_cast<int>(kTextRoom)) {
            StringAccess::create_in_room(token.text_, room, text, size);
        } else if (!StringAccess::create(token.text_, text, size)) {
            return false;
        }
        token.line_ = line;
        token.column_ = column;
        const bool meta = size == 1 && meta_character(*text).is_member;
        token.kind_ = quoted ? eTokenString : meta ? eTokenMetaChar : classify(token.text_);
        return true;
    }

    // The kind of a text that is neither quoted nor a comment nor a meta character.
    static ETokenKind classify(const char* text);

    // Becomes a token that has its kind although it has no text.
    static void make_without_text(CLexToken& token, int line, int column, ETokenKind kind) {
        reset(token);
        token.line_ = line;
        token.column_ = column;
        token.kind_ = kind;
    }

    static void reset(CLexToken& token) {
        token.line_ = -1;
        token.column_ = -1;
        token.kind_ = eTokenNone;
        if (StringAccess::has_buffer(token.text_)) {
            token.text_.Empty();
        }
    }

    // Releases the text's memory, but the room behind the node, and leaves the token as it is, which must not be used
    // again.
    static void abandon(const CLexToken& token, const char* room) { StringAccess::abandon(token.text_, room); }

    // Exchanges two tokens. Nothing is allocated. A text that stands behind its node is not moved: the token that takes
    // it over must go, by its destructor, before that node does.
    static void swap(CLexToken& a, CLexToken& b) noexcept {
        std::swap(a.line_, b.line_);
        std::swap(a.column_, b.column_);
        std::swap(a.kind_, b.kind_);
        StringAccess::swap(a.text_, b.text_);
    }

    static constexpr bool has_promised_layout();

    static bool is_lone_meta_character(const CLexToken& token) {
        return token.text_.GetLength() == 1 && CLexToken::IsMetaCharacter(token.text_.GetAt(0)) >= 0;
    }
};

}  // namespace orvil::detail
