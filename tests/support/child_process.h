// Programs that tests run beside themselves.
#pragma once

#include <string>
#include <vector>

namespace orvil::test {

// A variable of the environment; without a value it is removed.
struct Variable {
    std::string name;
    const char* value = nullptr;
};

struct ChildResult {
    int exit_code = -1;
    // What the program wrote to its standard output. On Windows each debug text stands in between where it was written,
    // as a line "debug=<text>" with CR and LF shown as "\r" and "\n".
    std::string output;
};

// Runs a program of this build by its name and waits for its end.
ChildResult run_child(const std::string& program, const std::vector<std::string>& arguments,
                      const std::vector<Variable>& changes = {});

// The folder of the running program, with a separator behind it. The library and all programs of a build stand there.
std::string program_folder();

// CR and LF shown as "\r" and "\n".
std::string show_line_ends(const std::string& text);

}  // namespace orvil::test
