#include <algorithm>

#include "geometry/conjugate_diameters.h"
#include "geometry/ellipse_frame.h"
#include "orvil/geometry/plane_functions.h"

namespace orvil {
namespace {

// Where the tangent of an ellipse runs in the direction t, in the ellipse's frame; the other point is its opposite.
PlaneVector tangent_point(double a, double b, double t) {
    const auto is_near = [&](double other) { return std::fabs(t - other) < kTolerance; };
    if (is_near(0.0) || is_near(kPi)) {
        return {0.0, b};
    }
    if (is_near(kHalfPi) || is_near(kThreeHalfPi)) {
        return {a, 0.0};
    }
    const double m = std::tan(t);
    const double d = length(a * m, b);
    return d == 0.0 ? PlaneVector() : PlaneVector(-a * (a * m / d), b * (b / d));
}

// The ends of an elliptic arc, and the rule by which one of them stands in for a tangent point outside of it.
struct ArcEnds {
    PlaneVector start;
    PlaneVector end;

    PlaneVector further_along(PlaneVector normal) const { return dot(normal, start) >= dot(normal, end) ? start : end; }
};

// The eccentric angle of a point in the frame of an ellipse.
double parameter_of(const EllipseFrame& frame, PlaneVector point) {
    return std::atan2(point.y * frame.a, point.x * frame.b);
}

}  // namespace
}  // namespace orvil

using orvil::EllipseFrame;
using orvil::PlaneVector;

bool CAL_ELPPN(const C2DPoint& centre, const C2DPoint& axis, double ratio, double direction, C2DPoint& p1,
               C2DPoint& p2) {
    const EllipseFrame frame(centre, axis, ratio);
    double t = direction - frame.axis;
    CA_ANGLE_RAD(t);
    const PlaneVector point = orvil::tangent_point(frame.a, frame.b, t);
    orvil::assign(p1, frame.out_of(point));
    orvil::assign(p2, frame.out_of(-point));
    return true;
}

bool CAL_ELPRR(const C2DPoint& centre, const C2DPoint& axis, double ratio, const C2DPoint& q1, const C2DPoint& q2,
               C2DPoint& out1, C2DPoint& out2) {
    C2DPoint first;
    C2DPoint second;
    int count = 0;
    const C2DPoint above(centre.x, centre.y + 100.0);
    if (!CAL_INSLE(centre, above, centre, axis, ratio, first, second, count) || count == 0) {
        return false;
    }
    const double difference = GET_ANGLE(q1, centre) - GET_ANGLE(first, centre);
    const C2DPoint chosen = std::fabs(difference) < orvil::kHalfPi ? q1 : q2;
    out1 = first;
    out2 = chosen;
    return true;
}

bool CAL_ELPCP(const C2DPoint& centre, const C2DPoint& axis, double ratio, double t, C2DPoint& out) {
    const EllipseFrame frame(centre, axis, ratio);
    const PlaneVector on_circle = frame.a * orvil::unit(t);
    const double x = on_circle.x;
    orvil::EllipseMeetings meetings;
    if (!orvil::meet_in_frame(frame.a, frame.b, {x, 0.0}, {x, frame.a}, meetings) || meetings.count == 0) {
        return false;
    }
    const bool is_second = meetings.count == 2 && on_circle.y < 0.0;
    orvil::assign(out, frame.out_of(meetings.points[is_second ? 1 : 0]));
    return true;
}

bool CAL_ELPDT(const C2DPoint& p1, const C2DPoint& p2, const C2DPoint& centre, double& longRadius, double& shortRadius,
               double& axisAngle) {
    const PlaneVector from(centre);
    orvil::EllipseAxes axes{};
    if (!orvil::find_axes({PlaneVector(p1) - from, PlaneVector(p2) - from}, axes)) {
        return false;
    }
    longRadius = axes.longer;
    shortRadius = axes.shorter;
    // That of a circle is laid along x, so that its angles count from the direction 0.
    axisAngle = orvil::direction(axes.major.x, axes.major.y, 1e-15 * axes.longer);
    return true;
}

// NOLINTNEXTLINE(readability-function-size): nine parameters, as hosts call it.
bool CAL_ANGPT(const C2DPoint& centre, double a, double b, double rotation, double start, double end, double direction,
               C2DPoint& p1, C2DPoint& p2) {
    const EllipseFrame frame(PlaneVector(centre), a, b, rotation);
    const PlaneVector tangent = orvil::unit(direction - rotation);
    const PlaneVector normal = orvil::left_of(tangent);
    const orvil::ArcEnds ends{frame.point_at(start), frame.point_at(end)};
    A2D_STDSEDEG(start, end);
    const double t = std::atan2(b * normal.y, a * normal.x);
    const bool has_first = A2D_CHKDEGR(start, end, t) == 0;
    const bool has_second = A2D_CHKDEGR(start, end, t + orvil::kPi) == 0;
    orvil::assign(p1, frame.out_of(has_first ? frame.point_at(t) : ends.further_along(normal)));
    orvil::assign(p2, frame.out_of(has_second ? -frame.point_at(t) : ends.further_along(-normal)));
    return true;
}

bool CAL_ELAMN(const C2DPoint& centre, const C2DPoint& axis, double ratio, double start, double end, double direction,
               C2DPoint& p1, C2DPoint& p2) {
    const EllipseFrame frame(centre, axis, ratio);
    C2DPoint tangents[2];
    C2DPoint from;
    C2DPoint to;
    CAL_ELPPN(centre, axis, ratio, direction, tangents[0], tangents[1]);
    if (!CAL_ELPCP(centre, axis, ratio, start, from) || !CAL_ELPCP(centre, axis, ratio, end, to)) {
        return false;
    }
    const orvil::ArcEnds ends{PlaneVector(from) - frame.centre, PlaneVector(to) - frame.centre};
    PlaneVector normal = orvil::left_of(orvil::unit(direction));
    if (orvil::dot(normal, PlaneVector(tangents[0]) - frame.centre) < 0.0) {
        normal = -normal;
    }
    A2D_STDSEDEG(start, end);
    const auto is_on_arc = [&](const C2DPoint& point) {
        return A2D_CHKDEGR(start, end, orvil::parameter_of(frame, frame.into(PlaneVector(point)))) == 0;
    };
    const PlaneVector middle = frame.centre;
    orvil::assign(p1, is_on_arc(tangents[0]) ? PlaneVector(tangents[0]) : middle + ends.further_along(normal));
    orvil::assign(p2, is_on_arc(tangents[1]) ? PlaneVector(tangents[1]) : middle + ends.further_along(-normal));
    return true;
}

bool CA_ELAMN2(const C2DPoint& centre, double longDiameter, double shortDiameter, double rotation, double start,
               double end, C2DPoint& minCorner, C2DPoint& maxCorner) {
    if (std::fabs(start - end) < orvil::kTolerance) {
        return false;
    }
    C2DPoint p[4];
    const double a = longDiameter / 2.0;
    const double b = shortDiameter / 2.0;
    const bool has_x = CAL_ANGPT(centre, a, b, rotation, start, end, orvil::kHalfPi, p[0], p[1]);
    const bool has_y = CAL_ANGPT(centre, a, b, rotation, start, end, 0.0, p[2], p[3]);
    const auto [left, right] = std::minmax({p[0].x, p[1].x, p[2].x, p[3].x});
    const auto [bottom, top] = std::minmax({p[0].y, p[1].y, p[2].y, p[3].y});
    minCorner.SetData(left, bottom);
    maxCorner.SetData(right, top);
    return has_x && has_y;
}
