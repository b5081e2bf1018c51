// The seam between the library and the system it runs on. windows/ and posix/ each give every function a body.
//
// On Windows the bodies call the system's own interfaces. On POSIX they give the nearest honest answer: there is no
// private heap, so creating one fails; debug texts go to syslog; paths are folded in the text.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvil::platform {

// --- the private heap -----------------------------------------------------------------------------------------------

// The answer of heap_compatibility() when the system gives none.
inline constexpr std::uint32_t kNoHeapInformation = 0xFFFFFFFF;

// Creates a growable heap with an initial commit of 1 MiB; null when the system has none to give.
void* heap_create();

// Asks for the low-fragmentation policy. A system that lacks it, or refuses, is ignored.
void heap_enable_low_fragmentation(void* heap);

// The heap's compatibility information: 0 standard, 1 look-aside lists, 2 low-fragmentation; kNoHeapInformation when
// the heap is null or the query is missing or fails.
std::uint32_t heap_compatibility(void* heap);

// Zero-filled blocks of a heap that is not null. A grown block's new tail is zero-filled too.
void* heap_alloc(void* heap, std::size_t size);
void* heap_realloc(void* heap, void* block, std::size_t size);
void heap_free(void* heap, void* block);

// Releases the heap with all its blocks; nonzero on success.
std::uint32_t heap_destroy(void* heap);

// Tells the system that memory is going to be used as a whole, so that it may map it by large pages.
void prefer_large_pages(void* memory, std::size_t size);

// --- the stack ------------------------------------------------------------------------------------------------------

// How many bytes the calling thread's stack can still grow by; 0 when the system does not say.
std::size_t stack_room();

// --- text -----------------------------------------------------------------------------------------------------------

// Hands a text to whoever debugs the process.
void debug_text(const char* text);

// Whether the byte begins a double-byte character in the current code page.
bool is_lead_byte(unsigned char byte);

// Whether the current code page has double-byte characters at all. When it has none, no byte needs to be asked for.
bool has_lead_bytes();

// Compare without regard to case, as lower-case bytes: negative, zero or positive.
int compare_no_case(const char* left, const char* right);
int compare_no_case(const char* left, const char* right, std::size_t limit);

// The decimal number at the start of the text, as `atol` reads it, with results beyond 32 bits clamped to the nearest
// value that fits.
std::int32_t parse_int32(const char* text);

// --- files ----------------------------------------------------------------------------------------------------------

struct FileStatus {
    std::uint32_t mode = 0;  // the C runtime's st_mode: 0x4000 folder, 0x8000 file, 0x100 readable, 0x80 writable
    std::int64_t size = 0;   // bytes
    std::int64_t accessed = 0, modified = 0, created = 0;  // seconds since 1970
    std::uint32_t device = 0;                              // on Windows the number of the drive
    std::uint32_t links = 0;                               // names
};

// The status of an existing file or folder; false when there is none or it cannot be asked for. A file of more than
// 0x7FFFFFFF bytes gives false as well: every caller counts in 32 bits.
bool file_status(const char* path, FileStatus& status);

// The absolute form of a path that need not exist, with the system's own separators; "." and ".." are folded. False
// when the result and its terminator do not fit into size bytes or the path is null.
bool full_path(const char* path, char* buffer, std::size_t size);

// Copies a file with its time of modification and its being read-only. An existing target is replaced, unless it is
// asked to be spared, is read-only, no file, or the source itself. On failure a target that was made is removed again.
bool copy_file(const char* source, const char* target, bool spare_existing);

// Moves a file or folder, a file also to another device. An existing target is never replaced.
bool move_file(const char* source, const char* target);

// --- folders --------------------------------------------------------------------------------------------------------

// Writes the working folder's path, with the system's own separators. False when the path and its terminator do not fit
// into size bytes, or the folder has none.
bool working_folder(char* buffer, std::size_t size);

bool change_folder(const char* path);

// A note of the working folder that finds it again also when its name is no text in the code page.
inline constexpr std::intptr_t kNoFolder = -1;
std::intptr_t note_working_folder();  // kNoFolder on failure

// Makes a noted folder the working folder again, and drops the note.
void return_to_folder(std::intptr_t noted);

// What reading the working folder yields: each system's own record.
struct FindRecord;
std::size_t find_record_size();

// The name of the entry that was found; valid until the next one is looked for.
const char* found_name(const FindRecord& record);

// Finds the first entry of the working folder and returns a handle of the reading; kNoFind when there is none.
inline constexpr std::int64_t kNoFind = -1;
std::int64_t find_first(FindRecord& record);

bool find_next(std::int64_t find, FindRecord& record);
void find_close(std::int64_t find);

// --- the entry routine ----------------------------------------------------------------------------------------------

// What src/runtime does when the library is loaded and unloaded. entry.cpp registers both with the system's loader.
void on_load();
void on_unload();

}  // namespace orvil::platform
