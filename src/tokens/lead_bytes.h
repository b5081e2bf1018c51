// Double-byte characters: a lead byte and the byte behind it.
#pragma once

#include "platform/platform.h"

namespace orvil::detail {

inline unsigned char byte_of(char c) {
    return static_cast<unsigned char>(c);
}

// Lead bytes lie above 127 in every code page, so the system is asked for those only.
inline bool is_lead_byte(char c) {
    return byte_of(c) > 127 && platform::is_lead_byte(byte_of(c));
}

// The lead bytes of the code page that is set when an operation begins.
class LeadBytes {
public:
    // Whether there are any. When there are none, no byte needs to be asked for.
    bool any() const { return any_; }
    bool contains(char c) const { return any_ && is_lead_byte(c); }

private:
    bool any_ = platform::has_lead_bytes();
};

}  // namespace orvil::detail
