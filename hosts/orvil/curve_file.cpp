#include "curve_file.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "input.h"
#include "orvil/geometry/scalars.h"
#include "places.h"
#include "report.h"

namespace orvil_host {
namespace {

constexpr std::array<const char*, 6> kEntries{"Degree", "Knots", "Points", "Fit", "Weights", "Heights"};

std::string counted(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

// Reads a curve, makes it, and says what is wrong where.
class CurveReader {
public:
    CurveReader(const CLexTokenBlock& block, const Places& places, int divisions, DrawnCurve& curve)
        : block_(block), places_(places), divisions_(divisions), curve_(curve) {}

    // What should be otherwise; nothing when the curve has been drawn.
    std::optional<Finding> read() {
        curve_.name = block_.GetString();
        for (const auto step : {&CurveReader::read_entries, &CurveReader::read_degree, &CurveReader::read_points,
                                &CurveReader::read_knots, &CurveReader::draw}) {
            if (std::optional<Finding> trouble = (this->*step)()) {
                return trouble;
            }
        }
        return std::nullopt;
    }

private:
    struct Entry {
        const CLexTokenBlock* node;
        std::vector<double> numbers;
    };

    // At an entry of the curve, or at the curve if it has none of that name.
    Finding finding(const char* entry, const std::string& expected, const std::string& found) const {
        const auto at = entries_.find(entry);
        return {places_.of(at == entries_.end() ? block_ : *at->second.node), expected, found};
    }

    Finding expected(const std::string& what, const CLexTokenBlock& found) const {
        return {places_.of(found), what, quoted(found)};
    }

    bool has(const char* name) const { return entries_.count(name) != 0; }
    const std::vector<double>& numbers(const char* name) { return entries_[name].numbers; }

    // The children of a block begin and end with a brace.
    std::optional<Finding> read_entries() {
        if (!block_.IsBlockType()) {
            return expected("a curve", block_);
        }
        for (int i = 1; i + 1 < block_.GetBlockCount(); ++i) {
            const CLexTokenBlock& node = *block_.GetAt(i);
            const std::string name = node.GetString();
            if (std::find(kEntries.begin(), kEntries.end(), name) == kEntries.end()) {
                return expected("Degree, Knots, Points, Fit, Weights or Heights", node);
            }
            if (entries_.count(name) != 0) {
                return expected("each of a curve's entries once", node);
            }
            Entry& entry = entries_[name];
            entry.node = &node;
            if (!read_numbers(node, entry.numbers)) {
                return expected("numbers up to 1e50", node);
            }
        }
        return std::nullopt;
    }

    std::optional<Finding> read_degree() {
        const std::vector<double> degree = has("Degree") ? numbers("Degree") : std::vector<double>{3.0};
        const bool is_whole = degree.size() == 1 && degree[0] >= 1.0 && degree[0] <= 7.0 &&
                              degree[0] == static_cast<double>(static_cast<int>(degree[0]));
        if (!is_whole || !curve_.SetDimension(static_cast<int>(degree[0]))) {
            return finding("Degree", "one whole number from 1 to 7", "another degree");
        }
        return std::nullopt;
    }

    std::optional<Finding> read_points() {
        if (has("Points") == has("Fit")) {
            return finding("Fit", "either Points or Fit in the curve", has("Fit") ? "both" : "none");
        }
        kind_ = has("Fit") ? "Fit" : "Points";
        const std::size_t count = numbers(kind_).size() / 2;
        if (numbers(kind_).size() % 2 != 0) {
            return finding(kind_, "an x and a y for each point", "a number left over");
        }
        for (const char* list : {"Weights", "Heights"}) {
            if (has(list) && numbers(list).size() != count) {
                return finding(list, "as many numbers as points", counted(numbers(list).size(), "number"));
            }
        }
        if (has("Weights") && has("Fit")) {
            return finding("Weights", "weights beside Points only", "Fit");
        }
        return add_points(count);
    }

    std::optional<Finding> add_points(std::size_t count) {
        CNurbsCtrlPoint ctrl;
        CNurbsFitPoint fit;
        for (std::size_t i = 0; i < count; ++i) {
            const double z = has("Heights") ? numbers("Heights")[i] : 0.0;
            ctrl.point.SetData(numbers(kind_)[2 * i], numbers(kind_)[2 * i + 1], z);
            ctrl.weight = has("Weights") ? numbers("Weights")[i] : 1.0;
            fit.point = ctrl.point;
            if (!(has("Fit") ? curve_.AppendFit(fit) : curve_.AppendCtrl(ctrl))) {
                return finding(kind_, "room for the points", "no memory");
            }
        }
        if (count < 3) {
            return finding(kind_, "at least 3 points", std::to_string(count));
        }
        if (!curve_.CanNurbsize(r_EP8())) {
            return finding(kind_, "each point apart from the one before",
                           counted(count, "point") + " of which two coincide");
        }
        return std::nullopt;
    }

    std::optional<Finding> read_knots() {
        if (has("Fit")) {
            return has("Knots") ? std::optional(finding("Knots", "knots beside Points only", "Fit")) : std::nullopt;
        }
        const auto points = static_cast<std::size_t>(curve_.ctrl_count());
        const auto degree = static_cast<std::size_t>(curve_.degree());
        if (points < degree + 1) {
            return finding("Points", "at least " + std::to_string(degree + 1) + " points for that degree",
                           std::to_string(points));
        }
        if (!has("Knots")) {
            return curve_.make_clamped_knots(curve_.ctrl_count())
                       ? std::nullopt
                       : std::optional(finding(kind_, "room for the knots", "no memory"));
        }
        if (numbers("Knots").size() != points + degree + 1) {
            return finding("Knots", counted(points + degree + 1, "knot"), std::to_string(numbers("Knots").size()));
        }
        return add_knots();
    }

    std::optional<Finding> add_knots() {
        const std::vector<double>& knots = numbers("Knots");
        if (!std::is_sorted(knots.begin(), knots.end())) {
            return finding("Knots", "knots that do not decrease", "others");
        }
        const auto degree = static_cast<std::size_t>(curve_.degree());
        if (knots.front() != knots[degree] || knots.back() != knots[knots.size() - 1 - degree]) {
            return finding("Knots", "the first and the last knot " + std::to_string(degree + 1) + " times",
                           "other ends");
        }
        for (const double knot : knots) {
            if (!curve_.AppendKnot(knot)) {
                return finding("Knots", "room for the knots", "no memory");
            }
        }
        return std::nullopt;
    }

    std::optional<Finding> draw() {
        if (has("Fit") && !curve_.CreateCtrl()) {
            return finding("Fit",
                           "points that a curve of degree " + std::to_string(curve_.degree()) + " passes through",
                           counted(static_cast<std::size_t>(curve_.GetFitSize()), "point") + " without a solution");
        }
        const std::size_t segments =
            static_cast<std::size_t>(curve_.ctrl_count()) * static_cast<std::size_t>(divisions_);
        if (segments > kMostSegments) {
            return finding(kind_, "at most " + std::to_string(kMostSegments) + " segments", std::to_string(segments));
        }
        if (!curve_.CreateLines(divisions_)) {
            return finding("Weights", "weights that do not add up to 0 along the curve", "such a sum");
        }
        if (curve_.GetLineSize() == 0) {
            return finding("Knots", "knots more than 1e-8 apart, --divisions counted", "closer ones");
        }
        return std::nullopt;
    }

    const CLexTokenBlock& block_;
    const Places& places_;
    int divisions_;
    DrawnCurve& curve_;
    const char* kind_ = "Points";  // or "Fit"
    std::map<std::string, Entry> entries_;
};

}  // namespace

bool read_curves(const std::string& path, int divisions, CurveFile& file) {
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
        const std::optional<Finding> trouble = CurveReader(entry, places, divisions, file.curves.emplace_back()).read();
        if (trouble) {
            report(path, *trouble);
            return false;
        }
    }
    if (file.curves.empty()) {
        fail(path + " holds no curve");
    }
    return !file.curves.empty();
}

}  // namespace orvil_host
