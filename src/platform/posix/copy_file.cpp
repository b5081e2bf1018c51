// Copies and moves as Windows does them.
#include <fcntl.h>
#include <stdio.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

#include "platform/platform.h"

namespace orvil::platform {
namespace {

constexpr mode_t kPermissions = 0777;
constexpr std::size_t kMostBytesAtOnce = std::size_t{1} << 30;

// An open file, closed at the end. Opening a pipe does not wait for its other side.
class OpenFile {
public:
    OpenFile(const char* path, int flags, mode_t mode = 0) : file_(open(path, flags | O_CLOEXEC | O_NONBLOCK, mode)) {}
    ~OpenFile() { close(); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    // False when what has been written is not safe.
    bool close() {
        const bool is_closed = file_ < 0 || ::close(file_) == 0;
        file_ = -1;
        return is_closed;
    }
    bool is_open() const { return file_ >= 0; }
    int descriptor() const { return file_; }

    // False unless it is a regular file.
    bool query(struct stat& status) const { return fstat(file_, &status) == 0 && S_ISREG(status.st_mode); }

private:
    int file_;
};

bool copy_bytes(int source, int target) {
    ssize_t sent = 0;
    do {
        sent = sendfile(target, source, nullptr, kMostBytesAtOnce);
    } while (sent > 0 || (sent < 0 && errno == EINTR));
    return sent == 0;
}

// As far as the file system and the owner of the target allow.
void copy_attributes(const struct stat& source, int target) {
    timespec times[2] = {};
    times[0].tv_nsec = UTIME_OMIT;
    times[1] = source.st_mtim;
    [[maybe_unused]] const bool is_done =
        fchmod(target, source.st_mode & kPermissions) == 0 && futimens(target, times) == 0;
}

bool fill(const OpenFile& source, const struct stat& status, OpenFile& target) {
    if (!copy_bytes(source.descriptor(), target.descriptor())) {
        return false;
    }
    copy_attributes(status, target.descriptor());
    return target.close();
}

bool replace(const OpenFile& source, const struct stat& status, const char* path) {
    OpenFile target(path, O_WRONLY);
    struct stat replaced {};
    if (!target.is_open() || !target.query(replaced) || (replaced.st_mode & S_IWUSR) == 0) {
        return false;
    }
    const bool is_source = replaced.st_dev == status.st_dev && replaced.st_ino == status.st_ino;
    return !is_source && ftruncate(target.descriptor(), 0) == 0 && fill(source, status, target);
}

bool exists(const char* path) {
    struct stat ignored {};
    return lstat(path, &ignored) == 0;
}

}  // namespace

bool copy_file(const char* source_path, const char* target_path, bool spare_existing) {
    if (source_path == nullptr || target_path == nullptr) {
        return false;
    }
    const OpenFile source(source_path, O_RDONLY);
    struct stat status {};
    if (!source.is_open() || !source.query(status)) {
        return false;
    }
    OpenFile target(target_path, O_WRONLY | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR);
    if (!target.is_open()) {
        return !spare_existing && errno == EEXIST && replace(source, status, target_path);
    }
    const bool is_whole = fill(source, status, target);
    if (!is_whole) {
        unlink(target_path);
    }
    return is_whole;
}

bool move_file(const char* source, const char* target) {
    if (source == nullptr || target == nullptr || exists(target)) {
        return false;
    }
    if (rename(source, target) == 0) {
        return true;
    }
    if (errno != EXDEV || !copy_file(source, target, true)) {
        return false;
    }
    if (unlink(source) == 0) {
        return true;
    }
    unlink(target);
    return false;
}

}  // namespace orvil::platform
