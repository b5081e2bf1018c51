// Limits and tolerances of curves, each with its reason.
#pragma once

namespace orvil::detail {

// What a dimension may be.
inline constexpr int kLowestDegree = 1;
inline constexpr int kHighestDegree = 7;

// Knots closer than this are one knot (r_EP8()).
inline constexpr double kKnotTolerance = 1e-8;

// Basis functions beyond this order are 0: the recursion that defines them would take more than 2^64 calls.
inline constexpr int kHighestOrder = 64;

// A pivot that is no larger, in rows whose largest coefficient is 1, is rounding only.
inline constexpr double kLeastPivot = 1e-14;

// How far, in parts of the largest coordinate, a curve may miss the points that it is laid through.
inline constexpr double kFitTolerance = 1e-6;

}  // namespace orvil::detail
