#include <cstddef>
#include <cstdio>

#include "commands.h"
#include "figure_file.h"
#include "figure_meetings.h"
#include "orvil/geometry/scalars.h"
#include "report.h"
#include "safe_write.h"
#include "svg.h"

namespace orvil_host {
namespace {

// The point that lies a part of the way from one point to another.
C2DPoint part_of_way(const C2DPoint& from, const C2DPoint& to, double part) {
    return {(1.0 - part) * from.x + part * to.x, (1.0 - part) * from.y + part * to.y};
}

// Names stand below points, where lines begin, on the side that a line leaves free, and inside of what is round.
void draw_name(SvgPicture& picture, const Figure& figure) {
    const C2DLine& line = figure.line;
    if (figure.shape == Shape::kPoint) {
        picture.add_label(line.start, figure.name, SvgPicture::Place::kBelow);
    } else if (figure.shape == Shape::kLine) {
        const bool is_rising = (line.start.x < line.end.x) == (line.start.y < line.end.y);
        picture.add_label(part_of_way(line.start, line.end, 0.04), figure.name,
                          is_rising ? SvgPicture::Place::kBelow : SvgPicture::Place::kAbove);
    } else {
        const double inwards = figure.shape == Shape::kArc ? 0.2 : 0.5;
        picture.add_label(part_of_way(middle_of(figure.ellipse), figure.ellipse.center, inwards), figure.name,
                          SvgPicture::Place::kOn);
    }
}

void draw(SvgPicture& picture, const Figure& figure) {
    if (figure.shape == Shape::kPoint) {
        picture.add_dot(figure.line.start, Ink::kFigure);
    } else if (figure.shape == Shape::kLine) {
        picture.add_line(figure.line.start, figure.line.end, Ink::kFigure);
    } else {
        picture.add_ellipse(figure.ellipse, Ink::kFigure);
    }
    draw_name(picture, figure);
}

// What rounding leaves of a 0 is not worth reading.
double readable(double value) {
    return ZERO(value, r_EP10()) ? 0.0 : value;
}

void say(const Figure& one, const char* what, const Figure& other, const C2DPoint& point) {
    std::printf("%s %s %s at %.9g, %.9g\n", one.name.c_str(), what, other.name.c_str(), readable(point.x),
                readable(point.y));
}

void draw_meetings(SvgPicture& picture, const Figure& one, const Figure& other) {
    for (const C2DPoint& point : meetings_of(one, other)) {
        picture.add_dot(point, Ink::kConstruction);
        say(one, "meets", other, point);
    }
}

void draw_tangents(SvgPicture& picture, const Figure& point, const Figure& round) {
    for (const C2DPoint& touching : tangent_points_of(point, round)) {
        picture.add_line(point.line.start, touching, Ink::kConstruction);
        picture.add_dot(touching, Ink::kConstruction);
        say(point, "sees the edge of", round, touching);
    }
}

SvgPicture picture_of(const std::vector<Figure>& figures) {
    SvgPicture picture;
    for (std::size_t i = 0; i < figures.size(); ++i) {
        for (std::size_t j = i + 1; j < figures.size(); ++j) {
            draw_meetings(picture, figures[i], figures[j]);
            draw_tangents(picture, figures[i], figures[j]);
            draw_tangents(picture, figures[j], figures[i]);
        }
    }
    for (const Figure& figure : figures) {
        draw(picture, figure);
    }
    return picture;
}

ExitCode figure(const Arguments& arguments) {
    const std::string target = arguments.value("out");
    if (arguments.words.size() != 1 || target.empty()) {
        return misused(figure_command(), "one file and -o with a file are needed");
    }
    FigureFile file;
    if (!read_figures(arguments.words.front(), file)) {
        return kFailed;
    }
    const SvgPicture picture = picture_of(file.figures);
    const std::string trouble = write_text(target, picture.text(file.title));
    return trouble.empty() ? kDone : fail(trouble);
}

}  // namespace

const Command& figure_command() {
    static const Command command{
        "figure",
        "figure FILE -o OUT",
        "draw figures, and where they meet, as SVG",
        "Each block of FILE is a figure, with its Kind and what the kind needs:\n"
        "  Point      At { X Y }\n"
        "  Line       From { X Y }  To { X Y }\n"
        "  Circle     Centre { X Y }  Radius = R;\n"
        "  Arc        the same, and Start = DEGREES; End = DEGREES; counter-clockwise\n"
        "  Ellipse    Centre { X Y }  Axis { X Y }  Ratio = SHORT/LONG; perhaps Start and End\n"
        "An assignment Title = \"...\"; gives the picture one. Drawn and printed are also the points where lines meet\n"
        "lines, circles, arcs and ellipses, where circles and arcs meet, and the tangents from points to circles.\n"
        "  -o OUT, --out OUT    the file to write\n"
        "Exit codes: 0 written; 1 FILE does not read whole, holds something else, or OUT cannot be written.\n",
        {{"out", 'o', true}},
        figure};
    return command;
}

}  // namespace orvil_host
