// Writing trees to files: token blocks against libconfig++, nlohmann-json and pugixml on the same settings. Each
// reports nanoseconds per value.
#include <benchmark/benchmark.h>

#include <fstream>
#include <libconfig.h++>
#include <nlohmann/json.hpp>
#include <pugixml.hpp>
#include <string>

#include "orvil/tokens/block_tokens.h"
#include "support/documents.h"

namespace {

using orvil::bench::Format;

// A tree that has been read cannot be written: its entries are copied under a master block.
struct Orvil {
    static constexpr Format kFormat = Format::TokenBlocks;
    CLexTokenBlock root;
    bool load(const std::string& path) {
        CLexTokenBlock read;
        if (!bt_input_file(path.c_str(), read) || !bt_make_master_block(root, "settings.txt", "settings")) {
            return false;
        }
        for (int i = 0; i < read.GetBlockCount(); ++i) {
            if (bt_add_block(root, *read.GetAt(i)) < 0) {
                return false;
            }
        }
        return true;
    }
    bool write(const std::string& path) { return bt_output_file(path.c_str(), root, false); }
};

struct LibConfig {
    static constexpr Format kFormat = Format::LibConfig;
    libconfig::Config root;
    bool load(const std::string& path) {
        root.readFile(path.c_str());
        return true;
    }
    bool write(const std::string& path) {
        root.writeFile(path.c_str());
        return true;
    }
};

struct Json {
    static constexpr Format kFormat = Format::Json;
    nlohmann::json root;
    bool load(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        file >> root;
        return true;
    }
    bool write(const std::string& path) {
        std::ofstream file(path, std::ios::binary);
        file << root.dump(1, '\t');
        return file.good();
    }
};

struct PugiXml {
    static constexpr Format kFormat = Format::Xml;
    pugi::xml_document root;
    bool load(const std::string& path) { return static_cast<bool>(root.load_file(path.c_str())); }
    bool write(const std::string& path) { return root.save_file(path.c_str()); }
};

template <typename Library>
void write_tree(benchmark::State& state) {
    std::size_t values = 0;
    Library library;
    const std::string target = orvil::bench::text_file("written", "");
    if (!library.load(orvil::bench::document_file(Library::kFormat, orvil::bench::kWide,
                                                  static_cast<std::size_t>(state.range(0)), values))) {
        state.SkipWithError("the document is not read");
        return;
    }
    for (auto _ : state) {
        if (!library.write(target)) {
            state.SkipWithError("the document is not written");
        }
    }
    state.counters["ns/value"] =
        benchmark::Counter(static_cast<double>(values) * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

BENCHMARK_TEMPLATE(write_tree, Orvil)
    ->Name("Write/orvil")
    ->RangeMultiplier(10)
    ->Range(100'000, 100'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(write_tree, LibConfig)
    ->Name("Write/libconfig++")
    ->RangeMultiplier(10)
    ->Range(100'000, 100'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(write_tree, Json)
    ->Name("Write/nlohmann-json")
    ->RangeMultiplier(10)
    ->Range(100'000, 100'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(write_tree, PugiXml)
    ->Name("Write/pugixml")
    ->RangeMultiplier(10)
    ->Range(100'000, 100'000'000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
