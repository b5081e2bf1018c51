#include "orvil/tokens/lexical_analyzer.h"

#include <cstdarg>
#include <cstddef>

#include "strings/string_access.h"
#include "tokens/analyzer_access.h"
#include "tokens/character_roles.h"
#include "tokens/lexeme_scanner.h"
#include "tokens/meta_characters.h"
#include "tokens/token_access.h"

using orvil::detail::AnalyzerAccess;
using orvil::detail::LexemeBuilder;
using orvil::detail::LexemeScanner;
using orvil::detail::Role;
using orvil::detail::role_of;
using orvil::detail::StreamAccess;
using orvil::detail::TokenAccess;

namespace orvil::detail {

// Hosts rely on the layout: the virtual table's pointer, then the fields.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
constexpr bool AnalyzerAccess::has_promised_layout() {
    using Analyzer = CLexicalAnalyzer;
    return sizeof(Analyzer) == 128 && offsetof(Analyzer, token_line_) == 8 && offsetof(Analyzer, token_column_) == 12 &&
           offsetof(Analyzer, stream_) == 16 && offsetof(Analyzer, current_token_) == 24 &&
           offsetof(Analyzer, lexeme_) == 72 && offsetof(Analyzer, binder_) == 96 &&
           offsetof(Analyzer, information_) == 104;
}
#pragma GCC diagnostic pop
static_assert(AnalyzerAccess::has_promised_layout());

}  // namespace orvil::detail

CLexicalAnalyzer::CLexicalAnalyzer(CStreamMemFile& stream) : stream_(&stream) {
}

CLexicalAnalyzer::CLexicalAnalyzer(const CLexicalAnalyzer& source) = default;

CLexicalAnalyzer& CLexicalAnalyzer::operator=(const CLexicalAnalyzer& source) = default;

CLexicalAnalyzer::~CLexicalAnalyzer() = default;

bool CLexicalAnalyzer::DoAnalyze(CLexToken& token) {
    TokenAccess::reset(token);
    TokenAccess::reset(current_token_);
    lexeme_.Empty();
    information_.Empty();
    if (StreamAccess::at_end(*stream_)) {
        return true;
    }
    token_line_ = stream_->QueryCurrentLine();
    token_column_ = stream_->QueryCurrentColm();
    LexemeScanner scanner(*stream_, information_, binder_);
    scanner.set_token_position({token_line_, token_column_});
    const std::optional<ETokenKind> kind = scanner.scan();
    const LexemeBuilder& text = scanner.lexeme();
    return kind && TokenAccess::make(current_token_, text.data(), text.size(), token_line_, token_column_, *kind) &&
           token.CopyData(current_token_);
}

const CExtString& CLexicalAnalyzer::GetInformation() const {
    return information_;
}

void CLexicalAnalyzer::SetBinderCharacter(char c) {
    binder_ = c;
}

void CLexicalAnalyzer::ResetBinderCharacter() {
    binder_ = '\0';
}

ELexConditionBehavior CLexicalAnalyzer::CheckConditionBehavior(const char* character) const {
    if (character == nullptr || *character == '\0' || character[1] != '\0') {
        return eLexOrdinary;
    }
    const Role role = role_of(*character);
    if (role == Role::kQuote) {
        return eLexBinder;
    }
    if (role == Role::kOrdinary || (binder_ != '\0' && role != Role::kBackslash)) {
        return eLexOrdinary;
    }
    if (role == Role::kHigh) {
        return eLexNone;
    }
    return role == Role::kSeparator ? eLexSeparator : eLexDelimiter;
}

bool CLexicalAnalyzer::AddInfo(const char* format, ...) {
    if (format == nullptr) {
        return false;
    }
    va_list args;
    va_start(args, format);
    orvil::detail::add_message_v(information_, format, args);
    va_end(args);
    return true;
}

bool CLexicalAnalyzer::CreateCurrentToken(ETokenKind kind) {
    return current_token_.Create(lexeme_, token_line_, token_column_, kind == eTokenNone, kind);
}

bool CLexicalAnalyzer::IsCommentStart(bool& isComment) const {
    isComment = false;
    char first = '\0';
    char second = '\0';
    if (!stream_->QueryCurrentData(first, second)) {
        return false;
    }
    char next = '\0';
    const bool slash = first == '/' && stream_->QueryNextData(next, second, 1);
    isComment = slash && (next == '/' || next == '*');
    return true;
}

bool AnalyzerAccess::read_on(CLexicalAnalyzer& analyzer, std::optional<ETokenKind> (LexemeScanner::*scan)()) {
    LexemeScanner scanner(*analyzer.stream_, analyzer.information_, analyzer.binder_);
    LexemeBuilder& text = scanner.lexeme();
    text.append(analyzer.lexeme_, static_cast<std::size_t>(analyzer.lexeme_.GetLength()));
    const std::optional<ETokenKind> kind = (scanner.*scan)();
    return kind && StringAccess::assign(analyzer.lexeme_, text.data(), text.size()) &&
           analyzer.CreateCurrentToken(*kind);
}

bool CLexicalAnalyzer::AblateComment() {
    return AnalyzerAccess::read_on(*this, &LexemeScanner::scan_comment);
}

bool CLexicalAnalyzer::AblatePreprocess() {
    return AnalyzerAccess::read_on(*this, &LexemeScanner::scan_preprocessor);
}

bool CLexicalAnalyzer::ParseEscapeSequence() {
    LexemeScanner scanner(*stream_, information_, binder_);
    scanner.set_token_position({token_line_, token_column_});
    return scanner.scan_escape() && lexeme_.ConcatStringLen(scanner.lexeme().data(), scanner.lexeme().size());
}

char CLexicalAnalyzer::SearchEscapeSequenceTable(const char* sequence) const {
    const bool one_character = sequence != nullptr && *sequence != '\0' && sequence[1] == '\0';
    return one_character ? orvil::detail::kEscapeMeanings[orvil::detail::byte_of(*sequence)] : '\0';
}
