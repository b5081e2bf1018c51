// Points, lines and ellipses of the plane, edited and placed.
#include <cmath>

#include "accuracy.h"
#include "orvil/geometry/plane_transforms.h"
#include "plane_cases.h"

namespace orvil::accuracy {

namespace {

// Ordinary drawings; huge: of 1e100; tiny: of 1e-6 near the origin; nearly degenerate: small parts far from the origin.
struct Sizes {
    double place;  // how far from the origin
    double part;   // how far apart
};

Sizes sizes_of(Kind kind) {
    switch (kind) {
        case Kind::Huge:
            return {1e100, 1e100};
        case Kind::Tiny:
            return {1e-6, 1e-6};
        case Kind::NearlyDegenerate:
            return {1e6, 1e-2};
        default:
            return {1e3, 1e3};
    }
}

double any_turn(Random& random, Kind kind) {
    return kind == Kind::Huge ? random.magnitude(1.0, 1e6) : random.between(-7.0, 7.0);
}

RealPoint scaled(RealPoint p, const C2DPoint& scale) {
    return {p.x * scale.x, p.y * scale.y};
}

// --- points ----------------------------------------------------------------------------------------------------------

double distance_error(Random& random, Kind kind) {
    const Sizes sizes = sizes_of(kind);
    const C2DPoint a = any_point(random, sizes.place);
    const C2DPoint b = near(random, a, sizes.part);
    const Real truth = length(real(a) - real(b));
    return error(a.GetDistance(b), truth, truth);
}

double rotate_error(Random& random, Kind kind) {
    const Sizes sizes = sizes_of(kind);
    const C2DPoint centre = any_point(random, sizes.place);
    const C2DPoint before = near(random, centre, sizes.part);
    const double angle = any_turn(random, kind);
    C2DPoint after = before;
    after.Rotate(centre, angle);
    const RealPoint arm = real(before) - real(centre);
    const RealPoint truth = real(centre) + RealTurn(angle)(arm);
    return error(real(after), truth, length(arm) + length(real(centre)));
}

double stretch_error(Random& random, Kind kind) {
    const Sizes sizes = sizes_of(kind);
    const C2DPoint base = any_point(random, sizes.place);
    const C2DPoint before = near(random, base, sizes.part);
    const C2DPoint factors(random.magnitude(1e-3, 1e3), random.magnitude(1e-3, 1e3));
    C2DPoint after = before;
    after.Stretch(base, factors.x, factors.y);
    const RealPoint arm = scaled(real(before) - real(base), factors);
    return error(real(after), real(base) + arm, length(arm) + length(real(base)));
}

double mirror_error(Random& random, Kind kind) {
    const Sizes sizes = sizes_of(kind);
    const C2DPoint a = any_point(random, sizes.place);
    const C2DPoint b = near(random, a, kind == Kind::Tiny ? 1e-3 : sizes.part);
    const C2DPoint before = any_point(random, sizes.place);
    C2DPoint after = before;
    if (!after.Mirror(a, b)) {
        return kNoCase;
    }
    const RealPoint axis = real(b) - real(a);
    const RealPoint arm = real(before) - real(a);
    const RealPoint along = (dot(arm, axis) / dot(axis, axis)) * axis;
    return error(real(after), real(a) + 2.0L * along - arm, length(arm) + length(real(a)));
}

// --- placement -------------------------------------------------------------------------------------------------------

C2DMatrixItem any_step(Random& random, Kind kind) {
    const Sizes sizes = sizes_of(kind);
    C2DMatrixItem step;
    step.base = any_point(random, sizes.place);
    step.move = any_point(random, sizes.place);
    const double range = kind == Kind::NearlyDegenerate ? 1e4 : 10.0;
    step.scale.SetData(random.magnitude(1.0 / range, range), random.magnitude(1.0 / range, range));
    step.angle = any_turn(random, kind);
    return step;
}

RealPoint placed(RealPoint p, const C2DMatrixItem& step) {
    return RealTurn(step.angle)(scaled(p - real(step.base), step.scale)) + real(step.move);
}

double place_point_error(Random& random, Kind kind) {
    const C2DMatrixItem step = any_step(random, kind);
    const C2DPoint before = near(random, step.base, sizes_of(kind).part);
    C2DPoint after = before;
    after.MatrixCalculation(step);
    const RealPoint arm = scaled(real(before) - real(step.base), step.scale);
    return error(real(after), placed(real(before), step), length(arm) + length(real(step.move)));
}

double place_line_error(Random& random, Kind kind) {
    const C2DMatrixItem step = any_step(random, kind);
    const double part = sizes_of(kind).part;
    const C2DLine before(near(random, step.base, part), near(random, step.base, part));
    C2DLine after = before;
    after.MatrixCalculation(step);
    const Real size = length(scaled(real(before.start) - real(step.base), step.scale)) +
                      length(scaled(real(before.end) - real(step.base), step.scale)) + length(real(step.move));
    return std::fmax(error(real(after.start), placed(real(before.start), step), size),
                     error(real(after.end), placed(real(before.end), step), size));
}

double place_vector_line_error(Random& random, Kind kind) {
    const C2DMatrixItem step = any_step(random, kind);
    const double part = sizes_of(kind).part;
    const C2DVectorLine before(near(random, step.base, part), near(random, step.base, part));
    C2DVectorLine after = before;
    after.MatrixCalculation(step);
    const RealPoint fixed = real(step.base);
    const RealPoint base = scaled(real(before.base) - fixed - fixed, step.scale);
    const RealPoint vector = scaled(real(before.vector) - fixed, step.scale);
    const RealTurn turn(step.angle);
    const Real size = length(base) + length(vector) + length(fixed) + length(real(step.move));
    return std::fmax(error(real(after.base), turn(base + fixed) + real(step.move), size),
                     error(real(after.vector), turn(vector + fixed), size));
}

// --- ellipses --------------------------------------------------------------------------------------------------------

// Points of an ellipse of which the parameter angle is asked; nearly degenerate: near the tips of the major axis. The
// truth is that of the coordinates as they are given, and of an abscissa beyond the tip that of the tip.
double parameter_angle_error(Random& random, Kind kind) {
    const double radius = random.between(0.1, 1.0) * sizes_of(kind).place;
    const double rotation = any_turn(random, kind);
    double t = random.between(0.0, 6.28);
    if (kind == Kind::NearlyDegenerate) {
        t = random.magnitude(1e-9, 1e-4) + (random.chance(0.5) ? 3.141592653589793 : 0.0);
    } else if (std::fabs(std::sin(t)) < 0.1) {
        return kNoCase;
    }
    const C2DPoint centre = any_point(random, sizes_of(kind).place);
    const RealPoint turned = RealTurn(rotation)({radius * std::cos(t), 0.3 * radius * std::sin(t)});
    const C2DPoint point(static_cast<double>(turned.x) + centre.x, static_cast<double>(turned.y) + centre.y);
    double angle = 0.0;
    C2DEllipse().CalcFxEllipsAngle(point, centre, radius, 0.3 * radius, rotation, angle);
    const RealPoint back = RealTurn(-rotation)(real(point) - real(centre));
    const Real truth = std::acos(std::fmax(-1.0L, std::fmin(1.0L, back.x / radius)));
    return angle_error(angle, back.y < 0.0L ? -truth : truth) / (1.0 + 1.0 / radius);
}

C2DEllipse any_ellipse(Random& random, Kind kind) {
    const double size = kind == Kind::Huge ? 1e70 : kind == Kind::Tiny ? 1e-2 : 1e3;
    const double flattest = kind == Kind::NearlyDegenerate ? 1e-4 : 0.05;
    C2DEllipse ellipse(any_point(random, size), any_point(random, size), random.between(flattest, 1.0), 0.0, 0.0);
    ellipse.start = random.between(0.0, 6.28);
    ellipse.end = random.between(0.0, 6.28);
    return ellipse;
}

C2DMatrixItem any_ellipse_step(Random& random, Kind kind) {
    C2DMatrixItem step = any_step(random, Kind::Ordinary);
    const double range = kind == Kind::NearlyDegenerate ? 1e3 : 10.0;
    step.scale.SetData(random.magnitude(1.0 / range, range), random.magnitude(1.0 / range, range));
    return step;
}

// What the rounding of a placed ellipse is relative to.
Real size_of(const C2DEllipse& before, const C2DEllipse& after, const C2DMatrixItem& step) {
    const RealPoint arm = scaled(real(before.center) - real(step.base), step.scale);
    return after.GetLongRadius() + length(arm) + length(real(step.move));
}

// How far the images of points of the ellipse lie from the ellipse that is found.
double place_ellipse_error(Random& random, Kind kind) {
    const C2DMatrixItem step = any_ellipse_step(random, kind);
    const C2DEllipse before = any_ellipse(random, kind);
    C2DEllipse after = before;
    if (!after.MatrixCalculation(step)) {
        return kNoCase;
    }
    const RealPoint image = placed(point_at(before, random.between(0.0, 6.28)), step) - real(after.center);
    const RealPoint axis = real(after.axis);
    const Real radius = length(axis);
    const Real shorter = radius * after.ratio;
    const RealPoint in_frame = {dot(image, axis) / radius, dot(image, left_of(axis)) / radius};
    // The distance to first order: the equation's residual divided by its gradient, both in the ellipse's frame.
    const RealPoint unit = {in_frame.x / radius, in_frame.y / shorter};
    const Real gradient = 2.0L * length({unit.x / radius, unit.y / shorter});
    return error((dot(unit, unit) - 1.0L) / gradient, 0.0L, size_of(before, after, step));
}

// How far the ends of the placed arc lie from the images of the ends.
double place_arc_error(Random& random, Kind kind) {
    const C2DMatrixItem step = any_ellipse_step(random, kind);
    const C2DEllipse before = any_ellipse(random, kind);
    C2DEllipse after = before;
    if (!after.MatrixCalculation(step)) {
        return kNoCase;
    }
    const double radius = after.GetLongRadius();
    if (std::fabs(radius * std::sin(2.0 * after.start)) < 1e-7) {
        return kNoCase;  // the tolerance makes it the end of an axis
    }
    const bool is_mirrored = (step.scale.x < 0.0) != (step.scale.y < 0.0);
    const RealPoint start = placed(point_at(before, is_mirrored ? before.end : before.start), step);
    return error(point_at(after, after.start), start, size_of(before, after, step));
}

}  // namespace

void add_plane_figures(Functions& functions) {
    // On Windows the runtime reduces angles by 66 bits of pi, which costs 1.4e-21 a radian.
    constexpr Bounds edited = {4e-16, 2e-15, 4e-16, 4e-16};
    constexpr Bounds mirrored = {1.5e-15, 1.5e-15, 1.5e-15, 1.5e-15};
    constexpr Bounds placed_once = {6e-16, 2e-15, 6e-16, 6e-16};
    constexpr Bounds placed_twice = {8e-16, 2e-15, 8e-16, 8e-16};
    constexpr Bounds arc_end = {2e-15, 2e-15, 2e-15, 2e-15};
    // A height within 1e-8 of the axis counts as none; near a tip it is the root of a small difference.
    constexpr Bounds parameter = {5e-15, 5e-15, 1.5e-8, 4e-8};
    functions.insert(functions.end(),
                     {
                         {"C2DPoint::GetDistance", "distance", edited, distance_error},
                         {"C2DPoint::Rotate", "coordinates", edited, rotate_error},
                         {"C2DPoint::Stretch", "coordinates", edited, stretch_error},
                         {"C2DPoint::Mirror, CA_MIRROR", "coordinates", mirrored, mirror_error},
                         {"C2DPoint::MatrixCalculation", "coordinates", placed_once, place_point_error},
                         {"C2DLine::MatrixCalculation", "coordinates", placed_once, place_line_error},
                         {"C2DVectorLine::MatrixCalculation", "coordinates", placed_twice, place_vector_line_error},
                         {"C2DEllipse::CalcFxEllipsAngle", "1 + 1/radius", parameter, parameter_angle_error},
                         {"C2DEllipse::MatrixCalculation", "radius and coordinates", placed_once, place_ellipse_error},
                         {"its arc's ends", "radius and coordinates", arc_end, place_arc_error},
                     });
}

}  // namespace orvil::accuracy
