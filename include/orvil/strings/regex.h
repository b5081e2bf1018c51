/// @file
/// Regular expressions in a Perl-like notation, and the process-wide cache of compiled ones.
///
/// A notation text is optional white space, a delimiter, the pattern, the same delimiter, then flag letters:
///
///     "/ab+c/i"     "#^[a-z]+$#m"     ",/usr/.*,"
///
/// - The delimiter is any character but a letter, a digit and a backslash.
/// - The pattern ends at the next delimiter; a backslash does not protect one. "(abc)" is closed by "(", not by ")".
///   When there is no second delimiter, or the two stand side by side, the pattern is all the text behind the first:
///   "/abc" is the pattern "abc", and "//i" the pattern "/i" with the flag i.
/// - The flags are i (no case), m (lines), s (dot matches line ends), x (white space and comments), A (anchored),
///   E (dollar only at the end), X (no unknown escapes) and U (ungreedy). Blanks and line feeds between them are
///   skipped; any other character makes the notation invalid. There is no g: replacing is always global.
///
/// Wherever the library takes a pattern, a `const char*` parameter takes either such a text or a handle of
/// regex_compile(), cast; a handle saves the look-up by text. Patterns are PCRE's, and so are execution options.
///
/// Compiled patterns stay in the cache until regex_cleanup(), which unloading the library calls. The look-up takes the
/// newest cached notation that the text *begins with*: once "/a/" is cached, "/a/i" yields it, case-sensitive; and "/"
/// (the pattern that matches everywhere) would answer for every later text that begins with a slash.
///
/// Memory belongs to the library. Nothing here throws, prints or locks: one thread at a time. A search that would need
/// more of the stack, more memory or more backtracking than is safe ends as if nothing matched.
#pragma once

#include "orvil/export.h"

extern "C" {

/// Finds a notation in the cache, or compiles it. Linear in the number of cached patterns.
/// @param text the notation; null is invalid
/// @return a handle, which counts one reference more and is valid until regex_remove() takes the last one or
/// regex_cleanup() is called; null when the notation or its pattern is invalid, or there is no memory
ORVIL_API void* regex_compile(const char* text);

/// Searches a text.
/// @param handle what regex_compile() returned
/// @param reserved ignored
/// @param subject the text, which may hold zero bytes
/// @param length its length in bytes
/// @param start where the search begins, from 0 to @p length; the text before it is seen by "^" and look-behind
/// @param options PCRE's execution options, 0 for none
/// @param ovector receives pairs of offsets, begin and end: the whole match, then the groups, -1 for unset ones
/// @param size the number of ints in @p ovector; a third of them is PCRE's work space, so 3 for each pair
/// @return the number of the highest group that took part, plus 1; 0 when @p ovector is too small for that; -1 when
/// nothing matches, @p handle is not one, or @p subject or @p ovector is null; other negative numbers are PCRE's errors
ORVIL_API int regex_execute(const void* handle, const void* reserved, const char* subject, int length, int start,
                            int options, int* ovector, int size);

/// Takes one reference from a cached pattern, and releases the pattern with its last one.
/// @param handle_or_text a handle, or a notation text that is looked up as regex_compile() does
/// @return false when there is no such pattern in the cache
ORVIL_API bool regex_remove(const void* handle_or_text);

/// Tells a handle from anything else. Nothing behind the pointer is read, so that a stale handle is harmless here.
/// @return whether @p handle is one of a cached pattern
ORVIL_API bool regex_check(const void* handle);

/// Releases every cached pattern. All handles are stale afterwards.
ORVIL_API void regex_cleanup();

}  // extern "C"
