// The program `orvil`: looks into token-block files and writes them.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "commands.h"
#include "report.h"

namespace orvil_host {
namespace {

using CommandEntry = const Command& (*)();

constexpr CommandEntry kCommands[] = {
    check_command,  tree_command,   get_command,   format_command, new_command,    messages_command,
    figure_command, params_command, curve_command, find_command,   backup_command,
};

const Command* command_called(const std::string& name) {
    for (CommandEntry entry : kCommands) {
        if (name == entry().name) {
            return &entry();
        }
    }
    return nullptr;
}

std::string help() {
    std::string text =
        "usage: orvil COMMAND ...\n\nLooks into token-block files and writes them; finds files and backs them up.\n\n";
    for (CommandEntry entry : kCommands) {
        const Command& command = entry();
        text += "  " + std::string(command.name) + std::string(10 - std::string(command.name).size(), ' ') +
                command.summary + "\n";
    }
    return text +
           "\norvil COMMAND --help    more about a command\n"
           "orvil --version         the program's version\n"
           "Exit code 64 means that the command line makes no sense.\n";
}

std::string help_of(const Command& command) {
    return std::string("usage: orvil ") + command.usage + "\n\n" + command.details;
}

ExitCode print(const std::string& text) {
    std::fputs(text.c_str(), stdout);
    return kDone;
}

ExitCode run_command(const Command& command, const std::vector<std::string>& given) {
    std::vector<OptionRule> rules = command.options;
    rules.push_back({"help", kNoLetter, false});
    Arguments arguments;
    const std::string trouble = read_arguments(given, rules, arguments);
    if (!trouble.empty()) {
        return misused(command, trouble);
    }
    return arguments.has("help") ? print(help_of(command)) : command.run(arguments);
}

ExitCode run(const std::vector<std::string>& given) {
    if (given.empty()) {
        return fail("a command is needed; orvil --help lists them", kMisused);
    }
    if (given.front() == "--help" || given.front() == "help") {
        return print(help());
    }
    if (given.front() == "--version") {
        return print("orvil " ORVIL_HOST_VERSION "\n");
    }
    const Command* command = command_called(given.front());
    if (command == nullptr) {
        return fail("there is no command " + given.front() + "; orvil --help lists them", kMisused);
    }
    return run_command(*command, {given.begin() + 1, given.end()});
}

ExitCode run_and_flush(int argc, char** argv) {
    const ExitCode code = run({argv + (argc > 0 ? 1 : 0), argv + argc});
    const bool printed = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    return printed || code != kDone ? code : fail("cannot write to the standard output");
}

}  // namespace

ExitCode misused(const Command& command, const std::string& message) {
    fail(message);
    std::fprintf(stderr, "usage: orvil %s\n", command.usage);
    return kMisused;
}

}  // namespace orvil_host

int main(int argc, char** argv) {
    try {
        return orvil_host::run_and_flush(argc, argv);
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "orvil: %s\n", exception.what());
        return orvil_host::kFailed;
    }
}
