// Conversions, lengths, directions and normalised angles.
#include <cmath>

#include "accuracy.h"
#include "orvil/geometry/scalars.h"

namespace orvil::accuracy {

namespace {

constexpr double kTwoPi = 6.283185307179586;

double any_value(Random& random, Kind kind) {
    switch (kind) {
        case Kind::Huge:
            return random.magnitude(1e10, 1e150);
        case Kind::Tiny:
            return random.magnitude(1e-140, 1e-10);
        default:
            return random.between(-1e4, 1e4);
    }
}

double rtod_error(Random& random, Kind kind) {
    const double radians = any_value(random, kind);
    const Real truth = radians * 180.0L / kRealPi;
    return error(RTOD(radians), truth, std::fabs(truth));
}

double dtor_error(Random& random, Kind kind) {
    const double degrees = any_value(random, kind);
    const Real truth = degrees * kRealPi / 180.0L;
    return error(DTOR(degrees), truth, std::fabs(truth));
}

double hypot_error(Random& random, Kind kind) {
    const double a = any_value(random, kind);
    const double b = kind == Kind::NearlyDegenerate ? a * random.magnitude(1e-10, 1e-3) : any_value(random, kind);
    const Real truth = length({a, b});
    return error(HYPOT(a, b), truth, truth);
}

// Huge: points far from the origin. Tiny: vectors of the size of the tolerance. Nearly degenerate: near the axes.
double get_angle_error(Random& random, Kind kind) {
    double x1 = random.between(-1e3, 1e3);
    double y1 = random.between(-1e3, 1e3);
    double x2 = random.between(-1e3, 1e3);
    double y2 = random.between(-1e3, 1e3);
    if (kind == Kind::Huge) {
        x1 = random.magnitude(1e3, 1e15);
        y1 = random.magnitude(1e3, 1e15);
    } else if (kind == Kind::Tiny) {
        x1 = x2 + random.magnitude(1e-8, 1e-5);
        y1 = y2 + random.magnitude(1e-8, 1e-5);
    } else if (kind == Kind::NearlyDegenerate) {
        (random.chance(0.5) ? x1 : y1) = random.magnitude(1e-8, 1e-4);
        x2 = y2 = 0.0;
    }
    const Real dx = static_cast<Real>(x1) - x2;
    const Real dy = static_cast<Real>(y1) - y2;
    if (std::fabs(dx) < 1.0001e-8L || std::fabs(dy) < 1.0001e-8L) {
        return kNoCase;  // the tolerance makes it the direction of an axis
    }
    const Real angle = std::atan2(dy, dx);
    const Real truth = angle < 0.0L ? angle + 2.0L * kRealPi : angle;
    return error(GET_ANGLE(x1, y1, x2, y2), truth, truth);
}

// Up to 16 turns; huge: up to a million, mostly up to ten thousand, or more than a million; tiny: far below one; nearly
// degenerate: almost whole turns.
double many_turns(Random& random, Kind kind, double turn) {
    switch (kind) {
        case Kind::Huge:
            if (random.chance(0.5)) {
                return turn * random.magnitude(2e6, 1e15);
            }
            return turn * random.magnitude(1.0, random.chance(1e-4) ? 1e6 : 1e4);
        case Kind::Tiny:
            return random.magnitude(1e-18, 1e-3);
        case Kind::NearlyDegenerate:
            return std::round(random.between(-16.0, 16.0)) * turn + random.magnitude(1e-12, 1e-7);
        default:
            return random.between(-16.0, 16.0) * turn;
    }
}

// Turns are whole multiples of the double that stands for one; the error is relative to the angle given, or to a turn
// where that is more.
double reduction_error(double before, double after, double turn) {
    const Real difference = std::remainder(static_cast<Real>(after) - std::fmod(static_cast<Real>(before), turn), turn);
    return error(difference, 0.0L, std::fmax(std::fabs(before), turn));
}

double ca_angle_error(Random& random, Kind kind) {
    const double before = many_turns(random, kind, 360.0);
    double angle = before;
    CA_ANGLE(angle);
    return reduction_error(before, angle, 360.0);
}

double ca_angle_rad_error(Random& random, Kind kind) {
    const double before = many_turns(random, kind, kTwoPi);
    double angle = before;
    CA_ANGLE_RAD(angle);
    return reduction_error(before, angle, kTwoPi);
}

double ang_cvt_std_error(Random& random, Kind kind) {
    const double before = many_turns(random, kind, kTwoPi);
    double angle = before;
    ANG_CVT_STD(angle);
    return reduction_error(before, angle, kTwoPi);
}

double angstddeg_error(Random& random, Kind kind) {
    const double before = many_turns(random, kind, kTwoPi);
    double angle = before;
    ANGSTDDEG(angle);
    return reduction_error(before, angle, kTwoPi);
}

using Normaliser = void (*)(double&, double&);

double arc_error(Random& random, Kind kind, double turn, Normaliser normalise) {
    double start = many_turns(random, kind, turn);
    double end = start + random.between(-turn, turn);
    const double before[] = {start, end};
    const double sweep = std::fabs(std::remainder(end - start, turn));
    if (sweep < turn * 3e-6 || std::fabs(end - start) > 0.999 * turn) {
        return kNoCase;  // a tolerance makes it a whole turn
    }
    normalise(start, end);
    return std::fmax(reduction_error(before[0], start, turn), reduction_error(before[1], end, turn));
}

double ca_arcan_error(Random& random, Kind kind) {
    return arc_error(random, kind, 360.0, [](double& start, double& end) { CA_ARCAN(start, end); });
}

double ca_arcan_rad_error(Random& random, Kind kind) {
    return arc_error(random, kind, kTwoPi, [](double& start, double& end) { CA_ARCAN_RAD(start, end); });
}

double a2d_stdsedeg_error(Random& random, Kind kind) {
    double start = many_turns(random, kind, kTwoPi);
    double end = many_turns(random, kind, kTwoPi);
    const double before[] = {start, end};
    A2D_STDSEDEG(start, end);
    if (std::fabs(end - start - kTwoPi) < 1e-7) {
        return kNoCase;  // the tolerance may have made it a whole turn
    }
    return std::fmax(reduction_error(before[0], start, kTwoPi), reduction_error(before[1], end, kTwoPi));
}

}  // namespace

void add_scalars(Functions& functions) {
    constexpr Bounds rounded = {3e-16, 3e-16, 3e-16, 3e-16};
    constexpr Bounds direction = {4e-16, 4e-16, 4e-16, 4e-16};
    // Each of up to a million turns that are taken away may round once.
    constexpr Bounds stepped = {5e-16, 6e-11, 3e-16, 5e-16};
    functions.insert(functions.end(), {
                                          {"RTOD", "degrees", rounded, rtod_error},
                                          {"DTOR", "radians", rounded, dtor_error},
                                          {"HYPOT", "length", rounded, hypot_error},
                                          {"GET_ANGLE", "angle", direction, get_angle_error},
                                          {"CA_ANGLE", "angle given, or a turn", rounded, ca_angle_error},
                                          {"CA_ANGLE_RAD", "angle given, or a turn", stepped, ca_angle_rad_error},
                                          {"ANG_CVT_STD", "angle given, or a turn", stepped, ang_cvt_std_error},
                                          {"ANGSTDDEG", "angle given, or a turn", stepped, angstddeg_error},
                                          {"CA_ARCAN", "angle given, or a turn", rounded, ca_arcan_error},
                                          {"CA_ARCAN_RAD", "angle given, or a turn", stepped, ca_arcan_rad_error},
                                          {"A2D_STDSEDEG", "angle given, or a turn", stepped, a2d_stdsedeg_error},
                                      });
}

}  // namespace orvil::accuracy
