// Basis functions of B-splines by the triangular scheme: each level is computed from the one before, with the
// recursion's own operations in its own order, so that every value is the recursion's to the last bit.
#pragma once

#include <bit>
#include <cstdint>

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
        Part* part = parts_;
        for (int level = 1; level <= Degree; ++level) {
            for (int i = 1 - level; i <= 0; ++i) {
                *part++ = part_between(knots[i], knots[i + level]);
            }
        }
    }

    // Fills `values`, of which there are Degree + 1, for a parameter that lies in the span, or for several of them.
    template <typename Number>
    [[gnu::always_inline]] void evaluate(const Number& t, Number* values) const {
        const Part* part = parts_;
        values[Degree] = Number{} + 1.0;
        for (int level = 1; level <= Degree; ++level) {
            Number* value = values + (Degree - level);
            Number rising{};  // the first term, which comes from the function before
            for (int i = 0; i < level; ++i, ++part) {
                const Number below = value[i + 1];
                value[i] = rising + part->of_width(part->to - t) * below;
                rising = part->of_width(t - part->from) * below;
            }
            value[level] = rising;
        }
    }

private:
    // The knots that a function lies between, which makes one term of each of the two functions above it.
    struct Part {
        double from;
        double to;
        double factor;    // the width, or what makes the same bits when it is multiplied with
        bool multiplies;  // whether it is that

        template <typename Number>
        [[gnu::always_inline]] Number of_width(const Number& distance) const {
            return multiplies ? distance * factor : distance / factor;
        }
    };

    // Multiplying takes less time than dividing. It gives the same bits where the width is a power of two, as it often
    // is; and a term over less than the tolerance is 0.
    static Part part_between(double from, double to) {
        const double width = to - from;
        if (width < kKnotTolerance) {
            return {from, to, 0.0, true};
        }
        constexpr std::uint64_t kFraction = (std::uint64_t{1} << 52) - 1;
        const bool is_power_of_two = (std::bit_cast<std::uint64_t>(width) & kFraction) == 0;
        return {from, to, is_power_of_two ? 1.0 / width : width, is_power_of_two};
    }

    Part parts_[kHighestDegree * (kHighestDegree + 1) / 2];
};

}  // namespace orvil::detail
