// Texts and records in memory of the C runtime.
#pragma once

#include <cstdlib>
#include <cstring>
#include <memory>

#include "platform/platform.h"

namespace orvil::detail {

struct ReleaseBlock {
    void operator()(void* block) const { std::free(block); }
};

using OwnedText = std::unique_ptr<char, ReleaseBlock>;

// Null for null, and when there is no memory.
inline OwnedText duplicate_text(const char* text) {
    const std::size_t size = text == nullptr ? 0 : std::strlen(text) + 1;
    OwnedText copy(size == 0 ? nullptr : static_cast<char*>(std::malloc(size)));
    if (copy) {
        std::memcpy(copy.get(), text, size);
    }
    return copy;
}

// The working folder; null when it has no path or there is no memory.
inline OwnedText working_folder_text() {
    char path[4096];
    return duplicate_text(platform::working_folder(path, sizeof path) ? path : nullptr);
}

}  // namespace orvil::detail
