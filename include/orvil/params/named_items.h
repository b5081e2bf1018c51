/// @file
/// CVpList, a list of objects with unique names, and CVpItem, what the objects derive from.
///
/// The list is intrusive: each item carries its own link. An index finds items by name. A list owns its items and
/// deletes them when it is cleared or destroyed; items that have been taken out belong to whoever did so. Items come
/// from `new`, since the list deletes them.
/// @code
/// class Layer : public CVpItem {
/// public:
///     CVpItem* duplicate() const override { return new (std::nothrow) Layer(*this); }
///     int colour = 7;
/// };
/// ...
/// CVpList layers(false, 37);
/// Layer* walls = new Layer;
/// walls->SetName("Walls");
/// if (!layers.AddTail(walls)) delete walls;       // the name is there already
/// CVpItem* found = layers.Find("WALLS");          // case does not matter in this list
/// @endcode
/// Deriving classes learn of changes by virtual hooks. A hook may be overridden if the override calls the original: the
/// index, the count and the owner are kept up to date there. Hooks are called, not threads locked: one thread at a
/// time. Nothing throws. Looking up a name is linear in its chain of the index, whose number of buckets is given once.
#pragma once

#include "orvil/export.h"
#include "orvil/strings/ext_hash.h"
#include "orvil/strings/ext_string.h"

class CVpList;

namespace orvil::detail {
class ItemAccess;
}  // namespace orvil::detail

/// The link of an item, and the head of a list. The head's `next` is the first item, its `prev` the last one. An empty
/// list's head, and the link of an item that stands alone, point to themselves. Copying copies the two pointers.
struct VPLIST {
    VPLIST* prev = this;  ///< the link before this one
    VPLIST* next = this;  ///< the link behind this one
};

/// An object with a name and 32 flags that a CVpList can hold. Names are compared as the list wants; the comparisons of
/// this class heed case unless they say otherwise.
///
/// Items that are in no list may be linked with each other, too, by InsertNext() and InsertPrev().
class ORVIL_API CVpItem : public VPLIST {
public:
    /// An item in no list, with an empty name and no flags.
    CVpItem();
    /// An item in no list, with the name of @p source and no flags.
    CVpItem(const CVpItem& source);
    /// As Copy().
    CVpItem& operator=(const CVpItem& source);
    /// Takes the item out of its list, without calling a hook.
    virtual ~CVpItem();

    /// @return a new item that is a copy of this one, for the caller to delete; null when there is no memory. Deriving
    /// classes return one of their own kind.
    virtual CVpItem* duplicate() const;
    /// @return -1, 0 or 1 as the name of this item comes before that of @p other, is the same or comes behind it, by
    /// unsigned bytes. Null is named "".
    virtual int Compare(CVpItem* other) const;

    /// @name Hooks
    /// @{

    /// Called by CVpList::Clear() right before the item is deleted. Does nothing.
    virtual void OnDestroy();
    /// Called when the item comes into a list. Records @p list as its owner.
    virtual void OnAttachList(CVpList* list);
    /// Called when the item has gone from a list. Records that it has no owner.
    virtual void OnDetachList(CVpList* list);
    /// @}

    /// Takes over the name and the flags of @p source. The item ends up in no list: it is taken out of the one that it
    /// is in, without calling a hook.
    void Copy(const CVpItem& source);

    /// @return the name, which holds until it is changed; never null
    const char* GetName() const { return name_; }
    /// @return the length of the name in bytes
    int GetNameLength() const { return name_.GetLength(); }
    /// Changes the name; null is "". In a list, CVpList::OnRenameItem() is called first.
    /// @return false, and nothing has changed, when the list has an item of that name (this one counts) or there is no
    /// memory
    bool SetName(const char* name);
    /// @return as Compare(), with a text; null is ""
    int CompareName(const char* name) const;
    /// @return negative, zero or positive as the name comes before @p name when both are taken as lower case
    int CompareNameNoCase(const char* name) const;

    /// @return all flags
    unsigned GetFlags() const { return flags_; }
    /// Replaces all flags.
    void SetFlags(unsigned bits) { flags_ = bits; }
    /// @return the flags that are in @p mask
    unsigned GetMaskedFlags(unsigned mask) const { return flags_ & mask; }
    /// Clears the flags of @p mask, then sets those of @p bits, be they in the mask or not.
    void SetMaskedFlags(unsigned mask, unsigned bits) { flags_ = (flags_ & ~mask) | bits; }
    /// @return whether all flags of @p mask are set
    bool TestFlags(unsigned mask) const { return (flags_ & mask) == mask; }
    /// Clears the flags of @p clearBits, then sets those of @p setBits.
    void ModFlags(unsigned setBits, unsigned clearBits) { SetMaskedFlags(clearBits, setBits); }

    /// @return the list that the item is in, or null
    CVpList* Parent() const { return list_; }

    /// Links @p item right behind this one and, when this one is in a list, enters it there.
    /// @return false, and nothing has changed, when the list has an item of that name, when @p item is this one, null
    /// or in a list, and when there is no memory
    bool InsertNext(CVpItem* item);
    /// As InsertNext(), right before this one.
    bool InsertPrev(CVpItem* item);
    /// Takes the item out of its list, where CVpList::OnRemoveItem() is called. The item lives on, and is the caller's.
    void Delete();
    /// Takes the item out of its list and puts it into @p list, which may be the same one, as the first item.
    /// @return false when @p list has an item of that name or there is no memory: then the item is in no list, and is
    /// the caller's. False, too, when @p list is null: then nothing has changed.
    bool MoveHead(CVpList* list);
    /// As MoveHead(), as the last item.
    bool MoveTail(CVpList* list);

protected:
    CVpList* list_;    ///< the list that the item is in, or null
    CExtString name_;  ///< the name; an item in a list is renamed by SetName() only
    unsigned flags_;   ///< the flags

private:
    friend class orvil::detail::ItemAccess;
};

/// A list of items with unique names. Items are found by name, by position and by walking.
class ORVIL_API CVpList : public VPLIST {
public:
    /// An empty list.
    /// @param caseSensitive whether names that differ in case are different
    /// @param bucketCount the number of the index's buckets, 37 when it is below 1: near the number of items at best
    CVpList(bool caseSensitive, int bucketCount);
    /// As Copy().
    CVpList(const CVpList& source);
    /// Clear(), then Copy(). A list assigned to itself stays as it is.
    CVpList& operator=(const CVpList& source);
    /// Clear(). The hooks of deriving classes are not called any more: those classes call Clear() in their destructors.
    virtual ~CVpList();

    /// @name Hooks
    /// @{

    /// Called when @p item has been linked. Enters it in the index, counts it and calls its OnAttachList().
    virtual void OnInsertItem(CVpItem* item);
    /// Called when @p item has been unlinked. Takes it out of index and count and calls its OnDetachList().
    virtual void OnRemoveItem(CVpItem* item);
    /// Called before @p item is renamed. Takes the old name out of the index and enters the new one.
    virtual void OnRenameItem(CVpItem* item, const char* newName);
    /// @}

    /// Adds @p item as the first one.
    /// @return false, and nothing has changed, when there is an item of that name, when @p item is null or in a list,
    /// and when there is no memory. Then the item is still the caller's.
    bool AddHead(CVpItem* item);
    /// As AddHead(), as the last one.
    bool AddTail(CVpItem* item);

    /// @return whether there is an item of that name
    bool IsExist(const char* name) const { return Find(name) != nullptr; }
    /// @return the item of that name, or null
    CVpItem* Find(const char* name) const;
    /// @return the first item, or null
    CVpItem* GetHead() const { return ItemAt(next); }
    /// @return the last item, or null
    CVpItem* GetTail() const { return ItemAt(prev); }
    /// @return item @p index, counted from 0; null when there is none. Linear.
    CVpItem* GetAt(int index) const;
    /// @return the number of items
    int GetCount() const { return count_; }
    /// @return whether there is no item
    bool IsEmpty() const { return next == this; }

    /// Deletes all items. For each, from the first: it is unlinked, OnRemoveItem() is called, then
    /// CVpItem::OnDestroy(). Linear.
    void Clear();
    /// Moves all items whose names @p other does not have to its end, in order; the others stay. OnRemoveItem() here
    /// and OnInsertItem() there are called for each. An item that @p other has no memory for stays here, too; its name
    /// may then be missing in the index.
    /// @return false when this list is empty or @p other is null
    bool Splice(CVpList* other);
    /// Takes over the case rule, the number of buckets and, by CVpItem::duplicate(), the items of @p other. The items
    /// that are in this list are not deleted: they are in no list then. Call Clear() first unless somebody else owns
    /// them. A list copied onto itself stays as it is.
    /// @return false when there is no memory; then items are missing
    bool Copy(const CVpList& other);

protected:
    bool case_sensitive_;       ///< whether names that differ in case are different
    int bucket_count_;          ///< the number of the index's buckets
    int count_;                 ///< the number of items
    CExtHash<CVpItem*> index_;  ///< the items by name

private:
    friend class orvil::detail::ItemAccess;

    CVpItem* ItemAt(VPLIST* link) const { return link == this ? nullptr : static_cast<CVpItem*>(link); }
};
