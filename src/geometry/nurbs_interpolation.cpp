// A curve through given points.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "geometry/band_system.h"
#include "geometry/nurbs_basis.h"
#include "geometry/nurbs_limits.h"
#include "geometry/scratch_array.h"
#include "orvil/geometry/nurbs.h"

namespace orvil::detail {
namespace {

// One equation: the values are the coefficients of `count` neighbouring control points.
struct Equation {
    int first;
    int count;
    double values[kMostFunctions];
};

// The equations of n fit points for n + 2 control points: one for each fit point and one for each end.
class FitSystem {
public:
    FitSystem(const CExtArray<double>& knots, const CExtArray<CNurbsFitPoint>& fits, int degree)
        : degree_(degree), fit_count_(fits.GetSize()), size_(fit_count_ + 2), knot_array_(knots), fit_array_(fits) {}

    // Returns false when memory runs out, the equations have no solution, or the curve would miss a point.
    bool solve() {
        if (!gather()) {
            return false;
        }
        make_equations();
        return fill_band() && band_.solve() && meets_points();
    }

    const Triple& control_point(int i) const { return band_.solution(i); }

private:
    Equation& equation(int row) { return equations_[static_cast<std::size_t>(row)]; }
    double knot(int i) const { return knots_[static_cast<std::size_t>(i)]; }
    const Triple& fit(int j) const { return fits_[static_cast<std::size_t>(j)]; }

    bool gather();
    void make_equations();
    template <int Degree>
    void make_inner_equations();
    bool fill_band();
    bool meets_points() const;

    // The row of a fit point: the conditions of the ends stand second and second to last.
    int row_of(int j) const { return j == 0 ? 0 : j == fit_count_ - 1 ? size_ - 1 : j + 1; }

    int degree_;
    int fit_count_;
    int size_;
    const CExtArray<double>& knot_array_;
    const CExtArray<CNurbsFitPoint>& fit_array_;
    ScratchArray<double> knots_;
    ScratchArray<Triple> fits_;
    ScratchArray<Equation> equations_;
    BandSystem band_;
};

bool FitSystem::gather() {
    const int knot_count = knot_array_.GetSize();
    if (!knots_.allocate(static_cast<std::size_t>(knot_count)) ||
        !fits_.allocate(static_cast<std::size_t>(fit_count_)) ||
        !equations_.allocate(static_cast<std::size_t>(size_))) {
        return false;
    }
    for (int i = 0; i < knot_count; ++i) {
        knots_[static_cast<std::size_t>(i)] = *knot_array_.GetAt(i);
    }
    for (int j = 0; j < fit_count_; ++j) {
        const CNurbsFitPoint* fit = fit_array_.GetAt(j);
        if (fit == nullptr) {
            return false;
        }
        fits_[static_cast<std::size_t>(j)] = {fit->point.x, fit->point.y, fit->point.z};
    }
    return true;
}

// The differences of three neighbouring control points, each divided by the knots that it spans, are equal.
Equation natural_end(int first, double span, double next_span) {
    return {first, 3, {1.0 / span, -1.0 / span - 1.0 / next_span, 1.0 / next_span}};
}

void FitSystem::make_equations() {
    const int n = fit_count_;
    const int d = degree_;
    equation(0) = {0, 1, {1.0}};
    equation(1) = natural_end(0, knot(d + 1) - knot(1), knot(d + 2) - knot(2));
    equation(size_ - 2) = natural_end(n - 1, knot(n + d) - knot(n), knot(n + d + 1) - knot(n + 1));
    equation(size_ - 1) = {size_ - 1, 1, {1.0}};
    using Make = void (FitSystem::*)();
    constexpr Make kMakeByDegree[] = {&FitSystem::make_inner_equations<1>, &FitSystem::make_inner_equations<2>,
                                      &FitSystem::make_inner_equations<3>, &FitSystem::make_inner_equations<4>,
                                      &FitSystem::make_inner_equations<5>, &FitSystem::make_inner_equations<6>,
                                      &FitSystem::make_inner_equations<7>};
    (this->*kMakeByDegree[d - 1])();
}

// The span that begins at the integer i is number i + degree, and i is the first control point that counts in it.
template <int Degree>
void FitSystem::make_inner_equations() {
    const double last = knot(size_);
    SpanBasis<Degree> basis(knots_.data() + Degree);
    int entered = 0;
    for (int j = 1; j < fit_count_ - 1; ++j) {
        const double t = j * last / (fit_count_ - 1);
        const int first = static_cast<int>((std::min)(t, last - 1));
        if (first != entered) {
            basis.enter(knots_.data() + first + Degree);
            entered = first;
        }
        Equation& made = equation(row_of(j));
        basis.evaluate(t, made.values);
        made.first = first;
        made.count = made.values[Degree] != 0 ? Degree + 1 : Degree;  // at a knot the last function is 0
    }
}

bool FitSystem::fill_band() {
    int below = 0;
    int above = 0;
    for (int row = 0; row < size_; ++row) {
        below = (std::max)(below, row - equation(row).first);
        above = (std::max)(above, equation(row).first + equation(row).count - 1 - row);
    }
    if (!band_.allocate(size_, below, above)) {
        return false;
    }
    for (int row = 0; row < size_; ++row) {
        for (int i = 0; i < equation(row).count; ++i) {
            band_.set(row, equation(row).first + i, equation(row).values[i]);
        }
    }
    for (int j = 0; j < fit_count_; ++j) {
        band_.set_right_side(row_of(j), fit(j));
    }
    return true;
}

double largest_of(const Triple& triple) {
    return (std::max)({std::fabs(triple.x), std::fabs(triple.y), std::fabs(triple.z)});
}

// What is not finite compares false.
bool FitSystem::meets_points() const {
    double size = 0;
    for (int j = 0; j < fit_count_; ++j) {
        size = (std::max)(size, largest_of(fit(j)));
    }
    for (int j = 0; j < fit_count_; ++j) {
        const Equation& equation = equations_[static_cast<std::size_t>(row_of(j))];
        Triple miss = fit(j);
        for (int i = 0; i < equation.count; ++i) {
            const Triple& point = control_point(equation.first + i);
            miss.x -= equation.values[i] * point.x;
            miss.y -= equation.values[i] * point.y;
            miss.z -= equation.values[i] * point.z;
        }
        const double allowed = kFitTolerance * size;
        if (!(std::fabs(miss.x) <= allowed && std::fabs(miss.y) <= allowed && std::fabs(miss.z) <= allowed)) {
            return false;
        }
    }
    return true;
}

bool append_points(const FitSystem& system, int count, CExtArray<CNurbsCtrlPoint>& points) {
    CNurbsCtrlPoint point;
    for (int i = 0; i < count; ++i) {
        const Triple& from = system.control_point(i);
        point.point.SetData(from.x, from.y, from.z);
        if (!points.Add(point)) {
            return false;
        }
    }
    return true;
}

}  // namespace
}  // namespace orvil::detail

bool CCalcNurbs::CreateCtrl() {
    using namespace orvil::detail;
    ClearCtrl();
    ClearKnot();
    const int n = fit_points_.GetSize();
    if (dimension_ < kLowestDegree || dimension_ > kHighestDegree || n < 2 || n < dimension_ - 1) {
        return false;
    }
    if (!MakeKnotVector(dimension_ + 1, n + 2, KnotFormClamped)) {
        return false;
    }
    FitSystem system(knots_, fit_points_, dimension_);
    if (!system.solve() || !append_points(system, n + 2, ctrl_points_)) {
        ClearCtrl();
        ClearKnot();
        return false;
    }
    return true;
}
