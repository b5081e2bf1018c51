// Calls of exported functions that no other test calls with allocations refused. tests/house compares all such tests
// with the list of exports, so that none is forgotten.
#pragma once

#include <cstdarg>

#include "support/failing_allocator.h"

namespace orvil::test {

// Runs each of the uses again and again, with its 1st, 2nd, ... allocation refused. A use may fail at any of its steps;
// it must neither crash nor leak, and runs through in the end.
template <typename... Uses>
void sweep_each(Uses... uses) {
    (sweep_allocation_failures([&uses](auto) { uses(); }), ...);
}

// Calls the use with the arguments behind it as a list.
template <typename Use>
void with_arguments(Use* use, ...) {
    va_list arguments;
    va_start(arguments, use);
    (*use)(arguments);
    va_end(arguments);
}

}  // namespace orvil::test
