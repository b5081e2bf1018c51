#include "accuracy.h"

#include <cmath>
#include <limits>

namespace orvil::accuracy {

double Random::between(double low, double high) {
    const double part = static_cast<double>(engine_() >> 11) * 0x1p-53;
    return low + part * (high - low);
}

double Random::magnitude(double low, double high) {
    const double sign = chance(0.5) ? 1.0 : -1.0;
    return sign * std::exp(between(std::log(low), std::log(high)));
}

// A quarter turn is taken away in three parts of 37 bits each, so that their multiples are exact.
RealTurn::RealTurn(double angle) {
    constexpr Real parts[] = {0x1.921fb5444p+0L, 0x1.68c234c4cp-39L, 0x1.98a2e0370p-77L};
    const auto quarters = static_cast<std::int64_t>(std::nearbyint(angle / static_cast<double>(kRealPi / 2.0L)));
    Real rest = angle;
    for (Real part : parts) {
        rest -= static_cast<Real>(quarters) * part;
    }
    const Real c = std::cos(rest);
    const Real s = std::sin(rest);
    const RealPoint turned[] = {{c, s}, {-s, c}, {-c, -s}, {s, -c}};
    const RealPoint& point = turned[quarters & 3];
    cosine = point.x;
    sine = point.y;
}

double error(Real found, Real truth, Real size) {
    const Real difference = std::fabs(found - truth);
    if (!std::isfinite(difference)) {
        return std::numeric_limits<double>::infinity();
    }
    return static_cast<double>(size > 0.0L ? difference / size : difference);
}

double error(RealPoint found, RealPoint truth, Real size) {
    return error(length({found.x - truth.x, found.y - truth.y}), 0.0L, size);
}

double angle_error(Real found, Real truth) {
    return error(std::remainder(found - truth, 2.0L * kRealPi), 0.0L, 0.0L);
}

Real length(RealPoint p) {
    return std::sqrt(p.x * p.x + p.y * p.y);
}

}  // namespace orvil::accuracy
