// The process-wide cache of compiled patterns.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "strings/regex_entry.h"
#include "strings/regex_handle_set.h"

namespace orvil::detail {

// A list of entries, newest first. It has no destructor: clear() releases everything.
class RegexCache {
public:
    regex_entry* newest() const { return newest_; }
    int count() const { return count_; }

    // The entry whose handle this is, or null. Nothing behind the pointer is read.
    regex_entry* entry_of(const void* handle) const {
        return handles_.contains(handle) ? static_cast<regex_entry*>(const_cast<void*>(handle)) : nullptr;
    }

    // The newest entry whose text the given one begins with, or null. Reads no further than the text's end.
    regex_entry* find(const char* text);

    // Compiles a text that find() does not know; null when it is invalid or there is no memory.
    regex_entry* add(const char* text);

    // Unlinks and releases an entry.
    void remove(regex_entry* entry);

    void clear();

private:
    // A text found before, at the address where it stood. Valid as long as the list does not change, when the text at
    // that address is still the entry's own: walking the list again would end at the same entry.
    struct Recent {
        const char* text;
        regex_entry* entry;
    };

    Recent& recent_for(const char* text);
    void link(regex_entry* entry);

    regex_entry* newest_ = nullptr;
    int count_ = 0;
    RegexHandleSet handles_;
    std::array<Recent, 64> recent_{};
};

extern RegexCache regex_cache;

// The entry of a pattern parameter, which is a handle or a notation text to compile; null when that fails.
regex_entry* regex_entry_for(const char* pattern);

}  // namespace orvil::detail
