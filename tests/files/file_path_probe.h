// What the tests of CFilePath share.
#pragma once

#include <string>

#include "orvil/files/file_path.h"

namespace orvil::test {

// Reaches the protected members, as a derived class of a host does.
class Path : public CFilePath {
public:
    using CFilePath::AnalyzeDirectoryList;
    using CFilePath::AnalyzePathParts;
    using CFilePath::CFilePath;
    using CFilePath::CheckDriveName;
    using CFilePath::DivideDriveDir;
    using CFilePath::InvalidObject;
    using CFilePath::IsSameDriveMap;
    using CFilePath::MakeAbsoluteFullPath;
    using CFilePath::ReplaceSeparateCharacters;
    using CFilePath::sm_bDispInternalSeparator;

    Path() = default;
    Path(const char* drive, const char* directory, const char* name) {
        drive_ = drive;
        directory_ = directory;
        file_name_ = name;
    }
    // "drive|directory|name" as stored.
    std::string parts() const {
        return std::string(drive_) + "|" + directory_.GetString() + "|" + file_name_.GetString();
    }
};

// Turns the process-wide switch on for a test.
class InternalSeparators {
public:
    InternalSeparators() { CFilePath::SetDispInternalSeparator(true); }
    ~InternalSeparators() { CFilePath::SetDispInternalSeparator(false); }
    InternalSeparators(const InternalSeparators&) = delete;
    InternalSeparators& operator=(const InternalSeparators&) = delete;
};

}  // namespace orvil::test
