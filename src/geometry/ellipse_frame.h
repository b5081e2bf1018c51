// An ellipse in a frame of its own, in which it is x^2 / a^2 + y^2 / b^2 = 1, and what a line meets of it there.
#pragma once

#include "geometry/plane_vector.h"

namespace orvil {

struct EllipseFrame {
    PlaneVector centre;
    double a;     // the long radius
    double b;     // the short radius
    double axis;  // the direction of the major axis
    Turn turn;    // the same as a rotation

    EllipseFrame(PlaneVector centre_point, double long_radius, double short_radius, double axis_direction)
        : centre(centre_point), a(long_radius), b(short_radius), axis(axis_direction), turn(turn_by(axis_direction)) {}

    EllipseFrame(const C2DPoint& centre_point, const C2DPoint& axis_vector, double ratio)
        : EllipseFrame(PlaneVector(centre_point), length(PlaneVector(axis_vector)),
                       length(PlaneVector(axis_vector)) * ratio, direction(PlaneVector(axis_vector))) {}

    PlaneVector into(PlaneVector point) const { return turned_back(point - centre, turn); }
    PlaneVector out_of(PlaneVector point) const { return centre + turned(point, turn); }

    // The point of parameter angle t, in the frame.
    PlaneVector point_at(double t) const {
        const PlaneVector parameter = unit(t);
        return {a * parameter.x, b * parameter.y};
    }
};

struct EllipseMeetings {
    int count = 0;
    PlaneVector points[2];
};

// What the infinite line from `start` to `end` meets of the ellipse, all in the ellipse's frame; by CAL_INSLE().
// False when the ellipse is none, or when the greater root is exactly 0.
bool meet_in_frame(double a, double b, PlaneVector start, PlaneVector end, EllipseMeetings& meetings);

}  // namespace orvil
