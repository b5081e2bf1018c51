#include "places.h"

#include <cmath>
#include <cstdlib>

#include "orvil/tokens/block_tokens.h"
#include "svg.h"

namespace orvil_host {
namespace {

void push_children(const CLexTokenBlock& node, std::vector<const CLexTokenBlock*>& waiting) {
    for (int i = node.GetBlockCount(); i-- > 0;) {
        waiting.push_back(node.GetAt(i));
    }
}

bool is_left_out(const CLexToken& token) {
    return token.IsCommentToken() || token.IsSingleCommentToken() || token.GetPureString().IsEmpty();
}

// A number that the arithmetic has room for; the language also takes texts such as 1.2.3 for doubles.
bool read_number(const CLexToken& token, double& number) {
    const ETokenKind kind = token.GetTokenKind();
    char* end = nullptr;
    number = std::strtod(token.GetString(), &end);
    return (kind == eTokenDecimal || kind == eTokenDouble) && *end == '\0' && std::fabs(number) <= SvgPicture::kLargest;
}

}  // namespace

Places::Places(const CLexTokenBlock& root, const SourceText& text)
    : next_(text.tokens.begin()), end_(text.tokens.end()) {
    std::vector<const CLexTokenBlock*> waiting;
    push_children(root, waiting);
    while (!waiting.empty()) {
        const CLexTokenBlock* node = waiting.back();
        waiting.pop_back();
        places_[node] = take();
        push_children(*node, waiting);
    }
}

Place Places::take() {
    while (next_ != end_ && is_left_out(next_->token)) {
        ++next_;
    }
    return next_ == end_ ? Place() : (next_++)->place;
}

bool read_numbers(const CLexTokenBlock& entry, std::vector<double>& numbers) {
    for (int i = 1; i + 1 < entry.GetBlockCount(); ++i) {
        double number = 0.0;
        if (!read_number(*entry.GetAt(i), number)) {
            return false;
        }
        numbers.push_back(number);
    }
    return true;
}

bool read_title(const CLexTokenBlock& root, const CLexTokenBlock& entry, std::string& title) {
    if (!entry.IsAssignType() || entry.GetPureString() != "Title") {
        return false;
    }
    CExtString text;
    bt_get_block_assign(root, "Title", text, true);
    title = text.GetString();
    return true;
}

}  // namespace orvil_host
