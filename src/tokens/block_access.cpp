#include "tokens/block_access.h"

#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

#include "runtime/node_memory.h"
#include "tokens/token_access.h"
#include "tokens/token_key.h"
#include "tokens/walk_stack.h"

namespace orvil::detail {
namespace {

constexpr int kUnset = -1;

struct Place {
    const CLexTokenBlock* node;
    int next;
};

struct CopyStep {
    const CLexTokenBlock* source;
    CLexTokenBlock* target;
    int next;
};

}  // namespace

// Hosts rely on the layout. What is known of the closing brace lies in padding.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
constexpr bool BlockAccess::has_promised_layout() {
    using Node = CLexTokenBlock;
    return sizeof(Node) == 88 && offsetof(Node, children_) == 48 && offsetof(Node, grammar_type_) == 72 &&
           offsetof(Node, no_write_delimiter_) == 76 && offsetof(Node, closed_) == 77 && offsetof(Node, parent_) == 80;
}
#pragma GCC diagnostic pop
static_assert(BlockAccess::has_promised_layout());

// --- searching ------------------------------------------------------------------------------------------------------

int BlockAccess::find_block(const CLexTokenBlock& node, const char* name, int start) {
    const TokenKey key(eTokenSymbol, name);
    for (int i = start < 0 ? 0 : start; i < count(node); ++i) {
        const CLexTokenBlock& entry = *child(node, i);
        if (entry.IsBlockType() && key.matches(entry)) {
            return i;
        }
    }
    return -1;
}

int BlockAccess::find_assignment(const CLexTokenBlock& node, const char* name, const CLexTokenBlock*& holder) {
    const TokenKey key(eTokenSymbol, name);
    WalkStack<Place> places;
    bool memory = places.push({&node, 0});
    while (memory && !places.empty()) {
        Place& place = places.top();
        if (place.next == count(*place.node)) {
            places.pop();
            continue;
        }
        const int index = place.next++;
        const CLexTokenBlock& entry = *child(*place.node, index);
        if (entry.IsAssignType() && (key.any_text() || key.matches(entry))) {
            holder = place.node;
            return index;
        }
        if (entry.IsBlockType() && count(entry) > 0) {
            memory = places.push({&entry, 0});
        }
    }
    return -1;
}

int BlockAccess::find_closing_brace(const CLexTokenBlock& block) {
    using Closing = CLexTokenBlock::Closing;
    const int last = count(block) - 1;
    if (block.closing_ == Closing::kLast) {
        return last;
    }
    int index = 0;
    while (index <= last && !is_meta(*child(block, index), '}')) {
        ++index;
    }
    if (index > last) {
        return -1;
    }
    if (index == last && block.closing_ == Closing::kUnknown) {
        block.closing_ = Closing::kLast;
    }
    return index;
}

// --- making nodes ---------------------------------------------------------------------------------------------------

NodePtr BlockAccess::make() {
    return NodePtr(new (std::nothrow) CLexTokenBlock);
}

NodePtr BlockAccess::make_roomy() {
    void* memory = nodes.allocate_dirty(sizeof(CLexTokenBlock) + kTextRoom);
    return NodePtr(memory == nullptr ? nullptr : new (memory) CLexTokenBlock);
}

NodePtr BlockAccess::make(ETokenKind kind, const char* text) {
    NodePtr node = make();
    return node != nullptr && node->Create(text, kUnset, kUnset, false, kind) ? std::move(node) : nullptr;
}

NodePtr BlockAccess::make_meta(char c) {
    NodePtr node = make();
    return node != nullptr && node->Create(static_cast<EMetaCharacter>(c), kUnset, kUnset) ? std::move(node) : nullptr;
}

NodePtr BlockAccess::wrap(const CLexToken& token) {
    NodePtr node = make();
    return node != nullptr && node->CLexToken::CopyData(token) ? std::move(node) : nullptr;
}

NodePtr BlockAccess::copy_tree(const CLexTokenBlock& source) {
    const auto copy_alone = [](const CLexTokenBlock& original) {
        NodePtr copy = wrap(original);
        if (copy != nullptr) {
            copy->grammar_type_ = original.grammar_type_;
            copy->no_write_delimiter_ = original.no_write_delimiter_;
            copy->closed_ = original.closed_;
        }
        return copy;
    };
    NodePtr root = copy_alone(source);
    WalkStack<CopyStep> steps;
    if (root == nullptr || !steps.push({&source, root.get(), 0})) {
        return nullptr;
    }
    while (!steps.empty()) {
        CopyStep& step = steps.top();
        if (step.next == count(*step.source)) {
            steps.pop();
            continue;
        }
        const CLexTokenBlock& original = *child(*step.source, step.next++);
        NodePtr copy = copy_alone(original);
        CLexTokenBlock* below = copy.get();
        if (append(*step.target, copy) < 0 || (count(original) > 0 && !steps.push({&original, below, 0}))) {
            return nullptr;
        }
    }
    return root;
}

// --- changing nodes -------------------------------------------------------------------------------------------------

int BlockAccess::insert(CLexTokenBlock& parent, int index, NodePtr& node) {
    const int size = count(parent);
    const bool at_end = index < 0 || index >= size;
    if (node == nullptr ||
        !(at_end ? parent.children_.AddAdopted(node.get()) : parent.children_.InsertAdopted(index, node.get()))) {
        return -1;
    }
    if (parent.closing_ == CLexTokenBlock::Closing::kLast && (at_end || is_meta(*node, '}'))) {
        parent.closing_ = CLexTokenBlock::Closing::kUnknown;
    }
    node.release()->parent_ = &parent;
    return at_end ? size : index;
}

void BlockAccess::clear(CLexTokenBlock& node) {
    node.Initialize();
    node.DeleteAllBlocks();
    node.no_write_delimiter_ = false;
}

int BlockAccess::add_entry(CLexTokenBlock& block, NodePtr entry) {
    if (!block.closed_) {
        return append(block, entry);
    }
    const int brace = block.IsBlockType() ? find_closing_brace(block) : -1;
    return brace < 0 ? -1 : insert(block, brace, entry);
}

void BlockAccess::take_content(CLexTokenBlock& target, CLexTokenBlock& source) {
    TokenAccess::swap(target, source);
    target.children_.Swap(source.children_);
    std::swap(target.grammar_type_, source.grammar_type_);
    std::swap(target.no_write_delimiter_, source.no_write_delimiter_);
    std::swap(target.closed_, source.closed_);
    target.closing_ = CLexTokenBlock::Closing::kUnknown;
    for (int i = 0; i < count(target); ++i) {
        target.children_.GetAt(i)->parent_ = &target;
    }
    release_children(source);
}

bool BlockAccess::become_block(CLexTokenBlock& node, NodePtr name) {
    clear(node);
    if (name == nullptr || append(node, make_meta('{')) < 0 || append(node, make_meta('}')) < 0) {
        release_children(node);
        return false;
    }
    take_name(node, *name, eGrammerBlock);
    node.closing_ = CLexTokenBlock::Closing::kLast;
    return true;
}

bool BlockAccess::become_assignment(CLexTokenBlock& node, NodePtr name, NodePtr value) {
    clear(node);
    if (name == nullptr || append(node, make_meta('=')) < 0 || append(node, value) < 0 ||
        append(node, make_meta(';')) < 0) {
        release_children(node);
        return false;
    }
    take_name(node, *name, eGrammerAssign);
    return true;
}

void BlockAccess::take_name(CLexTokenBlock& node, CLexTokenBlock& name, EGrammerType form) {
    TokenAccess::swap(node, name);
    node.grammar_type_ = form;
    node.closed_ = true;
}

namespace {

// A tree is made from its first node to its last and released from the last to the first. Nodes that are made one after
// the other lie one behind the other as a rule, and so do their slots. Asking for those that will be released soon
// makes releasing a large tree more than twice as fast; where the rule does not hold, nothing is lost.
constexpr std::uintptr_t kCacheLine = 64;

// Asks for what will be read later, at a distance in front of a block.
template <int Cache>
void fetch_in_front(const void* block, std::uintptr_t distance) {
    constexpr int kForReading = 0;
    __builtin_prefetch(reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(block) - distance), kForReading,
                       Cache);
}

// In two steps: from memory into the larger caches, since the smallest would not keep it so long, and from there into
// the smallest just before it is read.
constexpr int kInLargerCaches = 2;
constexpr int kInEveryCache = 3;

void fetch_nodes_in_front(const void* node) {
    constexpr std::uintptr_t far_ahead = 6144;
    constexpr std::uintptr_t near_ahead = 960;
    fetch_in_front<kInLargerCaches>(node, far_ahead);
    fetch_in_front<kInLargerCaches>(node, far_ahead - kCacheLine);
    fetch_in_front<kInEveryCache>(node, near_ahead);
    fetch_in_front<kInEveryCache>(node, near_ahead - kCacheLine);
}

void fetch_slots_in_front(const void* slots) {
    constexpr std::uintptr_t far_ahead = 640;
    constexpr std::uintptr_t near_ahead = 320;
    fetch_in_front<kInLargerCaches>(slots, far_ahead);
    fetch_in_front<kInEveryCache>(slots, near_ahead);
}

}  // namespace

// Ends a node whose children and slots have gone. Memory is taken back without a destructor, which would write to a
// node that nobody looks at any more: writing takes longer than all the rest.
void BlockAccess::release_node(const CLexTokenBlock* node) {
    fetch_nodes_in_front(node);
    TokenAccess::abandon(*node, reinterpret_cast<const char*>(node + 1));
    free_node(const_cast<CLexTokenBlock*>(node), sizeof *node);
}

// Releases nodes without slots, from the last of the first `left` children on; the first child that has slots, or null
// when none is left.
CLexTokenBlock* BlockAccess::release_leaves(const CLexTokenBlock& holder, int& left) {
    CLexTokenBlock* const* slots = holder.children_.Slots();
    while (left > 0) {
        CLexTokenBlock* child = slots[--left];
        if (child == nullptr) {
            continue;
        }
        if (child->children_.Slots() != nullptr) {
            return child;
        }
        release_node(child);
    }
    return nullptr;
}

void BlockAccess::release_slots(const CLexTokenBlock& holder) {
    fetch_slots_in_front(holder.children_.Slots());
    holder.children_.AbandonSlots();
}

// Goes down into the last child that has slots, and climbs when none is left. The parent is set afresh on the way down,
// and the size says where to go on. Nodes of a tree are made by the library and are of this very class.
void BlockAccess::release_children(CLexTokenBlock& node) {
    CLexTokenBlock* holder = &node;
    for (;;) {
        int left = count(*holder);
        CLexTokenBlock* below = release_leaves(*holder, left);
        if (below != nullptr) {
            holder->children_.ForgetFrom(left);
            if (below->parent_ != holder) {
                below->parent_ = holder;
            }
            holder = below;
        } else if (holder != &node) {
            CLexTokenBlock* above = holder->parent_;
            release_slots(*holder);
            release_node(holder);
            holder = above;
        } else {
            node.children_.ForgetFrom(0);
            node.children_.ReleaseSlots();
            return;
        }
    }
}

}  // namespace orvil::detail
