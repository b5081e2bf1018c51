// Repeated searching, as replacing and splitting do it: each search sees what is left of the text as a subject of its
// own, so that "^" matches anew and look-behind sees nothing of what was passed.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "strings/regex_entry.h"

namespace orvil::detail {

// The ints that every search within the library offers for pairs of offsets.
inline constexpr int kOvectorSize = 256;

// What the number of pairs is when there are more than fit.
inline constexpr int kMostPairs = kOvectorSize / 3;

class RegexRestSearch {
public:
    explicit RegexRestSearch(const regex_entry& entry) : entry_(entry) {}

    // Searches a text of at most INT_MAX bytes; false when nothing matches.
    bool find(std::string_view rest);

    // These are about the match found last. Offsets count from the start of the rest; -1 stands for an unset group.
    int pairs() const { return pairs_; }
    int begin(int pair = 0) const { return ovector_[static_cast<std::size_t>(pair) * 2]; }
    int end(int pair = 0) const { return ovector_[static_cast<std::size_t>(pair) * 2 + 1]; }
    bool is_empty() const { return begin() >= end(); }

    // Tells that the rest comes from another text now.
    void change_text() { checked_end_ = nullptr; }

private:
    bool is_checked(std::string_view rest) const;

    const regex_entry& entry_;
    const char* checked_end_ = nullptr;  // the end of a text that PCRE has found to be UTF-8
    int pairs_ = 0;
    std::array<int, kOvectorSize> ovector_;
};

}  // namespace orvil::detail
