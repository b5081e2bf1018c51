/// @file
/// Tolerances and scalar helpers: what every function of geometry compares with, and how it normalises its angles.
///
/// Angles are radians unless a name or a comment says degrees; they count counter-clockwise. An arc is given by a start
/// angle and an end angle and runs counter-clockwise, so by increasing angle, from start to end.
///
/// Nothing here allocates, throws or keeps state; any number of threads may call it at a time. Every call returns,
/// whatever it is given: where an angle is infinite or NaN, its function says what comes back. Each normaliser takes
/// constant time, since angles of more than a million periods are first reduced by an exact remainder.
///
/// One period is the double nearest to 2 pi, 6.283185307179586, and the results are those of arithmetic with that
/// double. It lies 2.4e-16 below 2 pi, so an angle of n turns keeps an error of n times that.
///
/// Worst errors are those of millions of random cases beside arithmetic of more digits; docs/accuracy.md has them all.
///
/// @code
/// double start = 350.0, end = 10.0;
/// CA_ARCAN(start, end);                                  // -10, 10: from start to end is now the sweep
/// const double up = GET_ANGLE(3.0, 5.0, 3.0, 1.0);       // exactly pi/2: from (3, 1) to (3, 5)
/// if (ZERO(up - r_PAI() / 2.0, r_EP8())) puts("vertical");
/// @endcode
#pragma once

#include "orvil/export.h"

class C2DPoint;
class C2DLine;

// --- tolerances ------------------------------------------------------------------------------------------------------
// The same values are used throughout geometry. Lengths are in the unit of the drawing, angles in radians; comparisons
// are strict (a magnitude equal to the tolerance is not within it) unless a function says otherwise.
//
//   1e-8            coordinates, distances and angles, wherever nothing else is said
//   1e-7            the axis directions of ChkOnEllipse()
//   1e-6            touching of lines and ellipses; the foot of a perpendicular on a segment
//   1e-5            degrees, in ChkOnArc()
//   1e-4            three points in a line, in CA_ARC3P()
//   2 pi - 1e-6     a whole turn for CA_ARCAN_RAD(); 359.999 degrees for CA_ARCAN()
//   2 pi - 1e-8     up to where an angle is not reduced

/// @return pi, 3.141592653589793
ORVIL_API double r_PAI();
/// @return 0.1
ORVIL_API double r_EP1();
/// @return 0.01
ORVIL_API double r_EP2();
/// @return 0.001
ORVIL_API double r_EP3();
/// @return 0.0001
ORVIL_API double r_EP4();
/// @return 1e-5
ORVIL_API double r_EP5();
/// @return 1e-6
ORVIL_API double r_EP6();
/// @return 1e-7
ORVIL_API double r_EP7();
/// @return 1e-8, the tolerance wherever nothing else is said
ORVIL_API double r_EP8();
/// @return 1e-8, as r_EP8(): there is no tolerance of 1e-9
ORVIL_API double r_EP9();
/// @return 1e-10
ORVIL_API double r_EP10();
/// @return 1e-11
ORVIL_API double r_EP11();
/// @return 1e-12
ORVIL_API double r_EP12();
/// @return 1e-13
ORVIL_API double r_EP13();

// --- values ----------------------------------------------------------------------------------------------------------

/// Exchanges two values.
ORVIL_API void SWAP(int& a, int& b);
/// Exchanges two values.
ORVIL_API void SWAP(double& a, double& b);
/// Exchanges the coordinates of two points; the objects stay where they are.
ORVIL_API void SWAP(C2DPoint& a, C2DPoint& b);
/// Exchanges the coordinates of the start points and those of the end points of two lines.
ORVIL_API void SWAP(C2DLine& a, C2DLine& b);

/// Clamps @p v to the range from @p low to @p high, first at the low end. With @p low above @p high it becomes @p high,
/// always.
ORVIL_API void TRIMVALUE(int& v, int low, int high);
/// Clamps @p v to the range from @p low to @p high, first at the low end. With @p low above @p high it becomes @p high,
/// always. NaN stays.
ORVIL_API void TRIMVALUE(double& v, double low, double high);

/// @return the magnitude of @p v; that of the least int, which no int holds, is the least int itself
ORVIL_API int ABS(int v);
/// @return @p v without its sign bit
ORVIL_API double FABS(double v);

/// @return degrees: @p radians times 180, then divided by pi. Relative error at most 3e-16.
ORVIL_API double RTOD(double radians);
/// @return radians: @p degrees times pi, then divided by 180. Relative error at most 3e-16.
ORVIL_API double DTOR(double degrees);

/// @return whether the magnitude of @p value is below @p tolerance; equal is not below, and NaN never is
ORVIL_API bool ZERO(double value, double tolerance);

/// @return the square root of a a + b b. The squares are formed as they stand: beyond 1e154 they are infinite, and so
/// is the result; below 1e-162 they are 0. In between the relative error is at most 3e-16, down to 1e-146.
ORVIL_API double HYPOT(double a, double b);

// --- directions ------------------------------------------------------------------------------------------------------

/// The direction of the vector from (@p x2, @p y2) to (@p x1, @p y1): it points towards what is named first.
///
/// A difference of coordinates below 1e-8 counts as none. Directions along an axis are returned as the exact doubles 0,
/// pi/2, pi and 3 pi/2, and 0 when both differences are none; others are atan2, raised by 2 pi when negative, with a
/// relative error of at most 4e-16.
/// @return radians in [0, 2 pi); NaN when a difference that counts is NaN
ORVIL_API double GET_ANGLE(double x1, double y1, double x2, double y2);
/// @return GET_ANGLE(p1.x, p1.y, p2.x, p2.y), the direction from @p p2 to @p p1
ORVIL_API double GET_ANGLE(const C2DPoint& p1, const C2DPoint& p2);

// --- single angles ---------------------------------------------------------------------------------------------------
// An infinite or NaN angle is left as it is. Each turn in radians that is taken away may round: the error is below
// 5e-16 of the angle given (or of a turn, if that is more) up to 16 turns, 6e-11 of it at a million; beyond, the
// remainder is exact. Degrees lose nothing but the rounding of the result, 2e-16.

/// Brings an angle into [0, 360] by whole turns: a negative one by as few as make it 0 or more, one above 360 by as few
/// as make it 360 or less. So 360 and 720 become 360, -360 and 0 become 0. @param degrees in and out @return 0
ORVIL_API int CA_ANGLE(double& degrees);
/// As CA_ANGLE() in radians, into [0, 2 pi]. @param radians in and out @return 0
ORVIL_API int CA_ANGLE_RAD(double& radians);

/// Brings an angle into [-(2 pi - 1e-8), 2 pi - 1e-8] by whole turns; its sign is kept but for an angle within 1e-8 of
/// a whole number of turns, of which the small rest is left (2 pi - 5e-9 becomes -5e-9). @param angle radians, in and
/// out
ORVIL_API void ANG_CVT_STD(double& angle);
/// Brings an angle into [0, 2 pi) as ANG_CVT_STD() does, then raises a negative one by 2 pi. In spite of its name it
/// takes radians. What is negative and too small to be told from 2 pi then gives 2 pi itself. @param angle in and out
ORVIL_API void ANGSTDDEG(double& angle);

// --- the two angles of an arc ----------------------------------------------------------------------------------------
// Both angles are as accurate as the single ones are.

/// Brings the angles of an arc into order: end at or above start, the sweep in [0, 360], end at most 360, so that start
/// may be negative. A sweep of 0 is kept. One above 359.999, at first or in the end, becomes exactly 0 and 360.
///
/// Each angle is normalised as by CA_ANGLE(); one that is infinite or NaN is left as that leaves it.
/// @param start degrees, in and out @param end degrees, in and out @return 0
ORVIL_API int CA_ARCAN(double& start, double& end);
/// As CA_ARCAN() in radians: the sweep in [0, 2 pi], a whole turn, 0 and 2 pi, above 2 pi - 1e-6.
/// @param start radians, in and out @param end radians, in and out @return 0
ORVIL_API int CA_ARCAN_RAD(double& start, double& end);

/// Brings the angles of an arc into order: end above start, the sweep in (0, 2 pi], end in (0, 2 pi], so that start may
/// be negative. Angles that agree within 1e-8, once each is reduced, mean a whole turn; its end becomes start + 2 pi.
/// Angles less than 1e-8 apart on either side of a whole number of turns do not agree then: from just below to just
/// above is that small a sweep, or none.
///
/// Each angle is reduced as by ANGSTDDEG(); one that is infinite or NaN stays so, and the other may move by a turn. In
/// spite of its name this takes radians.
/// @param start radians, in and out @param end radians, in and out
ORVIL_API void A2D_STDSEDEG(double& start, double& end);

/// Tells whether an angle lies on an arc, whose ends belong to it and are 1e-8 wide. Angles of the arc that agree
/// within 1e-8 mean a whole turn. In spite of its name this takes radians, in any range.
/// @return 0 on the arc, 1 outside. NaN and minus infinity as @p angle give 0, infinity gives 1; with an arc whose
/// angles are not finite it is either.
ORVIL_API int A2D_CHKDEGR(double start, double end, double angle);

/// Tells whether the direction from @p centre to @p point lies on an arc that is turned by @p rotation.
/// @param centre x and y @param rotation radians by which the arc is turned @param angles start and end of the arc
/// before it is turned, in radians; they are polar directions and stay as they are @param point x and y
/// @return 0 on the arc, 1 outside, as A2D_CHKDEGR() of the direction less @p rotation
ORVIL_API int A2D_PIN_CHK(const double centre[2], double rotation, const double angles[2], const double point[2]);
