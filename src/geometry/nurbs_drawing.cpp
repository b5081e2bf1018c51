#include "geometry/nurbs_drawing.h"

#include <algorithm>

#include "geometry/filled_array.h"
#include "geometry/lanes.h"
#include "geometry/nurbs_evaluators.h"

namespace orvil::detail {
namespace {

// Makes the segments that are missing among some of them; the first of these, or null when memory runs out.
[[gnu::noinline]] C3DLine* const* make_segments(CExtArray<C3DLine>& lines, int from, int to) {
    return fill_slots(lines, from, to) ? lines.Slots() + from : nullptr;
}

// Joins each position to the one before, in the segments of an array that has slots for all.
class SegmentChain {
public:
    explicit SegmentChain(CExtArray<C3DLine>& lines) : lines_(lines) {}

    void begin(const Position& position) { last_ = position; }

    // Returns false when memory runs out.
    bool add(const Position& next) {
        if (next_ == end_ && !make_more()) {
            return false;
        }
        C3DLine& segment = **next_++;
        place(segment.start, last_);
        place(segment.end, next);
        last_ = next;
        return true;
    }

private:
    // A curve that cannot be drawn to its end takes memory for some segments only, however many it would have.
    static constexpr int kMadeAtOnce = 4096;

    bool make_more() {
        const int count = (std::min)(kMadeAtOnce, lines_.GetSize() - made_);
        next_ = make_segments(lines_, made_, made_ + count);
        if (next_ == nullptr) {
            return false;
        }
        end_ = next_ + count;
        made_ += count;
        return true;
    }

    static void place(C3DPoint& point, const Position& position) {
        point.x = position.x;
        point.y = position.y;
        point.z = position.z;
    }

    CExtArray<C3DLine>& lines_;
    int made_ = 0;
    C3DLine* const* next_ = nullptr;
    C3DLine* const* end_ = nullptr;
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
            if (!chain.add(positions[lane])) {
                return false;
            }
        }
    }
    return evaluator.at_knot(curve.span_end(span), positions[0]) && chain.add(positions[0]);
}

template <typename Evaluator>
[[gnu::always_inline]] inline bool draw(const Curve& curve, int divisions, CExtArray<C3DLine>& lines) {
    Evaluator evaluator(curve);
    if (!evaluator.prepare()) {
        return false;
    }
    SegmentChain chain(lines);
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

bool draw_any(const Curve& curve, int divisions, CExtArray<C3DLine>& lines) {
    return draw<FullEvaluator>(curve, divisions, lines);
}

template <int Degree>
[[gnu::flatten]] bool draw_by_twos(const Curve& curve, int divisions, CExtArray<C3DLine>& lines) {
    return draw<SpanEvaluator<Degree, Pair>>(curve, divisions, lines);
}

template <int Degree>
[[gnu::target("avx"), gnu::flatten]] bool draw_by_fours(const Curve& curve, int divisions, CExtArray<C3DLine>& lines) {
    return draw<SpanEvaluator<Degree, Quad>>(curve, divisions, lines);
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
