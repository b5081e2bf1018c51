#include <sys/stat.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "platform/platform.h"

namespace orvil::platform {
namespace {

// Builds a path from its last component to its first, in the back of a buffer. In this order ".." takes effect before
// the component that it drops is reached, so only components that stay are ever written.
class BackwardPath {
public:
    BackwardPath(char* buffer, std::size_t size) : buffer_(buffer), size_(size), start_(size) {}

    // Puts the components of a path before what is there.
    void prepend_components(std::string_view path) {
        while (!path.empty()) {
            const std::size_t slash = path.rfind('/');
            const std::size_t begin = slash == std::string_view::npos ? 0 : slash + 1;
            prepend_component(path.substr(begin));
            path = path.substr(0, begin == 0 ? 0 : slash);
        }
    }

    void prepend(std::string_view text) {
        if (text.size() > start_) {
            fits_ = false;
            return;
        }
        start_ -= text.size();
        std::memcpy(buffer_ + start_, text.data(), text.size());
    }

    // Moves the path to the buffer's beginning and terminates it.
    bool finish() {
        const std::size_t length = size_ - start_;
        if (!fits_ || length == size_) {
            return false;
        }
        std::memmove(buffer_, buffer_ + start_, length);
        buffer_[length] = '\0';
        return true;
    }

    bool is_empty() const { return start_ == size_; }

private:
    void prepend_component(std::string_view component) {
        if (component.empty() || component == ".") {
            return;
        }
        if (component == "..") {
            ++dropping_;
        } else if (dropping_ > 0) {
            --dropping_;
        } else {
            prepend(component);
            prepend("/");
        }
    }

    char* buffer_;
    std::size_t size_;
    std::size_t start_;  // where the path begins; it ends with the buffer
    std::size_t dropping_ = 0;
    bool fits_ = true;
};

// Exactly two leading slashes are kept: they may name a server.
bool names_server(std::string_view path) {
    return path.starts_with("//") && !path.starts_with("///");
}

}  // namespace

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
    status.device = static_cast<std::uint32_t>(found.st_dev);
    status.links = static_cast<std::uint32_t>(found.st_nlink);
    return true;
}

bool full_path(const char* path, char* buffer, std::size_t size) {
    if (path == nullptr) {
        return false;
    }
    const std::string_view given = path;
    const bool is_absolute = given.starts_with('/');
    char folder[PATH_MAX];
    if (!is_absolute && !working_folder(folder, sizeof folder)) {
        return false;
    }
    BackwardPath result(buffer, size);
    if (given.ends_with('/')) {
        result.prepend("/");
    }
    result.prepend_components(given);
    if (!is_absolute) {
        result.prepend_components(folder);
    }
    if (result.is_empty()) {
        result.prepend("/");
    }
    if (names_server(given)) {
        result.prepend("/");
    }
    return result.finish();
}

}  // namespace orvil::platform
