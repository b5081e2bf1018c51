/// @file
/// A set of named, typed values for passing parameters between modules.
///
/// A record is a name and an int ('i'), a double ('d') or a string ('s'). Names are unique within a set; they are
/// compared as unsigned bytes, so that case matters. A set keeps two orders: that of creation and that of names.
/// @code
/// vpr_set_t set;
/// if (vpr_init(&set, 16, 8) != 0) return;
/// vpr_add_int(&set, "width", 420);
/// vpr_add_str(&set, "title", "Plan");
/// printf("%s %d %s\n", vpr_get_str(&set, "title", nullptr), vpr_ref_int(&set, "width"),
///        vpr_get_str(&set, "width", nullptr));      // Plan 420 420
/// vpr_destroy(&set);
/// @endcode
/// Names and strings are copied; the set owns its copies. Records come from a pool that grows by blocks and keeps
/// deleted records for the next ones. A set may not be moved or copied as bytes while it holds records. Looking up,
/// adding and deleting take logarithmic time.
///
/// Results, where a function does not say otherwise: 0 success, 1 not found or failed, 4 no destination, 5 no source, 6
/// no memory for a work copy, -1 a null set, or a null or empty name. Every function takes null. Without memory a
/// record's name may be missing: such a record stands in the order of creation, and reads as named "". Nothing throws.
/// One thread at a time.
#pragma once

#include <cstdarg>
#include <cstddef>

#include "orvil/export.h"
#include "orvil/params/intrusive_list.h"
#include "orvil/params/red_black_tree.h"

// NOLINTBEGIN(bugprone-reserved-identifier): the names are given.

/// A record set. The caller provides it and calls vpr_init(); the members are for reading only.
struct __aVPRESOURCE_t {
    adl_link_t records;    ///< the records in the order of creation
    arbt_root_t tree;      ///< the records by name, and their count
    int block_size;        ///< by how many records the pool grows
    int pool_count;        ///< the number of records of the pool, in use or free
    adl_link_t free_list;  ///< the records that are free
    void* blocks;          ///< the chain of the pool's blocks
};

/// What a walk shows of a record.
struct __aVPRESTVITEM_t {
    char type;  ///< 'i', 'd' or 's': which member of the value holds
    /// The value. A string belongs to the set, and holds until its record is replaced or deleted.
    union {
        int i;          ///< of type 'i'
        double d;       ///< of type 'd'
        const char* s;  ///< of type 's', never null
    } value;
};

/// A record set.
typedef __aVPRESOURCE_t vpr_set_t;

/// Visits a record of a walk. @return 0 to go on, anything else to end the walk
typedef int (*vpr_visit_t)(const char* name, const __aVPRESTVITEM_t* item, void* user);

// NOLINTEND(bugprone-reserved-identifier)

extern "C" {

/// @name Sets
/// @{

/// Makes an empty set. What the structure held is not looked at, and not released.
/// @param initialCount how many records the pool holds at least, 8 when it is less; the pool is made of whole blocks
/// @param blockSize by how many records the pool grows, 4 when it is less
/// @return 0; 1 when @p set is null; 2 when there is no memory, then the set is empty and has no pool yet
ORVIL_API int vpr_init(vpr_set_t* set, int initialCount, int blockSize);

/// Deletes all records. The pool stays. Linear. @return 0; -1 when @p set is null
ORVIL_API int vpr_clear(vpr_set_t* set);

/// Deletes all records and releases the pool. The set is empty then, and may be destroyed again. Linear.
/// @return 0; -1 when @p set is null
ORVIL_API int vpr_destroy(vpr_set_t* set);

/// @return the number of records; 0 for null
ORVIL_API int vpr_count(const vpr_set_t* set);
/// @}

/// @name Adding and deleting
/// @{

/// Adds a record. One of that name is deleted first, so that the new one is the last in the order of creation: name and
/// value may lie in the record that goes.
/// @param type 'i', 'd' or 's'. Any other letter gives 1, after a record of that name has been deleted.
/// @param value points to an int or a double, or is the string itself, where null is ""
/// @return 0; 1 when there is no memory or the letter is wrong; -1 for a bad argument, or no int or double
ORVIL_API int vpr_add(vpr_set_t* set, const char* name, char type, const void* value);

/// Adds an int, as vpr_add().
ORVIL_API int vpr_add_int(vpr_set_t* set, const char* name, int value);

/// Adds a double, as vpr_add().
ORVIL_API int vpr_add_dbl(vpr_set_t* set, const char* name, double value);

/// Adds a string, as vpr_add(). Null is "".
ORVIL_API int vpr_add_str(vpr_set_t* set, const char* name, const char* value);

/// Adds a string that is printed as printf() does. @return as vpr_add(); -1 for a null format, too. When the text
/// cannot be made the result is 1, and a record of that name stays.
ORVIL_API int vpr_add_strf(vpr_set_t* set, const char* name, const char* format, ...) ORVIL_PRINTF(3, 4);

/// As vpr_add_strf(). @p args is used up.
ORVIL_API int vpr_add_vstrf(vpr_set_t* set, const char* name, const char* format, va_list args) ORVIL_PRINTF(3, 0);

/// Deletes a record. @return 0; 1 when there is none of that name; -1 for a bad argument
ORVIL_API int vpr_delete(vpr_set_t* set, const char* name);
/// @}

/// @name Copying between sets
/// @{

/// Deletes the records of @p dst and adds copies of those of @p src, in their order of creation. A set copied onto
/// itself is empty.
/// @return 0; 4 or 5 for a null set; 1 when a copy could not be made, then those made so far stay
ORVIL_API int vpr_copy(vpr_set_t* dst, const vpr_set_t* src);

/// Deletes the records of @p dst and adds copies of those records of @p src that are named in @p mask, in its order.
/// Names that @p src does not have, and empty ones, are skipped. A name that stands there twice ends the copying
/// with 1.
/// @param mask names with @p separator between them, as "width;height"; it may lie in a record of @p dst. Null is as
/// vpr_copy().
/// @param separator the zero character is as vpr_copy()
/// @return as vpr_copy(); 6 when there is no memory for a copy of @p mask, then nothing has changed
ORVIL_API int vpr_masked_copy(vpr_set_t* dst, const vpr_set_t* src, const char* mask, char separator);

/// Adds copies of the records of @p src to @p dst, in their order of creation. Each replaces the one of its name and
/// goes to the end. A set updated from itself stays as it is.
/// @return as vpr_copy(); -1 for a record that has no valid type
ORVIL_API int vpr_update(vpr_set_t* dst, const vpr_set_t* src);
/// @}

/// @name Reading
/// @{

/// @return the type letter of a record; 0 when there is none, and for a bad argument
ORVIL_API char vpr_type(const vpr_set_t* set, const char* name);

/// @return the value of a record of type 'i'; 0 when there is none. Nothing is converted.
ORVIL_API int vpr_ref_int(const vpr_set_t* set, const char* name);

/// @return the value of a record of type 'd'; 0.0 when there is none. Nothing is converted.
ORVIL_API double vpr_ref_dbl(const vpr_set_t* set, const char* name);

/// @return the value of a record of type 's', which holds until the record is replaced or deleted; "" when there is
/// none. Nothing is converted.
ORVIL_API const char* vpr_ref_str(const vpr_set_t* set, const char* name);

/// @return the value of a record as an int; 0 when there is none. A double is cut toward zero; one beyond an int, and
/// one that is no number, gives -2147483648. A string is read as strtol() reads it, in base 16 when it begins with "0x"
/// or "0X" and in base 10 otherwise, and clamped to 32 bits.
/// @param typeOut receives the record's own type letter, or 0 when there is no record; may be null
ORVIL_API int vpr_get_int(const vpr_set_t* set, const char* name, char* typeOut);

/// @return the value of a record as a double; 0.0 when there is none. A string is read as strtod() reads it.
/// @param typeOut as for vpr_get_int()
ORVIL_API double vpr_get_dbl(const vpr_set_t* set, const char* name, char* typeOut);

/// @return the value of a record as a string; "" when there is none. An int is printed by "%d", a double by "%.15lf".
/// What was converted holds until vpr_get_int() or vpr_get_dbl() converts the same record's value, or the record is
/// replaced or deleted: a record remembers one conversion. Without memory the result is "".
/// @param typeOut as for vpr_get_int()
ORVIL_API const char* vpr_get_str(const vpr_set_t* set, const char* name, char* typeOut);

/// Calls @p callback for each record. It may add, replace and delete records, but not destroy the set; those that it
/// adds may or may not be visited, and there are never more calls than there were records. Linear.
/// @param order 0 in order of creation, positive in ascending and negative in descending order of names
/// @return -1 when @p set is null; what @p callback returned when it ended the walk; 0 otherwise, and without a
/// callback
ORVIL_API int vpr_traverse(const vpr_set_t* set, int order, vpr_visit_t callback, void* user);
/// @}

/// @name Blocks and texts; vpr_free() releases what they return
/// @{

/// @return a zero-filled block of @p size bytes, or null
ORVIL_API void* vpr_alloc(size_t size);

/// Releases a block. Null is ignored.
ORVIL_API void vpr_free(void* block);

/// @return a copy of @p text; null when there is no memory or no text
ORVIL_API char* vpr_strdup(const char* text);

/// @return a text printed as printf() does; null when there is no memory or it cannot be printed
ORVIL_API char* vpr_strf(const char* format, ...) ORVIL_PRINTF(1, 2);

/// As vpr_strf(). @p args is used up.
ORVIL_API char* vpr_vstrf(const char* format, va_list args) ORVIL_PRINTF(1, 0);
/// @}

}  // extern "C"
