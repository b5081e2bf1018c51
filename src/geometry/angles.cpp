// Normalisers of single angles and of the two angles of an arc.
#include <cmath>

#include "geometry/plane_math.h"
#include "orvil/geometry/scalars.h"

namespace {

using orvil::kReductionBound;
using orvil::kTolerance;
using orvil::kTwoPi;

// Stepping over so many periods takes about a millisecond. Far beyond, a step would no longer change the angle.
constexpr double kMostSteps = 1e6;

// Brings an angle of very many periods near 0, keeping its sign. What is left takes few steps, or none for an infinite
// or NaN angle, which stays. An exact multiple becomes one period when positive and 0 when negative, as by steps.
double shorten(double angle, double period) {
    if (!(std::fabs(angle) > kMostSteps * period) || std::isinf(angle)) {
        return angle;
    }
    const double rest = std::fmod(angle, period);
    return rest != 0.0 ? rest : angle > 0.0 ? period : 0.0;
}

// Into [0, period], both ends included.
void normalise(double& angle, double period) {
    if (!std::isfinite(angle)) {
        return;
    }
    angle = shorten(angle, period);
    while (angle < 0.0) {
        angle += period;
    }
    while (angle > period) {
        angle -= period;
    }
}

struct WholeTurn {
    double period;
    double threshold;  // a sweep above it is a whole turn
};

// A sweep that is as good as a whole turn becomes one, from 0.
bool complete(double& start, double& end, const WholeTurn& turn) {
    if (!(std::fabs(end - start) > turn.threshold)) {
        return false;
    }
    start = 0.0;
    end = turn.period;
    return true;
}

int standardise(double& start, double& end, const WholeTurn& turn) {
    if (complete(start, end, turn)) {
        return 0;
    }
    normalise(start, turn.period);
    normalise(end, turn.period);
    if (start > end) {
        end += turn.period;
    }
    if (end > turn.period) {
        start -= turn.period;
        end -= turn.period;
    }
    complete(start, end, turn);
    return 0;
}

}  // namespace

int CA_ANGLE(double& degrees) {
    normalise(degrees, 360.0);
    return 0;
}

int CA_ANGLE_RAD(double& radians) {
    normalise(radians, kTwoPi);
    return 0;
}

int CA_ARCAN(double& start, double& end) {
    return standardise(start, end, {360.0, 359.999});
}

int CA_ARCAN_RAD(double& start, double& end) {
    return standardise(start, end, {kTwoPi, 6.283184307179586});
}

void ANG_CVT_STD(double& angle) {
    if (!std::isfinite(angle)) {
        return;
    }
    angle = shorten(angle, kTwoPi);
    while (angle > kReductionBound) {
        angle -= kTwoPi;
    }
    while (angle < -kReductionBound) {
        angle += kTwoPi;
    }
}

void ANGSTDDEG(double& angle) {
    ANG_CVT_STD(angle);
    if (angle < 0.0) {
        angle += kTwoPi;
    }
}

namespace {

// Lowers both angles by a turn when the end lies beyond the first one.
void lower(double& start, double& end) {
    if (end > kTwoPi) {
        start -= kTwoPi;
        end -= kTwoPi;
    }
}

bool agree(double start, double end) {
    return std::fabs(end - start) < kTolerance;
}

}  // namespace

void A2D_STDSEDEG(double& start, double& end) {
    ANGSTDDEG(start);
    ANGSTDDEG(end);
    if (agree(start, end)) {
        end = start + kTwoPi;
    } else if (start > end) {
        end += kTwoPi;
    }
    lower(start, end);
}

int A2D_CHKDEGR(double start, double end, double angle) {
    ANGSTDDEG(angle);
    ANGSTDDEG(start);
    ANGSTDDEG(end);
    if (agree(start, end) || start > end) {
        end += kTwoPi;
    }
    lower(start, end);
    end += kTolerance;
    start -= kTolerance;
    if (angle > end) {
        angle -= kTwoPi;
    }
    if (start > angle) {
        angle += kTwoPi;
    }
    return angle > end ? 1 : 0;
}

int A2D_PIN_CHK(const double centre[2], double rotation, const double angles[2], const double point[2]) {
    double start = angles[0];
    double end = angles[1];
    A2D_STDSEDEG(start, end);
    const double polar = GET_ANGLE(point[0], point[1], centre[0], centre[1]);
    return A2D_CHKDEGR(start, end, polar - rotation);
}
