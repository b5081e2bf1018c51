#include "runtime/heap_host.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

orvil::test::HeapFunctions heap{};
unsigned char* block = nullptr;
std::size_t block_size = 0;

constexpr const char* kVariable = "KESA_HEAPINFO_ORV";

void print(const char* what, std::uint32_t value) {
    std::printf("%s=0x%" PRIX32 "\n", what, value);
}

// Whether the bytes of the block from `begin` on are zero.
const char* describe(std::size_t begin) {
    if (block == nullptr) {
        return "null";
    }
    return std::all_of(block + begin, block + block_size, [](unsigned char c) { return c == 0; }) ? "zeros" : "dirt";
}

void allocate(std::size_t size) {
    block = static_cast<unsigned char*>(heap.alloc(size));
    block_size = size;
    std::printf("alloc=%s\n", describe(0));
}

// Fills the block first, then looks at the bytes that stayed and, when the block grows, at the new ones.
void reallocate(std::size_t size) {
    if (block != nullptr) {
        std::memset(block, 'x', block_size);
    }
    const std::size_t old_size = block_size;
    block = static_cast<unsigned char*>(heap.realloc(block, size));
    block_size = size;
    const std::size_t kept = std::min(old_size, size);
    const bool is_kept = block != nullptr && std::count(block, block + kept, 'x') == static_cast<std::ptrdiff_t>(kept);
    std::printf("realloc=%s%s\n",
                block == nullptr ? "null"
                : is_kept        ? "kept"
                                 : "lost",
                block != nullptr && size > old_size && heap.gethandle() != nullptr ? describe(old_size) : "");
}

void release() {
    heap.free(block);
    block = nullptr;
    block_size = 0;
}

void duplicate() {
    char* copy = heap.duplicate("abcdef", 3);
    std::printf("duplicate=%s\n", copy);
    std::free(copy);
}

// The C runtime's copy of the environment.
void set_variable(int number) {
    static char text[60];
    std::snprintf(text, sizeof text, "%s=%d", kVariable, number);
    putenv(text);
}

bool heap_action(const std::string& action, int number) {
    if (action == "init") {
        print("init", heap.init());
    } else if (action == "term") {
        print("term", heap.term());
    } else if (action == "type") {
        print("type", heap.gettype());
    } else if (action == "lfh") {
        print("lfh", heap.getlfh(number));
    } else if (action == "handle") {
        std::printf("handle=%s\n", heap.gethandle() == nullptr ? "null" : "heap");
    } else {
        return false;
    }
    return true;
}

bool block_action(const std::string& action, int number) {
    const auto size = static_cast<std::size_t>(number);
    if (action == "alloc") {
        allocate(size);
    } else if (action == "realloc") {
        reallocate(size);
    } else if (action == "free") {
        release();
    } else if (action == "duplicate") {
        duplicate();
    } else if (action == "largest") {
        std::printf("largest=%" PRIu64 "\n", *heap.largest_request);
    } else if (action == "most") {
        std::printf("most=%" PRIu64 "\n", *heap.most_buffer_bytes);
    } else {
        return false;
    }
    return true;
}

bool process_action(const std::string& action, int number) {
    if (action == "load") {
        std::printf("%s", orvil::test::load_library(heap) ? "" : "no library\n");
    } else if (action == "unload") {
        orvil::test::unload_library();
    } else if (action == "setenv") {
        set_variable(number);
    } else if (action == "thread") {
        std::thread([] { std::printf("thread\n"); }).join();
    } else {
        return false;
    }
    return true;
}

#ifdef _WIN32

bool is_heap_of_process(HANDLE wanted) {
    HANDLE heaps[100];
    const DWORD count = std::min<DWORD>(GetProcessHeaps(100, heaps), 100);
    return std::find(heaps, heaps + count, wanted) != heaps + count;
}

// How many bytes of the heap's first region are committed.
std::size_t committed(HANDLE of) {
    MEMORY_BASIC_INFORMATION region{};
    VirtualQuery(of, &region, sizeof region);
    return region.State == MEM_COMMIT ? region.RegionSize : 0;
}

// Whether a used block of the heap holds the address.
bool lies_in(HANDLE of, const void* address) {
    const auto* wanted = static_cast<const char*>(address);
    PROCESS_HEAP_ENTRY entry{};
    while (of != nullptr && HeapWalk(of, &entry)) {
        const auto* begin = static_cast<const char*>(entry.lpData);
        const bool is_used = (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
        if (is_used && wanted >= begin && wanted < begin + entry.cbData) {
            return true;
        }
    }
    return false;
}

bool system_action(const std::string& action, int number) {
    static HANDLE remembered = nullptr;
    if (action == "remember") {
        remembered = heap.gethandle();
    } else if (action == "exists") {
        std::printf("exists=%d\n", is_heap_of_process(remembered));
    } else if (action == "is-process-heap") {
        std::printf("is-process-heap=%d\n", heap.gethandle() == GetProcessHeap());
    } else if (action == "committed") {
        std::printf("committed=%s\n", committed(heap.gethandle()) >= 0x100000 ? "enough" : "less");
    } else if (action == "block-home") {
        std::printf("block-home=%s\n", lies_in(heap.gethandle(), block) ? "private" : "elsewhere");
    } else if (action == "duplicate-home") {
        char* copy = heap.duplicate("abcdef", 3);
        std::printf("duplicate-home=%s\n", lies_in(heap.gethandle(), copy) ? "private" : "elsewhere");
        std::free(copy);
    } else if (action == "setenv-system") {
        const char value[] = {static_cast<char>('0' + number), '\0'};
        SetEnvironmentVariableA(kVariable, value);
    } else {
        return false;
    }
    return true;
}

#else

bool system_action(const std::string&, int) {
    return false;
}

#endif

bool act(const std::string& action, int number) {
    return process_action(action, number) || heap_action(action, number) || block_action(action, number) ||
           system_action(action, number) || orvil::test::special_action(action.c_str(), number);
}

}  // namespace

// Each argument is an action, if need be with a number behind a colon.
int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const std::size_t colon = word.find(':');
        const int number = colon == std::string::npos ? 0 : std::atoi(word.c_str() + colon + 1);
        if (!act(word.substr(0, colon), number)) {
            std::printf("no action %s\n", argv[i]);
            return 2;
        }
    }
    return 0;
}
