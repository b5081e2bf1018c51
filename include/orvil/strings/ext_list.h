/// @file
/// CExtList, a doubly linked list of separately allocated items.
#pragma once

#include <new>

#include "orvil/strings/node_list.h"

namespace orvil::detail {

/// A node of CExtList, which owns its item.
template <typename T>
struct ItemNode {
    ItemNode* next = nullptr;
    ItemNode* prev = nullptr;
    T* item = nullptr;

    ItemNode() = default;
    ItemNode(const ItemNode&) = delete;
    ItemNode& operator=(const ItemNode&) = delete;
    ~ItemNode() { delete item; }
};

}  // namespace orvil::detail

/// A doubly linked list of items of type @p T, walked by opaque positions. Nodes point to heap items that the list owns
/// and deletes, so items of classes derived from T can be held when T's destructor is virtual.
///
/// A position stays valid until its node is removed; it must be one of this list's own (not checked). Members take
/// constant time, RemoveAll() and the destructor linear time. T is copied by AddTail() and AddHead() only. No member
/// throws. Not copyable: copying items as T would cut off what derived classes add. Not for use by several threads at a
/// time.
/// @code
/// CExtList<Shape> shapes;
/// shapes.AddTailPtr(new (std::nothrow) Circle(2.0));
/// for (__pos* pos = shapes.GetHeadPosition(); pos != nullptr;) {
///     shapes.GetNext(pos)->Draw();
/// }
/// @endcode
template <typename T>
class CExtList : public orvil::detail::NodeList<orvil::detail::ItemNode<T>> {
    using Node = orvil::detail::ItemNode<T>;
    using Base = orvil::detail::NodeList<Node>;

public:
    /// An empty list.
    CExtList() = default;
    CExtList(const CExtList&) = delete;
    CExtList& operator=(const CExtList&) = delete;
    /// Deletes every item.
    virtual ~CExtList() { Base::RemoveAll(); }

    /// @return the item at @p pos, which stays the list's own; null for a null @p pos
    T* GetAt(__pos* pos) const { return pos == nullptr ? nullptr : Base::ToNode(pos)->item; }

    /// Moves @p pos on to the following node, null behind the tail.
    /// @return the item at the former @p pos; null when it was null
    T* GetNext(__pos*& pos) const {
        T* item = GetAt(pos);
        pos = pos == nullptr ? nullptr : Base::ToPosition(Base::ToNode(pos)->next);
        return item;
    }

    /// Moves @p pos back to the preceding node, null before the head.
    /// @return the item at the former @p pos; null when it was null
    T* GetPrev(__pos*& pos) const {
        T* item = GetAt(pos);
        pos = pos == nullptr ? nullptr : Base::ToPosition(Base::ToNode(pos)->prev);
        return item;
    }

    /// Appends a copy of @p item.
    /// @return its position; null when there is no memory
    __pos* AddTail(const T& item) { return Adopt(new (std::nothrow) T(item), Base::tail_, nullptr); }

    /// Prepends a copy of @p item.
    /// @return its position; null when there is no memory
    __pos* AddHead(const T& item) { return Adopt(new (std::nothrow) T(item), nullptr, Base::head_); }

    /// Appends @p item itself, made with `new` by the same module, which becomes the list's own.
    /// @return its position; null when there is no memory or @p item is null. The item stays the caller's then.
    __pos* AddTailPtr(T* item) {
        Node* node = item == nullptr ? nullptr : Base::InsertNode(Base::tail_, nullptr);
        if (node != nullptr) {
            node->item = item;
        }
        return Base::ToPosition(node);
    }

private:
    // Deletes the item when there is no node for it.
    __pos* Adopt(T* item, Node* prev, Node* next) {
        Node* node = item == nullptr ? nullptr : Base::InsertNode(prev, next);
        if (node == nullptr) {
            delete item;
            return nullptr;
        }
        node->item = item;
        return Base::ToPosition(node);
    }
};
