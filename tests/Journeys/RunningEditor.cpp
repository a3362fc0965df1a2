#include "Journeys/RunningEditor.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace VantrelTest {

RunningEditor::RunningEditor(const std::vector<std::string>& arguments, const std::string& output): _process{fork()} {
    if(_process) return;
    const int file = open(output.data(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    dup2(file, STDOUT_FILENO);
    dup2(file, STDERR_FILENO);
    std::vector<char*> all{const_cast<char*>(EDITOR)};
    for(const std::string& argument: arguments) all.push_back(const_cast<char*>(argument.data()));
    all.push_back(nullptr);
    execv(EDITOR, all.data());
    _exit(127);
}

RunningEditor::~RunningEditor() { end(SIGKILL); }

int RunningEditor::end(int signal) {
    if(_process <= 0) return _status;
    kill(_process, signal);
    int status = 0;
    waitpid(_process, &status, 0);
    _process = 0;
    _status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return _status;
}

bool waitForFile(const std::string& file) {
    for(int i = 0; i != 6000; ++i) {
        if(std::filesystem::exists(file)) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds{5});
    }
    return false;
}

}
