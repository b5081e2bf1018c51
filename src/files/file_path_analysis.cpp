// How CFilePath takes texts apart.
#include <cstddef>
#include <string_view>

#include "orvil/files/file_path.h"
#include "platform/platform.h"

namespace {

constexpr std::size_t kFullPathSize = 2052;

bool is_letter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool create(CExtString& target, std::string_view text) {
    return target.CreateFromStringLen(text.data(), static_cast<int>(text.size()));
}

// "//", a server name and "/" begin the text, and something follows.
bool begins_with_server(std::string_view text) {
    if (!text.starts_with("//")) {
        return false;
    }
    const std::size_t slash = text.find('/', 2);
    return slash != std::string_view::npos && slash > 2 && slash + 1 < text.size();
}

EDriveType drive_type(std::string_view text) {
    if (text.starts_with('/') && !text.starts_with("//")) {
        return EDT_ROOT;
    }
    if (text.size() >= 2 && is_letter(text[0]) && text[1] == ':') {
        return EDT_LETTER;
    }
    return begins_with_server(text) ? EDT_NETWORK : EDT_NONE;
}

constexpr std::size_t kNoDrive = std::string_view::npos;

// The length of the drive at the text's beginning: that of "//server/share" for a network drive, which needs a slash
// behind it. kNoDrive when the text has no type.
std::size_t drive_length(std::string_view text) {
    switch (drive_type(text)) {
        case EDT_ROOT:
            return 0;
        case EDT_LETTER:
            return 2;
        case EDT_NETWORK:
            return text.find('/', text.find('/', 2) + 1);
        case EDT_NONE:
            break;
    }
    return kNoDrive;
}

}  // namespace

EDriveType CFilePath::CheckDriveName(const CExtString& text) {
    return drive_type(text.GetString());
}

bool CFilePath::MakeAbsoluteFullPath(const char* path, CExtString& out) {
    char full[kFullPathSize];
    if (!orvil::platform::full_path(path, full, sizeof full)) {
        return false;
    }
    ReplaceSeparateCharacters(full, true);
    return out.CreateFromString(full);
}

bool CFilePath::AnalyzePathParts(const CExtString& full, CExtString& drive, CExtString& dir, CExtString& name) {
    drive.Empty();
    dir.Empty();
    name.Empty();
    const std::string_view text = full.GetString();
    const std::size_t drive_end = text.empty() ? kNoDrive : drive_length(text);
    if (drive_end == kNoDrive || !create(drive, text.substr(0, drive_end))) {
        return false;
    }
    const std::string_view path = text.substr(drive_end);
    const std::string_view rest = path.substr(path.empty() ? 0 : 1);
    const std::size_t slash = rest.rfind('/');
    if (slash == std::string_view::npos) {
        return dir.CreateFromString("/") && create(name, rest);
    }
    return dir.CreateFromString("/") && dir.ConcatStringLen(rest.data(), static_cast<int>(slash)) &&
           create(name, rest.substr(slash + 1));
}

bool CFilePath::DivideDriveDir(const CExtString& path, CExtString& drive, CExtString& dir) {
    drive.Empty();
    dir.Empty();
    const std::string_view text = path.GetString();
    const std::size_t drive_end = text.empty() ? kNoDrive : drive_length(text);
    if (drive_end == kNoDrive) {
        return false;
    }
    std::string_view rest = text.substr(drive_end);
    while (rest.ends_with('/')) {
        rest.remove_suffix(1);
    }
    return create(drive, text.substr(0, drive_end)) && create(dir, rest.empty() ? "/" : rest);
}

namespace {

// Calls `found(position)` for each single-byte occurrence of `wanted`. A lead byte takes the next byte with it, unless
// that is the terminator.
template <typename Found>
void for_each_single_byte(const char* text, char wanted, Found found) {
    const bool double_bytes = orvil::platform::has_lead_bytes();
    for (std::size_t i = 0; text[i] != '\0'; ++i) {
        if (text[i] == wanted) {
            found(i);
        } else if (double_bytes && orvil::platform::is_lead_byte(static_cast<unsigned char>(text[i])) &&
                   text[i + 1] != '\0') {
            ++i;
        }
    }
}

}  // namespace

bool CFilePath::ReplaceSeparateCharacters(CExtString& text, bool toInternal) {
    if (text.IsEmpty()) {
        return false;
    }
    for_each_single_byte(text, toInternal ? '\\' : '/',
                         [&](std::size_t i) { text.SetAt(static_cast<int>(i), toInternal ? '/' : '\\'); });
    return true;
}

bool CFilePath::ReplaceSeparateCharacters(char* text, bool toInternal) {
    if (text == nullptr || *text == '\0') {
        return false;
    }
    for_each_single_byte(text, toInternal ? '\\' : '/', [&](std::size_t i) { text[i] = toInternal ? '/' : '\\'; });
    return true;
}

// --- file names ------------------------------------------------------------------------------------------------------

CExtString CFilePath::DivideBaseName(const CExtString& name) {
    const int point = name.ReverseFind('.');
    return point < 0 ? name : name.Left(point);
}

CExtString CFilePath::DivideExtension(const CExtString& name) {
    const int point = name.ReverseFind('.');
    return point < 0 ? CExtString() : CExtString(name.GetString() + point + 1);
}

CExtString CFilePath::MakeFileName(const CExtString& base, const CExtString& ext) {
    if (base.IsEmpty()) {
        return CExtString();
    }
    const std::string_view stem = base.GetString();
    const char* extension = ext.GetString();
    CExtString name;
    const bool is_joined = name.ConcatString(base) && (stem.ends_with('.') || name.ConcatString(".")) &&
                           name.ConcatString(*extension == '.' ? extension + 1 : extension);
    return is_joined ? name : CExtString();
}
