// What each character means to the lexical analysis.
#pragma once

#include <array>

#include "tokens/lead_bytes.h"

namespace orvil::detail {

enum class Role : unsigned char {
    kOrdinary,
    kNul,
    kSeparator,
    kQuote,
    kDelimiter,   // those that are only that
    kSlash,       // a delimiter that may begin a comment
    kNumberSign,  // a delimiter that begins a preprocessor line
    kBackslash,   // a delimiter that begins an escape
    kHigh,        // above 127: begins a double-byte character, or has no role outside strings
};

constexpr std::array<Role, 256> make_roles() {
    std::array<Role, 256> roles{};
    for (const char c : {'\t', '\n', '\r', ' '}) {
        roles[static_cast<unsigned char>(c)] = Role::kSeparator;
    }
    for (const char c : {'(', ')', '*', ',', ':', ';', '=', '[', ']', '{', '}'}) {
        roles[static_cast<unsigned char>(c)] = Role::kDelimiter;
    }
    roles['\0'] = Role::kNul;
    roles['"'] = roles['\''] = Role::kQuote;
    roles['/'] = Role::kSlash;
    roles['#'] = Role::kNumberSign;
    roles['\\'] = Role::kBackslash;
    for (unsigned c = 128; c < 256; ++c) {
        roles[c] = Role::kHigh;
    }
    return roles;
}

inline constexpr std::array<Role, 256> kRoles = make_roles();

inline Role role_of(char c) {
    return kRoles[byte_of(c)];
}

// Where a run of characters that are simply taken ends, by what is being read. Several may be asked for at once.
enum Stop : unsigned char {
    kStopOutside = 1,  // outside strings
    kStopString = 2,   // inside a string
    kStopLine = 4,     // in a comment or preprocessor line that ends with the line
    kStopBlock = 8,    // in a block comment
    kStopHigh = 16,    // at bytes above 127, where some of them begin double-byte characters
    kStopPlainString = kStopString | kStopLine | kStopHigh,
};

constexpr std::array<unsigned char, 256> make_stops() {
    std::array<unsigned char, 256> stops{};
    for (unsigned c = 0; c < 256; ++c) {
        const Role role = kRoles[c];
        unsigned set = role == Role::kOrdinary ? 0U : unsigned{kStopOutside};
        set |= role == Role::kNul || role == Role::kQuote || role == Role::kBackslash ? unsigned{kStopString} : 0U;
        set |= role == Role::kNul || c == '\r' || c == '\n' ? unsigned{kStopLine} : 0U;
        set |= role == Role::kNul || c == '*' ? unsigned{kStopBlock} : 0U;
        set |= role == Role::kHigh ? unsigned{kStopHigh} : 0U;
        stops[c] = static_cast<unsigned char>(set);
    }
    return stops;
}

inline constexpr std::array<unsigned char, 256> kStops = make_stops();

// The first byte that ends the run, or `end`.
inline const char* skip_run(const char* at, const char* end, unsigned stops) {
    while (at != end && (kStops[byte_of(*at)] & stops) == 0) {
        ++at;
    }
    return at;
}

}  // namespace orvil::detail
