#include "support/Program.h"

#include "support/ScratchFolder.h"

#include <fstream>
#include <iterator>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quillon::test {

namespace {

std::string contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void redirect(const std::string& path, int flags, int descriptor) {
    const int file = ::open(path.c_str(), flags, 0600);
    if (file < 0 || ::dup2(file, descriptor) < 0) {
        ::_exit(127);
    }
}

} // namespace

ProgramRun runCli(const std::vector<std::string>& arguments, const std::string& input) {
    // Files, not pipes: no output is too large for them.
    const ScratchFolder scratch;
    scratch.write("in", input);
    std::vector<const char*> argv = {QUILLON_CLI};
    for (const std::string& argument : arguments) {
        argv.push_back(argument.c_str());
    }
    argv.push_back(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        redirect(scratch.path("in"), O_RDONLY, STDIN_FILENO);
        redirect(scratch.path("out"), O_WRONLY | O_CREAT, STDOUT_FILENO);
        redirect(scratch.path("err"), O_WRONLY | O_CREAT, STDERR_FILENO);
        ::execv(QUILLON_CLI, const_cast<char**>(argv.data()));
        ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), contentsOf(scratch.path("out")),
            contentsOf(scratch.path("err"))};
}

} // namespace quillon::test
