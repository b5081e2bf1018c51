// Names as the functions of the C library's names give them.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "orvil/files/directory_stream.h"

namespace orvil::test {

using Names = std::vector<std::string>;

inline Names sorted(Names names) {
    std::sort(names.begin(), names.end());
    return names;
}

// Empty at the end.
inline std::string next_name(DIR* stream) {
    const dirent* entry = readdir(stream);
    return entry == nullptr ? "" : entry->d_name;
}

inline Names rest_of(DIR* stream) {
    Names names;
    while (const dirent* entry = readdir(stream)) {
        names.emplace_back(entry->d_name);
    }
    return names;
}

}  // namespace orvil::test
