// Knot vectors and basis functions.
#include "geometry/nurbs_basis.h"

#include <cmath>
#include <cstdint>

#include "geometry/array_rewriter.h"
#include "orvil/geometry/nurbs.h"

namespace orvil::detail {
namespace {

// One of the two terms of the recursion.
double term(double part, double width, double below) {
    return std::fabs(width) < kKnotTolerance ? 0.0 : part / width * below;
}

}  // namespace

void all_basis_functions(const double* knots, int order, int count, double t, double* values) {
    const int lowest_count = count + order - 1;
    for (int i = 0; i < lowest_count; ++i) {
        values[i] = knots[i] <= t && t < knots[i + 1] ? 1.0 : 0.0;
    }
    for (int k = 2; k <= order; ++k) {
        for (int i = 0; i <= lowest_count - k; ++i) {
            const double* u = knots + i;
            values[i] = term(t - u[0], u[k - 1] - u[0], values[i]) + term(u[k] - t, u[k] - u[1], values[i + 1]);
        }
    }
}

}  // namespace orvil::detail

namespace {

using KnotRewriter = orvil::detail::ArrayRewriter<double>;

bool append(KnotRewriter& knots, std::int64_t value) {
    double* knot = knots.next();
    if (knot == nullptr) {
        return false;
    }
    *knot = static_cast<double>(value);
    return true;
}

// The knots of one index, of which there may be two.
bool append_clamped(KnotRewriter& knots, std::int64_t order, std::int64_t count, std::int64_t i) {
    return (i >= order || append(knots, 0)) && (i < order || i >= count || append(knots, i - order + 1)) &&
           (i < count || append(knots, count - order + 1));
}

bool write_knots(KnotRewriter& knots, std::int64_t order, std::int64_t count, EKnotVectorForm form) {
    for (std::int64_t i = 0; i < order + count; ++i) {
        if (!(form == KnotFormUniform ? append(knots, i) : append_clamped(knots, order, count, i))) {
            return false;
        }
    }
    knots.finish();
    return true;
}

}  // namespace

double CCalcNurbs::GetSplineBase(int k, int i, double t) const {
    using orvil::detail::kHighestOrder;
    if (k < 1 || k > kHighestOrder) {
        return 0.0;
    }
    double knots[kHighestOrder + 1];
    double values[kHighestOrder];
    for (int j = 0; j <= k; ++j) {
        const std::int64_t index = std::int64_t{i} + j;
        knots[j] = index > INT32_MAX ? 0.0 : GetKnot(static_cast<int>(index));
    }
    orvil::detail::all_basis_functions(knots, k, 1, t, values);
    return values[0];
}

// Knots that are there are used again.
bool CCalcNurbs::MakeKnotVector(int order, int count, EKnotVectorForm form) {
    KnotRewriter knots(knots_);
    if ((form == KnotFormClamped || form == KnotFormUniform) && write_knots(knots, order, count, form)) {
        return true;
    }
    ClearKnot();
    return false;
}
