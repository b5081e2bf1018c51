// A picture of plane figures, as the text of an SVG file. Coordinates are the drawing's, with y upwards; the picture is
// scaled so that everything added is in it, over a grid with round steps.
#pragma once

#include <string>
#include <vector>

#include "orvil/geometry/plane_primitives.h"

namespace orvil_host {

// What something in the picture is; a style for each stands in the file.
enum class Ink {
    kFigure,        // what the drawing is of
    kAid,           // what led to it, such as a control polygon
    kConstruction,  // what was computed from it, such as a tangent
};

// The point half-way along an elliptic arc.
C2DPoint middle_of(const C2DEllipse& ellipse);

class SvgPicture {
public:
    // Larger coordinates leave no room for the arithmetic of scaling. What is added must not be larger.
    static constexpr double kLargest = 1e50;

    void add_line(const C2DPoint& from, const C2DPoint& to, Ink ink);
    void add_polyline(const std::vector<C2DPoint>& points, Ink ink);
    // The arc from the start to the end angle, which are parameter angles; angles that agree are a whole turn.
    void add_ellipse(const C2DEllipse& ellipse, Ink ink);
    void add_dot(const C2DPoint& at, Ink ink);
    // Text above, on or below a point. Bytes from 0x80 on must be UTF-8.
    enum class Place { kAbove, kOn, kBelow };
    void add_label(const C2DPoint& at, const std::string& label, Place place = Place::kAbove);

    // The whole file, ending in a line feed.
    std::string text(const std::string& title) const;

private:
    struct Outline {
        std::vector<C2DPoint> points;
        Ink ink;
    };
    struct Arc {
        C2DEllipse ellipse;
        Ink ink;
    };
    struct Dot {
        C2DPoint at;
        Ink ink;
    };
    struct Label {
        C2DPoint at;
        std::string text;
        Place place;
    };

    void include(const C2DPoint& point);

    std::vector<Outline> outlines_;
    std::vector<Arc> arcs_;
    std::vector<Dot> dots_;
    std::vector<Label> labels_;
    bool is_empty_ = true;
    C2DPoint low_;  // the corners of the box around everything
    C2DPoint high_;
};

}  // namespace orvil_host
