#include "orvil/files/file_utils.h"

#include <cstdint>

#include "platform/platform.h"

using orvil::platform::file_status;
using orvil::platform::FileStatus;

namespace {

constexpr std::uint32_t kNoStatus = 0xFFFFFFFF;

// Values of the selector.
constexpr int kAccessed = 0;
constexpr int kCreated = 2;

// What may be asked for, and which bit of the mode answers: hosts know them paired like this.
constexpr int kWrite = 2;
constexpr std::uint32_t kWriteNeeds = 0x100;
constexpr int kRead = 4;
constexpr std::uint32_t kReadNeeds = 0x80;

}  // namespace

std::uint32_t orv_stattime(const char* path, int which) {
    FileStatus status;
    if (!file_status(path, status)) {
        return kNoStatus;
    }
    const std::int64_t time = which == kAccessed  ? status.accessed
                              : which == kCreated ? status.created
                                                  : status.modified;
    return static_cast<std::uint32_t>(time);
}

std::uint32_t orv_statsize(const char* path) {
    FileStatus status;
    return file_status(path, status) ? static_cast<std::uint32_t>(status.size) : kNoStatus;
}

std::uint32_t orv_statmode(const char* path) {
    FileStatus status;
    return file_status(path, status) ? status.mode : 0;
}

int orv_access(const char* path, int mode) {
    FileStatus status;
    if (!file_status(path, status)) {
        return -1;
    }
    const bool may_write = (mode & kWrite) == 0 || (status.mode & kWriteNeeds) != 0;
    const bool may_read = (mode & kRead) == 0 || (status.mode & kReadNeeds) != 0;
    return may_write && may_read ? 0 : -1;
}

bool orv_copyfile(const char* source, const char* target, bool failIfExists) {
    return orvil::platform::copy_file(source, target, failIfExists);
}

bool orv_movefile(const char* source, const char* target) {
    FileStatus ignored;
    return !file_status(target, ignored) && orvil::platform::move_file(source, target);
}
