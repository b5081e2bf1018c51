// Segments and vector lines of space.
#include <cstddef>

#include "geometry/plane_math.h"
#include "geometry/space_math.h"
#include "orvil/geometry/space_primitives.h"

// Hosts rely on the layout. Every compiler of ours supports offsetof in classes with virtual functions.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
static_assert(sizeof(C3DLine) == 72 && offsetof(C3DLine, start) == 8 && offsetof(C3DLine, end) == 40);
static_assert(sizeof(C3DVectorLine) == 72 && offsetof(C3DVectorLine, base) == 8);
static_assert(offsetof(C3DVectorLine, vector) == 40);

// --- segments --------------------------------------------------------------------------------------------------------

C3DLine::~C3DLine() = default;
C3DLine::C3DLine() = default;
C3DLine::C3DLine(const C3DLine& other) = default;
C3DLine::C3DLine(const C3DPoint& from, const C3DPoint& to) : start(from), end(to) {
}
C3DLine::C3DLine(double x1, double y1, double z1, double x2, double y2, double z2)
    : start(x1, y1, z1), end(x2, y2, z2) {
}
C3DLine& C3DLine::operator=(const C3DLine& other) = default;

bool C3DLine::SetData(const C3DLine& other) {
    return SetData(other.start, other.end);
}

bool C3DLine::SetData(const C3DPoint& from, const C3DPoint& to) {
    return SetData(from.x, from.y, from.z, to.x, to.y, to.z);
}

bool C3DLine::SetData(double x1, double y1, double z1, double x2, double y2, double z2) {
    return start.SetData(x1, y1, z1) && end.SetData(x2, y2, z2);
}

double C3DLine::GetLength() const {
    return end.GetDistance(start);
}

bool C3DLine::Compare(const C3DLine& other) const {
    return start.Compare(other.start) && end.Compare(other.end);
}

bool C3DLine::Move(const C3DPoint& offset) {
    C3DLine edited = *this;
    return edited.start.AddPoint(offset) && edited.end.AddPoint(offset) && SetData(edited);
}

bool C3DLine::Rotate(const C3DPoint& centre, double ax, double ay, double az) {
    C3DLine edited = *this;
    return edited.start.Rotate(centre, ax, ay, az) && edited.end.Rotate(centre, ax, ay, az) && SetData(edited);
}

bool C3DLine::Stretch(const C3DPoint& base, double sx, double sy, double sz) {
    C3DLine edited = *this;
    return edited.start.Stretch(base, sx, sy, sz) && edited.end.Stretch(base, sx, sy, sz) && SetData(edited);
}

bool C3DLine::MatrixCalculation(const C3DMatrixItem& step) {
    return start.MatrixCalculation(step) && end.MatrixCalculation(step);
}

CExtString C3DLine::GetDumpText() const {
    return orvil::dump_pair("SP", start, "EP", end);
}

// --- vector lines ----------------------------------------------------------------------------------------------------

C3DVectorLine::~C3DVectorLine() = default;
C3DVectorLine::C3DVectorLine() = default;
C3DVectorLine::C3DVectorLine(const C3DVectorLine& other) = default;
C3DVectorLine::C3DVectorLine(const C3DPoint& from, const C3DPoint& direction) : base(from), vector(direction) {
}
C3DVectorLine::C3DVectorLine(double bx, double by, double bz, double vx, double vy, double vz)
    : base(bx, by, bz), vector(vx, vy, vz) {
}
C3DVectorLine& C3DVectorLine::operator=(const C3DVectorLine& other) = default;

bool C3DVectorLine::SetData(const C3DVectorLine& other) {
    return SetData(other.base, other.vector);
}

bool C3DVectorLine::SetData(const C3DPoint& from, const C3DPoint& direction) {
    return SetData(from.x, from.y, from.z, direction.x, direction.y, direction.z);
}

bool C3DVectorLine::SetData(double bx, double by, double bz, double vx, double vy, double vz) {
    return base.SetData(bx, by, bz) && vector.SetData(vx, vy, vz);
}

double C3DVectorLine::GetLength() const {
    return orvil::length(vector.x, vector.y, vector.z);
}

bool C3DVectorLine::Compare(const C3DVectorLine& other) const {
    return base.Compare(other.base) && vector.Compare(other.vector);
}

bool C3DVectorLine::Move(const C3DPoint& offset) {
    return base.AddPoint(offset);
}

bool C3DVectorLine::Optimize() {
    const double factor = GetLength();
    return vector.SetData(vector.x * factor, vector.y * factor, vector.z * factor);
}

bool C3DVectorLine::Rotate(const C3DPoint& centre, double ax, double ay, double az) {
    C3DVectorLine edited = *this;
    return edited.base.Rotate(centre, ax, ay, az) && edited.vector.Rotate(centre, ax, ay, az) && SetData(edited);
}

bool C3DVectorLine::Stretch(const C3DPoint& base_point, double sx, double sy, double sz) {
    C3DVectorLine edited = *this;
    return edited.base.Stretch(base_point, sx, sy, sz) && edited.vector.Stretch(base_point, sx, sy, sz) &&
           SetData(edited);
}

bool C3DVectorLine::MatrixCalculation(const C3DMatrixItem& step) {
    base.SubPoint(step.base);
    Stretch(step.base, step.scale.x, step.scale.y, step.scale.z);
    Rotate(C3DPoint(), 0.0, 0.0, step.angle);
    return Move(step.move);
}

CExtString C3DVectorLine::GetDumpText() const {
    return orvil::dump_pair("BP", base, "VP", vector);
}
