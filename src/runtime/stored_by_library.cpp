#include "orvil/runtime/stored_by_library.h"

#include "runtime/node_memory.h"

namespace orvil::detail {

void* StoredByLibrary::operator new(std::size_t size) noexcept {
    return allocate_node(size);
}

void* StoredByLibrary::operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocate_node(size);
}

void StoredByLibrary::operator delete(void* block, std::size_t size) noexcept {
    if (block != nullptr) {
        free_node(block, size);
    }
}

void StoredByLibrary::operator delete(void* block, const std::nothrow_t&) noexcept {
    free_node(block);
}

}  // namespace orvil::detail
