/// @file
/// Constructions and tests of plane figures: intersections, tangents, perpendiculars, mirror images, sides of a line,
/// arcs through points, boxes around arcs, and whether a point lies on an arc.
///
/// Lengths are in the unit of the drawing. Angles are radians, counter-clockwise, unless a name ends in `Deg`. An arc
/// runs counter-clockwise from its start to its end. An ellipse is given by its centre, the vector from there to the
/// end of its major axis, and its ratio, short radius over long radius; its parameter (eccentric) angle t belongs to
/// the point centre + cos t axis + sin t ratio left(axis), where left() turns by pi/2 counter-clockwise.
///
/// Results come as an int code, which is 0 in the normal case, or as a bool, which is true when something was
/// constructed; points found are counted apart. An output that a function does not mention for a result keeps its
/// value. Outputs may be the same objects as inputs: each function takes what its inputs were before the call.
///
/// Tolerances are absolute, in the unit of the drawing, and strict: equal is not within. They are 1e-8 where nothing
/// else is said. Some compare a raw product of lengths, as it is said there; such a tolerance reaches less far in a
/// large figure than in a small one.
///
/// Nothing here allocates, throws or keeps state; any number of threads may call it at a time. All of it takes constant
/// time. Every call returns one of its results, whatever it is given. Coordinates and radii up to 1e50 are calculated
/// with as they are. For larger ones products may overflow, and what comes back may mean nothing or not be finite,
/// unless a function says more. What comes back for infinities and NaN, which are "not finite", is said at each
/// function.
///
/// Accuracy is the worst error among a million random figures of each kind, ordinary, huge, tiny and nearly degenerate,
/// beside arithmetic of more digits. It is given relative to what rounding of the input alone would make of it: a sine
/// is that of the angle at which two things meet, and the reach of an ellipse is its long radius plus the distance of
/// its centre from the origin. Figures within a tolerance are not counted. docs/accuracy.md has the errors kind by
/// kind.
///
/// @code
/// C2DPoint meeting;
/// if (CA_INS2L(C2DPoint(0, 0), C2DPoint(2, 0), C2DPoint(1, -1), C2DPoint(1, 1), meeting) == 0) {
///     std::printf("the walls meet at %g, %g\n", meeting.x, meeting.y);  // 1, 0
/// }
/// @endcode
#pragma once

#include "orvil/export.h"
#include "orvil/geometry/plane_primitives.h"

// --- lines -----------------------------------------------------------------------------------------------------------

/// Where the lines through @p a1, @p a2 and through @p b1, @p b2 meet, by Cramer's rule on A x + B y = C.
///
/// They are parallel when the determinant, A1 B2 - A2 B1, is below 1e-8 when divided by the length of the first segment
/// and also when divided by that of the second: when only one of the quotients is, they are not.
/// @param p where they meet; (0, 0) when they are parallel
/// @return 0: they meet, and CA_ONLIN() finds @p p on both segments; 1: they meet beyond an end of at least one; 2:
/// they are parallel, or one segment has no length. Figures that are not finite give 1, with a @p p that is not finite,
/// or 2.
/// @remark Accuracy: 3e-16 of the coordinates over the sine.
ORVIL_API int CA_INS2L(const C2DPoint& a1, const C2DPoint& a2, const C2DPoint& b1, const C2DPoint& b2, C2DPoint& p);

/// Whether @p p lies on the segment from @p a to @p b.
///
/// It does when it is nearer than 1e-8 to an end, or when it is nearer than 1e-8 to the infinite line and the foot of
/// its perpendicular lies between the ends or on one.
/// @return 0: it lies on the segment; 1: it does not. On a segment without length only the ends count. Coordinates that
/// are not finite give 1, but where @p p is an end itself and finite.
/// @remark Accuracy: right wherever the distance is off the tolerance by more than 1e-15 of the coordinates.
ORVIL_API int CA_ONLIN(const C2DPoint& a, const C2DPoint& b, const C2DPoint& p);

/// On which side of a line a point lies, seen along the line from its start to its end.
///
/// What is compared with 1e-8 is the raw cross product of end - start and @p p - start, which is the distance from the
/// line times the line's length.
/// @param side -1: to the left; +1: to the right; 0: on the infinite line, or the product is NaN
/// @return 0, or 1 when the line is shorter than 1e-8; @p side then keeps its value
/// @remark Accuracy: right wherever the product is off the tolerance by more than 1e-15 of what is multiplied.
ORVIL_API int CA_POSLN(const C2DLine& line, const C2DPoint& p, int& side);

/// The foot of the perpendicular from @p p on the infinite line through @p a and @p b, and the length of it.
///
/// The foot lies beyond an end when the raw scalar product of foot - @p a and foot - @p b is above 1e-6, so that beyond
/// the end of a segment of length L there is room for nearly 1e-6 / L.
/// @param foot keeps its value for the result -1 @param distance from @p p to the foot; 0 for the result -1
/// @return 0: the foot lies on the segment; 1: it lies beyond an end; -1: @p a and @p b are nearer to each other than
/// 1e-8. Where something is not finite, foot and distance need not be finite either, and a foot of NaN gives 1.
/// @remark Accuracy: 4e-16 of the coordinates, @p p's as seen from @p a.
ORVIL_API int CA_PERLN(const C2DPoint& a, const C2DPoint& b, const C2DPoint& p, C2DPoint& foot, double& distance);

/// Reflects @p p in the infinite line through @p a and @p b. C2DPoint::Mirror() is the same computation.
/// @param out the reflection; it keeps its value when there is none
/// @return true; false when the squared distance of @p a and @p b is below 1e-8, so for an axis shorter than 1e-4. What
/// is not finite makes @p out so.
/// @remark Accuracy: 9e-16 of the coordinates, @p p's as seen from @p a.
ORVIL_API bool CA_MIRROR(const C2DPoint& p, const C2DPoint& a, const C2DPoint& b, C2DPoint& out);

// --- circles ---------------------------------------------------------------------------------------------------------

/// Where an infinite line meets a circle, whose radius is the length of the axis vector. Ratio and arc angles are not
/// looked at.
///
/// With d = end - start, L its length, t = cross(d, start - centre) / L^2: the line's distance from the centre is |t|
/// L. One that differs from the radius by less than 1e-8 touches, at centre + t left(d). A nearer line meets the circle
/// at centre + t left(d) +- sqrt(r^2 L^2 - t^2 L^4) d / L^2.
/// @param p1 the touching point, or the meeting point further along the line's direction @param p2 the other meeting
/// point; with a @p count below 2 it keeps its value, and so does @p p1 when it is 0
/// @param count 0, 1 or 2
/// @return 0; 1, with @p count 0, when both coordinates of the axis vector are below 1e-8 or the line has no length.
/// NaN gives @p count 0; an infinite radius may give two points that are not finite.
/// @remark Accuracy: 4e-16 of the coordinates times the radius over half the chord.
ORVIL_API int CA_INSLC(const C2DEllipse& circle, const C2DLine& line, C2DPoint& p1, C2DPoint& p2, int& count);

/// The arc through three points, from @p p1 through @p p2 to @p p3 or, where these run clockwise, from @p p3 to @p p1:
/// counter-clockwise in either case, and through @p p2. The centre is where the perpendicular bisectors meet.
/// @param centre out @param radius out @param start direction of the arc's start from the centre: atan2, raised by 2 pi
/// when negative, so in [0, 2 pi) or, for a tiny negative, 2 pi itself @param end likewise; it may be below @p start
/// @return true; false, every output as it was, when the raw cross product of @p p2 - @p p1 and @p p3 - @p p1, twice
/// the area of the triangle, is below 1e-4, or when something is not finite
/// @remark Accuracy: centre and radius 4e-16 of the coordinates and of the radius over the sine at @p p1;
/// angles 1.2e-15 over that sine.
ORVIL_API bool CA_ARC3P(const C2DPoint& p1, const C2DPoint& p2, const C2DPoint& p3, C2DPoint& centre, double& radius,
                        double& start, double& end);

/// The points at which the tangents through @p p touch a circle.
///
/// With d = @p p - @p centre, D = |d|^2 and h = sqrt(D - r^2): centre + r (r d -+ h left(d)) / D.
/// @param r radius of the circle @param t1 the touching point to the right, seen from the centre towards @p p
/// @param t2 the one to the left @param count 2; 0, with both points (0, 0), when D - r^2 is not above 0 (@p p lies
/// inside or exactly on the circle) or not finite
/// @return true
/// @remark Accuracy: 2.2e-16 of the coordinates and of the radius over the sine between tangent and radius to @p p.
ORVIL_API bool CA_PCTAN(const C2DPoint& centre, double r, const C2DPoint& p, C2DPoint& t1, C2DPoint& t2, int& count);

/// Where two circular arcs meet.
///
/// Angles that are negative are raised by 2 pi, once. Circles are the same when their centres and their radii agree
/// within 1e-8. Their arcs then meet only where one begins and the other ends: at @p s1 on the first arc when |s1 - e2|
/// is 0 or 2 pi within 1e-8, or @p Ra times it is below 1e-8; and at @p e1 when |e1 - s2| is so. What else they share
/// is not looked for, and whether these ends lie on the arcs is not asked.
///
/// Circles touch when |Ra - Rb| or Ra + Rb is the distance of the centres within 1e-8. The touching point is taken on
/// the line of the centres, from @p c1 in the direction of @p c2 by @p Ra; but for @p Ra below @p Rb from @p c2, away
/// from @p c1, by @p Rb, which is the far side of the second circle. Circles that cross do so to the right and to the
/// left of the line from @p c1 to @p c2.
///
/// A point found in either of these ways is kept when it lies on both arcs. An arc whose angles are equal, or differ by
/// exactly 2 pi, is a whole circle. On any other the start itself does not belong to it, and the end does, without
/// tolerance, by the point's direction from the centre as GET_ANGLE() gives it.
/// @param c1 centre of the first arc @param Ra its radius @param s1 its start @param e1 its end
/// @param c2 centre of the second arc @param Rb its radius @param s2 its start @param e2 its end
/// @param p1 with a @p count of 2 the crossing to the right, or the one at @p s1; with 1 the only one
/// @param p2 with a @p count of 2 the crossing to the left, or the one at @p e1; with 1 the same as @p p1, but for arcs
/// of one circle, where it keeps its value
/// @param count 0, 1 or 2. With 0 both points are (0, 0) where circles touch or cross but no arc does, or where the
/// points would not be finite; where circles do not meet, and for arcs of one circle, they keep their values.
/// @return 0; 1, with @p count 0, when a radius is not above 0, or when the arcs are identical: centres, radii, starts
/// and ends within 1e-8. A start of NaN does not bound its arc; an end of NaN leaves everything out.
/// @remark Accuracy: 2.6e-16 of the coordinates and of the greatest length squared over half the common chord.
ORVIL_API int CA_INS2C(const C2DPoint& c1, double Ra, double s1, double e1, const C2DPoint& c2, double Rb, double s2,
                       double e2, C2DPoint& p1, C2DPoint& p2, int& count);

/// The point of a circle in a direction: centre + r (cos, sin).
/// @param centre of the circle @param r its radius @param angleDeg the direction, in degrees @param out the point; not
/// finite when something else is not
/// @return true
/// @remark Accuracy: 2.5e-15 of the coordinates and the radius, within two turns.
ORVIL_API bool GET_ONPC(const C2DPoint& centre, double r, double angleDeg, C2DPoint& out);

// --- lines and ellipses ----------------------------------------------------------------------------------------------

/// Where an infinite line meets an ellipse. All is done in the ellipse's frame: centre at (0, 0), major axis along x.
///
/// A line whose distance from the centre is within 1e-6 of that of a parallel tangent touches. With n its unit normal,
/// a and b the radii and h = sqrt(a^2 nx^2 + b^2 ny^2), that is at +-(a^2 nx, b^2 ny) / h, on the line's side; a line
/// with a slope below 1e-8 touches at (0, +-b), a vertical one, |dx| below 1e-8, at (+-a, 0). A line of no length is
/// vertical.
///
/// A line y = m x + q meets the ellipse where A x^2 + 2 (q m / b^2) x + q^2 / b^2 - 1 = 0, A = 1/a^2 + m^2 / b^2. When
/// the greater root, as (sqrt(disc) - q m / b^2) / A, comes out as exactly 0 the call fails: so it is for many lines
/// through an end of the short axis. A vertical line x = x0 meets it at (x0, +-b sqrt(a^2 - x0^2) / a), or at (x0, 0)
/// when 4 a^2 b^2 (a^2 - x0^2), a raw product, is not positive and its magnitude at most 1e-6: in drawings of small
/// ellipses that is also well outside of them.
/// @param l1 a point of the line @param l2 another @param centre of the ellipse @param axis from there to the end of
/// the major axis @param ratio short radius over long radius; its sign has no effect
/// @param p1 the touching point; the meeting point with the greater x in the ellipse's frame; for a vertical line the
/// one with the greater y there @param p2 the other meeting point. Points that are not found are (0, 0).
/// @param count 0, 1 or 2; two meeting points within 1e-6 of each other are one, the first
/// @return true; false, with @p count 0, when the greater root is exactly 0, or when a radius, its square or the
/// square's reciprocal is 0 or not finite. A line that is not finite gives @p count 0.
/// @remark Accuracy: 3e-16 of the reach over the ratio and over half the chord, that as a chord of the unit circle.
ORVIL_API bool CAL_INSLE(const C2DPoint& l1, const C2DPoint& l2, const C2DPoint& centre, const C2DPoint& axis,
                         double ratio, C2DPoint& p1, C2DPoint& p2, int& count);

/// Where an infinite line meets an elliptic arc: what CAL_INSLE() finds and A2D_PIN_CHK() finds on the arc.
///
/// Points are arrays of x and y; no pointer may be null. The arc's angles are parameter angles; equal ones are a whole
/// turn.
/// @param l1 a point of the line @param l2 another @param centre of the ellipse @param longDiameter of the ellipse
/// @param shortDiameter of the ellipse @param rotation direction of the major axis @param angles start and end
/// @param p1 the first point on the arc @param p2 the second one; points that are not found are (0, 0). Where only the
/// second of two meeting points lies on the arc, it is @p p1. @param count 0, 1 or 2
/// @return 0; -1, with @p count 0, when CAL_INSLE() fails
/// @remark Accuracy: as CAL_INSLE().
ORVIL_API int A2D_INSL1(const double l1[2], const double l2[2], const double centre[2], double longDiameter,
                        double shortDiameter, double rotation, const double angles[2], double p1[2], double p2[2],
                        int* count);

// --- points of ellipses ----------------------------------------------------------------------------------------------

/// The two points of an ellipse at which the tangent has a given direction.
///
/// In the ellipse's frame, with t the direction less that of the axis, m = tan t and D = sqrt(a^2 m^2 + b^2): p1 is
/// (-a^2 m / D, b^2 / D), p2 its opposite. For t within 1e-8 of 0 or pi, p1 is (0, b); of pi/2 or 3 pi/2, (a, 0).
/// @param centre of the ellipse @param axis from there to the end of the major axis @param ratio short radius over long
/// radius @param direction of the tangent @param p1 out @param p2 out; both are the centre when there is no ellipse,
/// and not finite when something else is not
/// @return true
/// @remark Accuracy: 1.5e-15 of the reach over the ratio.
ORVIL_API bool CAL_ELPPN(const C2DPoint& centre, const C2DPoint& axis, double ratio, double direction, C2DPoint& p1,
                         C2DPoint& p2);

/// A point of an ellipse above or below its centre, and which of two points lies towards it.
/// @param centre of the ellipse @param axis from there to the end of the major axis @param ratio short radius over long
/// radius @param q1 what is chosen when its direction from the centre differs by less than pi/2 from that of @p out1;
/// the plain difference of two angles in [0, 2 pi) @param q2 what is chosen otherwise
/// @param out1 the first point that CAL_INSLE() finds on the line from @p centre to @p centre + (0, 100)
/// @param out2 @p q1 or @p q2
/// @return true; false, both outputs as they were, when CAL_INSLE() fails or finds nothing
/// @remark Accuracy: 5e-16 of the reach over the ratio. Beside coordinates above 1e16 nothing is left of the 100.
ORVIL_API bool CAL_ELPRR(const C2DPoint& centre, const C2DPoint& axis, double ratio, const C2DPoint& q1,
                         const C2DPoint& q2, C2DPoint& out1, C2DPoint& out2);

/// The point of an ellipse at a parameter angle.
///
/// It is constructed where the line x = a cos t meets the ellipse, in the ellipse's frame, by CAL_INSLE(): above the
/// axis when sin t is not negative, else below. Near the tips of the major axis, where |cos t| is within 1e-6 / a of 1,
/// that line touches, and the point is the tip itself: it is off by up to b sqrt(2e-6 / a).
/// @param centre of the ellipse @param axis from there to the end of the major axis @param ratio short radius over long
/// radius; its sign has no effect @param t parameter angle @param out the point; it keeps its value when there is none
/// @return true; false when CAL_INSLE() fails or finds nothing, so also for a @p t that is not finite
/// @remark Accuracy: 9e-16 of the reach and of the short radius over sin t, away from the tips.
ORVIL_API bool CAL_ELPCP(const C2DPoint& centre, const C2DPoint& axis, double ratio, double t, C2DPoint& out);

/// The axes of the ellipse of which two points are the ends of conjugate semi-diameters.
///
/// With u = @p p1 - @p centre and v = @p p2 - @p centre, |u cos t + v sin t| is greatest at 2t = atan2(2 u.v, uu - vv):
/// its value there is the long radius, its direction the axis; the short radius is |u x v| over the long one.
/// @param p1 the end of one semi-diameter @param p2 the end of the other @param centre of the ellipse
/// @param longRadius out @param shortRadius out @param axisAngle out: in [0, 2 pi), one of the two directions of the
/// major axis; exactly 0 when the radii differ by less than 1e-8
/// @return true; false, every output as it was, when a radius is below 1e-6 or not finite
/// @remark Accuracy: radii 6e-16 of the long one; direction 1.1e-15 over 1 - (short / long)^2.
ORVIL_API bool CAL_ELPDT(const C2DPoint& p1, const C2DPoint& p2, const C2DPoint& centre, double& longRadius,
                         double& shortRadius, double& axisAngle);

// --- what bounds an elliptic arc -------------------------------------------------------------------------------------

/// The box around an elliptic arc: by CAL_ANGPT() for the tangent directions pi/2 and 0.
/// @param centre of the ellipse @param longDiameter of the ellipse @param shortDiameter of the ellipse; it may be the
/// longer one @param rotation direction of the major axis @param start parameter angle of the arc's start @param end
/// that of its end @param minCorner the least x and y @param maxCorner the greatest x and y; what is not finite makes
/// the box so, or meaningless
/// @return true; false, both corners as they were, when @p start and @p end agree within 1e-8: here that is no whole
/// turn
/// @remark Accuracy: 5e-16 of the reach.
ORVIL_API bool CA_ELAMN2(const C2DPoint& centre, double longDiameter, double shortDiameter, double rotation,
                         double start, double end, C2DPoint& minCorner, C2DPoint& maxCorner);

/// The two points between which an elliptic arc extends at right angles to a direction.
///
/// With f the direction less the rotation, the tangents in that direction touch at t1 = atan2(b cos f, -a sin f) and at
/// t1 + pi. A touching point outside of the arc, by A2D_CHKDEGR(), is replaced by the end of the arc that lies further
/// towards its side; by the start when both lie as far.
/// @param centre of the ellipse @param a its semi-axis along the rotation @param b its other semi-axis @param rotation
/// direction of the first semi-axis @param start parameter angle of the arc's start @param end that of its end; angles
/// that agree within 1e-8 are a whole turn @param direction of the tangents @param p1 the point furthest to the left of
/// the direction @param p2 the one furthest to the right; what is not finite may make both so
/// @return true
/// @remark Accuracy: 1e-15 of the reach over the ratio.
ORVIL_API bool CAL_ANGPT(const C2DPoint& centre, double a, double b, double rotation, double start, double end,
                         double direction, C2DPoint& p1, C2DPoint& p2);

/// As CAL_ANGPT() for an ellipse given by its axis vector: the tangent points are those of CAL_ELPPN(), in its order,
/// and the ends of the arc those of CAL_ELPCP().
/// @param centre of the ellipse @param axis from there to the end of the major axis @param ratio short radius over long
/// radius @param start parameter angle of the arc's start @param end that of its end; angles that agree within 1e-8 are
/// a whole turn @param direction of the tangents @param p1 in the place of the first tangent point @param p2 in the
/// place of the second
/// @return true; false, both points as they were, when CAL_ELPCP() fails
/// @remark Accuracy: 1.5e-15 of the reach over the ratio.
ORVIL_API bool CAL_ELAMN(const C2DPoint& centre, const C2DPoint& axis, double ratio, double start, double end,
                         double direction, C2DPoint& p1, C2DPoint& p2);

// --- whether a point lies on an arc ----------------------------------------------------------------------------------

/// Whether a point lies on a circular arc. Here angles are degrees.
///
/// It does when its distance from the centre (by the C library's hypot) is within 1e-8 of the radius, and its
/// direction, taken in (-180, 180], or that less or plus 360, lies strictly between @p startDeg - 1e-5 and @p endDeg +
/// 1e-5. The angles are not normalised: the caller gives a start that is not above the end. The centre itself has the
/// direction 0.
/// @param centre of the arc @param r its radius @param startDeg where it starts @param endDeg where it ends
/// @param p the point
/// @return 0: it lies on the arc; 1: it does not. What is not finite gives 1, but a start of minus infinity or an end
/// of infinity, which bound nothing.
/// @remark Accuracy: right wherever the direction is off the bounds by more than 1e-12 degrees.
ORVIL_API int ChkOnArc(const C2DPoint& centre, double r, double startDeg, double endDeg, const C2DPoint& p);

/// Whether a point lies on an elliptic arc; in effect 0 for all finite angles, which callers rely on.
///
/// Start and end are reduced by a period of 2 pi although they count as degrees; when they agree within 1e-7 the end is
/// laid 360 behind the start. After that they never agree, and then the result is 0. Only where the arc's angles are
/// infinite or NaN is the direction from @p centre to @p p looked at, by degrees less @p rotationDeg.
/// @param centre of the ellipse, not null @param rotationDeg direction of the major axis, in degrees @param start where
/// the arc starts @param end where it ends @param p the point, not null
/// @return 0: it lies on the arc, as for all finite angles; 1: an infinite angle leaves it outside
ORVIL_API int ChkOnEllipse(const C2DPoint* centre, double rotationDeg, double start, double end, const C2DPoint* p);
