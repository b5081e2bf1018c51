#include <sys/stat.h>

#include <cstdint>
#include <cstdlib>

#include "platform/platform.h"

namespace orvil::platform {

bool file_status(const char* path, FileStatus& status) {
    struct _stat64 found {};
    if (path == nullptr || _stat64(path, &found) != 0 || found.st_size > INT32_MAX) {
        return false;
    }
    status.mode = found.st_mode;
    status.size = found.st_size;
    status.accessed = found.st_atime;
    status.modified = found.st_mtime;
    status.created = found.st_ctime;
    return true;
}

bool full_path(const char* path, char* buffer, std::size_t size) {
    return path != nullptr && _fullpath(buffer, path, size) != nullptr;
}

}  // namespace orvil::platform
