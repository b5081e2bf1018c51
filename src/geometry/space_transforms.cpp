// Placement steps of space, and lists of them.
#include <cstddef>
#include <new>

#include "geometry/matrix_list.h"
#include "orvil/geometry/space_primitives.h"

// Hosts rely on the layout. Every compiler of ours supports offsetof in classes with virtual functions.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
static_assert(sizeof(C3DMatrixItem) == 112 && offsetof(C3DMatrixItem, base) == 8);
static_assert(offsetof(C3DMatrixItem, move) == 40 && offsetof(C3DMatrixItem, scale) == 72);
static_assert(offsetof(C3DMatrixItem, angle) == 104);

// --- steps -----------------------------------------------------------------------------------------------------------

C3DMatrixItem::~C3DMatrixItem() = default;
C3DMatrixItem::C3DMatrixItem() = default;
C3DMatrixItem::C3DMatrixItem(const C3DMatrixItem& other) = default;
C3DMatrixItem& C3DMatrixItem::operator=(const C3DMatrixItem& other) = default;

C3DMatrixItem* C3DMatrixItem::GetCopyInstance() const {
    return new (std::nothrow) C3DMatrixItem(*this);
}

bool C3DMatrixItem::CopyData(const C3DMatrixItem& other) {
    *this = other;
    return true;
}

bool C3DMatrixItem::Make2DItem(C2DMatrixItem& out) const {
    out.base.SetData(base.x, base.y);
    out.move.SetData(move.x, move.y);
    out.scale.SetData(scale.x, scale.y);
    out.angle = angle;
    return true;
}

// --- lists -----------------------------------------------------------------------------------------------------------

C3DMatrixList::~C3DMatrixList() = default;
C3DMatrixList::C3DMatrixList() = default;

C3DMatrixList::C3DMatrixList(const C3DMatrixList& other) : CExtList() {
    CopyData(other);
}

C3DMatrixList& C3DMatrixList::operator=(const C3DMatrixList& other) {
    CopyData(other);
    return *this;
}

bool C3DMatrixList::CopyData(const C3DMatrixList& other) {
    return orvil::copy_items<C3DMatrixItem>(*this, other);
}

bool C3DMatrixList::PushItem(const C3DMatrixItem& item) {
    return AppendItemPtr(item.GetCopyInstance());
}

bool C3DMatrixList::PopItem() {
    return RemoveTail();
}

bool C3DMatrixList::DeleteAllItems() {
    return RemoveAll();
}

bool C3DMatrixList::AppendItemPtr(C3DMatrixItem* item) {
    return orvil::append_item<C3DMatrixItem>(*this, item);
}
