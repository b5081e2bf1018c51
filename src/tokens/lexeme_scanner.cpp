#include "tokens/lexeme_scanner.h"

#include <cstdarg>

#include "strings/string_access.h"
#include "tokens/character_roles.h"
#include "tokens/meta_characters.h"

namespace orvil::detail {

namespace {

constexpr const char* kStreamFailure = "%s : Stream I/O Error.\n";
constexpr const char* kUnknownEscape = "FilePos(%d,%d) : EscapeSequence<\\%s> is not format.\n";
constexpr const char* kNoRole = "%s : Stream %s is not parsed.\n";

}  // namespace

void add_message(CExtString& information, const char* format, ...) {
    va_list args;
    va_start(args, format);
    add_message_v(information, format, args);
    va_end(args);
}

void add_message_v(CExtString& information, const char* format, va_list args) {
    CExtString message;
    message.FormatV(format, args);
    information += message;
}

// --- the stream's buffer --------------------------------------------------------------------------------------------

// False, with a message, when the stream has nothing to read from.
bool LexemeScanner::load() {
    if (!StreamAccess::usable(stream_)) {
        return refuse();
    }
    at_ = StreamAccess::current(stream_);
    end_ = StreamAccess::end(stream_);
    here_ = StreamAccess::position(stream_);
    return true;
}

void LexemeScanner::store() {
    StreamAccess::move_to(stream_, at_, here_);
}

// Runs a reading operation on the stream's buffer and moves the stream behind what it took.
template <typename Read>
auto LexemeScanner::with_stream(Read read) -> decltype(read()) {
    if (!load()) {
        return {};
    }
    const auto result = read();
    store();
    return result;
}

// Adds bytes to the lexeme and counts them.
bool LexemeScanner::take(std::size_t size) {
    here_.count(at_, at_ + size);
    at_ += size;
    return lexeme_.append(at_ - size, size);
}

void LexemeScanner::drop_byte() {
    here_.count_byte(*at_);
    ++at_;
}

// --- failures; each is false ----------------------------------------------------------------------------------------

bool LexemeScanner::refuse() {
    add_message(information_, kStreamFailure, stream_.GetErrorInformation());
    return false;
}

bool LexemeScanner::refuse_at_end() {
    store();
    StreamAccess::refuse_at_end(stream_);
    return refuse();
}

bool LexemeScanner::unknown_escape() {
    const bool pair = end_ - at_ > 1 && lead_bytes_.contains(*at_);
    const char character[] = {*at_, pair ? at_[1] : '\0', '\0'};
    add_message(information_, kUnknownEscape, token_.line, token_.column, character);
    return false;
}

bool LexemeScanner::no_role() {
    const char character[] = {*at_, '\0'};
    add_message(information_, kNoRole, stream_.GetErrorInformation(), character);
    return false;
}

// --- lexemes --------------------------------------------------------------------------------------------------------

std::optional<ETokenKind> LexemeScanner::scan() {
    return with_stream([this] { return read_lexeme(); });
}

std::optional<ETokenKind> LexemeScanner::read_lexeme() {
    while (read_ordinary() && at_ != end_) {
        switch (role_of(*at_)) {
            case Role::kSeparator:
                if (!lexeme_.empty()) {
                    return eTokenNone;
                }
                skip_separators();
                continue;
            case Role::kQuote:
                if (read_quote()) {
                    return eTokenString;
                }
                continue;
            case Role::kNumberSign:
                return read_preprocessor();
            case Role::kSlash:
                if (comment_begins()) {
                    return read_comment();
                }
                return read_delimiter();
            case Role::kBackslash:
                if (!read_escape()) {
                    return std::nullopt;
                }
                continue;
            case Role::kHigh:
                if (!read_high()) {
                    return std::nullopt;
                }
                continue;
            case Role::kNul:
                drop_byte();
                continue;
            default:
                return read_delimiter();
        }
    }
    // An open lexeme is dropped silently at the end of a file. A stream for writing has no such end.
    if (at_ == end_ && !StreamAccess::reads(stream_)) {
        refuse();
    }
    return std::nullopt;
}

// Takes the characters up to the next one that means something. False when there is no memory.
bool LexemeScanner::read_ordinary() {
    if (binder_ == '\0') {
        const char* const stop = skip_run(at_, end_, kStopOutside);
        const auto size = static_cast<std::size_t>(stop - at_);
        here_.count_plain(size);
        at_ = stop;
        return lexeme_.append(stop - size, size);
    }
    const unsigned stops = lead_bytes_.any() ? unsigned{kStopString} | kStopHigh : unsigned{kStopString};
    return take(static_cast<std::size_t>(skip_run(at_, end_, stops) - at_));
}

void LexemeScanner::skip_separators() {
    do {
        drop_byte();
    } while (at_ != end_ && role_of(*at_) == Role::kSeparator);
}

// Steps over a quote. True when it closes a string; another quote opens one when nothing has been collected, and is
// dropped otherwise, inside a string too.
bool LexemeScanner::read_quote() {
    const char quote = *at_;
    drop_byte();
    if (quote == binder_) {
        binder_ = '\0';
        return true;
    }
    if (lexeme_.empty()) {
        binder_ = quote;
    }
    return false;
}

// A delimiter ends the lexeme before it, or is one.
std::optional<ETokenKind> LexemeScanner::read_delimiter() {
    if (lexeme_.empty()) {
        here_.count_plain(1);
        ++at_;
        lexeme_.append(at_ - 1, 1);
    }
    return eTokenNone;
}

bool LexemeScanner::read_escape() {
    drop_byte();
    if (at_ == end_) {
        return refuse_at_end();
    }
    const char meaning = kEscapeMeanings[byte_of(*at_)];
    if (meaning == '\0') {
        return unknown_escape();
    }
    drop_byte();
    return lexeme_.append_byte(meaning);
}

// --- bytes above 127 ------------------------------------------------------------------------------------------------

bool LexemeScanner::read_high() {
    if (!lead_bytes_.contains(*at_)) {
        return binder_ != '\0' ? take(1) : no_role();
    }
    if (end_ - at_ > 1 && at_[1] != '\0') {
        return read_double_byte();
    }
    return binder_ != '\0' ? read_lone_lead_byte() : no_role();
}

// At the end of the stream both bytes are delivered, and the stream says that it is at its end.
bool LexemeScanner::read_double_byte() {
    const bool taken = take(2);
    if (at_ == end_) {
        store();
        StreamAccess::refuse_at_end(stream_);
    }
    return taken;
}

// A lead byte before a NUL is kept and the NUL dropped. As the last character of a stream it is refused.
bool LexemeScanner::read_lone_lead_byte() {
    if (end_ - at_ < 2) {
        return refuse_at_end();
    }
    const bool taken = take(1);
    drop_byte();
    return at_ == end_ ? refuse_at_end() : taken;
}

// --- comments and preprocessor lines --------------------------------------------------------------------------------

bool LexemeScanner::comment_begins() const {
    return end_ - at_ > 1 && *at_ == '/' && (at_[1] == '/' || at_[1] == '*');
}

// Runs a reading operation; when it fails, the stream and its error text are put back to where they were.
template <typename Read>
bool LexemeScanner::read_or_go_back(Read read) {
    const char* const start = at_;
    const TextPosition position = here_;
    CExtString error_text(StreamAccess::error_text(stream_));
    if (read()) {
        return true;
    }
    at_ = start;
    here_ = position;
    StringAccess::swap(StreamAccess::error_text(stream_), error_text);
    return false;
}

std::optional<ETokenKind> LexemeScanner::read_comment() {
    const bool block = at_[1] == '*';
    const bool read =
        read_or_go_back([this, block] { return take(2) && (block ? read_block_comment() : read_rest_of_line()); });
    return read ? std::optional(block ? eTokenComment : eTokenSingleComment) : std::nullopt;
}

std::optional<ETokenKind> LexemeScanner::read_preprocessor() {
    const bool read = read_or_go_back([this] { return take(1) && read_rest_of_line(); });
    return read ? std::optional(eTokenPreprocessor) : std::nullopt;
}

// Takes characters of a comment up to one that `stops` names. False on failure.
bool LexemeScanner::read_comment_run(unsigned stops) {
    stops |= lead_bytes_.any() ? unsigned{kStopHigh} : 0U;
    return take(static_cast<std::size_t>(skip_run(at_, end_, stops) - at_));
}

// The end of a file ends a comment, the end of a stream for writing is a failure.
bool LexemeScanner::end_of_comment() {
    return StreamAccess::reads(stream_) || refuse_at_end();
}

bool LexemeScanner::read_block_comment() {
    while (read_comment_run(kStopBlock)) {
        if (at_ == end_) {
            return end_of_comment();
        }
        if (*at_ == '*') {
            const bool closes = end_ - at_ > 1 && at_[1] == '/';
            if (!take(closes ? 2 : 1) || closes) {
                return closes;
            }
        } else if (*at_ == '\0') {
            drop_byte();
        } else if (!read_comment_high()) {
            return false;
        }
    }
    return false;
}

// The line ends when its counter changes, which a trail byte does as well, or at a NUL. CR and LF are dropped.
bool LexemeScanner::read_rest_of_line() {
    const int line = here_.line;
    while (here_.line == line) {
        if (!read_comment_run(kStopLine)) {
            return false;
        }
        if (at_ == end_) {
            return end_of_comment();
        }
        if (role_of(*at_) == Role::kHigh) {
            if (!read_comment_high()) {
                return false;
            }
            continue;
        }
        const bool nul = *at_ == '\0';
        drop_byte();
        if (nul) {
            return true;
        }
    }
    return true;
}

// A byte above 127 in a comment, when there are lead bytes.
bool LexemeScanner::read_comment_high() {
    if (!lead_bytes_.contains(*at_)) {
        return take(1);
    }
    return end_ - at_ > 1 && at_[1] != '\0' ? read_double_byte() : read_lone_lead_byte();
}

// --- the parts by themselves ----------------------------------------------------------------------------------------

std::optional<ETokenKind> LexemeScanner::scan_comment() {
    return with_stream([this] { return comment_begins() ? read_comment() : std::nullopt; });
}

std::optional<ETokenKind> LexemeScanner::scan_preprocessor() {
    return with_stream([this] { return at_ != end_ && *at_ == '#' ? read_preprocessor() : std::nullopt; });
}

bool LexemeScanner::scan_escape() {
    return with_stream([this] { return at_ != end_ && *at_ == '\\' && read_escape(); });
}

}  // namespace orvil::detail
