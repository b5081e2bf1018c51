// A curve through given points.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <new>

#include "geometry/array_rewriter.h"
#include "geometry/band_system.h"
#include "geometry/nurbs_basis.h"
#include "geometry/nurbs_limits.h"
#include "geometry/scratch_array.h"
#include "orvil/geometry/nurbs.h"

namespace orvil::detail {
namespace {

// An equation of the end conditions: that the differences of three neighbouring control points, each divided by the
// knots that it spans, are equal.
struct NaturalEnd {
    NaturalEnd(double span, double next_span) : values{1.0 / span, -1.0 / span - 1.0 / next_span, 1.0 / next_span} {}

    double values[3];
};

// The equations of n fit points for n + 2 control points: one for each fit point and one for each end.
template <int Degree>
class FitSystem {
public:
    FitSystem(const CExtArray<double>& knots, const CExtArray<CNurbsFitPoint>& fits)
        : fit_count_(fits.GetSize()), size_(fit_count_ + 2), knot_array_(knots), fit_array_(fits) {}

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
    // The equation of an inner fit point: the basis functions that are not 0 at its parameter.
    struct Equation {
        double values[std::size_t{Degree} + 1];
        int first;  // the control point that the first value belongs to
        int count;
    };

    double knot(int i) const { return knots_[static_cast<std::size_t>(i)]; }
    const Triple& fit(int j) const { return fits_[static_cast<std::size_t>(j)]; }
    Equation& equation(int j) { return equations_[static_cast<std::size_t>(j)]; }
    const Equation& equation(int j) const { return equations_[static_cast<std::size_t>(j)]; }

    bool gather();
    bool gather_fits();
    void make_equations();
    bool fill_band();
    void fill_ends();
    bool meets_points() const;
    double largest_coordinate() const;
    Triple missed_by(int j) const;

    int fit_count_;
    int size_;
    const CExtArray<double>& knot_array_;
    const CExtArray<CNurbsFitPoint>& fit_array_;
    ScratchArray<double> knots_;
    ScratchArray<Triple> fits_;
    ScratchArray<Equation> equations_;
    BandSystem band_;
};

template <int Degree>
bool FitSystem<Degree>::gather() {
    const int knot_count = knot_array_.GetSize();
    if (!knots_.allocate(static_cast<std::size_t>(knot_count)) ||
        !fits_.allocate(static_cast<std::size_t>(fit_count_)) ||
        !equations_.allocate(static_cast<std::size_t>(fit_count_))) {
        return false;
    }
    for (int i = 0; i < knot_count; ++i) {
        knots_[static_cast<std::size_t>(i)] = *knot_array_.GetAt(i);
    }
    return gather_fits();
}

template <int Degree>
bool FitSystem<Degree>::gather_fits() {
    for (int j = 0; j < fit_count_; ++j) {
        const CNurbsFitPoint* fit = fit_array_.GetAt(j);
        if (fit == nullptr) {
            return false;
        }
        fits_[static_cast<std::size_t>(j)] = {fit->point.x, fit->point.y, fit->point.z};
    }
    return true;
}

// The span that begins at the integer i is number i + Degree, and i is the first control point that counts in it. At
// both ends one control point alone counts.
template <int Degree>
void FitSystem<Degree>::make_equations() {
    const double last = knot(size_);
    SpanBasis<Degree> basis(knots_.data() + Degree);
    int entered = 0;
    for (int j = 1; j < fit_count_ - 1; ++j) {
        const double t = j * last / (fit_count_ - 1);
        Equation& made = equation(j);
        made.first = static_cast<int>((std::min)(t, last - 1));
        if (made.first != entered) {
            entered = made.first;
            basis.enter(knots_.data() + entered + Degree);
        }
        basis.evaluate(t, made.values);
        made.count = made.values[Degree] != 0 ? Degree + 1 : Degree;  // at a knot the last function is 0
    }
    equation(0) = {{1.0}, 0, 1};
    equation(fit_count_ - 1) = {{1.0}, size_ - 1, 1};
}

// The conditions of the ends stand second and second to last: fit point j has row j + 1 but for the first and the last.
template <int Degree>
bool FitSystem<Degree>::fill_band() {
    int below = 1;
    int above = 1;
    for (int j = 1; j < fit_count_ - 1; ++j) {
        below = (std::max)(below, j + 1 - equation(j).first);
        above = (std::max)(above, equation(j).first + equation(j).count - 2 - j);
    }
    if (!band_.allocate(size_, below, above)) {
        return false;
    }
    for (int j = 1; j < fit_count_ - 1; ++j) {
        band_.set_row(j + 1, equation(j).first, equation(j).values, equation(j).count);
        band_.set_right_side(j + 1, fit(j));
    }
    fill_ends();
    return true;
}

template <int Degree>
void FitSystem<Degree>::fill_ends() {
    const int n = fit_count_;
    const double one = 1.0;
    const NaturalEnd start(knot(Degree + 1) - knot(1), knot(Degree + 2) - knot(2));
    const NaturalEnd end(knot(n + Degree) - knot(n), knot(n + Degree + 1) - knot(n + 1));
    band_.set_row(0, 0, &one, 1);
    band_.set_row(1, 0, start.values, 3);
    band_.set_row(size_ - 2, n - 1, end.values, 3);
    band_.set_row(size_ - 1, n + 1, &one, 1);
    band_.set_right_side(0, fit(0));
    band_.set_right_side(size_ - 1, fit(n - 1));
}

double largest_of(const Triple& triple) {
    return (std::max)({std::fabs(triple.x), std::fabs(triple.y), std::fabs(triple.z)});
}

template <int Degree>
double FitSystem<Degree>::largest_coordinate() const {
    double largest = 0;
    for (int j = 0; j < fit_count_; ++j) {
        largest = (std::max)(largest, largest_of(fit(j)));
    }
    return largest;
}

template <int Degree>
Triple FitSystem<Degree>::missed_by(int j) const {
    Triple miss = fit(j);
    for (int i = 0; i < equation(j).count; ++i) {
        const double value = equation(j).values[i];
        const Triple& point = control_point(equation(j).first + i);
        miss.x -= value * point.x;
        miss.y -= value * point.y;
        miss.z -= value * point.z;
    }
    return miss;
}

// What is not finite compares false.
template <int Degree>
bool FitSystem<Degree>::meets_points() const {
    const double allowed = kFitTolerance * largest_coordinate();
    for (int j = 0; j < fit_count_; ++j) {
        const Triple miss = missed_by(j);
        if (!(std::fabs(miss.x) <= allowed && std::fabs(miss.y) <= allowed && std::fabs(miss.z) <= allowed)) {
            return false;
        }
    }
    return true;
}

// Writes over the control points that are there.
template <int Degree>
bool fit_curve(const CExtArray<double>& knots, const CExtArray<CNurbsFitPoint>& fits,
               CExtArray<CNurbsCtrlPoint>& points) {
    FitSystem<Degree> system(knots, fits);
    if (!system.solve()) {
        return false;
    }
    ArrayRewriter<CNurbsCtrlPoint> rewriter(points);
    for (int i = 0; i < fits.GetSize() + 2; ++i) {
        CNurbsCtrlPoint* point = rewriter.next();
        if (point == nullptr) {
            return false;
        }
        const Triple& place = system.control_point(i);
        point->point.x = place.x;
        point->point.y = place.y;
        point->point.z = place.z;
        point->weight = 1.0;
    }
    rewriter.finish();
    return true;
}

using FitCurve = bool (*)(const CExtArray<double>& knots, const CExtArray<CNurbsFitPoint>& fits,
                          CExtArray<CNurbsCtrlPoint>& points);
constexpr FitCurve kFitByDegree[] = {fit_curve<1>, fit_curve<2>, fit_curve<3>, fit_curve<4>,
                                     fit_curve<5>, fit_curve<6>, fit_curve<7>};

}  // namespace
}  // namespace orvil::detail

// Knots and control points that are there are used again.
bool CCalcNurbs::CreateCtrl() {
    using namespace orvil::detail;
    const int n = fit_points_.GetSize();
    const bool is_possible =
        dimension_ >= kLowestDegree && dimension_ <= kHighestDegree && n >= 2 && n >= dimension_ - 1;
    if (is_possible && MakeKnotVector(dimension_ + 1, n + 2, KnotFormClamped) &&
        kFitByDegree[dimension_ - 1](knots_, fit_points_, ctrl_points_)) {
        return true;
    }
    ClearCtrl();
    ClearKnot();
    return false;
}
