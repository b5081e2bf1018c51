/// @file
/// Placement steps of the plane, and lists of them.
///
/// A drawing's figure is placed by a chain of steps, each of which moves a base point to the origin, scales, rotates
/// and moves on. A figure applies one step to itself with its MatrixCalculation().
///
/// @code
/// C2DMatrixItem step;
/// step.base.SetData(1.0, 1.0);
/// step.scale.SetData(2.0, 2.0);
/// step.move.SetData(10.0, 0.0);
/// C2DMatrixList chain;
/// chain.PushItem(step);
/// C2DPoint p(3.0, 4.0);
/// for (__pos* pos = chain.GetHeadPosition(); pos != nullptr;) {
///     p.MatrixCalculation(*chain.GetNext(pos));    // (14, 6)
/// }
/// @endcode
#pragma once

#include "orvil/export.h"
#include "orvil/geometry/plane_primitives.h"
#include "orvil/strings/ext_list.h"

/// One placement step of the plane: p becomes R(angle) ((p - base) scaled) + move. So the move point is where the base
/// point goes. A step that is made by default changes nothing.
///
/// Hosts may derive from it; then they override GetCopyInstance(), by which lists copy. Nothing throws. Not for use by
/// several threads at a time.
class ORVIL_API C2DMatrixItem {
public:
    /// Nothing to release.
    virtual ~C2DMatrixItem();
    /// @return a copy made with `new`, which the caller deletes; null when there is no memory
    virtual C2DMatrixItem* GetCopyInstance() const;

    C2DPoint base;                        ///< moved to the origin first
    C2DPoint move;                        ///< the offset added last
    C2DPoint scale = C2DPoint(1.0, 1.0);  ///< factors of x and y
    double angle = 0.0;                   ///< radians, counter-clockwise

    /// The step that changes nothing.
    C2DMatrixItem();
    /// As CopyData().
    C2DMatrixItem(const C2DMatrixItem& other);
    /// As CopyData().
    C2DMatrixItem& operator=(const C2DMatrixItem& other);
    /// Copies the four fields. @return true
    bool CopyData(const C2DMatrixItem& other);
};

/// A chain of placement steps, which it owns: a list, and a stack whose top is the tail.
///
/// Steps are copied by their GetCopyInstance(), so that steps of derived classes stay what they are. Pushing and
/// popping take constant time, the rest linear. Nothing throws. Not for use by several threads at a time.
class ORVIL_API C2DMatrixList : public CExtList<C2DMatrixItem> {
public:
    /// Destroys every step.
    ~C2DMatrixList() override;

    /// An empty list.
    C2DMatrixList();
    /// As CopyData().
    C2DMatrixList(const C2DMatrixList& other);
    /// As CopyData().
    C2DMatrixList& operator=(const C2DMatrixList& other);

    /// Destroys the own steps and copies those of @p other in order. Copying a list onto itself does nothing.
    /// @return true; steps for which there is no memory are missing then, which GetCount() tells
    bool CopyData(const C2DMatrixList& other);

    /// Appends a copy of @p item at the tail.
    /// @return false when GetCopyInstance() returns null. When there is no memory for the list's node the result is
    /// true although nothing is appended.
    bool PushItem(const C2DMatrixItem& item);
    /// Removes and destroys the step at the tail, the one pushed last. Positions at it become invalid.
    /// @return false when the list is empty
    bool PopItem();
    /// Destroys every step. Every position becomes invalid. @return true
    bool DeleteAllItems();

protected:
    /// Appends @p item itself, made with `new`, at the tail; it becomes the list's own, and is destroyed at once when
    /// there is no memory for the list's node.
    /// @return false when @p item is null, else true
    bool AppendItemPtr(C2DMatrixItem* item);
};
