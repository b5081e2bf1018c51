// The shared library, loaded and unloaded at run time.
#include <cstdarg>
#include <cstdio>
#include <string>

#include "runtime/heap_host.h"
#include "support/child_process.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#include <syslog.h>
#endif

namespace {

#ifdef _WIN32

HMODULE library = nullptr;

void open_library() {
    library = LoadLibraryA((orvil::test::program_folder() + "ORVIL.dll").c_str());
}

void close_library() {
    FreeLibrary(library);
}

void* find(const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(library, name));
}

#else

void* library = nullptr;

void open_library() {
    library = dlopen((orvil::test::program_folder() + "liborvil.so").c_str(), RTLD_NOW | RTLD_LOCAL);
}

void close_library() {
    dlclose(library);
}

void* find(const char* name) {
    return dlsym(library, name);
}

#endif

template <typename Function>
bool look_up(Function& function, const char* name) {
    function = reinterpret_cast<Function>(find(name));
    return function != nullptr;
}

}  // namespace

#ifndef _WIN32

// The library's debug texts meet this function before the C library's.
extern "C" __attribute__((visibility("default"))) void syslog(int priority, const char* format, ...) {
    va_list args;
    va_start(args, format);
    char text[200];
    std::vsnprintf(text, sizeof text, format, args);
    va_end(args);
    std::printf("debug=%s%s\n",
                priority == LOG_DEBUG ? "" : "not for debugging: ", orvil::test::show_line_ends(text).c_str());
}

#endif

namespace orvil::test {

bool load_library(HeapFunctions& heap) {
    open_library();
    return library != nullptr && look_up(heap.init, "orv_heap_init") && look_up(heap.term, "orv_heap_term") &&
           look_up(heap.gettype, "orv_heap_gettype") && look_up(heap.getlfh, "orv_heap_getlfh") &&
           look_up(heap.gethandle, "orv_heap_gethandle") && look_up(heap.alloc, "orv_heap_alloc") &&
           look_up(heap.realloc, "orv_heap_realloc") && look_up(heap.free, "orv_heap_free") &&
           look_up(heap.duplicate, "st_ImpFunc_strdup") && look_up(heap.largest_request, "st_dwMoreLargeSize") &&
           look_up(heap.most_buffer_bytes, "st_dwMostLargeSize");
}

void unload_library() {
    close_library();
}

bool special_action(const char* action, int) {
    if (std::string(action) != "exports-current-size") {
        return false;
    }
    std::printf("exports-current-size=%d\n", find("st_dwCurrentSize") != nullptr);
    return true;
}

}  // namespace orvil::test
