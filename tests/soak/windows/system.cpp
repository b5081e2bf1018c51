#include "soak/system.h"

#define PSAPI_VERSION 2  // the function is KERNEL32's
#include <windows.h>

#include <psapi.h>

namespace orvil::soak {

Module::Module(const char* path) : handle_(LoadLibraryA(path)) {
}

Module::~Module() {
    if (handle_ != nullptr) {
        FreeLibrary(static_cast<HMODULE>(handle_));
    }
}

void* Module::find(const char* name) const {
    return handle_ == nullptr ? nullptr : reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

bool product_is_loaded() {
    return GetModuleHandleA(ORVIL_SOAK_PRODUCT) != nullptr;
}

std::size_t resident_bytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    return GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters) ? counters.WorkingSetSize : 0;
}

}  // namespace orvil::soak
