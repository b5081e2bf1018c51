#include "orvil/runtime/heap.h"

#include <cstdlib>

#include "platform/platform.h"
#include "runtime/heap_state.h"

uint64_t st_dwMoreLargeSize = 0;
uint64_t st_dwMostLargeSize = 0;

namespace orvil::detail {
namespace {

constexpr std::uint32_t kRuntimeHeap = 1;
constexpr std::uint32_t kRuntimeHeapByFallback = 2;
constexpr std::uint32_t kPrivateHeap = 3;
constexpr std::uint32_t kPrivateHeapLowFragmentation = 4;

constexpr const char* kModeVariable = "KESA_HEAPINFO_ORV";

struct HeapState {
    std::uint32_t mode = kPrivateHeapLowFragmentation;
    void* handle = nullptr;
    bool initialised = false;  // never cleared again, so that no second heap is made
};

HeapState heap;

bool is_private(std::uint32_t mode) {
    return mode >= kPrivateHeap;
}

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
    if (is_private(heap.mode)) {
        heap.handle = platform::heap_create();
        if (heap.handle == nullptr) {
            return false;
        }
    }
    if (heap.mode == kPrivateHeapLowFragmentation) {
        platform::heap_enable_low_fragmentation(heap.handle);
    }
    heap.initialised = true;
    return true;
}

// The second attempt reads the environment again: a variable that insists on a private heap leaves the handle null.
void ensure_heap() {
    if (!heap.initialised && !initialise_heap()) {
        heap.mode = kRuntimeHeapByFallback;
        initialise_heap();
    }
}

void note_request(std::size_t size) {
    if (size > st_dwMoreLargeSize) {
        st_dwMoreLargeSize = size;
    }
}

}  // namespace

std::uint32_t destroy_private_heap() {
    if (!is_private(heap.mode) || heap.handle == nullptr) {
        return heap.mode - kPrivateHeap;
    }
    const std::uint32_t result = platform::heap_destroy(heap.handle);
    heap.handle = nullptr;
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

void* orv_heap_alloc(size_t size) {
    orvil::detail::note_request(size);
    orvil::detail::ensure_heap();
    if (!orvil::detail::is_private(heap.mode)) {
        return std::calloc(1, size);
    }
    return heap.handle == nullptr ? nullptr : orvil::platform::heap_alloc(heap.handle, size);
}

void* orv_heap_realloc(void* block, size_t size) {
    orvil::detail::note_request(size);
    orvil::detail::ensure_heap();
    if (!orvil::detail::is_private(heap.mode)) {
        return std::realloc(block, size);
    }
    return heap.handle == nullptr ? nullptr : orvil::platform::heap_realloc(heap.handle, block, size);
}

void orv_heap_free(void* block) {
    if (block == nullptr) {
        return;
    }
    orvil::detail::ensure_heap();
    if (!orvil::detail::is_private(heap.mode)) {
        std::free(block);
    } else if (heap.handle != nullptr) {  // blocks of a destroyed heap went with it
        orvil::platform::heap_free(heap.handle, block);
    }
}
