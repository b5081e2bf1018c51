#include <cstdio>
#include <string>

#include "commands.h"
#include "orvil/files/file_utils.h"
#include "orvil/strings/ext_string.h"
#include "report.h"

namespace orvil_host {
namespace {

constexpr int kNoLimit = 0;
constexpr int kLeastLimit = 2;
constexpr int kPlainName = -1;
constexpr int kNotTried = 0;
constexpr unsigned kFolder = 0x4000;

bool read_limit(const Arguments& arguments, int& limit) {
    const CExtString text = arguments.value("limit").c_str();
    return !arguments.has("limit") || (text.ParseInteger(limit) && limit >= kLeastLimit);
}

// The library has accepted the pattern: it holds one %d at most, and %%.
std::string name_of(const std::string& pattern, int number) {
    if (number == kPlainName) {
        return pattern;
    }
    CExtString name;
    name.Format(pattern.c_str(), number);
    return name.GetString();
}

ExitCode say_why_not(const std::string& file, const std::string& pattern, int number, int limit) {
    if (number == kNotTried) {
        return misused(backup_command(), pattern + " may hold %d once, and %% for a percent sign, and no other %");
    }
    if (limit != kNoLimit && number >= limit) {
        return fail("all numbers below " + std::to_string(limit) + " are taken");
    }
    return fail(file + " cannot be copied to " + name_of(pattern, number));
}

ExitCode backup(const Arguments& arguments) {
    int limit = kNoLimit;
    if (arguments.words.size() != 2) {
        return misused(backup_command(), "a file and a name for its backup are needed");
    }
    if (!read_limit(arguments, limit)) {
        return misused(backup_command(), "a limit is a whole number from 2 on");
    }
    const std::string& file = arguments.words[0];
    const std::string& pattern = arguments.words[1];
    const unsigned mode = orv_statmode(file.c_str());
    if (mode == 0 || (mode & kFolder) != 0) {
        return fail(file + " is no file that can be copied");
    }
    int number = kNotTried;
    if (!orv_backupfile(file.c_str(), pattern.c_str(), &number, limit)) {
        return say_why_not(file, pattern, number, limit);
    }
    std::printf("%s is kept as %s\n", file.c_str(), name_of(pattern, number).c_str());
    return kDone;
}

}  // namespace

const Command& backup_command() {
    static const Command command{
        "backup",
        "backup FILE PATTERN [--limit N]",
        "copy a file under the next free number",
        "A pattern such as plan.%d.bak is tried with 1, 2, 3 and so on, and FILE is copied to the first name that is\n"
        "free. %% stands for a percent sign. A pattern without %d is a plain name, and a file of that name is "
        "replaced.\n"
        "  --limit N   N is the first number that is not tried\n"
        "Exit codes: 0 copied, and the name printed; 1 FILE cannot be copied, or all numbers are taken.\n",
        {{"limit", kNoLetter, true}},
        backup};
    return command;
}

}  // namespace orvil_host
