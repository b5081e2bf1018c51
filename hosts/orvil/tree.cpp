#include <cstdio>

#include "commands.h"
#include "input.h"
#include "report.h"
#include "safe_write.h"

namespace orvil_host {
namespace {

ExitCode tree(const Arguments& arguments) {
    if (arguments.words.size() != 1) {
        return misused(tree_command(), "one file is needed");
    }
    const std::string& path = arguments.words.front();
    Input input;
    if (!read_input(path, input)) {
        return kFailed;
    }
    if (input.review.deepest > kDeepestShown) {
        return fail(path + " is nested " + std::to_string(input.review.deepest) + " deep, and a tree is shown to " +
                    std::to_string(kDeepestShown));
    }
    CExtString dump;
    input.root.MakeDumpString(dump, 0);
    std::printf("%s\n", dump.GetString());
    return kDone;
}

}  // namespace

const Command& tree_command() {
    static const Command command{
        "tree",
        "tree FILE",
        "print the tree that a file reads into",
        "Each assignment and block is a rule and a line of information with its children below; a token shows its\n"
        "kind, its text, and the line and column at which reading it began, both as the library counts them.\n"
        "Exit codes: 0 printed; 1 the file does not read whole, or is nested more than 1000 deep.\n",
        {},
        tree};
    return command;
}

}  // namespace orvil_host
