// What a curve holds: its points, knots and segments, and the edits that need no evaluation.
#include "orvil/geometry/nurbs.h"

#include <cstddef>

#include "geometry/nurbs_limits.h"

namespace {

// Hosts rely on the layout: the virtual table's pointer, then the fields.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
static_assert(sizeof(CNurbsCtrlPoint) == 48 && offsetof(CNurbsCtrlPoint, point) == 8 &&
              offsetof(CNurbsCtrlPoint, weight) == 40);
static_assert(sizeof(CNurbsFitPoint) == 40 && offsetof(CNurbsFitPoint, point) == 8);
static_assert(offsetof(TCalcNurbsWorkBuffer, matrix) == 0 && offsetof(TCalcNurbsWorkBuffer, rhs) == 8 &&
              offsetof(TCalcNurbsWorkBuffer, index) == 16 && offsetof(TCalcNurbsWorkBuffer, scale) == 24 &&
              offsetof(TCalcNurbsWorkBuffer, solution) == 32 && sizeof(TCalcNurbsWorkBuffer) == 40);
static_assert(sizeof(EKnotVectorForm) == sizeof(int));

struct Layout : CCalcNurbs {
    static constexpr bool is_as_promised() {
        return sizeof(CCalcNurbs) == 112 && offsetof(Layout, dimension_) == 8 && offsetof(Layout, knots_) == 16 &&
               offsetof(Layout, ctrl_points_) == 40 && offsetof(Layout, fit_points_) == 64 &&
               offsetof(Layout, lines_) == 88;
    }
};
#pragma GCC diagnostic pop
static_assert(Layout::is_as_promised());

// Joins the points of an array in their order; an empty slot joins nothing.
template <typename Point>
bool join_points(const CExtArray<Point>& points, CExtArray<C3DLine>& lines) {
    lines.RemoveAll();
    for (int i = 1; i < points.GetSize(); ++i) {
        const Point* from = points.GetAt(i - 1);
        const Point* to = points.GetAt(i);
        if (from != nullptr && to != nullptr && !lines.Add(C3DLine(from->point, to->point))) {
            lines.RemoveAll();
            return false;
        }
    }
    return true;
}

// Whether there are three points or more, and none within `tolerance` of the one before.
template <typename Point>
bool can_be_fitted(const CExtArray<Point>& points, double tolerance) {
    if (points.GetSize() < 3) {
        return false;
    }
    for (int i = 1; i < points.GetSize(); ++i) {
        const Point* from = points.GetAt(i - 1);
        const Point* to = points.GetAt(i);
        if (from == nullptr || to == nullptr || from->point.GetDistance(to->point) <= tolerance) {
            return false;
        }
    }
    return true;
}

template <typename Point, typename Edit>
void edit_points(CExtArray<Point>& points, Edit edit) {
    for (int i = 0; i < points.GetSize(); ++i) {
        if (Point* point = points.GetAt(i)) {
            edit(point->point);
        }
    }
}

}  // namespace

CNurbsCtrlPoint::CNurbsCtrlPoint() : weight(1.0) {
}
CNurbsCtrlPoint::CNurbsCtrlPoint(const CNurbsCtrlPoint& source) = default;
CNurbsCtrlPoint& CNurbsCtrlPoint::operator=(const CNurbsCtrlPoint& source) = default;
CNurbsCtrlPoint::~CNurbsCtrlPoint() = default;

CNurbsCtrlPoint* CNurbsCtrlPoint::GetCopyInstance() const {
    return new (std::nothrow) CNurbsCtrlPoint(*this);
}

bool CNurbsCtrlPoint::CopyData(const CNurbsCtrlPoint& source) {
    *this = source;
    return true;
}

CNurbsFitPoint::CNurbsFitPoint() = default;
CNurbsFitPoint::CNurbsFitPoint(const CNurbsFitPoint& source) = default;
CNurbsFitPoint& CNurbsFitPoint::operator=(const CNurbsFitPoint& source) = default;
CNurbsFitPoint::~CNurbsFitPoint() = default;

CNurbsFitPoint* CNurbsFitPoint::GetCopyInstance() const {
    return new (std::nothrow) CNurbsFitPoint(*this);
}

bool CNurbsFitPoint::CopyData(const CNurbsFitPoint& source) {
    *this = source;
    return true;
}

CCalcNurbs::CCalcNurbs() : dimension_(orvil::detail::kLowestDegree) {
}

CCalcNurbs::CCalcNurbs(const CCalcNurbs& source) : CCalcNurbs() {
    CopyData(source);
}

CCalcNurbs& CCalcNurbs::operator=(const CCalcNurbs& source) {
    CopyData(source);
    return *this;
}

CCalcNurbs::~CCalcNurbs() = default;

bool CCalcNurbs::CopyData(const CCalcNurbs& source) {
    if (this == &source) {
        return true;
    }
    CExtArray<double> knots;
    CExtArray<CNurbsCtrlPoint> ctrl_points;
    CExtArray<CNurbsFitPoint> fit_points;
    CExtArray<C3DLine> lines;
    if (!knots.CopyData(source.knots_) || !ctrl_points.CopyData(source.ctrl_points_) ||
        !fit_points.CopyData(source.fit_points_) || !lines.CopyData(source.lines_)) {
        return false;
    }
    dimension_ = source.dimension_;
    knots_.Swap(knots);
    ctrl_points_.Swap(ctrl_points);
    fit_points_.Swap(fit_points);
    lines_.Swap(lines);
    return true;
}

bool CCalcNurbs::SetDimension(int d) {
    if (d < orvil::detail::kLowestDegree || d > orvil::detail::kHighestDegree) {
        return false;
    }
    dimension_ = d;
    return true;
}

int CCalcNurbs::GetKnotSize() const {
    return knots_.GetSize();
}

double CCalcNurbs::GetKnot(int i) const {
    const double* knot = knots_.GetAt(i);
    return knot == nullptr ? 0.0 : *knot;
}

bool CCalcNurbs::AppendKnot(double value) {
    return knots_.Add(value);
}

bool CCalcNurbs::ClearKnot() {
    return knots_.RemoveAll();
}

bool CCalcNurbs::AppendCtrl(const CNurbsCtrlPoint& value) {
    return ctrl_points_.Add(value);
}

bool CCalcNurbs::ClearCtrl() {
    return ctrl_points_.RemoveAll();
}

int CCalcNurbs::GetFitSize() const {
    return fit_points_.GetSize();
}

CNurbsFitPoint* CCalcNurbs::GetFit(int i) const {
    return fit_points_.GetAt(i);
}

bool CCalcNurbs::AppendFit(const CNurbsFitPoint& value) {
    return fit_points_.Add(value);
}

bool CCalcNurbs::ClearFit() {
    return fit_points_.RemoveAll();
}

int CCalcNurbs::GetLineSize() const {
    return lines_.GetSize();
}

C3DLine* CCalcNurbs::GetLine(int i) const {
    return lines_.GetAt(i);
}

bool CCalcNurbs::AppendLine(const C3DLine& value) {
    return lines_.Add(value);
}

bool CCalcNurbs::ClearLine() {
    return lines_.RemoveAll();
}

// The control points go first here, the fit points in LinearComplement().
bool CCalcNurbs::CanNurbsize(double tolerance) const {
    return ctrl_points_.GetSize() > 0 ? ctrlCanNurbsize(tolerance) : fitCanNurbsize(tolerance);
}

bool CCalcNurbs::LinearComplement() {
    return fit_points_.GetSize() > 0 ? fitLinearComplement() : ctrlLinearComplement();
}

bool CCalcNurbs::ctrlCanNurbsize(double tolerance) const {
    return can_be_fitted(ctrl_points_, tolerance);
}

bool CCalcNurbs::fitCanNurbsize(double tolerance) const {
    return can_be_fitted(fit_points_, tolerance);
}

bool CCalcNurbs::ctrlLinearComplement() {
    return join_points(ctrl_points_, lines_);
}

bool CCalcNurbs::fitLinearComplement() {
    return join_points(fit_points_, lines_);
}

bool CCalcNurbs::Move(double dx, double dy) {
    const auto move = [dx, dy](C3DPoint& point) { point.AddPoint(dx, dy, 0.0); };
    edit_points(fit_points_, move);
    edit_points(ctrl_points_, move);
    return true;
}

// The centre may be one of the curve's own points, which then stays where it is.
bool CCalcNurbs::Rotate(const C3DPoint& centre, double angle) {
    const auto rotate = [&centre, angle](C3DPoint& point) { point.Rotate(centre, 0.0, 0.0, angle); };
    edit_points(fit_points_, rotate);
    edit_points(ctrl_points_, rotate);
    return ClearLine();
}
