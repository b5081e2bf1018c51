#include "orvil/tokens/block_tokens.h"

#include <utility>

#include "orvil/tokens/token_parser.h"
#include "orvil/tokens/token_register.h"
#include "tokens/block_access.h"
#include "tokens/value_text.h"

using orvil::detail::BlockAccess;
using orvil::detail::NodePtr;
using orvil::detail::ValueText;

namespace {

constexpr const char* kDoubleFormat = "%.6lf";
constexpr const char* kClosingComment = "\n/* END OF FILE */\n";
constexpr const char* kOn = "On";
constexpr const char* kOff = "Off";
constexpr int kIndentWidth = 4;

const char* format_or(const char* format, const char* fallback) {
    return format != nullptr ? format : fallback;
}

ETokenKind text_kind(bool is_string) {
    return is_string ? eTokenString : eTokenSymbol;
}

}  // namespace

// --- files ----------------------------------------------------------------------------------------------------------

bool bt_input_file(const char* path, CLexTokenBlock& root) {
    return CTokenParser(path, false).DoParse(root);
}

// The path may lie in the message.
bool bt_input_file(const char* path, CLexTokenBlock& root, CExtString& message) {
    CTokenParser parser(path, false);
    message.Empty();
    const bool read = parser.DoParse(root);
    if (!read) {
        message = parser.GetErrorMessage();
    }
    return read;
}

bool bt_output_file(const char* path, CLexTokenBlock& root, bool append) {
    CTokenRegister writer(path, true, kIndentWidth);
    if (!BlockAccess::is_closed(root) &&
        BlockAccess::append(root, BlockAccess::make(eTokenComment, kClosingComment)) < 0) {
        return false;
    }
    return writer.DoRegist(root, append);
}

bool bt_output_file(const char* path, CLexTokenBlock& root, CExtString& message, bool append) {
    const CExtString target(path);
    message.Empty();
    return bt_output_file(target, root, append);
}

// --- blocks and listings --------------------------------------------------------------------------------------------

bool bt_init_block(CLexTokenBlock& block, const char* name) {
    return block.SetupBlockTypeFactor(name);
}

// The marker is made before the block is cleared: its texts may be those of the block.
bool bt_init_block_with_marker(CLexTokenBlock& block, const char* name, const char* markerName,
                               const char* markerValue) {
    NodePtr marker = BlockAccess::make();
    const bool marked = marker != nullptr && marker->SetupAssignmentString(markerName, markerValue);
    return block.SetupBlockTypeFactor(name) && marked && BlockAccess::add_entry(block, std::move(marker)) >= 0;
}

bool bt_init_listing(CLexTokenBlock& block) {
    block.SetupGrammerType(eGrammerListing);
    return !BlockAccess::is_closed(block);
}

int bt_add_block(CLexTokenBlock& parent, const CLexTokenBlock& child) {
    return parent.AddBlock(child);
}

int bt_insert_block(CLexTokenBlock& parent, const CLexTokenBlock& child) {
    return parent.InsertBlockEntityBlock(child);
}

// --- adding ---------------------------------------------------------------------------------------------------------

namespace {

bool add_assignment(CLexTokenBlock& block, const char* name, const char* value, ETokenKind kind) {
    NodePtr node = BlockAccess::make();
    return node != nullptr && node->SetupAssignmentFactor(name, value, kind) &&
           BlockAccess::add_entry(block, std::move(node)) >= 0;
}

bool add_assignment(CLexTokenBlock& block, const char* name, const ValueText& value, ETokenKind kind) {
    return value.text() != nullptr && add_assignment(block, name, value.text(), kind);
}

bool add_item(CLexTokenBlock& listing, const char* value, ETokenKind kind) {
    return !BlockAccess::is_closed(listing) && BlockAccess::append(listing, BlockAccess::make(kind, value)) >= 0;
}

bool add_item(CLexTokenBlock& listing, const ValueText& value, ETokenKind kind) {
    return value.text() != nullptr && add_item(listing, value.text(), kind);
}

}  // namespace

bool bt_add_block_assign(CLexTokenBlock& block, const char* name, bool value) {
    return add_assignment(block, name, value ? kOn : kOff, eTokenSymbol);
}

bool bt_add_block_assign(CLexTokenBlock& block, const char* name, int value, const char* format) {
    const ValueText text(format_or(format, orvil::detail::kDecimalFormat), value);
    return add_assignment(block, name, text, eTokenDecimal);
}

bool bt_add_block_assign(CLexTokenBlock& block, const char* name, unsigned int value, const char* format) {
    const ValueText text(format_or(format, orvil::detail::kHexaDecimalFormat), value);
    return add_assignment(block, name, text, eTokenHexaDecimal);
}

bool bt_add_block_assign(CLexTokenBlock& block, const char* name, double value, const char* format) {
    const ValueText text(format_or(format, kDoubleFormat), value);
    return add_assignment(block, name, text, eTokenDouble);
}

bool bt_add_block_assign(CLexTokenBlock& block, const char* name, const char* text, bool isString) {
    return add_assignment(block, name, text, text_kind(isString));
}

bool bt_add_listing_item(CLexTokenBlock& listing, int value, const char* format) {
    return add_item(listing, ValueText(format_or(format, orvil::detail::kDecimalFormat), value), eTokenDecimal);
}

bool bt_add_listing_item(CLexTokenBlock& listing, unsigned int value, const char* format) {
    return add_item(listing, ValueText(format_or(format, orvil::detail::kHexaDecimalFormat), value), eTokenHexaDecimal);
}

bool bt_add_listing_item(CLexTokenBlock& listing, double value, const char* format) {
    if (format != nullptr) {
        return add_item(listing, ValueText(format, value), eTokenDouble);
    }
    const int precision = CLexTokenBlock::RefDoublePercision();
    return add_item(listing, ValueText(orvil::detail::kPrecisionFormat, precision, value), eTokenDouble);
}

bool bt_add_listing_item(CLexTokenBlock& listing, const char* text, bool isString) {
    return add_item(listing, text, text_kind(isString));
}

// --- reading assignments --------------------------------------------------------------------------------------------

bool bt_get_block_assign(const CLexTokenBlock& block, const char* name, bool& value) {
    CExtString symbol;
    if (!block.GetAssignmentSymbol(name, symbol)) {
        return false;
    }
    value = symbol == kOn;
    return true;
}

bool bt_get_block_assign(const CLexTokenBlock& block, const char* name, int& value) {
    return block.GetAssignmentDecimal(name, value);
}

bool bt_get_block_assign(const CLexTokenBlock& block, const char* name, unsigned int& value) {
    return block.GetAssignmentHexaDecimal(name, value);
}

bool bt_get_block_assign(const CLexTokenBlock& block, const char* name, double& value) {
    return block.GetAssignmentDouble(name, value);
}

bool bt_get_block_assign(const CLexTokenBlock& block, const char* name, CExtString& value, bool isString) {
    return isString ? block.GetAssignmentString(name, value) : block.GetAssignmentSymbol(name, value);
}

// --- searching ------------------------------------------------------------------------------------------------------

bool bt_check_block_and_assign(const CLexTokenBlock& block, const char* blockName, const char* assignName,
                               const char* value) {
    if (!block.IsBlockType() || !block.Compare(eTokenSymbol, blockName)) {
        return false;
    }
    if (assignName == nullptr) {
        return true;
    }
    CExtString text;
    return block.GetAssignmentString(assignName, text) && text == value;
}

int bt_search_block_index(const CLexTokenBlock& parent, const char* name, int start) {
    return BlockAccess::find_block(parent, name, start);
}

CLexTokenBlock* bt_search_block(const CLexTokenBlock& parent, const char* name) {
    int index = 0;
    return bt_search_block(parent, name, index);
}

CLexTokenBlock* bt_search_block(const CLexTokenBlock& parent, const char* name, int& index) {
    const int found = BlockAccess::find_block(parent, name, index);
    index = found < 0 ? -1 : found + 1;
    return found < 0 ? nullptr : parent.GetAt(found);
}

bool bt_search_block(const CLexTokenBlock& parent, const char* name, CLexTokenBlock& copy, int start) {
    const CLexTokenBlock* found = BlockAccess::child(parent, BlockAccess::find_block(parent, name, start));
    return found != nullptr && copy.CopyData(*found);
}

// --- listing items --------------------------------------------------------------------------------------------------

ETokenKind bt_check_listing_itemtype(const CLexTokenBlock& listing, int index) {
    const CLexToken* item = BlockAccess::child(listing, index);
    return item == nullptr ? eTokenNone : item->GetTokenKind();
}

bool bt_check_listing_symbol(const CLexTokenBlock& listing, int index) {
    return bt_check_listing_itemtype(listing, index) == eTokenSymbol;
}

bool bt_check_listing_string(const CLexTokenBlock& listing, int index) {
    return bt_check_listing_itemtype(listing, index) == eTokenString;
}

bool bt_check_listing_decimal(const CLexTokenBlock& listing, int index) {
    return bt_check_listing_itemtype(listing, index) == eTokenDecimal;
}

bool bt_check_listing_hexadecimal(const CLexTokenBlock& listing, int index) {
    return bt_check_listing_itemtype(listing, index) == eTokenHexaDecimal;
}

bool bt_check_listing_double(const CLexTokenBlock& listing, int index) {
    return bt_check_listing_itemtype(listing, index) == eTokenDouble;
}

bool bt_get_listing_item(const CLexTokenBlock& listing, int index, int& value) {
    const CLexToken* item = BlockAccess::child(listing, index);
    return item != nullptr && item->ParseDecimal(value);
}

bool bt_get_listing_item(const CLexTokenBlock& listing, int index, unsigned int& value) {
    const CLexToken* item = BlockAccess::child(listing, index);
    return item != nullptr && item->ParseHexaDecimal(value);
}

bool bt_get_listing_item(const CLexTokenBlock& listing, int index, double& value) {
    const CLexToken* item = BlockAccess::child(listing, index);
    return item != nullptr && item->ParseDouble(value);
}

bool bt_get_listing_item(const CLexTokenBlock& listing, int index, CExtString& value, bool isString) {
    const CLexToken* item = BlockAccess::child(listing, index);
    return item != nullptr && (isString ? item->ParseString(value) : item->ParseSymbol(value));
}
