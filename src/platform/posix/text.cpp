#include <strings.h>
#include <syslog.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "platform/platform.h"

namespace orvil::platform {

void debug_text(const char* text) {
    syslog(LOG_DEBUG, "%s", text);
}

bool has_lead_bytes() {
    return MB_CUR_MAX == 2;
}

bool is_lead_byte(unsigned char byte) {
    if (!has_lead_bytes()) {
        return false;
    }
    std::mbstate_t state{};
    const char text = static_cast<char>(byte);
    return std::mbrlen(&text, 1, &state) == static_cast<std::size_t>(-2);
}

int compare_no_case(const char* left, const char* right) {
    return strcasecmp(left, right);
}

int compare_no_case(const char* left, const char* right, std::size_t limit) {
    return strncasecmp(left, right, limit);
}

std::int32_t parse_int32(const char* text) {
    const long value = std::strtol(text, nullptr, 10);
    if (value > INT32_MAX) {
        return INT32_MAX;
    }
    return value < INT32_MIN ? INT32_MIN : static_cast<std::int32_t>(value);
}

}  // namespace orvil::platform
