// Curves: basis functions, sampled points, circles, curves through points, and the dense solvers.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "accuracy.h"
#include "orvil/geometry/nurbs.h"

namespace orvil::accuracy {

namespace {

using RealVector = std::vector<Real>;
using RealMatrix = std::vector<RealVector>;

class Curve : public CCalcNurbs {
public:
    using CCalcNurbs::ctrl_points_;
    using CCalcNurbs::dimension_;
    using CCalcNurbs::GauseMethod;
    using CCalcNurbs::GetSplineBase;
    using CCalcNurbs::LU_Decomposition;
    using CCalcNurbs::SolveLinerSystemOfEquations;

    int count() const { return ctrl_points_.GetSize(); }
    const CNurbsCtrlPoint& ctrl(int i) const { return *ctrl_points_.GetAt(i); }
};

int whole(Random& random, int low, int high) {
    return std::min(high, low + static_cast<int>(random.between(0.0, high - low + 1.0)));
}

// Huge: coordinates of 1e100 over knots 1e4 apart; tiny: of 1e-6 over knots 1e-4 apart; nearly degenerate: knots and
// weights of many magnitudes, and control points close together far from the origin.
double place_of(Kind kind) {
    return kind == Kind::Huge ? 1e100 : kind == Kind::Tiny ? 1e-6 : kind == Kind::NearlyDegenerate ? 1e6 : 1e3;
}

double any_width(Random& random, Kind kind) {
    switch (kind) {
        case Kind::Huge:
            return random.between(1e3, 1e4);
        case Kind::Tiny:
            return random.between(1e-5, 1e-4);
        case Kind::NearlyDegenerate:
            return std::fabs(random.magnitude(1e-6, 1e3));
        default:
            return random.between(0.1, 2.0);
    }
}

// The knots are sums of widths, each of which is rounded once; what counts are the knots as they stand then.
void add_knots(Random& random, Kind kind, Curve& curve, int count) {
    const int order = curve.dimension_ + 1;
    double knot = kind == Kind::NearlyDegenerate ? 0.0 : random.between(-5.0, 5.0);
    for (int i = 0; i < count + order; ++i) {
        const bool is_inner = i >= order && i <= count;
        knot += is_inner && (i == count || random.chance(0.8)) ? any_width(random, kind) : 0.0;
        curve.AppendKnot(knot);
    }
}

void add_points(Random& random, Kind kind, Curve& curve, int count) {
    const double size = place_of(kind);
    const double spread = kind == Kind::NearlyDegenerate ? 1e-3 : size;
    const C3DPoint origin(random.between(-size, size), random.between(-size, size), random.between(-size, size));
    CNurbsCtrlPoint point;
    for (int i = 0; i < count; ++i) {
        point.point.SetData(random.between(-spread, spread), random.between(-spread, spread),
                            random.between(-spread, spread));
        if (kind == Kind::NearlyDegenerate) {
            point.point.AddPoint(origin);
        }
        point.weight =
            std::fabs(kind == Kind::NearlyDegenerate ? random.magnitude(1e-6, 1e6) : random.magnitude(0.1, 10.0));
        curve.AppendCtrl(point);
    }
}

Curve any_curve(Random& random, Kind kind) {
    Curve curve;
    curve.SetDimension(whole(random, 1, 7));
    const int count = curve.dimension_ + whole(random, 1, 6);
    add_points(random, kind, curve, count);
    add_knots(random, kind, curve, count);
    return curve;
}

// --- basis functions -------------------------------------------------------------------------------------------------

// All functions of order degree + 1 at t, by the triangular scheme over all indices.
RealVector real_basis(const CCalcNurbs& curve, int degree, int count, Real t) {
    const auto u = [&curve](std::size_t i) { return static_cast<Real>(curve.GetKnot(static_cast<int>(i))); };
    RealVector values(static_cast<std::size_t>(count + degree));
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = u(i) <= t && t < u(i + 1) ? 1.0L : 0.0L;
    }
    for (std::size_t k = 1; k <= static_cast<std::size_t>(degree); ++k) {
        for (std::size_t i = 0; i + k < values.size(); ++i) {
            const Real first = u(i + k) - u(i);
            const Real second = u(i + k + 1) - u(i + 1);
            values[i] = (first > 0 ? (t - u(i)) / first * values[i] : 0.0L) +
                        (second > 0 ? (u(i + k + 1) - t) / second * values[i + 1] : 0.0L);
        }
    }
    values.resize(static_cast<std::size_t>(count));
    return values;
}

double basis_error(Random& random, Kind kind) {
    const Curve curve = any_curve(random, kind);
    const double t = random.between(curve.GetKnot(0), curve.GetKnot(curve.GetKnotSize() - 1));
    const int i = whole(random, 0, curve.count() - 1);
    const Real truth = real_basis(curve, curve.dimension_, curve.count(), t)[static_cast<std::size_t>(i)];
    return truth == 0.0L ? kNoCase : error(curve.GetSplineBase(curve.dimension_ + 1, i, t), truth, truth);
}

// --- sampled points --------------------------------------------------------------------------------------------------

Real coordinate(const C3DPoint& point, int axis) {
    return axis == 0 ? point.x : axis == 1 ? point.y : point.z;
}

// The distance of a found point from the curve's at t, relative to the largest coordinate of the points that count.
double point_error(const Curve& curve, const C3DPoint& found, double t) {
    const RealVector basis = real_basis(curve, curve.dimension_, curve.count(), t);
    Real worst = 0.0L;
    Real largest = 0.0L;
    for (int axis = 0; axis < 3; ++axis) {
        Real sum = 0.0L;
        Real weights = 0.0L;
        for (int i = 0; i < curve.count(); ++i) {
            const Real part = basis[static_cast<std::size_t>(i)] * curve.ctrl(i).weight;
            sum += part * coordinate(curve.ctrl(i).point, axis);
            weights += part;
            largest = part > 0 ? std::fmax(largest, std::fabs(coordinate(curve.ctrl(i).point, axis))) : largest;
        }
        worst = std::fmax(worst, std::fabs(coordinate(found, axis) - sum / weights));
    }
    return error(worst, 0.0L, largest);
}

// A random sample inside of a random span, at the parameter that the library documents.
double lines_error(Random& random, Kind kind) {
    Curve curve = any_curve(random, kind);
    const int divisions = whole(random, 2, 5);
    if (!curve.CreateLines(divisions)) {
        return HUGE_VAL;
    }
    const int sample = whole(random, 1, curve.GetLineSize() - 1);
    int spans_before = sample / divisions;
    for (int j = curve.dimension_; j < curve.count(); ++j) {
        const double width = curve.GetKnot(j + 1) - curve.GetKnot(j);
        if (width / divisions >= 1e-8 && spans_before-- == 0) {
            const double t = curve.GetKnot(j) + sample % divisions * (width / divisions);
            return point_error(curve, curve.GetLine(sample)->start, t);
        }
    }
    return HUGE_VAL;
}

double radius_of(Random& random, Kind kind) {
    return std::fabs(kind == Kind::Huge   ? random.magnitude(1e50, 1e100)
                     : kind == Kind::Tiny ? random.magnitude(1e-100, 1e-6)
                                          : random.magnitude(0.1, 1e3));
}

// A whole circle of four quarters; the distance of a random sample from the centre.
double circle_error(Random& random, Kind kind) {
    const double radius = radius_of(random, kind);
    constexpr std::array<double, 9> x = {1, 1, 0, -1, -1, -1, 0, 1, 1};
    constexpr std::array<double, 9> y = {0, 1, 1, 1, 0, -1, -1, -1, 0};
    Curve curve;
    curve.SetDimension(2);
    CNurbsCtrlPoint point;
    for (std::size_t i = 0; i < x.size(); ++i) {
        point.point.SetData(radius * x[i], radius * y[i], 0.0);
        point.weight = i % 2 == 0 ? 1.0 : std::sqrt(0.5);
        curve.AppendCtrl(point);
    }
    for (const double knot : {0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4}) {
        curve.AppendKnot(knot);
    }
    if (!curve.CreateLines(whole(random, 2, 60))) {
        return HUGE_VAL;
    }
    const C3DPoint& sample = curve.GetLine(whole(random, 0, curve.GetLineSize() - 1))->end;
    return error(length(RealPoint{sample.x, sample.y}), radius, radius);
}

// --- curves through points -------------------------------------------------------------------------------------------

RealVector solved(RealMatrix matrix, RealVector sides) {
    const std::size_t n = sides.size();
    for (std::size_t c = 0; c < n; ++c) {
        std::size_t chosen = c;
        for (std::size_t i = c + 1; i < n; ++i) {
            chosen = std::fabs(matrix[i][c]) > std::fabs(matrix[chosen][c]) ? i : chosen;
        }
        std::swap(matrix[c], matrix[chosen]);
        std::swap(sides[c], sides[chosen]);
        for (std::size_t i = c + 1; i < n; ++i) {
            const Real factor = matrix[i][c] / matrix[c][c];
            for (std::size_t j = c; j < n && factor != 0; ++j) {
                matrix[i][j] -= factor * matrix[c][j];
            }
            sides[i] -= factor * sides[c];
        }
    }
    for (std::size_t i = n; i-- > 0;) {
        for (std::size_t j = i + 1; j < n; ++j) {
            sides[i] -= matrix[i][j] * sides[j];
        }
        sides[i] /= matrix[i][i];
    }
    return sides;
}

// The differences of three neighbours from `first` on, divided by the knots that they span, are equal.
RealVector natural_row(const Curve& curve, int first) {
    const int d = curve.dimension_;
    const Real span = static_cast<Real>(curve.GetKnot(first + d + 1)) - curve.GetKnot(first + 1);
    const Real next = static_cast<Real>(curve.GetKnot(first + d + 2)) - curve.GetKnot(first + 2);
    RealVector row(static_cast<std::size_t>(curve.count()));
    const auto at = static_cast<std::size_t>(first);
    row[at] = 1.0L / span;
    row[at + 1] = -1.0L / span - 1.0L / next;
    row[at + 2] = 1.0L / next;
    return row;
}

// The x of the control points that pass exactly through the fit points.
RealVector real_control_points(const Curve& curve) {
    const int n = curve.GetFitSize();
    const Real last = curve.GetKnot(curve.GetKnotSize() - 1);
    RealMatrix matrix;
    RealVector sides;
    for (int j = 0; j < n; ++j) {
        matrix.push_back(real_basis(curve, curve.dimension_, n + 2, j * last / (n - 1)));
        sides.push_back(curve.GetFit(j)->point.x);
    }
    matrix.back().assign(static_cast<std::size_t>(n) + 2, 0.0L);
    matrix.back().back() = 1.0L;
    matrix.push_back(natural_row(curve, 0));
    matrix.push_back(natural_row(curve, n - 1));
    sides.insert(sides.end(), 2, 0.0L);
    return solved(std::move(matrix), std::move(sides));
}

// Nearly degenerate: points close together far from the origin.
Curve fitted_curve(Random& random, Kind kind, int dimension) {
    const double size = place_of(kind);
    const double spread = kind == Kind::NearlyDegenerate ? 1e-3 : size;
    const double x = kind == Kind::NearlyDegenerate ? size : 0.0;
    Curve curve;
    curve.SetDimension(dimension);
    CNurbsFitPoint fit;
    for (int count = whole(random, std::max(2, dimension - 1), 10); count > 0; --count) {
        fit.point.SetData(x + random.between(-spread, spread), random.between(-spread, spread), 0.0);
        curve.AppendFit(fit);
    }
    return curve;
}

double fitted_error(Random& random, Kind kind, int dimension) {
    Curve curve = fitted_curve(random, kind, dimension);
    if (!curve.CreateCtrl()) {
        return HUGE_VAL;
    }
    const RealVector truth = real_control_points(curve);
    Real worst = 0.0L;
    Real largest = 0.0L;
    for (int i = 0; i < curve.count(); ++i) {
        const Real expected = truth[static_cast<std::size_t>(i)];
        worst = std::fmax(worst, std::fabs(curve.ctrl(i).point.x - expected));
        largest = std::fmax(largest, std::fabs(expected));
    }
    return error(worst, 0.0L, largest);
}

double sound_fit_error(Random& random, Kind kind) {
    return fitted_error(random, kind, whole(random, 2, 4));
}

double other_fit_error(Random& random, Kind kind) {
    constexpr std::array<int, 4> dimensions = {1, 5, 6, 7};
    return fitted_error(random, kind, dimensions[static_cast<std::size_t>(whole(random, 0, 3))]);
}

// --- dense solvers ---------------------------------------------------------------------------------------------------

// n equations and the memory to solve them in. Nearly degenerate: rows of many magnitudes.
struct Equations {
    static constexpr int kMost = 8;
    using Row = std::array<double, kMost>;

    Equations(Random& random, Kind kind) : n(whole(random, 1, kMost)) {
        const double size = place_of(kind);
        for (int i = 0; i < n; ++i) {
            const double scale = kind == Kind::NearlyDegenerate ? std::fabs(random.magnitude(1e-8, 1e8)) : size;
            for (int j = 0; j < n; ++j) {
                row(i)[static_cast<std::size_t>(j)] = scale * random.between(-1.0, 1.0);
            }
            sides[static_cast<std::size_t>(i)] = scale * random.between(-1.0, 1.0);
        }
    }

    Row& row(int i) { return rows[static_cast<std::size_t>(i)]; }

    // Each equation's residual divided by the sum of the magnitudes of its terms; the worst.
    double residual(const Row& solution) const {
        Real worst = 0.0L;
        for (std::size_t i = 0; i < static_cast<std::size_t>(n); ++i) {
            Real difference = -static_cast<Real>(sides[i]);
            Real size = std::fabs(static_cast<Real>(sides[i]));
            for (std::size_t j = 0; j < static_cast<std::size_t>(n); ++j) {
                const Real term = static_cast<Real>(rows[i][j]) * solution[j];
                difference += term;
                size += std::fabs(term);
            }
            worst = std::fmax(worst, std::fabs(difference) / size);
        }
        return error(worst, 0.0L, 0.0L);
    }

    int n;
    std::array<Row, kMost> rows{};
    Row sides{};
};

template <typename Solve>
double solver_error(Random& random, Kind kind, Solve solve) {
    const Equations equations(random, kind);
    Equations used = equations;
    std::array<double*, Equations::kMost> rows{};
    for (int i = 0; i < used.n; ++i) {
        rows[static_cast<std::size_t>(i)] = used.row(i).data();
    }
    std::array<int, Equations::kMost> index{};
    Equations::Row scale{};
    Equations::Row solution{};
    TCalcNurbsWorkBuffer buffer{rows.data(), used.sides.data(), index.data(), scale.data(), solution.data()};
    return solve(buffer, used.n) ? equations.residual(solution) : kNoCase;
}

double elimination_error(Random& random, Kind kind) {
    return solver_error(random, kind,
                        [](TCalcNurbsWorkBuffer& buffer, int n) { return Curve().GauseMethod(buffer, n); });
}

double decomposition_error(Random& random, Kind kind) {
    return solver_error(random, kind, [](TCalcNurbsWorkBuffer& buffer, int n) {
        const Curve curve;
        double sign = 0.0;
        return curve.LU_Decomposition(n, buffer, sign) && curve.SolveLinerSystemOfEquations(n, buffer);
    });
}

}  // namespace

void add_curves(Functions& functions) {
    constexpr Bounds basis = {4e-15, 4e-15, 4e-15, 4e-15};
    constexpr Bounds points = {1e-15, 1e-15, 1e-15, 1e-15};
    constexpr Bounds circles = {1e-15, 1e-15, 1e-15, kNotMeasured};
    constexpr Bounds sound_fits = {4e-15, 4e-15, 4e-15, 4e-15};
    constexpr Bounds other_fits = {1e-13, 1e-13, 1e-13, 1e-13};
    // Pivots of one column's largest coefficient know nothing of rows of other sizes.
    constexpr Bounds eliminated = {1e-13, 1e-13, 1e-13, 1e-9};
    constexpr Bounds decomposed = {1e-13, 1e-13, 1e-13, 1e-13};
    functions.insert(
        functions.end(),
        {
            {"CCalcNurbs::GetSplineBase", "value", basis, basis_error},
            {"CCalcNurbs::CreateLines", "control points", points, lines_error},
            {"CCalcNurbs::CreateLines, a circle", "radius", circles, circle_error},
            {"CCalcNurbs::CreateCtrl, dimensions 2 to 4", "control points", sound_fits, sound_fit_error},
            {"CCalcNurbs::CreateCtrl, the others", "control points", other_fits, other_fit_error},
            {"CCalcNurbs::GauseMethod", "terms of each equation", eliminated, elimination_error},
            {"CCalcNurbs::SolveLinerSystemOfEquations", "terms of each equation", decomposed, decomposition_error},
        });
}

}  // namespace orvil::accuracy
