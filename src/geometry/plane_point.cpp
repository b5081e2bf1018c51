// Points of the plane.
#include <cmath>
#include <cstddef>

#include "geometry/plane_math.h"
#include "orvil/geometry/plane_primitives.h"
#include "orvil/geometry/plane_transforms.h"

// Hosts rely on the layout. Every compiler of ours supports offsetof in classes with virtual functions.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
static_assert(sizeof(C2DPoint) == 24 && offsetof(C2DPoint, x) == 8 && offsetof(C2DPoint, y) == 16);

C2DPoint::~C2DPoint() = default;
C2DPoint::C2DPoint() = default;
C2DPoint::C2DPoint(const C2DPoint& other) = default;
C2DPoint::C2DPoint(double px, double py) : x(px), y(py) {
}
C2DPoint& C2DPoint::operator=(const C2DPoint& other) = default;

bool C2DPoint::SetData(const C2DPoint& other) {
    return SetData(other.x, other.y);
}

bool C2DPoint::SetData(double px, double py) {
    x = px;
    y = py;
    return true;
}

bool C2DPoint::IsZero() const {
    return IsZero(orvil::kTolerance);
}

bool C2DPoint::IsZero(double tolerance) const {
    return ZERO(x, tolerance) && ZERO(y, tolerance);
}

bool C2DPoint::Compare(const C2DPoint& other) const {
    return orvil::coincide(*this, other);
}

bool C2DPoint::operator==(const C2DPoint& other) const {
    return Compare(other);
}

bool C2DPoint::operator!=(const C2DPoint& other) const {
    return !Compare(other);
}

bool C2DPoint::AddPoint(double dx, double dy) {
    return SetData(x + dx, y + dy);
}

bool C2DPoint::AddPoint(const C2DPoint& offset) {
    return AddPoint(offset.x, offset.y);
}

bool C2DPoint::Move(const C2DPoint& offset) {
    return AddPoint(offset);
}

C2DPoint& C2DPoint::operator+=(const C2DPoint& offset) {
    AddPoint(offset);
    return *this;
}

bool C2DPoint::SubPoint(double dx, double dy) {
    return SetData(x - dx, y - dy);
}

bool C2DPoint::SubPoint(const C2DPoint& offset) {
    return SubPoint(offset.x, offset.y);
}

C2DPoint& C2DPoint::operator-=(const C2DPoint& offset) {
    SubPoint(offset);
    return *this;
}

double C2DPoint::GetDistance(double px, double py) const {
    return orvil::length(x - px, y - py);
}

double C2DPoint::GetDistance(const C2DPoint& other) const {
    return GetDistance(other.x, other.y);
}

bool C2DPoint::Rotate(const C2DPoint& centre, double angle) {
    const orvil::Turn turn = orvil::turn_by(angle);
    const double dx = x - centre.x;
    const double dy = y - centre.y;
    return SetData(turn.cosine * dx - turn.sine * dy + centre.x, turn.sine * dx + turn.cosine * dy + centre.y);
}

bool C2DPoint::Stretch(const C2DPoint& base, double sx, double sy) {
    return SetData((x - base.x) * sx + base.x, (y - base.y) * sy + base.y);
}

bool C2DPoint::Mirror(const C2DPoint& a, const C2DPoint& b) {
    return orvil::reflect(*this, a, b, *this);
}

namespace {

// Reads the step's numbers before it writes any: the point may be one of the step's own.
inline bool place(C2DPoint& point, const C2DMatrixItem& step, orvil::Turn turn) {
    const double dx = (point.x - step.base.x) * step.scale.x;
    const double dy = (point.y - step.base.y) * step.scale.y;
    return point.SetData(turn.cosine * dx - turn.sine * dy + step.move.x,
                         turn.sine * dx + turn.cosine * dy + step.move.y);
}

[[gnu::noinline]] bool place_by_new_turn(C2DPoint& point, const C2DMatrixItem& step) {
    return place(point, step, orvil::new_turn(step.angle));
}

}  // namespace

// Drawings are placed point by point: what is needed for the first one alone stays out of the way of the others.
bool C2DPoint::MatrixCalculation(const C2DMatrixItem& step) {
    orvil::Turn turn{};
    return orvil::is_last_turn(step.angle, turn) ? place(*this, step, turn) : place_by_new_turn(*this, step);
}

CExtString C2DPoint::GetDumpText() const {
    CExtString text;
    text.Format("%.15lf,%.15lf", x, y);
    return text;
}

namespace orvil {

bool reflect(const C2DPoint& p, const C2DPoint& a, const C2DPoint& b, C2DPoint& out) {
    const double ux = b.x - a.x;
    const double uy = b.y - a.y;
    const double squared = ux * ux + uy * uy;
    if (squared < kTolerance) {
        return false;
    }
    // Twice the vector from p to the foot of its perpendicular, which runs along (-uy, ux).
    const double twice = 2.0 * (((p.x - a.x) * uy - (p.y - a.y) * ux) / squared);
    out.SetData(p.x - twice * uy, p.y + twice * ux);
    return true;
}

}  // namespace orvil
