#include <direct.h>
#include <io.h>

#include <cstdint>
#include <cstdlib>

#include "platform/platform.h"

namespace orvil::platform {

bool working_folder(char* buffer, std::size_t size) {
    return _getcwd(buffer, static_cast<int>(size)) != nullptr;
}

bool change_folder(const char* path) {
    return path != nullptr && _chdir(path) == 0;
}

std::intptr_t note_working_folder() {
    wchar_t* path = _wgetcwd(nullptr, 0);
    return path == nullptr ? kNoFolder : reinterpret_cast<std::intptr_t>(path);
}

void return_to_folder(std::intptr_t noted) {
    auto* path = reinterpret_cast<wchar_t*>(noted);
    _wchdir(path);
    std::free(path);
}

struct FindRecord {
    _finddata64i32_t found;
};

std::size_t find_record_size() {
    return sizeof(FindRecord);
}

const char* found_name(const FindRecord& record) {
    return record.found.name;
}

std::int64_t find_first(FindRecord& record) {
    return _findfirst64i32("*.*", &record.found);
}

bool find_next(std::int64_t find, FindRecord& record) {
    return _findnext64i32(find, &record.found) == 0;
}

void find_close(std::int64_t find) {
    _findclose(find);
}

}  // namespace orvil::platform
