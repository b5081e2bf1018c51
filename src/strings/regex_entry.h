// A cached pattern. Handles are pointers to these.
#pragma once

#include <pcre.h>

#include <cstdint>

// Hosts see the first eight fields through their handles. The block and everything it points to come from the C
// runtime, not from the private heap.
struct regex_entry {
    std::uint32_t zero;       // 0: no notation text begins with four zero bytes
    char signature[4];        // "UrAs"
    char* text;               // a copy of the whole notation
    std::uint64_t length;     // of the text
    pcre* code;               // the compiled pattern
    std::int32_t references;  // one for each use by text; stops at the largest number
    regex_entry* newer;       // towards the head of the cache
    regex_entry* older;       // towards its end
    pcre_extra* study;        // what helps PCRE to search, the JIT's code included; may be null
    int pairs;                // one for the whole match and one for each group
    bool has_machine_code;    // whether the JIT has compiled the pattern
    bool is_utf8;             // whether the pattern asks for UTF-8 texts
};
