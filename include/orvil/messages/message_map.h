/// @file
/// A table of numbered message texts.
///
/// Codes are small numbers in two classes:
///
/// | codes | class |
/// |---|---|
/// | 0 to 999 | resources: captions and other texts of a program |
/// | 1000 to 9999 | errors |
///
/// A map keeps its items in the order in which they came, at positions from 0 on, and an index from each code to the
/// newest item that has it. An older item of the same code stays where it is: it is counted, listed and copied, but
/// only its position leads to it. A deleted item leaves an empty position behind, so that no other item moves.
///
/// The subject key, a code and a title, names the map as a whole; CMessageManager finds maps by it, and message files
/// hold it.
///
/// Texts are bytes of the current code page. Nothing throws and no message is written. Objects are not locked: one
/// thread at a time.
///
/// @code
/// CMessageMap errors;
/// errors.SetupSubjectKey(12, "Reading drawings");
/// errors.AddItem(1001, "The file cannot be read");
/// if (const char* text = errors.SearchItemText(1001)) std::printf("%s\n", text);
/// @endcode
#pragma once

#include "orvil/export.h"
#include "orvil/strings/ext_array.h"
#include "orvil/strings/ext_hash.h"
#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_string.h"

/// Message texts by code, with a subject key.
///
/// Texts that the map hands out live until their item is changed or deleted; other items do not matter. Each of them
/// may be passed to any member of the same map. Looking a code up takes constant time while there are a few hundred of
/// them, and at most time linear in a 277th of them.
class ORVIL_API CMessageMap {
public:
    /// One message. The map owns it.
    struct CMsgMapItem {
        int code = 0;     ///< the message code
        CExtString text;  ///< the message
    };

    /// An empty map without a title; the subject code is 0.
    CMessageMap();
    /// A copy, as by CopyData(). When memory runs out it is incomplete.
    CMessageMap(const CMessageMap& source);
    /// As CopyData().
    CMessageMap& operator=(const CMessageMap& source);
    /// Releases the items.
    virtual ~CMessageMap();

    /// @return a copy made by CopyData(), which the caller deletes; null when that fails. A class that derives from
    /// this one overrides it to be copied whole by CMessageManager.
    virtual CMessageMap* GetCopyInstance() const;

    /// Replaces subject and items by those of @p source. Empty positions are left out, so that later items move up. The
    /// items are added one by one: of several items of one code the last is the one that the code leads to afterwards,
    /// whatever it led to in @p source. Copying a map onto itself does nothing.
    /// @return false when an item is refused or memory runs out; the map holds the items before it then
    bool CopyData(const CMessageMap& source);

    /// Names the map.
    /// @param code any number
    /// @param text the title
    /// @return false for a null or empty text, and nothing has changed; without memory for the title the map has none,
    /// and the result is true
    bool SetupSubjectKey(int code, const char* text);

    /// @return the code of the subject key
    int GetSubjectKeyCode() const;

    /// @return the title, empty when there is none; never null. It lives until the subject key changes.
    const char* GetSubjectKeyText() const;

    /// Adds an item behind all others. The code leads to it from now on.
    /// @return false for a code outside 0..9999 and a null or empty text, and nothing has changed; false when memory
    /// runs out, and the map may have an empty position more. Without memory for the text it is empty, and the result
    /// is true.
    bool AddItem(int code, const char* text);

    /// Gives the item to which @p oldCode leads a new code and text, at the same position. @p oldCode then leads to no
    /// item, and what @p newCode led to is reached by its position only. When both codes are equal only the text
    /// changes.
    /// @return false for a code outside 0..9999, a null or empty text, and an @p oldCode that leads to no item, and
    /// nothing has changed; false when memory runs out, and no code leads to the item then. Without memory for the text
    /// it is empty, and the result is true.
    bool ReplaceItem(int oldCode, int newCode, const char* text);

    /// Deletes the item to which the code leads. Its position stays, empty, and the code leads to no item, not even to
    /// an older one.
    /// @return false when it leads to none
    bool DeleteItem(int code);

    /// Deletes all items and positions. The subject stays. @return true
    bool DeleteAllItems();

    /// @return the number of positions, the empty ones among them
    int GetItemCount() const;

    /// @return the code of the item at @p position; -1 when the position is empty or outside 0..count-1
    int GetItemCode(int position) const;

    /// @return the text of the item at @p position; null when the position is empty or outside 0..count-1
    const char* GetItemText(int position) const;

    /// @return the text of the newest item of that code; null when the code leads to no item
    const char* SearchItemText(int code) const;

    /// Lists the codes of all items in the order of their positions, in decimal; a code as often as it occurs.
    /// @param out emptied first. Without memory it ends early.
    /// @return true
    bool MakeCodeArray(CExtStrArray& out) const;

    /// @return whether the code is one of a message: 0 to 9999
    static bool IsMsgCode(int code);

    /// @return whether the code is one of a resource: 0 to 999
    static bool IsResourceCode(int code);

    /// @return whether the code is one of an error: 1000 to 9999
    static bool IsErrorCode(int code);

protected:
    /// @return the position to which the code leads; -1 when it leads to none
    int SearchIndex(int code) const;

    /// @return the item at @p position, which stays the map's own; null when the position is empty or outside
    /// 0..count-1
    CMsgMapItem* GetItem(int position) const;

    CExtString subject_text_;       ///< the title
    int subject_code_;              ///< the code of the subject key
    CExtArray<CMsgMapItem> items_;  ///< the items by position; an empty slot is an empty position
    CExtHash<int> index_;           ///< code to position. Positions that are not there lead to no item.
};
