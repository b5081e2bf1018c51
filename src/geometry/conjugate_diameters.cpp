#include "geometry/conjugate_diameters.h"

namespace orvil {

namespace {

constexpr double kLeastRadius = 1e-6;

}  // namespace

// |u cos t + v sin t|^2 is (u.u + v.v)/2 + (u.u - v.v)/2 cos 2t + u.v sin 2t, which is extreme at
// tan 2t = 2 u.v / (u.u - v.v). The product of the semi-axes is |u x v|: nothing cancels.
bool find_axes(const ConjugateDiameters& diameters, EllipseAxes& axes) {
    const auto& [u, v] = diameters;
    const double along = dot(u, u) - dot(v, v);
    const double across = 2.0 * dot(u, v);
    const double longer = std::sqrt((dot(u, u) + dot(v, v) + length(along, across)) / 2.0);
    const double shorter = std::fabs(cross(u, v)) / longer;
    if (!(shorter >= kLeastRadius)) {
        return false;  // also when the longer one is infinite or NaN, which makes this one 0 or NaN
    }
    axes = {longer, shorter, {longer, 0.0}, std::atan2(across, along) / 2.0};
    if (!axes.is_circle()) {
        const PlaneVector extreme = unit(axes.phase);
        axes.major = extreme.x * u + extreme.y * v;
    }
    return true;
}

}  // namespace orvil
