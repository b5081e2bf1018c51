// Points of space.
#include <cmath>
#include <cstddef>

#include "geometry/plane_math.h"
#include "geometry/space_math.h"
#include "orvil/geometry/space_primitives.h"

// Hosts rely on the layout. Every compiler of ours supports offsetof in classes with virtual functions.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
static_assert(sizeof(C3DPoint) == 32 && offsetof(C3DPoint, x) == 8);
static_assert(offsetof(C3DPoint, y) == 16 && offsetof(C3DPoint, z) == 24);

C3DPoint::~C3DPoint() = default;
C3DPoint::C3DPoint() = default;
C3DPoint::C3DPoint(const C3DPoint& other) = default;
C3DPoint::C3DPoint(double px, double py, double pz) : x(px), y(py), z(pz) {
}
C3DPoint& C3DPoint::operator=(const C3DPoint& other) = default;

bool C3DPoint::SetData(const C3DPoint& other) {
    return SetData(other.x, other.y, other.z);
}

bool C3DPoint::SetData(double px, double py, double pz) {
    x = px;
    y = py;
    z = pz;
    return true;
}

bool C3DPoint::IsZero() const {
    return IsZero(orvil::kTolerance);
}

bool C3DPoint::IsZero(double tolerance) const {
    return ZERO(x, tolerance) && ZERO(y, tolerance) && ZERO(z, tolerance);
}

bool C3DPoint::Compare(const C3DPoint& other) const {
    return C3DPoint(x - other.x, y - other.y, z - other.z).IsZero();
}

bool C3DPoint::operator==(const C3DPoint& other) const {
    return Compare(other);
}

bool C3DPoint::operator!=(const C3DPoint& other) const {
    return !Compare(other);
}

double C3DPoint::GetDistance(double px, double py, double pz) const {
    return orvil::length(x - px, y - py, z - pz);
}

double C3DPoint::GetDistance(const C3DPoint& other) const {
    return GetDistance(other.x, other.y, other.z);
}

bool C3DPoint::AddPoint(double dx, double dy, double dz) {
    return SetData(x + dx, y + dy, z + dz);
}

bool C3DPoint::AddPoint(const C3DPoint& offset) {
    return AddPoint(offset.x, offset.y, offset.z);
}

bool C3DPoint::Move(const C3DPoint& offset) {
    return AddPoint(offset);
}

C3DPoint& C3DPoint::operator+=(const C3DPoint& offset) {
    AddPoint(offset);
    return *this;
}

bool C3DPoint::SubPoint(double dx, double dy, double dz) {
    return SetData(x - dx, y - dy, z - dz);
}

bool C3DPoint::SubPoint(const C3DPoint& offset) {
    return SubPoint(offset.x, offset.y, offset.z);
}

C3DPoint& C3DPoint::operator-=(const C3DPoint& offset) {
    SubPoint(offset);
    return *this;
}

bool C3DPoint::Select2D(int plane, double& a, double& b) const {
    const double coordinates[] = {x, y, z, x};
    if (plane < 1 || plane > 3) {
        return false;
    }
    a = coordinates[plane - 1];
    b = coordinates[plane];
    return true;
}

bool C3DPoint::Rotate(const C3DPoint& centre, double ax, double ay, double az) {
    const orvil::Turn about_x{std::cos(ax), std::sin(ax)};
    const orvil::Turn about_y{std::cos(ay), std::sin(ay)};
    const orvil::Turn about_z = orvil::turn_by(az);
    const double dx = x - centre.x;
    const double dy = y - centre.y;
    const double dz = z - centre.z;
    const double y1 = about_x.cosine * dy - about_x.sine * dz;
    const double z1 = about_x.sine * dy + about_x.cosine * dz;
    const double x2 = about_y.cosine * dx + about_y.sine * z1;
    const double z2 = about_y.cosine * z1 - about_y.sine * dx;
    const double x3 = about_z.cosine * x2 - about_z.sine * y1;
    const double y3 = about_z.sine * x2 + about_z.cosine * y1;
    return SetData(centre.x + x3, centre.y + y3, centre.z + z2);
}

bool C3DPoint::Stretch(const C3DPoint& base, double sx, double sy, double sz) {
    return SetData((x - base.x) * sx + base.x, (y - base.y) * sy + base.y, (z - base.z) * sz + base.z);
}

bool C3DPoint::MatrixCalculation(const C3DMatrixItem& step) {
    const orvil::Turn turn = orvil::turn_by(step.angle);
    const double dx = (x - step.base.x) * step.scale.x;
    const double dy = (y - step.base.y) * step.scale.y;
    const double dz = (z - step.base.z) * step.scale.z;
    return SetData(turn.cosine * dx - turn.sine * dy + step.move.x, turn.sine * dx + turn.cosine * dy + step.move.y,
                   dz + step.move.z);
}

CExtString C3DPoint::GetDumpText() const {
    CExtString text;
    text.Format("%lf,%lf,%lf", x, y, z);
    return text;
}
