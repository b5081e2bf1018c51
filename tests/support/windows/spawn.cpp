#include "support/spawn.h"

#include <windows.h>

#include <cstdio>

namespace orvil::test {
namespace {

// Quotes an argument so that the C runtime of the started program reads it back: backslashes count double before a
// quote only.
std::string quoted(const std::string& argument) {
    std::string out = "\"";
    std::size_t backslashes = 0;
    for (char character : argument) {
        if (character == '"') {
            out.append(backslashes + 1, '\\');
        }
        backslashes = character == '\\' ? backslashes + 1 : 0;
        out += character;
    }
    return out.append(backslashes, '\\') + "\"";
}

HANDLE open_for_child(const std::string& path) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, TRUNCATE_EXISTING, 0, nullptr);
}

int wait_for(const PROCESS_INFORMATION& process) {
    DWORD code = static_cast<DWORD>(-1);
    if (WaitForSingleObject(process.hProcess, kLongestRunSeconds * 1000) == WAIT_OBJECT_0) {
        GetExitCodeProcess(process.hProcess, &code);
    } else {
        TerminateProcess(process.hProcess, code);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

}  // namespace

int spawn_and_wait(const std::string& program, const std::vector<std::string>& arguments, const std::string& out,
                   const std::string& err) {
    std::string line = quoted(program);
    for (const std::string& argument : arguments) {
        line += " " + quoted(argument);
    }
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = open_for_child(out);
    startup.hStdError = open_for_child(err);
    PROCESS_INFORMATION process{};
    const bool started =
        CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process) != 0;
    const DWORD trouble = started ? ERROR_SUCCESS : GetLastError();
    CloseHandle(startup.hStdOutput);
    CloseHandle(startup.hStdError);
    if (!started) {
        std::fprintf(stderr, "cannot start %s: error %lu\n", line.c_str(), trouble);
        return -1;
    }
    return wait_for(process);
}

}  // namespace orvil::test
