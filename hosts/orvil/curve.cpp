#include <array>
#include <charconv>
#include <cstdio>

#include "commands.h"
#include "curve_file.h"
#include "report.h"
#include "safe_write.h"
#include "svg.h"

namespace orvil_host {
namespace {

constexpr int kDivisions = 16;
constexpr int kMostDivisions = 100000;

C2DPoint plan_of(const C3DPoint& point) {
    return {point.x, point.y};
}

void draw_control_polygon(SvgPicture& picture, const DrawnCurve& curve) {
    std::vector<C2DPoint> corners;
    for (int i = 0; i < curve.ctrl_count(); ++i) {
        corners.push_back(plan_of(curve.ctrl(i)));
        picture.add_dot(corners.back(), Ink::kAid);
    }
    picture.add_polyline(corners, Ink::kAid);
}

void draw_curve(SvgPicture& picture, const DrawnCurve& curve) {
    std::vector<C2DPoint> corners{plan_of(curve.GetLine(0)->start)};
    for (int i = 0; i < curve.GetLineSize(); ++i) {
        corners.push_back(plan_of(curve.GetLine(i)->end));
    }
    picture.add_polyline(corners, Ink::kFigure);
    for (int i = 0; i < curve.GetFitSize(); ++i) {
        picture.add_dot(plan_of(curve.GetFit(i)->point), Ink::kConstruction);
    }
    picture.add_label(corners[corners.size() / 2], curve.name);
}

SvgPicture picture_of(const CurveFile& file) {
    SvgPicture picture;
    for (const DrawnCurve& curve : file.curves) {
        draw_control_polygon(picture, curve);
    }
    for (const DrawnCurve& curve : file.curves) {
        draw_curve(picture, curve);
    }
    return picture;
}

// The shortest text that reads back as the number, with a point, which tells a double from other numbers.
std::string number_text(double value) {
    std::array<char, 32> digits{};
    std::string text(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
    if (text.find('.') == std::string::npos) {
        text.insert(text.find('e') == std::string::npos ? text.size() : text.find('e'), ".0");
    }
    return text;
}

std::string text_of(const C3DPoint& point) {
    return " " + number_text(point.x) + " " + number_text(point.y) + " " + number_text(point.z);
}

// The segments of all curves in the token-block language.
std::string segments_of(const CurveFile& file) {
    std::string text = "// Segments of curves: x y z of the start, x y z of the end.\r\n";
    for (const DrawnCurve& curve : file.curves) {
        text += "\r\n" + curve.name + " {\r\n";
        for (int i = 0; i < curve.GetLineSize(); ++i) {
            text += "\tSegment =" + text_of(curve.GetLine(i)->start) + text_of(curve.GetLine(i)->end) + ";\r\n";
        }
        text += "}\r\n";
    }
    return text;
}

void print(const DrawnCurve& curve) {
    double length = 0.0;
    for (int i = 0; i < curve.GetLineSize(); ++i) {
        length += curve.GetLine(i)->GetLength();
    }
    std::printf("%s: degree %d, %d control points, %d segments, length %.6g\n", curve.name.c_str(), curve.degree(),
                curve.ctrl_count(), curve.GetLineSize(), length);
}

// 0 for what is no number of divisions.
int read_divisions(const std::string& text) {
    int divisions = 0;
    const char* end = text.data() + text.size();
    const std::from_chars_result read = std::from_chars(text.data(), end, divisions);
    return read.ec == std::errc() && read.ptr == end && divisions <= kMostDivisions ? divisions : 0;
}

// Everything is made before anything is written.
ExitCode curve(const Arguments& arguments) {
    const std::string target = arguments.value("out");
    if (arguments.words.size() != 1 || target.empty()) {
        return misused(curve_command(), "one file and -o with a file are needed");
    }
    const int divisions = read_divisions(arguments.value("divisions", std::to_string(kDivisions)));
    if (divisions < 1) {
        return misused(curve_command(), "--divisions takes a number from 1 to " + std::to_string(kMostDivisions));
    }
    CurveFile file;
    if (!read_curves(arguments.words.front(), divisions, file)) {
        return kFailed;
    }
    std::string trouble = write_text(target + ".cfg", segments_of(file));
    if (trouble.empty()) {
        trouble = write_text(target, picture_of(file).text(file.title));
    }
    if (!trouble.empty()) {
        return fail(trouble);
    }
    for (const DrawnCurve& drawn : file.curves) {
        print(drawn);
    }
    return kDone;
}

}  // namespace

const Command& curve_command() {
    static const Command command{
        "curve",
        "curve FILE -o OUT [--divisions N]",
        "draw NURBS curves as SVG, and write their segments",
        "Each block of FILE is a curve:\n"
        "  Degree = D;          1 to 7; 3 if it is not there\n"
        "  Points { X Y ... }   control points; or\n"
        "  Fit { X Y ... }      points that the curve passes through\n"
        "  Weights { W ... }    of the control points; 1 if they are not there\n"
        "  Knots { U ... }      of the control points; clamped over whole numbers if they are not there\n"
        "  Heights { Z ... }    of the points; 0 if they are not there\n"
        "An assignment Title = \"...\"; gives the picture one. Dashed is the control polygon, red are points passed\n"
        "through. The segments go to OUT.cfg, which stands beside OUT: a block for each curve, with an assignment\n"
        "Segment = X Y Z X Y Z; for each of them.\n"
        "  -o OUT, --out OUT    the picture to write\n"
        "  --divisions N        segments for each span of knots instead of 16, at most 100000\n"
        "Exit codes: 0 written; 1 FILE does not read whole, holds something else or a curve that cannot be drawn, or "
        "a\n"
        "file cannot be written; 64 bad divisions.\n",
        {{"out", 'o', true}, {"divisions", kNoLetter, true}},
        curve};
    return command;
}

}  // namespace orvil_host
