// Segments and vector lines of the plane.
#include <cstddef>

#include "geometry/plane_math.h"
#include "orvil/geometry/plane_primitives.h"
#include "orvil/geometry/plane_transforms.h"

// Hosts rely on the layout. Every compiler of ours supports offsetof in classes with virtual functions.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
static_assert(sizeof(C2DLine) == 56 && offsetof(C2DLine, start) == 8 && offsetof(C2DLine, end) == 32);
static_assert(sizeof(C2DVectorLine) == 56 && offsetof(C2DVectorLine, base) == 8);
static_assert(offsetof(C2DVectorLine, vector) == 32);

// --- segments --------------------------------------------------------------------------------------------------------

C2DLine::~C2DLine() = default;
C2DLine::C2DLine() = default;
C2DLine::C2DLine(const C2DLine& other) = default;
C2DLine::C2DLine(const C2DPoint& from, const C2DPoint& to) : start(from), end(to) {
}
C2DLine::C2DLine(double x1, double y1, double x2, double y2) : start(x1, y1), end(x2, y2) {
}
C2DLine& C2DLine::operator=(const C2DLine& other) = default;

bool C2DLine::SetData(const C2DLine& other) {
    return SetData(other.start, other.end);
}

bool C2DLine::SetData(const C2DPoint& from, const C2DPoint& to) {
    return SetData(from.x, from.y, to.x, to.y);
}

bool C2DLine::SetData(double x1, double y1, double x2, double y2) {
    return start.SetData(x1, y1) && end.SetData(x2, y2);
}

double C2DLine::GetLength() const {
    return orvil::distance(start, end);
}

double C2DLine::GetAngle() const {
    return GET_ANGLE(end, start);
}

bool C2DLine::Compare(const C2DLine& other) const {
    return Compare(other.start, other.end);
}

bool C2DLine::Compare(const C2DPoint& from, const C2DPoint& to) const {
    return orvil::coincide(start, from) && orvil::coincide(end, to);
}

bool C2DLine::AddLine(const C2DLine& offsets) {
    return AddLine(offsets.start, offsets.end);
}

bool C2DLine::AddLine(const C2DPoint& ds, const C2DPoint& de) {
    return AddLine(ds.x, ds.y, de.x, de.y);
}

bool C2DLine::AddLine(double sx, double sy, double ex, double ey) {
    return start.AddPoint(sx, sy) && end.AddPoint(ex, ey);
}

C2DLine& C2DLine::operator+=(const C2DLine& offsets) {
    AddLine(offsets);
    return *this;
}

bool C2DLine::SubLine(const C2DLine& offsets) {
    return SubLine(offsets.start, offsets.end);
}

bool C2DLine::SubLine(const C2DPoint& ds, const C2DPoint& de) {
    return SubLine(ds.x, ds.y, de.x, de.y);
}

bool C2DLine::SubLine(double sx, double sy, double ex, double ey) {
    return start.SubPoint(sx, sy) && end.SubPoint(ex, ey);
}

C2DLine& C2DLine::operator-=(const C2DLine& offsets) {
    SubLine(offsets);
    return *this;
}

bool C2DLine::Move(const C2DPoint& offset) {
    return start.AddPoint(offset);
}

bool C2DLine::Rotate(const C2DPoint& centre, double angle) {
    return start.Rotate(centre, angle);
}

bool C2DLine::Stretch(const C2DPoint& base, double sx, double sy) {
    C2DLine edited = *this;
    return edited.start.Stretch(base, sx, sy) && edited.end.Stretch(base, sx, sy) && SetData(edited);
}

bool C2DLine::Mirror(const C2DPoint& a, const C2DPoint& b) {
    C2DPoint from;
    C2DPoint to;
    return orvil::reflect(start, a, b, from) && orvil::reflect(end, a, b, to) && SetData(from, to);
}

bool C2DLine::MatrixCalculation(const C2DMatrixItem& step) {
    return start.MatrixCalculation(step) && end.MatrixCalculation(step);
}

CExtString C2DLine::GetDumpText() const {
    return orvil::dump_pair("SP", start, "EP", end);
}

// --- vector lines ----------------------------------------------------------------------------------------------------

C2DVectorLine::~C2DVectorLine() = default;
C2DVectorLine::C2DVectorLine() = default;
C2DVectorLine::C2DVectorLine(const C2DVectorLine& other) = default;
C2DVectorLine::C2DVectorLine(const C2DPoint& from, const C2DPoint& direction) : base(from), vector(direction) {
}
C2DVectorLine::C2DVectorLine(double bx, double by, double vx, double vy) : base(bx, by), vector(vx, vy) {
}
C2DVectorLine& C2DVectorLine::operator=(const C2DVectorLine& other) = default;

bool C2DVectorLine::SetData(const C2DVectorLine& other) {
    return SetData(other.base, other.vector);
}

bool C2DVectorLine::SetData(const C2DPoint& from, const C2DPoint& direction) {
    return SetData(from.x, from.y, direction.x, direction.y);
}

bool C2DVectorLine::SetData(double bx, double by, double vx, double vy) {
    return base.SetData(bx, by) && vector.SetData(vx, vy);
}

double C2DVectorLine::GetLength() const {
    return orvil::length(vector.x, vector.y);
}

bool C2DVectorLine::Compare(const C2DVectorLine& other) const {
    return Compare(other.base, other.vector);
}

bool C2DVectorLine::Compare(const C2DPoint& from, const C2DPoint& direction) const {
    return orvil::coincide(base, from) && orvil::coincide(vector, direction);
}

bool C2DVectorLine::Move(const C2DPoint& offset) {
    return base.AddPoint(offset);
}

bool C2DVectorLine::Optimize() {
    const double factor = GetLength();
    return vector.SetData(vector.x * factor, vector.y * factor);
}

bool C2DVectorLine::Rotate(const C2DPoint& centre, double angle) {
    C2DVectorLine edited = *this;
    return edited.base.Rotate(centre, angle) && edited.vector.Rotate(centre, angle) && SetData(edited);
}

bool C2DVectorLine::Stretch(const C2DPoint& base_point, double sx, double sy) {
    C2DVectorLine edited = *this;
    return edited.base.Stretch(base_point, sx, sy) && edited.vector.Stretch(base_point, sx, sy) && SetData(edited);
}

bool C2DVectorLine::MatrixCalculation(const C2DMatrixItem& step) {
    base.SubPoint(step.base);
    Stretch(step.base, step.scale.x, step.scale.y);
    Rotate(C2DPoint(), step.angle);
    return Move(step.move);
}

CExtString C2DVectorLine::GetDumpText() const {
    return orvil::dump_pair("BP", base, "VP", vector);
}
