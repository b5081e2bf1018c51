// The object CFilePath: its parts, and the paths made of them.
#include "orvil/files/file_path.h"

#include <cstddef>
#include <new>

#include "platform/platform.h"

bool CFilePath::sm_bDispInternalSeparator = false;

namespace {

// Hosts rely on the layout: the virtual table's pointer, then the three parts. Every compiler of ours supports offsetof
// here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct Layout : CFilePath {
    static constexpr bool is_as_promised() {
        return sizeof(CFilePath) == 80 && offsetof(Layout, drive_) == 8 && offsetof(Layout, directory_) == 32 &&
               offsetof(Layout, file_name_) == 56;
    }
};
static_assert(Layout::is_as_promised());
#pragma GCC diagnostic pop

constexpr const char* kRoot = "/";

bool equals_no_case(const CExtString& left, const CExtString& right) {
    return orvil::platform::compare_no_case(left, right) == 0;
}

}  // namespace

// --- construction ----------------------------------------------------------------------------------------------------

CFilePath::CFilePath() = default;

CFilePath::~CFilePath() = default;

CFilePath::CFilePath(const CExtString& path) {
    CreateFromFullPath(path);
}

CFilePath::CFilePath(const CExtString& dir, const CExtString& name) {
    CreateFromPathName(dir, name);
}

CFilePath::CFilePath(const CExtString& drive, const CExtString& dir, const CExtString& name) {
    CreateFromDriveDirName(drive, dir, name);
}

CFilePath::CFilePath(const CFilePath& other) {
    CopyData(other);
}

CFilePath& CFilePath::operator=(const CFilePath& other) {
    CopyData(other);
    return *this;
}

CFilePath* CFilePath::GetCopyInstance() const {
    return new (std::nothrow) CFilePath(*this);
}

bool CFilePath::CopyData(const CFilePath& other) {
    drive_ = other.drive_;
    directory_ = other.directory_;
    file_name_ = other.file_name_;
    return true;
}

bool CFilePath::Initialize() {
    InvalidObject();
    return true;
}

void CFilePath::InvalidObject() {
    drive_.Empty();
    directory_.Empty();
    file_name_.Empty();
}

bool CFilePath::CreateFromFullPath(const CExtString& path) {
    CExtString full;
    const bool is_absolute = !path.IsEmpty() && MakeAbsoluteFullPath(path, full);
    InvalidObject();
    if (!is_absolute || !AnalyzePathParts(full, drive_, directory_, file_name_)) {
        InvalidObject();
        return false;
    }
    return true;
}

bool CFilePath::CreateFromPathName(const CExtString& dir, const CExtString& name) {
    CExtString path;
    const bool is_joined = !dir.IsEmpty() && !name.IsEmpty() && path.ConcatObject(dir) && path.ConcatString("/") &&
                           path.ConcatObject(name);
    if (!is_joined) {
        InvalidObject();
        return false;
    }
    return CreateFromFullPath(path);
}

bool CFilePath::CreateFromDriveDirName(const CExtString& drive, const CExtString& dir, const CExtString& name) {
    CExtString folder;
    if (drive.IsEmpty() || dir.IsEmpty() || !folder.ConcatObject(drive) || !folder.ConcatObject(dir)) {
        InvalidObject();
        return false;
    }
    return CreateFromPathName(folder, name);
}

// --- the parts -------------------------------------------------------------------------------------------------------

void CFilePath::ShowSeparators(CExtString& path, bool internal) {
    if (!internal && !sm_bDispInternalSeparator) {
        ReplaceSeparateCharacters(path, false);
    }
}

CExtString CFilePath::QueryDriveName() const {
    CExtString drive = drive_;
    ShowSeparators(drive, false);
    return drive;
}

CExtString CFilePath::QueryDirectoryName() const {
    return MakeDirectory(false);
}

CExtString CFilePath::QueryFileName() const {
    return file_name_;
}

CExtString CFilePath::GetFileBaseName() const {
    return DivideBaseName(file_name_);
}

CExtString CFilePath::GetFileExtension() const {
    return DivideExtension(file_name_);
}

// --- paths -----------------------------------------------------------------------------------------------------------

bool CFilePath::JoinDirPath(CExtString& path) const {
    return path.ConcatObject(drive_) && path.ConcatObject(directory_);
}

bool CFilePath::JoinFullPath(CExtString& path) const {
    if (!JoinDirPath(path)) {
        return false;
    }
    if (path.IsEmpty()) {
        return true;
    }
    return (IsRootDir(*this) || path.ConcatString("/")) && path.ConcatObject(file_name_);
}

CExtString CFilePath::MakeDirPath(bool internal) const {
    CExtString path;
    if (!JoinDirPath(path)) {
        path.Empty();
    }
    ShowSeparators(path, internal);
    return path;
}

CExtString CFilePath::MakeFullPath(bool internal) const {
    CExtString path;
    if (!JoinFullPath(path)) {
        path.Empty();
    }
    ShowSeparators(path, internal);
    return path;
}

CExtString CFilePath::MakeDirectory(bool internal) const {
    CExtString directory = directory_;
    ShowSeparators(directory, internal);
    return directory;
}

// --- comparing -------------------------------------------------------------------------------------------------------

bool CFilePath::Compare(const CFilePath& other) const {
    return equals_no_case(drive_, other.drive_) && equals_no_case(directory_, other.directory_) &&
           equals_no_case(file_name_, other.file_name_);
}

bool CFilePath::CompareNoChkDrivemap(const CFilePath& other) const {
    return *this == other;
}

bool CFilePath::operator==(const CFilePath& other) const {
    return Compare(other);
}

bool CFilePath::operator!=(const CFilePath& other) const {
    return !Compare(other);
}

// --- the rest --------------------------------------------------------------------------------------------------------

bool CFilePath::IsRootDir(const CFilePath& path) {
    return path.directory_ == kRoot;
}

void CFilePath::SetDispInternalSeparator(bool internal) {
    sm_bDispInternalSeparator = internal;
}

bool CFilePath::IsDispInternalSeparator() {
    return sm_bDispInternalSeparator;
}

bool CFilePath::IsSameDriveMap(const CExtString& left, const CExtString& right) {
    return equals_no_case(left, right);
}

EDriveType CFilePath::CheckDriveType(const CFilePath& path) {
    return CheckDriveName(path.QueryDriveName());
}
