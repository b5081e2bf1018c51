#include "geometry/nurbs_drawing.h"

#include "geometry/lanes.h"
#include "geometry/nurbs_evaluators.h"

namespace orvil::detail {
namespace {

// Joins each position to the one before, in segments that are there.
class SegmentChain {
public:
    explicit SegmentChain(C3DLine* const* segments) : next_(segments) {}

    void begin(const Position& position) { last_ = position; }

    void add(const Position& next) {
        C3DLine& segment = **next_++;
        place(segment.start, last_);
        place(segment.end, next);
        last_ = next;
    }

private:
    static void place(C3DPoint& point, const Position& position) {
        point.x = position.x;
        point.y = position.y;
        point.z = position.z;
    }

    C3DLine* const* next_;
    Position last_{};
};

// The samples inside of a span are taken several at once; what is left of the last ones is the last again.
template <typename Evaluator>
[[gnu::always_inline]] inline bool draw_span(const Curve& curve, int span, double step, int divisions,
                                             Evaluator& evaluator, SegmentChain& chain) {
    using Lanes = typename Evaluator::Lanes;
    const double from = curve.knot(span);
    Position positions[kLanes<Lanes>];
    for (int s = 1; s < divisions; s += kLanes<Lanes>) {
        const Lanes numbers = s + kLaneNumbers<Lanes>;
        const Lanes last = Lanes{} + (divisions - 1);
        if (!evaluator.at(from + (numbers < last ? numbers : last) * step, positions)) {
            return false;
        }
        for (int lane = 0; lane < kLanes<Lanes> && s + lane < divisions; ++lane) {
            chain.add(positions[lane]);
        }
    }
    if (!evaluator.at_knot(curve.span_end(span), positions[0])) {
        return false;
    }
    chain.add(positions[0]);
    return true;
}

template <typename Evaluator>
[[gnu::always_inline]] inline bool draw(const Curve& curve, int divisions, C3DLine* const* segments) {
    Evaluator evaluator(curve);
    if (!evaluator.prepare()) {
        return false;
    }
    SegmentChain chain(segments);
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

bool draw_any(const Curve& curve, int divisions, C3DLine* const* segments) {
    return draw<FullEvaluator>(curve, divisions, segments);
}

template <int Degree>
[[gnu::flatten]] bool draw_by_twos(const Curve& curve, int divisions, C3DLine* const* segments) {
    return draw<SpanEvaluator<Degree, Pair>>(curve, divisions, segments);
}

template <int Degree>
[[gnu::target("avx"), gnu::flatten]] bool draw_by_fours(const Curve& curve, int divisions, C3DLine* const* segments) {
    return draw<SpanEvaluator<Degree, Quad>>(curve, divisions, segments);
}

constexpr Draw kDrawByTwos[] = {draw_by_twos<1>, draw_by_twos<2>, draw_by_twos<3>, draw_by_twos<4>,
                                draw_by_twos<5>, draw_by_twos<6>, draw_by_twos<7>};
constexpr Draw kDrawByFours[] = {draw_by_fours<1>, draw_by_fours<2>, draw_by_fours<3>, draw_by_fours<4>,
                                 draw_by_fours<5>, draw_by_fours<6>, draw_by_fours<7>};

}  // namespace

Draw drawing_by_twos(int degree) {
    return kDrawByTwos[degree - kLowestDegree];
}

Draw drawing_by_fours(int degree) {
    return __builtin_cpu_supports("avx") != 0 ? kDrawByFours[degree - kLowestDegree] : nullptr;
}

Draw choose_drawing(const Curve& curve) {
    if (!has_single_spans(curve)) {
        return draw_any;
    }
    const Draw by_fours = drawing_by_fours(curve.degree);
    return by_fours != nullptr ? by_fours : drawing_by_twos(curve.degree);
}

}  // namespace orvil::detail
