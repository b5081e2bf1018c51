// The static twin on a private heap made here: the linker hands the library's calls of the platform's heap functions
// and of its debug text to this file (see CMakeLists.txt), which prints them.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

#include "orvil/runtime/heap.h"
#include "orvil/strings/ext_string.h"
#include "platform/platform.h"
#include "runtime/heap_host.h"
#include "support/child_process.h"

namespace {

int refusals = 0;
bool refuse_destruction = false;
std::uint32_t policy = 0;

// The blocks of the one heap there is, with their sizes.
std::map<void*, std::size_t>& blocks() {
    static std::map<void*, std::size_t> map;
    return map;
}

void* const kHeap = &refusals;

void* fake_create() {
    if (refusals > 0) {
        --refusals;
        std::printf("[no heap]\n");
        return nullptr;
    }
    std::printf("[heap made]\n");
    return kHeap;
}

void fake_enable(void* heap) {
    std::printf("[policy]\n");
    policy = heap == kHeap ? 2 : 99;
}

std::uint32_t fake_compatibility(void* heap) {
    return heap == kHeap ? policy : orvil::platform::kNoHeapInformation;
}

void* fake_alloc(void* heap, std::size_t size) {
    std::printf("[take%s]\n", heap == kHeap ? "" : " from another heap");
    void* block = std::calloc(1, size);
    blocks()[block] = size;
    return block;
}

void* fake_realloc(void* heap, void* block, std::size_t size) {
    std::printf("[change%s]\n", heap == kHeap ? "" : " in another heap");
    const auto old = blocks().extract(block);
    if (old.empty()) {
        std::printf("[it was never taken]\n");
        return nullptr;
    }
    void* moved = std::calloc(1, size);
    std::memcpy(moved, block, old.mapped() < size ? old.mapped() : size);
    std::free(block);
    blocks()[moved] = size;
    return moved;
}

void fake_free(void*, void* block) {
    std::printf("[give %s]\n", blocks().erase(block) == 1 ? "back" : "what was never taken");
    std::free(block);
}

std::uint32_t fake_destroy(void*) {
    std::printf("[heap gone]\n");
    for (const auto& [block, size] : blocks()) {
        std::free(block);
    }
    blocks().clear();
    return refuse_destruction ? 0 : 1;
}

void print_string(const char* text) {
    const CExtString string(text);
    std::printf("string=%s,%d\n", string.GetString(), string.GetLength());
}

}  // namespace

extern "C" {

void* __wrap__ZN5orvil8platform11heap_createEv() {
    return fake_create();
}

void __wrap__ZN5orvil8platform29heap_enable_low_fragmentationEPv(void* heap) {
    fake_enable(heap);
}

std::uint32_t __wrap__ZN5orvil8platform18heap_compatibilityEPv(void* heap) {
    return fake_compatibility(heap);
}

// std::size_t is unsigned long on Linux and unsigned long long on Windows, and the names say so.
#ifdef _WIN32
void* __wrap__ZN5orvil8platform10heap_allocEPvy(void* heap, std::size_t size) {
    return fake_alloc(heap, size);
}

void* __wrap__ZN5orvil8platform12heap_reallocEPvS1_y(void* heap, void* block, std::size_t size) {
    return fake_realloc(heap, block, size);
}
#else
void* __wrap__ZN5orvil8platform10heap_allocEPvm(void* heap, std::size_t size) {
    return fake_alloc(heap, size);
}

void* __wrap__ZN5orvil8platform12heap_reallocEPvS1_m(void* heap, void* block, std::size_t size) {
    return fake_realloc(heap, block, size);
}
#endif

void __wrap__ZN5orvil8platform9heap_freeEPvS1_(void* heap, void* block) {
    fake_free(heap, block);
}

std::uint32_t __wrap__ZN5orvil8platform12heap_destroyEPv(void* heap) {
    return fake_destroy(heap);
}

void __wrap__ZN5orvil8platform10debug_textEPKc(const char* text) {
    std::printf("[%s]\n", orvil::test::show_line_ends(text).c_str());
}

void __real_regex_cleanup();

void __wrap_regex_cleanup() {
    std::printf("[patterns dropped]\n");
    __real_regex_cleanup();
}

}  // extern "C"

namespace orvil::test {

bool load_library(HeapFunctions& heap) {
    heap = {orv_heap_init,    orv_heap_term, orv_heap_gettype,  orv_heap_getlfh,     orv_heap_gethandle, orv_heap_alloc,
            orv_heap_realloc, orv_heap_free, st_ImpFunc_strdup, &st_dwMoreLargeSize, &st_dwMostLargeSize};
    return true;
}

void unload_library() {
}

bool special_action(const char* action, int number) {
    const std::string wanted = action;
    if (wanted == "refuse") {
        refusals = number;
    } else if (wanted == "refuse-destruction") {
        refuse_destruction = true;
    } else if (wanted == "attach") {
        platform::on_load();
    } else if (wanted == "detach") {
        platform::on_unload();
    } else if (wanted == "string") {
        print_string("abc");
    } else {
        return false;
    }
    return true;
}

}  // namespace orvil::test
