#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace VantrelEngine {

// A program that runs beside this one: nothing on its standard input, its error output goes nowhere, it inherits no
// other file, and it leads a process group of its own, which goes with it. What it writes to its standard output is read
// without waiting.
class ChildProcess {
public:
    // arguments[0] is the program's path. Empty error, or why it could not be started: one line.
    explicit ChildProcess(const std::vector<std::string>& arguments, std::string& error);
    // Ends the whole group, and waits for the program to be gone.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    struct Exit {
        // 0 where it ended by itself.
        int signal = 0;
        int status = 0;
    };

    // Adds what was written since the last call, at most that many bytes.
    void read(std::string& output, std::size_t limit);
    // None while it runs. When it has ended, so has its group.
    std::optional<Exit> poll();
    // Until there is something to read, it has ended, or so many milliseconds went by.
    void wait(int milliseconds);

private:
    void start(const std::vector<std::string>& arguments, int output, std::string& error);
    void closeOutput();

    pid_t _process = -1;
    int _output = -1;
    std::optional<Exit> _exit;
};

} // namespace VantrelEngine
