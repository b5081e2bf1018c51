#include "orvil/params/intrusive_list.h"

namespace {

using Direction = adl_link_t* adl_link_t::*;

bool is_linked(const adl_link_t* link) {
    return link != nullptr && link->next != nullptr && link->prev != nullptr;
}

void connect(adl_link_t* before, adl_link_t* behind) {
    before->next = behind;
    behind->prev = before;
}

void insert_between(adl_link_t* before, adl_link_t* node, adl_link_t* behind) {
    connect(before, node);
    connect(node, behind);
}

bool can_insert(const adl_link_t* head, const adl_link_t* node) {
    return is_linked(head) && node != nullptr && node != head;
}

adl_link_t* step(adl_link_t* from, const adl_link_t* to, int n, Direction direction) {
    if (from == nullptr || to == nullptr || from == to) {
        return nullptr;
    }
    adl_link_t* reached = from;
    for (; n > 0; --n) {
        reached = reached->*direction;
        if (reached == nullptr || reached == to) {
            return nullptr;
        }
    }
    return reached;
}

// The number of steps from one link to another, all round the ring when they are the same; 0 when there is no way.
int steps_between(const adl_link_t* from, const adl_link_t* to, Direction direction) {
    if (from == nullptr || to == nullptr) {
        return 0;
    }
    int steps = 1;
    const adl_link_t* reached = from->*direction;
    for (; reached != to; ++steps) {
        if (reached == nullptr || reached == from) {
            return 0;
        }
        reached = reached->*direction;
    }
    return steps;
}

}  // namespace

void adl_init(adl_link_t* head) {
    if (head != nullptr) {
        head->prev = head;
        head->next = head;
    }
}

int adl_count(const adl_link_t* head) {
    const int steps = steps_between(head, head, &adl_link_t::next);
    return steps > 0 ? steps - 1 : 0;
}

void adl_add_head(adl_link_t* head, adl_link_t* node) {
    if (can_insert(head, node)) {
        insert_between(head, node, head->next);
    }
}

void adl_add_tail(adl_link_t* head, adl_link_t* node) {
    if (can_insert(head, node)) {
        insert_between(head->prev, node, head);
    }
}

void adl_del(adl_link_t* node) {
    if (is_linked(node)) {
        connect(node->prev, node->next);
        *node = {nullptr, nullptr};
    }
}

void adl_del_init(adl_link_t* node) {
    if (is_linked(node)) {
        connect(node->prev, node->next);
        adl_init(node);
    }
}

void adl_move_head(adl_link_t* node, adl_link_t* head) {
    if (can_insert(head, node)) {
        adl_del(node);
        adl_add_head(head, node);
    }
}

void adl_move_tail(adl_link_t* node, adl_link_t* head) {
    if (can_insert(head, node)) {
        adl_del(node);
        adl_add_tail(head, node);
    }
}

void adl_splice(adl_link_t* list, adl_link_t* head) {
    if (!can_insert(head, list) || !is_linked(list) || list->next == list) {
        return;
    }
    adl_link_t* first = list->next;
    adl_link_t* last = list->prev;
    connect(last, head->next);
    connect(head, first);
}

void adl_splice_init(adl_link_t* list, adl_link_t* head) {
    if (can_insert(head, list) && is_linked(list)) {
        adl_splice(list, head);
        adl_init(list);
    }
}

adl_link_t* adl_forward_list(adl_link_t* from, adl_link_t* to, int n) {
    return step(from, to, n, &adl_link_t::next);
}

adl_link_t* adl_rewind_list(adl_link_t* from, adl_link_t* to, int n) {
    return step(from, to, n, &adl_link_t::prev);
}

int adl_count_left(const adl_link_t* from, const adl_link_t* to) {
    return from == to ? 0 : steps_between(from, to, &adl_link_t::prev);
}

int adl_count_right(const adl_link_t* from, const adl_link_t* to) {
    const int steps = steps_between(from, to, &adl_link_t::next);
    return steps > 0 ? steps - 1 : 0;
}
