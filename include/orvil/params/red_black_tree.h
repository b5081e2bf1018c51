/// @file
/// A red-black tree whose nodes lie in the caller's own records.
///
/// A record embeds an arbt_node_t, and a comparator of the caller's orders a node against a key. The record of a node
/// is found by the node's fixed position in it:
/// @code
/// struct Layer { int number; arbt_node_t node; };
/// int compare(const arbt_node_t* node, const void* key) {
///     const char* bytes = reinterpret_cast<const char*>(node) - offsetof(Layer, node);
///     const int number = reinterpret_cast<const Layer*>(bytes)->number;
///     const int wanted = *static_cast<const int*>(key);
///     return wanted < number ? -1 : wanted > number;
/// }
/// ...
/// arbt_root_t root;
/// arbt_init_root(&root);
/// arbt_init_node(&layer.node);
/// arbt_entry_node(&root, &layer.node, compare, &layer.number);
/// @endcode
/// No red node has a red child, and every way down from the root passes the same number of black nodes: a tree of n
/// nodes is at most 2 * log2(n + 1) high, and finding, inserting and erasing take logarithmic time.
///
/// Nothing is allocated, and nothing is owned: records belong to the caller and stay where they are while they are in a
/// tree. A node is in one tree at a time; inserting one that is in a tree already damages that tree. Every function
/// takes null and does nothing with it. One thread at a time.
#pragma once

#include <cstdint>

#include "orvil/export.h"

/// A node in a record.
struct arbt_node_t {
    /// The parent's address; none in the root. Bit 0 is the colour: 0 red, 1 black. Bit 1 is the caller's and stays as
    /// it is, except where a word is copied whole. A node that names itself as its parent is in no tree.
    uintptr_t parent;
    arbt_node_t* left;   ///< the child before this node, or null
    arbt_node_t* right;  ///< the child behind this node, or null
};

/// A tree.
struct arbt_root_t {
    arbt_node_t* node;  ///< the root node; null in an empty tree
    int count;          ///< the number of nodes
};

/// Orders a key against a node. The same comparator serves a tree all its life.
/// @return negative when @p key comes before @p node, positive when it comes after, 0 when they are equal
typedef int (*arbt_compare_t)(const arbt_node_t* node, const void* key);

/// Visits a node of a walk. @return 0 to go on, anything else to end the walk
typedef int (*arbt_visit_t)(arbt_node_t* node, void* user);

extern "C" {

/// Makes @p root an empty tree. What was in it is not erased.
ORVIL_API void arbt_init_root(arbt_root_t* root);

/// Marks @p node as in no tree: it becomes its own parent. Its two low bits stay; the rest is left alone.
ORVIL_API void arbt_init_node(arbt_node_t* node);

/// Sets the address of the parent, which may be null. The two low bits stay.
ORVIL_API void arbt_set_parent(arbt_node_t* node, arbt_node_t* parent);

/// Sets the colour to bit 0 of @p colour. The rest of the word stays. @return @p colour
ORVIL_API int arbt_set_color(arbt_node_t* node, int colour);

/// Links @p node as a red leaf; arbt_insert_fixup() has to follow, and the count is the caller's to add to.
/// @param node its parent word was set before: by arbt_init_node() in a zeroed record, say
/// @param parent the parent; null for the root
/// @param link where the tree will hold the node: a child pointer of @p parent, or arbt_root_t::node
ORVIL_API void arbt_link_node(arbt_node_t* node, arbt_node_t* parent, arbt_node_t** link);

/// Balances the tree after arbt_link_node(), by at most two rotations and by recolouring up to the root.
ORVIL_API void arbt_insert_fixup(arbt_node_t* node, arbt_root_t* root);

/// Inserts @p node at the place of @p key.
/// @param node in no tree; its parent word was set before, as for arbt_link_node()
/// @return 0; 2 when there is a node of that key (then nothing is inserted); -1 when any argument is null
ORVIL_API int arbt_entry_node(arbt_root_t* root, arbt_node_t* node, arbt_compare_t compare, const void* key);

/// Takes @p node out of the tree and marks it as arbt_init_node() does. Other nodes keep their addresses. Nothing
/// happens when it is in no tree.
ORVIL_API void arbt_erase_entry(arbt_node_t* node, arbt_root_t* root);

/// Puts @p new_node in the place of @p old_node, whose whole parent word and children it copies. @p old_node is in the
/// tree no longer, but is left as it is: arbt_init_node() marks it. The two must be equal for the comparator. Nothing
/// happens when @p old_node is in no tree. Constant time.
ORVIL_API void arbt_replace_node(arbt_node_t* old_node, arbt_node_t* new_node, arbt_root_t* root);

/// @return the node of @p key; null when there is none or an argument is null
ORVIL_API arbt_node_t* arbt_find_node(const arbt_root_t* root, arbt_compare_t compare, const void* key);

/// @return the first node in order; null when the tree is empty. Logarithmic, as the next three.
ORVIL_API arbt_node_t* arbt_get_first(const arbt_root_t* root);

/// @return the last node in order; null when the tree is empty
ORVIL_API arbt_node_t* arbt_get_last(const arbt_root_t* root);

/// @return the node behind @p node in order; null when it is the last one or in no tree. A walk over the whole tree is
/// linear.
ORVIL_API arbt_node_t* arbt_get_next(const arbt_node_t* node);

/// @return the node before @p node in order; null when it is the first one or in no tree
ORVIL_API arbt_node_t* arbt_get_prev(const arbt_node_t* node);

/// Calls @p callback for each node, in ascending order or, when @p direction is negative, in descending order. The
/// callback may erase the node that it is given; otherwise it must leave the tree alone. Linear.
/// @return -1 when @p root is null; what @p callback returned when it ended the walk; 0 otherwise, and without a
/// callback
ORVIL_API int arbt_traverse(arbt_root_t* root, int direction, arbt_visit_t callback, void* user);

}  // extern "C"
