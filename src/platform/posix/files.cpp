#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "platform/platform.h"

namespace orvil::platform {

bool file_status(const char* path, FileStatus& status) {
    struct stat found {};
    if (path == nullptr || stat(path, &found) != 0 || found.st_size > INT32_MAX) {
        return false;
    }
    status.mode = found.st_mode;
    status.size = found.st_size;
    status.accessed = found.st_atime;
    status.modified = found.st_mtime;
    status.created = found.st_ctime;
    return true;
}

}  // namespace orvil::platform
