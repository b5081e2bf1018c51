// A host that carries out the actions of its command line and prints what each gave, one line an action.
//
// heap_host.cpp is its main function. The library comes from one of two sources: loaded_heap.cpp loads the shared
// library at run time, as hosts without an import library do; seam_heap.cpp holds the static twin on a private heap of
// its own.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvil::test {

// The functions as a host finds them.
struct HeapFunctions {
    bool (*init)();
    std::uint32_t (*term)();
    std::uint32_t (*gettype)();
    std::uint32_t (*getlfh)(int);
    void* (*gethandle)();
    void* (*alloc)(std::size_t);
    void* (*realloc)(void*, std::size_t);
    void (*free)(void*);
    char* (*duplicate)(const char*, unsigned);
    const std::uint64_t* largest_request;
    const std::uint64_t* most_buffer_bytes;
};

// Makes the library ready; false when it cannot be had.
bool load_library(HeapFunctions& functions);
void unload_library();

// Actions of one source of the library alone; false when it has no such action.
bool special_action(const char* action, int number);

}  // namespace orvil::test
