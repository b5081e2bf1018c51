// Knot vectors and basis functions.
#include "geometry/nurbs_basis.h"

#include <cmath>
#include <cstdint>

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

// The value of a knot vector at an index; the clamped form may have two.
bool append_clamped(CExtArray<double>& knots, std::int64_t order, std::int64_t count, std::int64_t i) {
    const auto last = static_cast<double>(count - order + 1);
    return (i >= order || knots.Add(0.0)) &&
           (i < order || i >= count || knots.Add(static_cast<double>(i - order + 1))) && (i < count || knots.Add(last));
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

bool CCalcNurbs::MakeKnotVector(int order, int count, EKnotVectorForm form) {
    ClearKnot();
    if (form != KnotFormClamped && form != KnotFormUniform) {
        return false;
    }
    const std::int64_t indices = std::int64_t{order} + count;
    for (std::int64_t i = 0; i < indices; ++i) {
        const bool appended =
            form == KnotFormUniform ? knots_.Add(static_cast<double>(i)) : append_clamped(knots_, order, count, i);
        if (!appended) {
            ClearKnot();
            return false;
        }
    }
    return true;
}
