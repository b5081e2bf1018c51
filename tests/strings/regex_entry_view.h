// A cached pattern as hosts see it through its handle.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "orvil/strings/regex.h"

namespace orvil::test {

struct EntryView {
    std::uint32_t zero;
    char signature[4];
    const char* text;
    std::uint64_t length;
    const void* code;
    std::int32_t references;
    EntryView* newer;
    EntryView* older;
};

inline EntryView& entry_of(void* handle) {
    return *static_cast<EntryView*>(handle);
}

// Whether the pattern matches anywhere in the subject.
inline bool matches(const void* handle, std::string_view subject) {
    int ovector[30];
    return regex_execute(handle, nullptr, subject.data(), static_cast<int>(subject.size()), 0, 0, ovector, 30) >= 0;
}

}  // namespace orvil::test
