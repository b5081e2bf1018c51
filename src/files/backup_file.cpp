// Numbered backups.
#include <algorithm>
#include <climits>
#include <cstring>

#include "orvil/files/file_utils.h"
#include "orvil/strings/ext_string.h"
#include "platform/platform.h"

namespace {

constexpr int kNoNumber = -1;

bool has_status(const char* path) {
    orvil::platform::FileStatus ignored;
    return orvil::platform::file_status(path, ignored);
}

// How many times the pattern takes a number, as a format: "%%d" takes none. -1 when it asks for anything else.
int count_numbers(const char* pattern) {
    int numbers = 0;
    for (const char* c = std::strchr(pattern, '%'); c != nullptr; c = std::strchr(c + 2, '%')) {
        if (c[1] != 'd' && c[1] != '%') {
            return -1;
        }
        numbers += c[1] == 'd' ? 1 : 0;
    }
    return numbers;
}

// The largest number that is tried. Without a number in the names one try tells everything.
int last_number(int limit, bool is_numbered) {
    if (limit < 1) {
        return is_numbered ? INT_MAX - 1 : 1;
    }
    return (std::max)(limit - 1, 1);
}

// Makes names with 1, 2, ... until one is free. Otherwise number is the one after the last.
bool find_free_name(const char* pattern, int limit, bool is_numbered, CExtString& name, int& number) {
    const int last = last_number(limit, is_numbered);
    for (number = 1; number <= last; ++number) {
        if (name.Format(pattern, number) < 1) {
            return false;
        }
        if (!has_status(name)) {
            return true;
        }
        if (!is_numbered) {
            number = last;
        }
    }
    return false;
}

bool copy_replacing(const char* source, const char* target) {
    return orvil::platform::copy_file(source, target, false);
}

bool copy_to_free_name(const char* source, const char* pattern, int limit, int& number) {
    const int numbers = count_numbers(pattern);
    CExtString name;
    return numbers >= 0 && numbers <= 1 && find_free_name(pattern, limit, numbers == 1, name, number) &&
           copy_replacing(source, name);
}

}  // namespace

bool orv_backupfile(const char* source, const char* pattern, int* number, int limit) {
    if (pattern == nullptr || !has_status(source)) {
        return false;
    }
    int ignored = 0;
    int& tried = number == nullptr ? ignored : *number;
    if (std::strstr(pattern, "%d") != nullptr) {
        return copy_to_free_name(source, pattern, limit, tried);
    }
    tried = kNoNumber;
    return copy_replacing(source, pattern);
}
