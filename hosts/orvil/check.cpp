#include <cstddef>
#include <cstdio>

#include "commands.h"
#include "input.h"
#include "report.h"

namespace orvil_host {
namespace {

// What reads, but most likely is a slip, in the file's order.
void warn(const std::string& path, const Input& input) {
    auto left_out = input.text.left_out.begin();
    const auto end = input.text.left_out.end();
    for (std::size_t stray : input.review.strays) {
        for (; left_out != end && left_out->token < stray; ++left_out) {
            report(path, finding_of_left_out(*left_out), "warning: ");
        }
        report(path, finding_of_stray(input.text, stray), "warning: ");
    }
    for (; left_out != end; ++left_out) {
        report(path, finding_of_left_out(*left_out), "warning: ");
    }
}

bool check_file(const std::string& path) {
    Input input;
    if (!read_input(path, input)) {
        return false;
    }
    warn(path, input);
    const int count = input.root.GetBlockCount();
    std::printf("%s: %d %s\n", path.c_str(), count, count == 1 ? "entry" : "entries");
    return true;
}

ExitCode check(const Arguments& arguments) {
    if (arguments.words.empty()) {
        return misused(check_command(), "no file is given");
    }
    bool all_read = true;
    for (const std::string& path : arguments.words) {
        all_read &= check_file(path);
    }
    return all_read ? kDone : kFailed;
}

}  // namespace

const Command& check_command() {
    static const Command command{
        "check",
        "check FILE...",
        "say whether files read whole, and where they do not",
        "Prints a line for each file: the number of its outermost entries, or the first fault with its place.\n"
        "Warns of delimiters that stand alone, and of quotes and other characters that the library leaves out.\n"
        "Exit codes: 0 every file reads whole; 1 some file does not.\n",
        {},
        check};
    return command;
}

}  // namespace orvil_host
