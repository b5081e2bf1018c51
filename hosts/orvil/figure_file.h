// Figures of the plane, read from a token-block file. Each is a block; points are listings or assignments of two
// numbers.
//
//     Title = "Yard";
//     Wall { Kind = Line;  From { 0.0 0.0 }  To { 9.0 4.0 } }
//     Pond { Kind = Ellipse;  Centre { 4.0 3.0 }  Axis { 2.0 1.0 }  Ratio = 0.5; }
#pragma once

#include <string>
#include <vector>

#include "orvil/geometry/plane_primitives.h"

namespace orvil_host {

enum class Shape { kPoint, kLine, kCircle, kArc, kEllipse };

struct Figure {
    std::string name;
    Shape shape = Shape::kPoint;
    C2DLine line;        // of a line; a point is its start
    C2DEllipse ellipse;  // of the other shapes, angles in radians; a whole turn is two equal ones
};

struct FigureFile {
    std::string title;
    std::vector<Figure> figures;
};

// Every figure meets every other one, so a file holds no more than these.
inline constexpr int kMostFigures = 1000;

// Whether the file holds nothing but figures that can be drawn. When it does not, that has been said.
bool read_figures(const std::string& path, FigureFile& file);

}  // namespace orvil_host
