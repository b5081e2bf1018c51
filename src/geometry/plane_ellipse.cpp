// Ellipses and elliptic arcs.
#include <cmath>
#include <cstddef>

#include "geometry/plane_math.h"
#include "orvil/geometry/plane_primitives.h"

// Hosts rely on the layout. Every compiler of ours supports offsetof in classes with virtual functions.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
static_assert(sizeof(C2DEllipse) == 80 && offsetof(C2DEllipse, center) == 8 && offsetof(C2DEllipse, axis) == 32);
static_assert(offsetof(C2DEllipse, ratio) == 56 && offsetof(C2DEllipse, start) == 64);
static_assert(offsetof(C2DEllipse, end) == 72);

C2DEllipse::~C2DEllipse() = default;
C2DEllipse::C2DEllipse() = default;
C2DEllipse::C2DEllipse(const C2DEllipse& other) = default;
C2DEllipse::C2DEllipse(const C2DPoint& c, const C2DPoint& a, double r, double from, double to)
    : center(c), axis(a), ratio(r), start(from), end(to) {
}
C2DEllipse& C2DEllipse::operator=(const C2DEllipse& other) = default;

bool C2DEllipse::SetData(const C2DEllipse& other) {
    *this = other;
    return true;
}

bool C2DEllipse::SetData(const C2DPoint& c, const C2DPoint& a, double r, double from, double to) {
    return SetData(C2DEllipse(c, a, r, from, to));
}

double C2DEllipse::GetLongRadius() const {
    return orvil::length(axis.x, axis.y);
}

double C2DEllipse::GetShortRadius() const {
    return GetLongRadius() * ratio;
}

bool C2DEllipse::IsCircle() const {
    return ZERO(GetLongRadius() - GetShortRadius(), orvil::kTolerance);
}

bool C2DEllipse::IsEllipse() const {
    return !IsCircle();
}

bool C2DEllipse::Compare(const C2DEllipse& other) const {
    return orvil::coincide(center, other.center) && orvil::coincide(axis, other.axis) && ratio == other.ratio &&
           start == other.start && end == other.end;
}

bool C2DEllipse::operator==(const C2DEllipse& other) const {
    return Compare(other);
}

bool C2DEllipse::operator!=(const C2DEllipse& other) const {
    return !Compare(other);
}

bool C2DEllipse::AddCenterPoint(const C2DPoint& offset) {
    return center.AddPoint(offset);
}

bool C2DEllipse::Move(const C2DPoint& offset) {
    return center.AddPoint(offset);
}

bool C2DEllipse::SubCenterPoint(const C2DPoint& offset) {
    return center.SubPoint(offset);
}

bool C2DEllipse::Rotate(const C2DPoint& centre, double angle) {
    start += angle;
    end += angle;
    return center.Rotate(centre, angle);
}

bool C2DEllipse::Stretch(const C2DPoint& /*base*/, double /*sx*/, double /*sy*/) {
    return false;
}

bool C2DEllipse::CalcFxEllipsAngle(const C2DPoint& p, const C2DPoint& q, double r, double /*shortRadius*/,
                                   double rotation, double& angle) const {
    C2DPoint turned(p.x - q.x, p.y - q.y);
    turned.Rotate(C2DPoint(), -rotation);
    angle = orvil::parameter_angle(turned, r);
    return true;
}

CExtString C2DEllipse::GetDumpText() const {
    const CExtString c = center.GetDumpText();
    const CExtString v = axis.GetDumpText();
    CExtString text;
    text.Format("C:%s V:%s R:%lf AS:%lf(%lf) AE:%lf(%lf)", c.GetString(), v.GetString(), ratio, start, RTOD(start), end,
                RTOD(end));
    return text;
}

namespace orvil {

double parameter_angle(const C2DPoint& p, double radius) {
    const double squared = radius * radius - p.x * p.x;
    const double height = squared > 0.0 ? std::sqrt(squared) : 0.0;
    return direction(p.x, p.y < 0.0 ? -height : height);
}

}  // namespace orvil
