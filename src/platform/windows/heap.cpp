#include <windows.h>

#include "platform/platform.h"

namespace orvil::platform {
namespace {

constexpr SIZE_T kInitialCommit = 0x100000;
constexpr ULONG kLowFragmentation = 2;

// An export of kernel32.dll that older systems lack; null when it is missing.
template <typename Function>
Function kernel_function(const char* name) {
    HMODULE kernel = GetModuleHandleA("kernel32.dll");
    if (kernel == nullptr) {
        return nullptr;
    }
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(kernel, name)));
}

}  // namespace

void* heap_create() {
    return HeapCreate(0, kInitialCommit, 0);
}

void heap_enable_low_fragmentation(void* heap) {
    auto set_information = kernel_function<decltype(&HeapSetInformation)>("HeapSetInformation");
    if (set_information != nullptr) {
        ULONG policy = kLowFragmentation;
        set_information(heap, HeapCompatibilityInformation, &policy, sizeof policy);
    }
}

std::uint32_t heap_compatibility(void* heap) {
    auto query_information = kernel_function<decltype(&HeapQueryInformation)>("HeapQueryInformation");
    ULONG policy = 0;
    SIZE_T returned = 0;
    if (heap == nullptr || query_information == nullptr ||
        query_information(heap, HeapCompatibilityInformation, &policy, sizeof policy, &returned) == 0) {
        return kNoHeapInformation;
    }
    return policy;
}

void* heap_alloc(void* heap, std::size_t size) {
    return HeapAlloc(heap, HEAP_ZERO_MEMORY, size);
}

void* heap_realloc(void* heap, void* block, std::size_t size) {
    return HeapReAlloc(heap, HEAP_ZERO_MEMORY, block, size);
}

void heap_free(void* heap, void* block) {
    HeapFree(heap, 0, block);
}

// Large pages are for processes with a privilege of their own here.
void prefer_large_pages(void*, std::size_t) {
}

std::uint32_t heap_destroy(void* heap) {
    return static_cast<std::uint32_t>(HeapDestroy(heap));
}

}  // namespace orvil::platform
