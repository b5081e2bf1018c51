// Reads the words of a command line, one after the other.
#pragma once

#include <cstddef>

#include "platform/platform.h"

namespace orvil::detail {

// Words are made in place, over the text that has been read: they are never longer than what they are read from.
class WordReader {
public:
    // The text ends with a zero, and is the reader's to change. Words lie in it.
    explicit WordReader(char* text) : read_(text), write_(text) {}

    // Whether a word follows.
    bool skip_blanks();
    // Reads the first word, which has no escapes.
    const char* program_name();
    // Reads another word.
    const char* word();

private:
    static bool is_blank(char c) { return c == ' ' || c == '\t'; }
    bool at_end() const { return *read_ == '\0'; }

    void copy_character();
    void put(std::size_t count, char c);
    void take_backslashes_or_quote();
    void take_quote(std::size_t backslashes);
    const char* end_word(char* word);

    char* read_;
    char* write_;
    bool in_quotes_ = false;  // between words it is false: an open quote runs to the end
    const bool has_lead_bytes_ = platform::has_lead_bytes();
};

}  // namespace orvil::detail
