// The axes of an ellipse of which two conjugate semi-diameters are known.
#pragma once

#include "geometry/plane_vector.h"

namespace orvil {

// The semi-diameters u and v as its centre sees them: the ellipse is u cos t + v sin t.
struct ConjugateDiameters {
    PlaneVector u;
    PlaneVector v;
};

struct EllipseAxes {
    double longer;
    double shorter;
    PlaneVector major;  // the major semi-axis, in one of its two directions; that of a circle points along x
    double phase;       // the t of the major axis; a circle has none

    // Within the tolerance, whatever the size.
    bool is_circle() const { return longer - shorter < kTolerance; }
};

// False when a semi-axis is shorter than 1e-6, or not finite.
bool find_axes(const ConjugateDiameters& diameters, EllipseAxes& axes);

}  // namespace orvil
