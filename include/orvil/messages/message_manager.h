/// @file
/// All message maps of a program, and the error numbers that are unique among them.
///
/// Each map is identified by its subject code. An error number combines the code of a map and the code of a message in
/// it: message 3456 of map 12 is 123456.
///
/// Nothing throws and no message is written; bt_input_file() tells why a file cannot be read. Objects are not locked:
/// one thread at a time.
///
/// @code
/// CMessageManager messages;
/// if (messages.Load("messages.txt")) {
///     const CMessageMap* map = messages.SearchMessageMap(number / 10000);
///     const char* text = map == nullptr ? nullptr : map->SearchItemText(number % 10000);
///     std::printf("%d: %s\n", number, text == nullptr ? "unknown error" : text);
/// }
/// @endcode
#pragma once

#include "orvil/export.h"
#include "orvil/messages/message_map.h"
#include "orvil/strings/ext_hash.h"
#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_str_hash.h"

namespace orvil::detail {
struct ManagerAccess;
}

/// Message maps by code and title.
///
/// The manager owns copies of the maps that it is given. They are ordered by code, and no two have the same one;
/// several may have the same title, and then the title leads to the one that was added last.
///
/// A map is found in constant time, and added in constant time when its code is the highest; otherwise a pointer moves
/// for each map of a higher code.
///
/// Maps that the manager hands out stay its own, live until RemoveAll() or an assignment, and may be changed, but for
/// their subjects: the manager goes on finding them by the subject that they had when they were added.
class ORVIL_API CMessageManager {
public:
    /// A manager without maps.
    CMessageManager();
    /// A copy, as by CopyData(). When memory runs out it is incomplete.
    CMessageManager(const CMessageManager& source);
    /// As CopyData().
    CMessageManager& operator=(const CMessageManager& source);
    /// Releases the maps.
    virtual ~CMessageManager();

    /// @return a copy made by CopyData(), which the caller deletes; null when that fails
    virtual CMessageManager* GetCopyInstance() const;

    /// Replaces the maps by copies of those of @p source, added in the order of their codes: a title that several share
    /// then leads to the highest code. Copying a manager onto itself does nothing.
    /// @return false when a map is refused, as by AddMap(); the manager holds those before it then
    bool CopyData(const CMessageManager& source);

    /// @return the number of maps
    int GetItemCount() const;

    /// Adds a copy of @p map, made by its GetCopyInstance().
    /// @return false when there is a map with its subject code, when it cannot be copied, and when memory runs out;
    /// nothing has changed then
    bool AddMap(const CMessageMap& map);

    /// @return the map at @p position in the order of codes; null outside 0..count-1
    CMessageMap* GetMessageMap(int position) const;

    /// @return the map with that subject code, or null
    CMessageMap* SearchMessageMap(int code) const;

    /// @param title compared with regard to case; null counts as empty, which is the title of maps without one
    /// @return the map that was added last with that title, or null
    CMessageMap* SearchMessageMap(const char* title) const;

    /// Deletes all maps. @return true
    bool RemoveAll();

    /// Adds the maps of a file: those of all MessageMap blocks at its top level, in their order. Blocks that
    /// CMessageLoader::Parse() refuses and maps that AddMap() refuses are left out. Maps that are there already stay.
    /// Time is linear in the size of the file.
    /// @return whether the whole file could be read as token-block text, with maps or without; see
    /// CTokenParser::DoParse(). Otherwise nothing has changed.
    bool Load(const char* path);

    /// Writes all maps to one file in the order of their codes, each as CMessageRegister writes it, below a heading
    /// with the name of the file.
    /// @param path the file; it is replaced when it exists
    /// @param banner the lines of the heading; null or empty for the usual ones
    /// @return whether the file was written; false when its owner may not read or not write the file that is there,
    /// which is left as it was, and when memory runs out
    bool Store(const char* path, const char* banner) const;

    /// @param mapCode the subject code of a map
    /// @param messageCode counts as 0 outside 0..9999
    /// @return @p mapCode x 10000 + @p messageCode, modulo 2 to the 32nd
    static int GetFinalErrorCode(int mapCode, int messageCode);

private:
    friend struct orvil::detail::ManagerAccess;

    CExtStrArray codes_;           // subject codes in decimal, ascending
    CExtHash<CMessageMap*> maps_;  // decimal code to map
    CExtStrHash titles_;           // title to decimal code
};
