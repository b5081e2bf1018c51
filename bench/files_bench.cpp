// Directories: reading all entries, and finding the half of them that match, with status, against the C++ library's
// directory_iterator. Each reports nanoseconds per entry.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "orvil/files/current_directory.h"
#include "orvil/files/directory_stream.h"
#include "orvil/files/file_search.h"

namespace {

namespace fs = std::filesystem;

// A folder of empty files, plan0.cfg, note1.txt, plan2.cfg and so on, which is the working folder.
class Folder {
public:
    explicit Folder(int entries) : path_(fs::temp_directory_path() / "orvil-bench-files") {
        fs::remove_all(path_);
        fs::create_directory(path_);
        fs::current_path(path_);
        for (int i = 0; i < entries; ++i) {
            const std::string number = std::to_string(i);
            std::ofstream(i % 2 == 0 ? "plan" + number + ".cfg" : "note" + number + ".txt");
        }
    }
    ~Folder() {
        fs::current_path(path_.parent_path());
        fs::remove_all(path_);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

private:
    CCurrentDirectory back_;
    fs::path path_;
};

int list_by_orvil() {
    int count = 0;
    DIR* stream = opendir(".");
    while (readdir(stream) != nullptr) {
        ++count;
    }
    closedir(stream);
    return count - 2;
}

int list_by_std() {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(".")) {
        benchmark::DoNotOptimize(entry);
        ++count;
    }
    return count;
}

int find_by_orvil() {
    int count = 0;
    CFileSearch search;
    search.Setup("*.cfg");
    while (search.FindNext()) {
        count += search.IsDirectory() ? 0 : 1;
    }
    return count * 2;
}

int find_by_std() {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(fs::current_path())) {
        if (entry.path().extension() == ".cfg") {
            benchmark::DoNotOptimize(fs::status(entry.path()));
            benchmark::DoNotOptimize(entry.path().string());
            ++count;
        }
    }
    return count * 2;
}

void go_through(benchmark::State& state, int (*go)()) {
    const auto entries = static_cast<int>(state.range(0));
    const Folder folder(entries);
    for (auto _ : state) {
        if (go() != entries) {
            state.SkipWithError("entries are missing");
        }
    }
    state.counters["ns/entry"] =
        benchmark::Counter(static_cast<double>(entries) * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void few_to_many(benchmark::internal::Benchmark* bench) {
    bench->ArgName("entries")->Unit(benchmark::kMicrosecond)->RangeMultiplier(10)->Range(100, 10'000);
}

BENCHMARK_CAPTURE(go_through, list_orvil, list_by_orvil)->Name("List/orvil")->Apply(few_to_many);
BENCHMARK_CAPTURE(go_through, list_std, list_by_std)->Name("List/directory_iterator")->Apply(few_to_many);
BENCHMARK_CAPTURE(go_through, find_orvil, find_by_orvil)->Name("Find/orvil")->Apply(few_to_many);
BENCHMARK_CAPTURE(go_through, find_std, find_by_std)->Name("Find/directory_iterator")->Apply(few_to_many);

}  // namespace
