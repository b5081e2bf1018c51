// The grammar of token-block text, by descent without recursion: the blocks that are open at a time stand on a stack.
#pragma once

#include "orvil/strings/ext_string.h"
#include "orvil/tokens/lex_token_block.h"
#include "orvil/tokens/stream_mem_file.h"
#include "tokens/block_access.h"
#include "tokens/token_scanner.h"
#include "tokens/walk_stack.h"

namespace orvil::detail {

// Reads from an open stream into trees. Messages are complete when finish() has been called or the object has gone.
class BlockParser {
public:
    enum class Outcome {
        kDone,    // the closing brace, the end of the file, or a fault in a block inside
        kFault,   // a fault among the entries of the block itself
        kCutOff,  // such a fault: an assignment that the end of the file cuts off, and a message tells of it
    };

    BlockParser(CStreamMemFile& stream, CExtString& message, bool keep_comments)
        : scanner_(stream, keep_comments), stream_(stream), message_(message), keep_comments_(keep_comments) {}
    ~BlockParser();
    BlockParser(const BlockParser&) = delete;
    BlockParser& operator=(const BlockParser&) = delete;

    // entry*, with the brace that ends them or up to the end of the file.
    Outcome parse_block(CLexTokenBlock& target);

    // token*, with the semicolon that ends them. False on a fault.
    bool parse_values(CLexTokenBlock& assignment);

    // The next token that is neither empty nor a dropped comment; false at the end of the file and on a lexical fault.
    // `room` as for TokenScanner.
    bool read(CLexToken& token, char* room = nullptr);

    bool out_of_memory() { return out_of_memory_ || scanner_.out_of_memory(); }

    // Writes the message that has been put off.
    void finish();

private:
    enum class Step { kEntry, kEnd, kFault };

    CLexTokenBlock& innermost() { return open_.empty() ? *target_ : *open_.top(); }
    NodePtr read_node();

    Step parse_entry();
    Step parse_meta(NodePtr token);
    Step parse_value(NodePtr token);
    Step parse_named(NodePtr name);
    Step parse_assignment(NodePtr name, NodePtr equals);
    Step open_block(NodePtr name, NodePtr brace);
    Step hang_in(NodePtr entry);
    bool add(CLexTokenBlock& block, NodePtr& token);

    Step close_block();
    void drop_block();

    Step fault(const char* format, const char* text);
    Step memory_fault(const char* format, const CLexToken* token);

    TokenScanner scanner_;
    CStreamMemFile& stream_;
    CExtString& message_;
    const bool keep_comments_;
    const bool roomy_ = nodes_have_room();
    CLexTokenBlock* target_ = nullptr;
    WalkStack<CLexTokenBlock*> open_;  // owned; each becomes a child of the one below it when it is complete
    NodePtr spare_;                    // where the next token is read into
    char stray_ = 0;                   // the character of a message that has been put off
    bool silent_ = false;              // the last read failed at the end of the file without a text
    bool cut_off_ = false;             // an assignment has met the end of the file, so nothing follows
    bool out_of_memory_ = false;
};

}  // namespace orvil::detail
