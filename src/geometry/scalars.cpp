// Tolerances, values and directions.
#include "orvil/geometry/scalars.h"

#include <cmath>
#include <utility>

#include "geometry/plane_math.h"

double r_PAI() {
    return orvil::kPi;
}
double r_EP1() {
    return 0.1;
}
double r_EP2() {
    return 0.01;
}
double r_EP3() {
    return 0.001;
}
double r_EP4() {
    return 0.0001;
}
double r_EP5() {
    return 1e-5;
}
double r_EP6() {
    return 1e-6;
}
double r_EP7() {
    return 1e-7;
}
double r_EP8() {
    return orvil::kTolerance;
}
double r_EP9() {
    return orvil::kTolerance;
}
double r_EP10() {
    return 1e-10;
}
double r_EP11() {
    return 1e-11;
}
double r_EP12() {
    return 1e-12;
}
double r_EP13() {
    return 1e-13;
}

void SWAP(int& a, int& b) {
    std::swap(a, b);
}

void SWAP(double& a, double& b) {
    std::swap(a, b);
}

void SWAP(C2DPoint& a, C2DPoint& b) {
    std::swap(a.x, b.x);
    std::swap(a.y, b.y);
}

void SWAP(C2DLine& a, C2DLine& b) {
    SWAP(a.start, b.start);
    SWAP(a.end, b.end);
}

namespace {

template <typename T>
void clamp(T& v, T low, T high) {
    if (low > v) {
        v = low;
    }
    if (v > high) {
        v = high;
    }
}

}  // namespace

void TRIMVALUE(int& v, int low, int high) {
    clamp(v, low, high);
}

void TRIMVALUE(double& v, double low, double high) {
    clamp(v, low, high);
}

int ABS(int v) {
    const auto bits = static_cast<unsigned>(v);
    return static_cast<int>(v < 0 ? 0U - bits : bits);
}

double FABS(double v) {
    return std::fabs(v);
}

double RTOD(double radians) {
    return radians * 180.0 / orvil::kPi;
}

double DTOR(double degrees) {
    return degrees * orvil::kPi / 180.0;
}

bool ZERO(double value, double tolerance) {
    return tolerance > std::fabs(value);
}

double HYPOT(double a, double b) {
    return orvil::length(a, b);
}

namespace orvil {

double direction(double dx, double dy, double tolerance) {
    const bool no_dx = std::fabs(dx) < tolerance;
    const bool no_dy = std::fabs(dy) < tolerance;
    if (no_dx && no_dy) {
        return 0.0;
    }
    if (dx > 0.0 && no_dy) {
        return 0.0;
    }
    if (no_dx && dy > 0.0) {
        return kHalfPi;
    }
    if (dx < 0.0 && no_dy) {
        return kPi;
    }
    if (no_dx && dy < 0.0) {
        return kThreeHalfPi;
    }
    const double angle = std::atan2(dy, dx);
    return angle < 0.0 ? angle + kTwoPi : angle;
}

}  // namespace orvil

double GET_ANGLE(double x1, double y1, double x2, double y2) {
    return orvil::direction(x1 - x2, y1 - y2);
}

double GET_ANGLE(const C2DPoint& p1, const C2DPoint& p2) {
    return GET_ANGLE(p1.x, p1.y, p2.x, p2.y);
}
