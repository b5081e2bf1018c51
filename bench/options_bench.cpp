// Command lines: declaring eight options, parsing, and forgetting everything, as a program does once.
//
// getopt_long keeps pointers into the arguments, and reads them in order, which spares it moving items to the end. The
// others own what they have read.
#include <benchmark/benchmark.h>
#include <getopt.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cstdint>
#include <cxxopts.hpp>
#include <string>
#include <vector>

#include "orvil/options/option_parser.h"

namespace {

// --- arguments -------------------------------------------------------------------------------------------------------

// Forms that all of the parsers know: ten arguments with two items, four values behind options and two attached ones.
std::vector<std::string> make_arguments(std::int64_t count) {
    static const std::vector<std::string> pattern = {
        "--output=out/sheet.plt", "sheet",  "-v", "--define", "PEN=", "-D", "COLOUR=", "--scale=2.5",
        "drawings/part",          "--quiet"};
    std::vector<std::string> arguments;
    for (std::int64_t i = 0; i < count; ++i) {
        std::string text = pattern[static_cast<std::size_t>(i) % pattern.size()];
        if (text.front() != '-') {
            text += std::to_string(i) + ".plt";
        }
        arguments.push_back(std::move(text));
    }
    return arguments;
}

// The arguments as main() is given them.
class Argv {
public:
    explicit Argv(std::int64_t count) : texts_(make_arguments(count)) {
        texts_.insert(texts_.begin(), "bench");
        for (std::string& text : texts_) {
            pointers_.push_back(text.data());
        }
        pointers_.push_back(nullptr);
    }
    int argc() const { return static_cast<int>(texts_.size()); }
    char** argv() { return pointers_.data(); }

private:
    std::vector<std::string> texts_;
    std::vector<char*> pointers_;
};

void per_argument(benchmark::State& state) {
    state.counters["ns/argument"] =
        benchmark::Counter(static_cast<double>(state.range(0)) * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.SetComplexityN(state.range(0));
}

// --- the parsers -----------------------------------------------------------------------------------------------------

void parse_orvil(benchmark::State& state) {
    static const char* const booleans[] = {"verbose: v", "quiet: q", "force: f", nullptr};
    static const char* const scalars[] = {"output: o", "scale: s", "pens: p", "layer: l", nullptr};
    static const char* const lists[] = {"define: D", nullptr};
    CExtStrList arguments;
    for (const std::string& text : make_arguments(state.range(0))) {
        arguments.AddTail(text.c_str());
    }
    for (auto _ : state) {
        getopt_initialize();
        getopt_init_boolmap(booleans);
        getopt_init_scalarmap(scalars);
        getopt_init_listmap(lists);
        if (!getopt_parse_arguments(arguments, true)) {
            state.SkipWithError(getopt_get_errornote());
        }
        benchmark::DoNotOptimize(getopt_item_count() + getopt_list_count("define"));
        getopt_terminate();
    }
    per_argument(state);
}

struct Plain {
    int verbose = 0, quiet = 0, force = 0;
    const char *output = nullptr, *scale = nullptr, *pens = nullptr, *layer = nullptr;
    std::vector<const char*> define, items;
};

bool read_by_getopt_long(int argc, char** argv, Plain& plain) {
    static const option options[] = {{"verbose", no_argument, nullptr, 'v'},
                                     {"quiet", no_argument, nullptr, 'q'},
                                     {"force", no_argument, nullptr, 'f'},
                                     {"output", required_argument, nullptr, 'o'},
                                     {"scale", required_argument, nullptr, 's'},
                                     {"pens", required_argument, nullptr, 'p'},
                                     {"layer", required_argument, nullptr, 'l'},
                                     {"define", required_argument, nullptr, 'D'},
                                     {nullptr, 0, nullptr, 0}};
    optind = 0;
    for (int c = 0; (c = getopt_long(argc, argv, "-vqfo:s:p:l:D:", options, nullptr)) != -1;) {
        switch (c) {
            case 'v':
                plain.verbose = 1;
                break;
            case 'q':
                plain.quiet = 1;
                break;
            case 'f':
                plain.force = 1;
                break;
            case 'o':
                plain.output = optarg;
                break;
            case 's':
                plain.scale = optarg;
                break;
            case 'p':
                plain.pens = optarg;
                break;
            case 'l':
                plain.layer = optarg;
                break;
            case 'D':
                plain.define.push_back(optarg);
                break;
            case 1:
                plain.items.push_back(optarg);
                break;
            default:
                return false;
        }
    }
    return true;
}

void parse_getopt_long(benchmark::State& state) {
    Argv arguments(state.range(0));
    for (auto _ : state) {
        Plain plain;
        if (!read_by_getopt_long(arguments.argc(), arguments.argv(), plain)) {
            state.SkipWithError("an argument is refused");
        }
        benchmark::DoNotOptimize(plain.items.size() + plain.define.size());
    }
    per_argument(state);
}

struct Owned {
    bool verbose = false, quiet = false, force = false;
    std::string output, scale, pens, layer;
    std::vector<std::string> define, items;
};

void parse_cli11(benchmark::State& state) {
    Argv arguments(state.range(0));
    for (auto _ : state) {
        Owned owned;
        CLI::App app;
        app.add_flag("-v,--verbose", owned.verbose);
        app.add_flag("-q,--quiet", owned.quiet);
        app.add_flag("-f,--force", owned.force);
        app.add_option("-o,--output", owned.output)->take_last();
        app.add_option("-s,--scale", owned.scale)->take_last();
        app.add_option("-p,--pens", owned.pens)->take_last();
        app.add_option("-l,--layer", owned.layer)->take_last();
        app.add_option("-D,--define", owned.define)->allow_extra_args(false);
        app.add_option("items", owned.items);
        app.parse(arguments.argc(), arguments.argv());
        benchmark::DoNotOptimize(owned.items.size() + owned.define.size());
    }
    per_argument(state);
}

void parse_cxxopts(benchmark::State& state) {
    Argv arguments(state.range(0));
    for (auto _ : state) {
        cxxopts::Options options("bench");
        options.add_options()("v,verbose", "")("q,quiet", "")("f,force", "")(
            "o,output", "", cxxopts::value<std::string>())("s,scale", "", cxxopts::value<std::string>())(
            "p,pens", "", cxxopts::value<std::string>())("l,layer", "", cxxopts::value<std::string>())(
            "D,define", "", cxxopts::value<std::vector<std::string>>())("items", "",
                                                                        cxxopts::value<std::vector<std::string>>());
        options.parse_positional("items");
        const auto result = options.parse(arguments.argc(), arguments.argv());
        benchmark::DoNotOptimize(result["items"].as<std::vector<std::string>>().size() +
                                 result["define"].as<std::vector<std::string>>().size());
    }
    per_argument(state);
}

BENCHMARK(parse_orvil)->Arg(10)->Arg(1000)->Arg(100000)->Complexity(benchmark::oN);
BENCHMARK(parse_getopt_long)->Arg(10)->Arg(1000)->Arg(100000)->Complexity(benchmark::oN);
BENCHMARK(parse_cli11)->Arg(10)->Arg(1000)->Arg(100000)->Complexity(benchmark::oN);
BENCHMARK(parse_cxxopts)->Arg(10)->Arg(1000)->Arg(100000)->Complexity(benchmark::oN);

// --- splitting -------------------------------------------------------------------------------------------------------

void split_orvil(benchmark::State& state) {
    std::string line = "bench";
    for (const std::string& text : make_arguments(state.range(0))) {
        line += " \"" + text + "\"";
    }
    for (auto _ : state) {
        CExtStrList words;
        benchmark::DoNotOptimize(getopt_parse_string_to_list(line.c_str(), words, false));
    }
    per_argument(state);
}

void split_cli11(benchmark::State& state) {
    std::string line = "bench";
    for (const std::string& text : make_arguments(state.range(0))) {
        line += " \"" + text + "\"";
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(CLI::detail::split_up(line).size());
    }
    per_argument(state);
}

BENCHMARK(split_orvil)->Arg(10)->Arg(1000)->Arg(100000)->Complexity(benchmark::oN);
BENCHMARK(split_cli11)->Arg(10)->Arg(1000);

}  // namespace
