// The plane functions about lines and circles.
#include "orvil/geometry/plane_functions.h"

#include <algorithm>
#include <cmath>

#include "accuracy.h"
#include "orvil/geometry/scalars.h"
#include "plane_cases.h"

namespace orvil::accuracy {

namespace {

constexpr double kTurn = 6.283185307179586;

// How large figures are, and how far from the origin. What is nearly degenerate is said at each function.
double size_of(Kind kind) {
    return kind == Kind::Huge ? 1e40 : kind == Kind::Tiny ? 1e-2 : 1e3;
}

Real largest(RealPoint p) {
    return std::fmax(std::fabs(p.x), std::fabs(p.y));
}

// --- lines -----------------------------------------------------------------------------------------------------------

// Nearly degenerate: directions that differ by 1e-6 to 1e-3.
C2DLine other_line(Random& random, Kind kind, const C2DLine& line) {
    const double size = size_of(kind);
    if (kind != Kind::NearlyDegenerate) {
        const C2DPoint start = any_point(random, size);
        return {start, any_point(random, size)};
    }
    const C2DPoint start = any_point(random, size);
    const double tilt = random.magnitude(1e-6, 1e-3);
    const double x = line.end.x - line.start.x;
    const double y = line.end.y - line.start.y;
    return {start, C2DPoint(start.x + x - tilt * y, start.y + y + tilt * x)};
}

double meeting_error(Random& random, Kind kind) {
    const C2DPoint from = any_point(random, size_of(kind));
    const C2DLine a(from, any_point(random, size_of(kind)));
    const C2DLine b = other_line(random, kind, a);
    C2DPoint found;
    if (CA_INS2L(a.start, a.end, b.start, b.end, found) == 2) {
        return kNoCase;
    }
    const RealPoint u = real(a.end) - real(a.start);
    const RealPoint v = real(b.end) - real(b.start);
    const RealPoint truth = real(a.start) + (cross(real(b.start) - real(a.start), v) / cross(u, v)) * u;
    const Real sine = std::fabs(cross(u, v)) / length(u) / length(v);
    return error(real(found), truth,
                 (std::fmax(largest(real(a.start)), largest(real(b.start))) + length(truth)) / sine);
}

// Whether the two answers differ where the distance is well away from the tolerance.
double wrong_answer(bool found, Real distance, Real truth_below, Real reach) {
    if (std::fabs(distance - truth_below) < reach) {
        return kNoCase;
    }
    return found == (distance < truth_below) ? 0.0 : 1.0;
}

// Points around the tolerance of 1e-8 beside a segment; nearly degenerate: a segment of 1e-3 far from the origin.
double on_line_error(Random& random, Kind kind) {
    const double size = kind == Kind::Huge ? 1e6 : size_of(kind);
    const C2DPoint a = any_point(random, size);
    const C2DPoint b = near(random, a, kind == Kind::NearlyDegenerate ? 1e-3 : size);
    const RealPoint span = real(b) - real(a);
    const double along = random.between(0.1, 0.9);
    const double aside = random.magnitude(1e-10, 1e-6) / static_cast<double>(length(span));
    const C2DPoint p(a.x + along * (b.x - a.x) - aside * (b.y - a.y), a.y + along * (b.y - a.y) + aside * (b.x - a.x));
    const Real distance = std::fabs(cross(span, real(p) - real(a))) / length(span);
    return wrong_answer(CA_ONLIN(a, b, p) == 0, distance, 1e-8L, 1e-15L * size);
}

// Points around the tolerance of the raw product.
double side_error(Random& random, Kind kind) {
    const double size = size_of(kind);
    const C2DPoint a = any_point(random, size);
    const C2DPoint b = near(random, a, kind == Kind::NearlyDegenerate ? 1e-3 : size);
    const RealPoint span = real(b) - real(a);
    const double along = random.between(-1.0, 2.0);
    const double aside = random.magnitude(1e-12, 1.0);
    const C2DPoint p(a.x + along * (b.x - a.x) - aside * (b.y - a.y), a.y + along * (b.y - a.y) + aside * (b.x - a.x));
    const Real product = cross(span, real(p) - real(a));
    int side = 0;
    if (CA_POSLN(C2DLine(a, b), p, side) != 0 ||
        std::fabs(std::fabs(product) - 1e-8L) < 1e-15L * length(span) * length(real(p) - real(a))) {
        return kNoCase;
    }
    const int truth = std::fabs(product) < 1e-8L ? 0 : product > 0.0L ? -1 : 1;
    return side == truth ? 0.0 : 1.0;
}

// Nearly degenerate: the line is given by two points 1e-2 apart.
double foot_error(Random& random, Kind kind) {
    const double size = size_of(kind);
    const C2DPoint a = any_point(random, size);
    const C2DPoint b = near(random, a, kind == Kind::NearlyDegenerate ? 1e-2 : size);
    const C2DPoint p = any_point(random, size);
    C2DPoint foot;
    double distance = 0.0;
    if (CA_PERLN(a, b, p, foot, distance) < 0) {
        return kNoCase;
    }
    const RealPoint span = real(b) - real(a);
    const RealPoint arm = real(p) - real(a);
    const RealPoint truth = real(a) + (dot(arm, span) / dot(span, span)) * span;
    const Real reach = largest(real(a)) + length(arm);
    return std::fmax(error(real(foot), truth, reach),
                     error(distance, std::fabs(cross(span, arm)) / length(span), reach));
}

// --- circles ---------------------------------------------------------------------------------------------------------

// Nearly degenerate: chords that are short beside the radius.
double chord_error(Random& random, Kind kind) {
    const double size = size_of(kind);
    const C2DEllipse circle(any_point(random, size), any_point(random, size), 1.0, 0.0, 0.0);
    const Real radius = length(real(circle.axis));
    const double away =
        kind == Kind::NearlyDegenerate ? 1.0 - std::fabs(random.magnitude(1e-9, 1e-4)) : random.between(0.0, 0.99);
    const double turn = random.between(0.0, kTurn);
    const double r = away * static_cast<double>(radius);
    const C2DPoint middle(circle.center.x + r * std::cos(turn), circle.center.y + r * std::sin(turn));
    const double back = random.between(-size, size);
    const C2DPoint from(middle.x - back * std::sin(turn), middle.y + back * std::cos(turn));
    const C2DPoint to(from.x - size * std::sin(turn), from.y + size * std::cos(turn));
    C2DPoint found[2];
    int count = 0;
    if (CA_INSLC(circle, C2DLine(from, to), found[0], found[1], count) != 0 || count != 2) {
        return kNoCase;
    }
    const RealPoint span = real(to) - real(from);
    const RealPoint unit = (1.0L / length(span)) * span;
    const RealPoint arm = real(from) - real(circle.center);
    const Real distance = cross(unit, arm);
    const Real half = std::sqrt((radius - distance) * (radius + distance));
    const RealPoint foot = real(circle.center) + distance * left_of(unit);
    const Real reach = (largest(real(circle.center)) + length(arm) + radius) * radius / half;
    return std::fmax(error(real(found[0]), foot + half * unit, reach),
                     error(real(found[1]), foot - half * unit, reach));
}

struct ThreePoints {
    C2DPoint p[3];
    RealPoint centre;
    Real radius;
    Real sine;  // of the angle at the first point
};

// Nearly degenerate: points that are nearly in a line.
ThreePoints three_points(Random& random, Kind kind) {
    const double size = kind == Kind::Tiny ? 1.0 : size_of(kind);
    ThreePoints points{};
    points.p[0] = any_point(random, size);
    points.p[1] = near(random, points.p[0], size);
    points.p[2] = near(random, points.p[0], size);
    if (kind == Kind::NearlyDegenerate) {
        const double along = random.between(1.1, 3.0);
        const double aside = random.magnitude(1e-7, 1e-3);
        const double x = points.p[1].x - points.p[0].x;
        const double y = points.p[1].y - points.p[0].y;
        points.p[2].SetData(points.p[0].x + along * x - aside * y, points.p[0].y + along * y + aside * x);
    }
    const RealPoint u = real(points.p[1]) - real(points.p[0]);
    const RealPoint v = real(points.p[2]) - real(points.p[0]);
    const RealPoint to_centre = (0.5L / cross(u, v)) * left_of(dot(v, v) * u - dot(u, u) * v);
    points.centre = real(points.p[0]) + to_centre;
    points.radius = length(to_centre);
    points.sine = std::fabs(cross(u, v)) / length(u) / length(v);
    return points;
}

double arc_centre_error(Random& random, Kind kind) {
    const ThreePoints points = three_points(random, kind);
    C2DPoint centre;
    double radius = 0.0, start = 0.0, end = 0.0;
    if (!CA_ARC3P(points.p[0], points.p[1], points.p[2], centre, radius, start, end)) {
        return kNoCase;
    }
    const Real reach = largest(real(points.p[0])) + points.radius / points.sine;
    return std::fmax(error(real(centre), points.centre, reach), error(radius, points.radius, reach));
}

double arc_angle_error(Random& random, Kind kind) {
    const ThreePoints points = three_points(random, kind);
    C2DPoint centre;
    double radius = 0.0, start = 0.0, end = 0.0;
    if (!CA_ARC3P(points.p[0], points.p[1], points.p[2], centre, radius, start, end)) {
        return kNoCase;
    }
    const auto direction = [&](const C2DPoint& p) {
        const RealPoint arm = real(p) - points.centre;
        return std::atan2(arm.y, arm.x);
    };
    const bool is_left = cross(real(points.p[1]) - real(points.p[0]), real(points.p[2]) - real(points.p[0])) > 0.0L;
    const Real first = direction(points.p[is_left ? 0 : 2]);
    const Real last = direction(points.p[is_left ? 2 : 0]);
    return std::fmax(angle_error(start, first), angle_error(end, last)) * static_cast<double>(points.sine);
}

// Nearly degenerate: points just outside of the circle.
double tangent_error(Random& random, Kind kind) {
    const double size = size_of(kind);
    const C2DPoint centre = any_point(random, size);
    const double r = size * random.between(0.01, 1.0);
    const double turn = random.between(0.0, kTurn);
    const double away =
        kind == Kind::NearlyDegenerate ? 1.0 + std::fabs(random.magnitude(1e-12, 1e-3)) : random.between(1.01, 10.0);
    const C2DPoint p(centre.x + away * r * std::cos(turn), centre.y + away * r * std::sin(turn));
    C2DPoint found[2];
    int count = 0;
    CA_PCTAN(centre, r, p, found[0], found[1], count);
    const RealPoint arm = real(p) - real(centre);
    const Real distance = length(arm);
    if (count != 2 || distance <= r) {
        return kNoCase;
    }
    const RealPoint unit = (1.0L / distance) * arm;
    const Real cosine = r / distance;
    const Real sine = std::sqrt((distance - r) * (distance + r)) / distance;
    const RealPoint along = real(centre) + r * cosine * unit;
    const RealPoint aside = r * sine * left_of(unit);
    const Real reach = largest(real(centre)) + largest(real(p)) + r / sine;
    return std::fmax(error(real(found[0]), along - aside, reach), error(real(found[1]), along + aside, reach));
}

double on_circle_error(Random& random, Kind kind) {
    const double size = size_of(kind);
    const C2DPoint centre = any_point(random, size);
    const double r = random.between(-size, size);
    const double degrees = random.between(-720.0, 720.0);
    C2DPoint found;
    GET_ONPC(centre, r, degrees, found);
    const Real turn = static_cast<Real>(degrees) * kRealPi / 180.0L;
    const RealPoint truth = real(centre) + Real(r) * RealPoint{std::cos(turn), std::sin(turn)};
    return error(real(found), truth, largest(real(centre)) + std::fabs(r));
}

// Nearly degenerate: circles that nearly touch.
double crossing_error(Random& random, Kind kind) {
    const double size = size_of(kind);
    const C2DPoint c1 = any_point(random, size);
    const C2DPoint c2 = near(random, c1, size);
    const RealPoint span = real(c2) - real(c1);
    const Real distance = length(span);
    const double r1 = size * random.between(0.01, 1.0);
    double r2 = size * random.between(0.01, 1.0);
    if (kind == Kind::NearlyDegenerate) {
        const Real touching = random.chance(0.5) ? std::fabs(distance - r1) : distance + r1;
        r2 = static_cast<double>(touching) * (1.0 + random.magnitude(1e-9, 1e-4));
    }
    C2DPoint found[2];
    int count = 0;
    CA_INS2C(c1, r1, 0.0, 0.0, c2, r2, 0.0, 0.0, found[0], found[1], count);
    if (count != 2) {
        return kNoCase;
    }
    const Real along = (distance + (Real(r1) - r2) * (Real(r1) + r2) / distance) / 2.0L;
    const Real aside = std::sqrt((r1 - along) * (r1 + along));
    const RealPoint unit = (1.0L / distance) * span;
    const RealPoint foot = real(c1) + along * unit;
    const Real greatest = std::fmax(std::fmax(r1, r2), distance);
    const Real reach = largest(real(c1)) + largest(real(c2)) + greatest * greatest / std::fmin(aside, distance);
    return std::fmax(error(real(found[0]), foot - aside * left_of(unit), reach),
                     error(real(found[1]), foot + aside * left_of(unit), reach));
}

// Points around the ends of an arc, whose angles stay within a turn and a half of 0.
double on_arc_error(Random& random, Kind kind) {
    const double size = kind == Kind::Huge ? 1e6 : size_of(kind);
    const C2DPoint centre = any_point(random, size);
    const double r = size * random.between(0.1, 1.0);
    const double start = random.between(-360.0, 180.0);
    const double end = start + random.between(1.0, 359.0);
    const double degrees = (random.chance(0.5) ? start : end) + random.magnitude(1e-7, 1.0);
    C2DPoint p;
    GET_ONPC(centre, r, degrees, p);
    const RealPoint arm = real(p) - real(centre);
    const Real turned =
        std::remainder(std::atan2(arm.y, arm.x) * 180.0L / kRealPi - (Real(start) + end) / 2.0L, 360.0L);
    const Real off = std::fabs(length(arm) - r);
    if (off > 0.9e-8L) {
        return kNoCase;
    }
    const Real half = (Real(end) - start) / 2.0L + 1e-5L;
    return wrong_answer(ChkOnArc(centre, r, start, end, p) == 0, std::fabs(turned), half, 1e-12L);
}

}  // namespace

void add_plane_functions(Functions& functions) {
    constexpr Bounds never = {1e-300, 1e-300, 1e-300, 1e-300};
    constexpr Bounds constructed = {5e-16, 5e-16, 5e-16, 5e-16};
    constexpr Bounds angles = {1.5e-15, 1.5e-15, 1.5e-15, 1.5e-15};
    constexpr Bounds by_degrees = {3e-15, 3e-15, 3e-15, 3e-15};
    functions.insert(functions.end(),
                     {
                         {"CA_INS2L", "coordinates / sine", constructed, meeting_error},
                         {"CA_ONLIN", "wrong answers", never, on_line_error},
                         {"CA_POSLN", "wrong answers", never, side_error},
                         {"CA_PERLN", "coordinates", constructed, foot_error},
                         {"CA_INSLC", "coordinates * radius / half chord", constructed, chord_error},
                         {"CA_ARC3P", "coordinates + radius / sine", constructed, arc_centre_error},
                         {"CA_ARC3P, its angles", "1 / sine", angles, arc_angle_error},
                         {"CA_PCTAN", "coordinates + radius / sine", constructed, tangent_error},
                         {"GET_ONPC", "coordinates + radius", by_degrees, on_circle_error},
                         {"CA_INS2C", "coordinates + radius^2 / half chord", constructed, crossing_error},
                         {"ChkOnArc", "wrong answers", never, on_arc_error},
                     });
}

}  // namespace orvil::accuracy
