// Reading files into trees, and freeing the trees: token blocks against libconfig++, nlohmann-json and pugixml on the
// same settings. Each reports nanoseconds per value.
#include <benchmark/benchmark.h>
#include <time.h>

#include <fstream>
#include <iterator>
#include <libconfig.h++>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <pugixml.hpp>
#include <string>

#include "orvil/tokens/block_tokens.h"
#include "support/documents.h"

namespace {

using orvil::bench::Format;
using orvil::bench::Shape;

struct Orvil {
    static constexpr Format kFormat = Format::TokenBlocks;
    CLexTokenBlock root;
    bool parse(const std::string& path) { return bt_input_file(path.c_str(), root); }
};

struct LibConfig {
    static constexpr Format kFormat = Format::LibConfig;
    libconfig::Config root;
    bool parse(const std::string& path) {
        root.readFile(path.c_str());
        return true;
    }
};

struct Json {
    static constexpr Format kFormat = Format::Json;
    nlohmann::json root;
    bool parse(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        std::string text;
        file.seekg(0, std::ios::end);
        text.resize(static_cast<std::size_t>(file.tellg()));
        file.seekg(0);
        file.read(text.data(), static_cast<std::streamsize>(text.size()));
        root = nlohmann::json::parse(text);
        return true;
    }
};

struct PugiXml {
    static constexpr Format kFormat = Format::Xml;
    pugi::xml_document root;
    bool parse(const std::string& path) { return static_cast<bool>(root.load_file(path.c_str())); }
};

// Processor time of this thread: what else the machine does stays outside.
double processor_seconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

// `freeing` tells which of the two halves of a tree's life is timed; it is compared with the other half of the same
// trees, since from one minute to the next the machine may take a fifth longer for everything. The first pass, in which
// the process gets its memory from the system, is not.
template <typename Reader>
void read_tree(benchmark::State& state, const Shape& shape, bool freeing) {
    std::size_t values = 0;
    const std::string path =
        orvil::bench::document_file(Reader::kFormat, shape, static_cast<std::size_t>(state.range(0)), values);
    if (!Reader().parse(path)) {
        state.SkipWithError("the document is not read");
        return;
    }
    double parsing = 0;
    double releasing = 0;
    for (auto _ : state) {
        std::optional<Reader> reader(std::in_place);
        const double started = processor_seconds();
        reader->parse(path);
        const double parsed = processor_seconds();
        reader.reset();
        const double freed = processor_seconds();
        state.SetIterationTime(freeing ? freed - parsed : parsed - started);
        parsing += parsed - started;
        releasing += freed - parsed;
    }
    if (freeing) {
        state.counters["of reading"] = releasing / parsing;
    }
    state.counters["ns/value"] =
        benchmark::Counter(static_cast<double>(values) * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

template <typename Reader>
void add(const std::string& name, const Shape& shape) {
    for (bool freeing : {false, true}) {
        auto* made =
            benchmark::RegisterBenchmark((std::string(freeing ? "Free/" : "Parse/") + shape.name + "/" + name).c_str(),
                                         read_tree<Reader>, shape, freeing);
        made->Arg(100'000)->Arg(1'000'000)->Arg(10'000'000)->Arg(100'000'000)->UseManualTime();
        made->Unit(benchmark::kMillisecond);
        if (freeing) {
            made->Iterations(10);  // some peers free in no time: by time, they would parse for minutes
        }
    }
}

// Files that are one thing a million times over, or one thing of a hundred megabytes: linear in their size.
void read_text(benchmark::State& state, const char* name, std::string (*make)(std::size_t)) {
    const auto count = static_cast<std::size_t>(state.range(0));
    const std::string path = orvil::bench::text_file(name, make(count));
    for (auto _ : state) {
        CLexTokenBlock root;
        if (!bt_input_file(path.c_str(), root)) {
            state.SkipWithError("the file is not read");
        }
    }
    state.counters["ns/item"] = benchmark::Counter(
        static_cast<double>(count) * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

std::string repeated(const char* piece, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += piece;
    }
    return text;
}

std::string comments(std::size_t count) {
    return repeated("/* a comment */\n", count) + "x = 1;\n";
}

std::string line_comments(std::size_t count) {
    return repeated("// a comment\n", count) + "x = 1;\n";
}

std::string one_string(std::size_t bytes) {
    return "x = \"" + std::string(bytes, 'v') + "\";\n";
}

std::string nested(std::size_t depth) {
    return repeated("x{", depth) + repeated("}", depth) + "\n";
}

std::string one_block(std::size_t count) {
    return "x {\n" + repeated("value = 12;\n", count) + "}\n";
}

void add_special(const char* name, std::string (*make)(std::size_t), std::int64_t largest) {
    auto* made = benchmark::RegisterBenchmark(("Linear/" + std::string(name)).c_str(), read_text, name, make);
    made->Arg(largest / 100)->Arg(largest / 10)->Arg(largest)->Unit(benchmark::kMillisecond);
}

}  // namespace

int main(int argc, char** argv) {
    for (const Shape& shape : {orvil::bench::kWide, orvil::bench::kDeep}) {
        add<Orvil>("orvil", shape);
        add<LibConfig>("libconfig++", shape);
        add<Json>("nlohmann-json", shape);
        add<PugiXml>("pugixml", shape);
    }
    add_special("comments", comments, 1'000'000);
    add_special("line comments", line_comments, 1'000'000);
    add_special("one string of that many bytes", one_string, 100'000'000);
    add_special("nested blocks", nested, 1'000'000);
    add_special("assignments in one block", one_block, 1'000'000);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
