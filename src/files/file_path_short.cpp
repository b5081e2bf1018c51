// The shortened form of a path, for display.
#include <cstdint>
#include <cstring>
#include <string_view>

#include "orvil/files/file_path.h"
#include "orvil/strings/ext_str_array.h"

namespace {

// Adds one name. An element whose text found no memory is empty, although the array took it.
bool add_name(CExtStrArray& list, std::string_view text) {
    CExtString name;
    if (!name.CreateFromStringLen(text.data(), static_cast<int>(text.size())) || !list.Add(name)) {
        return false;
    }
    const char* added = list.GetAt(list.GetSize() - 1);
    return text.empty() || (added != nullptr && *added != '\0');
}

}  // namespace

bool CFilePath::AnalyzeDirectoryList(CExtStrArray& list) const {
    list.RemoveAll();
    const std::string_view directory = directory_.GetString();
    std::size_t begin = 1;
    while (begin < directory.size()) {
        std::size_t end = directory.find('/', begin);
        if (end == std::string_view::npos) {
            end = directory.size();
        }
        if (!add_name(list, directory.substr(begin, end - begin))) {
            return false;
        }
        begin = end + 1;
    }
    return true;
}

namespace {

// How many directories at the end of the list stand, with a slash before each, in `room` bytes.
int count_fitting(const CExtStrArray& directories, std::int64_t room) {
    const int size = directories.GetSize();
    int count = 0;
    while (count < size) {
        const char* name = directories.GetAt(size - 1 - count);
        room -= static_cast<std::int64_t>(name == nullptr ? 0 : std::strlen(name)) + 1;
        if (room < 0) {
            break;
        }
        ++count;
    }
    return count;
}

// Appends the last `count` directories, with a slash before each.
bool append_last(CExtString& path, const CExtStrArray& directories, int count) {
    const int size = directories.GetSize();
    for (int i = size - count; i < size; ++i) {
        if (!path.ConcatString("/") || !path.ConcatString(directories.GetAt(i))) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool CFilePath::JoinShortPath(CExtString& path, int maxLength) const {
    CExtStrArray directories;
    if (!AnalyzeDirectoryList(directories)) {
        return false;
    }
    const std::int64_t least = std::int64_t{drive_.GetLength()} + 5 + file_name_.GetLength();  // 5: "/.../"
    const int count = count_fitting(directories, maxLength - least);
    return path.ConcatObject(drive_) && path.ConcatString("/...") && append_last(path, directories, count) &&
           path.ConcatString("/") && path.ConcatObject(file_name_);
}

CExtString CFilePath::MakeShortFullPath(int maxLength, bool internal) const {
    CExtString path = MakeFullPath(internal);
    if (path.IsEmpty() || path.GetLength() <= maxLength) {
        return path;
    }
    path.Empty();
    if (!JoinShortPath(path, maxLength)) {
        path.Empty();
    }
    ShowSeparators(path, internal);
    return path;
}
