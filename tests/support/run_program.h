// Programs as a person runs them: both outputs are kept apart.
#pragma once

#include <string>
#include <vector>

namespace orvil::test {

struct ProgramResult {
    int exit_code = -1;  // -1 when it could not be started, crashed, or did not end in time
    std::string out;     // with CR LF turned into LF
    std::string err;
};

// Runs a program of this build by its name. The arguments reach it exactly as they are given; its working folder is
// this program's. A program that runs for more than two minutes is ended.
ProgramResult run_program(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace orvil::test
