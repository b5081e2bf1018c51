// What the soak test asks of the system.
#pragma once

#include <cstddef>

namespace orvil::soak {

// A shared library that is loaded as long as the object lives.
class Module {
public:
    explicit Module(const char* path);
    ~Module();
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    // The address of an exported function; null when there is none, or no library.
    void* find(const char* name) const;

private:
    void* handle_;
};

// Whether the product itself is loaded now.
bool product_is_loaded();

// Bytes of this process that are in memory.
std::size_t resident_bytes();

}  // namespace orvil::soak
