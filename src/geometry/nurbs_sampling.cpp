// A curve evaluated into segments.
#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <new>
#include <type_traits>

#include "geometry/array_rewriter.h"
#include "geometry/nurbs_basis.h"
#include "geometry/nurbs_limits.h"
#include "geometry/scratch_array.h"
#include "orvil/geometry/nurbs.h"

namespace orvil::detail {
namespace {

// More segments than this fit into no array.
constexpr std::int64_t kMostSegments = INT32_MAX - 17;

struct WeightedPoint {
    double x, y, z, weight;
};

struct Position {
    double x, y, z;
};

bool is_finite(double value) {
    return std::fabs(value) <= DBL_MAX;
}

bool is_same_knot(double left, double right) {
    return std::fabs(left - right) < kKnotTolerance;
}

// What a curve is evaluated from, in plain arrays, and the spans that are drawn: first_span up to end_span.
struct Curve {
    int degree = 0;
    int count = 0;       // control points
    int knot_count = 0;  // those that are there; behind them stand zeros for those that control points need
    ScratchArray<double> knots;
    ScratchArray<WeightedPoint> points;
    int first_span = 0;
    int end_span = 0;
    double last_parameter = 0;
    bool is_end_clamped = false;

    double knot(int i) const { return knots[static_cast<std::size_t>(i)]; }
    double span_end(int span) const { return span == end_span - 1 ? last_parameter : knot(span + 1); }
    double step(int span, int divisions) const { return (span_end(span) - knot(span)) / divisions; }
};

// A step that is no number is taken, for its samples to be refused.
bool is_drawn(double step) {
    return !(step < kKnotTolerance);
}

bool gather_knots(const CExtArray<double>& knots, Curve& curve) {
    const int needed = curve.count + curve.degree + 2;
    curve.knot_count = knots.GetSize();
    if (!curve.knots.allocate(static_cast<std::size_t>((std::max)(needed, curve.knot_count)))) {
        return false;
    }
    for (int i = 0; i < curve.knot_count; ++i) {
        if (const double* knot = knots.GetAt(i)) {
            curve.knots[static_cast<std::size_t>(i)] = *knot;
        }
    }
    return true;
}

bool gather_points(const CExtArray<CNurbsCtrlPoint>& points, Curve& curve) {
    if (!curve.points.allocate(static_cast<std::size_t>(curve.count))) {
        return false;
    }
    for (int i = 0; i < curve.count; ++i) {
        if (const CNurbsCtrlPoint* from = points.GetAt(i)) {
            curve.points[static_cast<std::size_t>(i)] = {from->point.x, from->point.y, from->point.z, from->weight};
        }
    }
    return true;
}

// The first span of those that may be drawn that begins at t, or has t inside; the number behind the last if there is
// none.
int find_span_with(const Curve& curve, double t) {
    for (int j = curve.degree; j <= curve.count; ++j) {
        const double from = curve.knot(j);
        const double to = curve.knot(j + 1);
        if (is_same_knot(from, t) || (from < t && t < to && !is_same_knot(to, t))) {
            return j;
        }
    }
    return curve.count + 1;
}

int find_knot(const Curve& curve, double t) {
    for (int j = curve.degree; j <= curve.count; ++j) {
        if (is_same_knot(curve.knot(j), t)) {
            return j;
        }
    }
    return -1;
}

// Whether all knots from one on are the same number.
bool stays_equal(const Curve& curve, int from) {
    for (int i = from; i + 1 < curve.knot_count; ++i) {
        if (curve.knot(i) != curve.knot(i + 1)) {
            return false;
        }
    }
    return true;
}

// Sets the spans to draw. Returns whether there are any.
bool find_spans(Curve& curve) {
    curve.last_parameter = curve.knot_count > 0 ? curve.knot(curve.knot_count - 1) : 0.0;
    curve.first_span = find_span_with(curve, curve.knot(0));
    curve.end_span = find_knot(curve, curve.last_parameter);
    curve.is_end_clamped = stays_equal(curve, (std::max)(curve.end_span, 0));
    return curve.first_span < curve.end_span;
}

std::int64_t count_segments(const Curve& curve, int divisions) {
    std::int64_t spans = 0;
    for (int span = curve.first_span; span < curve.end_span; ++span) {
        spans += is_drawn(curve.step(span, divisions)) ? 1 : 0;
    }
    return spans * divisions;
}

bool has_finite_points(const Curve& curve) {
    const WeightedPoint* points = curve.points.data();
    return std::all_of(points, points + curve.count, [](const WeightedPoint& point) {
        return is_finite(point.x) && is_finite(point.y) && is_finite(point.z) && is_finite(point.weight);
    });
}

// Whether each parameter lies in one span only, so that all but degree + 1 basis functions are 0: the knots that
// control points need are all there, none decreases, and their differences are finite.
bool has_single_spans(const Curve& curve) {
    const int needed = curve.count + curve.degree + 1;
    if (curve.knot_count < needed || !is_finite(curve.last_parameter - curve.knot(0))) {
        return false;
    }
    for (int i = 1; i < curve.knot_count; ++i) {
        if (!(curve.knot(i - 1) <= curve.knot(i))) {
            return false;
        }
    }
    return true;
}

// The rational combination of points, for one parameter or for two.
template <typename Number>
struct Combination {
    Number x{};
    Number y{};
    Number z{};
    Number sum{};

    void add(Number basis, const WeightedPoint& point) {
        const Number part = basis * point.weight;
        x += part * point.x;
        y += part * point.y;
        z += part * point.z;
        sum += part;
    }

    void divide() {
        x /= sum;
        y /= sum;
        z /= sum;
    }

    // 0 when all is finite. What is not, as all that has been divided by 0, is not 0 when it is taken from itself.
    Number zero_if_finite() const { return (x - x) + (y - y) + (z - z) + (sum - sum); }
};

// Returns false when the weighted sum is 0 or anything is not finite.
template <typename Count>
bool combine(const double* basis, const WeightedPoint* points, Count count, Position& position) {
    Combination<double> combination;
    for (int i = 0; i < count; ++i) {
        combination.add(basis[i], points[i]);
    }
    combination.divide();
    position = {combination.x, combination.y, combination.z};
    return combination.zero_if_finite() == 0;
}

// The same for two parameters.
template <typename Count>
[[gnu::always_inline]] inline bool combine(const Pair* basis, const WeightedPoint* points, Count count,
                                           Position (&positions)[2]) {
    Combination<Pair> combination;
    for (int i = 0; i < count; ++i) {
        combination.add(basis[i], points[i]);
    }
    combination.divide();
    for (int lane : {0, 1}) {
        positions[lane] = {combination.x[lane], combination.y[lane], combination.z[lane]};
    }
    const Pair zeros = combination.zero_if_finite();
    return zeros[0] + zeros[1] == 0;
}

// Where one point alone counts the curve is there exactly, without what multiplying and dividing would round.
bool at_point(const WeightedPoint& point, Position& position) {
    position = {point.x, point.y, point.z};
    return point.weight != 0;
}

// Evaluates a curve whose parameters lie in one span each. They must not decrease from call to call.
template <int Degree>
class SpanEvaluator {
public:
    explicit SpanEvaluator(const Curve& curve)
        : curve_(curve), span_(curve.first_span), basis_(curve.knots.data() + span_) {
        enter();
    }

    bool prepare() { return true; }

    // Two parameters inside of a span, which may be the same. Rounding may lead to its end.
    bool at(const Pair& t, Position (&positions)[2]) {
        if (t[1] >= behind_) {
            return at_one(t[0], positions[0]) && at_one(t[1], positions[1]);
        }
        Pair values[kMostFunctions];
        basis_.evaluate(t, values);
        return combine(values, points_, Functions(), positions);
    }

    // At a knot, which begins a span or ends the curve.
    bool at_knot(double t, Position& position) {
        if (t == curve_.last_parameter && curve_.is_end_clamped) {
            return at_point(curve_.points[static_cast<std::size_t>(curve_.count) - 1], position);
        }
        if (!reach(t)) {
            return false;
        }
        if (has_corner_) {
            return at_point(*points_, position);
        }
        double values[kMostFunctions];
        basis_.evaluate(t, values);
        return combine(values, points_, Functions(), position);
    }

private:
    bool at_one(double t, Position& position) {
        if (t >= behind_) {
            return at_knot(t, position);
        }
        double values[kMostFunctions];
        basis_.evaluate(t, values);
        return combine(values, points_, Functions(), position);
    }

    using Functions = std::integral_constant<int, Degree + 1>;

    void enter() {
        basis_.enter(curve_.knots.data() + span_);
        points_ = curve_.points.data() + span_ - Degree;
        behind_ = curve_.knot(span_ + 1);
        has_corner_ =
            curve_.knot(span_ - Degree + 1) == curve_.knot(span_) && !is_same_knot(curve_.knot(span_), behind_);
    }

    // Enters the span that begins at the knot t. Returns false behind the last span, where every function is 0.
    bool reach(double t) {
        if (t < behind_) {
            return true;
        }
        do {
            if (++span_ >= curve_.end_span) {
                return false;
            }
        } while (t >= curve_.knot(span_ + 1));
        enter();
        return true;
    }

    const Curve& curve_;
    int span_;
    SpanBasis<Degree> basis_;
    const WeightedPoint* points_ = nullptr;  // the first that counts in the span
    double behind_ = 0;                      // where the span ends
    bool has_corner_ = false;                // whether that point alone counts where the span begins
};

// Evaluates a curve over any knots, from all of its basis functions.
class FullEvaluator {
public:
    explicit FullEvaluator(const Curve& curve) : curve_(curve) {}

    bool prepare() {
        return values_.allocate(static_cast<std::size_t>(curve_.count) + static_cast<std::size_t>(curve_.degree));
    }

    bool at(const Pair& t, Position (&positions)[2]) {
        return at_one(t[0], positions[0]) && at_one(t[1], positions[1]);
    }

    bool at_knot(double t, Position& position) {
        evaluate(t);
        if (t == curve_.last_parameter && curve_.is_end_clamped) {
            values_[static_cast<std::size_t>(curve_.count) - 1] = 1.0;
        }
        const int only = only_function();
        return only < 0 ? combine(values_.data(), curve_.points.data(), curve_.count, position)
                        : at_point(curve_.points[static_cast<std::size_t>(only)], position);
    }

private:
    bool at_one(double t, Position& position) {
        if (t == curve_.last_parameter) {
            return at_knot(t, position);
        }
        evaluate(t);
        return combine(values_.data(), curve_.points.data(), curve_.count, position);
    }

    // The number of the function that is not 0 when all others are; -1 when there are more, or none, or it is not
    // finite.
    int only_function() const {
        int only = -1;
        for (int i = 0; i < curve_.count; ++i) {
            const double value = values_[static_cast<std::size_t>(i)];
            if (value != 0 && (only >= 0 || !is_finite(value))) {
                return -1;
            }
            only = value != 0 ? i : only;
        }
        return only;
    }

    void evaluate(double t) {
        all_basis_functions(curve_.knots.data(), curve_.degree + 1, curve_.count, t, values_.data());
    }

    const Curve& curve_;
    ScratchArray<double> values_;
};

// Joins each position to the one before.
class SegmentChain {
public:
    explicit SegmentChain(CExtArray<C3DLine>& lines) : lines_(lines) {}

    void begin(const Position& position) { last_ = position; }

    bool add(const Position& next) {
        C3DLine* line = lines_.next();
        if (line == nullptr) {
            return false;
        }
        place(line->start, last_);
        place(line->end, next);
        last_ = next;
        return true;
    }

    void finish() { lines_.finish(); }

private:
    static void place(C3DPoint& point, const Position& position) {
        point.x = position.x;
        point.y = position.y;
        point.z = position.z;
    }

    ArrayRewriter<C3DLine> lines_;
    Position last_{};
};

// The samples inside of a span are taken by twos; an odd one at the end twice.
template <typename Evaluator>
bool draw_span(const Curve& curve, int span, double step, int divisions, Evaluator& evaluator, SegmentChain& chain) {
    const double from = curve.knot(span);
    Position positions[2];
    for (int s = 1; s < divisions; s += 2) {
        const bool is_odd = s + 1 == divisions;
        const Pair t{from + s * step, from + (is_odd ? s : s + 1) * step};
        if (!evaluator.at(t, positions) || !chain.add(positions[0]) || !(is_odd || chain.add(positions[1]))) {
            return false;
        }
    }
    return evaluator.at_knot(curve.span_end(span), positions[0]) && chain.add(positions[0]);
}

template <typename Evaluator>
bool draw(const Curve& curve, int divisions, SegmentChain& chain) {
    Evaluator evaluator(curve);
    if (!evaluator.prepare()) {
        return false;
    }
    bool has_begun = false;
    for (int span = curve.first_span; span < curve.end_span; ++span) {
        const double step = curve.step(span, divisions);
        if (!is_drawn(step)) {
            continue;
        }
        if (!has_begun) {
            Position start;
            if (!evaluator.at_knot(curve.knot(span), start)) {
                return false;
            }
            chain.begin(start);
            has_begun = true;
        }
        if (!draw_span(curve, span, step, divisions, evaluator, chain)) {
            return false;
        }
    }
    return true;
}

using Draw = bool (*)(const Curve& curve, int divisions, SegmentChain& chain);
constexpr Draw kDrawByDegree[] = {draw<SpanEvaluator<1>>, draw<SpanEvaluator<2>>, draw<SpanEvaluator<3>>,
                                  draw<SpanEvaluator<4>>, draw<SpanEvaluator<5>>, draw<SpanEvaluator<6>>,
                                  draw<SpanEvaluator<7>>};

bool draw_curve(const Curve& curve, int divisions, CExtArray<C3DLine>& lines) {
    if (count_segments(curve, divisions) > kMostSegments || !has_finite_points(curve)) {
        return false;
    }
    SegmentChain chain(lines);
    const Draw draw_spans = has_single_spans(curve) ? kDrawByDegree[curve.degree - 1] : draw<FullEvaluator>;
    if (!draw_spans(curve, divisions, chain)) {
        return false;
    }
    chain.finish();
    return true;
}

// Sets whether there is anything to draw.
bool gather(const CExtArray<double>& knots, const CExtArray<CNurbsCtrlPoint>& points, int divisions, Curve& curve,
            bool& is_empty) {
    curve.count = points.GetSize();
    if (!gather_knots(knots, curve) || !gather_points(points, curve)) {
        return false;
    }
    is_empty = !find_spans(curve) || count_segments(curve, divisions) == 0;
    return true;
}

}  // namespace
}  // namespace orvil::detail

// Segments that are there are used again.
bool CCalcNurbs::CreateLines(int divisions) {
    using namespace orvil::detail;
    bool is_empty = divisions < 1;
    bool is_done = dimension_ >= kLowestDegree && dimension_ <= kHighestDegree;
    if (is_done && !is_empty) {
        Curve curve;
        curve.degree = dimension_;
        is_done = gather(knots_, ctrl_points_, divisions, curve, is_empty) &&
                  (is_empty || draw_curve(curve, divisions, lines_));
    }
    if (!is_done || is_empty) {
        ClearLine();
    }
    return is_done;
}
