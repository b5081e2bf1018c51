/// @file
/// The chain of nodes that CExtStrList and CExtList have in common. Hosts include those.
#pragma once

#include <cstdlib>
#include <new>

/// A position in a list: a pointer to one of its nodes. Null is no position. A position stays valid until its node is
/// removed.
struct __pos;

namespace orvil::detail {

/// A doubly linked chain that owns its nodes. A Node has the members `next` and `prev`, is made without an exception by
/// its default constructor, and releases what it holds when it is destroyed. Nodes' memory comes from the C runtime.
template <typename Node>
class NodeList {
public:
    /// @return the number of nodes
    int GetCount() const { return count_; }
    /// @return whether there is no node
    bool IsEmpty() const { return count_ < 1; }
    /// @return the first node's position; null for an empty list
    __pos* GetHeadPosition() const { return ToPosition(head_); }
    /// @return the last node's position; null for an empty list
    __pos* GetTailPosition() const { return ToPosition(tail_); }

    /// Removes the node at @p pos, which must be one of this list's.
    /// @return false when @p pos is null
    bool RemoveAt(__pos* pos) {
        Node* node = ToNode(pos);
        if (node == nullptr) {
            return false;
        }
        (node->prev != nullptr ? node->prev->next : head_) = node->next;
        (node->next != nullptr ? node->next->prev : tail_) = node->prev;
        return FreeNode(node);
    }
    /// Removes the first node. @return false for an empty list
    bool RemoveHead() { return RemoveAt(GetHeadPosition()); }
    /// Removes the last node. @return false for an empty list
    bool RemoveTail() { return RemoveAt(GetTailPosition()); }
    /// Releases every node. @return true
    bool RemoveAll() {
        while (head_ != nullptr) {
            Node* node = head_;
            head_ = node->next;
            FreeNode(node);
        }
        tail_ = nullptr;
        count_ = 0;
        return true;
    }

protected:
    NodeList() = default;
    ~NodeList() = default;
    NodeList(const NodeList&) = delete;
    NodeList& operator=(const NodeList&) = delete;

    /// Makes a node with these links and counts it. The neighbours are not linked to it.
    /// @return the node, or null when there is no memory
    Node* NewNode(Node* prev, Node* next) {
        void* memory = std::malloc(sizeof(Node));
        if (memory == nullptr) {
            return nullptr;
        }
        Node* node = new (memory) Node();
        node->prev = prev;
        node->next = next;
        ++count_;
        return node;
    }

    /// Releases a node, which is no longer linked, and takes it off the count. A null node is taken off the count too.
    /// @return true
    bool FreeNode(Node* node) {
        if (node != nullptr) {
            node->~Node();
            std::free(node);
        }
        --count_;
        return true;
    }

    /// Makes a node between two neighbours, null at the ends, and links it. @return the node, or null when there is no
    /// memory
    Node* InsertNode(Node* prev, Node* next) {
        Node* node = NewNode(prev, next);
        if (node != nullptr) {
            (prev != nullptr ? prev->next : head_) = node;
            (next != nullptr ? next->prev : tail_) = node;
        }
        return node;
    }

    /// @return the position of @p node
    static __pos* ToPosition(Node* node) { return reinterpret_cast<__pos*>(node); }
    /// @return the node at @p pos
    static Node* ToNode(__pos* pos) { return reinterpret_cast<Node*>(pos); }

    Node* head_ = nullptr;  ///< first node or null
    Node* tail_ = nullptr;  ///< last node or null
    int count_ = 0;         ///< number of nodes
};

}  // namespace orvil::detail
