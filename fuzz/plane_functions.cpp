// Plane functions on any doubles at all: every call returns one of its codes, and a count says what was found.
#include "orvil/geometry/plane_functions.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "orvil/geometry/scalars.h"
#include "support/fuzz_check.h"
#include "support/numbers.h"

namespace {

bool is_finite(const C2DPoint& p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

void check_lines(Numbers& in) {
    const C2DPoint a = in.point(), b = in.point(), c = in.point(), d = in.point();
    C2DPoint found;
    const int met = CA_INS2L(a, b, c, d, found);
    FUZZ_CHECK(met >= 0 && met <= 2);
    FUZZ_CHECK(met != 0 || (CA_ONLIN(a, b, found) == 0 && CA_ONLIN(c, d, found) == 0));
    FUZZ_CHECK(met != 2 || (found.x == 0.0 && found.y == 0.0));
    const bool finite = is_finite(a) && is_finite(b) && is_finite(c) && is_finite(d);
    FUZZ_CHECK(finite || met == 2 || (met == 1 && !is_finite(found)));
    int side = 5;
    const bool is_line = CA_POSLN(C2DLine(a, b), c, side) == 0;
    FUZZ_CHECK(is_line ? side >= -1 && side <= 1 : side == 5);
    double distance = -1.0;
    const int foot = CA_PERLN(a, b, c, found, distance);
    FUZZ_CHECK(foot == -1 ? distance == 0.0 : (foot == 0 || foot == 1) && !(distance < 0.0));
    found.SetData(3.0, 4.0);
    if (CA_MIRROR(c, a, b, found)) {
        FUZZ_CHECK((is_finite(a) && is_finite(b) && is_finite(c)) || !is_finite(found));
    } else {
        FUZZ_CHECK(found.x == 3.0 && found.y == 4.0);
    }
}

void check_circles(Numbers& in) {
    const C2DPoint a = in.point(), b = in.point(), c = in.point();
    const double radius = in.next();
    C2DPoint p1, p2;
    int count = -1;
    const int met = CA_INSLC(C2DEllipse(a, b, radius, 0.0, 0.0), C2DLine(c, in.point()), p1, p2, count);
    FUZZ_CHECK((met == 0 && count >= 0 && count <= 2) || (met == 1 && count == 0));
    double r = 0.0, start = 0.0, end = 0.0;
    if (CA_ARC3P(a, b, c, p1, r, start, end)) {
        FUZZ_CHECK(std::isfinite(r) && start >= 0.0 && end >= 0.0 && start <= 2.0 * r_PAI() && end <= 2.0 * r_PAI());
    }
    CA_PCTAN(a, radius, b, p1, p2, count);
    FUZZ_CHECK(count == 2 || (count == 0 && p1.x == 0.0 && p2.y == 0.0));
    GET_ONPC(a, radius, in.next(), p1);
}

void check_arcs(Numbers& in) {
    const C2DPoint a = in.point(), b = in.point();
    const double r = in.next(), s = in.next(), e = in.next(), other = in.next();
    C2DPoint p1, p2;
    int count = -1;
    const int met = CA_INS2C(a, r, s, e, b, other, in.next(), in.next(), p1, p2, count);
    FUZZ_CHECK((met == 0 && count >= 0 && count <= 2) || (met == 1 && count == 0));
    const int on_arc = ChkOnArc(a, r, s, e, b);
    FUZZ_CHECK(on_arc == 0 || on_arc == 1);
    const int on_ellipse = ChkOnEllipse(&a, r, s, e, &b);
    FUZZ_CHECK(on_ellipse == 0 || (on_ellipse == 1 && !(std::isfinite(s) && std::isfinite(e))));
}

void check_ellipses(Numbers& in) {
    const C2DPoint centre = in.point(), axis = in.point(), l1 = in.point(), l2 = in.point();
    const double ratio = in.next(), s = in.next(), e = in.next(), direction = in.next();
    C2DPoint p1, p2;
    int count = -1;
    const bool solved = CAL_INSLE(l1, l2, centre, axis, ratio, p1, p2, count);
    FUZZ_CHECK(count >= 0 && count <= 2 && (solved || count == 0));
    FUZZ_CHECK((is_finite(l1) && is_finite(l2) && is_finite(centre) && is_finite(axis)) || count == 0);
    FUZZ_CHECK(count > 0 || (p1.x == 0.0 && p1.y == 0.0));
    FUZZ_CHECK(count > 1 || (p2.x == 0.0 && p2.y == 0.0));
    const double from[2] = {l1.x, l1.y}, to[2] = {l2.x, l2.y}, middle[2] = {centre.x, centre.y}, angles[2] = {s, e};
    double q1[2] = {}, q2[2] = {};
    const int met = A2D_INSL1(from, to, middle, axis.x, axis.y, direction, angles, q1, q2, &count);
    FUZZ_CHECK((met == 0 && count >= 0 && count <= 2) || (met == -1 && count == 0));
    FUZZ_CHECK(CAL_ELPPN(centre, axis, ratio, direction, p1, p2));
    CAL_ELPRR(centre, axis, ratio, l1, l2, p1, p2);
    CAL_ELPCP(centre, axis, ratio, s, p1);
    double longer = 0.0, shorter = 0.0, angle = 0.0;
    if (CAL_ELPDT(l1, l2, centre, longer, shorter, angle)) {
        FUZZ_CHECK(std::isfinite(longer) && shorter >= 1e-6 && angle >= 0.0 && angle <= 2.0 * r_PAI());
    }
    FUZZ_CHECK(CAL_ANGPT(centre, axis.x, axis.y, direction, s, e, ratio, p1, p2));
    CAL_ELAMN(centre, axis, ratio, s, e, direction, p1, p2);
    if (CA_ELAMN2(centre, axis.x, axis.y, direction, s, e, p1, p2)) {
        FUZZ_CHECK(!(p1.x > p2.x) && !(p1.y > p2.y));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < sizeof(double)) {
        return 0;
    }
    Numbers in(data, size);
    check_lines(in);
    check_circles(in);
    check_arcs(in);
    check_ellipses(in);
    return 0;
}
