// Random curves evaluated into segments, against the rules written out: all basis functions of every sample, each by
// CCalcNurbs::GetSplineBase().
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "nurbs_probe.h"

namespace orvil::test {
namespace {

// A model of CreateLines(): the places of the chain, or a refusal.
class LinesModel {
public:
    LinesModel(const NurbsProbe& curve, int divisions) : curve_(curve), divisions_(divisions) {
        d_ = curve.dimension_;
        n_ = curve.ctrl_count();
        t1_ = curve.GetKnot(curve.GetKnotSize() - 1);
        run();
    }

    bool result() const { return result_; }
    const std::vector<Place>& places() const { return places_; }

private:
    double u(int i) const { return curve_.GetKnot(i); }
    static bool same(double a, double b) { return std::fabs(a - b) < 1e-8; }

    void run() {
        start_ = end_ = -1;
        for (int j = d_; j <= n_ && start_ < 0; ++j) {
            const bool inside = u(j) < u(0) && u(0) < u(j + 1) && !same(u(j + 1), u(0));
            start_ = same(u(j), u(0)) || inside ? j : -1;
        }
        for (int j = d_; j <= n_ && end_ < 0; ++j) {
            end_ = same(u(j), t1_) ? j : -1;
        }
        for (int j = start_; divisions_ >= 1 && start_ >= 0 && j < end_ && result_; ++j) {
            draw(j);
        }
        if (!result_) {
            places_.clear();
        }
    }

    void draw(int j) {
        const double to = j == end_ - 1 ? t1_ : u(j + 1);
        const double step = (to - u(j)) / divisions_;
        if (step < 1e-8) {
            return;
        }
        for (int s = places_.empty() ? 0 : 1; s <= divisions_ && result_; ++s) {
            sample(s == divisions_ ? to : u(j) + s * step, s == 0 || s == divisions_);
        }
    }

    bool is_clamped() const {
        bool equal = true;
        for (int i = end_; i + 1 < curve_.GetKnotSize(); ++i) {
            equal = equal && u(i) == u(i + 1);
        }
        return equal;
    }

    void sample(double t, bool at_knot) {
        Place sum{};
        double weights = 0;
        int counting = 0;
        int last = 0;
        for (int i = 0; i < n_; ++i) {
            const bool is_one = t == t1_ && i == n_ - 1 && is_clamped();
            const double base = is_one ? 1.0 : curve_.GetSplineBase(d_ + 1, i, t);
            const double part = base * curve_.ctrl(i).weight;
            const Place place = curve_.ctrl_place(i);
            for (std::size_t axis = 0; axis < 3; ++axis) {
                sum[axis] += part * place[axis];
            }
            weights += part;
            counting += base != 0 ? 1 : 0;
            last = base != 0 ? i : last;
        }
        for (double& coordinate : sum) {
            coordinate /= weights;
        }
        if ((at_knot || t == t1_) && counting == 1) {
            sum = curve_.ctrl_place(last);
        }
        result_ = weights != 0 && std::isfinite(sum[0]) && std::isfinite(sum[1]) && std::isfinite(sum[2]);
        places_.push_back(sum);
    }

    const NurbsProbe& curve_;
    int divisions_;
    int d_ = 0;
    int n_ = 0;
    double t1_ = 0;
    int start_ = -1;
    int end_ = -1;
    bool result_ = true;
    std::vector<Place> places_;
};

class RandomCurve {
public:
    explicit RandomCurve(unsigned seed) : random_(seed) {}

    int whole(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }
    double number(double from, double to) { return std::uniform_real_distribution<double>(from, to)(random_); }

    NurbsProbe points() {
        NurbsProbe curve(whole(1, 7));
        const int count = curve.dimension_ + whole(0, 8);
        const bool is_plain = whole(0, 1) == 0;
        const bool is_odd = whole(0, 7) == 0;
        for (int i = 0; i < count; ++i) {
            const double weight = is_plain ? 1 : is_odd ? whole(-1, 1) : number(0.1, 3);
            curve.add_ctrl(number(-10, 10), number(-10, 10), number(-10, 10), weight);
        }
        return curve;
    }

    // Clamped ends with repeated, close and ordinary knots between them.
    void add_rising_knots(NurbsProbe& curve) {
        const int order = curve.dimension_ + 1;
        double knot = number(-5, 5);
        for (int i = 0; i < curve.ctrl_count() + order; ++i) {
            const double steps[] = {0, 1, 0.5, number(0, 3), number(0, 3), number(1e-7, 1e-6)};
            knot += i < order || i > curve.ctrl_count() ? 0 : steps[whole(0, 5)];
            curve.AppendKnot(knot);
        }
    }

    void add_any_knots(NurbsProbe& curve) {
        const int count = curve.ctrl_count() + curve.dimension_ + whole(-3, 4);
        for (int i = 0; i < count; ++i) {
            const bool is_inner = i > curve.dimension_ && i < curve.ctrl_count();
            const double outer = i > curve.dimension_ ? 4 : 0;
            curve.AppendKnot(!is_inner ? outer : whole(0, 3) == 0 ? number(-2, 6) : whole(0, 4));
        }
    }

private:
    std::mt19937 random_;
};

void expect_model(NurbsProbe& curve, int divisions) {
    const LinesModel model(curve, divisions);
    EXPECT_EQ(curve.CreateLines(divisions), model.result());
    ASSERT_EQ(static_cast<std::size_t>(curve.GetLineSize()), model.places().empty() ? 0 : model.places().size() - 1);
    EXPECT_TRUE(model.places().empty() || curve.chain() == model.places());
}

TEST(NurbsCreateLines, RisingKnotsGiveTheModelsBits) {
    RandomCurve random(1);
    int drawn = 0;
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        NurbsProbe curve = random.points();
        random.add_rising_knots(curve);
        expect_model(curve, random.whole(0, 10));
        drawn += curve.GetLineSize() > 0 ? 1 : 0;
    }
    EXPECT_GT(drawn, 1500);
}

TEST(NurbsCreateLines, AnyKnotsGiveTheModelsBits) {
    RandomCurve random(2);
    int drawn = 0;
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        NurbsProbe curve = random.points();
        random.add_any_knots(curve);
        expect_model(curve, random.whole(0, 10));
        drawn += curve.GetLineSize() > 0 ? 1 : 0;
    }
    EXPECT_GT(drawn, 200);
}

}  // namespace
}  // namespace orvil::test
