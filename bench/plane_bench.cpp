// Where two segments meet, beside Boost.Geometry and CGAL on doubles.
//
// Each pair is four neighbours in a row of random points, in the form that the library works on. Every program counts
// the pairs that meet and adds up where; the counter `met` shows that all of them find the same.
#include <benchmark/benchmark.h>

#include <CGAL/Simple_cartesian.h>
#include <CGAL/intersections.h>

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/segment.hpp>
#include <cstddef>
#include <random>
#include <vector>

#include "orvil/geometry/plane_functions.h"

namespace {

constexpr double kSize = 1000.0;

template <typename Point>
std::vector<Point> random_points(std::int64_t pairs) {
    std::mt19937_64 random(20260709);
    std::uniform_real_distribution<double> any(-kSize, kSize);
    std::vector<Point> points;
    points.reserve(static_cast<std::size_t>(pairs) + 3);
    for (std::int64_t i = 0; i < pairs + 3; ++i) {
        const double x = any(random);
        points.emplace_back(x, any(random));
    }
    return points;
}

// Runs meet(p, sum), which looks at four points, on every pair.
template <typename Point, typename Meet>
void run_pairs(benchmark::State& state, Meet meet) {
    const std::vector<Point> points = random_points<Point>(state.range(0));
    const auto pairs = static_cast<std::size_t>(state.range(0));
    std::size_t met = 0;
    for (auto _ : state) {
        double sum = 0.0;
        met = 0;
        for (std::size_t i = 0; i < pairs; ++i) {
            met += meet(&points[i], sum) ? 1U : 0U;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.counters["met"] = static_cast<double>(met) / static_cast<double>(pairs);
    state.counters["ns/pair"] =
        benchmark::Counter(static_cast<double>(state.range(0)) * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void orvil(benchmark::State& state) {
    C2DPoint where;
    run_pairs<C2DPoint>(state, [&](const C2DPoint* p, double& sum) {
        if (CA_INS2L(p[0], p[1], p[2], p[3], where) != 0) {
            return false;
        }
        sum += where.x + where.y;
        return true;
    });
}

void boost_geometry(benchmark::State& state) {
    namespace bg = boost::geometry;
    using Point = bg::model::d2::point_xy<double>;
    using Segment = bg::model::referring_segment<const Point>;
    std::vector<Point> found;
    run_pairs<Point>(state, [&](const Point* p, double& sum) {
        found.clear();
        bg::intersection(Segment(p[0], p[1]), Segment(p[2], p[3]), found);
        if (found.empty()) {
            return false;
        }
        sum += found.front().x() + found.front().y();
        return true;
    });
}

void cgal(benchmark::State& state) {
    using Kernel = CGAL::Simple_cartesian<double>;
    using Point = Kernel::Point_2;
    run_pairs<Point>(state, [](const Point* p, double& sum) {
        const auto found = CGAL::intersection(Kernel::Segment_2(p[0], p[1]), Kernel::Segment_2(p[2], p[3]));
        if (!found) {
            return false;
        }
        if (const Point* point = boost::get<Point>(&*found)) {
            sum += point->x() + point->y();
        }
        return true;
    });
}

constexpr std::int64_t kFew = 100'000;
constexpr std::int64_t kMany = 10'000'000;

BENCHMARK(orvil)->Name("SegmentsMeet/orvil")->RangeMultiplier(10)->Range(kFew, kMany)->Unit(benchmark::kMillisecond);
BENCHMARK(boost_geometry)
    ->Name("SegmentsMeet/Boost.Geometry")
    ->RangeMultiplier(10)
    ->Range(kFew, kMany)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(cgal)->Name("SegmentsMeet/CGAL")->RangeMultiplier(10)->Range(kFew, kMany)->Unit(benchmark::kMillisecond);

}  // namespace
