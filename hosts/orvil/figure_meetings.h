// What the plane functions of the library find between two figures.
#pragma once

#include <vector>

#include "figure_file.h"

namespace orvil_host {

// Where two figures meet: lines, circles, arcs and ellipses with lines; circles and arcs with each other. Nothing is
// known of two ellipses, nor of an ellipse and a circle.
std::vector<C2DPoint> meetings_of(const Figure& one, const Figure& other);

// Where the tangents through a point touch a circle or an arc; nothing for other figures.
std::vector<C2DPoint> tangent_points_of(const Figure& point, const Figure& round);

}  // namespace orvil_host
