#include <cstdio>

#include "commands.h"
#include "input.h"
#include "name_check.h"
#include "report.h"

namespace orvil_host {
namespace {

void print_value(const CLexToken& value) {
    CExtString written;
    value.CreateOutputString(written);
    std::printf("%s %s\n", value.GetTokenKindString(), written.GetString());
}

// The children of an assignment are '=', its values and ';'.
void print_values(const CLexTokenBlock& assignment) {
    const int last = assignment.GetBlockCount() - 1;
    for (int i = 1; i < last; ++i) {
        print_value(*assignment.GetAt(i));
    }
    if (last < 2) {
        std::printf("Empty\n");
    }
}

ExitCode get(const Arguments& arguments) {
    if (arguments.words.size() != 2) {
        return misused(get_command(), "a file and a name are needed");
    }
    const std::string& path = arguments.words[0];
    const std::string& name = arguments.words[1];
    const std::string trouble = why_no_name(name);
    if (!trouble.empty()) {
        return misused(get_command(), trouble);
    }
    Input input;
    if (!read_input(path, input)) {
        return kFailed;
    }
    const CLexTokenBlock* assignment = input.root.FindAssignmentBlockEntity(name.c_str());
    if (assignment == nullptr) {
        return fail(path + " assigns nothing to " + name);
    }
    print_values(*assignment);
    return kDone;
}

}  // namespace

const Command& get_command() {
    static const Command command{
        "get",
        "get FILE NAME",
        "print the values of a name",
        "Takes the first assignment of that name in the file, inside of blocks or not. Prints a line for each value:\n"
        "its kind, and the value as a file would hold it. A name that is assigned no value prints \"Empty\".\n"
        "Exit codes: 0 printed; 1 the file does not read whole, or assigns nothing to the name.\n",
        {},
        get};
    return command;
}

}  // namespace orvil_host
