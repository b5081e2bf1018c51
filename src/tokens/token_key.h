// A kind and a text that tokens are compared with, measured once.
#pragma once

#include <cstring>

#include "orvil/tokens/lex_token_block.h"

namespace orvil::detail {

// Null and empty texts match every text.
class TokenKey {
public:
    TokenKey(ETokenKind kind, const char* text)
        : kind_(kind), text_(text), length_(text == nullptr ? 0 : std::strlen(text)) {}

    bool any_text() const { return length_ == 0; }

    bool matches(const CLexToken& token) const {
        return token.GetTokenKind() == kind_ && (length_ == 0 || has_text(token.GetPureString()));
    }

private:
    bool has_text(const CExtString& text) const {
        return text.GetLength() > 0 && static_cast<std::size_t>(text.GetLength()) == length_ &&
               std::memcmp(text.GetString(), text_, length_) == 0;
    }

    ETokenKind kind_;
    const char* text_;
    std::size_t length_;
};

// Whether the node is more than a plain token.
inline bool has_form(const CLexTokenBlock& node) {
    return node.IsAssignType() || node.IsBlockType() || node.IsListingType();
}

// Whether the token is this one meta character.
inline bool is_meta(const CLexToken& token, char c) {
    return token.GetTokenKind() == eTokenMetaChar && token.GetPureString().GetLength() == 1 &&
           token.GetString()[0] == c;
}

}  // namespace orvil::detail
