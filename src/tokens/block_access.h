// What the library may do with the nodes of a tree beyond their public members: nodes are built in place and hung in
// without being copied, and looked at without counting as handed out.
#pragma once

#include <memory>

#include "orvil/tokens/lex_token_block.h"

namespace orvil::detail {

using NodePtr = std::unique_ptr<CLexTokenBlock>;

struct BlockAccess {
    static bool is_closed(const CLexTokenBlock& node) { return node.closed_; }
    static int count(const CLexTokenBlock& node) { return node.children_.GetSize(); }
    static const CLexTokenBlock* child(const CLexTokenBlock& node, int i) { return node.children_.GetAt(i); }

    // Notes that a pointer to a child leaves the library. What is known of an open node's closing brace needs no care:
    // only clearing and copying close a node, and both begin with other children.
    static void expose(const CLexTokenBlock& node) {
        if (node.closed_) {
            node.closing_ = CLexTokenBlock::Closing::kExposed;
        }
    }

    // --- searching; -1 when there is none ---------------------------------------------------------------------------

    // The index of the first block child of this name at or after `start`. Null and empty names stand for any symbol.
    static int find_block(const CLexTokenBlock& node, const char* name, int start);

    // The index of the first assignment of this name, in document order and at any depth, among the children of
    // `holder`. Null and empty names stand for any assignment.
    static int find_assignment(const CLexTokenBlock& node, const char* name, const CLexTokenBlock*& holder);

    // The index of the first `}` of a closed block.
    static int find_closing_brace(const CLexTokenBlock& block);

    // --- making nodes; null when there is no memory -----------------------------------------------------------------

    static NodePtr make();
    // One with room for a short text behind it, where nodes_have_room().
    static NodePtr make_roomy();
    static char* room(CLexTokenBlock& node) { return reinterpret_cast<char*>(&node + 1); }
    static NodePtr make(ETokenKind kind, const char* text);
    static NodePtr make_meta(char c);
    static NodePtr wrap(const CLexToken& token);
    static NodePtr copy_tree(const CLexTokenBlock& source);

    // --- changing nodes ---------------------------------------------------------------------------------------------

    // Hangs a node in before the child at `index`, or at the end when there is none; its index. -1 when there is no
    // node or no memory; then the node stays the caller's and nothing has changed.
    static int insert(CLexTokenBlock& parent, int index, NodePtr& node);
    static int insert(CLexTokenBlock& parent, int index, NodePtr&& node) { return insert(parent, index, node); }
    static int append(CLexTokenBlock& parent, NodePtr& node) { return insert(parent, -1, node); }
    static int append(CLexTokenBlock& parent, NodePtr&& node) { return insert(parent, -1, node); }

    // Hangs a node in at the end of a node that is being parsed. False when there is no memory; then the node stays
    // the caller's.
    static bool grow(CLexTokenBlock& parent, NodePtr& node) {
        CExtArray<CLexTokenBlock>& children = parent.children_;
        if (!(children.Slots() == nullptr ? children.StartAdopted(node.get()) : children.AddAdopted(node.get()))) {
            return false;
        }
        node.release()->parent_ = &parent;
        parent.closing_ = CLexTokenBlock::Closing::kUnknown;
        return true;
    }

    // Makes the node as fresh as the default constructor does.
    static void clear(CLexTokenBlock& node);

    // Adds an entry before the closing brace of a closed block, and at the end of an open node; -1 when the node takes
    // no entries or there is no memory.
    static int add_entry(CLexTokenBlock& block, NodePtr entry);

    // Moves token, children, form and flags of `source` into a node whose own are released. The parents stay.
    static void take_content(CLexTokenBlock& target, CLexTokenBlock& source);

    // Clears the node and makes it the block or the assignment of that name, with its delimiters and, in an assignment,
    // the value between them. False when one of them is missing or there is no memory; then the node stays cleared.
    static bool become_block(CLexTokenBlock& node, NodePtr name);
    static bool become_assignment(CLexTokenBlock& node, NodePtr name, NodePtr value);

    // Deletes the children, at every depth. Takes no memory, whatever the depth.
    static void release_children(CLexTokenBlock& node);

    static void set_form(CLexTokenBlock& node, EGrammerType form) { node.grammar_type_ = form; }

    static constexpr bool has_promised_layout();

private:
    static void release_node(const CLexTokenBlock* node);
    static void release_slots(const CLexTokenBlock& holder);
    static CLexTokenBlock* release_leaves(const CLexTokenBlock& holder, int& left);
    static void take_name(CLexTokenBlock& node, CLexTokenBlock& name, EGrammerType form);
};

}  // namespace orvil::detail
