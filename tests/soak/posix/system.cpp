#include "soak/system.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>

namespace orvil::soak {

Module::Module(const char* path) : handle_(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {
}

Module::~Module() {
    if (handle_ != nullptr) {
        dlclose(handle_);
    }
}

void* Module::find(const char* name) const {
    return handle_ == nullptr ? nullptr : dlsym(handle_, name);
}

bool product_is_loaded() {
    void* handle = dlopen(ORVIL_SOAK_PRODUCT, RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) {
        dlclose(handle);
    }
    return handle != nullptr;
}

std::size_t resident_bytes() {
    std::size_t pages = 0;
    std::FILE* file = std::fopen("/proc/self/statm", "r");
    if (file == nullptr || std::fscanf(file, "%*u %zu", &pages) != 1) {
        pages = 0;
    }
    if (file != nullptr) {
        std::fclose(file);
    }
    return pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace orvil::soak
