#include "orvil/runtime/heap.h"

#include <cstdlib>

#include "platform/platform.h"
#include "runtime/heap_state.h"

uint64_t st_dwMoreLargeSize = 0;
uint64_t st_dwMostLargeSize = 0;

namespace orvil::detail {

constinit HeapState heap;

namespace {

constexpr const char* kModeVariable = "KESA_HEAPINFO_ORV";

// Any value but 1 to 4 leaves the mode as it is.
void read_mode() {
    const char* text = std::getenv(kModeVariable);
    if (text == nullptr || *text == '\0') {
        return;
    }
    const int mode = platform::parse_int32(text);
    if (mode >= static_cast<int>(kRuntimeHeap) && mode <= static_cast<int>(kPrivateHeapLowFragmentation)) {
        heap.mode = static_cast<std::uint32_t>(mode);
    }
}

bool initialise_heap() {
    if (heap.initialised) {
        return true;
    }
    read_mode();
    if (heap.is_private()) {
        heap.handle = platform::heap_create();
        if (heap.handle == nullptr) {
            return false;
        }
    }
    if (heap.mode == kPrivateHeapLowFragmentation) {
        platform::heap_enable_low_fragmentation(heap.handle);
    }
    heap.initialised = true;
    heap.pools_texts = heap.pools_nodes = heap.mode != kRuntimeHeap;
    return true;
}

}  // namespace

// The second attempt reads the environment again: a variable that insists on a private heap leaves the handle null.
void make_heap_ready() {
    if (!initialise_heap()) {
        heap.mode = kRuntimeHeapByFallback;
        initialise_heap();
    }
}

std::uint32_t destroy_private_heap() {
    if (!heap.is_private() || heap.handle == nullptr) {
        return heap.mode - kPrivateHeap;
    }
    abandon_small_blocks();
    const std::uint32_t result = platform::heap_destroy(heap.handle);
    heap.handle = nullptr;
    heap.pools_texts = false;
    return result;
}

}  // namespace orvil::detail

using orvil::detail::heap;

bool orv_heap_init() {
    return orvil::detail::initialise_heap();
}

uint32_t orv_heap_term() {
    return orvil::detail::destroy_private_heap();
}

uint32_t orv_heap_gettype() {
    return heap.mode;
}

uint32_t orv_heap_getlfh(int) {
    return orvil::platform::heap_compatibility(heap.handle);
}

void* orv_heap_gethandle() {
    return heap.handle;
}
