#include <cstdio>

#include "commands.h"
#include "input.h"
#include "parameter_tables.h"
#include "report.h"
#include "safe_write.h"

namespace orvil_host {
namespace {

// Names of nested blocks hold those of all blocks around them, so that there is a limit to the depth.
bool read_tables(const std::string& path, ParameterTables& tables) {
    Input input;
    if (!read_input(path, input)) {
        return false;
    }
    if (input.review.deepest > kDeepestShown) {
        fail(path + " is nested " + std::to_string(input.review.deepest) + " deep, and parameters are shown to " +
             std::to_string(kDeepestShown));
        return false;
    }
    if (!tables.add_blocks(input.root)) {
        fail("out of memory");
        return false;
    }
    return true;
}

ExitCode params(const Arguments& arguments) {
    if (arguments.words.empty() || arguments.words.size() > 2) {
        return misused(params_command(), "one file is needed, and at most the name of one block");
    }
    const std::string& path = arguments.words.front();
    ParameterTables tables;
    if (!read_tables(path, tables)) {
        return kFailed;
    }
    if (tables.is_empty()) {
        return fail(path + " has no block that assigns anything");
    }
    if (arguments.words.size() == 1) {
        tables.print_all();
        return kDone;
    }
    const std::string& block = arguments.words.back();
    return tables.print(block) ? kDone : fail(path + " has no block " + block + " that assigns anything");
}

}  // namespace

const Command& params_command() {
    static const Command command{
        "params",
        "params FILE [BLOCK]",
        "print the parameters of blocks as tables",
        "Takes what the blocks of a file assign as parameters with types, and prints a table for each block, or for\n"
        "BLOCK only; the name of a block in a block is Outer.Inner. Blocks of one name are one table, in which the "
        "last\n"
        "assignment of a name counts. Several values, and whole numbers beyond 32 bits, are shown as texts.\n"
        "Exit codes: 0 printed; 1 the file does not read whole, is nested more than 1000 deep, or has no such block.\n",
        {},
        params};
    return command;
}

}  // namespace orvil_host
