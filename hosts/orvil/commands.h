// The commands of the program, each in a file of its own.
#pragma once

#include <string>
#include <vector>

#include "command_line.h"
#include "exit_codes.h"

namespace orvil_host {

struct Command {
    const char* name;
    const char* usage;    // what follows the program's name
    const char* summary;  // one line for the list of commands
    const char* details;  // the rest of its help
    std::vector<OptionRule> options;
    ExitCode (*run)(const Arguments& arguments);
};

const Command& check_command();
const Command& tree_command();
const Command& get_command();
const Command& format_command();
const Command& new_command();
const Command& messages_command();
const Command& figure_command();
const Command& params_command();
const Command& curve_command();
const Command& find_command();
const Command& backup_command();

// Says what is wrong with the command line, and how it should be.
ExitCode misused(const Command& command, const std::string& message);

}  // namespace orvil_host
