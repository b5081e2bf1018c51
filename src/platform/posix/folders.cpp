// Reading folders by the C library. Its names are those of the library's own directory streams, whose header must not
// be included here.
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdint>

#include "platform/platform.h"

namespace orvil::platform {

bool working_folder(char* buffer, std::size_t size) {
    return getcwd(buffer, size) != nullptr && buffer[0] == '/';
}

bool change_folder(const char* path) {
    return path != nullptr && chdir(path) == 0;
}

std::intptr_t note_working_folder() {
    return open(".", O_PATH | O_DIRECTORY | O_CLOEXEC);
}

void return_to_folder(std::intptr_t noted) {
    const int folder = static_cast<int>(noted);
    [[maybe_unused]] const int result = fchdir(folder);
    close(folder);
}

struct FindRecord {
    const char* name;
};

std::size_t find_record_size() {
    return sizeof(FindRecord);
}

const char* found_name(const FindRecord& record) {
    return record.name;
}

std::int64_t find_first(FindRecord& record) {
    DIR* folder = opendir(".");
    if (folder == nullptr) {
        return kNoFind;
    }
    const std::int64_t find = reinterpret_cast<std::intptr_t>(folder);
    if (!find_next(find, record)) {
        find_close(find);
        return kNoFind;
    }
    return find;
}

bool find_next(std::int64_t find, FindRecord& record) {
    const dirent64* entry = readdir64(reinterpret_cast<DIR*>(find));
    record.name = entry == nullptr ? "" : entry->d_name;
    return entry != nullptr;
}

void find_close(std::int64_t find) {
    closedir(reinterpret_cast<DIR*>(find));
}

}  // namespace orvil::platform
