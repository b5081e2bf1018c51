// The plane functions about ellipses.
#include <algorithm>
#include <cmath>

#include "accuracy.h"
#include "orvil/geometry/plane_functions.h"
#include "orvil/geometry/scalars.h"
#include "plane_cases.h"

namespace orvil::accuracy {

namespace {

constexpr double kTurn = 6.283185307179586;

// Nearly degenerate: flat ellipses, down to a ratio of 1e-4.
C2DEllipse any_ellipse(Random& random, Kind kind) {
    const double size = kind == Kind::Huge ? 1e40 : kind == Kind::Tiny ? 1e-2 : 1e3;
    const double ratio =
        kind == Kind::NearlyDegenerate ? std::fabs(random.magnitude(1e-4, 0.1)) : random.between(0.1, 1.0);
    const double radius = size * random.between(0.1, 1.0);
    const double turn = random.between(0.0, kTurn);
    const C2DPoint axis(radius * std::cos(turn), radius * std::sin(turn));
    C2DEllipse ellipse(any_point(random, size), axis, ratio, 0.0, 0.0);
    ellipse.start = random.between(0.0, kTurn);
    ellipse.end = random.between(0.0, kTurn);
    return ellipse;
}

// Directions of the axis within 1e-8 of those of the coordinate axes are taken for these, by GET_ANGLE().
bool is_snapped(const C2DEllipse& e) {
    return std::fabs(e.axis.x) < 1e-8 || std::fabs(e.axis.y) < 1e-8;
}

Real long_radius(const C2DEllipse& e) {
    return length(real(e.axis));
}

Real reach_of(const C2DEllipse& e) {
    return length(real(e.center)) + long_radius(e);
}

double rotation_of(const C2DEllipse& e) {
    return std::atan2(e.axis.y, e.axis.x);
}

// --- lines -----------------------------------------------------------------------------------------------------------

struct Crossing {
    C2DPoint from;
    C2DPoint to;
    RealPoint points[2];
    Real reach;       // what errors are relative to
    bool is_upright;  // at right angles to the major axis within the tolerance, and so taken for that
};

// A line through a point inside. The ellipse's map onto the unit circle takes lines to lines.
Crossing any_crossing(Random& random, const C2DEllipse& e) {
    const double inside = random.between(0.0, 0.99);
    const RealPoint inner = real(e.center) + inside * (point_at(e, random.between(0.0, kTurn)) - real(e.center));
    Crossing crossing{};
    crossing.from = C2DPoint(static_cast<double>(inner.x), static_cast<double>(inner.y));
    crossing.to = near(random, crossing.from, static_cast<double>(long_radius(e)));
    const Real squared = dot(real(e.axis), real(e.axis));
    const auto onto_circle = [&](RealPoint v) {
        return RealPoint{dot(v, real(e.axis)) / squared, cross(real(e.axis), v) / squared / e.ratio};
    };
    const RealPoint start = onto_circle(real(crossing.from) - real(e.center));
    const RealPoint span = onto_circle(real(crossing.to) - real(crossing.from));
    const RealPoint unit = (span.x < 0.0L ? -1.0L : 1.0L) / length(span) * span;
    const Real distance = cross(unit, start);
    const Real half = std::sqrt((1.0L - distance) * (1.0L + distance));
    for (int i = 0; i < 2; ++i) {
        const RealPoint p = distance * left_of(unit) + (i == 0 ? half : -half) * unit;
        crossing.points[i] = real(e.center) + p.x * real(e.axis) + e.ratio * p.y * left_of(real(e.axis));
    }
    crossing.is_upright =
        std::fabs(dot(real(crossing.to) - real(crossing.from), real(e.axis))) < 1.1e-8L * long_radius(e);
    const Real extension = 1.0L + long_radius(e) / length(real(crossing.to) - real(crossing.from));
    crossing.reach = reach_of(e) * extension / e.ratio / half;
    return crossing;
}

double line_error(Random& random, Kind kind) {
    const C2DEllipse e = any_ellipse(random, kind);
    const Crossing crossing = any_crossing(random, e);
    C2DPoint found[2];
    int count = 0;
    if (is_snapped(e) || crossing.is_upright ||
        !CAL_INSLE(crossing.from, crossing.to, e.center, e.axis, e.ratio, found[0], found[1], count) || count != 2) {
        return kNoCase;
    }
    return std::fmax(error(real(found[0]), crossing.points[0], crossing.reach),
                     error(real(found[1]), crossing.points[1], crossing.reach));
}

// The whole ellipse, by its diameters and its rotation, which round the axis a little.
double arc_line_error(Random& random, Kind kind) {
    const C2DEllipse e = any_ellipse(random, kind);
    const Crossing crossing = any_crossing(random, e);
    const double from[2] = {crossing.from.x, crossing.from.y};
    const double to[2] = {crossing.to.x, crossing.to.y};
    const double centre[2] = {e.center.x, e.center.y};
    const double angles[2] = {e.start, e.start};
    const double diameter = 2.0 * static_cast<double>(long_radius(e));
    double found[2][2];
    int count = 0;
    if (is_snapped(e) || crossing.is_upright ||
        A2D_INSL1(from, to, centre, diameter, diameter * e.ratio, rotation_of(e), angles, found[0], found[1], &count) !=
            0 ||
        count != 2) {
        return kNoCase;
    }
    return std::fmax(error({found[0][0], found[0][1]}, crossing.points[0], crossing.reach),
                     error({found[1][0], found[1][1]}, crossing.points[1], crossing.reach));
}

// --- points ----------------------------------------------------------------------------------------------------------

// The parameter angle of the point with the tangent in a direction, to the left of the centre in that direction.
Real tangent_parameter(const C2DEllipse& e, double direction) {
    const RealPoint along = RealTurn(-direction)(real(e.axis));
    return std::atan2(e.ratio * along.x, along.y);
}

// Whether the tangent's direction is within the tolerance of an axis.
bool is_along_an_axis(const C2DEllipse& e, double direction) {
    const Real turned = std::remainder(Real(direction) - std::atan2(Real(e.axis.y), Real(e.axis.x)), kRealPi / 2.0L);
    return std::fabs(turned) < 1.1e-8L;
}

double nearest_error(const C2DPoint& p1, const C2DPoint& p2, RealPoint a, RealPoint b, Real reach) {
    return std::fmin(std::fmax(error(real(p1), a, reach), error(real(p2), b, reach)),
                     std::fmax(error(real(p1), b, reach), error(real(p2), a, reach)));
}

double tangent_points_error(Random& random, Kind kind) {
    const C2DEllipse e = any_ellipse(random, kind);
    const double direction = random.between(-kTurn, kTurn);
    C2DPoint p1, p2;
    CAL_ELPPN(e.center, e.axis, e.ratio, direction, p1, p2);
    if (is_snapped(e) || is_along_an_axis(e, direction)) {
        return kNoCase;
    }
    const Real t = tangent_parameter(e, direction);
    return nearest_error(p1, p2, point_at(e, t), point_at(e, t + kRealPi), reach_of(e) / e.ratio);
}

double upper_point_error(Random& random, Kind kind) {
    const C2DEllipse e = any_ellipse(random, kind);
    C2DPoint found, chosen;
    if (is_snapped(e) || !CAL_ELPRR(e.center, e.axis, e.ratio, C2DPoint(), C2DPoint(), found, chosen)) {
        return kNoCase;
    }
    const RealPoint unit = (1.0L / long_radius(e)) * real(e.axis);
    const Real height = long_radius(e) / length({unit.y, unit.x / e.ratio});
    const RealPoint truth = real(e.center) + RealPoint{0.0L, unit.y < 0.0L ? -height : height};
    return error(real(found), truth, reach_of(e) / e.ratio);
}

// Parameters away from the tips, where the construction takes the tip itself.
double parameter_point_error(Random& random, Kind kind) {
    const C2DEllipse e = any_ellipse(random, kind);
    const double t = random.between(-kTurn, kTurn);
    C2DPoint found;
    if (is_snapped(e) || !CAL_ELPCP(e.center, e.axis, e.ratio, t, found) ||
        long_radius(e) * (1.0L - std::fabs(std::cos(Real(t)))) < 2e-6L) {
        return kNoCase;
    }
    const Real height = std::fabs(std::sin(Real(t)));
    return error(real(found), point_at(e, t), reach_of(e) + long_radius(e) * e.ratio / height);
}

struct Conjugate {
    C2DPoint p1;
    C2DPoint p2;
    Real longer;
    Real shorter;
    Real direction;
    bool is_found;
    double found[3];
};

// The truth is that of the coordinates as they are rounded, by the eigenvalues of u u + v v.
Conjugate any_conjugate(Random& random, Kind kind) {
    const C2DEllipse e = any_ellipse(random, kind);
    const Real t = random.between(0.0, kTurn);
    const RealPoint ends[2] = {point_at(e, t), point_at(e, t + kRealPi / 2.0L)};
    Conjugate c{};
    c.p1.SetData(static_cast<double>(ends[0].x), static_cast<double>(ends[0].y));
    c.p2.SetData(static_cast<double>(ends[1].x), static_cast<double>(ends[1].y));
    const RealPoint u = real(c.p1) - real(e.center);
    const RealPoint v = real(c.p2) - real(e.center);
    const Real xx = u.x * u.x + v.x * v.x;
    const Real yy = u.y * u.y + v.y * v.y;
    const Real xy = u.x * u.y + v.x * v.y;
    c.longer = std::sqrt((xx + yy + length({xx - yy, 2.0L * xy})) / 2.0L);
    c.shorter = std::fabs(cross(u, v)) / c.longer;
    c.direction = std::atan2(2.0L * xy, xx - yy) / 2.0L;
    c.is_found = CAL_ELPDT(c.p1, c.p2, e.center, c.found[0], c.found[1], c.found[2]);
    return c;
}

double radii_error(Random& random, Kind kind) {
    const Conjugate c = any_conjugate(random, kind);
    if (!c.is_found) {
        return kNoCase;
    }
    return std::fmax(error(c.found[0], c.longer, c.longer), error(c.found[1], c.shorter, c.longer));
}

double axis_error(Random& random, Kind kind) {
    const Conjugate c = any_conjugate(random, kind);
    if (!c.is_found || c.longer - c.shorter < 1.1e-8L) {
        return kNoCase;
    }
    const Real off = std::remainder(c.found[2] - c.direction, kRealPi);
    const Real distinct = (c.longer - c.shorter) * (c.longer + c.shorter) / c.longer / c.longer;
    return error(off, 0.0L, 1.0L / distinct);
}

// --- what bounds an arc ----------------------------------------------------------------------------------------------

double bounds_error(Random& random, Kind kind) {
    const C2DEllipse e = any_ellipse(random, kind);
    const double direction = random.between(-kTurn, kTurn);
    const double a = static_cast<double>(long_radius(e));
    C2DPoint p1, p2;
    CAL_ANGPT(e.center, a, a * e.ratio, rotation_of(e), 0.0, 0.0, direction, p1, p2);
    const Real t = tangent_parameter(e, direction);
    return nearest_error(p1, p2, point_at(e, t), point_at(e, t + kRealPi), reach_of(e) / e.ratio);
}

double bounds_by_axis_error(Random& random, Kind kind) {
    const C2DEllipse e = any_ellipse(random, kind);
    const double direction = random.between(-kTurn, kTurn);
    C2DPoint p1, p2;
    if (is_snapped(e) || is_along_an_axis(e, direction) ||
        !CAL_ELAMN(e.center, e.axis, e.ratio, 0.0, 0.0, direction, p1, p2)) {
        return kNoCase;
    }
    const Real t = tangent_parameter(e, direction);
    return nearest_error(p1, p2, point_at(e, t), point_at(e, t + kRealPi), reach_of(e) / e.ratio);
}

// Of an arc: the least and greatest among its ends and those of the four extreme points that lie on it.
double box_error(Random& random, Kind kind) {
    const C2DEllipse e = any_ellipse(random, kind);
    const double a = 2.0 * static_cast<double>(long_radius(e));
    C2DPoint low, high;
    if (!CA_ELAMN2(e.center, a, a * e.ratio, rotation_of(e), e.start, e.end, low, high)) {
        return kNoCase;
    }
    RealPoint least = point_at(e, e.start);
    RealPoint most = least;
    const auto include = [&](Real t) {
        const RealPoint p = point_at(e, t);
        least = {std::fmin(least.x, p.x), std::fmin(least.y, p.y)};
        most = {std::fmax(most.x, p.x), std::fmax(most.y, p.y)};
    };
    include(e.end);
    const Real sweep = e.end > e.start ? Real(e.end) - e.start : Real(e.end) - e.start + 2.0L * kRealPi;
    for (const Real t : {std::atan2(-e.ratio * Real(e.axis.y), Real(e.axis.x)),
                         std::atan2(e.ratio * Real(e.axis.x), Real(e.axis.y))}) {
        for (const Real extreme : {t, t + kRealPi}) {
            const Real turns = std::floor((extreme - e.start) / (2.0L * kRealPi));
            if (extreme - e.start - turns * 2.0L * kRealPi < sweep) {
                include(extreme);
            }
        }
    }
    return std::fmax(error({low.x, low.y}, least, reach_of(e)), error({high.x, high.y}, most, reach_of(e)));
}

}  // namespace

void add_plane_ellipses(Functions& functions) {
    constexpr Bounds constructed = {1e-15, 1e-15, 1e-15, 1e-15};
    constexpr Bounds by_direction = {2e-15, 2e-15, 2e-15, 2e-15};
    // The point is looked for on a line of length 100, of which nothing is left beside huge coordinates.
    constexpr Bounds upper = {1e-15, kNotMeasured, 1e-15, 1e-15};
    functions.insert(functions.end(),
                     {
                         {"CAL_INSLE", "reach / ratio / half chord", constructed, line_error},
                         {"A2D_INSL1", "reach / ratio / half chord", constructed, arc_line_error},
                         {"CAL_ELPPN", "reach / ratio", by_direction, tangent_points_error},
                         {"CAL_ELPRR", "reach / ratio", upper, upper_point_error},
                         {"CAL_ELPCP", "reach + short radius / sine", constructed, parameter_point_error},
                         {"CAL_ELPDT", "long radius", constructed, radii_error},
                         {"CAL_ELPDT, its direction", "1 / (1 - ratio^2)", by_direction, axis_error},
                         {"CAL_ANGPT", "reach / ratio", constructed, bounds_error},
                         {"CAL_ELAMN", "reach / ratio", by_direction, bounds_by_axis_error},
                         {"CA_ELAMN2", "reach", constructed, box_error},
                     });
}

}  // namespace orvil::accuracy
