#include "Import/ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace VantrelEngine {

namespace {

// The set-up of a spawned process.
class SpawnSetup {
public:
    explicit SpawnSetup(int output) {
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
        posix_spawnattr_setpgroup(&attributes, 0);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes, &signals);
        sigaddset(&signals, SIGPIPE);
        posix_spawnattr_setsigdefault(&attributes, &signals);
    }
    ~SpawnSetup() {
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnSetup(const SpawnSetup&) = delete;
    SpawnSetup& operator=(const SpawnSetup&) = delete;

    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
};

} // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments, std::string& error) {
    int ends[2];
    if(pipe2(ends, O_CLOEXEC) != 0) {
        error = std::string{"no pipe can be made: "} + std::strerror(errno);
        return;
    }
    _output = ends[0];
    fcntl(_output, F_SETFL, O_NONBLOCK);
    start(arguments, ends[1], error);
    close(ends[1]);
}

void ChildProcess::start(const std::vector<std::string>& arguments, int output, std::string& error) {
    std::vector<char*> words;
    for(const std::string& argument: arguments) words.push_back(const_cast<char*>(argument.data()));
    words.push_back(nullptr);
    const SpawnSetup setup{output};
    const int code = posix_spawn(&_process, words[0], &setup.files, &setup.attributes, words.data(), environ);
    if(!code) return;
    _process = -1;
    _exit = Exit{};
    error = arguments[0] + " cannot be started: " + std::strerror(code);
}

ChildProcess::~ChildProcess() {
    if(!_exit && _process > 0) {
        kill(-_process, SIGKILL);
        while(waitpid(_process, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    closeOutput();
}

void ChildProcess::closeOutput() {
    if(_output >= 0) close(_output);
    _output = -1;
}

void ChildProcess::read(std::string& output, std::size_t limit) {
    char buffer[4096];
    for(std::size_t done = 0; _output >= 0 && done < limit;) {
        const ssize_t count = ::read(_output, buffer, sizeof buffer);
        if(count < 0 && errno == EINTR) continue;
        if(count == 0) closeOutput();
        if(count <= 0) return;
        output.append(buffer, std::size_t(count));
        done += std::size_t(count);
    }
}

std::optional<ChildProcess::Exit> ChildProcess::poll() {
    if(_exit) return _exit;
    // While it is not waited for, its number is nobody else's, and the group can be ended.
    siginfo_t info{};
    if(waitid(P_PID, id_t(_process), &info, WEXITED | WNOHANG | WNOWAIT) != 0 || !info.si_pid) return {};
    kill(-_process, SIGKILL);
    int status = 0;
    while(waitpid(_process, &status, 0) < 0 && errno == EINTR) {
    }
    _exit = WIFSIGNALED(status) ? Exit{WTERMSIG(status), 0} : Exit{0, WEXITSTATUS(status)};
    return _exit;
}

void ChildProcess::wait(int milliseconds) {
    // Its end of the pipe may be closed long before it ends.
    pollfd file{_output, POLLIN, 0};
    ::poll(&file, _output < 0 ? 0 : 1, _output < 0 ? 1 : milliseconds);
}

} // namespace VantrelEngine
