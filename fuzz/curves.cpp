// Any degree, knots, points and weights: what a curve makes of them is finite and joined, or refused, in bounded time.
#include <cmath>
#include <cstring>

#include "orvil/geometry/nurbs.h"
#include "support/fuzz_check.h"

namespace {

using orvil::fuzz::InputReader;

constexpr std::size_t kMostPoints = 40;
constexpr int kMostDivisions = 12;

// Small whole numbers, parts of them, and any bits at all.
double number(InputReader& reader) {
    const std::uint8_t kind = reader.byte();
    if (kind < 160) {
        return kind % 16;
    }
    if (kind < 224) {
        return (kind - 192) / 8.0 + 1e-8 * reader.byte();
    }
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) {
        bits = bits << 8 | reader.byte();
    }
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

class Curve : public CCalcNurbs {
public:
    explicit Curve(InputReader& reader) {
        dimension_ = static_cast<int>(reader.below(10));
        const std::size_t shape = reader.below(4);
        add_points(reader, reader.below(kMostPoints + 1));
        if (shape == 0) {
            MakeKnotVector(dimension_ + 1, ctrl_points_.GetSize(), KnotFormClamped);
        } else if (shape < 3) {
            add_knots(reader, reader.below(kMostPoints + 10), shape == 1);
        }
    }

    // Whether every segment is finite and begins where the one before ends, and there are as many as there may be.
    bool is_sound(int divisions) const {
        for (int i = 0; i < GetLineSize(); ++i) {
            const C3DLine& line = *GetLine(i);
            if (!is_finite(line.start) || !is_finite(line.end) ||
                (i > 0 && !is_same(GetLine(i - 1)->end, line.start))) {
                return false;
            }
        }
        return GetLineSize() <= divisions * ctrl_points_.GetSize();
    }

    bool has_finite_control_points() const {
        for (int i = 0; i < ctrl_points_.GetSize(); ++i) {
            if (!is_finite(ctrl_points_.GetAt(i)->point)) {
                return false;
            }
        }
        return true;
    }

    int ctrl_count() const { return ctrl_points_.GetSize(); }
    bool has_dimension() const { return dimension_ >= 1 && dimension_ <= 7; }

    // A basis function of any order, index and parameter is 0 where there is no knot near.
    void ask_for_basis(InputReader& reader) const {
        const int order = static_cast<int>(reader.byte()) - 20;
        const int index = static_cast<int>(reader.byte()) - 100;
        const double value = GetSplineBase(order, index, number(reader));
        FUZZ_CHECK(index < GetKnotSize() || value == 0);
    }

private:
    void add_points(InputReader& reader, std::size_t count) {
        const bool is_weighted = reader.below(2) == 0;
        CNurbsCtrlPoint ctrl;
        CNurbsFitPoint fit;
        for (std::size_t i = 0; i < count; ++i) {
            ctrl.point.SetData(number(reader), number(reader), number(reader));
            ctrl.weight = is_weighted ? number(reader) : 1.0;
            fit.point = ctrl.point;
            AppendCtrl(ctrl);
            AppendFit(fit);
        }
    }

    void add_knots(InputReader& reader, std::size_t count, bool is_rising) {
        double sum = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const double value = number(reader);
            sum = is_rising ? sum + value : value;
            AppendKnot(sum);
        }
    }

    static bool is_finite(const C3DPoint& point) {
        return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
    }
    static bool is_same(const C3DPoint& left, const C3DPoint& right) {
        return left.x == right.x && left.y == right.y && left.z == right.z;
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    InputReader reader(data, size);
    const int divisions = static_cast<int>(reader.below(kMostDivisions + 1));
    Curve curve(reader);
    curve.ask_for_basis(reader);
    FUZZ_CHECK(curve.CreateLines(divisions) || curve.GetLineSize() == 0);
    FUZZ_CHECK(curve.is_sound(divisions));

    Curve fitted(curve);
    const bool is_fitted = fitted.CreateCtrl();
    FUZZ_CHECK(is_fitted ? fitted.ctrl_count() == fitted.GetFitSize() + 2 : fitted.ctrl_count() == 0);
    FUZZ_CHECK(fitted.has_finite_control_points());
    FUZZ_CHECK(!is_fitted || fitted.has_dimension());
    FUZZ_CHECK(fitted.CreateLines(divisions) || fitted.GetLineSize() == 0);
    FUZZ_CHECK(fitted.is_sound(divisions));

    curve.CanNurbsize(1e-8);
    FUZZ_CHECK(curve.LinearComplement());
    return 0;
}
