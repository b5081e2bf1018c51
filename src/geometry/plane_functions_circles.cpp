#include <algorithm>

#include "geometry/plane_vector.h"
#include "orvil/geometry/plane_functions.h"

namespace orvil {
namespace {

constexpr double kCollinear = 1e-4;  // compared with a raw product, so three points close together are always refused

// The direction as atan2 gives it, raised by a turn when negative.
double plain_direction(PlaneVector v) {
    const double angle = std::atan2(v.y, v.x);
    return angle < 0.0 ? angle + kTwoPi : angle;
}

// The centre of the circle through 0, u and v, where `product` is the cross product of u and v.
PlaneVector circumcentre(PlaneVector u, PlaneVector v, double product) {
    return -left_of(dot(u, u) * v - dot(v, v) * u) / (2.0 * product);
}

}  // namespace
}  // namespace orvil

using orvil::PlaneVector;

int CA_INSLC(const C2DEllipse& circle, const C2DLine& line, C2DPoint& p1, C2DPoint& p2, int& count) {
    count = 0;
    const PlaneVector centre(circle.center);
    const PlaneVector start = PlaneVector(line.start) - centre;
    const PlaneVector span = PlaneVector(line.end) - PlaneVector(line.start);
    const double span_squared = orvil::dot(span, span);
    if (circle.axis.IsZero() || span_squared == 0.0) {
        return 1;
    }
    const double radius = circle.GetLongRadius();
    const double k = orvil::cross(span, start);
    const double t = k / span_squared;
    const double distance = std::fabs(t) * std::sqrt(span_squared);
    if (std::fabs(distance - radius) < orvil::kTolerance) {
        count = 1;
        orvil::assign(p1, centre + t * orvil::left_of(span));
    } else if (distance < radius) {
        count = 2;
        const PlaneVector foot = k * orvil::left_of(span);
        const double h = std::sqrt(std::max(0.0, radius * radius * span_squared - k * k));
        orvil::assign(p1, centre + (foot + h * span) / span_squared);
        orvil::assign(p2, centre + (foot - h * span) / span_squared);
    }
    return 0;
}

bool CA_ARC3P(const C2DPoint& p1, const C2DPoint& p2, const C2DPoint& p3, C2DPoint& centre, double& radius,
              double& start, double& end) {
    const PlaneVector first(p1);
    const PlaneVector u = PlaneVector(p2) - first;
    const PlaneVector v = PlaneVector(p3) - first;
    const double product = orvil::cross(u, v);
    if (!(std::fabs(product) >= orvil::kCollinear)) {
        return false;
    }
    const PlaneVector to_centre = orvil::circumcentre(u, v, product);
    const double to_centre_length = orvil::length(to_centre);
    if (!std::isfinite(to_centre_length)) {
        return false;
    }
    const double direction_of_first = orvil::plain_direction(PlaneVector() - to_centre);
    const double direction_of_third = orvil::plain_direction(v - to_centre);
    orvil::assign(centre, first + to_centre);
    radius = to_centre_length;
    start = product > 0.0 ? direction_of_first : direction_of_third;
    end = product > 0.0 ? direction_of_third : direction_of_first;
    return true;
}

bool CA_PCTAN(const C2DPoint& centre, double r, const C2DPoint& p, C2DPoint& t1, C2DPoint& t2, int& count) {
    const PlaneVector middle(centre);
    const PlaneVector span = PlaneVector(p) - middle;
    const double squared = orvil::dot(span, span);
    const double rest = squared - r * r;
    count = rest > 0.0 && std::isfinite(rest) ? 2 : 0;
    if (count == 0) {
        t1.SetData(0.0, 0.0);
        t2.SetData(0.0, 0.0);
        return true;
    }
    const PlaneVector along = r * span;
    const PlaneVector aside = std::sqrt(rest) * orvil::left_of(span);
    const double k = r / squared;
    orvil::assign(t1, middle + k * (along - aside));
    orvil::assign(t2, middle + k * (along + aside));
    return true;
}

bool GET_ONPC(const C2DPoint& centre, double r, double angleDeg, C2DPoint& out) {
    orvil::assign(out, PlaneVector(centre) + r * orvil::unit(DTOR(angleDeg)));
    return true;
}
