#include <cstdlib>
#include <cstring>

#include "orvil/runtime/heap.h"
#include "platform/platform.h"

int st_ImpFunc_strcasecmp(const char* left, const char* right) {
    return orvil::platform::compare_no_case(left == nullptr ? "" : left, right == nullptr ? "" : right);
}

int st_ImpFunc_strncasecmp(const char* left, const char* right, int limit) {
    if (limit < 1) {
        return 0;
    }
    return orvil::platform::compare_no_case(left == nullptr ? "" : left, right == nullptr ? "" : right,
                                            static_cast<std::size_t>(limit));
}

char* st_ImpFunc_strdup(const char* text, unsigned length) {
    if (text == nullptr) {
        return nullptr;
    }
    const std::size_t wanted = length == 0 ? std::strlen(text) : length;
    char* copy = static_cast<char*>(std::calloc(1, wanted + 1));
    if (copy != nullptr) {
        std::strncpy(copy, text, wanted);
    }
    return copy;
}
