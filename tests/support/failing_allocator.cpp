#include "support/failing_allocator.h"

#include <cstdlib>
#include <new>

extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
}

namespace orvil::test {
namespace {

bool counting = false;
bool refused = false;
bool refuse_later = false;
std::int64_t until_refusal = 0;
std::int64_t counted = 0;

bool refuse() {
    if (!counting) {
        return false;
    }
    ++counted;
    if (until_refusal > 0 && --until_refusal == 0) {
        refused = true;
        return true;
    }
    return refused && refuse_later;
}

}  // namespace

AllocationFailure::AllocationFailure(std::int64_t nth, bool and_all_later) {
    until_refusal = nth;
    refuse_later = and_all_later;
    refused = false;
    counting = true;
}

AllocationFailure::~AllocationFailure() {
    counting = false;
}

bool AllocationFailure::happened() const {
    return refused;
}

void start_counting_allocations() {
    until_refusal = 0;
    refused = false;
    counted = 0;
    counting = true;
}

std::int64_t stop_counting_allocations() {
    counting = false;
    return counted;
}

}  // namespace orvil::test

extern "C" {

void* __wrap_malloc(std::size_t size) {
    return orvil::test::refuse() ? nullptr : __real_malloc(size);
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
    return orvil::test::refuse() ? nullptr : __real_calloc(count, size);
}

void* __wrap_realloc(void* block, std::size_t size) {
    return orvil::test::refuse() ? nullptr : __real_realloc(block, size);
}

}  // extern "C"

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return orvil::test::refuse() ? nullptr : __real_malloc(size);
}

void* operator new(std::size_t size) {
    void* block = orvil::test::refuse() ? nullptr : __real_malloc(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

void operator delete(void* block, const std::nothrow_t&) noexcept {
    std::free(block);
}
