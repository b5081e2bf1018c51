// Points and vector lines of space, edited and placed.
#include <cmath>

#include "accuracy.h"
#include "orvil/geometry/space_primitives.h"

namespace orvil::accuracy {

namespace {

struct RealPoint3 {
    Real x = 0.0L;
    Real y = 0.0L;
    Real z = 0.0L;
};

Real length(RealPoint3 p) {
    return std::sqrt(p.x * p.x + p.y * p.y + p.z * p.z);
}

RealPoint3 real(const C3DPoint& p) {
    return {p.x, p.y, p.z};
}

RealPoint3 operator+(RealPoint3 p, RealPoint3 q) {
    return {p.x + q.x, p.y + q.y, p.z + q.z};
}

RealPoint3 operator-(RealPoint3 p, RealPoint3 q) {
    return {p.x - q.x, p.y - q.y, p.z - q.z};
}

RealPoint3 scaled(RealPoint3 p, const C3DPoint& scale) {
    return {p.x * scale.x, p.y * scale.y, p.z * scale.z};
}

double error_of(RealPoint3 found, RealPoint3 truth, Real size) {
    return error(length(found - truth), 0.0L, size);
}

RealPoint3 about_z(RealPoint3 p, double angle) {
    const RealPoint turned = RealTurn(angle)({p.x, p.y});
    return {turned.x, turned.y, p.z};
}

RealPoint3 about_x(RealPoint3 p, double angle) {
    const RealPoint turned = RealTurn(angle)({p.y, p.z});
    return {p.x, turned.x, turned.y};
}

RealPoint3 about_y(RealPoint3 p, double angle) {
    const RealPoint turned = RealTurn(angle)({p.z, p.x});
    return {turned.y, p.y, turned.x};
}

// Huge: of 1e100; tiny: of 1e-6 near the origin; nearly degenerate: small parts far from the origin.
double place_of(Kind kind) {
    return kind == Kind::Huge ? 1e100 : kind == Kind::Tiny ? 1e-6 : kind == Kind::NearlyDegenerate ? 1e6 : 1e3;
}

C3DPoint any_point(Random& random, double size) {
    return C3DPoint(random.between(-size, size), random.between(-size, size), random.between(-size, size));
}

C3DPoint near(Random& random, const C3DPoint& point, Kind kind) {
    C3DPoint moved = any_point(random, kind == Kind::NearlyDegenerate ? 1e-2 : place_of(kind));
    moved.AddPoint(point);
    return moved;
}

double any_turn(Random& random, Kind kind) {
    return kind == Kind::Huge ? random.magnitude(1.0, 1e6) : random.between(-7.0, 7.0);
}

double distance_error(Random& random, Kind kind) {
    const C3DPoint a = any_point(random, place_of(kind));
    const C3DPoint b = near(random, a, kind);
    const Real truth = length(real(a) - real(b));
    return error(a.GetDistance(b), truth, truth);
}

double rotate_error(Random& random, Kind kind) {
    const C3DPoint centre = any_point(random, place_of(kind));
    const C3DPoint before = near(random, centre, kind);
    const double ax = any_turn(random, kind);
    const double ay = any_turn(random, kind);
    const double az = any_turn(random, kind);
    C3DPoint after = before;
    after.Rotate(centre, ax, ay, az);
    const RealPoint3 arm = real(before) - real(centre);
    const RealPoint3 truth = real(centre) + about_z(about_y(about_x(arm, ax), ay), az);
    return error_of(real(after), truth, length(arm) + length(real(centre)));
}

C3DMatrixItem any_step(Random& random, Kind kind) {
    C3DMatrixItem step;
    step.base = any_point(random, place_of(kind));
    step.move = any_point(random, place_of(kind));
    const double range = kind == Kind::NearlyDegenerate ? 1e4 : 10.0;
    step.scale.SetData(random.magnitude(1.0 / range, range), random.magnitude(1.0 / range, range),
                       random.magnitude(1.0 / range, range));
    step.angle = any_turn(random, kind);
    return step;
}

double place_point_error(Random& random, Kind kind) {
    const C3DMatrixItem step = any_step(random, kind);
    const C3DPoint before = near(random, step.base, kind);
    C3DPoint after = before;
    after.MatrixCalculation(step);
    const RealPoint3 arm = scaled(real(before) - real(step.base), step.scale);
    const RealPoint3 truth = about_z(arm, step.angle) + real(step.move);
    return error_of(real(after), truth, length(arm) + length(real(step.move)));
}

double place_vector_line_error(Random& random, Kind kind) {
    const C3DMatrixItem step = any_step(random, kind);
    const C3DVectorLine before(near(random, step.base, kind), near(random, step.base, kind));
    C3DVectorLine after = before;
    after.MatrixCalculation(step);
    const RealPoint3 fixed = real(step.base);
    const RealPoint3 base = scaled(real(before.base) - fixed - fixed, step.scale);
    const RealPoint3 vector = scaled(real(before.vector) - fixed, step.scale);
    const Real size = length(base) + length(vector) + length(fixed) + length(real(step.move));
    return std::fmax(error_of(real(after.base), about_z(base + fixed, step.angle) + real(step.move), size),
                     error_of(real(after.vector), about_z(vector + fixed, step.angle), size));
}

}  // namespace

void add_space_figures(Functions& functions) {
    // On Windows the runtime reduces angles by 66 bits of pi, which costs 1.4e-21 a radian.
    constexpr Bounds edited = {5e-16, 2e-15, 5e-16, 5e-16};
    constexpr Bounds placed_once = {6e-16, 2e-15, 6e-16, 6e-16};
    constexpr Bounds placed_twice = {8e-16, 2e-15, 8e-16, 8e-16};
    functions.insert(functions.end(),
                     {
                         {"C3DPoint::GetDistance", "distance", edited, distance_error},
                         {"C3DPoint::Rotate", "coordinates", edited, rotate_error},
                         {"C3DPoint::MatrixCalculation", "coordinates", placed_once, place_point_error},
                         {"C3DVectorLine::MatrixCalculation", "coordinates", placed_twice, place_vector_line_error},
                     });
}

}  // namespace orvil::accuracy
