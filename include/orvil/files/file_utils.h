/// @file
/// Status, access, copies, moves and numbered backups of files.
///
/// Paths are bytes in the process's code page and stay the caller's; a null one is a file that does not exist. Failure
/// is a result; nothing throws, prints or locks. Sizes and times have 32 bits: a file of more than 0x7FFFFFFF bytes
/// counts as one whose status cannot be had, here and wherever these functions ask whether a file exists.
///
/// @code
/// int number = 0;
/// if (orv_backupfile("plan.cfg", "plan.%d.bak", &number, 0)) {
///     std::printf("kept as plan.%d.bak\n", number);
/// }
/// @endcode
#pragma once

#include <cstdint>

#include "orvil/export.h"

extern "C" {

/// @param path a file or directory
/// @param which 0 for the time of the last access, 2 for that of creation (elsewhere than on Windows: of the last
/// change of status), any other value for that of the last modification
/// @return seconds since 1970; 0xFFFFFFFF when the status cannot be had
ORVIL_API uint32_t orv_stattime(const char* path, int which);

/// @param path a file or directory
/// @return the size in bytes; 0xFFFFFFFF when the status cannot be had
ORVIL_API uint32_t orv_statsize(const char* path);

/// @param path a file or directory
/// @return the C runtime's mode word: 0x4000 directory, 0x8000 file, 0x100 readable, 0x80 writable; 0 when the status
/// cannot be had
ORVIL_API uint32_t orv_statmode(const char* path);

/// Asks for access by the mode word. Mind the pairing: 2, which asks to write, looks at the bit 0x100, and 4, which
/// asks to read, at 0x80. So on Windows every existing file passes for 2, and a read-only one fails for 4.
/// @param path a file or directory
/// @param mode 2, 4 or both; other bits ask for existence alone
/// @return 0 when that is allowed, -1 when it is not or the status cannot be had
ORVIL_API int orv_access(const char* path, int mode);

/// Copies a file with its time of modification and its being read-only. Linear in its size.
/// @param source a file
/// @param target the path of the copy; its directory exists
/// @param failIfExists whether an existing target is left alone; otherwise it is replaced, unless it is read-only
/// @return false when nothing, or not everything, was copied; a target that was made for it is removed again
ORVIL_API bool orv_copyfile(const char* source, const char* target, bool failIfExists);

/// Moves a file or directory; a file also to another drive, by copying.
/// @param source what is moved
/// @param target its new path; its directory exists
/// @return false when nothing was moved; always when the target exists, which is never replaced
ORVIL_API bool orv_movefile(const char* source, const char* target);

/// Copies a file as a backup, to a name or to the first free one of numbered names.
///
/// A pattern with "%d" is tried with 1, 2, 3 and so on. Beside one "%d" it may hold "%%", which stands for a percent
/// sign. A pattern without "%d" is a plain name, whatever else is in it; an existing file of that name is replaced.
///
/// @param source the file; it must exist
/// @param pattern the plain name or the pattern
/// @param number receives the number whose name was free, though copying to it may fail; when all were taken, the
/// number after the last one tried; -1 for a plain name. May be null. It is left alone when source or pattern is
/// refused.
/// @param limit the numbers 1 to limit - 1 are tried, and 1 in any case; below 1 there is no limit
/// @return whether the file was copied; false also when source is empty or its status cannot be had, when pattern is
/// null or holds another conversion beside "%d", and when there is no memory for the name
ORVIL_API bool orv_backupfile(const char* source, const char* pattern, int* number, int limit);

}  // extern "C"
