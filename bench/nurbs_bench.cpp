// Curves evaluated into owned segments, and laid through points, beside a bare textbook evaluator and SISL.
#include <benchmark/benchmark.h>
#include <sisl.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <random>
#include <vector>

#include "orvil/geometry/nurbs.h"

namespace {

constexpr int kDegree = 3;
constexpr int kOrder = kDegree + 1;
constexpr int kDivisions = 8;

void per_item(benchmark::State& state, std::int64_t items) {
    state.counters["ns/item"] = benchmark::Counter(
        static_cast<double>(items) * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

struct Point {
    double x, y, z;
};

// Points along a wave that leans, so that no coordinate is constant.
std::vector<Point> wave(std::int64_t count) {
    std::mt19937 random(20260101);
    std::uniform_real_distribution<double> number(-1, 1);
    std::vector<Point> points;
    for (std::int64_t i = 0; i < count; ++i) {
        const auto x = static_cast<double>(i);
        points.push_back({x + 0.3 * number(random), 5 * std::sin(0.7 * x) + number(random), 0.1 * x + number(random)});
    }
    return points;
}

std::vector<double> clamped_knots(std::int64_t count) {
    std::vector<double> knots;
    for (std::int64_t i = 0; i < count + kOrder; ++i) {
        const std::int64_t inner = i < kOrder ? 0 : i > count ? count - kDegree : i - kDegree;
        knots.push_back(static_cast<double>(inner));
    }
    return knots;
}

// --- evaluating ------------------------------------------------------------------------------------------------------

// Segments that are there are used again, unless they are cleared before, as a host that draws one curve has none.
void evaluate_orvil(benchmark::State& state, bool clears) {
    CCalcNurbs curve;
    curve.SetDimension(kDegree);
    for (const double knot : clamped_knots(state.range(0))) {
        curve.AppendKnot(knot);
    }
    CNurbsCtrlPoint ctrl;
    for (const Point& point : wave(state.range(0))) {
        ctrl.point.SetData(point.x, point.y, point.z);
        curve.AppendCtrl(ctrl);
    }
    for (auto _ : state) {
        if (clears) {
            curve.ClearLine();
        }
        if (!curve.CreateLines(kDivisions)) {
            state.SkipWithError("no lines");
        }
        benchmark::DoNotOptimize(curve.GetLine(0));
    }
    per_item(state, curve.GetLineSize());
}

struct Segment {
    Point start, end;
};

using Segments = std::vector<std::unique_ptr<Segment>>;

struct Weighted {
    double x, y, z, weight;
};

// The non-zero basis functions by differences to the left and to the right of t, one division for two products.
void textbook_basis(const double* knots, int span, double t, double (&values)[kOrder]) {
    double left[kOrder];
    double right[kOrder];
    values[0] = 1;
    for (int j = 1; j <= kDegree; ++j) {
        left[j] = t - knots[span + 1 - j];
        right[j] = knots[span + j] - t;
        double saved = 0;
        for (int r = 0; r < j; ++r) {
            const double part = values[r] / (right[r + 1] + left[j - r]);
            values[r] = saved + right[r + 1] * part;
            saved = left[j - r] * part;
        }
        values[j] = saved;
    }
}

Point textbook_point(const std::vector<double>& knots, const std::vector<Weighted>& points, int span, double t) {
    double values[kOrder];
    textbook_basis(knots.data(), span, t, values);
    Weighted sum{};
    for (int i = 0; i < kOrder; ++i) {
        const Weighted& point = points[static_cast<std::size_t>(span - kDegree + i)];
        const double part = values[i] * point.weight;
        sum.x += part * point.x;
        sum.y += part * point.y;
        sum.z += part * point.z;
        sum.weight += part;
    }
    return {sum.x / sum.weight, sum.y / sum.weight, sum.z / sum.weight};
}

void textbook_segments(const std::vector<double>& knots, const std::vector<Weighted>& points, Segments& segments) {
    const int count = static_cast<int>(points.size());
    Point last = textbook_point(knots, points, kDegree, knots[kDegree]);
    for (int span = kDegree; span < count; ++span) {
        const double from = knots[static_cast<std::size_t>(span)];
        const double step = (knots[static_cast<std::size_t>(span) + 1] - from) / kDivisions;
        for (int s = 1; s <= kDivisions; ++s) {
            const Point next = textbook_point(knots, points, span, from + s * step);
            segments.push_back(std::make_unique<Segment>(Segment{last, next}));
            last = next;
        }
    }
}

void evaluate_textbook(benchmark::State& state) {
    const std::vector<double> knots = clamped_knots(state.range(0));
    std::vector<Weighted> points;
    for (const Point& point : wave(state.range(0))) {
        points.push_back({point.x, point.y, point.z, 1});
    }
    Segments segments;
    for (auto _ : state) {
        segments.clear();
        textbook_segments(knots, points, segments);
        benchmark::DoNotOptimize(segments.data());
    }
    per_item(state, static_cast<std::int64_t>(segments.size()));
}

struct FreeCurve {
    void operator()(SISLCurve* curve) const { freeCurve(curve); }
};

using SislCurve = std::unique_ptr<SISLCurve, FreeCurve>;

// A rational curve, as ours is.
SislCurve sisl_curve(std::int64_t count) {
    std::vector<double> knots = clamped_knots(count);
    std::vector<double> coefficients;
    for (const Point& point : wave(count)) {
        coefficients.insert(coefficients.end(), {point.x, point.y, point.z, 1.0});
    }
    return SislCurve(newCurve(static_cast<int>(count), kOrder, knots.data(), coefficients.data(), 2, 3, 1));
}

// s1227 is told the span that the parameter before lay in.
bool sisl_segments(SISLCurve* curve, std::int64_t count, Segments& segments) {
    int span = kDegree;
    int status = 0;
    Point last{};
    s1227(curve, 0, 0.0, &span, &last.x, &status);
    for (std::int64_t sample = 1; status >= 0 && sample <= (count - kDegree) * kDivisions; ++sample) {
        Point next{};
        s1227(curve, 0, static_cast<double>(sample) / kDivisions, &span, &next.x, &status);
        segments.push_back(std::make_unique<Segment>(Segment{last, next}));
        last = next;
    }
    return status >= 0;
}

void evaluate_sisl(benchmark::State& state) {
    const SislCurve curve = sisl_curve(state.range(0));
    Segments segments;
    for (auto _ : state) {
        segments.clear();
        if (!sisl_segments(curve.get(), state.range(0), segments)) {
            state.SkipWithError("no lines");
        }
        benchmark::DoNotOptimize(segments.data());
    }
    per_item(state, static_cast<std::int64_t>(segments.size()));
}

BENCHMARK_CAPTURE(evaluate_orvil, again, false)->Name("Evaluate/orvil, again")->RangeMultiplier(10)->Range(10, 10'000);
BENCHMARK_CAPTURE(evaluate_orvil, cleared, true)
    ->Name("Evaluate/orvil, cleared")
    ->RangeMultiplier(10)
    ->Range(10, 10'000);
BENCHMARK(evaluate_textbook)->Name("Evaluate/textbook")->RangeMultiplier(10)->Range(10, 10'000);
BENCHMARK(evaluate_sisl)->Name("Evaluate/SISL")->RangeMultiplier(10)->Range(10, 10'000);

// --- interpolating ---------------------------------------------------------------------------------------------------

void interpolate_orvil(benchmark::State& state) {
    CCalcNurbs curve;
    curve.SetDimension(kDegree);
    CNurbsFitPoint fit;
    for (const Point& point : wave(state.range(0))) {
        fit.point.SetData(point.x, point.y, point.z);
        curve.AppendFit(fit);
    }
    for (auto _ : state) {
        if (!curve.CreateCtrl()) {
            state.SkipWithError("no curve");
        }
        benchmark::DoNotOptimize(curve.GetKnotSize());
    }
    per_item(state, state.range(0));
}

// Through the points at the parameters 0, 1, 2 ... with natural ends (1), as ours.
void interpolate_sisl(benchmark::State& state) {
    const auto count = static_cast<int>(state.range(0));
    std::vector<Point> points = wave(count);
    std::vector<int> kinds(points.size(), 1);
    std::vector<double> parameters;
    for (int i = 0; i < count; ++i) {
        parameters.push_back(i);
    }
    for (auto _ : state) {
        SISLCurve* curve = nullptr;
        double* used = nullptr;
        double end = 0;
        int used_count = 0;
        int status = 0;
        s1357(&points.front().x, count, 3, kinds.data(), parameters.data(), 1, 1, 1, kOrder, 0.0, &end, &curve, &used,
              &used_count, &status);
        if (status < 0) {
            state.SkipWithError("no curve");
        }
        std::free(used);
        freeCurve(curve);
    }
    per_item(state, count);
}

BENCHMARK(interpolate_orvil)->Name("Interpolate/orvil")->RangeMultiplier(10)->Range(100, 100'000);
BENCHMARK(interpolate_sisl)->Name("Interpolate/SISL")->RangeMultiplier(10)->Range(100, 100'000);

}  // namespace
