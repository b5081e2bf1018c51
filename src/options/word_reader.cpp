#include "options/word_reader.h"

#include <cstring>

namespace orvil::detail {
namespace {

constexpr char kQuote = '"';
constexpr char kBackslash = '\\';

}  // namespace

bool WordReader::skip_blanks() {
    while (is_blank(*read_)) {
        ++read_;
    }
    return !at_end();
}

const char* WordReader::program_name() {
    char* name = write_;
    const bool is_quoted = *read_ == kQuote;
    read_ += is_quoted ? 1 : 0;
    while (!at_end() && (is_quoted ? *read_ != kQuote : !is_blank(*read_))) {
        copy_character();
    }
    read_ += is_quoted && !at_end() ? 1 : 0;
    return end_word(name);
}

const char* WordReader::word() {
    char* word = write_;
    while (!at_end() && (in_quotes_ || !is_blank(*read_))) {
        if (*read_ == kBackslash || *read_ == kQuote) {
            take_backslashes_or_quote();
        } else {
            copy_character();
        }
    }
    return end_word(word);
}

// A lead byte brings the byte behind it along, unless that is the end.
void WordReader::copy_character() {
    if (has_lead_bytes_ && platform::is_lead_byte(static_cast<unsigned char>(*read_)) && read_[1] != '\0') {
        *write_++ = *read_++;
    }
    *write_++ = *read_++;
}

void WordReader::put(std::size_t count, char c) {
    std::memset(write_, c, count);
    write_ += count;
}

void WordReader::take_backslashes_or_quote() {
    const std::size_t backslashes = std::strspn(read_, "\\");
    if (read_[backslashes] == kQuote) {
        take_quote(backslashes);
    } else {
        put(backslashes, kBackslash);
        read_ += backslashes;
    }
}

// Two backslashes before a quote are one, and an odd one makes the quote an ordinary character. In a quoted part two
// quotes are one, and the part goes on.
void WordReader::take_quote(std::size_t backslashes) {
    read_ += backslashes + 1;
    put(backslashes / 2, kBackslash);
    if (backslashes % 2 != 0) {
        put(1, kQuote);
    } else if (in_quotes_ && *read_ == kQuote) {
        put(1, kQuote);
        ++read_;
    } else {
        in_quotes_ = !in_quotes_;
    }
}

// The end mark may take the place of the blank behind the word.
const char* WordReader::end_word(char* word) {
    if (write_ == read_ && !at_end()) {
        ++read_;
    }
    *write_++ = '\0';
    return word;
}

}  // namespace orvil::detail
