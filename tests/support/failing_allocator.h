// Allocation that fails on command. Linked into the tests of internals, whose malloc, calloc, realloc and operator new
// all pass through here; on Windows those tests run in heap mode 1, so that strings come from calloc as well.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

namespace orvil::test {

// While an object lives, the allocation number `nth` (counted from 1) yields null, and with `and_all_later` every later
// one too. Tests are single-threaded, and so is this.
class AllocationFailure {
public:
    explicit AllocationFailure(std::int64_t nth, bool and_all_later = false);
    ~AllocationFailure();
    AllocationFailure(const AllocationFailure&) = delete;
    AllocationFailure& operator=(const AllocationFailure&) = delete;

    // Whether an allocation has been refused. Reaching the end of an operation with this false means that the operation
    // makes fewer than `nth` allocations.
    bool happened() const;
};

// Counts the allocations made between the two calls.
void start_counting_allocations();
std::int64_t stop_counting_allocations();

// Runs `operation(failed)` again and again with its 1st, 2nd, ... allocation refused (that one alone, then that one and
// all later ones) until it runs through without a refusal. `operation` builds its objects, calls what is tested, checks
// the stated result, and must not leak; it is told by `failed()` whether an allocation has been refused so far.
// Assertions inside allocate when they fail only.
template <typename Operation>
void sweep_allocation_failures(Operation operation) {
    for (bool and_all_later : {false, true}) {
        for (std::int64_t nth = 1;; ++nth) {
            ASSERT_LT(nth, 100000) << "the operation never runs without a refused allocation";
            AllocationFailure failure(nth, and_all_later);
            operation([&failure] { return failure.happened(); });
            if (!failure.happened()) {
                break;
            }
        }
    }
}

}  // namespace orvil::test
