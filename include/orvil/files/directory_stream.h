/// @file
/// Directory streams: the entries of a directory, one at a time, under the names that programmers know.
///
/// Paths and names are bytes in the process's code page. A stream belongs to the caller, from opendir() to closedir();
/// the entries that it hands out belong to the stream. Nothing throws or prints.
///
/// One thread at a time: readdir() makes the stream's directory the process's working directory for the length of the
/// call. Whatever it returns, the working directory is afterwards what it was before.
///
/// The names are the C library's, so a source file that includes this header must not include `<dirent.h>`, and a
/// program calls neither `telldir` nor `seekdir`. It links the library before the C library. Except on Windows the
/// functions have other names for the linker, so that nothing of the C library is replaced.
///
/// @code
/// DIR* stream = opendir("C:/plans");
/// while (const dirent* entry = readdir(stream)) {
///     std::puts(entry->d_name);
/// }
/// closedir(stream);
/// @endcode
#pragma once

#include "orvil/export.h"

/// A directory stream. Only the functions below look into it.
struct DIR;

/// An entry of a directory, of 268 bytes.
struct dirent {
    int d_ino;                ///< always 1
    int d_off;                ///< which entry of the stream this is, from 1; after 32767 comes -32768
    unsigned short d_reclen;  ///< the length of the name in bytes
    char d_name[258];         ///< the name with its terminator; a longer one is cut to 257 bytes
};

extern "C" {

/// Begins to read a directory. The file system is not asked before the first readdir().
/// @param path the directory. A relative path is taken from the working directory of each readdir(), not from today's.
/// @return the stream, which the caller ends with closedir(); null when @p path is null, the working directory is not
/// known, or there is no memory
ORVIL_API DIR* opendir(const char* path) ORVIL_LINK_NAME("orvil_opendir");

/// Reads the next entry. "." and ".." are entries like any other; the order is the file system's.
/// @param stream what opendir() returned, or null
/// @return the entry, which the next call overwrites and closedir() releases; null at the end, when @p stream is null,
/// and when its directory cannot be made the working directory
ORVIL_API dirent* readdir(DIR* stream) ORVIL_LINK_NAME("orvil_readdir");

/// Ends a stream as closedir() does. It does **not** begin anew: @p stream is no longer valid, and the fresh stream
/// that is opened on its path is out of everyone's reach, so that its memory is lost. Close the stream and open
/// another instead.
/// @param stream what opendir() returned; null is ignored
ORVIL_API void rewinddir(DIR* stream) ORVIL_LINK_NAME("orvil_rewinddir");

/// Ends a stream and releases everything that belongs to it, its entry included.
/// @param stream what opendir() returned, or null
/// @return 0; -1 when @p stream is null
ORVIL_API int closedir(DIR* stream) ORVIL_LINK_NAME("orvil_closedir");

}  // extern "C"
