// Regular expressions beside bare PCRE and std::regex.
#include <benchmark/benchmark.h>
#include <pcre.h>

#include <cstddef>
#include <regex>
#include <string>
#include <vector>

#include "orvil/strings/ext_str_array.h"
#include "orvil/strings/ext_string.h"
#include "orvil/strings/regex.h"

namespace {

constexpr char kLine[] = "; layer = dimension_lines, colour 7";
constexpr int kLineLength = sizeof(kLine) - 1;
constexpr char kPattern[] = "(\\w+) = (\\w+)";
constexpr char kNotation[] = "/(\\w+) = (\\w+)/";

// A pattern of bare PCRE, with machine code as the library's have it.
class Bare {
public:
    explicit Bare(const char* pattern) {
        const char* message = nullptr;
        int offset = 0;
        code_ = pcre_compile(pattern, 0, &message, &offset, nullptr);
        study_ = pcre_study(code_, PCRE_STUDY_JIT_COMPILE, &message);
    }
    ~Bare() {
        pcre_free_study(study_);
        pcre_free(code_);
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    int exec(const char* subject, int length, int* ovector) const {
        return pcre_exec(code_, study_, subject, length, 0, 0, ovector, 256);
    }

private:
    pcre* code_ = nullptr;
    pcre_extra* study_ = nullptr;
};

std::string list_of(std::size_t pieces) {
    std::string text;
    for (std::size_t i = 0; i < pieces; ++i) {
        text += "piece" + std::to_string(i % 1000) + ",";
    }
    return text;
}

std::size_t pieces_of(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

void count_pieces(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

// --- one match -------------------------------------------------------------------------------------------------------

void MatchByHandle(benchmark::State& state) {
    void* handle = regex_compile(kNotation);
    int ovector[256];
    for (auto _ : state) {
        benchmark::DoNotOptimize(regex_execute(handle, nullptr, kLine, kLineLength, 0, 0, ovector, 256));
    }
    regex_cleanup();
}
BENCHMARK(MatchByHandle);

void MatchByBarePcre(benchmark::State& state) {
    const Bare bare(kPattern);
    int ovector[256];
    for (auto _ : state) {
        benchmark::DoNotOptimize(bare.exec(kLine, kLineLength, ovector));
    }
}
BENCHMARK(MatchByBarePcre);

void MatchByStdRegex(benchmark::State& state) {
    const std::regex regex(kPattern);
    std::cmatch match;
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::regex_search(kLine, kLine + kLineLength, match, regex));
    }
}
BENCHMARK(MatchByStdRegex);

void MatchByTextAtTheLastOfTwenty(benchmark::State& state) {
    regex_compile(kNotation);
    for (char c = 'a'; c < 'a' + 19; ++c) {
        regex_compile((std::string("/") + c + "[0-9]+/").c_str());
    }
    const CExtString line(kLine);
    for (auto _ : state) {
        benchmark::DoNotOptimize(line.RegexMatch(kNotation));
    }
    regex_cleanup();
}
BENCHMARK(MatchByTextAtTheLastOfTwenty);

// --- groups as owned strings -----------------------------------------------------------------------------------------

void GroupsAsStrings(benchmark::State& state) {
    const auto* handle = static_cast<const char*>(regex_compile(kNotation));
    const CExtString line(kLine);
    CExtStrArray parts;
    for (auto _ : state) {
        benchmark::DoNotOptimize(line.RegexMatch(handle, parts));
    }
    regex_cleanup();
}
BENCHMARK(GroupsAsStrings);

void GroupsAsStringsByBarePcre(benchmark::State& state) {
    const Bare bare(kPattern);
    int ovector[256];
    for (auto _ : state) {
        std::vector<std::string> parts;
        const int pairs = bare.exec(kLine, kLineLength, ovector);
        for (int k = 0; k < pairs; ++k) {
            parts.emplace_back(kLine + ovector[2 * k], kLine + ovector[2 * k + 1]);
        }
        benchmark::DoNotOptimize(parts.data());
    }
}
BENCHMARK(GroupsAsStringsByBarePcre);

void GroupsAsStringsByStdRegex(benchmark::State& state) {
    const std::regex regex(kPattern);
    for (auto _ : state) {
        std::cmatch match;
        std::vector<std::string> parts;
        std::regex_search(kLine, kLine + kLineLength, match, regex);
        for (const auto& group : match) {
            parts.push_back(group.str());
        }
        benchmark::DoNotOptimize(parts.data());
    }
}
BENCHMARK(GroupsAsStringsByStdRegex);

// --- splitting -------------------------------------------------------------------------------------------------------

void Split(benchmark::State& state) {
    const CExtString text(list_of(pieces_of(state)).c_str());
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.RegexSplit("/,/").GetSize());
    }
    count_pieces(state);
    regex_cleanup();
}
BENCHMARK(Split)->RangeMultiplier(10)->Range(10000, 1000000)->Complexity(benchmark::oN);

void SplitByBarePcre(benchmark::State& state) {
    const Bare bare(",");
    const std::string text = list_of(pieces_of(state));
    int ovector[256];
    for (auto _ : state) {
        std::vector<std::string> pieces;
        const char* rest = text.data();
        const char* const end = rest + text.size();
        while (bare.exec(rest, static_cast<int>(end - rest), ovector) > 0) {
            pieces.emplace_back(rest, rest + ovector[0]);
            rest += ovector[1];
        }
        benchmark::DoNotOptimize(pieces.data());
    }
    count_pieces(state);
}
BENCHMARK(SplitByBarePcre)->RangeMultiplier(10)->Range(10000, 1000000)->Complexity(benchmark::oN);

void SplitByStdRegex(benchmark::State& state) {
    const std::regex regex(",");
    const std::string text = list_of(pieces_of(state));
    for (auto _ : state) {
        const std::vector<std::string> pieces(std::sregex_token_iterator(text.begin(), text.end(), regex, -1),
                                              std::sregex_token_iterator());
        benchmark::DoNotOptimize(pieces.data());
    }
    count_pieces(state);
}
BENCHMARK(SplitByStdRegex)->RangeMultiplier(10)->Range(10000, 1000000)->Complexity(benchmark::oN);

// --- replacing -------------------------------------------------------------------------------------------------------

void Replace(benchmark::State& state) {
    const CExtString text(list_of(pieces_of(state)).c_str());
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.RegexReplace("/,/", "; ").GetLength());
    }
    count_pieces(state);
    regex_cleanup();
}
BENCHMARK(Replace)->RangeMultiplier(10)->Range(10000, 1000000)->Complexity(benchmark::oN);

void ReplaceByBarePcre(benchmark::State& state) {
    const Bare bare(",");
    const std::string text = list_of(pieces_of(state));
    int ovector[256];
    for (auto _ : state) {
        std::string result;
        const char* rest = text.data();
        const char* const end = rest + text.size();
        while (bare.exec(rest, static_cast<int>(end - rest), ovector) > 0) {
            result.append(rest, static_cast<std::size_t>(ovector[0])).append("; ");
            rest += ovector[1];
        }
        benchmark::DoNotOptimize(result.append(rest, end).data());
    }
    count_pieces(state);
}
BENCHMARK(ReplaceByBarePcre)->RangeMultiplier(10)->Range(10000, 1000000)->Complexity(benchmark::oN);

void ReplaceByStdRegex(benchmark::State& state) {
    const std::regex regex(",");
    const std::string text = list_of(pieces_of(state));
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::regex_replace(text, regex, "; ").data());
    }
    count_pieces(state);
}
BENCHMARK(ReplaceByStdRegex)->RangeMultiplier(10)->Range(10000, 1000000)->Complexity(benchmark::oN);

// --- compiling -------------------------------------------------------------------------------------------------------

void Compile(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(regex_compile(kNotation));
        regex_cleanup();
    }
}
BENCHMARK(Compile);

void CompileByBarePcre(benchmark::State& state) {
    for (auto _ : state) {
        const Bare bare(kPattern);
        benchmark::DoNotOptimize(&bare);
    }
}
BENCHMARK(CompileByBarePcre);

void CompileByStdRegex(benchmark::State& state) {
    for (auto _ : state) {
        const std::regex regex(kPattern);
        benchmark::DoNotOptimize(&regex);
    }
}
BENCHMARK(CompileByStdRegex);

}  // namespace
