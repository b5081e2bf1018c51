// Placement steps of the plane, and lists of them.
#include <cstddef>
#include <new>

#include "geometry/matrix_list.h"
#include "orvil/geometry/plane_transforms.h"

// Hosts rely on the layout. Every compiler of ours supports offsetof in classes with virtual functions.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
static_assert(sizeof(C2DMatrixItem) == 88 && offsetof(C2DMatrixItem, base) == 8);
static_assert(offsetof(C2DMatrixItem, move) == 32 && offsetof(C2DMatrixItem, scale) == 56);
static_assert(offsetof(C2DMatrixItem, angle) == 80);

// --- steps -----------------------------------------------------------------------------------------------------------

C2DMatrixItem::~C2DMatrixItem() = default;
C2DMatrixItem::C2DMatrixItem() = default;
C2DMatrixItem::C2DMatrixItem(const C2DMatrixItem& other) = default;
C2DMatrixItem& C2DMatrixItem::operator=(const C2DMatrixItem& other) = default;

C2DMatrixItem* C2DMatrixItem::GetCopyInstance() const {
    return new (std::nothrow) C2DMatrixItem(*this);
}

bool C2DMatrixItem::CopyData(const C2DMatrixItem& other) {
    *this = other;
    return true;
}

// --- lists -----------------------------------------------------------------------------------------------------------

C2DMatrixList::~C2DMatrixList() = default;
C2DMatrixList::C2DMatrixList() = default;

C2DMatrixList::C2DMatrixList(const C2DMatrixList& other) : CExtList() {
    CopyData(other);
}

C2DMatrixList& C2DMatrixList::operator=(const C2DMatrixList& other) {
    CopyData(other);
    return *this;
}

bool C2DMatrixList::CopyData(const C2DMatrixList& other) {
    return orvil::copy_items<C2DMatrixItem>(*this, other);
}

bool C2DMatrixList::PushItem(const C2DMatrixItem& item) {
    return AppendItemPtr(item.GetCopyInstance());
}

bool C2DMatrixList::PopItem() {
    return RemoveTail();
}

bool C2DMatrixList::DeleteAllItems() {
    return RemoveAll();
}

bool C2DMatrixList::AppendItemPtr(C2DMatrixItem* item) {
    return orvil::append_item<C2DMatrixItem>(*this, item);
}
