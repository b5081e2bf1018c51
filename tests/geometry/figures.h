// Comparing figures in tests: exactly, or within a tolerance of each number.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <iomanip>

#include "orvil/geometry/space_primitives.h"

namespace orvil::test {

using Numbers = std::initializer_list<double>;

// Whether each number is the expected one within `tolerance`; with a tolerance of 0 they must be equal.
inline testing::AssertionResult numbers_near(Numbers found, Numbers expected, double tolerance) {
    const double* wanted = expected.begin();
    testing::AssertionResult failure = testing::AssertionFailure();
    failure << std::setprecision(17) << "found";
    bool same = true;
    for (double number : found) {
        const double other = *wanted++;
        same = same && (number == other || std::fabs(number - other) <= tolerance);
        failure << "  " << number << " for " << other;
    }
    return same ? testing::AssertionSuccess() : failure;
}

inline testing::AssertionResult near(const C2DPoint& p, double x, double y, double tolerance) {
    return numbers_near({p.x, p.y}, {x, y}, tolerance);
}

inline testing::AssertionResult exactly(const C2DPoint& p, double x, double y) {
    return near(p, x, y, 0.0);
}

inline testing::AssertionResult near(const C2DLine& l, double x1, double y1, double x2, double y2, double tolerance) {
    return numbers_near({l.start.x, l.start.y, l.end.x, l.end.y}, {x1, y1, x2, y2}, tolerance);
}

inline testing::AssertionResult exactly(const C2DLine& l, double x1, double y1, double x2, double y2) {
    return near(l, x1, y1, x2, y2, 0.0);
}

inline testing::AssertionResult near(const C2DVectorLine& l, double bx, double by, double vx, double vy,
                                     double tolerance) {
    return numbers_near({l.base.x, l.base.y, l.vector.x, l.vector.y}, {bx, by, vx, vy}, tolerance);
}

inline testing::AssertionResult exactly(const C2DVectorLine& l, double bx, double by, double vx, double vy) {
    return near(l, bx, by, vx, vy, 0.0);
}

inline testing::AssertionResult near(const C2DEllipse& e, const C2DEllipse& other, double tolerance) {
    return numbers_near(
        {e.center.x, e.center.y, e.axis.x, e.axis.y, e.ratio, e.start, e.end},
        {other.center.x, other.center.y, other.axis.x, other.axis.y, other.ratio, other.start, other.end}, tolerance);
}

inline testing::AssertionResult exactly(const C2DEllipse& e, const C2DEllipse& other) {
    return near(e, other, 0.0);
}

inline testing::AssertionResult near(const C3DPoint& p, const C3DPoint& other, double tolerance) {
    return numbers_near({p.x, p.y, p.z}, {other.x, other.y, other.z}, tolerance);
}

inline testing::AssertionResult exactly(const C3DPoint& p, const C3DPoint& other) {
    return near(p, other, 0.0);
}

// Two points of space, as a line or a vector line holds them.
inline testing::AssertionResult near(const C3DPoint& p, const C3DPoint& q, Numbers expected, double tolerance) {
    return numbers_near({p.x, p.y, p.z, q.x, q.y, q.z}, expected, tolerance);
}

inline testing::AssertionResult near(const C3DLine& l, Numbers expected, double tolerance) {
    return near(l.start, l.end, expected, tolerance);
}

inline testing::AssertionResult exactly(const C3DLine& l, Numbers expected) {
    return near(l, expected, 0.0);
}

inline testing::AssertionResult near(const C3DVectorLine& l, Numbers expected, double tolerance) {
    return near(l.base, l.vector, expected, tolerance);
}

inline testing::AssertionResult exactly(const C3DVectorLine& l, Numbers expected) {
    return near(l, expected, 0.0);
}

}  // namespace orvil::test
