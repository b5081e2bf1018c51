// Basis functions of B-splines by the triangular scheme: each level is computed from the one before, with the
// recursion's own operations in its own order, so that every value is the recursion's to the last bit.
#pragma once

#include "geometry/nurbs_limits.h"

namespace orvil::detail {

// Room for the basis functions that are not 0 at a parameter, one more than the degree.
inline constexpr int kMostFunctions = kHighestDegree + 1;

// All functions of order `order` over `knots`, of which there are count + order. `values` has room for count + order -
// 1 and receives count. The knots may be anything.
void all_basis_functions(const double* knots, int order, int count, double t, double* values);

// Two doubles that are computed with at once; each gets what it would get alone.
using Pair = double __attribute__((vector_size(16)));

// The functions of order Degree + 1 that are not 0 in one span of knots that do not decrease: those with the indices
// span - Degree to span. What depends on the span alone is computed once for it.
template <int Degree>
class SpanBasis {
public:
    // `knots` points at the knot that begins the span; at least Degree - 1 knots stand before it, and Degree behind it.
    explicit SpanBasis(const double* knots) { enter(knots); }

    // Goes on to another span.
    void enter(const double* knots) {
        Part* part = parts_;
        for (int level = 1; level <= Degree; ++level) {
            for (int i = 1 - level; i <= 0; ++i) {
                const double width = knots[i + level] - knots[i];
                // A term over less than the tolerance is 0; so is a finite number over infinity.
                const double divisor = width < kKnotTolerance ? __builtin_huge_val() : width;
                part->offset = Pair{-knots[i], knots[i + level]};
                part->divisor = Pair{divisor, divisor};
                ++part;
            }
        }
    }

    // Fills `values`, of which there are Degree + 1, for a parameter that lies in the span.
    void evaluate(double t, double* values) const {
        const Pair parameter{t, -t};
        const Part* part = parts_;
        values[Degree] = 1.0;
        for (int level = 1; level <= Degree; ++level) {
            double* value = values + (Degree - level);
            double rising = 0.0;  // the first term, which comes from the function before
            for (int i = 0; i < level; ++i, ++part) {
                const Pair terms = (parameter + part->offset) / part->divisor * value[i + 1];
                value[i] = rising + terms[1];
                rising = terms[0];
            }
            value[level] = rising;
        }
    }

private:
    // What makes two terms of a function: (t - u[i]) / width for the one of the same index above it, (u[i + level] - t)
    // / width for the one before.
    struct Part {
        Pair offset;
        Pair divisor;
    };

    Part parts_[kHighestDegree * (kHighestDegree + 1) / 2];
};

}  // namespace orvil::detail
