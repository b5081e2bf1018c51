/// @file
/// CFileSearch: the entries of a directory whose names match a pattern.
#pragma once

#include <cstdint>

#include "orvil/export.h"
#include "orvil/files/directory_stream.h"

namespace orvil::detail {
struct SearchAccess;
}

/// Finds the entries of one directory whose names match a wildcard or a regular expression.
///
/// The directory is the one that is the working directory when the search is set up. Changing the working directory
/// later does not disturb a search, and a search leaves it as it is. Directories are entries like files, and are not
/// entered; so are "." and "..". The order is the file system's.
///
/// Texts that are handed out belong to the object, and are valid until the next FindNext(), Setup(), RegexSetup(),
/// Close() or assignment, or the object's end. Paths and names are bytes in the process's code page, in which patterns
/// are matched byte by byte: a double-byte character is two of them.
///
/// Failure is a result, nothing throws, and no message is written. One thread at a time: finding changes the working
/// directory for the length of a call, and compiled patterns are shared by the whole process.
///
/// @code
/// CFileSearch search;
/// search.Setup("*.plt");
/// while (search.FindNext()) {
///     if (!search.IsDirectory()) {
///         convert(search.GetFilePath());
///     }
/// }
/// @endcode
class ORVIL_API CFileSearch {
public:
    /// A search that finds nothing until it is set up.
    CFileSearch();
    /// Closes the search.
    virtual ~CFileSearch();
    /// Copies pattern, directory and current entry. The copy's next FindNext() begins with the first entry, wherever
    /// @p other is. When there is no memory the copy is closed.
    CFileSearch(const CFileSearch& other);
    /// Closes the search and makes it a copy, as the copy constructor does.
    CFileSearch& operator=(const CFileSearch& other);

    // --- setting up --------------------------------------------------------------------------------------------------

    /// Looks for a wildcard in the working directory. The whole name must match, without regard to case. "*" stands for
    /// any bytes or none, "?" for one byte; "*.*" wants a point. Each of ()+.[]^$ stands for itself. Other characters
    /// that mean something to regular expressions mean it here: braces, the backslash, and the bar, which ends the
    /// pattern.
    /// @param wildcard the wildcard; null or empty closes the search, which then finds nothing
    /// @return false, the search closed, when the wildcard makes no valid pattern, the working directory is not known,
    /// or there is no memory
    bool Setup(const char* wildcard);
    /// Looks for a regular expression in the working directory. It need not match the whole name, unless it says so.
    /// @param pattern a notation text, as regex_compile() takes it, whose look-up in the cache applies; a null one
    /// closes the search, which then finds nothing
    /// @return false, the search closed, when the notation is not valid, the working directory is not known, or there
    /// is no memory
    bool RegexSetup(const char* pattern);

    // --- searching ---------------------------------------------------------------------------------------------------

    /// Goes to the next entry that matches.
    /// @return false when there is none, the directory is gone, the search has no pattern, the pattern has been
    /// released by regex_cleanup(), or there is no memory; then there is no current entry
    bool FindNext();
    /// Ends the search and releases what it holds. Compiled patterns stay in their cache.
    void Close();

    // --- the current entry -------------------------------------------------------------------------------------------

    /// @return the entry's name; empty, never null, when there is no current entry
    const char* GetFileName() const;
    /// @return the entry's full path, cut to 1027 bytes, with "\" as separator unless the process-wide switch
    /// CFilePath::SetDispInternalSeparator() was on when it was found; empty, never null, when there is no current
    /// entry or the path cannot be taken apart
    const char* GetFilePath() const;
    /// @param mask bits of the C runtime's mode word
    /// @return whether the entry's mode has any of them; false when there is no current entry, or when its status could
    /// not be had, as for a file of more than 0x7FFFFFFF bytes
    bool StatMask(unsigned short mask) const;
    /// @return whether the entry is a directory; false as StatMask() is
    bool IsDirectory() const;
    /// @return whether the entry can be read and not written to; false as StatMask() is
    bool IsReadOnly() const;
    /// @return whether the entry is "." or ".."
    bool IsDots() const;

protected:
    /// The status of an entry, laid out as the C runtime's on Windows. All zero when it could not be had.
    struct Status {
        std::uint32_t device;   ///< the number of the drive
        std::uint16_t node;     ///< 0
        std::uint16_t mode;     ///< 0x4000 directory, 0x8000 file, 0x100 readable, 0x80 writable
        std::int16_t links;     ///< how many names the entry has
        std::int16_t user;      ///< 0
        std::int16_t group;     ///< 0
        std::uint32_t drive;    ///< as device
        std::int32_t size;      ///< bytes
        std::int64_t accessed;  ///< seconds since 1970
        std::int64_t modified;  ///< seconds since 1970
        std::int64_t created;   ///< seconds since 1970
    };

    /// Matches the current entry's name.
    /// @return true also when there is no compiled pattern; false when there is no current entry, or the pattern has
    /// been released by regex_cleanup()
    bool MatchPattern();

    DIR* stream_ = nullptr;      ///< null until the first FindNext()
    dirent* entry_ = nullptr;    ///< the stream's; the object's own, from the C runtime, while there is no stream
    Status status_ = {};         ///< of the current entry
    char* directory_ = nullptr;  ///< what Setup() found as working directory; memory of the C runtime
    void* handle_ = nullptr;     ///< the compiled pattern, or null
    char* pattern_ = nullptr;    ///< the notation text, or null; memory of the C runtime
    char path_[1028] = {};       ///< the full path of the current entry

private:
    friend struct orvil::detail::SearchAccess;
};
