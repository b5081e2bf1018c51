// Random figures of the plane, and vectors of more digits to work with.
#pragma once

#include <cmath>

#include "accuracy.h"
#include "orvil/geometry/plane_primitives.h"

namespace orvil::accuracy {

inline C2DPoint any_point(Random& random, double size) {
    const double x = random.between(-size, size);
    return C2DPoint(x, random.between(-size, size));
}

inline C2DPoint near(Random& random, const C2DPoint& point, double size) {
    const double x = point.x + random.between(-size, size);
    return C2DPoint(x, point.y + random.between(-size, size));
}

inline RealPoint real(const C2DPoint& p) {
    return {p.x, p.y};
}

inline RealPoint operator+(RealPoint p, RealPoint q) {
    return {p.x + q.x, p.y + q.y};
}

inline RealPoint operator-(RealPoint p, RealPoint q) {
    return {p.x - q.x, p.y - q.y};
}

inline RealPoint operator*(Real factor, RealPoint p) {
    return {factor * p.x, factor * p.y};
}

inline Real dot(RealPoint p, RealPoint q) {
    return p.x * q.x + p.y * q.y;
}

// Positive when `q` lies to the left of `p`.
inline Real cross(RealPoint p, RealPoint q) {
    return p.x * q.y - p.y * q.x;
}

inline RealPoint left_of(RealPoint p) {
    return {-p.y, p.x};
}

// The point of parameter angle t of an ellipse.
inline RealPoint point_at(const C2DEllipse& e, Real t) {
    const RealPoint axis = real(e.axis);
    return real(e.center) + std::cos(t) * axis + e.ratio * std::sin(t) * left_of(axis);
}

}  // namespace orvil::accuracy
