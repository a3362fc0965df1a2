#include "Import/ImportJob.h"

#include <csignal>
#include <filesystem>

namespace VantrelEngine {

namespace fs = std::filesystem;

namespace {

// Read at once. What a pipe holds, so that a converter that floods it costs a frame no more.
constexpr std::size_t MaxRead = 65536;
// How long a wait is, milliseconds.
constexpr int WaitTime = 20;

std::string crashOf(int signal) {
    switch(signal) {
    case SIGXCPU: return "the file takes too long to be read";
    case SIGXFSZ: return "the file becomes too large";
    case SIGKILL: return "the converter was ended by the system";
    default: return "the converter crashed (signal " + std::to_string(signal) + ")";
    }
}

// A regular file that can be read, so that a folder or a file that is gone is told before a process is started.
std::string whyNotReadable(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if(!fs::exists(status)) return "there is no such file";
    return fs::is_regular_file(status) ? std::string{} : "this is not a regular file";
}

} // namespace

ImportJob::ImportJob(const std::string& converter, std::string source, const ImportLimits& limits):
    _source{std::move(source)}, _limits{limits}, _deadline{std::chrono::steady_clock::now() +
                                                     std::chrono::seconds{limits.seconds}} {
    std::string error = whyNotReadable(_source);
    if(error.empty()) error = makeFolder();
    if(error.empty())
        _process = std::make_unique<ChildProcess>(
            std::vector<std::string>{converter, "--source", _source, "--output", _output, "--seconds",
                std::to_string(limits.seconds), "--memory", std::to_string(limits.memory)},
            error);
    if(!error.empty()) fail(error);
}

std::string ImportJob::makeFolder() {
    _output = _folder.path() + "/output";
    std::error_code error;
    const bool isMade = !_folder.path().empty() && fs::create_directory(_output, error);
    return isMade ? std::string{} : "no folder for it can be made";
}

std::string ImportJob::name() const { return shownText(fs::path{_source}.filename().string()); }

ImportJob::State ImportJob::fail(std::string error) {
    _process.reset();
    _error = std::move(error);
    return _state = State::Failed;
}

ImportJob::State ImportJob::update() {
    if(_state != State::Running) return _state;
    // First, so that all that it wrote before its end is read.
    const std::optional<ChildProcess::Exit> exit = _process->poll();
    std::string output;
    _process->read(output, MaxRead);
    _lines.add(output);
    if(exit) return judge(*exit);
    if(isLate()) return fail("it took more than " + std::to_string(_limits.seconds) + " seconds");
    return State::Running;
}

ImportJob::State ImportJob::judge(const ChildProcess::Exit& exit) {
    _process.reset();
    if(exit.signal) return fail(crashOf(exit.signal));
    if(!_lines.error().empty()) return fail(_lines.error());
    if(exit.status) return fail("the converter failed with status " + std::to_string(exit.status));
    if(!_lines.isDone()) return fail("the converter ended before it was done");
    return _state = State::Done;
}

void ImportJob::wait() {
    if(_process) _process->wait(WaitTime);
}

} // namespace VantrelEngine
