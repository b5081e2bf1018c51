#include "orvil/params/red_black_tree.h"

#include <cstddef>

namespace {

constexpr std::uintptr_t kBlack = 1;
constexpr std::uintptr_t kLowBits = 3;

// One of the two child pointers.
using Side = arbt_node_t* arbt_node_t::*;
constexpr Side kLeft = &arbt_node_t::left;
constexpr Side kRight = &arbt_node_t::right;

// The side that something is on, and the other one. Sides are values, not branches: which one it is cannot be foreseen.
struct Sides {
    Side near;
    Side far;

    Sides opposite() const { return {far, near}; }
};

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

// The child pointer on the side that a comparison has told, by arithmetic: a branch would be mispredicted every other
// time.
arbt_node_t** child_slot(arbt_node_t* node, int order) {
    constexpr std::uintptr_t distance = offsetof(arbt_node_t, right) - offsetof(arbt_node_t, left);
    const std::uintptr_t is_right = order > 0 ? 1 : 0;
    return reinterpret_cast<arbt_node_t**>(reinterpret_cast<std::uintptr_t>(&node->left) + is_right * distance);
}

Sides sides_of(const arbt_node_t* child, const arbt_node_t* parent) {
    const bool is_left = parent->left == child;
    return {is_left ? kLeft : kRight, is_left ? kRight : kLeft};
}

// Hangs a node, or null, where another one hangs. This and mending after an erasure branch on the side, unlike the
// rest: in a tree larger than the caches the processor then goes on before the parent, which tells the side, has come.
void replace_child(arbt_node_t* parent, const arbt_node_t* old_child, arbt_node_t* child, arbt_root_t* root) {
    if (parent == nullptr) {
        root->node = child;
    } else if (parent->left == old_child) {
        parent->left = child;
    } else {
        parent->right = child;
    }
}

// Turns a node down to its near side: its far child takes its colour and its parent, and gives it its own colour.
// Returns that child, which the caller hangs where the node was.
arbt_node_t* raise_far_child(arbt_node_t* node, Sides sides) {
    arbt_node_t* raised = node->*sides.far;
    const std::uintptr_t word = raised->parent;
    arbt_node_t* moved = raised->*sides.near;
    node->*sides.far = moved;
    adopt(node, moved);
    raised->*sides.near = node;
    set_parent_and_colour(raised, node->parent);
    set_parent_and_colour(node, reinterpret_cast<std::uintptr_t>(raised) | (word & kBlack));
    return raised;
}

void rotate(arbt_node_t* node, Sides sides, arbt_root_t* root) {
    arbt_node_t* parent = parent_of(node);
    replace_child(parent, node, raise_far_child(node, sides), root);
}

// A red node has a red parent, and that one a parent. Returns the next red node that may have a red parent, or null
// when there is none.
arbt_node_t* mend_red_pair(const arbt_node_t* node, arbt_node_t* parent, arbt_root_t* root) {
    arbt_node_t* grand = parent_of(parent);
    const Sides sides = sides_of(parent, grand);
    arbt_node_t* uncle = grand->*sides.far;
    if (is_red_child(uncle)) {
        paint_red(grand);
        paint_black(uncle);
        paint_black(parent);
        return grand;
    }
    if (parent->*sides.far == node) {
        grand->*sides.near = raise_far_child(parent, sides);
    }
    rotate(grand, sides.opposite(), root);
    return nullptr;
}

// The ways through the Near child of `parent` lack a black node. Returns whether all ways are the same again; if not,
// those through `parent` lack one.
template <Side Near, Side Far>
bool mend_short_side(arbt_node_t* parent, arbt_root_t* root) {
    constexpr Sides sides{Near, Far};
    if (is_red_child(parent->*Far)) {
        rotate(parent, sides, root);
    }
    arbt_node_t* sibling = parent->*Far;
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
        parent->*Far = raise_far_child(sibling, sides.opposite());
    }
    paint_black((parent->*Far)->*Far);
    rotate(parent, sides, root);
    return true;
}

bool mend_shorter_ways(const arbt_node_t* child, arbt_node_t* parent, arbt_root_t* root) {
    return parent->left == child ? mend_short_side<kLeft, kRight>(parent, root)
                                 : mend_short_side<kRight, kLeft>(parent, root);
}

// The ways through `child` of `parent`, which may be null, lack a black node.
void erase_fixup(arbt_node_t* child, arbt_node_t* parent, arbt_root_t* root) {
    if (is_red_child(child)) {
        paint_black(child);
        return;
    }
    while (parent != nullptr && !mend_shorter_ways(child, parent, root)) {
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

// Most of them are needed, one after the other; in a large tree their lines are then on their way together.
void fetch_neighbours(const arbt_node_t* node) {
    __builtin_prefetch(parent_of(node));
    __builtin_prefetch(node->left);
    __builtin_prefetch(node->right);
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
    replace_child(parent_of(node), node, successor, root);
    set_parent_and_colour(successor, node->parent);
    successor->left = node->left;
    adopt(successor, successor->left);
    successor->right = node->right;
    adopt(successor, successor->right);
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
        const bool is_mended = !is_red_child(parent) || parent_of(parent) == nullptr;
        node = is_mended ? nullptr : mend_red_pair(node, parent, root);
    }
    if (is_red_child(root->node)) {
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
        link = child_slot(parent, order);
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
    fetch_neighbours(node);
    const bool inner = node->left != nullptr && node->right != nullptr;
    const Removed removed = inner ? remove_inner(node, root) : remove_outer(node, root);
    if (!removed.was_red) {
        erase_fixup(removed.child, removed.parent, root);
    }
    arbt_init_node(node);
    --root->count;
}

void arbt_replace_node(arbt_node_t* old_node, arbt_node_t* new_node, arbt_root_t* root) {
    if (old_node == nullptr || new_node == nullptr || root == nullptr || !is_in_tree(old_node, root)) {
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
        node = *child_slot(node, order);
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
