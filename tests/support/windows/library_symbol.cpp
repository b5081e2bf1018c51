#include "support/library_symbol.h"

#include <windows.h>

namespace orvil::test {

const void* library_symbol(const char* name) {
    return reinterpret_cast<const void*>(GetProcAddress(GetModuleHandleA("ORVIL.dll"), name));
}

}  // namespace orvil::test
