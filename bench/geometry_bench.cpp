// Placing figures, beside a plain loop over the same bytes and beside copying them.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "orvil/geometry/scalars.h"
#include "orvil/geometry/space_primitives.h"

namespace {

void per_item(benchmark::State& state) {
    state.counters["ns/item"] =
        benchmark::Counter(static_cast<double>(state.range(0)) * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

std::vector<C2DPoint> points(std::int64_t count) {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> any(-1e3, 1e3);
    std::vector<C2DPoint> made(static_cast<std::size_t>(count));
    for (C2DPoint& point : made) {
        point.SetData(any(random), any(random));
    }
    return made;
}

// A step that keeps what it is applied to again and again in size.
C2DMatrixItem step() {
    C2DMatrixItem made;
    made.base.SetData(10.0, 20.0);
    made.move = made.base;
    made.scale.SetData(-1.0, 1.0);
    made.angle = 0.7;
    return made;
}

// --- points ----------------------------------------------------------------------------------------------------------

void place_points_orvil(benchmark::State& state) {
    std::vector<C2DPoint> drawing = points(state.range(0));
    const C2DMatrixItem by = step();
    for (auto _ : state) {
        for (C2DPoint& point : drawing) {
            point.MatrixCalculation(by);
        }
        benchmark::ClobberMemory();
    }
    per_item(state);
}

void place_points_plain(benchmark::State& state) {
    std::vector<C2DPoint> drawing = points(state.range(0));
    const C2DMatrixItem by = step();
    for (auto _ : state) {
        const double c = std::cos(by.angle);
        const double s = std::sin(by.angle);
        for (C2DPoint& point : drawing) {
            const double x = (point.x - by.base.x) * by.scale.x;
            const double y = (point.y - by.base.y) * by.scale.y;
            point.x = c * x - s * y + by.move.x;
            point.y = s * x + c * y + by.move.y;
        }
        benchmark::ClobberMemory();
    }
    per_item(state);
}

// Reads and writes the same bytes, as fast as they come.
void place_points_copy(benchmark::State& state) {
    std::vector<C2DPoint> drawing = points(state.range(0));
    std::vector<char> copy(drawing.size() * sizeof(C2DPoint));
    for (auto _ : state) {
        std::memcpy(copy.data(), static_cast<const void*>(drawing.data()), copy.size());
        benchmark::ClobberMemory();
    }
    per_item(state);
}

// Each figure asks for the cosine and the sine of its own angle.
void rotate_points_by_many_angles(benchmark::State& state) {
    std::vector<C2DPoint> drawing = points(state.range(0));
    const C2DPoint centre(1.0, 2.0);
    for (auto _ : state) {
        double angle = 0.0;
        for (C2DPoint& point : drawing) {
            point.Rotate(centre, angle += 1e-3);
        }
        benchmark::ClobberMemory();
    }
    per_item(state);
}

void place_space_points(benchmark::State& state) {
    std::vector<C3DPoint> drawing(static_cast<std::size_t>(state.range(0)), C3DPoint(1.0, 2.0, 3.0));
    C3DMatrixItem by;
    by.angle = 0.7;
    for (auto _ : state) {
        for (C3DPoint& point : drawing) {
            point.MatrixCalculation(by);
        }
        benchmark::ClobberMemory();
    }
    per_item(state);
}

// --- ellipses and angles ---------------------------------------------------------------------------------------------

void place_ellipses(benchmark::State& state) {
    const C2DEllipse ellipse(C2DPoint(1.0, 2.0), C2DPoint(3.0, 4.0), 0.5, 0.25, 1.75);
    std::vector<C2DEllipse> drawing(static_cast<std::size_t>(state.range(0)), ellipse);
    const C2DMatrixItem by = step();
    for (auto _ : state) {
        for (C2DEllipse& figure : drawing) {
            figure.MatrixCalculation(by);
        }
        benchmark::ClobberMemory();
    }
    per_item(state);
}

void directions(benchmark::State& state) {
    const std::vector<C2DPoint> drawing = points(state.range(0));
    const C2DPoint from(1.0, 2.0);
    for (auto _ : state) {
        double sum = 0.0;
        for (const C2DPoint& point : drawing) {
            sum += GET_ANGLE(point, from);
        }
        benchmark::DoNotOptimize(sum);
    }
    per_item(state);
}

void angles_on_arcs(benchmark::State& state) {
    const std::vector<C2DPoint> drawing = points(state.range(0));
    for (auto _ : state) {
        int outside = 0;
        for (const C2DPoint& point : drawing) {
            outside += A2D_CHKDEGR(6.0, 1.0, point.x * 1e-2);
        }
        benchmark::DoNotOptimize(outside);
    }
    per_item(state);
}

void three_sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(10000)->Arg(100000)->Arg(1000000);
}

BENCHMARK(place_points_orvil)->Apply(three_sizes);
BENCHMARK(place_points_plain)->Apply(three_sizes);
BENCHMARK(place_points_copy)->Apply(three_sizes);
BENCHMARK(rotate_points_by_many_angles)->Apply(three_sizes);
BENCHMARK(place_space_points)->Apply(three_sizes);
BENCHMARK(place_ellipses)->Apply(three_sizes);
BENCHMARK(directions)->Apply(three_sizes);
BENCHMARK(angles_on_arcs)->Apply(three_sizes);

}  // namespace
