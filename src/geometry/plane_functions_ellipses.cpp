#include <algorithm>

#include "geometry/ellipse_frame.h"
#include "orvil/geometry/plane_functions.h"

namespace orvil {
namespace {

constexpr double kTouching = 1e-6;

// Whether both radii have squares and reciprocal squares to calculate with.
bool is_ellipse(double a, double b) {
    const auto is_usable = [](double squared) { return std::isfinite(squared) && std::isfinite(1.0 / squared); };
    return is_usable(a * a) && is_usable(b * b);
}

struct FrameLine {
    PlaneVector start;
    PlaneVector span;

    bool is_vertical() const { return std::fabs(span.x) < kTolerance; }
    bool is_horizontal() const { return std::fabs(span.y / span.x) < kTolerance; }
};

// A line with the unit normal n, at the signed distance c from the centre, touches where |c| = sqrt(a^2 nx^2 + b^2
// ny^2).
bool touch(double a, double b, const FrameLine& line, EllipseMeetings& meetings) {
    const PlaneVector normal = left_of(line.span) / length(line.span);
    const double offset = dot(normal, line.start);
    const double reach = length(a * normal.x, b * normal.y);
    if (!(reach > 0.0 && std::fabs(std::fabs(offset) - reach) < kTouching)) {
        return false;
    }
    PlaneVector point{a * (a * normal.x / reach), b * (b * normal.y / reach)};
    if (line.is_vertical()) {
        point = {std::copysign(a, normal.x), 0.0};
    } else if (line.is_horizontal()) {
        point = {0.0, std::copysign(b, normal.y)};
    }
    meetings.count = 1;
    meetings.points[0] = offset < 0.0 ? -point : point;
    return true;
}

// The points of y = m x + q, the one further to the right first, by way of the unit circle that x / a and y / b make of
// the ellipse: there neither a steep line nor one through an end of the short axis cancels digits.
void place_crossings(double a, double b, const FrameLine& line, EllipseMeetings& meetings) {
    const PlaneVector start{line.start.x / a, line.start.y / b};
    PlaneVector span{line.span.x / a, line.span.y / b};
    span = line.span.x < 0.0 ? -span : span;
    const double squared = dot(span, span);
    const double k = cross(span, start);
    const double h = std::sqrt(std::max(0.0, squared - k * k));
    const PlaneVector foot = k * left_of(span);
    const PlaneVector right = (foot + h * span) / squared;
    const PlaneVector left = (foot - h * span) / squared;
    meetings.points[0] = {a * right.x, b * right.y};
    meetings.points[1] = {a * left.x, b * left.y};
}

// The roots of A x^2 + 2 m q / b^2 x + q^2 / b^2 - 1 = 0 decide how many points there are. A is above 0, since the
// radii have reciprocal squares. A greater root of exactly 0 is refused, here before anything else is done with it.
bool meet_slanting(double a, double b, const FrameLine& line, EllipseMeetings& meetings) {
    const double m = line.span.y / line.span.x;
    const double q = line.start.y - m * line.start.x;
    const double per_a = 1.0 / (a * a);
    const double per_b = 1.0 / (b * b);
    const double leading = per_a + m * m * per_b;
    const double discriminant = per_a - q * q * per_a * per_b + m * m * per_b;
    const double half_linear = q * m * per_b;
    if (discriminant == 0.0) {
        const double x = -half_linear / leading;
        meetings.count = 1;
        meetings.points[0] = {x, m * x + q};
        return true;
    }
    if (!(discriminant > 0.0)) {
        return true;
    }
    if ((std::sqrt(discriminant) - half_linear) / leading == 0.0) {
        return false;
    }
    place_crossings(a, b, line, meetings);
    meetings.count = 2;
    if (!(length(meetings.points[0] - meetings.points[1]) > kTouching)) {
        meetings.count = 1;
        meetings.points[1] = {};
    }
    return true;
}

// x = x0. The raw product w is compared with 1e-6: a line well beside a small ellipse still counts as touching it.
void meet_vertical(double a, double b, double x0, EllipseMeetings& meetings) {
    const double w = (a - x0) * (a + x0) * b * b * 4.0 * a * a;
    if (w > 0.0) {
        const double y = std::fabs(b) * std::sqrt((a - x0) * (a + x0)) / a;
        meetings.count = 2.0 * y > kTouching ? 2 : 1;
        meetings.points[0] = {x0, y};
        meetings.points[1] = meetings.count == 2 ? PlaneVector(x0, -y) : PlaneVector();
    } else if (std::fabs(w) <= kTouching) {
        meetings.count = 1;
        meetings.points[0] = {x0, 0.0};
    }
}

}  // namespace

bool meet_in_frame(double a, double b, PlaneVector start, PlaneVector end, EllipseMeetings& meetings) {
    if (!is_ellipse(a, b)) {
        return false;
    }
    const FrameLine line{start, end - start};
    bool is_solved = true;
    if (touch(a, b, line, meetings)) {
        // the line has one point with the ellipse
    } else if (line.is_vertical()) {
        meet_vertical(a, b, line.start.x, meetings);
    } else {
        is_solved = meet_slanting(a, b, line, meetings);
    }
    if (!is_finite(meetings.points[0]) || !is_finite(meetings.points[1])) {
        meetings = {};
    }
    return is_solved;
}

}  // namespace orvil

using orvil::PlaneVector;

bool CAL_INSLE(const C2DPoint& l1, const C2DPoint& l2, const C2DPoint& centre, const C2DPoint& axis, double ratio,
               C2DPoint& p1, C2DPoint& p2, int& count) {
    const orvil::EllipseFrame frame(centre, axis, ratio);
    orvil::EllipseMeetings meetings;
    const bool met =
        orvil::meet_in_frame(frame.a, frame.b, frame.into(PlaneVector(l1)), frame.into(PlaneVector(l2)), meetings);
    count = meetings.count;
    orvil::assign(p1, count > 0 ? frame.out_of(meetings.points[0]) : PlaneVector());
    orvil::assign(p2, count > 1 ? frame.out_of(meetings.points[1]) : PlaneVector());
    return met;
}

// NOLINTNEXTLINE(readability-function-size): ten parameters, as hosts call it.
int A2D_INSL1(const double l1[2], const double l2[2], const double centre[2], double longDiameter, double shortDiameter,
              double rotation, const double angles[2], double p1[2], double p2[2], int* count) {
    const double a = longDiameter / 2.0;
    const double b = shortDiameter / 2.0;
    const auto polar = [&](double t) {
        const PlaneVector parameter = orvil::unit(t);
        return orvil::direction(a * parameter.x, b * parameter.y);
    };
    const double arc[2] = {polar(angles[0]), polar(angles[1])};
    const PlaneVector axis = a * orvil::unit(rotation);
    C2DPoint found[2];
    int number = 0;
    const bool met = CAL_INSLE(C2DPoint(l1[0], l1[1]), C2DPoint(l2[0], l2[1]), C2DPoint(centre[0], centre[1]),
                               C2DPoint(axis.x, axis.y), b / a, found[0], found[1], number);
    C2DPoint kept[2];
    int kept_number = 0;
    for (int i = 0; i < number; ++i) {
        const double point[2] = {found[i].x, found[i].y};
        if (A2D_PIN_CHK(centre, rotation, arc, point) == 0) {
            kept[kept_number++] = found[i];
        }
    }
    p1[0] = kept[0].x;
    p1[1] = kept[0].y;
    p2[0] = kept[1].x;
    p2[1] = kept[1].y;
    *count = kept_number;
    return met ? 0 : -1;
}
