// The points of a curve by parameter: rational combinations of control points.
#pragma once

#include <cstddef>
#include <type_traits>

#include "geometry/lanes.h"
#include "geometry/nurbs_basis.h"
#include "geometry/nurbs_curve.h"
#include "geometry/scratch_array.h"

namespace orvil::detail {

struct Position {
    double x, y, z;
};

// The rational combination of points, for one parameter or for several.
template <typename Number>
struct Combination {
    Number x{};
    Number y{};
    Number z{};
    Number sum{};

    [[gnu::always_inline]] void add(const Number& basis, const WeightedPoint& point) {
        const Number part = basis * point.weight;
        x += part * point.x;
        y += part * point.y;
        z += part * point.z;
        sum += part;
    }

    [[gnu::always_inline]] void divide() {
        x /= sum;
        y /= sum;
        z /= sum;
    }

    // 0 when all is finite. What is not, as all that has been divided by 0, is not 0 when it is taken from itself.
    [[gnu::always_inline]] Number zero_if_finite() const { return (x - x) + (y - y) + (z - z) + (sum - sum); }
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

// The same for as many parameters as there are positions.
template <typename Lanes, typename Count>
[[gnu::always_inline]] inline bool combine(const Lanes* basis, const WeightedPoint* points, Count count,
                                           Position (&positions)[kLanes<Lanes>]) {
    Combination<Lanes> combination;
    for (int i = 0; i < count; ++i) {
        combination.add(basis[i], points[i]);
    }
    combination.divide();
    const Lanes zeros = combination.zero_if_finite();
    double zero = 0;
    for (int lane = 0; lane < kLanes<Lanes>; ++lane) {
        positions[lane] = {combination.x[lane], combination.y[lane], combination.z[lane]};
        zero += zeros[lane];
    }
    return zero == 0;
}

// Where one point alone counts the curve is there exactly, without what multiplying and dividing would round.
inline bool at_point(const WeightedPoint& point, Position& position) {
    position = {point.x, point.y, point.z};
    return point.weight != 0;
}

// Evaluates a curve whose parameters lie in one span each. They must not decrease from call to call.
template <int Degree, typename LanesOf>
class SpanEvaluator {
public:
    using Lanes = LanesOf;

    explicit SpanEvaluator(const Curve& curve)
        : curve_(curve), span_(curve.first_span), basis_(curve.knots.data() + span_) {
        enter();
    }

    bool prepare() { return true; }

    // Parameters inside of a span, which may be the same. Rounding may lead to its end.
    [[gnu::always_inline]] bool at(const Lanes& t, Position (&positions)[kLanes<Lanes>]) {
        if (t[kLanes<Lanes> - 1] >= behind_) {
            return at_each(t, positions);
        }
        Lanes values[kMostFunctions];
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
    bool at_each(const Lanes& t, Position (&positions)[kLanes<Lanes>]) {
        for (int lane = 0; lane < kLanes<Lanes>; ++lane) {
            if (!at_one(t[lane], positions[lane])) {
                return false;
            }
        }
        return true;
    }

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
    using Lanes = Pair;

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

}  // namespace orvil::detail
