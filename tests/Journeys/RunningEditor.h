#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace VantrelTest {

// An editor that goes on while the test does; killed in the end if it is still there.
class RunningEditor {
public:
    // Both outputs go to the file.
    explicit RunningEditor(const std::vector<std::string>& arguments, const std::string& output);
    RunningEditor(const RunningEditor&) = delete;
    RunningEditor& operator=(const RunningEditor&) = delete;
    ~RunningEditor();

    // 128 + the signal, or the status of a process that ended before.
    int end(int signal);

private:
    pid_t _process;
    int _status = -1;
};

// Whether a file comes to be there within half a minute.
bool waitForFile(const std::string& file);

}
