#include <windows.h>

#include <cctype>
#include <cstdlib>
#include <cstring>

#include "platform/platform.h"

namespace orvil::platform {

void debug_text(const char* text) {
    OutputDebugStringA(text);
}

bool has_lead_bytes() {
    return MB_CUR_MAX == 2;
}

bool is_lead_byte(unsigned char byte) {
    return isleadbyte(byte) != 0;
}

int compare_no_case(const char* left, const char* right) {
    return _stricmp(left, right);
}

int compare_no_case(const char* left, const char* right, std::size_t limit) {
    return _strnicmp(left, right, limit);
}

std::int32_t parse_int32(const char* text) {
    return std::strtol(text, nullptr, 10);
}

}  // namespace orvil::platform
