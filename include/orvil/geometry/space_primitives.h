/// @file
/// Points, lines and placement steps of space: the counterparts of plane_primitives.h and plane_transforms.h.
///
/// Coordinates are in the unit of the drawing, angles in radians; a positive angle turns counter-clockwise when one
/// looks against the axis. Comparisons use the tolerance of 1e-8, strictly, coordinate by coordinate (the plane
/// compares by distance). Members that edit return true unless they say otherwise. An argument may be a part of the
/// object that is edited: what counts is its value before the call. Nothing throws. Not for use by several threads at a
/// time. Coordinates that are infinite or NaN spread by the rules of the arithmetic; no comparison with a NaN holds.
///
/// Worst errors are those of millions of random cases beside arithmetic of more digits; docs/accuracy.md has them all.
/// They are relative to the size of the coordinates and vectors that go in, for angles of at most a few turns: on
/// Windows an angle of many radians costs another 1.4e-21 a radian.
///
/// @code
/// C3DMatrixItem step;
/// step.scale.SetData(2.0, 2.0, 1.0);
/// step.move.SetData(0.0, 0.0, 5.0);
/// C3DLine edge(C3DPoint(0, 0, 0), C3DPoint(1, 0, 0));
/// edge.MatrixCalculation(step);                       // (0, 0, 5) to (2, 0, 5)
/// C2DMatrixItem plane_step;
/// step.Make2DItem(plane_step);                        // for the plane figures of the same drawing
/// @endcode
#pragma once

#include "orvil/export.h"
#include "orvil/geometry/plane_transforms.h"
#include "orvil/runtime/stored_by_library.h"
#include "orvil/strings/ext_list.h"
#include "orvil/strings/ext_string.h"

class C3DMatrixItem;

/// A point of space, or a vector.
class ORVIL_API C3DPoint {
public:
    /// Nothing to release.
    virtual ~C3DPoint();

    double x = 0.0;  ///< first coordinate
    double y = 0.0;  ///< second coordinate
    double z = 0.0;  ///< height

    /// The point (0, 0, 0).
    C3DPoint();
    /// A copy.
    C3DPoint(const C3DPoint& other);
    /// The point (@p px, @p py, @p pz).
    C3DPoint(double px, double py, double pz);
    /// Copies the coordinates.
    C3DPoint& operator=(const C3DPoint& other);

    /// Copies the coordinates. @return true
    bool SetData(const C3DPoint& other);
    /// Becomes (@p px, @p py, @p pz). @return true
    bool SetData(double px, double py, double pz);

    /// @return whether the magnitude of each coordinate is below 1e-8
    bool IsZero() const;
    /// @return whether the magnitude of each coordinate is below @p tolerance
    bool IsZero(double tolerance) const;
    /// @return whether each coordinate differs by less than 1e-8 from that of @p other
    bool Compare(const C3DPoint& other) const;
    /// As Compare().
    bool operator==(const C3DPoint& other) const;
    /// The negation of Compare().
    bool operator!=(const C3DPoint& other) const;

    /// @return the distance to (@p px, @p py, @p pz): the square root of the sum of the squared differences, which is
    /// infinite for differences beyond 1e154. Relative error at most 5e-16.
    double GetDistance(double px, double py, double pz) const;
    /// @return the distance to @p other
    double GetDistance(const C3DPoint& other) const;

    /// Adds an offset. @return true
    bool AddPoint(double dx, double dy, double dz);
    /// Adds an offset. @return true
    bool AddPoint(const C3DPoint& offset);
    /// Adds an offset. @return true
    bool Move(const C3DPoint& offset);
    /// Adds an offset.
    C3DPoint& operator+=(const C3DPoint& offset);
    /// Subtracts an offset. @return true
    bool SubPoint(double dx, double dy, double dz);
    /// Subtracts an offset. @return true
    bool SubPoint(const C3DPoint& offset);
    /// Subtracts an offset.
    C3DPoint& operator-=(const C3DPoint& offset);

    /// Reads two of the coordinates: for @p plane 1 x and y, for 2 y and z, for 3 z and x, in this order.
    /// @return false, @p a and @p b untouched, for any other @p plane
    bool Select2D(int plane, double& a, double& b) const;

    /// Rotates the point about axes through @p centre: first by @p ax about the x axis, then by @p ay about the y axis,
    /// then by @p az about the z axis. Error at most 5e-16. @param centre what stays in place @param ax radians, from y
    /// to z @param ay radians, from z to x @param az radians, from x to y @return true
    bool Rotate(const C3DPoint& centre, double ax, double ay, double az);
    /// Scales each coordinate about @p base, which stays in place. @return true
    bool Stretch(const C3DPoint& base, double sx, double sy, double sz);
    /// Applies a placement step: subtracts its base point, scales each coordinate, rotates about the z axis, adds its
    /// move point. Error at most 6e-16. @return true
    bool MatrixCalculation(const C3DMatrixItem& step);

    /// @return "x,y,z", each with 6 digits behind the point; empty when there is no memory
    CExtString GetDumpText() const;
};

/// A segment of space, from a start point to an end point.
class ORVIL_API C3DLine : public orvil::detail::StoredByLibrary {
public:
    /// Nothing to release.
    virtual ~C3DLine();

    C3DPoint start;  ///< where the line begins
    C3DPoint end;    ///< where it ends

    /// From (0, 0, 0) to (0, 0, 0).
    C3DLine();
    /// A copy.
    C3DLine(const C3DLine& other);
    /// From @p from to @p to.
    C3DLine(const C3DPoint& from, const C3DPoint& to);
    /// From (@p x1, @p y1, @p z1) to (@p x2, @p y2, @p z2).
    C3DLine(double x1, double y1, double z1, double x2, double y2, double z2);
    /// Copies both points.
    C3DLine& operator=(const C3DLine& other);

    /// Copies both points. @return true
    bool SetData(const C3DLine& other);
    /// Sets both points. @return true
    bool SetData(const C3DPoint& from, const C3DPoint& to);
    /// Sets both points. @return true
    bool SetData(double x1, double y1, double z1, double x2, double y2, double z2);

    /// @return the distance from start to end
    double GetLength() const;
    /// @return whether each coordinate of both starts and of both ends differs by less than 1e-8. A reversed line is
    /// another one.
    bool Compare(const C3DLine& other) const;

    /// Adds an offset to both points (that of the plane line moves its start only). @return true
    bool Move(const C3DPoint& offset);
    /// Rotates both points as C3DPoint::Rotate(). @param centre what stays in place @param ax radians, first @param ay
    /// radians, second @param az radians, third @return true
    bool Rotate(const C3DPoint& centre, double ax, double ay, double az);
    /// Scales both points about @p base. @return true
    bool Stretch(const C3DPoint& base, double sx, double sy, double sz);
    /// Applies a placement step to both points. @return true
    bool MatrixCalculation(const C3DMatrixItem& step);

    /// @return "SP:x,y,z EP:x,y,z", each number with 6 digits behind the point; empty, or without a point, when
    /// there is no memory
    CExtString GetDumpText() const;
};

/// A base point and a vector of space. Rotating and scaling treat the vector as a second point.
class ORVIL_API C3DVectorLine {
public:
    /// Nothing to release.
    virtual ~C3DVectorLine();

    C3DPoint base;    ///< where the vector begins
    C3DPoint vector;  ///< direction and length, not a second point

    /// Base point and vector (0, 0, 0).
    C3DVectorLine();
    /// A copy.
    C3DVectorLine(const C3DVectorLine& other);
    /// The vector @p direction at @p from.
    C3DVectorLine(const C3DPoint& from, const C3DPoint& direction);
    /// The vector (@p vx, @p vy, @p vz) at (@p bx, @p by, @p bz).
    C3DVectorLine(double bx, double by, double bz, double vx, double vy, double vz);
    /// Copies base point and vector.
    C3DVectorLine& operator=(const C3DVectorLine& other);

    /// Copies base point and vector. @return true
    bool SetData(const C3DVectorLine& other);
    /// Sets base point and vector. @return true
    bool SetData(const C3DPoint& from, const C3DPoint& direction);
    /// Sets base point and vector. @return true
    bool SetData(double bx, double by, double bz, double vx, double vy, double vz);

    /// @return the length of the vector
    double GetLength() const;
    /// @return whether each coordinate of both base points and of both vectors differs by less than 1e-8
    bool Compare(const C3DVectorLine& other) const;

    /// Adds an offset to the base point. @return true
    bool Move(const C3DPoint& offset);
    /// Multiplies the vector by its own length: a vector of length 2 becomes one of length 4, a unit vector stays. It
    /// does not normalise. @return true
    bool Optimize();
    /// Rotates the base point and the vector as C3DPoint::Rotate(). @param centre what stays in place @param ax
    /// radians, first @param ay radians, second @param az radians, third @return true
    bool Rotate(const C3DPoint& centre, double ax, double ay, double az);
    /// Scales the base point and the vector about @p base_point. @return true
    bool Stretch(const C3DPoint& base_point, double sx, double sy, double sz);
    /// Applies a placement step in a manner of its own. With B the step's base point: subtracts B from the base point;
    /// scales the base point and the vector about B; rotates both about the z axis; adds the move point to the base
    /// point only. Error at most 8e-16. @return true
    bool MatrixCalculation(const C3DMatrixItem& step);

    /// @return "BP:x,y,z VP:x,y,z", each number with 6 digits behind the point; empty, or without a point, when
    /// there is no memory
    CExtString GetDumpText() const;
};

/// One placement step of space: p becomes Rz(angle) ((p - base) scaled) + move. A step that is made by default changes
/// nothing.
///
/// Hosts may derive from it; then they override GetCopyInstance(), by which lists copy.
class ORVIL_API C3DMatrixItem {
public:
    /// Nothing to release.
    virtual ~C3DMatrixItem();
    /// @return a copy made with `new`, which the caller deletes; null when there is no memory
    virtual C3DMatrixItem* GetCopyInstance() const;

    C3DPoint base;                             ///< moved to the origin first
    C3DPoint move;                             ///< the offset added last
    C3DPoint scale = C3DPoint(1.0, 1.0, 1.0);  ///< factors of x, y and z
    double angle = 0.0;                        ///< about the z axis, radians, from x to y

    /// The step that changes nothing.
    C3DMatrixItem();
    /// As CopyData().
    C3DMatrixItem(const C3DMatrixItem& other);
    /// As CopyData().
    C3DMatrixItem& operator=(const C3DMatrixItem& other);
    /// Copies the four fields. @return true
    bool CopyData(const C3DMatrixItem& other);
    /// Makes @p out the same step of the plane: x and y of base point, move point and scale, and the angle. @return
    /// true
    bool Make2DItem(C2DMatrixItem& out) const;
};

/// A chain of placement steps, which it owns: a list, and a stack whose top is the tail.
///
/// Steps are copied by their GetCopyInstance(), so that steps of derived classes stay what they are. Pushing and
/// popping take constant time, the rest linear.
class ORVIL_API C3DMatrixList : public CExtList<C3DMatrixItem> {
public:
    /// Destroys every step.
    ~C3DMatrixList() override;

    /// An empty list.
    C3DMatrixList();
    /// As CopyData().
    C3DMatrixList(const C3DMatrixList& other);
    /// As CopyData().
    C3DMatrixList& operator=(const C3DMatrixList& other);

    /// Destroys the own steps and copies those of @p other in order. Copying a list onto itself does nothing.
    /// @return true; steps for which there is no memory are missing then, which GetCount() tells
    bool CopyData(const C3DMatrixList& other);

    /// Appends a copy of @p item at the tail.
    /// @return false when GetCopyInstance() returns null. When there is no memory for the list's node the result is
    /// true although nothing is appended.
    bool PushItem(const C3DMatrixItem& item);
    /// Removes and destroys the step at the tail, the one pushed last. Positions at it become invalid.
    /// @return false when the list is empty
    bool PopItem();
    /// Destroys every step. Every position becomes invalid. @return true
    bool DeleteAllItems();

protected:
    /// Appends @p item itself, made with `new`, at the tail; it becomes the list's own, and is destroyed at once when
    /// there is no memory for the list's node.
    /// @return false when @p item is null, else true
    bool AppendItemPtr(C3DMatrixItem* item);
};
