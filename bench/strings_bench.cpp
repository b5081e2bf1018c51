// Strings and containers against the standard library's.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_str_hash.h"
#include "orvil/strings/ext_string.h"

namespace {

void per_item(benchmark::State& state, std::int64_t items) {
    state.counters["ns/item"] = benchmark::Counter(
        static_cast<double>(items) * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// --- appending ------------------------------------------------------------------------------------------------------

void append_bytes_orvil(benchmark::State& state) {
    for (auto _ : state) {
        CExtString text;
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            text += 'x';
        }
        benchmark::DoNotOptimize(text.GetString());
    }
    per_item(state, state.range(0));
}

void append_bytes_std(benchmark::State& state) {
    for (auto _ : state) {
        std::string text;
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            text += 'x';
        }
        benchmark::DoNotOptimize(text.data());
    }
    per_item(state, state.range(0));
}

constexpr const char* kRun = "eight by";

void append_runs_orvil(benchmark::State& state) {
    for (auto _ : state) {
        CExtString text;
        for (std::int64_t i = 0; i < state.range(0); i += 8) {
            text += kRun;
        }
        benchmark::DoNotOptimize(text.GetString());
    }
    per_item(state, state.range(0) / 8);
}

void append_runs_std(benchmark::State& state) {
    for (auto _ : state) {
        std::string text;
        for (std::int64_t i = 0; i < state.range(0); i += 8) {
            text += kRun;
        }
        benchmark::DoNotOptimize(text.data());
    }
    per_item(state, state.range(0) / 8);
}

BENCHMARK(append_bytes_orvil)->Name("AppendByte/orvil")->Arg(1'000)->Arg(100'000)->Arg(10'000'000);
BENCHMARK(append_bytes_std)->Name("AppendByte/std::string")->Arg(1'000)->Arg(100'000)->Arg(10'000'000);
BENCHMARK(append_runs_orvil)->Name("AppendRun/orvil")->Arg(1'000)->Arg(100'000)->Arg(10'000'000);
BENCHMARK(append_runs_std)->Name("AppendRun/std::string")->Arg(1'000)->Arg(100'000)->Arg(10'000'000);

// --- split, replace, join -------------------------------------------------------------------------------------------

CExtString pieces(std::int64_t count) {
    std::string text;
    for (std::int64_t i = 0; i < count; ++i) {
        text += "piece";
        text += std::to_string(i % 1000);
        text += ',';
    }
    return CExtString(text.c_str());
}

void split(benchmark::State& state) {
    const CExtString text = pieces(state.range(0));
    for (auto _ : state) {
        const CExtStrArray parts = text.RegexSplit("/,/");
        benchmark::DoNotOptimize(parts.GetSize());
    }
    per_item(state, state.range(0));
}

void replace(benchmark::State& state) {
    const CExtString text = pieces(state.range(0));
    for (auto _ : state) {
        const CExtString replaced = text.RegexReplace("/,/", "; ");
        benchmark::DoNotOptimize(replaced.GetLength());
    }
    per_item(state, state.range(0));
}

void join(benchmark::State& state) {
    const CExtStrArray parts = pieces(state.range(0)).RegexSplit("/,/");
    for (auto _ : state) {
        const CExtString joined = parts.Join(", ");
        benchmark::DoNotOptimize(joined.GetLength());
    }
    per_item(state, state.range(0));
}

BENCHMARK(split)->Name("Split/orvil")->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(replace)->Name("Replace/orvil")->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(join)->Name("Join/orvil")->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

// --- arrays ---------------------------------------------------------------------------------------------------------

std::vector<std::string> random_texts(std::int64_t count) {
    std::mt19937 random(20260101);
    std::vector<std::string> texts;
    for (std::int64_t i = 0; i < count; ++i) {
        texts.push_back("name " + std::to_string(random()));
    }
    return texts;
}

void add_orvil(benchmark::State& state) {
    const auto texts = random_texts(state.range(0));
    for (auto _ : state) {
        CExtStrArray array;
        for (const std::string& text : texts) {
            array.Add(text.c_str());
        }
        benchmark::DoNotOptimize(array.GetSize());
    }
    per_item(state, state.range(0));
}

void add_std(benchmark::State& state) {
    const auto texts = random_texts(state.range(0));
    for (auto _ : state) {
        std::vector<std::string> array;
        for (const std::string& text : texts) {
            array.emplace_back(text.c_str());
        }
        benchmark::DoNotOptimize(array.size());
    }
    per_item(state, state.range(0));
}

void sort_orvil(benchmark::State& state) {
    const auto texts = random_texts(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        CExtStrArray array;
        for (const std::string& text : texts) {
            array.Add(text.c_str());
        }
        state.ResumeTiming();
        array.Sort(false);
        state.PauseTiming();
        array.RemoveAll();
        state.ResumeTiming();
    }
    per_item(state, state.range(0));
}

void sort_std(benchmark::State& state) {
    const auto texts = random_texts(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<std::string> array = texts;
        state.ResumeTiming();
        std::sort(array.begin(), array.end());
        state.PauseTiming();
        array = {};
        state.ResumeTiming();
    }
    per_item(state, state.range(0));
}

BENCHMARK(add_orvil)->Name("ArrayAdd/orvil")->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(add_std)
    ->Name("ArrayAdd/std::vector")
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(sort_orvil)
    ->Name("ArraySort/orvil")
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(sort_std)
    ->Name("ArraySort/std::vector")
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);

// --- hashes ---------------------------------------------------------------------------------------------------------

// The number of buckets is fixed: with the default of 37 a look-up walks count / 37 nodes, with twice the count one or
// two.
void look_up_orvil(benchmark::State& state, int buckets) {
    const auto texts = random_texts(state.range(0));
    CExtStrHash table(buckets == 0 ? static_cast<int>(2 * state.range(0)) : buckets);
    for (const std::string& text : texts) {
        table.SetAt(text.c_str(), "value");
    }
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(table.IsExistKey(texts[next].c_str()));
        next = (next + 7919) % texts.size();
    }
}

void look_up_std(benchmark::State& state) {
    std::unordered_map<std::string, std::string> table;
    const auto texts = random_texts(state.range(0));
    for (const std::string& text : texts) {
        table[text] = "value";
    }
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(table.find(texts[next].c_str()) != table.end());
        next = (next + 7919) % texts.size();
    }
}

BENCHMARK_CAPTURE(look_up_orvil, fixed, 37)
    ->Name("HashLookup/orvil, 37 buckets")
    ->RangeMultiplier(10)
    ->Range(100, 100'000);
BENCHMARK_CAPTURE(look_up_orvil, sized, 0)
    ->Name("HashLookup/orvil, 2n buckets")
    ->RangeMultiplier(10)
    ->Range(100, 100'000);
BENCHMARK(look_up_std)->Name("HashLookup/std::unordered_map")->RangeMultiplier(10)->Range(100, 100'000);

}  // namespace
