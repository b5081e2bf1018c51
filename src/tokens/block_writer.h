// The layout of token-block text, without recursion: the blocks that are open at a time stand on a stack.
#pragma once

#include <cstddef>

#include "orvil/tokens/lex_token_block.h"
#include "orvil/tokens/stream_mem_file.h"
#include "tokens/lead_bytes.h"
#include "tokens/output_text.h"
#include "tokens/walk_stack.h"

namespace orvil::detail {

// How a level is indented.
struct Indentation {
    int width;
    bool use_tab;

    // Nothing for levels below 1.
    void append_to(OutputText& out, int level) const;
};

// Writes trees into an open stream. Every function gives false at the first token without a written form and when the
// stream does not take the text.
class BlockWriter {
public:
    BlockWriter(CStreamMemFile& stream, int& level, Indentation indentation)
        : stream_(stream), level_(level), indentation_(indentation) {}

    // A node of any form, in lines of its own.
    bool write_entry(const CLexTokenBlock& node);
    bool write_assignment(const CLexTokenBlock& node);
    bool write_listing(const CLexTokenBlock& node);

    // A token alone, without indentation.
    bool write_token(const CLexToken& token);

private:
    // A block whose children are being written. Its pending line consists of an indentation and of the end of tails_.
    struct OpenBlock {
        const CLexTokenBlock* node;
        int next;
        int pending_level;
        std::size_t tail;
    };

    bool write_other(const CLexTokenBlock& node);
    bool begin_block(const CLexTokenBlock& node);
    bool add_plain(OpenBlock& block, const CLexTokenBlock& token);
    bool end_block(const OpenBlock& block);
    bool write_pending(const OpenBlock& block, const char* end);
    bool end_line(bool with_line_end);

    CStreamMemFile& stream_;
    int& level_;
    const Indentation indentation_;
    const LeadBytes lead_bytes_;
    OutputText line_;
    OutputText tails_;
    WalkStack<OpenBlock> open_;
};

}  // namespace orvil::detail
