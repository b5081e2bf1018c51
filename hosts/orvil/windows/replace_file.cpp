#include "replace_file.h"

#include <windows.h>

namespace orvil_host {

bool replace_file(const char* source, const char* target) {
    return MoveFileExA(source, target, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

}  // namespace orvil_host
