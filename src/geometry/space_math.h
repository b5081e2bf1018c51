// What the classes of space have in common.
#pragma once

#include <cmath>

#include "orvil/geometry/space_primitives.h"

namespace orvil {

// The square root of the sum of squares, without regard to overflow.
inline double length(double x, double y, double z) {
    return std::sqrt(x * x + y * y + z * z);
}

}  // namespace orvil
