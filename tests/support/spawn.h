// Starting a program, which every system does in its own way; see posix/ and windows/.
#pragma once

#include <string>
#include <vector>

namespace orvil::test {

inline constexpr int kLongestRunSeconds = 120;

// Runs a program with its outputs in two files that exist. Returns its exit code, or -1.
int spawn_and_wait(const std::string& program, const std::vector<std::string>& arguments, const std::string& out,
                   const std::string& err);

}  // namespace orvil::test
