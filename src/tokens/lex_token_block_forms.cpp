// Building assignments and blocks, and reading the values of assignments.
#include <utility>

#include "orvil/tokens/lex_token_block.h"
#include "tokens/block_access.h"
#include "tokens/value_text.h"

using orvil::detail::BlockAccess;
using orvil::detail::NodePtr;
using orvil::detail::ValueText;

namespace {

int double_precision = 15;

bool is_empty(const char* text) {
    return text == nullptr || *text == '\0';
}

// A value whose text could not be made is refused as an ill-formed one is.
bool set_value(CLexTokenBlock& node, const char* name, const ValueText& value, ETokenKind kind) {
    return node.SetupAssignmentFactor(value.text() != nullptr ? name : nullptr, value.text(), kind);
}

// The first value of that kind in the first assignment of that name.
const CLexToken* find_value(const CLexTokenBlock& block, const char* name, ETokenKind kind) {
    const CLexTokenBlock* holder = nullptr;
    const int place = block.IsBlockType() ? BlockAccess::find_assignment(block, name, holder) : -1;
    if (place < 0) {
        return nullptr;
    }
    const CLexTokenBlock& assignment = *BlockAccess::child(*holder, place);
    return BlockAccess::child(assignment, assignment.SearchTokenBlockIndex(kind, nullptr, 0));
}

}  // namespace

void CLexTokenBlock::SetupDoublePercision(int precision) {
    double_precision = precision;
}

int CLexTokenBlock::RefDoublePercision() {
    return double_precision;
}

// --- building -------------------------------------------------------------------------------------------------------

bool CLexTokenBlock::SetupBlockTypeFactor(const char* name) {
    if (is_empty(name)) {
        return false;
    }
    return BlockAccess::become_block(*this, BlockAccess::make(eTokenSymbol, name));
}

// Name and value are copied before the node is cleared: they may be texts of this node or of its children.
bool CLexTokenBlock::SetupAssignmentFactor(const char* name, const char* value, ETokenKind kind) {
    NodePtr named = is_empty(name) ? nullptr : BlockAccess::make(eTokenSymbol, name);
    NodePtr valued = BlockAccess::make(kind, value);
    return BlockAccess::become_assignment(*this, std::move(named), std::move(valued));
}

bool CLexTokenBlock::SetupAssignmentDecimal(const char* name, int value, const char* format) {
    const ValueText text(format != nullptr ? format : orvil::detail::kDecimalFormat, value);
    return set_value(*this, name, text, eTokenDecimal);
}

bool CLexTokenBlock::SetupAssignmentHexaDecimal(const char* name, unsigned int value, const char* format) {
    const ValueText text(format != nullptr ? format : orvil::detail::kHexaDecimalFormat, value);
    return set_value(*this, name, text, eTokenHexaDecimal);
}

bool CLexTokenBlock::SetupAssignmentDouble(const char* name, double value, const char* format) {
    if (format != nullptr) {
        const ValueText text(format, value);
        return set_value(*this, name, text, eTokenDouble);
    }
    const ValueText text(orvil::detail::kPrecisionFormat, double_precision, value);
    return set_value(*this, name, text, eTokenDouble);
}

bool CLexTokenBlock::SetupAssignmentString(const char* name, const char* value) {
    return SetupAssignmentFactor(name, value, eTokenString);
}

bool CLexTokenBlock::SetupAssignmentSymbol(const char* name, const char* value) {
    return SetupAssignmentFactor(name, value, eTokenSymbol);
}

// --- reading --------------------------------------------------------------------------------------------------------

bool CLexTokenBlock::GetAssignmentDecimal(const char* name, int& value) const {
    const CLexToken* token = find_value(*this, name, eTokenDecimal);
    return token != nullptr && token->ParseDecimal(value);
}

bool CLexTokenBlock::GetAssignmentHexaDecimal(const char* name, unsigned int& value) const {
    const CLexToken* token = find_value(*this, name, eTokenHexaDecimal);
    return token != nullptr && token->ParseHexaDecimal(value);
}

bool CLexTokenBlock::GetAssignmentDouble(const char* name, double& value) const {
    const CLexToken* token = find_value(*this, name, eTokenDouble);
    return token != nullptr && token->ParseDouble(value);
}

bool CLexTokenBlock::GetAssignmentString(const char* name, CExtString& value) const {
    const CLexToken* token = find_value(*this, name, eTokenString);
    return token != nullptr && token->ParseString(value);
}

bool CLexTokenBlock::GetAssignmentSymbol(const char* name, CExtString& value) const {
    const CLexToken* token = find_value(*this, name, eTokenSymbol);
    return token != nullptr && token->ParseSymbol(value);
}
