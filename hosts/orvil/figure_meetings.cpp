#include "figure_meetings.h"

#include "orvil/geometry/plane_functions.h"
#include "orvil/geometry/scalars.h"

namespace orvil_host {
namespace {

bool is_round(const Figure& figure) {
    return figure.shape == Shape::kCircle || figure.shape == Shape::kArc;
}

bool is_on_line(const Figure& line, const C2DPoint& point) {
    return CA_ONLIN(line.line.start, line.line.end, point) == 0;
}

bool is_on_arc(const Figure& round, const C2DPoint& point) {
    double start = RTOD(round.ellipse.start);
    double end = RTOD(round.ellipse.end);
    if (round.shape == Shape::kCircle) {
        return true;
    }
    CA_ARCAN(start, end);
    return ChkOnArc(round.ellipse.center, round.ellipse.GetLongRadius(), start, end, point) == 0;
}

std::vector<C2DPoint> lines(const Figure& one, const Figure& other) {
    C2DPoint point;
    const int code = CA_INS2L(one.line.start, one.line.end, other.line.start, other.line.end, point);
    return code == 0 ? std::vector<C2DPoint>{point} : std::vector<C2DPoint>{};
}

std::vector<C2DPoint> line_and_round(const Figure& line, const Figure& round) {
    C2DPoint found[2];
    int count = 0;
    CA_INSLC(round.ellipse, line.line, found[0], found[1], count);
    std::vector<C2DPoint> points;
    for (int i = 0; i < count; ++i) {
        if (is_on_line(line, found[i]) && is_on_arc(round, found[i])) {
            points.push_back(found[i]);
        }
    }
    return points;
}

// A line through an end of the minor axis may be refused. Where it is, the minor axis is taken for the major one: the
// same arc, with a quarter less in its angles.
std::vector<C2DPoint> line_and_ellipse(const Figure& line, const Figure& figure) {
    const C2DEllipse& ellipse = figure.ellipse;
    const double from[2] = {line.line.start.x, line.line.start.y};
    const double to[2] = {line.line.end.x, line.line.end.y};
    const double centre[2] = {ellipse.center.x, ellipse.center.y};
    const double longer = 2.0 * ellipse.GetLongRadius();
    const double shorter = 2.0 * ellipse.GetShortRadius();
    const double rotation = GET_ANGLE(ellipse.axis, C2DPoint());
    const double quarter = r_PAI() / 2.0;
    const double angles[2] = {ellipse.start, ellipse.end};
    const double turned[2] = {ellipse.start - quarter, ellipse.end - quarter};
    double found[2][2];
    int count = 0;
    if (A2D_INSL1(from, to, centre, longer, shorter, rotation, angles, found[0], found[1], &count) != 0) {
        A2D_INSL1(from, to, centre, shorter, longer, rotation + quarter, turned, found[0], found[1], &count);
    }
    std::vector<C2DPoint> points;
    for (int i = 0; i < count; ++i) {
        const C2DPoint point(found[i][0], found[i][1]);
        if (is_on_line(line, point)) {
            points.push_back(point);
        }
    }
    return points;
}

// The larger circle first: only then is a touching point the one where the circles touch.
std::vector<C2DPoint> rounds(const Figure& one, const Figure& other) {
    const C2DEllipse& a = one.ellipse;
    const C2DEllipse& b = other.ellipse;
    if (a.GetLongRadius() < b.GetLongRadius()) {
        return rounds(other, one);
    }
    C2DPoint found[2];
    int count = 0;
    CA_INS2C(a.center, a.GetLongRadius(), a.start, a.end, b.center, b.GetLongRadius(), b.start, b.end, found[0],
             found[1], count);
    return {found, found + count};
}

}  // namespace

std::vector<C2DPoint> meetings_of(const Figure& one, const Figure& other) {
    if (other.shape == Shape::kLine && one.shape != Shape::kLine) {
        return meetings_of(other, one);
    }
    if (one.shape == Shape::kLine && other.shape == Shape::kLine) {
        return lines(one, other);
    }
    if (one.shape == Shape::kLine && is_round(other)) {
        return line_and_round(one, other);
    }
    if (one.shape == Shape::kLine && other.shape == Shape::kEllipse) {
        return line_and_ellipse(one, other);
    }
    return is_round(one) && is_round(other) ? rounds(one, other) : std::vector<C2DPoint>{};
}

std::vector<C2DPoint> tangent_points_of(const Figure& point, const Figure& round) {
    std::vector<C2DPoint> points;
    if (point.shape != Shape::kPoint || !is_round(round)) {
        return points;
    }
    C2DPoint found[2];
    int count = 0;
    CA_PCTAN(round.ellipse.center, round.ellipse.GetLongRadius(), point.line.start, found[0], found[1], count);
    for (int i = 0; i < count; ++i) {
        if (is_on_arc(round, found[i])) {
            points.push_back(found[i]);
        }
    }
    return points;
}

}  // namespace orvil_host
