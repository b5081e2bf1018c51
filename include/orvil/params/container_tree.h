/// @file
/// Named containers of labelled values, as a table with two columns shows them.
///
/// A root holds containers, in the order of their creation and by name. A container holds entries in order, each a
/// label with or without a value, and says how its two columns are to be headed and how wide they are. Members may be
/// read; they are changed by the functions only.
/// @code
/// vpdp_root_t root;
/// vpdp_init_root(&root);
/// vpdp_cont_t* pens = vpdp_add_cont(&root, "pens", nullptr, nullptr);
/// vpdpc_add_label(pens, "Pens of the plotter");
/// vpdpc_add_valuef(pens, "width", "%.2f mm", 0.35);
/// for (const adl_link_t* link = pens->entries.next; link != &pens->entries; link = link->next) {
///     const char* bytes = reinterpret_cast<const char*>(link) - offsetof(vpdpc_entry_t, link);
///     const auto* entry = reinterpret_cast<const vpdpc_entry_t*>(bytes);
///     printf("%-20s %s\n", entry->label, entry->value == nullptr ? "" : entry->value);
/// }
/// vpdp_destroy_root(&root);
/// @endcode
/// Texts are copied. A root owns its containers and a container its entries; a root may not be moved while it holds
/// any. Names are compared as unsigned bytes, so that case matters. Every function takes null. Nothing throws. One
/// thread at a time.
#pragma once

#include <cstdarg>

#include "orvil/export.h"
#include "orvil/params/intrusive_list.h"
#include "orvil/params/red_black_tree.h"
#include "orvil/params/typed_records.h"

struct vpdp_cont_t;

/// Fills a container on demand. @p argument was given to vpdp_add_cont(), @p a and @p b to vpdp_build_cont(); @p zero
/// is 0. The result is ignored.
typedef int (*vpdp_build_t)(vpdp_cont_t* cont, void* argument, void* a, void* b, int zero);

/// Visits a container of a walk. @return 0 to go on, anything else to end the walk
typedef int (*vpdp_visit_t)(vpdp_cont_t* cont, void* user);

/// The containers.
struct vpdp_root_t {
    adl_link_t list;   ///< in the order of creation
    arbt_root_t tree;  ///< by name, with their count
};

/// A container.
struct vpdp_cont_t {
    char* name;          ///< its name, unique in its root
    adl_link_t entries;  ///< its entries, in order: links of vpdpc_entry_t
    vpdp_build_t build;  ///< what fills it, or null
    void* build_arg;     ///< the argument of `build`
    int width1;          ///< the width of the first column, 100 at first
    int width2;          ///< the width of the second column, 100 at first
    char* caption1;      ///< the caption of the first column, "Label" at first
    char* caption2;      ///< the caption of the second column, "Value" at first
    int tvdir;           ///< a direction code of the host's, 0 at first
    unsigned flags;      ///< flags of the host's, 0 at first
    void* userdata;      ///< a pointer of the host's, null at first
    vpdp_root_t* root;   ///< its root
    adl_link_t link;     ///< its place in the order of creation
    arbt_node_t node;    ///< its place in the order of names
};

/// An entry of a container.
struct vpdpc_entry_t {
    char* label;          ///< its label
    char* value;          ///< its value; null in a plain label
    int number;           ///< always 0
    adl_link_t children;  ///< always empty
    adl_link_t link;      ///< its place in the container
};

extern "C" {

/// @name Roots
/// @{

/// Makes @p root empty. What it held is not released.
ORVIL_API void vpdp_init_root(vpdp_root_t* root);

/// Destroys all containers with their entries; the root is empty then. Linear.
ORVIL_API void vpdp_destroy_root(vpdp_root_t* root);

/// Calls @p callback for each container. It may add and destroy containers; those that it adds may or may not be
/// visited, and there are never more calls than there were containers. Linear.
/// @param order 0 in order of creation, positive in ascending and negative in descending order of names
/// @return -1 when @p root is null; what @p callback returned when it ended the walk; 0 otherwise, and without a
/// callback
ORVIL_API int vpdp_traverse(vpdp_root_t* root, int order, vpdp_visit_t callback, void* user);
/// @}

/// @name Containers
/// @{

/// Adds an empty container, as the last one. Logarithmic.
/// @param name its name; the empty one is a name like any other
/// @param buildCallback what fills it when vpdp_build_cont() is called, or null
/// @param buildArgument what that is given
/// @return the container; null when @p root has one of that name, when there is no memory and when @p root or @p name
/// is null
ORVIL_API vpdp_cont_t* vpdp_add_cont(vpdp_root_t* root, const char* name, vpdp_build_t buildCallback,
                                     void* buildArgument);

/// @return the container of that name, or null. Logarithmic.
ORVIL_API vpdp_cont_t* vpdp_search_cont(const vpdp_root_t* root, const char* name);

/// Removes all entries. Linear.
ORVIL_API void vpdp_clear_cont(vpdp_cont_t* cont);

/// Removes a container from its root and releases it with its entries.
ORVIL_API void vpdp_destroy_cont(vpdp_cont_t* cont);

/// Calls the container's build callback, if it has one. The callback may do what it likes, with this container too.
ORVIL_API void vpdp_build_cont(vpdp_cont_t* cont, void* a, void* b);

/// @return whether a container has no entry; true for null
ORVIL_API bool vpdp_is_empty_items(const vpdp_cont_t* cont);

/// Changes the widths that are greater than 0, and the captions that are not null. A caption for which there is no
/// memory stays as it was.
ORVIL_API void vpdp_set_cont_params(vpdp_cont_t* cont, int firstWidth, const char* firstCaption, int secondWidth,
                                    const char* secondCaption);

/// @return the direction code; 0 for null
ORVIL_API int vpdp_get_cont_tvdir(const vpdp_cont_t* cont);

/// Sets the direction code. @return the former one; 0 for null
ORVIL_API int vpdp_set_cont_tvdir(vpdp_cont_t* cont, int value);

/// @return the flags; 0 for null
ORVIL_API unsigned vpdp_get_cont_flags(const vpdp_cont_t* cont);

/// Clears the flags of @p mask, then sets those of @p bits, be they in the mask or not.
/// @return the former flags; 0 for null
ORVIL_API unsigned vpdp_set_cont_flags(vpdp_cont_t* cont, unsigned mask, unsigned bits);

/// @return the user data; null for null
ORVIL_API void* vpdp_get_cont_userdata(const vpdp_cont_t* cont);

/// Sets the user data. @return the former ones; null for null
ORVIL_API void* vpdp_set_cont_userdata(vpdp_cont_t* cont, void* userdata);
/// @}

/// @name Entries
///
/// Each function appends an entry and returns it. It belongs to the container, and holds until vpdp_clear_cont() or
/// vpdp_destroy_cont(). The result is null when there is no memory and when @p cont or a format is null. Null texts are
/// "". Formats are printf()'s; a `va_list` is used up.
/// @{

/// A plain label.
ORVIL_API vpdpc_entry_t* vpdpc_add_label(vpdp_cont_t* cont, const char* text);
/// A plain label that is printed.
ORVIL_API vpdpc_entry_t* vpdpc_add_labelf(vpdp_cont_t* cont, const char* format, ...) ORVIL_PRINTF(2, 3);
/// A plain label that is printed.
ORVIL_API vpdpc_entry_t* vpdpc_add_vlabelf(vpdp_cont_t* cont, const char* format, va_list args) ORVIL_PRINTF(2, 0);
/// A label with a value.
ORVIL_API vpdpc_entry_t* vpdpc_add_value(vpdp_cont_t* cont, const char* label, const char* value);
/// A label with a value that is printed.
ORVIL_API vpdpc_entry_t* vpdpc_add_valuef(vpdp_cont_t* cont, const char* label, const char* format, ...)
    ORVIL_PRINTF(3, 4);
/// A label with a value that is printed.
ORVIL_API vpdpc_entry_t* vpdpc_add_vvaluef(vpdp_cont_t* cont, const char* label, const char* format, va_list args)
    ORVIL_PRINTF(3, 0);

/// Appends a title and the records of @p set in ascending order of names: their names as labels, and as values
///
/// | type | value |
/// |---|---|
/// | int | ` ==> (Int) [5]` |
/// | double | ` ==> (Dbl) [2.500000]` |
/// | string | ` ==> (Str) [text]` |
///
/// Without memory entries are missing.
/// @param title a format for the label that comes first, with two arguments: the number of records, an int, and
/// @p argument, a pointer. It may name none, the first, or both, as in "Parameters (%d)". Without a title (null or
/// empty) there is no such label.
ORVIL_API void vpdpc_build_vpres(vpdp_cont_t* cont, const char* title, const vpr_set_t* set, void* argument);
/// @}

}  // extern "C"
