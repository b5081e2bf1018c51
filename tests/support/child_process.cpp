#include "support/child_process.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>

#include "support/temp_dir.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace orvil::test {

std::string show_line_ends(const std::string& text) {
    std::string shown;
    for (char c : text) {
        if (c == '\r') {
            shown += "\\r";
        } else if (c == '\n') {
            shown += "\\n";
        } else {
            shown += c;
        }
    }
    return shown;
}

#ifdef _WIN32

std::string program_folder() {
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string program = path;
    return program.substr(0, program.find_last_of("\\/") + 1);
}

namespace {

// Sets variables for the children made while it lives.
class ChangedEnvironment {
public:
    explicit ChangedEnvironment(const std::vector<Variable>& changes) {
        for (const Variable& change : changes) {
            char old[1000];
            const DWORD length = GetEnvironmentVariableA(change.name.c_str(), old, sizeof old);
            before_.emplace_back(change.name, length == 0 ? std::nullopt : std::optional<std::string>(old));
            SetEnvironmentVariableA(change.name.c_str(), change.value);
        }
    }
    ~ChangedEnvironment() {
        for (const auto& [name, value] : before_) {
            SetEnvironmentVariableA(name.c_str(), value ? value->c_str() : nullptr);
        }
    }
    ChangedEnvironment(const ChangedEnvironment&) = delete;
    ChangedEnvironment& operator=(const ChangedEnvironment&) = delete;

private:
    std::vector<std::pair<std::string, std::optional<std::string>>> before_;
};

// The debuggee stands still while its event is handled, and both write through one file position: the lines keep the
// order of what happened.
void copy_debug_text(HANDLE process, const OUTPUT_DEBUG_STRING_INFO& info, HANDLE output) {
    std::string text(info.nDebugStringLength, '\0');
    SIZE_T read = 0;
    ReadProcessMemory(process, info.lpDebugStringData, text.data(), text.size(), &read);
    text.resize(read);
    const std::string line = "debug=" + show_line_ends(text.c_str()) + "\n";
    DWORD written = 0;
    WriteFile(output, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

// Lets the debuggee run to its end; returns its exit code.
int debug(HANDLE process, HANDLE output) {
    for (;;) {
        DEBUG_EVENT event{};
        if (!WaitForDebugEvent(&event, 60000)) {
            TerminateProcess(process, 1);
            return -1;
        }
        DWORD answer = DBG_CONTINUE;
        if (event.dwDebugEventCode == OUTPUT_DEBUG_STRING_EVENT) {
            copy_debug_text(process, event.u.DebugString, output);
        } else if (event.dwDebugEventCode == EXCEPTION_DEBUG_EVENT &&
                   event.u.Exception.ExceptionRecord.ExceptionCode != EXCEPTION_BREAKPOINT) {
            answer = DBG_EXCEPTION_NOT_HANDLED;
        }
        ContinueDebugEvent(event.dwProcessId, event.dwThreadId, answer);
        if (event.dwDebugEventCode == EXIT_PROCESS_DEBUG_EVENT) {
            return static_cast<int>(event.u.ExitProcess.dwExitCode);
        }
    }
}

}  // namespace

ChildResult run_child(const std::string& program, const std::vector<std::string>& arguments,
                      const std::vector<Variable>& changes) {
    const ChangedEnvironment environment(changes);
    const TempDir folder;
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    const HANDLE output = CreateFileA(folder.path("output").c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    std::string command = "\"" + program_folder() + program + ".exe\"";
    for (const std::string& argument : arguments) {
        command += " \"" + argument + "\"";
    }
    ChildResult result;
    PROCESS_INFORMATION child{};
    if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, DEBUG_ONLY_THIS_PROCESS, nullptr, nullptr,
                       &startup, &child)) {
        result.exit_code = debug(child.hProcess, output);
        CloseHandle(child.hThread);
        CloseHandle(child.hProcess);
    }
    CloseHandle(output);
    std::erase(result.output = read_file(folder.path("output")), '\r');
    return result;
}

#else

std::string program_folder() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path().string() + "/";
}

namespace {

[[noreturn]] void become(const std::string& program, const std::vector<std::string>& arguments,
                         const std::vector<Variable>& changes, const std::string& output) {
    dup2(open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
    for (const Variable& change : changes) {
        if (change.value == nullptr) {
            unsetenv(change.name.c_str());
        } else {
            setenv(change.name.c_str(), change.value, 1);
        }
    }
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    execv(program.c_str(), words.data());
    _exit(127);
}

}  // namespace

ChildResult run_child(const std::string& program, const std::vector<std::string>& arguments,
                      const std::vector<Variable>& changes) {
    const TempDir folder;
    const pid_t child = fork();
    if (child == 0) {
        become(program_folder() + program, arguments, changes, folder.path("output"));
    }
    int status = 0;
    ChildResult result;
    if (child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status)) {
        result.exit_code = WEXITSTATUS(status);
    }
    result.output = read_file(folder.path("output"));
    return result;
}

#endif

}  // namespace orvil::test
