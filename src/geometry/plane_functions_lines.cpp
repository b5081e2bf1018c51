#include "geometry/plane_vector.h"
#include "orvil/geometry/plane_functions.h"

namespace orvil {
namespace {

constexpr double kFootTolerance = 1e-6;
// Between these squares a comparison with 1e-8 is made as stated, by a root; outside of them the squares tell.
constexpr double kSurelyBelow = 0.5e-16;
constexpr double kSurelyAbove = 2e-16;

struct Segment {
    PlaneVector start;
    PlaneVector end;
    PlaneVector span;
    double span_squared;

    Segment(const C2DPoint& a, const C2DPoint& b)
        : start(a), end(b), span(end - start), span_squared(dot(span, span)) {}
};

// Whether the determinant divided by either length is below 1e-8; a segment without length is parallel to all.
[[gnu::cold, gnu::noinline]] bool are_parallel_by_roots(double squared_a, double squared_b, double determinant) {
    const double length_a = std::sqrt(squared_a);
    const double length_b = std::sqrt(squared_b);
    if (length_a == 0.0 || length_b == 0.0) {
        return true;
    }
    return std::fabs(determinant) / length_a < kTolerance && std::fabs(determinant) / length_b < kTolerance;
}

bool are_parallel(const Segment& a, const Segment& b, double determinant) {
    const double squared = determinant * determinant;
    if (squared > kSurelyAbove * a.span_squared || squared > kSurelyAbove * b.span_squared) {
        return false;
    }
    return are_parallel_by_roots(a.span_squared, b.span_squared, determinant);
}

bool coincide(PlaneVector v, PlaneVector w) {
    return length(v - w) < kTolerance;
}

// Whether the distance of start + offset from the infinite line is below 1e-8. Without a length there is none: it is
// NaN.
bool is_near_line(const Segment& segment, PlaneVector offset) {
    return std::fabs(cross(segment.span, offset)) / std::sqrt(segment.span_squared) < kTolerance;
}

bool is_on(const Segment& segment, PlaneVector p) {
    const PlaneVector from_start = p - segment.start;
    const PlaneVector from_end = p - segment.end;
    const bool is_between = dot(from_start, segment.span) >= 0.0 && dot(from_end, segment.span) <= 0.0;
    return (is_between && is_near_line(segment, from_start)) || coincide(p, segment.start) || coincide(p, segment.end);
}

// The same where squares tell, as 0 and 1: without a root, and without a branch, since nobody can foresee whether
// segments meet.
struct Verdict {
    unsigned is_on;
    unsigned is_off;
};

unsigned flag(bool value) {
    return static_cast<unsigned>(value);
}

inline Verdict judge(const Segment& segment, PlaneVector p) {
    const PlaneVector from_start = p - segment.start;
    const double product = cross(segment.span, from_start);
    const double behind_start = dot(from_start, segment.span);
    const double behind_end = dot(p - segment.end, segment.span);
    const double far = kSurelyAbove * segment.span_squared;
    return {flag(behind_start >= 0.0) & flag(behind_end <= 0.0) &
                flag(product * product < kSurelyBelow * segment.span_squared),
            flag(behind_start * std::fabs(behind_start) < -far) | flag(behind_end * std::fabs(behind_end) > far)};
}

[[gnu::cold, gnu::noinline]] bool is_on_both_by_roots(const C2DPoint& a1, const C2DPoint& a2, const C2DPoint& b1,
                                                      const C2DPoint& b2, PlaneVector p) {
    return is_on(Segment(a1, a2), p) && is_on(Segment(b1, b2), p);
}

// Where the infinite lines meet, each written as A x + B y = C with (A, B) = (span.y, -span.x).
PlaneVector meeting_point(const Segment& a, const Segment& b, double determinant) {
    const double c1 = a.start.x * a.span.y - a.start.y * a.span.x;
    const double c2 = b.start.x * b.span.y - b.start.y * b.span.x;
    return {(a.span.x * c2 - b.span.x * c1) / determinant, (a.span.y * c2 - b.span.y * c1) / determinant};
}

}  // namespace
}  // namespace orvil

using orvil::PlaneVector;

int CA_INS2L(const C2DPoint& a1, const C2DPoint& a2, const C2DPoint& b1, const C2DPoint& b2, C2DPoint& p) {
    const orvil::Segment a(a1, a2);
    const orvil::Segment b(b1, b2);
    const double determinant = orvil::cross(a.span, b.span);
    if (orvil::are_parallel(a, b, determinant)) {
        p.SetData(0.0, 0.0);
        return 2;
    }
    const PlaneVector meeting = orvil::meeting_point(a, b, determinant);
    const orvil::Verdict on_a = orvil::judge(a, meeting);
    const orvil::Verdict on_b = orvil::judge(b, meeting);
    unsigned is_on_both = on_a.is_on & on_b.is_on;
    if ((is_on_both | on_a.is_off | on_b.is_off) == 0U) {
        is_on_both = orvil::flag(orvil::is_on_both_by_roots(a1, a2, b1, b2, meeting));
    }
    orvil::assign(p, meeting);  // last, since it may be one of the ends
    return static_cast<int>(1U - is_on_both);
}

int CA_ONLIN(const C2DPoint& a, const C2DPoint& b, const C2DPoint& p) {
    return orvil::is_on(orvil::Segment(a, b), PlaneVector(p)) ? 0 : 1;
}

int CA_POSLN(const C2DLine& line, const C2DPoint& p, int& side) {
    const PlaneVector span = PlaneVector(line.end) - PlaneVector(line.start);
    if (orvil::length(span) < orvil::kTolerance) {
        return 1;
    }
    // The raw product is compared, not the distance: how far off the line 1e-8 reaches depends on the line's length.
    const double product = orvil::cross(span, PlaneVector(p) - PlaneVector(line.start));
    side = 0;
    if (product >= orvil::kTolerance) {
        side = -1;
    } else if (product <= -orvil::kTolerance) {
        side = 1;
    }
    return 0;
}

int CA_PERLN(const C2DPoint& a, const C2DPoint& b, const C2DPoint& p, C2DPoint& foot, double& distance) {
    const orvil::Segment segment(a, b);
    const double span_length = std::sqrt(segment.span_squared);
    if (span_length < orvil::kTolerance) {
        distance = 0.0;
        return -1;
    }
    const PlaneVector point(p);
    const double t = orvil::cross(segment.span, point - segment.start) / segment.span_squared;
    const PlaneVector nearest = point - t * orvil::left_of(segment.span);
    orvil::assign(foot, nearest);
    distance = std::fabs(t) * span_length;
    // The raw product is compared: how far beyond an end a foot still counts as on the segment depends on its length.
    const double beyond = orvil::dot(nearest - segment.start, nearest - segment.end);
    return beyond <= orvil::kFootTolerance ? 0 : 1;
}

bool CA_MIRROR(const C2DPoint& p, const C2DPoint& a, const C2DPoint& b, C2DPoint& out) {
    return orvil::reflect(p, a, b, out);
}
