#include "change_folder.h"

#include <unistd.h>

namespace orvil_host {

bool change_folder(const char* path) {
    return chdir(path) == 0;
}

}  // namespace orvil_host
