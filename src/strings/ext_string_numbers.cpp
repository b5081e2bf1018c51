#include <cstdint>
#include <cstdlib>

#include "orvil/strings/ext_string.h"
#include "platform/platform.h"

namespace {

// Character classes of number texts, which do not follow the locale.

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

char lower(char c) {
    return static_cast<char>(c | 0x20);
}

bool is_hex_letter(char c) {
    return lower(c) >= 'a' && lower(c) <= 'f';
}

const char* skip_blanks(const char* s) {
    while (*s == ' ' || *s == '\t') {
        ++s;
    }
    return s;
}

const char* skip_sign(const char* s) {
    return *s == '+' || *s == '-' ? s + 1 : s;
}

const char* skip_digits(const char* s) {
    while (is_digit(*s)) {
        ++s;
    }
    return s;
}

const char* skip_hex_prefix(const char* s) {
    return s[0] == '0' && lower(s[1]) == 'x' ? s + 2 : s;
}

// An exponent, whose digits may be missing, up to the end of the text.
bool is_exponent(const char* s) {
    return lower(*s) == 'e' && *skip_digits(skip_sign(s + 1)) == '\0';
}

// The value of blanks, prefix and digits in 32 bits; false when there is anything else.
bool parse_hex(const char* s, std::uint32_t& value) {
    std::uint32_t sum = 0;
    for (s = skip_hex_prefix(skip_blanks(s)); *s != '\0'; ++s) {
        if (is_digit(*s)) {
            sum = sum << 4 | static_cast<std::uint32_t>(*s - '0');
        } else if (is_hex_letter(*s)) {
            sum = sum << 4 | static_cast<std::uint32_t>(lower(*s) - 'a' + 10);
        } else {
            return false;
        }
    }
    value = sum;
    return true;
}

}  // namespace

bool CExtString::IsIntegerFormat(const char* s) {
    if (s == nullptr) {
        return false;
    }
    s = skip_sign(skip_blanks(s));
    if (*s == '0') {
        return s[1] == '\0';
    }
    return is_digit(*s) && *skip_digits(s) == '\0';
}

bool CExtString::IsHexaDecimalFormat(const char* s) {
    std::uint32_t ignored = 0;
    return s != nullptr && parse_hex(s, ignored);
}

bool CExtString::IsFloatingPointFormat(const char* s) {
    if (s == nullptr) {
        return false;
    }
    s = skip_sign(skip_blanks(s));
    if (*s == '.') {
        // The point in front is the only one.
        if (!is_digit(s[1])) {
            return false;
        }
        s = skip_digits(s + 1);
    } else {
        if (!is_digit(*s)) {
            return false;
        }
        while (is_digit(*s) || *s == '.') {
            ++s;
        }
    }
    return *s == '\0' || is_exponent(s);
}

bool CExtString::ParseInteger(int& value) const {
    if (!IsIntegerFormat(GetString())) {
        return false;
    }
    value = orvil::platform::parse_int32(GetString());
    return true;
}

bool CExtString::ParseHexaDecimal(unsigned long& value) const {
    std::uint32_t parsed = 0;
    if (!parse_hex(GetString(), parsed)) {
        return false;
    }
    value = parsed;
    return true;
}

bool CExtString::ParseFloatingPoint(double& value) const {
    if (!IsFloatingPointFormat(GetString())) {
        return false;
    }
    value = std::strtod(GetString(), nullptr);
    return true;
}
