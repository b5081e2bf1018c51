#include "geometry/plane_vector.h"
#include "orvil/geometry/plane_functions.h"

namespace orvil {
namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr double kWholeTurn = 360.0;
constexpr double kArcDegrees = 1e-5;
constexpr double kEllipseTolerance = 1e-7;

// The direction in degrees, in (-180, 180]; 0 for no direction, as atan2 has it.
double signed_degrees(double dx, double dy) {
    double degrees = std::atan2(dy, dx) * kDegreesPerRadian;
    degrees = degrees < 0.0 ? degrees + kWholeTurn : degrees;
    return degrees > kWholeTurn / 2.0 ? degrees - kWholeTurn : degrees;
}

// Reduces two degrees by a period of 2 pi, as if they were radians, and then lays the end up to a turn behind the
// start.
void lay_in_order(double& start, double& end) {
    start = reduced(start);
    end = reduced(end);
    if (std::fabs(end - start) < kEllipseTolerance) {
        end = start + kWholeTurn;
    } else if (start > end) {
        end += kWholeTurn;
    }
    if (end > kWholeTurn) {
        start -= kWholeTurn;
        end -= kWholeTurn;
    }
}

}  // namespace
}  // namespace orvil

int ChkOnArc(const C2DPoint& centre, double r, double startDeg, double endDeg, const C2DPoint& p) {
    const double dx = p.x - centre.x;
    const double dy = p.y - centre.y;
    if (!(std::fabs(std::hypot(dx, dy) - r) < orvil::kTolerance)) {
        return 1;
    }
    const double low = startDeg - orvil::kArcDegrees;
    const double high = endDeg + orvil::kArcDegrees;
    const auto is_within = [&](double degrees) { return low < degrees && degrees < high; };
    const double degrees = orvil::signed_degrees(dx, dy);
    return is_within(degrees) || is_within(degrees - orvil::kWholeTurn) || is_within(degrees + orvil::kWholeTurn) ? 0
                                                                                                                  : 1;
}

int ChkOnEllipse(const C2DPoint* centre, double rotationDeg, double start, double end, const C2DPoint* p) {
    orvil::lay_in_order(start, end);
    orvil::lay_in_order(start, end);
    // Two arc angles that are finite differ here by nearly a turn or by the tolerance, so every point is on the arc.
    if (std::fabs(end - start) >= orvil::kEllipseTolerance) {
        return 0;
    }
    const double radians = orvil::direction(p->x - centre->x, p->y - centre->y, orvil::kEllipseTolerance);
    end += orvil::kTolerance;
    start -= orvil::kTolerance;
    double degrees = orvil::reduced(RTOD(radians) - rotationDeg);
    degrees = degrees > end ? degrees - orvil::kWholeTurn : degrees;
    degrees = degrees < start ? degrees + orvil::kWholeTurn : degrees;
    return degrees > end ? 1 : 0;
}
