/// @file
/// CExtStrList, a doubly linked list of strings with opaque positions.
#pragma once

#include <cstdarg>
#include <cstdio>

#include "orvil/export.h"
#include "orvil/strings/ext_string.h"
#include "orvil/strings/node_list.h"

class CExtStrArray;

/// A node of CExtStrList. Copies copy both links and, deeply, the value; the list itself never copies nodes.
struct CExtStrList_ListNode {
    CExtStrList_ListNode* next = nullptr;  ///< following node; null at the tail
    CExtStrList_ListNode* prev = nullptr;  ///< preceding node; null at the head
    CExtString value;                      ///< the text, which may be empty
};

/// A doubly linked list of owned strings in the current code page, walked by opaque positions.
///
/// Every text has a node, the empty one too; a null text counts as the empty one. A position stays valid until its node
/// is removed, and must be one of this list's own (not checked); null is no position. Texts handed out stay valid until
/// their own node is changed or removed.
///
/// No member throws or writes a message. A string that cannot be copied for want of memory leaves an empty text in its
/// node. Inserting and removing at a position take constant time besides copying the text; whatever handles many texts
/// takes linear time. Not for use by several threads at a time.
/// @code
/// CExtStrList words("alpha", "beta", (const char*)0);
/// for (__pos* pos = words.GetHeadPosition(); pos != nullptr;) {
///     printf("%s\n", words.GetNext(pos));
/// }
/// @endcode
class ORVIL_API CExtStrList : public orvil::detail::NodeList<CExtStrList_ListNode> {
public:
    // --- construction ------------------------------------------------------------------------------------------------

    /// An empty list.
    CExtStrList();
    /// A deep copy, as by CopyData().
    CExtStrList(const CExtStrList& other);
    /// The texts from @p first on; the list of arguments ends with a null of pointer type.
    CExtStrList(const char* first, ...);
    /// Texts of a C array; see CreateFromStringArray().
    CExtStrList(const char* const* texts, int n);
    /// Elements of an array; see CreateFromArrayObject().
    CExtStrList(const CExtStrArray& array, int from, int to);
    /// Lines of a stream; see CreateFromStream().
    CExtStrList(FILE* fp, bool bStrip, bool bCRLF);
    /// Releases every node.
    virtual ~CExtStrList();

    // --- reading -----------------------------------------------------------------------------------------------------

    /// @return the text at @p pos, never null unless @p pos is
    const char* GetAt(__pos* pos) const { return pos == nullptr ? nullptr : ToNode(pos)->value.GetString(); }
    /// Moves @p pos on to the following node, null behind the tail.
    /// @return the text at the former @p pos; null when it was null
    const char* GetNext(__pos*& pos) const;
    /// Moves @p pos back to the preceding node, null before the head.
    /// @return the text at the former @p pos; null when it was null
    const char* GetPrev(__pos*& pos) const;
    /// @return the first text; null for an empty list
    const char* GetHead() const { return GetAt(GetHeadPosition()); }
    /// @return the last text; null for an empty list
    const char* GetTail() const { return GetAt(GetTailPosition()); }
    /// @return the position of the first text equal to @p s, or null. @param nocase compares without regard to case
    __pos* PositionOf(const char* s, bool nocase = false) const;

    // --- changing the list -------------------------------------------------------------------------------------------
    // A text argument may be one of the list's own. Where a position is returned it is null when there is no memory.

    /// Replaces the text at @p pos. @return false when @p pos is null
    bool SetAt(__pos* pos, const char* s);
    /// Appends a text. @return its position
    __pos* AddTail(const char* s);
    /// Prepends a text. @return its position
    __pos* AddHead(const char* s);
    /// Inserts a text before @p pos, at the head when @p pos is null. @return its position
    __pos* InsertBefore(__pos* pos, const char* s);
    /// Inserts a text behind @p pos, at the tail when @p pos is null. @return its position
    __pos* InsertAfter(__pos* pos, const char* s);

    // --- taking over many texts --------------------------------------------------------------------------------------
    // Where these add, the texts that are there stay. With false some texts may have been added.

    /// Appends copies of the texts of @p other, which may be this list. @return false when there is no memory
    bool AddTail(const CExtStrList& other);
    /// Prepends copies of the texts of @p other, which may be this list, in their order. @return false when there is no
    /// memory; then the last ones stand at the head
    bool AddHead(const CExtStrList& other);
    /// Becomes a deep copy of @p other. Copying a list onto itself does nothing. @return false when there is no memory
    bool CopyData(const CExtStrList& other);
    /// Appends the texts from @p first on; the list of arguments ends with a null of pointer type. @return false when
    /// there is no memory
    bool CreateFromStrings(const char* first, ...);
    /// Appends the first @p n texts, all of them when @p n is negative; a null text ends them in any case.
    /// @return false when @p texts is null or there is no memory
    bool CreateFromStringArray(const char* const* texts, int n);
    /// Appends the elements of @p array from index @p from up to, not including, @p to, or to the end when @p to is
    /// negative. The first empty element ends the copy, and so does the first index out of range.
    /// @return false when there is no memory
    bool CreateFromArrayObject(const CExtStrArray& array, int from, int to);
    /// Appends the lines of a stream, each read by CExtString::CreateFromStream() with these flags, up to the end of
    /// the file or the first line that cannot be read: a last line of less than 32 bytes without a line end is lost.
    /// @return false, always; GetCount() tells what was read
    bool CreateFromStream(FILE* fp, bool bStrip, bool bCRLF);

    // --- joining -----------------------------------------------------------------------------------------------------

    /// Stores all texts in one in @p out. @return true
    bool MakeCombinedString(CExtString& out) const;
    /// @return all texts in one. @p separator (null: none) stands before every text but those that have nothing but
    /// empty texts before them: "", "a", "", "b" joined by a comma give "a,,b".
    CExtString Join(const char* separator) const;
    /// Writes a text file. Without a separator (null or empty) each text is a line; with one it follows every text, the
    /// last one too, and no line end is written. On Windows line feeds are written as CR LF.
    /// @return false when the file cannot be opened
    bool WriteJoinedFile(const char* path, const char* separator) const;

    // --- operators ---------------------------------------------------------------------------------------------------

    /// As CopyData().
    CExtStrList& operator=(const CExtStrList& other);
    /// Appends one text.
    void operator+=(const char* s);
    /// As AddTail().
    void operator+=(const CExtStrList& other);

protected:
    /// Appends the texts from @p first on, up to a null. @return false when there is no memory
    bool CreateFromStringsV(const char* first, va_list args);

private:
    using Node = CExtStrList_ListNode;

    __pos* InsertText(Node* prev, Node* next, const char* s);
};
