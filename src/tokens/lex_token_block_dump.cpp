// Descriptions of trees for people who look for faults.
#include <cstdint>

#include "orvil/tokens/lex_token_block.h"
#include "strings/string_access.h"
#include "tokens/block_access.h"
#include "tokens/output_text.h"
#include "tokens/token_key.h"
#include "tokens/value_text.h"
#include "tokens/walk_stack.h"

using orvil::detail::BlockAccess;
using orvil::detail::has_form;
using orvil::detail::OutputText;
using orvil::detail::ValueText;
using orvil::detail::WalkStack;

namespace {

constexpr std::int64_t kBlanksPerLevel = 4;
constexpr std::size_t kRuleLength = 40;

void append_count(OutputText& out, const char* name, int count) {
    out.append(name);
    out.append(ValueText(" { ... Token(%d) ... }", count).text());
}

void append_information(OutputText& out, const CLexTokenBlock& node) {
    if (node.IsBlockType()) {
        append_count(out, node.GetString(), node.GetBlockCount());
    } else if (node.IsListingType()) {
        append_count(out, "Listing", node.GetBlockCount());
    } else if (node.IsAssignType()) {
        out.append(node.GetString());
        for (int i = 0; i < BlockAccess::count(node); ++i) {
            out.append(1, ' ');
            out.append(BlockAccess::child(node, i)->GetString());
        }
    }
}

void append_header(OutputText& out, const CLexTokenBlock& node, std::int64_t indent) {
    const std::size_t blanks = indent < 0 ? 0 : static_cast<std::size_t>(kBlanksPerLevel * (indent + 1));
    out.append(blanks, ' ');
    out.append(kRuleLength, '-');
    out.append(1, '\n');
    out.append(blanks, ' ');
    append_information(out, node);
    out.append(1, '\n');
}

void append_token(OutputText& out, const CLexTokenBlock& node) {
    CExtString text;
    node.CLexToken::MakeDumpString(text, 0);
    out.append(text);
}

void append_tree(OutputText& out, const CLexTokenBlock& root, int indent) {
    struct Place {
        const CLexTokenBlock* node;
        int next;
    };
    WalkStack<Place> places;
    append_header(out, root, indent);
    bool memory = places.push({&root, 0});
    while (memory && out.good() && !places.empty()) {
        Place& place = places.top();
        if (place.next == BlockAccess::count(*place.node)) {
            places.pop();
            continue;
        }
        const CLexTokenBlock& entry = *BlockAccess::child(*place.node, place.next++);
        if (has_form(entry)) {
            append_header(out, entry, indent + static_cast<std::int64_t>(places.size()));
            memory = places.push({&entry, 0});
        } else {
            append_token(out, entry);
        }
    }
}

}  // namespace

CExtString CLexTokenBlock::QueryInformationString() const {
    OutputText text;
    CExtString result;
    append_information(text, *this);
    if (text.good()) {
        orvil::detail::StringAccess::assign(result, text.data(), static_cast<int>(text.size()));
    }
    return result;
}

void CLexTokenBlock::MakeDumpString(CExtString& out, int indent) const {
    if (!has_form(*this)) {
        CLexToken::MakeDumpString(out, indent);
        return;
    }
    OutputText text;
    append_tree(text, *this, indent);
    orvil::detail::StringAccess::append(out, text.data(), static_cast<int>(text.size()));
}
