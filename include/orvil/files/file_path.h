/// @file
/// CFilePath, a file path in three parts: drive, directory and file name.
#pragma once

#include "orvil/export.h"
#include "orvil/strings/ext_string.h"

class CExtStrArray;

/// What a path begins with.
///
/// Only the forward slash counts. A text of backslashes is of no type, unless it begins with a drive letter.
enum EDriveType {
    EDT_NONE = 0,     ///< nothing of the below
    EDT_ROOT = 1,     ///< "/" and no second "/"
    EDT_LETTER = 2,   ///< a letter from A to Z, in either case, and a colon
    EDT_NETWORK = 3,  ///< "//", a server name, "/" and at least one further character
};

/// A file path taken apart into drive, directory and file name.
///
/// Paths are made absolute against the working directory; the file need not exist. Inside, "/" separates the
/// directories. What is handed out has backslashes instead, unless the caller asks for the internal form or the
/// process-wide switch of SetDispInternalSeparator() is on. Double-byte characters of the current code page whose
/// second byte is a separator's are left alone.
///
/// A drive is empty, a letter with its colon ("C:") or a network share ("//server/share"). A directory begins with "/"
/// and does not end with it; the root directory is "/". The file name is empty when the path ends with a separator.
///
/// Nothing throws, and no message is written. When memory runs out, members with a bool result return false and those
/// with a text return an empty one. All operations take time linear in the texts that they read.
///
/// @code
/// CFilePath path("C:/work/plans/../house.txt");
/// path.MakeFullPath(true);      // "C:/work/house.txt"
/// path.QueryDirectoryName();    // "\work"
/// path.GetFileExtension();      // "txt"
/// @endcode
class ORVIL_API CFilePath {
public:
    /// Releases the parts.
    virtual ~CFilePath();
    /// @return a copy made with `new`, which the caller deletes; null when there is no memory
    virtual CFilePath* GetCopyInstance() const;

    // --- construction ------------------------------------------------------------------------------------------------

    /// A path whose parts are all empty.
    CFilePath();
    /// As CreateFromFullPath(); the parts are empty when that fails.
    CFilePath(const CExtString& path);
    /// As CreateFromPathName(); the parts are empty when that fails.
    CFilePath(const CExtString& dir, const CExtString& name);
    /// As CreateFromDriveDirName(); the parts are empty when that fails.
    CFilePath(const CExtString& drive, const CExtString& dir, const CExtString& name);
    /// As CopyData().
    CFilePath(const CFilePath& other);
    /// As CopyData().
    CFilePath& operator=(const CFilePath& other);

    /// Copies the three parts. @return true; a part for which there is no memory is empty
    bool CopyData(const CFilePath& other);
    /// Empties the three parts. @return true
    bool Initialize();

    /// Takes a path apart, after making it absolute. The parts are empty when this fails.
    /// @return false for an empty path, one that cannot be made absolute in 2051 bytes, and a network share alone
    bool CreateFromFullPath(const CExtString& path);
    /// As CreateFromFullPath() of @p dir, "/" and @p name; the slash is put in whatever @p dir ends with.
    /// @return false also when one of the two is empty
    bool CreateFromPathName(const CExtString& dir, const CExtString& name);
    /// As CreateFromFullPath() of @p drive, @p dir, "/" and @p name. @p dir brings its own leading slash.
    /// @return false also when one of the three is empty
    bool CreateFromDriveDirName(const CExtString& drive, const CExtString& dir, const CExtString& name);

    // --- the parts ---------------------------------------------------------------------------------------------------

    /// @return the drive, with "\" while the process-wide switch is off
    CExtString QueryDriveName() const;
    /// @return the directory, with "\" while the process-wide switch is off
    CExtString QueryDirectoryName() const;
    /// @return the file name
    CExtString QueryFileName() const;
    /// @return the file name without its extension; see DivideBaseName()
    CExtString GetFileBaseName() const;
    /// @return the extension of the file name, without its point; see DivideExtension()
    CExtString GetFileExtension() const;

    // --- paths -------------------------------------------------------------------------------------------------------
    // With `internal`, or while the process-wide switch is on, the separator is "/", else "\".

    /// @return drive and directory
    CExtString MakeDirPath(bool internal) const;
    /// @return drive, directory, a separator unless the directory is the root, and file name; empty when there is
    /// neither drive nor directory
    CExtString MakeFullPath(bool internal) const;
    /// @return the directory
    CExtString MakeDirectory(bool internal) const;
    /// Shortens the full path for display.
    /// @param maxLength the length in bytes that is asked for
    /// @param internal whether the separator is "/" in any case
    /// @return the full path when it fits; otherwise the drive, "/...", as many of the last directories as fit, and the
    /// file name. Without any directory that may still be too long: the file name is never cut.
    CExtString MakeShortFullPath(int maxLength, bool internal) const;

    // --- comparing ---------------------------------------------------------------------------------------------------

    /// @return whether the three parts are equal without regard to case
    bool Compare(const CFilePath& other) const;
    /// As Compare(). The drive is compared like the other parts, whatever the name says.
    bool CompareNoChkDrivemap(const CFilePath& other) const;
    /// As Compare().
    bool operator==(const CFilePath& other) const;
    /// The opposite of Compare().
    bool operator!=(const CFilePath& other) const;

    // --- file names --------------------------------------------------------------------------------------------------

    /// @return the text before the last point; all of it when there is none
    static CExtString DivideBaseName(const CExtString& name);
    /// @return the text behind the last point; empty when there is none
    static CExtString DivideExtension(const CExtString& name);
    /// Joins a base name and an extension with one point, which either of them may bring along.
    /// @return an empty text when @p base is empty; "a." for "a" and an empty extension
    static CExtString MakeFileName(const CExtString& base, const CExtString& ext);

    // --- the rest ----------------------------------------------------------------------------------------------------

    /// @return whether the directory is the root
    static bool IsRootDir(const CFilePath& path);
    /// Sets the process-wide switch: true hands every path out with "/". It is off at first.
    static void SetDispInternalSeparator(bool internal);
    /// @return the process-wide switch
    static bool IsDispInternalSeparator();
    /// @return the type of the drive as QueryDriveName() gives it: a network drive has none while the switch is off,
    /// since its separators are "\" then
    static EDriveType CheckDriveType(const CFilePath& path);

protected:
    friend class CFileSearch;

    /// Empties the three parts.
    void InvalidObject();

    /// Makes a path absolute and turns every single-byte "\" into "/".
    /// @param path the path; an empty one is the working directory
    /// @param out receives the result; as it was when this fails
    /// @return false when the path is null or the result does not fit into 2051 bytes
    static bool MakeAbsoluteFullPath(const char* path, CExtString& out);
    /// Takes a path in internal form apart. The first character behind the drive is dropped unseen, so that "C:x" gives
    /// the drive "C:", the root directory and an empty name.
    /// @return false when the path is empty, has no drive type, or is a network share with nothing behind it
    static bool AnalyzePathParts(const CExtString& full, CExtString& drive, CExtString& dir, CExtString& name);
    /// Divides the path of a directory by the same rules for drives; all that follows the drive is the directory,
    /// without separators at its end.
    /// @return false when AnalyzePathParts() would return false
    static bool DivideDriveDir(const CExtString& path, CExtString& drive, CExtString& dir);

    /// Turns every single-byte "\" into "/", or the other way round.
    /// @param text the text that is changed
    /// @param toInternal true makes "/", false makes "\"
    /// @return false when the text is empty
    static bool ReplaceSeparateCharacters(CExtString& text, bool toInternal);
    /// As above; @p text may be null, which is empty.
    static bool ReplaceSeparateCharacters(char* text, bool toInternal);

    /// Replaces the contents of @p list by the names in the directory, from the root on; none for the root itself.
    /// @return false when there is no memory
    bool AnalyzeDirectoryList(CExtStrArray& list) const;

    /// @return whether two drives are equal without regard to case
    static bool IsSameDriveMap(const CExtString& left, const CExtString& right);
    /// @return what @p text begins with
    static EDriveType CheckDriveName(const CExtString& text);

    /// The process-wide switch.
    static bool sm_bDispInternalSeparator;

    CExtString drive_;      ///< empty, "C:" or "//server/share"
    CExtString directory_;  ///< empty, "/" or "/a/b"
    CExtString file_name_;  ///< the last component, or empty

private:
    static void ShowSeparators(CExtString& path, bool internal);
    bool JoinDirPath(CExtString& path) const;
    bool JoinFullPath(CExtString& path) const;
    bool JoinShortPath(CExtString& path, int maxLength) const;
};
