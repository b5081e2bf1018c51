// Splits a command line into words.
#include <cstring>

#include "options/word_reader.h"
#include "orvil/options/option_parser.h"
#include "orvil/runtime/heap.h"

namespace orvil::detail {
namespace {

// Appends a word; false when there is no memory, also for its text alone.
bool add_word(CExtStrList& words, const char* word) {
    return words.AddTail(word) != nullptr && (*word == '\0' || *words.GetTail() != '\0');
}

bool add_words(char* text, CExtStrList& words, bool keep_first) {
    WordReader reader(text);
    if (!reader.skip_blanks()) {
        return false;
    }
    const char* program = reader.program_name();
    bool added = !keep_first || add_word(words, program);
    while (added && reader.skip_blanks()) {
        added = add_word(words, reader.word());
    }
    return added;
}

}  // namespace
}  // namespace orvil::detail

// The text may be one of the list's own, so it is copied first.
bool getopt_parse_string_to_list(const char* text, CExtStrList& out, bool keepFirst) {
    const std::size_t size = text == nullptr ? 0 : std::strlen(text) + 1;
    char* copy = size == 0 ? nullptr : static_cast<char*>(orv_heap_alloc(size));
    if (copy != nullptr) {
        std::memcpy(copy, text, size);
    }
    out.RemoveAll();
    const bool split = copy != nullptr && orvil::detail::add_words(copy, out, keepFirst);
    if (!split) {
        out.RemoveAll();
    }
    orv_heap_free(copy);
    return split;
}
