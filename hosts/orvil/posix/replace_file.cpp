#include "replace_file.h"

#include <cstdio>

namespace orvil_host {

bool replace_file(const char* source, const char* target) {
    return std::rename(source, target) == 0;
}

}  // namespace orvil_host
