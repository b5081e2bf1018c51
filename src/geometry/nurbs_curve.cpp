#include "geometry/nurbs_curve.h"

#include <algorithm>

namespace orvil::detail {
namespace {

bool gather_knots(const CExtArray<double>& knots, Curve& curve) {
    const int needed = curve.count + curve.degree + 2;
    curve.knot_count = knots.GetSize();
    if (!curve.knots.allocate(static_cast<std::size_t>((std::max)(needed, curve.knot_count)))) {
        return false;
    }
    for (int i = 0; i < curve.knot_count; ++i) {
        if (const double* knot = knots.GetAt(i)) {
            curve.knots[static_cast<std::size_t>(i)] = *knot;
        }
    }
    return true;
}

bool gather_points(const CExtArray<CNurbsCtrlPoint>& points, Curve& curve) {
    if (!curve.points.allocate(static_cast<std::size_t>(curve.count))) {
        return false;
    }
    for (int i = 0; i < curve.count; ++i) {
        if (const CNurbsCtrlPoint* from = points.GetAt(i)) {
            curve.points[static_cast<std::size_t>(i)] = {from->point.x, from->point.y, from->point.z, from->weight};
        }
    }
    return true;
}

// The first span of those that may be drawn that begins at t, or has t inside; the number behind the last if there is
// none.
int find_span_with(const Curve& curve, double t) {
    for (int j = curve.degree; j <= curve.count; ++j) {
        const double from = curve.knot(j);
        const double to = curve.knot(j + 1);
        if (is_same_knot(from, t) || (from < t && t < to && !is_same_knot(to, t))) {
            return j;
        }
    }
    return curve.count + 1;
}

int find_knot(const Curve& curve, double t) {
    for (int j = curve.degree; j <= curve.count; ++j) {
        if (is_same_knot(curve.knot(j), t)) {
            return j;
        }
    }
    return -1;
}

// Whether all knots from one on are the same number.
bool stays_equal(const Curve& curve, int from) {
    for (int i = from; i + 1 < curve.knot_count; ++i) {
        if (curve.knot(i) != curve.knot(i + 1)) {
            return false;
        }
    }
    return true;
}

void find_spans(Curve& curve) {
    curve.last_parameter = curve.knot_count > 0 ? curve.knot(curve.knot_count - 1) : 0.0;
    curve.first_span = find_span_with(curve, curve.knot(0));
    curve.end_span = find_knot(curve, curve.last_parameter);
    curve.is_end_clamped = stays_equal(curve, (std::max)(curve.end_span, 0));
}

}  // namespace

bool gather(const CExtArray<double>& knots, const CExtArray<CNurbsCtrlPoint>& points, Curve& curve) {
    curve.count = points.GetSize();
    if (!gather_knots(knots, curve) || !gather_points(points, curve)) {
        return false;
    }
    find_spans(curve);
    return true;
}

std::int64_t count_segments(const Curve& curve, int divisions) {
    std::int64_t spans = 0;
    for (int span = curve.first_span; span < curve.end_span; ++span) {
        spans += is_drawn(curve.step(span, divisions)) ? 1 : 0;
    }
    return spans * divisions;
}

bool has_finite_points(const Curve& curve) {
    const WeightedPoint* points = curve.points.data();
    return std::all_of(points, points + curve.count, [](const WeightedPoint& point) {
        return is_finite(point.x) && is_finite(point.y) && is_finite(point.z) && is_finite(point.weight);
    });
}

bool has_single_spans(const Curve& curve) {
    const int needed = curve.count + curve.degree + 1;
    if (curve.knot_count < needed || !is_finite(curve.last_parameter - curve.knot(0))) {
        return false;
    }
    for (int i = 1; i < curve.knot_count; ++i) {
        if (!(curve.knot(i - 1) <= curve.knot(i))) {
            return false;
        }
    }
    return true;
}

}  // namespace orvil::detail
