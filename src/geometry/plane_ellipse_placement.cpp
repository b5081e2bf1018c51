// Placement of ellipses. A scale that differs in x and y does not take axes to axes, so the image is refitted through
// what it does keep: conjugate semi-diameters.
#include <cmath>
#include <utility>

#include "geometry/conjugate_diameters.h"
#include "orvil/geometry/plane_transforms.h"

namespace {

using orvil::PlaneVector;

PlaneVector scaled(PlaneVector v, const C2DPoint& scale) {
    return {v.x * scale.x, v.y * scale.y};
}

// Whether two angles differ by whole turns, if any: an arc between them has one end, not two that rounding tells apart.
bool is_whole_turn(double start, double end) {
    return std::fabs(std::remainder(end - start, orvil::kTwoPi)) < orvil::kTolerance;
}

// The image of an ellipse about its centre, with the semi-axes become conjugate semi-diameters and then axes again.
struct Image {
    orvil::ConjugateDiameters diameters;
    orvil::EllipseAxes axes;

    // The angle of the image of the point of parameter angle t. An affine map keeps parameter angles but for where and
    // which way they count; of its point on the auxiliary circle the direction is taken. A circle has plain directions.
    double angle_of(double t) const {
        const auto& [u, v] = diameters;
        if (axes.is_circle()) {
            const PlaneVector at = orvil::unit(t);
            return orvil::direction(at.x * u + at.y * v);
        }
        const double angle = orvil::cross(u, v) > 0.0 ? t - axes.phase : axes.phase - t;
        return orvil::direction(axes.longer * orvil::unit(angle));
    }
};

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
    Image image{{scaled(semi_axis, step.scale), scaled(ratio * orvil::left_of(semi_axis), step.scale)}, {}};
    if (!orvil::find_axes(image.diameters, image.axes)) {
        return false;
    }
    double from = start;
    double to = is_whole_turn(start, end) ? start : end;
    // Each mirroring makes the arc run the other way.
    if ((step.scale.x < 0.0) != (step.scale.y < 0.0)) {
        std::swap(from, to);
    }
    C2DEllipse placed(center, C2DPoint(), image.axes.shorter / image.axes.longer, image.angle_of(from),
                      image.angle_of(to));
    placed.center.MatrixCalculation(step);
    orvil::assign(placed.axis, orvil::turned(image.axes.major, orvil::turn_by(step.angle)));
    return is_finite(placed) && SetData(placed);
}
