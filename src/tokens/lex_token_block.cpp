#include "orvil/tokens/lex_token_block.h"

#include <new>
#include <utility>

#include "runtime/node_memory.h"
#include "tokens/block_access.h"
#include "tokens/token_key.h"

using orvil::detail::allocate_node;
using orvil::detail::BlockAccess;
using orvil::detail::free_node;
using orvil::detail::NodePtr;
using orvil::detail::TokenKey;

// --- life -----------------------------------------------------------------------------------------------------------

CLexTokenBlock::CLexTokenBlock() = default;

CLexTokenBlock::CLexTokenBlock(const CLexToken& token) : CLexToken(token) {
}

// NOLINTNEXTLINE(bugprone-copy-constructor-init): CopyData() copies the token too, or nothing
CLexTokenBlock::CLexTokenBlock(const CLexTokenBlock& source) : CLexToken() {
    CopyData(source);
}

CLexTokenBlock& CLexTokenBlock::operator=(const CLexTokenBlock& source) {
    CopyData(source);
    return *this;
}

CLexTokenBlock::~CLexTokenBlock() {
    if (BlockAccess::count(*this) > 0) {
        BlockAccess::release_children(*this);
    }
}

void* CLexTokenBlock::operator new(std::size_t size) noexcept {
    return allocate_node(size);
}

void* CLexTokenBlock::operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocate_node(size);
}

void CLexTokenBlock::operator delete(void* block) noexcept {
    free_node(block);
}

void CLexTokenBlock::operator delete(void* block, const std::nothrow_t&) noexcept {
    free_node(block);
}

bool CLexTokenBlock::CopyData(const CLexTokenBlock& source) {
    if (this == &source) {
        return true;
    }
    const NodePtr copy = BlockAccess::copy_tree(source);
    if (copy == nullptr) {
        return false;
    }
    BlockAccess::take_content(*this, *copy);
    return true;
}

CLexTokenBlock* CLexTokenBlock::GetCopy() const {
    return BlockAccess::copy_tree(*this).release();
}

// --- the form -------------------------------------------------------------------------------------------------------

void CLexTokenBlock::SetupGrammerType(EGrammerType type) {
    if (!closed_) {
        grammar_type_ = type;
    }
}

EGrammerType CLexTokenBlock::QueryGrammerType() const {
    return grammar_type_;
}

bool CLexTokenBlock::IsAssignType() const {
    return grammar_type_ == eGrammerAssign;
}

bool CLexTokenBlock::IsBlockType() const {
    return grammar_type_ == eGrammerBlock;
}

bool CLexTokenBlock::IsListingType() const {
    return grammar_type_ == eGrammerListing;
}

bool CLexTokenBlock::IsInvalidType() const {
    return grammar_type_ == eGrammerInvalid;
}

void CLexTokenBlock::SetNoWriteDelimiter(bool noWriteDelimiter) {
    no_write_delimiter_ = noWriteDelimiter;
}

bool CLexTokenBlock::IsNoWriteDelimiter() const {
    return no_write_delimiter_;
}

// --- children -------------------------------------------------------------------------------------------------------

int CLexTokenBlock::GetBlockCount() const {
    return children_.GetSize();
}

CLexTokenBlock* CLexTokenBlock::GetAt(int index) const {
    BlockAccess::expose(*this);
    return children_.GetAt(index);
}

CLexTokenBlock* CLexTokenBlock::GetParentBlock() const {
    if (parent_ != nullptr && parent_->parent_ != nullptr) {
        BlockAccess::expose(*parent_->parent_);
    }
    return parent_;
}

bool CLexTokenBlock::DeleteAllBlocks() {
    BlockAccess::release_children(*this);
    grammar_type_ = eGrammerInvalid;
    closed_ = false;
    closing_ = Closing::kUnknown;
    parent_ = nullptr;
    return true;
}

int CLexTokenBlock::AddToken(const CLexToken& token) {
    return closed_ ? -1 : BlockAccess::append(*this, BlockAccess::wrap(token));
}

int CLexTokenBlock::AddBlock(const CLexTokenBlock& block) {
    return closed_ ? -1 : BlockAccess::append(*this, BlockAccess::copy_tree(block));
}

int CLexTokenBlock::InsertBlockEntityBlock(const CLexTokenBlock& block) {
    if (!closed_ || !IsBlockType()) {
        return -1;
    }
    const int brace = BlockAccess::find_closing_brace(*this);
    return brace < 0 ? -1 : InsertBlockArray(brace, &block);
}

int CLexTokenBlock::InsertBlockEntityToken(const CLexToken& token) {
    return closed_ ? -1 : InsertBlockEntityBlock(CLexTokenBlock(token));
}

int CLexTokenBlock::InsertBlockArray(int index, const CLexTokenBlock* block) {
    return block == nullptr ? -1 : BlockAccess::insert(*this, index, BlockAccess::copy_tree(*block));
}

// --- searching ------------------------------------------------------------------------------------------------------

int CLexTokenBlock::SearchTokenBlockIndex(ETokenKind kind, const char* text, int start) const {
    const TokenKey key(kind, text);
    for (int i = start < 0 ? 0 : start; i < children_.GetSize(); ++i) {
        if (key.matches(*children_.GetAt(i))) {
            return i;
        }
    }
    return -1;
}

CLexTokenBlock* CLexTokenBlock::FindTokenBlockEntity(const char* name) const {
    const int index = IsBlockType() ? BlockAccess::find_block(*this, name, 0) : -1;
    return index < 0 ? nullptr : GetAt(index);
}

CLexTokenBlock* CLexTokenBlock::FindAssignmentBlockEntity(const char* name) const {
    const CLexTokenBlock* holder = nullptr;
    const int index = BlockAccess::find_assignment(*this, name, holder);
    return index < 0 ? nullptr : holder->GetAt(index);
}
