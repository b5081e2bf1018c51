// accuracy [CASES [SEED]]: prints the worst errors of that many random cases of each kind (a million), function by
// function, as the table of docs/accuracy.md. The exit code is 1 when one exceeds what is documented.
#include <cstdio>
#include <cstdlib>

#include "accuracy.h"

namespace {

using namespace orvil::accuracy;

double worst_of(const Function& function, Kind kind, long cases, Random& random) {
    double worst = 0.0;
    for (long i = 0; i < cases; ++i) {
        const double error = function.error_of(random, kind);
        worst = error > worst ? error : worst;
    }
    return worst;
}

// Prints a row. Whether each error is within its bound.
bool measure(const Function& function, long cases, Random& random) {
    bool is_within = true;
    std::printf("| `%s` | %s |", function.name, function.relative_to);
    for (Kind kind : kKinds) {
        const double bound = function.bounds[static_cast<std::size_t>(kind)];
        if (bound == kNotMeasured) {
            std::printf(" |");
            continue;
        }
        const double worst = worst_of(function, kind, cases, random);
        is_within = is_within && worst <= bound;
        std::printf(" %.1e%s |", worst, worst <= bound ? "" : " (!)");
    }
    std::printf("\n");
    std::fflush(stdout);
    return is_within;
}

}  // namespace

int main(int argc, char** argv) {
    const long cases = argc > 1 ? std::atol(argv[1]) : 1000000;
    const auto seed = static_cast<std::uint64_t>(argc > 2 ? std::atol(argv[2]) : 1);
    if (cases < 1) {
        std::fprintf(stderr, "usage: accuracy [CASES [SEED]]\n");
        return 2;
    }
    Functions functions;
    add_scalars(functions);
    add_plane_figures(functions);
    add_plane_functions(functions);
    add_plane_ellipses(functions);
    add_space_figures(functions);
    add_curves(functions);

    std::printf("| Function | Error relative to | Ordinary | Huge | Tiny | Nearly degenerate |\n");
    std::printf("|---|---|---|---|---|---|\n");
    Random random(seed);
    bool are_within = true;
    for (const Function& function : functions) {
        are_within = measure(function, cases, random) && are_within;
    }
    return are_within ? 0 : 1;
}
