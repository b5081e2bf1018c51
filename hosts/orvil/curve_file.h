// NURBS curves, read from a token-block file. Each is a block; its numbers stand in listings or assignments.
//
//     Title = "Two curves";
//     Wave { Degree = 3;  Fit { 0.0 0.0  2.0 1.5  4.0 0.0 } }
//     Bow { Degree = 2;  Points { 1.0 0.0  1.0 1.0  0.0 1.0 }  Weights { 1.0 0.7 1.0 }  Knots { 0 0 0 1 1 1 } }
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "orvil/geometry/nurbs.h"

namespace orvil_host {

// A curve that has been drawn: its segments are there.
class DrawnCurve : public CCalcNurbs {
public:
    std::string name;

    int degree() const { return dimension_; }
    int ctrl_count() const { return ctrl_points_.GetSize(); }
    const C3DPoint& ctrl(int i) const { return ctrl_points_.GetAt(i)->point; }
    bool make_clamped_knots(int points) { return MakeKnotVector(dimension_ + 1, points, KnotFormClamped); }
};

struct CurveFile {
    std::string title;
    std::vector<DrawnCurve> curves;
};

// More segments than this are not drawn.
inline constexpr std::size_t kMostSegments = 1000000;

// Whether the file holds nothing but curves, and each can be drawn with so many segments a span. When not, it has been
// said which rule is broken.
bool read_curves(const std::string& path, int divisions, CurveFile& file);

}  // namespace orvil_host
