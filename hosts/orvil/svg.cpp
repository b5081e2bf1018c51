#include "svg.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "orvil/geometry/plane_functions.h"
#include "orvil/geometry/scalars.h"

namespace orvil_host {
namespace {

// In pixels.
constexpr double kLongestSide = 760.0;
constexpr double kShortestSide = 160.0;
constexpr double kMargin = 40.0;
constexpr double kTitleHeight = 24.0;
constexpr double kDotRadius = 4.0;
constexpr double kLabelGap = 8.0;
constexpr double kLetterHeight = 10.0;
constexpr double kGridLines = 14.0;

constexpr const char* kStyle =
    "<style>"
    "text{font:13px sans-serif;fill:#475569;paint-order:stroke;stroke:#fff;stroke-width:3px}"
    ".title{font-size:15px;font-weight:600;fill:#0f172a}"
    ".step{font-size:11px;fill:#94a3b8}"
    ".grid{stroke:#e8edf3;stroke-width:1}"
    ".zero{stroke:#b6c2d1;stroke-width:1.2}"
    ".figure,.aid,.construction{fill:none;stroke-linecap:round;stroke-linejoin:round}"
    ".figure{stroke:#1e4e8c;stroke-width:2.2}"
    ".aid{stroke:#94a3b8;stroke-width:1.2;stroke-dasharray:5 4}"
    ".construction{stroke:#e07a1f;stroke-width:1.5}"
    ".dot-figure,.dot-aid,.dot-construction{stroke:#fff;stroke-width:1.5}"
    ".dot-figure{fill:#1e4e8c}"
    ".dot-aid{fill:#94a3b8}"
    ".dot-construction{fill:#d1342f}"
    "</style>\n";

const char* class_of(Ink ink) {
    switch (ink) {
        case Ink::kFigure:
            return "figure";
        case Ink::kAid:
            return "aid";
        default:
            return "construction";
    }
}

// Two decimals at most, whatever the locale.
std::string number(double value) {
    std::array<char, 64> digits{};
    const double rounded = std::round(value * 100.0) / 100.0 + 0.0;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), rounded).ptr;
    return {digits.data(), end};
}

std::string attribute(const char* name, double value) {
    return std::string(" ") + name + "=\"" + number(value) + "\"";
}

std::string escaped(const std::string& text) {
    std::string out;
    for (char c : text) {
        const bool is_control = static_cast<unsigned char>(c) < ' ';
        out += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : std::string(1, is_control ? ' ' : c);
    }
    return out;
}

// From the drawing to pixels, in which y runs downwards.
class Scale {
public:
    Scale(const C2DPoint& low, const C2DPoint& high) : low_(low), high_(high) {
        const double wide = high.x - low.x;
        const double tall = high.y - low.y;
        const double longest = std::max(wide, tall);
        factor_ = longest > 0.0 && std::isfinite(kLongestSide / longest) ? kLongestSide / longest : 1.0;
        width_ = std::max(wide * factor_, kShortestSide);
        height_ = std::max(tall * factor_, kShortestSide);
    }

    double x(double value) const { return kMargin + width_ / 2.0 + (value - low_.x / 2.0 - high_.x / 2.0) * factor_; }
    double y(double value) const {
        return kTitleHeight + kMargin + height_ / 2.0 - (value - low_.y / 2.0 - high_.y / 2.0) * factor_;
    }
    double length(double value) const { return value * factor_; }
    double width() const { return width_ + 2.0 * kMargin; }
    double height() const { return height_ + 2.0 * kMargin + kTitleHeight; }

    // What pixels are in the drawing.
    double left() const { return (low_.x + high_.x) / 2.0 - width() / 2.0 / factor_; }
    double right() const { return (low_.x + high_.x) / 2.0 + width() / 2.0 / factor_; }
    double bottom() const { return (low_.y + high_.y) / 2.0 - (height_ / 2.0 + kMargin) / factor_; }
    double top() const { return (low_.y + high_.y) / 2.0 + (height_ / 2.0 + kMargin) / factor_; }

    // 1, 2 or 5 times a power of ten.
    double grid_step() const {
        const double wanted = std::max(width_, height_) / factor_ / kGridLines;
        const double power = std::pow(10.0, std::floor(std::log10(wanted)));
        const double digit = wanted / power;
        return power * (digit > 5.0 ? 10.0 : digit > 2.0 ? 5.0 : digit > 1.0 ? 2.0 : 1.0);
    }

private:
    C2DPoint low_;
    C2DPoint high_;
    double factor_ = 1.0;
    double width_ = 0.0;
    double height_ = 0.0;
};

std::string point_text(const Scale& scale, const C2DPoint& point) {
    return number(scale.x(point.x)) + "," + number(scale.y(point.y));
}

std::string grid_line(double x1, double y1, double x2, double y2, bool is_zero) {
    return std::string("<line class=\"") + (is_zero ? "zero" : "grid") + "\"" + attribute("x1", x1) +
           attribute("y1", y1) + attribute("x2", x2) + attribute("y2", y2) + "/>\n";
}

// Multiples of the step; where they cannot be told apart, far from 0, there are none.
std::string grid(const Scale& scale) {
    const double step = scale.grid_step();
    std::string out;
    const double first_x = std::ceil(scale.left() / step);
    const double first_y = std::ceil(scale.bottom() / step);
    constexpr double kCountable = 1e15;
    for (double i = first_x; std::fabs(i) < kCountable && i * step <= scale.right(); ++i) {
        out += grid_line(scale.x(i * step), kTitleHeight, scale.x(i * step), scale.height(), i == 0.0);
    }
    for (double i = first_y; std::fabs(i) < kCountable && i * step <= scale.top(); ++i) {
        out += grid_line(0.0, scale.y(i * step), scale.width(), scale.y(i * step), i == 0.0);
    }
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), step).ptr;
    return out + "<text class=\"step\" text-anchor=\"end\"" + attribute("x", scale.width() - kLabelGap) +
           attribute("y", scale.height() - kLabelGap) + ">grid " + std::string(digits.data(), end) + "</text>\n";
}

C2DPoint point_at(const C2DEllipse& ellipse, double t) {
    const double along = std::cos(t);
    const double aside = std::sin(t) * ellipse.ratio;
    return {ellipse.center.x + along * ellipse.axis.x - aside * ellipse.axis.y,
            ellipse.center.y + along * ellipse.axis.y + aside * ellipse.axis.x};
}

// Text above or below a point begins there, or ends there in the right half of the picture, so that it stays inside.
std::string label_text(const Scale& scale, const C2DPoint& at, const std::string& text, SvgPicture::Place place) {
    const double x = scale.x(at.x);
    const double y = scale.y(at.y);
    if (place == SvgPicture::Place::kOn) {
        return "<text text-anchor=\"middle\"" + attribute("x", x) + attribute("y", y + kLetterHeight / 2.0) + ">" +
               escaped(text) + "</text>\n";
    }
    const bool is_right = x > scale.width() / 2.0;
    const double down = place == SvgPicture::Place::kAbove ? -kLabelGap : kLabelGap + kLetterHeight;
    return std::string("<text text-anchor=\"") + (is_right ? "end" : "start") + "\"" +
           attribute("x", x + (is_right ? -kLabelGap : kLabelGap)) + attribute("y", y + down) + ">" + escaped(text) +
           "</text>\n";
}

// An arc in two halves, so that a whole turn can be drawn as well and the flag for the longer way is never needed.
std::string arc_path(const Scale& scale, const C2DEllipse& ellipse) {
    double start = ellipse.start;
    double end = ellipse.end;
    A2D_STDSEDEG(start, end);
    const std::string radii = number(scale.length(ellipse.GetLongRadius())) + "," +
                              number(scale.length(ellipse.GetShortRadius())) + " " +
                              number(-RTOD(GET_ANGLE(ellipse.axis, C2DPoint()))) + " 0 0 ";
    return "M" + point_text(scale, point_at(ellipse, start)) + " A" + radii +
           point_text(scale, point_at(ellipse, (start + end) / 2.0)) + " A" + radii +
           point_text(scale, point_at(ellipse, end));
}

}  // namespace

C2DPoint middle_of(const C2DEllipse& ellipse) {
    double start = ellipse.start;
    double end = ellipse.end;
    A2D_STDSEDEG(start, end);
    return point_at(ellipse, (start + end) / 2.0);
}

void SvgPicture::include(const C2DPoint& point) {
    low_ = is_empty_ ? point : C2DPoint(std::min(low_.x, point.x), std::min(low_.y, point.y));
    high_ = is_empty_ ? point : C2DPoint(std::max(high_.x, point.x), std::max(high_.y, point.y));
    is_empty_ = false;
}

void SvgPicture::add_line(const C2DPoint& from, const C2DPoint& to, Ink ink) {
    add_polyline({from, to}, ink);
}

void SvgPicture::add_polyline(const std::vector<C2DPoint>& points, Ink ink) {
    outlines_.push_back({points, ink});
    for (const C2DPoint& point : points) {
        include(point);
    }
}

void SvgPicture::add_ellipse(const C2DEllipse& ellipse, Ink ink) {
    arcs_.push_back({ellipse, ink});
    double start = ellipse.start;
    double end = ellipse.end;
    A2D_STDSEDEG(start, end);
    C2DPoint low;
    C2DPoint high;
    CA_ELAMN2(ellipse.center, 2.0 * ellipse.GetLongRadius(), 2.0 * ellipse.GetShortRadius(),
              GET_ANGLE(ellipse.axis, C2DPoint()), start, end, low, high);
    include(low);
    include(high);
}

void SvgPicture::add_dot(const C2DPoint& at, Ink ink) {
    dots_.push_back({at, ink});
    include(at);
}

void SvgPicture::add_label(const C2DPoint& at, const std::string& label, Place place) {
    labels_.push_back({at, label, place});
    include(at);
}

std::string SvgPicture::text(const std::string& title) const {
    const Scale scale(low_, high_);
    std::string out = "<svg xmlns=\"http://www.w3.org/2000/svg\"" + attribute("width", scale.width()) +
                      attribute("height", scale.height()) + ">\n<title>" + escaped(title) + "</title>\n" + kStyle +
                      "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n" + grid(scale);
    for (const Outline& outline : outlines_) {
        out += std::string("<polyline class=\"") + class_of(outline.ink) + "\" points=\"";
        for (const C2DPoint& point : outline.points) {
            out += point_text(scale, point) + " ";
        }
        out += "\"/>\n";
    }
    for (const Arc& arc : arcs_) {
        out += std::string("<path class=\"") + class_of(arc.ink) + "\" d=\"" + arc_path(scale, arc.ellipse) + "\"/>\n";
    }
    for (const Dot& dot : dots_) {
        out += std::string("<circle class=\"dot-") + class_of(dot.ink) + "\"" + attribute("cx", scale.x(dot.at.x)) +
               attribute("cy", scale.y(dot.at.y)) + attribute("r", kDotRadius) + "/>\n";
    }
    for (const Label& label : labels_) {
        out += label_text(scale, label.at, label.text, label.place);
    }
    return out + "<text class=\"title\"" + attribute("x", kLabelGap) + attribute("y", kTitleHeight - kLabelGap) + ">" +
           escaped(title) + "</text>\n</svg>\n";
}

}  // namespace orvil_host
