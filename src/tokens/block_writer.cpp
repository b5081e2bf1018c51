#include "tokens/block_writer.h"

#include <cctype>
#include <cstdint>

#include "tokens/block_access.h"
#include "tokens/token_key.h"
#include "tokens/written_form.h"

namespace orvil::detail {

void Indentation::append_to(OutputText& out, int level) const {
    if (level < 1) {
        return;
    }
    const std::int64_t blanks = std::int64_t{level} * (use_tab ? 1 : width);
    out.append(blanks < 0 ? 0 : static_cast<std::size_t>(blanks), use_tab ? '\t' : ' ');
}

// --- blocks ---------------------------------------------------------------------------------------------------------

bool BlockWriter::write_entry(const CLexTokenBlock& node) {
    if (!node.IsBlockType()) {
        return write_other(node);
    }
    bool written = begin_block(node);
    while (written && !open_.empty()) {
        OpenBlock& block = open_.top();
        if (block.next == BlockAccess::count(*block.node)) {
            written = end_block(block);
            open_.pop();
            continue;
        }
        const CLexTokenBlock& entry = *BlockAccess::child(*block.node, block.next++);
        if (entry.IsBlockType()) {
            written = begin_block(entry);
        } else if (entry.IsAssignType() || entry.IsListingType()) {
            written = write_other(entry);
        } else {
            written = add_plain(block, entry);
        }
    }
    return written;
}

// An empty line stands before every block.
bool BlockWriter::begin_block(const CLexTokenBlock& node) {
    if (!node.IsSymbolToken() || !end_line(true)) {
        return false;
    }
    const bool opened = open_.push({&node, 0, level_, tails_.size()});
    return opened && append_written_form(tails_, node, lead_bytes_);
}

// The braces move the level; the closing one takes the place of whatever plain tokens stood before it.
bool BlockWriter::add_plain(OpenBlock& block, const CLexTokenBlock& token) {
    if (is_meta(token, '{')) {
        const bool written = write_pending(block, " {");
        tails_.truncate(block.tail);
        block.pending_level = level_++;
        return written;
    }
    if (is_meta(token, '}')) {
        block.pending_level = --level_;
        tails_.truncate(block.tail);
        tails_.append(1, '}');
        return true;
    }
    return append_written_form(tails_, token, lead_bytes_);
}

// A pending line of white space alone is not written.
bool BlockWriter::end_block(const OpenBlock& block) {
    bool blank = true;
    for (std::size_t i = block.tail; blank && i < tails_.size(); ++i) {
        blank = std::isspace(byte_of(tails_.data()[i])) != 0;
    }
    const bool written = tails_.good() && (blank || write_pending(block, ""));
    tails_.truncate(block.tail);
    return written;
}

bool BlockWriter::write_pending(const OpenBlock& block, const char* end) {
    indentation_.append_to(line_, block.pending_level);
    line_.append(tails_.data() + block.tail, tails_.size() - block.tail);
    line_.append(end);
    return tails_.good() && end_line(true);
}

// --- lines ----------------------------------------------------------------------------------------------------------

bool BlockWriter::write_other(const CLexTokenBlock& node) {
    if (node.IsAssignType()) {
        return write_assignment(node);
    }
    if (node.IsListingType()) {
        return write_listing(node);
    }
    indentation_.append_to(line_, level_);
    return write_token(node);
}

bool BlockWriter::write_token(const CLexToken& token) {
    return append_written_form(line_, token, lead_bytes_) && end_line(true);
}

bool BlockWriter::write_assignment(const CLexTokenBlock& node) {
    indentation_.append_to(line_, level_);
    if (!append_written_form(line_, node, lead_bytes_)) {
        return false;
    }
    for (int i = 0; i < BlockAccess::count(node); ++i) {
        const CLexTokenBlock& token = *BlockAccess::child(node, i);
        if (has_form(token)) {
            break;
        }
        if (!is_meta(token, ';')) {
            line_.append(1, ' ');
        }
        if (!append_written_form(line_, token, lead_bytes_)) {
            return false;
        }
    }
    return end_line(!node.IsNoWriteDelimiter());
}

bool BlockWriter::write_listing(const CLexTokenBlock& node) {
    indentation_.append_to(line_, level_);
    for (int i = 0; i < BlockAccess::count(node); ++i) {
        const CLexTokenBlock& token = *BlockAccess::child(node, i);
        if (has_form(token)) {
            break;
        }
        if (i > 0) {
            line_.append(1, ' ');
        }
        if (!append_written_form(line_, token, lead_bytes_)) {
            return false;
        }
    }
    return end_line(true);
}

bool BlockWriter::end_line(bool with_line_end) {
    line_.append(1, '\0');
    const bool written = line_.good() && stream_.WriteString(line_.data(), with_line_end);
    line_.truncate(0);
    return written;
}

}  // namespace orvil::detail
