#include "strings/regex_execute.h"

#include <algorithm>
#include <cstddef>

#include "orvil/strings/regex.h"
#include "platform/platform.h"
#include "strings/regex_cache.h"

namespace orvil::detail {
namespace {

constexpr std::size_t kMostStackBytes = std::size_t{4} << 20;
constexpr std::size_t kMostHeapBytes = std::size_t{256} << 20;

// PCRE keeps the state of a search in frames, on the stack or in the heap, as it was built.
struct Frames {
    bool are_on_stack;
    std::size_t size;
};

Frames find_frames() {
    int are_on_stack = 1;
    pcre_config(PCRE_CONFIG_STACKRECURSE, &are_on_stack);
    // Called like this it tells the size of a frame, as a negative number.
    const int size = -pcre_exec(nullptr, nullptr, nullptr, -999, -999, 0, nullptr, 0);
    return {are_on_stack != 0, static_cast<std::size_t>(std::max(size, 64))};
}

// How many frames are safe now. Half of the stack's rest is left to functions that frames do not account for.
unsigned long recursion_limit() {
    static const Frames frames = find_frames();
    const std::size_t room =
        frames.are_on_stack ? std::min(platform::stack_room() / 2, kMostStackBytes) : kMostHeapBytes;
    return static_cast<unsigned long>(room / frames.size);
}

// Machine code answers like the interpreter for well-formed arguments, these options and an offset vector with room for
// every group: they do not count alike when there is too little.
bool suits_machine_code(const regex_entry& entry, const RegexSearch& search) {
    constexpr int kOptions = PCRE_NOTBOL | PCRE_NOTEOL | PCRE_NOTEMPTY | PCRE_NOTEMPTY_ATSTART | PCRE_NO_UTF8_CHECK;
    return search.start >= 0 && search.start <= search.length && search.size / 3 >= entry.pairs &&
           (search.options & ~kOptions) == 0;
}

int run_pcre(const regex_entry& entry, const pcre_extra* extra, const RegexSearch& search) {
    return pcre_exec(entry.code, extra, search.subject, search.length, search.start, search.options, search.ovector,
                     search.size);
}

// Machine code has a stack of its own size and its own way to count backtracking, so its limits are not the answer.
bool gave_up(int result) {
    return result == PCRE_ERROR_JIT_STACKLIMIT || result == PCRE_ERROR_MATCHLIMIT;
}

}  // namespace

int execute_regex(const regex_entry& entry, const RegexSearch& search) {
    if (entry.has_machine_code && suits_machine_code(entry, search)) {
        const int result = run_pcre(entry, entry.study, search);
        if (!gave_up(result)) {
            if (result < 0) {
                // The interpreter leaves no pair behind; machine code leaves what was there.
                search.ovector[0] = search.ovector[1] = -1;
            }
            return result;
        }
    }
    return interpret_regex(entry, search);
}

int interpret_regex(const regex_entry& entry, const RegexSearch& search) {
    pcre_extra extra = entry.study != nullptr ? *entry.study : pcre_extra();
    extra.flags = (extra.flags & PCRE_EXTRA_STUDY_DATA) | PCRE_EXTRA_MATCH_LIMIT_RECURSION;
    extra.match_limit_recursion = recursion_limit();
    return run_pcre(entry, &extra, search);
}

}  // namespace orvil::detail

int regex_execute(const void* handle, const void*, const char* subject, int length, int start, int options,
                  int* ovector, int size) {
    const regex_entry* entry = orvil::detail::regex_cache.entry_of(handle);
    if (entry == nullptr || subject == nullptr || ovector == nullptr) {
        return -1;
    }
    return orvil::detail::execute_regex(*entry, {subject, length, start, options, ovector, size});
}
