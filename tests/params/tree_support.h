// Records in a red-black tree, and the rules that every such tree keeps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "orvil/params/red_black_tree.h"

namespace orvil::test {

struct Numbered {
    int number = 0;
    arbt_node_t node{};
    bool marked = false;  // bit 1 of the node's parent word is set

    Numbered() { arbt_init_node(&node); }
    explicit Numbered(int n, bool mark = false) : number(n), marked(mark) {
        arbt_init_node(&node);
        node.parent |= mark ? 2u : 0u;
    }
};

inline Numbered* numbered(const arbt_node_t* node) {
    return reinterpret_cast<Numbered*>(reinterpret_cast<std::uintptr_t>(node) - offsetof(Numbered, node));
}

inline int compare_numbers(const arbt_node_t* node, const void* key) {
    const int wanted = *static_cast<const int*>(key);
    const int number = numbered(node)->number;
    return wanted < number ? -7 : (wanted > number ? 7 : 0);
}

inline int enter(arbt_root_t& root, Numbered& record) {
    return arbt_entry_node(&root, &record.node, compare_numbers, &record.number);
}

inline arbt_node_t* find(const arbt_root_t& root, int number) {
    return arbt_find_node(&root, compare_numbers, &number);
}

inline arbt_node_t* parent_of(const arbt_node_t* node) {
    return reinterpret_cast<arbt_node_t*>(node->parent & ~std::uintptr_t{3});
}

inline bool is_red(const arbt_node_t* node) {
    return node != nullptr && (node->parent & 1) == 0;
}

// Finds what is wrong with a tree of Numbered.
class TreeCheck {
public:
    // Empty when nothing is wrong.
    static std::string fault(const arbt_root_t& root) {
        TreeCheck check;
        if (is_red(root.node)) {
            return "the root is red";
        }
        check.black_height(root.node, nullptr);
        if (check.count_ != root.count) {
            check.note("the count is not the number of nodes");
        }
        return check.fault_;
    }

    static int height(const arbt_node_t* node) {
        if (node == nullptr) {
            return 0;
        }
        const int left = height(node->left);
        const int right = height(node->right);
        return 1 + (left > right ? left : right);
    }

private:
    void note(const char* fault) { fault_ = fault_.empty() ? fault : fault_; }

    int black_height(const arbt_node_t* node, const arbt_node_t* parent) {
        if (node == nullptr) {
            return 0;
        }
        if (parent_of(node) != parent) {
            note("a node does not name its parent");
            return 0;
        }
        if (is_red(node) && is_red(parent)) {
            note("a red node has a red child");
        }
        const int left = black_height(node->left, node);
        visit(node);
        const int right = black_height(node->right, node);
        if (left != right) {
            note("the ways down differ in black nodes");
        }
        return left + (is_red(node) ? 0 : 1);
    }

    void visit(const arbt_node_t* node) {
        const Numbered* record = numbered(node);
        if (count_++ > 0 && last_ >= record->number) {
            note("the nodes are out of order");
        }
        last_ = record->number;
        if (((node->parent & 2) != 0) != record->marked) {
            note("bit 1 has changed");
        }
    }

    std::string fault_;
    int count_ = 0;
    int last_ = 0;
};

// A tree as text: "(left number colour right)".
inline std::string shape(const arbt_node_t* node) {
    if (node == nullptr) {
        return ".";
    }
    return "(" + shape(node->left) + std::to_string(numbered(node)->number) + (is_red(node) ? "r" : "b") +
           shape(node->right) + ")";
}

inline std::vector<int> ascending(const arbt_root_t& root) {
    std::vector<int> numbers;
    for (const arbt_node_t* node = arbt_get_first(&root); node != nullptr; node = arbt_get_next(node)) {
        numbers.push_back(numbered(node)->number);
    }
    return numbers;
}

inline std::vector<int> descending(const arbt_root_t& root) {
    std::vector<int> numbers;
    for (const arbt_node_t* node = arbt_get_last(&root); node != nullptr; node = arbt_get_prev(node)) {
        numbers.push_back(numbered(node)->number);
    }
    return numbers;
}

}  // namespace orvil::test
