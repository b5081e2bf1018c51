#include "tokens/block_parser.h"

#include <utility>

#include "tokens/token_key.h"

namespace orvil::detail {
namespace {

constexpr const char* kNoTerminator = "Not found Expressio-Terminator token. Assign value = [%s]\n";
constexpr const char* kStrayCharacter = "Not Suppoerted. MetaChar [%c]\n";
constexpr const char* kWrongCharacter = "Not supported grammer. Metachar:%s\n";
constexpr const char* kWrongToken = "Not supported grammer. Token:%s\n";
constexpr const char* kTokenNotStored = "Memory Error. parsed[%s]\n";
constexpr const char* kEntryNotStored = "Memory Error. parsed [%s]\n";

}  // namespace

BlockParser::~BlockParser() {
    finish();
}

// entry* `}`
//
// A fault drops the block in which it stands and ends the one around it, which is kept as it stands.
BlockParser::Outcome BlockParser::parse_block(CLexTokenBlock& target) {
    target_ = &target;
    for (;;) {
        Step step = parse_entry();
        while (step != Step::kEntry) {
            if (open_.empty()) {
                return step == Step::kEnd ? Outcome::kDone : cut_off_ ? Outcome::kCutOff : Outcome::kFault;
            }
            if (step == Step::kFault) {
                drop_block();
                if (open_.empty()) {
                    return Outcome::kDone;
                }
            }
            step = close_block();
        }
    }
}

// entry: assignment | block | value | stray. The end of the file ends a block as its brace does.
BlockParser::Step BlockParser::parse_entry() {
    if (stream_.IsEof()) {
        return Step::kEnd;
    }
    NodePtr token = read_node();
    if (token == nullptr) {
        return Step::kFault;
    }
    switch (token->GetTokenKind()) {
        case eTokenMetaChar:
            return parse_meta(std::move(token));
        case eTokenSymbol:
            return parse_named(std::move(token));
        default:
            return parse_value(std::move(token));
    }
}

// `}` | stray. A closed block takes neither, and nothing is said about it.
BlockParser::Step BlockParser::parse_meta(NodePtr token) {
    CLexTokenBlock& block = innermost();
    const char c = token->GetString()[0];
    if (!BlockAccess::is_closed(block) && !BlockAccess::grow(block, token)) {
        return memory_fault(kTokenNotStored, token.get());
    }
    if (c == '}') {
        return Step::kEnd;
    }
    stray_ = c;
    return Step::kEntry;
}

// value: any token but a symbol and a meta character
BlockParser::Step BlockParser::parse_value(NodePtr token) {
    return add(innermost(), token) ? Step::kEntry : memory_fault(kTokenNotStored, token.get());
}

// assignment: SYMBOL `=` token* `;`    block: SYMBOL `{` entry* `}`
BlockParser::Step BlockParser::parse_named(NodePtr name) {
    NodePtr next = read_node();
    if (next == nullptr) {
        return Step::kFault;
    }
    if (is_meta(*next, '=')) {
        return parse_assignment(std::move(name), std::move(next));
    }
    if (is_meta(*next, '{')) {
        return open_block(std::move(name), std::move(next));
    }
    return fault(next->IsMetaCharToken() ? kWrongCharacter : kWrongToken, next->GetString());
}

BlockParser::Step BlockParser::parse_assignment(NodePtr name, NodePtr equals) {
    BlockAccess::set_form(*name, eGrammerAssign);
    if (!BlockAccess::grow(*name, equals)) {
        return memory_fault(kTokenNotStored, equals.get());
    }
    return parse_values(*name) ? hang_in(std::move(name)) : Step::kFault;
}

BlockParser::Step BlockParser::open_block(NodePtr name, NodePtr brace) {
    BlockAccess::set_form(*name, eGrammerBlock);
    if (!BlockAccess::grow(*name, brace)) {
        return memory_fault(kTokenNotStored, brace.get());
    }
    if (!open_.push(name.get())) {
        return memory_fault(kEntryNotStored, name.get());
    }
    static_cast<void>(name.release());
    return Step::kEntry;
}

bool BlockParser::parse_values(CLexTokenBlock& assignment) {
    for (;;) {
        NodePtr token = read_node();
        if (token == nullptr) {
            if (silent_) {
                fault(kNoTerminator, assignment.GetString());
                cut_off_ = true;
            }
            return false;
        }
        const bool last = is_meta(*token, ';');
        if (!add(assignment, token)) {
            memory_fault(kTokenNotStored, token.get());
            return false;
        }
        if (last) {
            return true;
        }
    }
}

// --- the open blocks ------------------------------------------------------------------------------------------------

BlockParser::Step BlockParser::close_block() {
    NodePtr block(open_.top());
    open_.pop();
    return hang_in(std::move(block));
}

void BlockParser::drop_block() {
    delete open_.top();
    open_.pop();
}

BlockParser::Step BlockParser::hang_in(NodePtr entry) {
    CLexTokenBlock& block = innermost();
    if (BlockAccess::is_closed(block)) {
        return fault(kWrongCharacter, entry->GetString());
    }
    return BlockAccess::grow(block, entry) ? Step::kEntry : memory_fault(kEntryNotStored, entry.get());
}

bool BlockParser::add(CLexTokenBlock& block, NodePtr& token) {
    return !BlockAccess::is_closed(block) && BlockAccess::grow(block, token);
}

// --- tokens and messages --------------------------------------------------------------------------------------------

// Null on a failure to read. The node in which a dropped token stood serves the next one.
NodePtr BlockParser::read_node() {
    NodePtr node = spare_ != nullptr ? std::move(spare_) : roomy_ ? BlockAccess::make_roomy() : BlockAccess::make();
    if (node == nullptr) {
        silent_ = false;
        memory_fault(kTokenNotStored, nullptr);
        return nullptr;
    }
    if (!read(*node, roomy_ ? BlockAccess::room(*node) : nullptr)) {
        spare_ = std::move(node);
        return nullptr;
    }
    return node;
}

bool BlockParser::read(CLexToken& token, char* room) {
    for (;;) {
        silent_ = stream_.IsEof();
        if (silent_) {
            return false;
        }
        if (!scanner_.next(token, room)) {
            message_ = scanner_.information();
            stray_ = 0;
            silent_ = message_.IsEmpty() && stream_.IsEof() && !out_of_memory();
            return false;
        }
        if (token.IsEmptyToken()) {
            if (keep_comments_) {
                message_.Empty();
                stray_ = 0;
            }
        } else if (keep_comments_ || !(token.IsCommentToken() || token.IsSingleCommentToken())) {
            return true;
        }
    }
}

BlockParser::Step BlockParser::fault(const char* format, const char* text) {
    message_.Format(format, text);
    stray_ = 0;
    return Step::kFault;
}

BlockParser::Step BlockParser::memory_fault(const char* format, const CLexToken* token) {
    out_of_memory_ = true;
    return fault(format, token == nullptr ? "" : token->GetString());
}

void BlockParser::finish() {
    if (stray_ != 0) {
        message_.Format(kStrayCharacter, stray_);
        stray_ = 0;
    }
}

}  // namespace orvil::detail
