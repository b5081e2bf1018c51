#include <climits>
#include <cstdio>
#include <cstring>

#include "orvil/params/typed_records.h"
#include "orvil/runtime/heap.h"

void* vpr_alloc(size_t size) {
    return orv_heap_alloc(size);
}

void vpr_free(void* block) {
    orv_heap_free(block);
}

char* vpr_strdup(const char* text) {
    if (text == nullptr) {
        return nullptr;
    }
    const std::size_t size = std::strlen(text) + 1;
    void* copy = vpr_alloc(size);
    return copy == nullptr ? nullptr : static_cast<char*>(std::memcpy(copy, text, size));
}

char* vpr_strf(const char* format, ...) {
    va_list args;
    va_start(args, format);
    char* text = vpr_vstrf(format, args);
    va_end(args);
    return text;
}

char* vpr_vstrf(const char* format, va_list args) {
    if (format == nullptr) {
        return nullptr;
    }
    va_list measuring;
    va_copy(measuring, args);
    const int length = std::vsnprintf(nullptr, 0, format, measuring);
    va_end(measuring);
    if (length < 0) {
        return nullptr;
    }
    const std::size_t size = static_cast<std::size_t>(length) + 2;
    auto* text = static_cast<char*>(vpr_alloc(size));
    if (text != nullptr) {
        std::vsnprintf(text, size, format, args);
    }
    return text;
}
