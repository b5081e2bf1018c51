// Opens what CExtString protects, for tests.
#pragma once

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

}  // namespace orvil::test
