// Points and vectors inside the functions of geometry: two doubles, without the table pointer of C2DPoint.
#pragma once

#include "geometry/plane_math.h"

namespace orvil {

struct PlaneVector {
    double x = 0.0;
    double y = 0.0;

    PlaneVector() = default;
    PlaneVector(double px, double py) : x(px), y(py) {}
    explicit PlaneVector(const C2DPoint& point) : x(point.x), y(point.y) {}
    explicit PlaneVector(const double point[2]) : x(point[0]), y(point[1]) {}
};

inline PlaneVector operator+(PlaneVector v, PlaneVector w) {
    return {v.x + w.x, v.y + w.y};
}

inline PlaneVector operator-(PlaneVector v, PlaneVector w) {
    return {v.x - w.x, v.y - w.y};
}

inline PlaneVector operator-(PlaneVector v) {
    return {-v.x, -v.y};
}

inline PlaneVector operator*(double factor, PlaneVector v) {
    return {factor * v.x, factor * v.y};
}

inline PlaneVector operator/(PlaneVector v, double divisor) {
    return {v.x / divisor, v.y / divisor};
}

inline double dot(PlaneVector v, PlaneVector w) {
    return v.x * w.x + v.y * w.y;
}

// Positive when `w` lies to the left of `v`.
inline double cross(PlaneVector v, PlaneVector w) {
    return v.x * w.y - v.y * w.x;
}

// `v` turned by a quarter to the left.
inline PlaneVector left_of(PlaneVector v) {
    return {-v.y, v.x};
}

inline double length(PlaneVector v) {
    return length(v.x, v.y);
}

inline double direction(PlaneVector v) {
    return direction(v.x, v.y);
}

inline PlaneVector turned(PlaneVector v, Turn turn) {
    return {turn.cosine * v.x - turn.sine * v.y, turn.sine * v.x + turn.cosine * v.y};
}

inline PlaneVector turned_back(PlaneVector v, Turn turn) {
    return turned(v, {turn.cosine, -turn.sine});
}

// Radius 1 in a direction. The angle is asked for once, unlike those of turn_by().
inline PlaneVector unit(double angle) {
    return {std::cos(angle), std::sin(angle)};
}

inline bool is_finite(PlaneVector v) {
    return std::isfinite(v.x) && std::isfinite(v.y);
}

inline void assign(C2DPoint& point, PlaneVector v) {
    point.x = v.x;
    point.y = v.y;
}

}  // namespace orvil
