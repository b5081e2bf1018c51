/// @file
/// Message files: reading one message map from a token-block file, and writing one.
///
/// A map is a block named MessageMap. The block Subject in it holds the map's title and code; the messages follow, a
/// decimal code and a quoted text each:
///
///     MessageMap {
///
///         Subject {
///             Title = "Reading drawings";
///             KeyCode = 12;
///         }
///         1001 "The file cannot be read"
///         1002 "The kind of entity is unknown"
///     }
///
/// Names are matched with regard to case. In what is read, code and text may come in either order, and anything may
/// stand between two messages. A code beyond 9999 and an empty text make no message and do not disturb the others.
/// Codes are decimal: 007 and 0x07 are hexadecimal numbers and no codes.
///
/// A file may hold several maps, and anything else beside them. CMessageLoader and CMessageRegister read and write one
/// map, CMessageManager reads and writes all maps of a file.
///
/// Nothing throws and no message is written; bt_input_file() tells why a file cannot be read. One thread at a time.
///
/// @code
/// CMessageMap messages;
/// if (CMessageLoader().Load("messages.txt", messages)) {
///     messages.AddItem(1003, "The layer is locked");
///     CMessageRegister().Store("messages.txt", messages);
/// }
/// @endcode
#pragma once

#include "orvil/export.h"
#include "orvil/messages/message_map.h"
#include "orvil/tokens/lex_token_block.h"

/// Reads a message map. Objects hold nothing, so that one serves any number of files, and copies copy nothing.
class ORVIL_API CMessageLoader {
public:
    /// Has nothing to set up.
    CMessageLoader();
    /// Has nothing to copy.
    CMessageLoader(const CMessageLoader& source);
    /// Does nothing.
    CMessageLoader& operator=(const CMessageLoader& source);
    /// Has nothing to release.
    virtual ~CMessageLoader();

    /// Replaces the items of @p map by those of the first MessageMap block at the top level of a file. The subject of
    /// the map stays as it is: Parse() reads it. Time is linear in the size of the file.
    /// @param path the file; the text may be one of the map's own
    /// @return whether the whole file could be read as token-block text, with a MessageMap block or without one; see
    /// CTokenParser::DoParse(). Otherwise the map has not changed. A fault inside a block only costs the file that
    /// block.
    bool Load(const char* path, CMessageMap& map);

    /// Reads a MessageMap block: sets the subject of @p map and adds the items to those that it has.
    /// @param block a block of a parsed file. In a tree that CMessageRegister has made the messages are listings, which
    /// are not read; written to a file and parsed, they are.
    /// @return false when there is no block Subject, when that has no Title that is a string or no KeyCode that is a
    /// decimal number, or when the title is empty; nothing has changed then. Items without memory are left out, and the
    /// result is true.
    bool Parse(const CLexTokenBlock& block, CMessageMap& map);

protected:
    /// Adds the items of a MessageMap block to @p map: each decimal entry with the string that follows it, or precedes
    /// it, with nothing else in between. @return true
    bool ParseMessageMap(const CLexTokenBlock& block, CMessageMap& map);
};

/// Writes a message map. Objects hold nothing, so that one serves any number of files, and copies copy nothing.
///
/// Items are written by ascending code. The text is the one to which the code leads: an older item of the same code
/// counts as one more line with the newest text, and a code that leads to no item has a line without text, which is not
/// read back. A map without a title is written, but has no subject for CMessageLoader::Parse() to read.
class ORVIL_API CMessageRegister {
public:
    /// Has nothing to set up.
    CMessageRegister();
    /// Has nothing to copy.
    CMessageRegister(const CMessageRegister& source);
    /// Does nothing.
    CMessageRegister& operator=(const CMessageRegister& source);
    /// Has nothing to release.
    virtual ~CMessageRegister();

    /// Writes a file that holds the map alone, below a heading with the name of the file. The file is indented by TABs
    /// and replaced when it exists. Time is linear in the size of the map, but for sorting the codes.
    /// @return whether the file was written; see CTokenRegister::DoRegist(). False also when memory runs out.
    bool Store(const char* path, const CMessageMap& map) const;

    /// Adds a MessageMap block to @p parent, unless that is closed.
    /// @return false, whether the block was added or not
    bool Regist(CLexTokenBlock& parent, const CMessageMap& map) const;

protected:
    /// As Regist().
    /// @return true; false when memory runs out, and nothing has been added then. A closed @p parent takes no block,
    /// and the result is true.
    bool RegistMessageMap(CLexTokenBlock& parent, const CMessageMap& map) const;

    friend class CMessageManager;
};
