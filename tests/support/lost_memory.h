// Memory that is lost on purpose.
#pragma once

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace orvil::test {

// While an object lives, memory that is allocated is no leak to the leak sanitizer.
class LostMemory {
public:
    LostMemory() { disable(); }
    ~LostMemory() { enable(); }
    LostMemory(const LostMemory&) = delete;
    LostMemory& operator=(const LostMemory&) = delete;

private:
#if defined(__SANITIZE_ADDRESS__)
    static void disable() {
        __lsan_disable();
    }
    static void enable() {
        __lsan_enable();
    }
#else
    static void disable() {
    }
    static void enable() {
    }
#endif
};

}  // namespace orvil::test
