#include "change_folder.h"

#include <direct.h>

namespace orvil_host {

bool change_folder(const char* path) {
    return _chdir(path) == 0;
}

}  // namespace orvil_host
