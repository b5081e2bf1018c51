// What the functions and classes of geometry have in common: constants, directions, distances, rotations.
#pragma once

#include <cmath>

#include "geometry/turn.h"
#include "orvil/geometry/plane_primitives.h"
#include "orvil/geometry/scalars.h"

namespace orvil {

constexpr double kPi = 3.141592653589793;
constexpr double kHalfPi = 1.5707963267948966;
constexpr double kThreeHalfPi = 4.71238898038469;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kTolerance = 1e-8;                    // coordinates, distances, angles
constexpr double kReductionBound = 6.283185297179586;  // 2 pi - 1e-8: angles up to here are not reduced

// The direction of the vector (dx, dy) in [0, 2 pi). A coordinate below `tolerance` counts as 0, and the directions of
// the axes are returned as constants.
double direction(double dx, double dy, double tolerance = kTolerance);

// Brings an angle into [0, 2 pi) in the manner of ANGSTDDEG().
inline double reduced(double angle) {
    ANGSTDDEG(angle);
    return angle;
}

// The square root of the sum of squares, without regard to overflow.
inline double length(double x, double y) {
    return std::sqrt(x * x + y * y);
}

inline double distance(const C2DPoint& a, const C2DPoint& b) {
    return length(a.x - b.x, a.y - b.y);
}

// Whether two points are the same one: nearer than the tolerance.
inline bool coincide(const C2DPoint& a, const C2DPoint& b) {
    return distance(a, b) < kTolerance;
}

// The reflection of `p` in the line through `a` and `b`. False, and `out` as it was, when the squared distance of `a`
// and `b` is below 1e-8. The arguments may be the same objects.
bool reflect(const C2DPoint& p, const C2DPoint& a, const C2DPoint& b, C2DPoint& out);

// The parameter angle in [0, 2 pi) of the ellipse point above or below whose abscissa p.x the auxiliary circle of that
// radius is taken; of p.y only the sign counts. Beyond the circle the height is 0.
double parameter_angle(const C2DPoint& p, double radius);

// "first:a second:b", the form in which lines are dumped. A point whose text is empty is left out.
template <typename Point>
CExtString dump_pair(const char* first, const Point& a, const char* second, const Point& b) {
    const CExtString text_a = a.GetDumpText();
    const CExtString text_b = b.GetDumpText();
    CExtString text;
    text.Format("%s:%s %s:%s", first, text_a.GetString(), second, text_b.GetString());
    return text;
}

}  // namespace orvil
