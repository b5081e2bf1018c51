#include "support/library_symbol.h"

#include <dlfcn.h>

namespace orvil::test {

const void* library_symbol(const char* name) {
    return dlsym(RTLD_DEFAULT, name);
}

}  // namespace orvil::test
