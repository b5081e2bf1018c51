// Opens what CExtString protects, for tests.
#pragma once

#include <cstdarg>
#include <cstring>
#include <string>

#include "orvil/strings/ext_string.h"

namespace orvil::test {

class StringProbe : public CExtString {
public:
    StringProbe() = default;
    StringProbe(const char* s) : CExtString(s) {}

    using CExtString::operator=;
    using CExtString::AllocBuffer;
    using CExtString::CalcNewBufferSize;
    using CExtString::DuplicateString;
    using CExtString::DuplicateStringLen;
    using CExtString::FillCharacter;
    using CExtString::FreeBuffer;
    using CExtString::Init;
    using CExtString::ReallocBuffer;
    using CExtString::SafeStrlen;

    using CExtString::buffer_;
    using CExtString::capacity_;
    using CExtString::length_;
};

// gExtFormat_ParseParts() for the arguments given.
inline bool parse_part(CExtString& out, EFT kind, ...) {
    va_list args;
    va_start(args, kind);
    const bool accepted = gExtFormat_ParseParts(out, kind, args);
    va_end(args);
    return accepted;
}

inline int capacity_of(const CExtString& string) {
    int capacity = 0;
    std::memcpy(&capacity, reinterpret_cast<const char*>(&string) + 20, sizeof capacity);
    return capacity;
}

inline bool has_buffer(const CExtString& string) {
    return string.GetString() != CExtString::sm_pszNull;
}

// The counted length in front of the visible text, so that one comparison shows both: "3:abc".
inline std::string counted(const CExtString& string) {
    return std::to_string(string.GetLength()) + ":" + string.GetString();
}

inline std::string letters(int n) {
    return std::string(static_cast<std::size_t>(n), 'x');
}

// Counted length 6, visible text "abc".
inline CExtString with_hidden_zero() {
    CExtString s("abcdef");
    s.SetAt(3, '\0');
    return s;
}

// Counted length 3, visible text "abcx".
inline CExtString with_text_behind_the_length() {
    CExtString s("abc");
    s.ConcatCharacters('x', 0);
    return s;
}

// Counted length -3, visible text "abx".
inline CExtString with_negative_length() {
    CExtString s("ab");
    s.ConcatCharacters('x', -5);
    return s;
}

}  // namespace orvil::test
