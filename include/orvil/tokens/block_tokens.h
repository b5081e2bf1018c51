/// @file
/// Flat functions that read, build, query and write token-block files, over trees of CLexTokenBlock.
///
/// The caller owns every tree; pointers that are returned point into it. Null names count as empty when searching and
/// are refused when building. A format is a printf format that takes exactly one value of the stated type, which the
/// caller answers for; null is the default format. Nothing throws. One thread at a time.
///
/// @code
/// CLexTokenBlock root;
/// CLexTokenBlock view;
/// bt_make_master_block(root, "view.txt", "A view");
/// bt_init_block(view, "View");
/// bt_add_block_assign(view, "Width", 640);
/// bt_add_block_assign(view, "Title", "Main view", true);
/// bt_add_block(root, view);
/// bt_output_file("view.txt", root, false);
/// @endcode
#pragma once

#include "orvil/export.h"
#include "orvil/strings/ext_string.h"
#include "orvil/tokens/lex_token_block.h"

/// @name Files
/// @{

/// Reads the file @p path into @p root, which is cleared first. Comments are dropped. See CTokenParser::DoParse().
/// @return whether the file was read
ORVIL_API bool bt_input_file(const char* path, CLexTokenBlock& root);

/// As above.
/// @param message emptied; on failure it receives the parser's message
ORVIL_API bool bt_input_file(const char* path, CLexTokenBlock& root, CExtString& message);

/// Appends the closing comment to @p root, which keeps it, and writes @p root to the file @p path, indented by TABs.
/// A closed root refuses the comment and is written without it. See CTokenRegister::DoRegist().
/// @param append whether to add to the file or to replace it
/// @return whether the file was written. The root of a parsed file has no written form: copy its entries under a master
/// block.
ORVIL_API bool bt_output_file(const char* path, CLexTokenBlock& root, bool append);

/// As above.
/// @param message emptied; the writer makes no message
ORVIL_API bool bt_output_file(const char* path, CLexTokenBlock& root, CExtString& message, bool append);

/// @}
/// @name Roots, blocks and listings
/// @{

/// Makes @p block the root of a file to be written: cleared, of block form, with a token that writes the line
/// "// NAME : " for the file name of @p filePath, and with @p comment in a box of asterisks.
/// @param filePath need not exist; a relative path counts from the working directory
/// @param comment one or more lines with a line feed between them; null or empty gives the two edges of the box only.
/// A comment that holds the end of a comment ends there when the file is read.
/// @return false for a null or empty path, or one that has no absolute form, and when memory runs out
ORVIL_API bool bt_make_master_block(CLexTokenBlock& block, const char* filePath, const char* comment);

/// Makes @p block an empty block. @return false for a null or empty name
ORVIL_API bool bt_init_block(CLexTokenBlock& block, const char* name);

/// Makes @p block a block whose first entry is the assignment of the string @p markerValue to @p markerName.
/// @return whether both were made
ORVIL_API bool bt_init_block_with_marker(CLexTokenBlock& block, const char* name, const char* markerName,
                                         const char* markerValue);

/// Sets the form of @p block to listing. @return false when it is closed, and then nothing has changed
ORVIL_API bool bt_init_listing(CLexTokenBlock& block);

/// Appends a deep copy of @p child. @return its index; -1 when @p parent is closed or memory runs out
ORVIL_API int bt_add_block(CLexTokenBlock& parent, const CLexTokenBlock& child);

/// Inserts a deep copy of @p child before the closing brace. @return its index; -1 when @p parent is no closed block or
/// memory runs out
ORVIL_API int bt_insert_block(CLexTokenBlock& parent, const CLexTokenBlock& child);

/// @}
/// @name Adding assignments
/// Each adds an assignment before the closing brace of a closed block, and at the end of an open node.
/// @return false when the name is null or empty, when the text made by the format is no value of that type, when the
/// node takes no entries, and when memory runs out
/// @{

/// Adds the symbol On or Off.
ORVIL_API bool bt_add_block_assign(CLexTokenBlock& block, const char* name, bool value);
ORVIL_API bool bt_add_block_assign(CLexTokenBlock& block, const char* name, int value, const char* format = "%d");
ORVIL_API bool bt_add_block_assign(CLexTokenBlock& block, const char* name, unsigned int value,
                                   const char* format = "0x%08X");
/// Six decimals by default, unlike the default of CLexTokenBlock::SetupAssignmentDouble().
ORVIL_API bool bt_add_block_assign(CLexTokenBlock& block, const char* name, double value, const char* format = "%.6lf");
/// Adds a string, or a symbol. An empty text becomes an empty token and is written as nothing.
ORVIL_API bool bt_add_block_assign(CLexTokenBlock& block, const char* name, const char* text, bool isString);
/// Deleted: a text without isString would otherwise be taken for a bool.
bool bt_add_block_assign(CLexTokenBlock& block, const char* name, const char* text) = delete;

/// @}
/// @name Adding to a listing
/// @{

/// Each appends one value token to an open node.
/// @return false when the text made by the format is no value of that type, when the node is closed, and when memory
/// runs out
ORVIL_API bool bt_add_listing_item(CLexTokenBlock& listing, int value, const char* format = "%d");
ORVIL_API bool bt_add_listing_item(CLexTokenBlock& listing, unsigned int value, const char* format = "0x%08X");
/// @param format null for "%.*g" with CLexTokenBlock::RefDoublePercision()
ORVIL_API bool bt_add_listing_item(CLexTokenBlock& listing, double value, const char* format = nullptr);
/// Adds a string, or a symbol. A listing that holds a symbol does not read back.
ORVIL_API bool bt_add_listing_item(CLexTokenBlock& listing, const char* text, bool isString);

/// @}
/// @name Reading assignments
/// The first assignment of the name in document order decides, at whatever depth; an empty name stands for any.
/// @return false when @p block is no block, or that assignment holds no value of the type
/// @{

/// @param value true only for the symbol On; false for every other symbol; untouched when there is none
ORVIL_API bool bt_get_block_assign(const CLexTokenBlock& block, const char* name, bool& value);
ORVIL_API bool bt_get_block_assign(const CLexTokenBlock& block, const char* name, int& value);
ORVIL_API bool bt_get_block_assign(const CLexTokenBlock& block, const char* name, unsigned int& value);
ORVIL_API bool bt_get_block_assign(const CLexTokenBlock& block, const char* name, double& value);
/// Reads a string, or a symbol.
ORVIL_API bool bt_get_block_assign(const CLexTokenBlock& block, const char* name, CExtString& value, bool isString);

/// @}
/// @name Searching
/// @{

/// Asks whether @p block is a block with a symbol as its name, the symbol @p blockName unless that is null or empty,
/// and, unless @p assignName is null, whether the string assigned to @p assignName in it is exactly @p value.
/// @param value null counts as empty
ORVIL_API bool bt_check_block_and_assign(const CLexTokenBlock& block, const char* blockName, const char* assignName,
                                         const char* value);

/// @param name the symbol that names the block looked for; null or empty for any symbol
/// @param start the index to begin at; a negative one counts as 0
/// @return the index of the first such block among the children of @p parent, or -1
ORVIL_API int bt_search_block_index(const CLexTokenBlock& parent, const char* name, int start);

/// @return the first such block, or null
ORVIL_API CLexTokenBlock* bt_search_block(const CLexTokenBlock& parent, const char* name);

/// Walks through the blocks of a name, one a call.
/// @param index where to begin, 0 at first; becomes the index behind the block found, or -1 when there is none
/// @return the first such block at or after @p index, or null
ORVIL_API CLexTokenBlock* bt_search_block(const CLexTokenBlock& parent, const char* name, int& index);

/// Copies the first such block at or after @p start into @p copy, which may be @p parent itself.
/// @return whether there is one and it was copied
ORVIL_API bool bt_search_block(const CLexTokenBlock& parent, const char* name, CLexTokenBlock& copy, int start);

/// @}
/// @name Items of a listing by index
/// The kind is 0, and every other function gives false, when @p index is outside 0..count-1.
/// @{

/// @return the kind of the item's token
ORVIL_API ETokenKind bt_check_listing_itemtype(const CLexTokenBlock& listing, int index);
ORVIL_API bool bt_check_listing_symbol(const CLexTokenBlock& listing, int index);
ORVIL_API bool bt_check_listing_string(const CLexTokenBlock& listing, int index);
ORVIL_API bool bt_check_listing_decimal(const CLexTokenBlock& listing, int index);
ORVIL_API bool bt_check_listing_hexadecimal(const CLexTokenBlock& listing, int index);
ORVIL_API bool bt_check_listing_double(const CLexTokenBlock& listing, int index);

/// Converts the item. @return false when it is of another kind; then @p value is untouched
ORVIL_API bool bt_get_listing_item(const CLexTokenBlock& listing, int index, int& value);
ORVIL_API bool bt_get_listing_item(const CLexTokenBlock& listing, int index, unsigned int& value);
ORVIL_API bool bt_get_listing_item(const CLexTokenBlock& listing, int index, double& value);
/// Reads a string, or a symbol.
ORVIL_API bool bt_get_listing_item(const CLexTokenBlock& listing, int index, CExtString& value, bool isString);

/// @}
