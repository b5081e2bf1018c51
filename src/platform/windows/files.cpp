#include <sys/stat.h>
#include <windows.h>

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
    status.device = found.st_dev;
    status.links = static_cast<std::uint32_t>(found.st_nlink);
    return true;
}

bool full_path(const char* path, char* buffer, std::size_t size) {
    return path != nullptr && _fullpath(buffer, path, size) != nullptr;
}

bool copy_file(const char* source, const char* target, bool spare_existing) {
    return source != nullptr && target != nullptr && CopyFileA(source, target, spare_existing ? TRUE : FALSE) != 0;
}

bool move_file(const char* source, const char* target) {
    return source != nullptr && target != nullptr && MoveFileExA(source, target, MOVEFILE_COPY_ALLOWED) != 0;
}

}  // namespace orvil::platform
