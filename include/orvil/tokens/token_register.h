/// @file
/// Writing a tree as token-block text.
///
/// The text is laid out anew: an entry a line, every block after an empty line, blocks indented, each line ended by CR
/// LF. The whole text is made in memory and written to the file in one piece at the end.
///
/// Not everything reads back as it was written:
///
/// | written | read back |
/// |---|---|
/// | a plain value that stands directly in a block | nothing: it is not written |
/// | a listing | plain values of the enclosing block |
/// | a listing that holds a symbol | a fault: symbol followed by a value |
/// | an empty string | nothing: it is an empty token, as in `a = ;` |
/// | a name or symbol value of the letters a to f | a hexadecimal number |
/// | a double without a fraction, written by "%.*g" | a decimal number |
/// | a `#` or `//` token inside an assignment | a longer one: it takes in the `;` as well |
/// | a symbol that holds blanks | several tokens |
/// | a comment that holds a second end of a comment | a shorter one, and what stands behind it |
///
/// One thread at a time.
#pragma once

#include "orvil/export.h"
#include "orvil/strings/ext_string.h"
#include "orvil/tokens/lex_token_block.h"
#include "orvil/tokens/stream_mem_file.h"

/// Writes one file, once: make a new writer for each file.
class ORVIL_API CTokenRegister {
public:
    /// @param targetPath the file to write
    /// @param useTab whether to indent by a TAB for each level
    /// @param indentWidth the number of blanks for each level otherwise
    CTokenRegister(const char* targetPath, bool useTab, int indentWidth);
    /// A copy of its own, with the stream as it stands.
    CTokenRegister(const CTokenRegister& source);
    /// As the copy constructor.
    CTokenRegister& operator=(const CTokenRegister& source);
    virtual ~CTokenRegister();

    /// Writes @p root: its own token as a line, then its children. Linear in the size of the text, which is itself
    /// quadratic in the depth of the tree because of the indentation.
    /// @param append whether to add to the file or to replace it
    /// @return false for an empty path, a file that is read-only or cannot be written, a token without a written form
    /// (the root of a parsed file has such a token), a block whose token is no symbol, a text of 2 GiB and more, when
    /// memory runs out, and on every call after one that got as far as making text. The file is written only when all
    /// else succeeded.
    bool DoRegist(const CLexTokenBlock& root, bool append);

protected:
    /// @return the indentation of the current level: TABs or blanks, empty below level 1
    CExtString CreateIndentSpace() const;

    /// Writes a node of any form. @return whether every token had a written form and the text could grow
    bool DoRegistBlock(const CLexTokenBlock& node);

    /// Writes an assignment as one line, without line end when the node says so. It ends before the first child that
    /// has a form of its own. @return as DoRegistBlock()
    bool DoRegistAssign(const CLexTokenBlock& node);

    /// Writes the values of a listing as one line with single blanks between them. It ends before the first child that
    /// has a form of its own. @return as DoRegistBlock()
    bool DoRegistListing(const CLexTokenBlock& node);

    CExtString message_;      ///< never set: the writer makes no message
    CExtString target_path_;  ///< the file to write
    CStreamMemFile stream_;   ///< its text
    int indent_level_;        ///< the current depth
    int indent_width_;        ///< blanks for each level
    bool use_tab_;            ///< whether a level is a TAB instead
};
