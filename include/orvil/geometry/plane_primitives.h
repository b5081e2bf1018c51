/// @file
/// Points, lines and ellipses of the plane.
///
/// Four values: C2DPoint, C2DLine (a segment), C2DVectorLine (a base point and a vector) and C2DEllipse (an ellipse or
/// an elliptic arc; with a ratio of 1 a circle or a circular arc). They are copied freely, own nothing and are not for
/// use by several threads at a time.
///
/// Coordinates are in the unit of the drawing, angles in radians, counter-clockwise. Comparisons use the tolerance of
/// 1e-8, strictly. Members that edit return true unless they say otherwise. An argument may be a part of the object
/// that is edited, as in `line.Stretch(line.start, 2, 2)`: what counts is its value before the call. Nothing throws,
/// and nothing but the texts of GetDumpText() allocates. Coordinates that are infinite or NaN spread by the rules of
/// the arithmetic; no comparison with a NaN holds.
///
/// Worst errors are those of millions of random cases beside arithmetic of more digits; docs/accuracy.md has them all.
/// They are relative to the size of the coordinates and vectors that go in, for angles of at most a few turns: on
/// Windows an angle of many radians costs another 1.4e-21 a radian.
///
/// @code
/// C2DLine wall(0.0, 0.0, 4.0, 3.0);
/// wall.GetLength();                            // 5
/// wall.Stretch(C2DPoint(), 2.0, 2.0);          // to (8, 6)
/// C2DEllipse arc(C2DPoint(1, 1), C2DPoint(2, 0), 0.5, 0.0, r_PAI());
/// arc.GetShortRadius();                        // 1
/// @endcode
#pragma once

#include "orvil/export.h"
#include "orvil/strings/ext_string.h"

class C2DMatrixItem;

/// A point of the plane, or a vector.
class ORVIL_API C2DPoint {
public:
    /// Nothing to release.
    virtual ~C2DPoint();

    double x = 0.0;  ///< abscissa
    double y = 0.0;  ///< ordinate

    /// The point (0, 0).
    C2DPoint();
    /// A copy.
    C2DPoint(const C2DPoint& other);
    /// The point (@p px, @p py).
    C2DPoint(double px, double py);
    /// Copies the coordinates.
    C2DPoint& operator=(const C2DPoint& other);

    /// Copies the coordinates. @return true
    bool SetData(const C2DPoint& other);
    /// Becomes (@p px, @p py). @return true
    bool SetData(double px, double py);

    /// @return whether the magnitude of each coordinate is below 1e-8
    bool IsZero() const;
    /// @return whether the magnitude of each coordinate is below @p tolerance
    bool IsZero(double tolerance) const;
    /// @return whether the distance to @p other is below 1e-8. So (0.9e-8, 0.9e-8) is zero but not (0, 0).
    bool Compare(const C2DPoint& other) const;
    /// As Compare().
    bool operator==(const C2DPoint& other) const;
    /// The negation of Compare().
    bool operator!=(const C2DPoint& other) const;

    /// Adds an offset. @return true
    bool AddPoint(double dx, double dy);
    /// Adds an offset. @return true
    bool AddPoint(const C2DPoint& offset);
    /// Adds an offset. @return true
    bool Move(const C2DPoint& offset);
    /// Adds an offset.
    C2DPoint& operator+=(const C2DPoint& offset);
    /// Subtracts an offset. @return true
    bool SubPoint(double dx, double dy);
    /// Subtracts an offset. @return true
    bool SubPoint(const C2DPoint& offset);
    /// Subtracts an offset.
    C2DPoint& operator-=(const C2DPoint& offset);

    /// @return the distance to (@p px, @p py): the square root of the sum of the squared differences, which is infinite
    /// for differences beyond 1e154. Relative error at most 4e-16.
    double GetDistance(double px, double py) const;
    /// @return the distance to @p other
    double GetDistance(const C2DPoint& other) const;

    /// Rotates the point about @p centre: with d = point - centre, c + (cos a d.x - sin a d.y, sin a d.x + cos a d.y).
    /// Error at most 4e-16. @param centre what stays in place @param angle radians, counter-clockwise @return true
    bool Rotate(const C2DPoint& centre, double angle);
    /// Scales the point about @p base, which stays in place: base + (sx d.x, sy d.y), d = point - base. Error at most
    /// 4e-16. @return true
    bool Stretch(const C2DPoint& base, double sx, double sy);
    /// Reflects the point in the line through @p a and @p b, by the same computation as CA_MIRROR(). Error at most
    /// 1.5e-15.
    /// @return false, the point unchanged, when the squared distance of @p a and @p b is below 1e-8
    bool Mirror(const C2DPoint& a, const C2DPoint& b);
    /// Applies a placement step: subtracts its base point, scales and rotates about the origin, adds its move point.
    /// Error at most 6e-16. Placing by the same angle again and again spares the cosine and the sine.
    /// @return true
    bool MatrixCalculation(const C2DMatrixItem& step);

    /// @return "x,y", each with 15 digits behind the point; empty when there is no memory
    CExtString GetDumpText() const;
};

/// A segment, from a start point to an end point.
class ORVIL_API C2DLine {
public:
    /// Nothing to release.
    virtual ~C2DLine();

    C2DPoint start;  ///< where the line begins
    C2DPoint end;    ///< where it ends

    /// From (0, 0) to (0, 0).
    C2DLine();
    /// A copy.
    C2DLine(const C2DLine& other);
    /// From @p from to @p to.
    C2DLine(const C2DPoint& from, const C2DPoint& to);
    /// From (@p x1, @p y1) to (@p x2, @p y2).
    C2DLine(double x1, double y1, double x2, double y2);
    /// Copies both points.
    C2DLine& operator=(const C2DLine& other);

    /// Copies both points. @return true
    bool SetData(const C2DLine& other);
    /// Sets both points. @return true
    bool SetData(const C2DPoint& from, const C2DPoint& to);
    /// Sets both points. @return true
    bool SetData(double x1, double y1, double x2, double y2);

    /// @return the distance from start to end
    double GetLength() const;
    /// @return the direction from start to end in [0, 2 pi), as GET_ANGLE()
    double GetAngle() const;

    /// @return whether both starts and both ends are nearer to each other than 1e-8. A reversed line is another one.
    bool Compare(const C2DLine& other) const;
    /// As Compare() of the line from @p from to @p to.
    bool Compare(const C2DPoint& from, const C2DPoint& to) const;

    /// Adds the start of @p offsets to the start and its end to the end. @return true
    bool AddLine(const C2DLine& offsets);
    /// Adds @p ds to the start and @p de to the end. @return true
    bool AddLine(const C2DPoint& ds, const C2DPoint& de);
    /// Adds (@p sx, @p sy) to the start and (@p ex, @p ey) to the end. @return true
    bool AddLine(double sx, double sy, double ex, double ey);
    /// As AddLine().
    C2DLine& operator+=(const C2DLine& offsets);
    /// Subtracts the start of @p offsets from the start and its end from the end. @return true
    bool SubLine(const C2DLine& offsets);
    /// Subtracts @p ds from the start and @p de from the end. @return true
    bool SubLine(const C2DPoint& ds, const C2DPoint& de);
    /// Subtracts (@p sx, @p sy) from the start and (@p ex, @p ey) from the end. @return true
    bool SubLine(double sx, double sy, double ex, double ey);
    /// As SubLine().
    C2DLine& operator-=(const C2DLine& offsets);

    /// Adds an offset to the start point only; the end stays. AddLine() with the offset twice moves the whole line.
    /// @return true
    bool Move(const C2DPoint& offset);
    /// Rotates the start point only about @p centre; the end stays. @param centre what stays in place @param angle
    /// radians, counter-clockwise @return true
    bool Rotate(const C2DPoint& centre, double angle);
    /// Scales both points about @p base. @return true
    bool Stretch(const C2DPoint& base, double sx, double sy);
    /// Reflects both points in the line through @p a and @p b.
    /// @return false, the line unchanged, when the squared distance of @p a and @p b is below 1e-8
    bool Mirror(const C2DPoint& a, const C2DPoint& b);
    /// Applies a placement step to both points, as C2DPoint::MatrixCalculation(). @return true
    bool MatrixCalculation(const C2DMatrixItem& step);

    /// @return "SP:x,y EP:x,y", each number with 15 digits behind the point; empty, or without a point, when
    /// there is no memory
    CExtString GetDumpText() const;
};

/// A base point and a vector, which is a direction and a length.
///
/// Some operations treat the vector as a point, as if it stood at the origin; each says so.
class ORVIL_API C2DVectorLine {
public:
    /// Nothing to release.
    virtual ~C2DVectorLine();

    C2DPoint base;    ///< where the vector begins
    C2DPoint vector;  ///< direction and length, not a second point

    /// Base point and vector (0, 0).
    C2DVectorLine();
    /// A copy.
    C2DVectorLine(const C2DVectorLine& other);
    /// The vector @p direction at @p from.
    C2DVectorLine(const C2DPoint& from, const C2DPoint& direction);
    /// The vector (@p vx, @p vy) at (@p bx, @p by).
    C2DVectorLine(double bx, double by, double vx, double vy);
    /// Copies base point and vector.
    C2DVectorLine& operator=(const C2DVectorLine& other);

    /// Copies base point and vector. @return true
    bool SetData(const C2DVectorLine& other);
    /// Sets base point and vector. @return true
    bool SetData(const C2DPoint& from, const C2DPoint& direction);
    /// Sets base point and vector. @return true
    bool SetData(double bx, double by, double vx, double vy);

    /// @return the length of the vector
    double GetLength() const;

    /// @return whether both base points and both vectors are nearer to each other than 1e-8
    bool Compare(const C2DVectorLine& other) const;
    /// As Compare() of the vector @p direction at @p from.
    bool Compare(const C2DPoint& from, const C2DPoint& direction) const;

    /// Adds an offset to the base point. @return true
    bool Move(const C2DPoint& offset);
    /// Multiplies the vector by its own length: a vector of length 2 becomes one of length 4, a unit vector stays. It
    /// does not normalise. @return true
    bool Optimize();
    /// Rotates the base point and then the vector, treated as a point, about @p centre. @param centre what stays in
    /// place @param angle radians, counter-clockwise @return true
    bool Rotate(const C2DPoint& centre, double angle);
    /// Scales the base point and the vector, treated as a point, about @p base_point. @return true
    bool Stretch(const C2DPoint& base_point, double sx, double sy);
    /// Applies a placement step in a manner of its own. With B the step's base point: subtracts B from the base point;
    /// scales the base point and the vector, treated as a point, about B; rotates both about the origin; adds the move
    /// point to the base point only. Error at most 8e-16. @return true
    bool MatrixCalculation(const C2DMatrixItem& step);

    /// @return "BP:x,y VP:x,y", each number with 15 digits behind the point; empty, or without a point, when
    /// there is no memory
    CExtString GetDumpText() const;
};

/// An ellipse, or the arc of one that runs counter-clockwise from a start angle to an end angle.
///
/// The angles are parameter (eccentric) angles, measured from the major axis: the point of angle t is
/// centre + cos t axis + sin t ratio perp(axis), where perp turns by pi/2 to the left. Angles that agree within 1e-8
/// are a whole turn for the functions that standardise arcs. The ratio is meant to be positive.
class ORVIL_API C2DEllipse {
public:
    /// Nothing to release.
    virtual ~C2DEllipse();

    C2DPoint center;     ///< the centre
    C2DPoint axis;       ///< from the centre to the end of the major axis: long radius and direction
    double ratio = 0.0;  ///< short radius divided by long radius
    double start = 0.0;  ///< start angle, radians
    double end = 0.0;    ///< end angle, radians

    /// Every field 0.
    C2DEllipse();
    /// A copy.
    C2DEllipse(const C2DEllipse& other);
    /// The arc from @p from to @p to (radians) of the ellipse with centre @p c, major axis @p a and ratio @p r.
    C2DEllipse(const C2DPoint& c, const C2DPoint& a, double r, double from, double to);
    /// Copies every field.
    C2DEllipse& operator=(const C2DEllipse& other);

    /// Copies every field. @return true
    bool SetData(const C2DEllipse& other);
    /// Sets every field, as the constructor. @return true
    bool SetData(const C2DPoint& c, const C2DPoint& a, double r, double from, double to);

    /// @return the length of the axis vector
    double GetLongRadius() const;
    /// @return the length of the axis vector times the ratio
    double GetShortRadius() const;
    /// @return whether the two radii differ by less than 1e-8, whatever their size
    bool IsCircle() const;
    /// @return the negation of IsCircle()
    bool IsEllipse() const;

    /// @return whether the centres and the axis vectors are nearer to each other than 1e-8, and ratio, start and end
    /// are exactly equal
    bool Compare(const C2DEllipse& other) const;
    /// As Compare().
    bool operator==(const C2DEllipse& other) const;
    /// The negation of Compare().
    bool operator!=(const C2DEllipse& other) const;

    /// Adds an offset to the centre. @return true
    bool AddCenterPoint(const C2DPoint& offset);
    /// Adds an offset to the centre. @return true
    bool Move(const C2DPoint& offset);
    /// Subtracts an offset from the centre. @return true
    bool SubCenterPoint(const C2DPoint& offset);

    /// Adds @p angle to the start and the end angle and rotates the centre about @p centre. The axis vector stays.
    /// @param centre what stays in place @param angle radians, counter-clockwise @return true
    bool Rotate(const C2DPoint& centre, double angle);
    /// Not supported: changes nothing. A placement step with a scale does it. @return false
    bool Stretch(const C2DPoint& base, double sx, double sy);

    /// The parameter angle of a point on an ellipse: turned back by @p rotation, its abscissa u stands below the point
    /// of height sqrt(r r - u u) on the auxiliary circle. Only the sign of the point's own height enters, not its size.
    /// Where rounding makes r r - u u negative, or the point lies beyond the circle, the height is 0. Near the tips of
    /// the major axis the height is the root of a small difference, and the angle is good to 4e-8 only; from a tenth of
    /// the radius up it is to 5e-15. A height below 1e-8 counts as none, as in GET_ANGLE(), which adds 1e-8 / r.
    /// @param p the point @param q the ellipse's centre @param r its long radius @param shortRadius is ignored
    /// @param rotation direction of its major axis, radians @param angle out: radians in [0, 2 pi) @return true
    bool CalcFxEllipsAngle(const C2DPoint& p, const C2DPoint& q, double r, double shortRadius, double rotation,
                           double& angle) const;

    /// Applies a placement step. Under a scale that differs in x and y the axes of the image are not the images of the
    /// axes: the ellipse is refitted through the images of the ends of its two semi-axes, which stay conjugate. A
    /// negative scale reverses the arc, so each exchanges its ends. The image of a circle under an equal scale, and
    /// what else becomes a circle (radii within 1e-8), gets an axis in the step's direction. The major axis of an
    /// ellipse may come out in either of its two directions, the angles counted from it. An arc of a whole turn stays
    /// one, as two equal angles. The image is found with an error of at most 6e-16 of its radius and coordinates, the
    /// ends of its arc with 2e-15; an end within 1e-8 of an axis is that of the axis.
    /// @return false, the ellipse unchanged, when a radius of the image is below 1e-6 (so with a scale or a ratio of
    /// 0), or when something infinite or NaN comes out
    bool MatrixCalculation(const C2DMatrixItem& step);

    /// @return "C:x,y V:x,y R:ratio AS:start(start in degrees) AE:end(end in degrees)"; coordinates with 15 digits
    /// behind the point, the rest with 6; empty, or without a point, when there is no memory
    CExtString GetDumpText() const;
};
