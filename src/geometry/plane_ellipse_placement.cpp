// Placement of ellipses. A scale that differs in x and y does not take axes to axes, so the image is refitted through
// what it does keep: conjugate semi-diameters.
#include <cmath>
#include <utility>

#include "geometry/plane_math.h"
#include "geometry/plane_vector.h"
#include "orvil/geometry/plane_functions.h"
#include "orvil/geometry/plane_transforms.h"

namespace {

using orvil::PlaneVector;

PlaneVector scaled(PlaneVector v, const C2DPoint& scale) {
    return {v.x * scale.x, v.y * scale.y};
}

// An ellipse as its centre sees it: the two semi-axes, or after a scale two conjugate semi-diameters.
struct Diameters {
    PlaneVector first;
    PlaneVector second;

    PlaneVector point_at(double t) const {
        const orvil::Turn turn = orvil::turn_by(t);
        return turn.cosine * first + turn.sine * second;
    }
};

// The refitted axes; the angle is that of the major one.
struct Axes {
    double longer = 0.0;
    double shorter = 0.0;
    double angle = 0.0;
};

bool refit(const Diameters& diameters, Axes& axes) {
    const C2DPoint first(diameters.first.x, diameters.first.y);
    const C2DPoint second(diameters.second.x, diameters.second.y);
    return CAL_ELPDT(first, second, C2DPoint(), axes.longer, axes.shorter, axes.angle);
}

// The angle by which the refitted ellipse reaches a point: its parameter angle, or on a circle its direction.
double angle_of(PlaneVector point, const Axes& axes) {
    if (axes.longer - axes.shorter < orvil::kTolerance) {
        return orvil::direction(point);
    }
    const PlaneVector in_frame = orvil::turned_back(point, orvil::turn_by(axes.angle));
    return orvil::parameter_angle(C2DPoint(in_frame.x, in_frame.y), axes.longer);
}

// Whether two angles differ by whole turns, if any: an arc between them has one end, not two that rounding tells apart.
bool is_whole_turn(double start, double end) {
    return std::fabs(std::remainder(end - start, orvil::kTwoPi)) < orvil::kTolerance;
}

bool is_finite(const C2DEllipse& e) {
    for (double number : {e.center.x, e.center.y, e.axis.x, e.axis.y, e.ratio, e.start, e.end}) {
        if (!std::isfinite(number)) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool C2DEllipse::MatrixCalculation(const C2DMatrixItem& step) {
    const PlaneVector semi_axis(axis);
    const Diameters before{semi_axis, ratio * orvil::left_of(semi_axis)};
    PlaneVector ends[2] = {before.point_at(start), before.point_at(end)};
    if (is_whole_turn(start, end)) {
        ends[1] = ends[0];
    }
    // Each mirroring makes the arc run the other way.
    if ((step.scale.x < 0.0) != (step.scale.y < 0.0)) {
        std::swap(ends[0], ends[1]);
    }
    Axes axes;
    if (!refit({scaled(before.first, step.scale), scaled(before.second, step.scale)}, axes)) {
        return false;
    }
    C2DEllipse placed;
    placed.center = center;
    placed.center.MatrixCalculation(step);
    const PlaneVector major = axes.longer * orvil::turned(PlaneVector(1.0, 0.0), orvil::turn_by(axes.angle));
    orvil::assign(placed.axis, orvil::turned(major, orvil::turn_by(step.angle)));
    placed.ratio = axes.shorter / axes.longer;
    placed.start = angle_of(scaled(ends[0], step.scale), axes);
    placed.end = angle_of(scaled(ends[1], step.scale), axes);
    return is_finite(placed) && SetData(placed);
}
