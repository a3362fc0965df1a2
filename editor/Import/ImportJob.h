#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Data/WorkingFolder.h"
#include "Import/ChildProcess.h"
#include "Import/ConverterLines.h"

namespace VantrelEngine {

struct ImportLimits {
    // Of the wall clock; the converter is given as many of its own time.
    unsigned seconds = 120;
    // Bytes of memory of the converter.
    std::uint64_t memory = std::uint64_t{4} << 30;
};

// One run of the converter over a file, in a process of its own that may crash, hang or write anything. What it makes
// stands in a folder of the job's own, which goes with the job; so does the process, whatever it does.
class ImportJob {
public:
    // Starts. Where that fails the job has failed at once.
    explicit ImportJob(const std::string& converter, std::string source, const ImportLimits& limits = {});
    ImportJob(const ImportJob&) = delete;
    ImportJob& operator=(const ImportJob&) = delete;

    enum class State { Running, Done, Failed };

    // Looks what happened since the last call, without waiting. Done: the folder is complete, as the converter says.
    State update();
    // Waits a moment for something to happen.
    void wait();

    const std::string& source() const { return _source; }
    // The file's name, as it can be shown.
    std::string name() const;
    const std::string& folder() const { return _output; }
    float fraction() const { return _lines.fraction(); }
    const std::string& stage() const { return _lines.stage(); }
    // One line without the file's name. Of a job that failed.
    const std::string& error() const { return _error; }
    // Those since the last call, a line each.
    std::vector<std::string> takeWarnings() { return _lines.takeWarnings(); }

private:
    std::string makeFolder();
    State fail(std::string error);
    State judge(const ChildProcess::Exit& exit);
    bool isLate() const { return std::chrono::steady_clock::now() > _deadline; }

    std::string _source, _output, _error;
    ImportLimits _limits;
    std::chrono::steady_clock::time_point _deadline;
    // Where one of a project without a file would be: its files get there without a copy.
    WorkingFolder _folder{WorkingFolder::Purpose::Import};
    // It must not write any more when its folder goes.
    std::unique_ptr<ChildProcess> _process;
    ConverterLines _lines;
    State _state = State::Running;
};

} // namespace VantrelEngine
