// The one place that reads tokens out of a stream's buffer. CLexicalAnalyzer and the parser both stand on it.
#pragma once

#include <cstdarg>
#include <optional>

#include "orvil/tokens/lex_token.h"
#include "tokens/lead_bytes.h"
#include "tokens/lexeme_builder.h"
#include "tokens/stream_access.h"

namespace orvil::detail {

// Formats a message and appends it to the others.
void add_message(CExtString& information, const char* format, ...) ORVIL_PRINTF(2, 3);
void add_message_v(CExtString& information, const char* format, va_list args);

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

}  // namespace orvil::detail
