#include <sys/mman.h>

#include <cstdint>

#include "platform/platform.h"

namespace orvil::platform {

// There is no private heap here: creating one fails, so the other functions never receive one.
void* heap_create() {
    return nullptr;
}

void heap_enable_low_fragmentation(void*) {
}

std::uint32_t heap_compatibility(void*) {
    return kNoHeapInformation;
}

void* heap_alloc(void*, std::size_t) {
    return nullptr;
}

void* heap_realloc(void*, void*, std::size_t) {
    return nullptr;
}

void heap_free(void*, void*) {
}

// Advice is about whole pages, of 64 KiB at most; those that the memory shares with other blocks are left out.
void prefer_large_pages(void* memory, std::size_t size) {
#ifdef MADV_HUGEPAGE
    constexpr std::uintptr_t kPageSize = 0x10000;
    const auto begin = (reinterpret_cast<std::uintptr_t>(memory) + kPageSize - 1) & ~(kPageSize - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(memory) + size) & ~(kPageSize - 1);
    if (begin < end) {
        madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
    }
#else
    static_cast<void>(memory);
    static_cast<void>(size);
#endif
}

std::uint32_t heap_destroy(void*) {
    return 0;
}

}  // namespace orvil::platform
