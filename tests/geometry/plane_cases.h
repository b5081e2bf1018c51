// Cases of plane functions from captioned files in tests/data/geometry.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace orvil::test {

// What every output holds before a call; the word `kept` in a file.
inline constexpr double kKept = 7.25;

struct PlaneCase {
    std::string caption;
    std::string function;
    std::vector<double> given;
    std::vector<double> expected;  // the result, then the outputs
    double within = 1e-12;         // relative to an expected value above 1
};

inline void PrintTo(const PlaneCase& plane_case, std::ostream* out) {
    *out << plane_case.caption;
}

// The cases of a file, in order. When it does not read whole, the one case says so and names no function.
std::vector<PlaneCase> read_plane_cases(const std::string& file);

// A caption as the name of a test: its words without blanks, each with a capital.
std::string test_name(const std::string& caption);

}  // namespace orvil::test
