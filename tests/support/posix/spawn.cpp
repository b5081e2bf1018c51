#include "support/spawn.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

extern char** environ;

namespace orvil::test {
namespace {

constexpr int kChecksPerSecond = 200;

int wait_for(pid_t process) {
    int status = 0;
    for (int i = 0; i < kLongestRunSeconds * kChecksPerSecond; ++i) {
        if (waitpid(process, &status, WNOHANG) == process) {
            return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        }
        const timespec pause{0, 1000000000 / kChecksPerSecond};
        nanosleep(&pause, nullptr);
    }
    kill(process, SIGKILL);
    waitpid(process, &status, 0);
    return -1;
}

}  // namespace

int spawn_and_wait(const std::string& program, const std::vector<std::string>& arguments, const std::string& out,
                   const std::string& err) {
    std::vector<char*> given{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) {
        given.push_back(const_cast<char*>(argument.c_str()));
    }
    given.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), O_WRONLY | O_TRUNC, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(), O_WRONLY | O_TRUNC, 0);
    pid_t process = 0;
    const int failure = posix_spawn(&process, program.c_str(), &actions, nullptr, given.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return failure == 0 ? wait_for(process) : -1;
}

}  // namespace orvil::test
