// There is no private heap here: creating one fails, so the other functions never receive one.
#include "platform/platform.h"

namespace orvil::platform {

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

std::uint32_t heap_destroy(void*) {
    return 0;
}

}  // namespace orvil::platform
