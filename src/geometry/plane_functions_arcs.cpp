#include "geometry/plane_vector.h"
#include "orvil/geometry/plane_functions.h"

namespace orvil {
namespace {

struct Arc {
    PlaneVector centre;
    double radius;
    double start;
    double end;

    PlaneVector point_at(double angle) const { return centre + radius * unit(angle); }
};

double raised(double angle) {
    return angle < 0.0 ? angle + kTwoPi : angle;
}

bool agree(double left, double right) {
    return std::fabs(left - right) < kTolerance;
}

bool are_identical(const Arc& a, const Arc& b) {
    return agree(a.radius, b.radius) && agree(a.start, b.start) && agree(a.end, b.end) &&
           length(a.centre - b.centre) < kTolerance;
}

// No tolerance is applied: a direction that equals the start of an arc which is no whole turn lies outside.
bool accepts(const Arc& arc, PlaneVector point) {
    if (!is_finite(point)) {
        return false;
    }
    if (arc.start == arc.end || arc.end - arc.start == kTwoPi) {
        return true;
    }
    const double end = arc.start > arc.end ? arc.end + kTwoPi : arc.end;
    double t = direction(point - arc.centre);
    t = t >= kTwoPi ? 0.0 : t;
    t = arc.start >= t ? t + kTwoPi : t;
    return t <= end;
}

// Whether two arcs of one circle touch where one begins at `from` and the other ends at `to`.
bool ends_touch(double radius, double from, double to) {
    const double gap = std::fabs(from - to);
    return gap < kTolerance || agree(gap, kTwoPi) || radius * gap < kTolerance;
}

struct Meetings {
    C2DPoint& p1;
    C2DPoint& p2;
    int& count;

    void set(int number, PlaneVector first, PlaneVector second) {
        count = number;
        assign(p1, first);
        assign(p2, second);
    }
};

// Arcs of one circle meet at their ends only; what they share beyond is not looked for.
void meet_on_one_circle(const Arc& a, const Arc& b, Meetings& meetings) {
    if (ends_touch(a.radius, a.start, b.end)) {
        assign(meetings.p1, a.point_at(a.start));
        meetings.count = 1;
    }
    if (ends_touch(a.radius, a.end, b.start)) {
        assign(meetings.count == 0 ? meetings.p1 : meetings.p2, a.point_at(a.end));
        ++meetings.count;
    }
}

// On the line of the centres. For a smaller first circle this is the second circle's far point, though the circles
// touch on the near side.
PlaneVector touching_point(const Arc& a, const Arc& b, double distance) {
    const PlaneVector span = b.centre - a.centre;
    return a.radius >= b.radius ? a.centre + a.radius * span / distance : b.centre + b.radius * span / distance;
}

void meet_touching(const Arc& a, const Arc& b, double distance, Meetings& meetings) {
    const PlaneVector point = touching_point(a, b, distance);
    if (accepts(a, point) && accepts(b, point)) {
        meetings.set(1, point, point);
    } else {
        meetings.set(0, {}, {});
    }
}

void meet_crossing(const Arc& a, const Arc& b, double distance, Meetings& meetings) {
    const PlaneVector span = b.centre - a.centre;
    const double squared = dot(span, span);
    const double sum = a.radius + b.radius;
    const double difference = a.radius - b.radius;
    // h is sqrt(Ra^2 D - a^2), as a product of factors that rounding cannot make negative.
    const double along = (difference * sum + squared) / 2.0;
    const double h = std::sqrt((sum - distance) * (sum + distance)) *
                     std::sqrt((distance - difference) * (distance + difference)) / 2.0;
    const PlaneVector right = a.centre + (along * span - h * left_of(span)) / squared;
    const PlaneVector left = a.centre + (along * span + h * left_of(span)) / squared;
    const bool has_right = accepts(a, right) && accepts(b, right);
    const bool has_left = accepts(a, left) && accepts(b, left);
    if (has_right && has_left) {
        meetings.set(2, right, left);
    } else if (has_right || has_left) {
        const PlaneVector only = has_right ? right : left;
        meetings.set(1, only, only);
    } else {
        meetings.set(0, {}, {});
    }
}

void meet(const Arc& a, const Arc& b, Meetings& meetings) {
    const double distance = length(a.centre - b.centre);
    const double sum = a.radius + b.radius;
    const double difference = std::fabs(a.radius - b.radius);
    if (distance < kTolerance) {
        if (difference < kTolerance) {
            meet_on_one_circle(a, b, meetings);
        }
    } else if (agree(difference, distance) || agree(sum, distance)) {
        meet_touching(a, b, distance, meetings);
    } else if (sum >= distance && difference <= distance) {
        meet_crossing(a, b, distance, meetings);
    }
}

}  // namespace
}  // namespace orvil

// NOLINTNEXTLINE(readability-function-size): eleven parameters, as hosts call it.
int CA_INS2C(const C2DPoint& c1, double Ra, double s1, double e1, const C2DPoint& c2, double Rb, double s2, double e2,
             C2DPoint& p1, C2DPoint& p2, int& count) {
    using orvil::raised;
    const orvil::Arc a{orvil::PlaneVector(c1), Ra, raised(s1), raised(e1)};
    const orvil::Arc b{orvil::PlaneVector(c2), Rb, raised(s2), raised(e2)};
    count = 0;
    if (!(Ra > 0.0) || !(Rb > 0.0) || orvil::are_identical(a, b)) {
        return 1;
    }
    orvil::Meetings meetings{p1, p2, count};
    orvil::meet(a, b, meetings);
    return 0;
}
