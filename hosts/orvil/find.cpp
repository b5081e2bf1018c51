#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "change_folder.h"
#include "commands.h"
#include "orvil/files/current_directory.h"
#include "orvil/files/file_path.h"
#include "orvil/files/file_search.h"
#include "report.h"

namespace orvil_host {
namespace {

constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

bool set_up(CFileSearch& search, const std::string& pattern, bool is_regex) {
    if (is_regex) {
        return search.RegexSetup(pattern.c_str());
    }
    return !pattern.empty() && search.Setup(pattern.c_str());
}

// The paths of what is found, in order; those of folders end with a separator.
std::vector<std::string> paths_of(CFileSearch& search) {
    std::vector<std::string> paths;
    while (search.FindNext()) {
        if (!search.IsDots()) {
            paths.emplace_back(search.GetFilePath());
            paths.back() += search.IsDirectory() ? std::string(1, kSeparator) : "";
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

ExitCode find(const Arguments& arguments) {
    if (arguments.words.size() != 2) {
        return misused(find_command(), "a folder and a pattern are needed");
    }
    const std::string& folder = arguments.words[0];
    const std::string& pattern = arguments.words[1];
    const CCurrentDirectory here;
    if (!change_folder(folder.c_str())) {
        return fail(folder + " is no folder that can be searched");
    }
    CFilePath::SetDispInternalSeparator(kSeparator == '/');
    CFileSearch search;
    if (!set_up(search, pattern, arguments.has("regex"))) {
        return misused(find_command(), pattern + " is no valid pattern");
    }
    const std::vector<std::string> paths = paths_of(search);
    for (const std::string& path : paths) {
        std::printf("%s\n", path.c_str());
    }
    return paths.empty() ? fail("nothing in " + folder + " matches " + pattern) : kDone;
}

}  // namespace

const Command& find_command() {
    static const Command command{
        "find",
        "find DIR PATTERN [--regex]",
        "print the paths of matching files and folders",
        "Looks into the folder DIR, not into those in it, and prints the full paths in order; those of folders end "
        "with\n"
        "a separator. The whole name must match, in either case: * stands for any bytes or none, and ? for one byte.\n"
        "*.* wants a point. A pattern may not hold a bar; braces and backslashes mean what they mean in a regular\n"
        "expression. Quote the pattern, so that the shell leaves it alone.\n"
        "  --regex   PATTERN is a regular expression with delimiters and flags, such as /^sheet\\d+/i, and need not\n"
        "            match the whole name\n"
        "Exit codes: 0 printed; 1 DIR is no folder, or nothing matches.\n",
        {{"regex", kNoLetter, false}},
        find};
    return command;
}

}  // namespace orvil_host
