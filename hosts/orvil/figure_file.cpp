#include "figure_file.h"

#include <cstddef>
#include <map>
#include <optional>

#include "input.h"
#include "orvil/geometry/scalars.h"
#include "orvil/tokens/block_tokens.h"
#include "places.h"
#include "report.h"
#include "svg.h"

namespace orvil_host {
namespace {

using Fields = std::map<std::string, std::vector<double>>;

struct FieldRule {
    const char* name;
    std::size_t numbers;
    bool is_needed;
};

struct ShapeRule {
    const char* name;
    Shape shape;
    std::vector<FieldRule> fields;
};

const std::vector<ShapeRule>& shape_rules() {
    static const std::vector<ShapeRule> rules{
        {"Point", Shape::kPoint, {{"At", 2, true}}},
        {"Line", Shape::kLine, {{"From", 2, true}, {"To", 2, true}}},
        {"Circle", Shape::kCircle, {{"Centre", 2, true}, {"Radius", 1, true}}},
        {"Arc", Shape::kArc, {{"Centre", 2, true}, {"Radius", 1, true}, {"Start", 1, true}, {"End", 1, true}}},
        {"Ellipse",
         Shape::kEllipse,
         {{"Centre", 2, true}, {"Axis", 2, true}, {"Ratio", 1, true}, {"Start", 1, false}, {"End", 1, false}}}};
    return rules;
}

const FieldRule* find_field(const ShapeRule& rule, const std::string& name) {
    for (const FieldRule& field : rule.fields) {
        if (name == field.name) {
            return &field;
        }
    }
    return nullptr;
}

class FigureReader {
public:
    FigureReader(const CLexTokenBlock& block, const Places& places, Figure& figure)
        : block_(block), places_(places), figure_(figure) {}

    // What should be otherwise; nothing when the figure has been read.
    std::optional<Finding> read() {
        figure_.name = block_.GetString();
        CExtString kind;
        if (block_.IsBlockType()) {
            bt_get_block_assign(block_, "Kind", kind, false);
        }
        for (const ShapeRule& rule : shape_rules()) {
            if (kind == rule.name) {
                return read(rule);
            }
        }
        return expected("a figure of Kind Point, Line, Circle, Arc or Ellipse", block_);
    }

private:
    Finding expected(const std::string& what, const CLexTokenBlock& found) const {
        return {places_.of(found), what, quoted(found)};
    }

    std::optional<Finding> read(const ShapeRule& rule) {
        figure_.shape = rule.shape;
        std::optional<Finding> trouble = read_fields(rule);
        for (const FieldRule& field : rule.fields) {
            if (!trouble && field.is_needed && fields_.count(field.name) == 0) {
                trouble = {places_.of(block_), std::string(field.name) + " in the " + rule.name, "none"};
            }
        }
        return trouble ? trouble : build();
    }

    // The children of a block begin and end with a brace.
    std::optional<Finding> read_fields(const ShapeRule& rule) {
        for (int i = 1; i + 1 < block_.GetBlockCount(); ++i) {
            const CLexTokenBlock& entry = *block_.GetAt(i);
            const std::string name = entry.GetString();
            const FieldRule* field = find_field(rule, name);
            if (name == "Kind") {
                continue;
            }
            if (field == nullptr) {
                return expected(std::string("what belongs to a figure of Kind ") + rule.name, entry);
            }
            if (fields_.count(name) != 0) {
                return expected("each of a figure's entries once", entry);
            }
            if (!read_numbers(entry, fields_[name]) || fields_[name].size() != field->numbers) {
                return expected(field->numbers == 1 ? "one number up to 1e50" : "two numbers up to 1e50", entry);
            }
        }
        return std::nullopt;
    }

    C2DPoint point(const char* name) { return {fields_[name][0], fields_[name][1]}; }
    double number(const char* name, double otherwise = 0.0) {
        return fields_.count(name) == 0 ? otherwise : fields_[name][0];
    }

    std::optional<Finding> build() {
        switch (figure_.shape) {
            case Shape::kPoint:
                figure_.line.SetData(point("At"), point("At"));
                return std::nullopt;
            case Shape::kLine:
                figure_.line.SetData(point("From"), point("To"));
                return figure_.line.GetLength() >= r_EP6() ? std::nullopt
                                                           : std::optional(expected("two ends apart", block_));
            case Shape::kEllipse:
                return build_ellipse(point("Axis"), number("Ratio"));
            default:
                return build_ellipse(C2DPoint(number("Radius"), 0.0), number("Radius") > 0.0 ? 1.0 : 0.0);
        }
    }

    std::optional<Finding> build_ellipse(const C2DPoint& axis, double ratio) {
        figure_.ellipse.SetData(point("Centre"), axis, ratio, DTOR(number("Start")), DTOR(number("End")));
        if (is_drawable(figure_.ellipse.GetLongRadius()) && is_drawable(figure_.ellipse.GetShortRadius())) {
            return std::nullopt;
        }
        return expected("radii from 1e-6 to 1e50", block_);
    }

    static bool is_drawable(double radius) { return radius >= r_EP6() && radius <= SvgPicture::kLargest; }

    const CLexTokenBlock& block_;
    const Places& places_;
    Figure& figure_;
    Fields fields_;
};

}  // namespace

bool read_figures(const std::string& path, FigureFile& file) {
    Input input;
    if (!read_input(path, input)) {
        return false;
    }
    const Places places(input.root, input.text);
    for (int i = 0; i < input.root.GetBlockCount(); ++i) {
        const CLexTokenBlock& entry = *input.root.GetAt(i);
        if (read_title(input.root, entry, file.title)) {
            continue;
        }
        if (file.figures.size() == kMostFigures) {
            fail(path + " holds more than " + std::to_string(kMostFigures) + " figures");
            return false;
        }
        Figure figure;
        const std::optional<Finding> trouble = FigureReader(entry, places, figure).read();
        if (trouble) {
            report(path, *trouble);
            return false;
        }
        file.figures.push_back(figure);
    }
    if (file.figures.empty()) {
        fail(path + " holds no figure");
    }
    return !file.figures.empty();
}

}  // namespace orvil_host
