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

// The functions of order Degree + 1 that are not 0 in one span of knots that do not decrease: those with the indices
// span - Degree to span. What depends on the span alone is computed once for it.
template <int Degree>
class SpanBasis {
public:
    // `knots` points at the knot that begins the span; at least Degree - 1 knots stand before it, and Degree behind it.
    explicit SpanBasis(const double* knots) { enter(knots); }

    // Goes on to another span.
    void enter(const double* knots) {
        double* divisor = divisors_;
        for (int level = 1; level <= Degree; ++level) {
            for (int i = 1 - level; i <= 0; ++i) {
                const double width = knots[i + level] - knots[i];
                // A term over no more than the tolerance is 0; so is a finite number over infinity.
                *divisor++ = width < kKnotTolerance ? kInfinity : width;
            }
        }
        for (int i = 0; i < Degree; ++i) {
            left_[i] = knots[i + 1 - Degree];
            right_[i] = knots[i + 1];
        }
    }

    // Fills `values`, of which there are Degree + 1, for a parameter that lies in the span.
    void evaluate(double t, double* values) const {
        double rises[kHighestDegree];
        double falls[kHighestDegree];
        for (int i = 0; i < Degree; ++i) {
            rises[i] = t - left_[i];
            falls[i] = right_[i] - t;
        }
        values[Degree] = 1.0;
        const double* divisor = divisors_;
        for (int level = 1; level <= Degree; ++level) {
            double* value = values + (Degree - level);
            double carried = 0.0;  // the rising term of the function before, which is 0 for the first
            for (int i = 0; i < level; ++i) {
                const double below = value[i + 1];
                value[i] = carried + falls[i] / divisor[i] * below;
                carried = rises[Degree - level + i] / divisor[i] * below;
            }
            value[level] = carried;
            divisor += level;
        }
    }

private:
    static constexpr double kInfinity = __builtin_huge_val();

    double divisors_[kHighestDegree * (kHighestDegree + 1) / 2];
    double left_[kHighestDegree];
    double right_[kHighestDegree];
};

}  // namespace orvil::detail
