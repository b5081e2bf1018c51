// What a curve is evaluated from, in plain arrays.
#pragma once

#include <cfloat>
#include <cmath>
#include <cstdint>

#include "geometry/nurbs_limits.h"
#include "geometry/scratch_array.h"
#include "orvil/geometry/nurbs.h"

namespace orvil::detail {

struct WeightedPoint {
    double x, y, z, weight;
};

inline bool is_finite(double value) {
    return std::fabs(value) <= DBL_MAX;
}

inline bool is_same_knot(double left, double right) {
    return std::fabs(left - right) < kKnotTolerance;
}

// The spans that are drawn are first_span up to end_span.
struct Curve {
    int degree = 0;
    int count = 0;       // control points
    int knot_count = 0;  // those that are there; behind them stand zeros for those that control points need
    ScratchArray<double> knots;
    ScratchArray<WeightedPoint> points;
    int first_span = 0;
    int end_span = 0;
    double last_parameter = 0;
    bool is_end_clamped = false;

    double knot(int i) const { return knots[static_cast<std::size_t>(i)]; }
    double span_end(int span) const { return span == end_span - 1 ? last_parameter : knot(span + 1); }
    double step(int span, int divisions) const { return (span_end(span) - knot(span)) / divisions; }
};

// Fills a curve whose degree is set. Returns false when memory runs out.
bool gather(const CExtArray<double>& knots, const CExtArray<CNurbsCtrlPoint>& points, Curve& curve);

// A step that is no number is taken, for its samples to be refused.
inline bool is_drawn(double step) {
    return !(step < kKnotTolerance);
}

std::int64_t count_segments(const Curve& curve, int divisions);

bool has_finite_points(const Curve& curve);

// Whether each parameter lies in one span only, so that all but degree + 1 basis functions are 0: the knots that
// control points need are all there, none decreases, and their differences are finite.
bool has_single_spans(const Curve& curve);

}  // namespace orvil::detail
