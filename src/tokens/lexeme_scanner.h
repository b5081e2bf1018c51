// The one place that reads tokens out of a stream's buffer. CLexicalAnalyzer and the parser both stand on it.
#pragma once

#include <cstdarg>
#include <optional>

#include "orvil/tokens/lex_token.h"
#include "tokens/character_roles.h"
#include "tokens/lead_bytes.h"
#include "tokens/lexeme_builder.h"
#include "tokens/stream_access.h"

namespace orvil::detail {

// Formats a message and appends it to the others.
void add_message(CExtString& information, const char* format, ...) ORVIL_PRINTF(2, 3);
void add_message_v(CExtString& information, const char* format, va_list args);

// The bytes of a lexeme in the stream's buffer.
struct PlainLexeme {
    const char* text;
    int size;
    bool quoted;
};

// Reads lexemes. Every operation begins at the stream's position and leaves the stream behind what it consumed; what it
// collected is in lexeme(), and stays valid until the stream's buffer changes.
class LexemeScanner {
public:
    // All of them are the caller's. `binder` is 0, or the quote that opened the string in which the reading goes on.
    LexemeScanner(CStreamMemFile& stream, CExtString& information, char& binder)
        : stream_(stream), information_(information), binder_(binder) {}

    LexemeBuilder& lexeme() { return lexeme_; }

    // Where the token begins, for messages.
    void set_token_position(const TextPosition& position) { token_ = position; }

    // Reads what nearly every lexeme is: separators, then a word that a separator or a delimiter ends, a delimiter, or
    // a string within one line without an escape. False, with nothing changed, when it is anything else.
    bool scan_plain(PlainLexeme& lexeme) const;

    // Reads one lexeme of a stream that is not at its end. Yields its kind, none when its text decides; nothing on
    // failure, with or without a message.
    std::optional<ETokenKind> scan();

    // Reads the comment, the preprocessor line, the escape that begins at the stream's position. On failure the first
    // two put the stream back.
    std::optional<ETokenKind> scan_comment();
    std::optional<ETokenKind> scan_preprocessor();
    bool scan_escape();

private:
    bool load();
    void store();
    template <typename Read>
    auto with_stream(Read read) -> decltype(read());

    std::optional<ETokenKind> read_lexeme();
    bool read_ordinary();
    bool read_high();
    bool read_double_byte();
    bool read_lone_lead_byte();
    bool read_escape();
    bool read_quote();
    void skip_separators();
    std::optional<ETokenKind> read_delimiter();

    bool comment_begins() const;
    std::optional<ETokenKind> read_comment();
    std::optional<ETokenKind> read_preprocessor();
    template <typename Read>
    bool read_or_go_back(Read read);
    bool read_block_comment();
    bool read_rest_of_line();
    bool read_comment_run(unsigned stops);
    bool read_comment_high();
    bool end_of_comment();

    bool take(std::size_t size);
    void drop_byte();
    bool refuse();
    bool refuse_at_end();
    bool unknown_escape();
    bool no_role();

    CStreamMemFile& stream_;
    CExtString& information_;
    char& binder_;
    LexemeBuilder lexeme_;
    LeadBytes lead_bytes_;
    TextPosition token_;

    const char* at_ = nullptr;   // what is read next
    const char* end_ = nullptr;  // behind the stream's last byte
    TextPosition here_;          // of at_
};

inline bool LexemeScanner::scan_plain(PlainLexeme& lexeme) const {
    if (!StreamAccess::usable(stream_)) {
        return false;
    }
    const char* at = StreamAccess::current(stream_);
    const char* const end = StreamAccess::end(stream_);
    TextPosition here = StreamAccess::position(stream_);
    while (at != end && role_of(*at) == Role::kSeparator) {
        here.count_byte(*at++);
    }
    if (at == end) {
        return false;
    }
    const char* const start = at;
    const Role role = role_of(*at);
    if (role == Role::kOrdinary) {
        at = skip_run(at, end, kStopOutside);
        if (at == end || (role_of(*at) != Role::kSeparator && role_of(*at) != Role::kDelimiter)) {
            return false;
        }
        lexeme = {start, static_cast<int>(at - start), false};
    } else if (role == Role::kDelimiter) {
        ++at;
        lexeme = {start, 1, false};
    } else if (role == Role::kQuote) {
        at = skip_run(at + 1, end, kStopPlainString);
        if (at == end || *at != *start || at - start == 1) {
            return false;
        }
        lexeme = {start + 1, static_cast<int>(at - start) - 1, true};
        ++at;
    } else {
        return false;
    }
    here.count_plain(static_cast<std::size_t>(at - start));
    StreamAccess::move_to(stream_, at, here);
    return true;
}

}  // namespace orvil::detail
