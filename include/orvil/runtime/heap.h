/// @file
/// The allocator behind strings and containers, its statistics, and three portability functions.
///
/// Memory comes from the C runtime (modes 1 and 2) or from a private heap of the library's own (modes 3 and 4). In mode
/// 1 each block is one of the C runtime's, for memory checkers; otherwise small blocks share larger ones. Mode 4, a
/// private heap with the low-fragmentation policy, is the default; the environment variable "KESA_HEAPINFO_ORV" with a
/// value from 1 to 4 overrides it. The mode is decided once, at load or at the first allocation, and read from the C
/// runtime's copy of the environment. Where the private heap cannot be created (always outside Windows) the allocator
/// falls back to mode 2, unless the variable demands 3 or 4: then every allocation yields null.
///
/// Except in mode 1, memory that runs empty is kept for what comes next: up to 256 MiB of texts, and as much again of
/// nodes of trees. The rest goes back to the system at once, this when the library is unloaded.
///
/// Nothing here is locked: one thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>

#include "orvil/export.h"

extern "C" {

/// Makes the heap ready, as loading the library does.
/// @return whether it is ready now. False when the private heap could not be created; there is no fallback here.
ORVIL_API bool orv_heap_init();

/// Destroys the private heap with everything in it. Strings and containers must not be used afterwards: new ones fail
/// cleanly, those that live hold freed memory. No second heap is ever made.
/// @return nonzero on success; without a private heap nothing happens and the mode minus 3 is returned, as an unsigned
/// number (0xFFFFFFFE in mode 1, 0xFFFFFFFF in mode 2, 0 and 1 in modes 3 and 4).
ORVIL_API uint32_t orv_heap_term();

/// @return the heap mode, 1 to 4. Before the heap is ready this is the default, 4.
ORVIL_API uint32_t orv_heap_gettype();

/// @param reserved ignored
/// @return the private heap's policy as the system reports it: 0 standard, 1 look-aside lists, 2 low-fragmentation;
/// 0xFFFFFFFF when there is no private heap or the system does not answer.
ORVIL_API uint32_t orv_heap_getlfh(int reserved);

/// @return the private heap's handle (a Windows HANDLE), or null.
ORVIL_API void* orv_heap_gethandle();

/// @return a zero-filled block of @p size bytes, or null. Release it with orv_heap_free().
ORVIL_API void* orv_heap_alloc(size_t size);

/// Resizes a block of orv_heap_alloc(), which may move. New bytes are zero in modes 3 and 4 and undefined otherwise.
/// @return the block, or null; then @p block is as it was.
ORVIL_API void* orv_heap_realloc(void* block, size_t size);

/// Releases a block of orv_heap_alloc() or orv_heap_realloc(). Null is ignored.
ORVIL_API void orv_heap_free(void* block);

/// The largest byte count ever asked of orv_heap_alloc() or orv_heap_realloc(), granted or not.
extern ORVIL_API uint64_t st_dwMoreLargeSize;

/// The high-water mark of the bytes held by string buffers. A buffer of capacity c adds c + 1 when it is made, growth
/// from c to d adds d - c + 1, and a release takes only c away: the total creeps up by one byte for each.
extern ORVIL_API uint64_t st_dwMostLargeSize;

/// Compares two texts as lower-case bytes. @return negative, zero or positive
ORVIL_API int st_ImpFunc_strcasecmp(const char* left, const char* right);

/// As st_ImpFunc_strcasecmp(), over at most @p limit bytes; nothing is compared when @p limit is below 1.
ORVIL_API int st_ImpFunc_strncasecmp(const char* left, const char* right, int limit);

/// @return a copy of the first @p length bytes of @p text, or of all of it when @p length is 0. The block has
/// @p length + 1 bytes, zero behind the text, and comes from the C runtime: release it with free(). Null when there is
/// no memory or no text.
ORVIL_API char* st_ImpFunc_strdup(const char* text, unsigned length);

}  // extern "C"
