// Searching with a compiled pattern.
#pragma once

#include "strings/regex_entry.h"

namespace orvil::detail {

// The arguments of regex_execute() but the pattern. Neither pointer is null.
struct RegexSearch {
    const char* subject;
    int length;
    int start;
    int options;
    int* ovector;
    int size;
};

// What PCRE's interpreter answers, though the JIT's machine code may have found it.
int execute_regex(const regex_entry& entry, const RegexSearch& search);

// The same without machine code. The depth of PCRE's recursion is limited to what the stack, or a fixed amount of
// memory, has room for; deeper searches give PCRE_ERROR_RECURSIONLIMIT.
int interpret_regex(const regex_entry& entry, const RegexSearch& search);

}  // namespace orvil::detail
