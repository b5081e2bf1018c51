#include "orvil/tokens/lex_token.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <new>

#include "orvil/strings/ext_str_array.h"
#include "platform/platform.h"
#include "tokens/meta_characters.h"
#include "tokens/token_access.h"

using orvil::detail::meta_character;
using orvil::detail::MetaCharacter;
using orvil::detail::TokenAccess;

namespace orvil::detail {

// Hosts rely on the layout: the virtual table's pointer, then the fields.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
constexpr bool TokenAccess::has_promised_layout() {
    using Token = CLexToken;
    return sizeof(Token) == 48 && offsetof(Token, line_) == 8 && offsetof(Token, column_) == 12 &&
           offsetof(Token, kind_) == 16 && offsetof(Token, text_) == 24;
}
#pragma GCC diagnostic pop
static_assert(TokenAccess::has_promised_layout());

}  // namespace orvil::detail

namespace {

constexpr const char* kNoKindName = "Error!!";
constexpr const char* kKindNames[] = {kNoKindName, "Empty",  "<<MetaChar>>", "Decimal",       "HexaDecimal", "Double",
                                      "String",    "Symbol", "Comment",      "SingleComment", "Preprocesser"};

// A number sign, a name of two or more characters, and what follows behind blanks.
constexpr const char* kPreprocessorPattern = "/^#([A-Za-z_][A-Za-z0-9_]+)(\\s+(.+))?$/";

// The characters with which a text that is no symbol can begin.
constexpr std::array<bool, 256> make_number_starts() {
    std::array<bool, 256> table{};
    for (const char c : {'\0', ' ', '\t', '+', '-', '.'}) {
        table[static_cast<unsigned char>(c)] = true;
    }
    for (unsigned c = 0; c < 10; ++c) {
        table['0' + c] = true;
    }
    for (unsigned c = 0; c < 6; ++c) {
        table['A' + c] = table['a' + c] = true;
    }
    return table;
}

constexpr std::array<bool, 256> kNumberStarts = make_number_starts();

bool has_text(const char* text) {
    return text != nullptr && *text != '\0';
}

}  // namespace

// Hexadecimal goes before double and symbol: a word of the letters a to f only, and 1e5, are hexadecimal.
ETokenKind TokenAccess::classify(const char* text) {
    if (!kNumberStarts[orvil::detail::byte_of(*text)]) {
        return eTokenSymbol;
    }
    if (CLexToken::AnalyzeIntegerFormat(text)) {
        return eTokenDecimal;
    }
    if (CLexToken::AnalyzeHexaDecimalFormat(text)) {
        return eTokenHexaDecimal;
    }
    return CLexToken::AnalyzeDoubleFormat(text) ? eTokenDouble : eTokenSymbol;
}

CLexToken::CLexToken() = default;

CLexToken::CLexToken(const CLexToken& source) = default;

CLexToken& CLexToken::operator=(const CLexToken& source) {
    CopyData(source);
    return *this;
}

CLexToken* CLexToken::GetCopyInstance() {
    auto* copy = new (std::nothrow) CLexToken;
    if (copy != nullptr && !copy->CopyData(*this)) {
        delete copy;
        return nullptr;
    }
    return copy;
}

void CLexToken::MakeDumpString(CExtString& out, int /*indent*/) const {
    CExtString dump;
    dump.Format("Token[*]-%s <%s> %s", GetTokenKindString(), GetString(), GetSourcePositionString().GetString());
    out += dump;
}

CLexToken::~CLexToken() = default;

bool CLexToken::CopyData(const CLexToken& source) {
    if (this != &source && !text_.CreateFromString(source.text_)) {
        return false;
    }
    line_ = source.line_;
    column_ = source.column_;
    kind_ = source.kind_;
    return true;
}

bool CLexToken::Create(const char* text, int line, int column, bool analyze, ETokenKind kind) {
    if (!text_.CreateFromString(text)) {
        TokenAccess::reset(*this);
        return false;
    }
    line_ = line;
    column_ = column;
    kind_ = analyze ? eTokenNone : kind;
    if (analyze && TokenAccess::is_lone_meta_character(*this)) {
        kind_ = eTokenMetaChar;
    }
    return AnalyzeString();
}

bool CLexToken::Create(EMetaCharacter c, int line, int column) {
    const bool in_range = c >= 0 && c < 128;
    if (!in_range || !meta_character(static_cast<char>(c)).is_member) {
        return false;
    }
    text_ = static_cast<char>(c);
    line_ = line;
    column_ = column;
    kind_ = eTokenMetaChar;
    return true;
}

bool CLexToken::AnalyzeString() {
    if (text_.IsEmpty()) {
        kind_ = eTokenEmpty;
        return true;
    }
    switch (kind_) {
        case eTokenNone:
            kind_ = TokenAccess::classify(text_);
            return true;
        case eTokenDecimal:
            return AnalyzeIntegerFormat(text_);
        case eTokenHexaDecimal:
            return AnalyzeHexaDecimalFormat(text_);
        case eTokenDouble:
            return AnalyzeDoubleFormat(text_);
        default:
            return true;
    }
}

bool CLexToken::Initialize() {
    TokenAccess::reset(*this);
    return true;
}

void CLexToken::QuerySourcePosition(int& line, int& column) const {
    line = line_;
    column = column_;
}

bool CLexToken::CompareFilePosition(int line, int column) const {
    return line_ == line && column_ == column;
}

const CExtString& CLexToken::GetPureString() const {
    return text_;
}

const char* CLexToken::GetString() const {
    return text_;
}

ETokenKind CLexToken::GetTokenKind() const {
    return kind_;
}

bool CLexToken::IsEmptyToken() const {
    return kind_ == eTokenEmpty;
}

bool CLexToken::IsMetaCharToken() const {
    return kind_ == eTokenMetaChar;
}

bool CLexToken::IsDecimalToken() const {
    return kind_ == eTokenDecimal;
}

bool CLexToken::IsHexaDecimalToken() const {
    return kind_ == eTokenHexaDecimal;
}

bool CLexToken::IsDoubleToken() const {
    return kind_ == eTokenDouble;
}

bool CLexToken::IsStringToken() const {
    return kind_ == eTokenString;
}

bool CLexToken::IsSymbolToken() const {
    return kind_ == eTokenSymbol;
}

bool CLexToken::IsCommentToken() const {
    return kind_ == eTokenComment;
}

bool CLexToken::IsSingleCommentToken() const {
    return kind_ == eTokenSingleComment;
}

bool CLexToken::IsPreprocessorToken() const {
    return kind_ == eTokenPreprocessor;
}

bool CLexToken::ParseMetaChar(char& c) const {
    if (!IsMetaCharToken()) {
        return false;
    }
    c = text_.GetAt(0);
    return true;
}

bool CLexToken::ParseDecimal(int& value) const {
    if (!IsDecimalToken() || !AnalyzeIntegerFormat(text_)) {
        return false;
    }
    value = orvil::platform::parse_int32(text_);
    return true;
}

bool CLexToken::ParseHexaDecimal(unsigned int& value) const {
    unsigned long parsed = 0;
    if (!IsHexaDecimalToken() || !text_.ParseHexaDecimal(parsed)) {
        return false;
    }
    value = static_cast<unsigned int>(parsed);
    return true;
}

bool CLexToken::ParseDouble(double& value) const {
    if (!IsDoubleToken() || !AnalyzeDoubleFormat(text_)) {
        return false;
    }
    value = std::strtod(text_, nullptr);
    return true;
}

bool CLexToken::ParseString(CExtString& text) const {
    return IsStringToken() && text.CreateFromString(text_);
}

bool CLexToken::ParseSymbol(CExtString& text) const {
    return IsSymbolToken() && text.CreateFromString(text_);
}

bool CLexToken::ParseComment(CExtString& text) const {
    return IsCommentToken() && text.CreateFromString(text_);
}

bool CLexToken::ParseSingleComment(CExtString& text) const {
    return IsSingleCommentToken() && text.CreateFromString(text_);
}

bool CLexToken::ParsePreprocessor(CExtString& name, CExtString& value) const {
    if (!IsPreprocessorToken() || text_.IsEmpty()) {
        return false;
    }
    name.Empty();
    value.Empty();
    CExtStrArray parts;
    const int count = text_.RegexMatch(kPreprocessorPattern, parts);
    if (count == 0) {
        return false;
    }
    // No part that took part in a match is empty, unless there was no memory for it.
    const char* const name_part = parts.GetAt(1);
    const char* const value_part = parts.GetAt(3);
    const bool whole = parts.GetSize() == count && has_text(name_part) && (count < 4 || has_text(value_part));
    return whole && name.CreateFromString(name_part) && value.CreateFromString(value_part);
}

bool CLexToken::Compare(ETokenKind kind, const char* text) const {
    return kind_ == kind && (text == nullptr || *text == '\0' || std::strcmp(text_, text) == 0);
}

const char* CLexToken::GetTokenKindString() const {
    const bool named = kind_ >= 0 && static_cast<std::size_t>(kind_) < std::size(kKindNames);
    return named ? kKindNames[kind_] : kNoKindName;
}

CExtString CLexToken::GetSourcePositionString() const {
    CExtString position;
    position.Format("Pos(%d:%d) ", line_, column_);
    return position;
}

EMetaCharacter CLexToken::IsMetaCharacter(char c) {
    return static_cast<EMetaCharacter>(meta_character(c).is_member ? c : -1);
}

const char* CLexToken::TransMetaCharToString(EMetaCharacter c) {
    if (c <= eMetaNul || c >= 128) {
        return nullptr;
    }
    const MetaCharacter& meta = meta_character(static_cast<char>(c));
    return meta.is_member ? meta.written : nullptr;
}

bool CLexToken::AnalyzeIntegerFormat(const char* text) {
    return CExtString::IsIntegerFormat(text);
}

bool CLexToken::AnalyzeHexaDecimalFormat(const char* text) {
    return CExtString::IsHexaDecimalFormat(text);
}

bool CLexToken::AnalyzeDoubleFormat(const char* text) {
    return CExtString::IsFloatingPointFormat(text);
}
