#include "orvil/params/red_black_tree.h"

namespace {

constexpr std::uintptr_t kBlack = 1;
constexpr std::uintptr_t kLowBits = 3;

// One of the two child pointers. What is written for one side serves the other side with the two exchanged.
using Side = arbt_node_t* arbt_node_t::*;
constexpr Side kLeft = &arbt_node_t::left;
constexpr Side kRight = &arbt_node_t::right;

arbt_node_t* parent_of(const arbt_node_t* node) {
    return reinterpret_cast<arbt_node_t*>(node->parent & ~kLowBits);
}

bool is_red(const arbt_node_t* node) {
    return (node->parent & kBlack) == 0;
}

bool is_red_child(const arbt_node_t* child) {
    return child != nullptr && is_red(child);
}

void paint_black(arbt_node_t* node) {
    node->parent |= kBlack;
}

void paint_red(arbt_node_t* node) {
    node->parent &= ~kBlack;
}

void set_parent(arbt_node_t* node, const arbt_node_t* parent) {
    node->parent = reinterpret_cast<std::uintptr_t>(parent) | (node->parent & kLowBits);
}

void adopt(const arbt_node_t* parent, arbt_node_t* child) {
    if (child != nullptr) {
        set_parent(child, parent);
    }
}

// Sets parent and colour to those of another node's parent word.
void set_parent_and_colour(arbt_node_t* node, std::uintptr_t word) {
    constexpr std::uintptr_t callers_bit = kLowBits & ~kBlack;
    node->parent = (word & ~callers_bit) | (node->parent & callers_bit);
}

// A node with neither parent nor mark is the root, or has never been in a tree.
bool is_in_tree(const arbt_node_t* node, const arbt_root_t* root) {
    const arbt_node_t* parent = parent_of(node);
    return parent != node && (parent != nullptr || root->node == node);
}

void replace_child(arbt_node_t* parent, const arbt_node_t* child, arbt_node_t* by, arbt_root_t* root) {
    if (parent == nullptr) {
        root->node = by;
    } else if (parent->left == child) {
        parent->left = by;
    } else {
        parent->right = by;
    }
}

// Turns a node down to its Near side: its Far child takes its place.
template <Side Near, Side Far>
void rotate(arbt_node_t* node, arbt_root_t* root) {
    arbt_node_t* raised = node->*Far;
    arbt_node_t* moved = raised->*Near;
    arbt_node_t* parent = parent_of(node);
    node->*Far = moved;
    adopt(node, moved);
    raised->*Near = node;
    replace_child(parent, node, raised, root);
    set_parent(raised, parent);
    set_parent(node, raised);
}

// A red node has a red parent, which is the Near child of `grand`. Returns the next red node that may have a red
// parent, or null when there is none.
template <Side Near, Side Far>
arbt_node_t* mend_red_pair(arbt_node_t* node, arbt_node_t* parent, arbt_node_t* grand, arbt_root_t* root) {
    arbt_node_t* uncle = grand->*Far;
    paint_red(grand);
    if (is_red_child(uncle)) {
        paint_black(uncle);
        paint_black(parent);
        return grand;
    }
    if (parent->*Far == node) {
        rotate<Near, Far>(parent, root);
        parent = node;
    }
    paint_black(parent);
    rotate<Far, Near>(grand, root);
    return nullptr;
}

// The ways through the Near child of `parent` lack a black node. Returns whether all ways are the same again; if not,
// those through `parent` lack one.
template <Side Near, Side Far>
bool mend_short_side(arbt_node_t* parent, arbt_root_t* root) {
    arbt_node_t* sibling = parent->*Far;
    if (is_red_child(sibling)) {
        paint_black(sibling);
        paint_red(parent);
        rotate<Near, Far>(parent, root);
        sibling = parent->*Far;
    }
    if (sibling == nullptr) {
        return true;  // only where a caller has painted nodes: there is nothing to mend with
    }
    if (!is_red_child(sibling->*Far)) {
        if (!is_red_child(sibling->*Near)) {
            paint_red(sibling);
            const bool was_red = is_red(parent);
            paint_black(parent);
            return was_red;
        }
        rotate<Far, Near>(sibling, root);
        sibling = parent->*Far;
    }
    arbt_set_color(sibling, is_red(parent) ? 0 : 1);
    paint_black(parent);
    paint_black(sibling->*Far);
    rotate<Near, Far>(parent, root);
    return true;
}

// The ways through `child` of `parent`, which may be null, lack a black node.
void erase_fixup(arbt_node_t* child, arbt_node_t* parent, arbt_root_t* root) {
    if (is_red_child(child)) {
        paint_black(child);
        return;
    }
    while (parent != nullptr) {
        const bool mended = parent->left == child ? mend_short_side<kLeft, kRight>(parent, root)
                                                  : mend_short_side<kRight, kLeft>(parent, root);
        if (mended) {
            return;
        }
        child = parent;
        parent = parent_of(child);
    }
}

template <Side Direction>
arbt_node_t* outermost(arbt_node_t* node) {
    while (node != nullptr && node->*Direction != nullptr) {
        node = node->*Direction;
    }
    return node;
}

// The next node in order towards the Forward side.
template <Side Back, Side Forward>
arbt_node_t* neighbour(const arbt_node_t* node) {
    if (node == nullptr || parent_of(node) == node) {
        return nullptr;
    }
    if (node->*Forward != nullptr) {
        return outermost<Back>(node->*Forward);
    }
    arbt_node_t* parent = parent_of(node);
    while (parent != nullptr && parent->*Forward == node) {
        node = parent;
        parent = parent_of(node);
    }
    return parent;
}

// A node that leaves the tree with at most one child, and what is left in its place.
struct Removed {
    arbt_node_t* child;
    arbt_node_t* parent;
    bool was_red;
};

Removed remove_outer(arbt_node_t* node, arbt_root_t* root) {
    arbt_node_t* child = node->left != nullptr ? node->left : node->right;
    arbt_node_t* parent = parent_of(node);
    replace_child(parent, node, child, root);
    adopt(parent, child);
    return {child, parent, is_red(node)};
}

// The successor leaves its own place and takes that of the node, with the node's colour.
Removed remove_inner(arbt_node_t* node, arbt_root_t* root) {
    arbt_node_t* successor = outermost<kLeft>(node->right);
    Removed removed = remove_outer(successor, root);
    if (removed.parent == node) {
        removed.parent = successor;
    }
    set_parent_and_colour(successor, node->parent);
    successor->left = node->left;
    adopt(successor, successor->left);
    successor->right = node->right;
    adopt(successor, successor->right);
    replace_child(parent_of(node), node, successor, root);
    return removed;
}

}  // namespace

void arbt_init_root(arbt_root_t* root) {
    if (root != nullptr) {
        *root = {nullptr, 0};
    }
}

void arbt_init_node(arbt_node_t* node) {
    if (node != nullptr) {
        set_parent(node, node);
    }
}

void arbt_set_parent(arbt_node_t* node, arbt_node_t* parent) {
    if (node != nullptr) {
        set_parent(node, parent);
    }
}

int arbt_set_color(arbt_node_t* node, int colour) {
    if (node != nullptr) {
        node->parent = (node->parent & ~kBlack) | (static_cast<unsigned>(colour) & kBlack);
    }
    return colour;
}

void arbt_link_node(arbt_node_t* node, arbt_node_t* parent, arbt_node_t** link) {
    if (node == nullptr || link == nullptr) {
        return;
    }
    set_parent(node, parent);
    paint_red(node);
    node->left = nullptr;
    node->right = nullptr;
    *link = node;
}

void arbt_insert_fixup(arbt_node_t* node, arbt_root_t* root) {
    if (node == nullptr || root == nullptr) {
        return;
    }
    while (node != nullptr) {
        arbt_node_t* parent = parent_of(node);
        arbt_node_t* grand = parent == nullptr || !is_red(parent) ? nullptr : parent_of(parent);
        if (grand == nullptr) {
            break;
        }
        node = grand->left == parent ? mend_red_pair<kLeft, kRight>(node, parent, grand, root)
                                     : mend_red_pair<kRight, kLeft>(node, parent, grand, root);
    }
    if (root->node != nullptr) {
        paint_black(root->node);
    }
}

int arbt_entry_node(arbt_root_t* root, arbt_node_t* node, arbt_compare_t compare, const void* key) {
    if (root == nullptr || node == nullptr || compare == nullptr || key == nullptr) {
        return -1;
    }
    arbt_node_t* parent = nullptr;
    arbt_node_t** link = &root->node;
    while (*link != nullptr) {
        parent = *link;
        const int order = compare(parent, key);
        if (order == 0) {
            return 2;
        }
        link = order < 0 ? &parent->left : &parent->right;
    }
    arbt_link_node(node, parent, link);
    arbt_insert_fixup(node, root);
    ++root->count;
    return 0;
}

void arbt_erase_entry(arbt_node_t* node, arbt_root_t* root) {
    if (node == nullptr || root == nullptr || !is_in_tree(node, root)) {
        return;
    }
    const bool inner = node->left != nullptr && node->right != nullptr;
    const Removed removed = inner ? remove_inner(node, root) : remove_outer(node, root);
    if (!removed.was_red) {
        erase_fixup(removed.child, removed.parent, root);
    }
    arbt_init_node(node);
    --root->count;
}

void arbt_replace_node(arbt_node_t* old_node, arbt_node_t* new_node, arbt_root_t* root) {
    if (old_node == nullptr || new_node == nullptr || root == nullptr || old_node == new_node ||
        !is_in_tree(old_node, root)) {
        return;
    }
    *new_node = *old_node;
    replace_child(parent_of(old_node), old_node, new_node, root);
    adopt(new_node, new_node->left);
    adopt(new_node, new_node->right);
}

arbt_node_t* arbt_find_node(const arbt_root_t* root, arbt_compare_t compare, const void* key) {
    if (root == nullptr || compare == nullptr || key == nullptr) {
        return nullptr;
    }
    arbt_node_t* node = root->node;
    while (node != nullptr) {
        const int order = compare(node, key);
        if (order == 0) {
            return node;
        }
        node = order < 0 ? node->left : node->right;
    }
    return nullptr;
}

arbt_node_t* arbt_get_first(const arbt_root_t* root) {
    return root == nullptr ? nullptr : outermost<kLeft>(root->node);
}

arbt_node_t* arbt_get_last(const arbt_root_t* root) {
    return root == nullptr ? nullptr : outermost<kRight>(root->node);
}

arbt_node_t* arbt_get_next(const arbt_node_t* node) {
    return neighbour<kLeft, kRight>(node);
}

arbt_node_t* arbt_get_prev(const arbt_node_t* node) {
    return neighbour<kRight, kLeft>(node);
}

int arbt_traverse(arbt_root_t* root, int direction, arbt_visit_t callback, void* user) {
    if (root == nullptr) {
        return -1;
    }
    if (callback == nullptr) {
        return 0;
    }
    const bool descending = direction < 0;
    arbt_node_t* node = descending ? arbt_get_last(root) : arbt_get_first(root);
    while (node != nullptr) {
        arbt_node_t* following = descending ? arbt_get_prev(node) : arbt_get_next(node);
        const int result = callback(node, user);
        if (result != 0) {
            return result;
        }
        node = following;
    }
    return 0;
}
