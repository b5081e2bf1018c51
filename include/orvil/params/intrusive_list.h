/// @file
/// A circular doubly linked list whose links lie in the caller's own records.
///
/// A record embeds an adl_link_t; the list is another one, the head. Both pointers of an empty list's head point to the
/// head itself. Following `next` from the head gives the order of the list and ends at the head. The record of a link
/// is found by the link's fixed position in it:
/// @code
/// struct Layer { int number; adl_link_t link; };
/// adl_link_t layers;
/// adl_init(&layers);
/// adl_add_tail(&layers, &layer.link);
/// for (adl_link_t* link = layers.next; link != &layers; link = link->next) {
///     Layer* each = reinterpret_cast<Layer*>(reinterpret_cast<char*>(link) - offsetof(Layer, link));
/// }
/// @endcode
/// Nothing is allocated, and nothing is owned: records belong to the caller and stay where they are while they are
/// linked. A link is in one list at a time; adding one that is in a list already damages that list. Every function
/// takes null, and heads and nodes whose pointers are null, and does nothing with them. Operations take constant time
/// unless they say otherwise. One thread at a time.
#pragma once

#include "orvil/export.h"

/// A link in a record, or the head of a list.
struct adl_link_t {
    adl_link_t* prev;  ///< the link before this one; null in a link that is in no list
    adl_link_t* next;  ///< the link behind this one; null in a link that is in no list
};

extern "C" {

/// Makes @p head an empty list. What was in it is not unlinked.
ORVIL_API void adl_init(adl_link_t* head);

/// @return the number of elements; 0 for null. Linear.
ORVIL_API int adl_count(const adl_link_t* head);

/// Inserts @p node right behind @p head, as the first element. What the node's pointers held does not matter.
ORVIL_API void adl_add_head(adl_link_t* head, adl_link_t* node);

/// Inserts @p node right before @p head, as the last element. What the node's pointers held does not matter.
ORVIL_API void adl_add_tail(adl_link_t* head, adl_link_t* node);

/// Unlinks @p node, whose pointers become null. Nothing happens when they are null already.
ORVIL_API void adl_del(adl_link_t* node);

/// Unlinks @p node, which becomes an empty list of its own. Nothing happens when its pointers are null.
ORVIL_API void adl_del_init(adl_link_t* node);

/// Unlinks @p node and inserts it right behind @p head, which may be of another list.
ORVIL_API void adl_move_head(adl_link_t* node, adl_link_t* head);

/// Unlinks @p node and inserts it right before @p head, which may be of another list.
ORVIL_API void adl_move_tail(adl_link_t* node, adl_link_t* head);

/// Inserts all elements of @p list, in their order, right behind @p head: at the front. @p list itself stays as it is
/// and is no list any more; adl_init() makes it one again.
ORVIL_API void adl_splice(adl_link_t* list, adl_link_t* head);

/// As adl_splice(); @p list is empty afterwards.
ORVIL_API void adl_splice_init(adl_link_t* list, adl_link_t* head);

/// Steps along `next`.
/// @param from where to start
/// @param to where to stop: usually the head
/// @param n the number of steps; none when it is below 1
/// @return the link reached after @p n steps; null when @p to is met on the way, when @p from is @p to and when either
/// is null. Linear in @p n.
ORVIL_API adl_link_t* adl_forward_list(adl_link_t* from, adl_link_t* to, int n);

/// As adl_forward_list(), along `prev`.
ORVIL_API adl_link_t* adl_rewind_list(adl_link_t* from, adl_link_t* to, int n);

/// Counts the steps along `prev` from @p from to @p to. Note that adl_count_right() counts something else.
/// @return the number of steps: 0 when both are the same link, 1 when @p to is right before @p from; 0 too when there
/// is no way from one to the other. Linear.
ORVIL_API int adl_count_left(const adl_link_t* from, const adl_link_t* to);

/// Counts the links strictly between @p from and @p to along `next`: one less than the steps.
/// @return the number of links: 0 when @p to is right behind @p from, all others of the ring when both are the same
/// link; 0 too when there is no way from one to the other. Linear.
ORVIL_API int adl_count_right(const adl_link_t* from, const adl_link_t* to);

}  // extern "C"
