// Angles and placed figures of any doubles at all: every call returns, what is promised of ranges holds, and what is
// refused is left as it was.
#include <cmath>
#include <cstdint>

#include "orvil/geometry/scalars.h"
#include "orvil/geometry/space_primitives.h"
#include "support/fuzz_check.h"
#include "support/numbers.h"

namespace {

constexpr double kTwoPi = 6.283185307179586;

void check_single_angles(double angle) {
    double degrees = angle;
    double radians = angle;
    double converted = angle;
    double standard = angle;
    CA_ANGLE(degrees);
    CA_ANGLE_RAD(radians);
    ANG_CVT_STD(converted);
    ANGSTDDEG(standard);
    if (std::isfinite(angle)) {
        FUZZ_CHECK(degrees >= 0.0 && degrees <= 360.0);
        FUZZ_CHECK(radians >= 0.0 && radians <= kTwoPi);
        FUZZ_CHECK(std::fabs(converted) <= kTwoPi - 0.99e-8);
        FUZZ_CHECK(standard >= 0.0 && standard <= kTwoPi);
    } else {
        FUZZ_CHECK(!std::isfinite(degrees) && !std::isfinite(radians));
        FUZZ_CHECK(!std::isfinite(converted) && !std::isfinite(standard));
    }
}

void check_arcs(double start, double end, double angle) {
    const bool finite = std::isfinite(start) && std::isfinite(end);
    double from = start;
    double to = end;
    CA_ARCAN(from, to);
    FUZZ_CHECK(!finite || (to >= from && to - from <= 360.0 && to <= 360.0));
    from = start;
    to = end;
    CA_ARCAN_RAD(from, to);
    FUZZ_CHECK(!finite || (to >= from && to - from <= kTwoPi && to <= kTwoPi));
    from = start;
    to = end;
    A2D_STDSEDEG(from, to);
    FUZZ_CHECK(!finite || (to >= from && to - from <= kTwoPi + 1e-15 && to <= kTwoPi));
    const int outside = A2D_CHKDEGR(start, end, angle);
    FUZZ_CHECK(outside == 0 || outside == 1);
}

void check_ellipse(Numbers& numbers, const C2DMatrixItem& step) {
    const C2DPoint centre = numbers.point();
    const C2DPoint axis = numbers.point();
    const double ratio = numbers.next();
    const double start = numbers.next();
    C2DEllipse ellipse(centre, axis, ratio, start, numbers.next());
    char before[sizeof ellipse];
    std::memcpy(before, static_cast<const void*>(&ellipse), sizeof ellipse);
    if (!ellipse.MatrixCalculation(step)) {
        FUZZ_CHECK(std::memcmp(before, static_cast<const void*>(&ellipse), sizeof ellipse) == 0);
        return;
    }
    FUZZ_CHECK(ellipse.ratio > 0.0 && ellipse.ratio < 1.0 + 1e-12);
    FUZZ_CHECK(ellipse.start >= 0.0 && ellipse.start <= kTwoPi && ellipse.end >= 0.0 && ellipse.end <= kTwoPi);
    FUZZ_CHECK(std::isfinite(ellipse.center.x) && std::isfinite(ellipse.axis.y));
}

void check_figures(Numbers& numbers) {
    C3DMatrixItem step;
    step.base = numbers.space_point();
    step.move = numbers.space_point();
    step.scale = numbers.space_point();
    step.angle = numbers.next();
    C2DMatrixItem plane_step;
    step.Make2DItem(plane_step);
    check_ellipse(numbers, plane_step);
    C2DVectorLine line(numbers.point(), numbers.point());
    FUZZ_CHECK(line.MatrixCalculation(plane_step) && line.Optimize() && line.Rotate(line.base, step.angle));
    line.base.Mirror(line.base, line.vector);
    const double direction = GET_ANGLE(line.base, line.vector);
    FUZZ_CHECK(std::isnan(direction) || (direction >= 0.0 && direction <= kTwoPi));
    C3DVectorLine space_line(numbers.space_point(), numbers.space_point());
    FUZZ_CHECK(space_line.MatrixCalculation(step) && space_line.Rotate(space_line.base, step.angle, step.base.x, 1.0));
    FUZZ_CHECK(space_line.GetDumpText().GetLength() > 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < sizeof(double)) {
        return 0;
    }
    Numbers numbers(data, size);
    const double start = numbers.next();
    const double end = numbers.next();
    const double angle = numbers.next();
    check_single_angles(angle);
    check_arcs(start, end, angle);
    check_figures(numbers);
    return 0;
}
