/// @file
/// Reading a token-block file into a tree.
///
/// A file is a sequence of entries. Blanks, tabs and line ends only separate lexemes:
///
///     entry:       assignment | block | value | stray
///     assignment:  SYMBOL `=` token* `;`
///     block:       SYMBOL `{` entry* `}`
///     value:       a number, a string, a preprocessor line, and a comment when comments are kept
///     stray:       any other character that stands for itself, such as `;` or `(`
///
/// Comments are C's and C++'s. Strings stand in `"` or `'`. A name of the letters a to f only is a hexadecimal number
/// and begins no entry.
///
/// The parser is lenient. A stray is kept as a plain token and noted in the message. A fault in a nested block drops
/// that block and ends the one around it, which is kept as it stands; parsing goes on one level further out. A fault at
/// the top level ends the parse. Files may be nested as deep as memory allows. One thread at a time.
#pragma once

#include "orvil/export.h"
#include "orvil/strings/ext_string.h"
#include "orvil/tokens/lex_token_block.h"
#include "orvil/tokens/stream_mem_file.h"

/// Reads one file. Copies are independent of their source.
class ORVIL_API CTokenParser {
public:
    /// @param sourcePath the file to read; it is opened by DoParse()
    /// @param keepComments whether comments come into the tree, as plain tokens
    CTokenParser(const char* sourcePath, bool keepComments);
    /// A copy of its own, with the stream and the message as they stand.
    CTokenParser(const CTokenParser& source);
    /// As the copy constructor.
    CTokenParser& operator=(const CTokenParser& source);
    virtual ~CTokenParser();

    /// Reads the whole file into @p root, which is cleared first and becomes a block without name. Linear in the size
    /// of the file. A word that is the very last thing in the file, with nothing behind it, is lost. A block that the
    /// end of the file cuts off right behind an entry is kept, one that a line end or a comment follows is dropped.
    /// @return false when the file cannot be read, when a fault at the top level ends the parse before the end of the
    /// file, when the end of the file cuts off an assignment at the top level, or when memory runs out. @p root then
    /// holds what came before, without a form.
    bool DoParse(CLexTokenBlock& root);

    /// @return the last message, each ending in a line feed; empty when there was none, or when the end of the file
    /// cut off a lexeme. A parse that succeeds may have left one.
    const CExtString& GetErrorMessage() const;

protected:
    /// Takes the next token that is neither empty nor a comment (unless comments are kept).
    /// @return false at the end of the file, or when the text cannot be cut into tokens; the message then says why, and
    /// is empty when the end of the file cut off a lexeme
    bool DoLexAnalyze(CLexToken& token);

    /// Reads entries into @p block up to and including its `}`, or to the end of the file.
    /// @return false on a fault among these entries themselves; a fault in a block inside ends the call with true
    bool DoParseBlock(CLexTokenBlock& block);

    /// Reads value tokens into @p assignment up to and including its `;`.
    /// @return false when there is none; the values up to there have been added
    bool DoParseAssignment(CLexTokenBlock& assignment);

    CExtString error_message_;  ///< the last message
    CExtString source_path_;    ///< the file to read
    CStreamMemFile stream_;     ///< its text and the place reached in it
    bool keep_comments_;        ///< whether comments come into the tree
};
