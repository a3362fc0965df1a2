#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

namespace {

namespace fs = std::filesystem;

// An empty folder, gone afterwards.
class OutputFolder {
public:
    OutputFolder() {
        std::string name = (fs::temp_directory_path() / "vantrel-bench-XXXXXX").string();
        if(!mkdtemp(name.data())) throw std::runtime_error{"no folder for the import can be made"};
        _path = name;
    }
    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;
    ~OutputFolder() { fs::remove_all(_path); }

    std::string path() const { return _path.string(); }

private:
    fs::path _path;
};

double now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

double secondsOfChildren() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) { return double(time.tv_sec) + double(time.tv_usec) * 1e-6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// A stage of the program, named after what it prints.
struct Stage {
    std::string name;
    double seconds;
};

std::string stageOf(const std::string& line) {
    char text[64]{};
    if(std::sscanf(line.data(), "progress %*f %63[^\n]", text) != 1) return {};
    std::string name = text;
    for(char& c: name)
        if(c == ' ') c = '_';
    return name;
}

int start(const std::string& path, const std::string& output, int& lines) {
    const std::string program = (fs::read_symlink("/proc/self/exe").parent_path() / "vantrel-import").string();
    int ends[2];
    if(pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error{"no pipe can be made"};
    const int child = fork();
    if(child == 0) {
        dup2(ends[1], 1);
        execl(program.data(), program.data(), "--source", path.data(), "--output", output.data(), nullptr);
        _exit(127);
    }
    close(ends[1]);
    lines = ends[0];
    return child;
}

// How long the program was in each stage, in their order: until the first line of the next one.
std::vector<Stage> readStages(int file) {
    std::FILE* const lines = fdopen(file, "r");
    std::vector<Stage> stages{{"start", now()}};
    char line[1024];
    while(std::fgets(line, sizeof(line), lines)) {
        const std::string name = stageOf(line);
        if(name.empty() || name == stages.back().name || name == "done") continue;
        const double time = now();
        stages.back().seconds = time - stages.back().seconds;
        stages.push_back({name, time});
    }
    stages.back().seconds = now() - stages.back().seconds;
    std::fclose(lines);
    return stages;
}

// On the processor.
double importSeconds(const std::string& path, std::vector<Stage>* stages = nullptr) {
    const OutputFolder output;
    const double before = secondsOfChildren();
    int lines = -1, status = -1;
    const int child = start(path, output.path(), lines);
    std::vector<Stage> found = readStages(lines);
    while(waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if(status != 0) {
        std::fprintf(stderr, "vantrel-bench: %s cannot be imported\n", path.data());
        std::exit(1);
    }
    if(stages) *stages = std::move(found);
    return secondsOfChildren() - before;
}

double readSeconds(const std::string& path) {
    return secondsOf([&] {
        Assimp::Importer importer;
        keep(importer.ReadFile(path,
            aiProcess_Triangulate | aiProcess_SortByPType | aiProcess_GenSmoothNormals |
                aiProcess_JoinIdenticalVertices));
    });
}

}

void importFile(const std::string& path, const Budget& budget) {
    std::vector<Stage> stages;
    importSeconds(path, &stages);
    for(const Stage& stage: stages) printLine(timeLine("import", stage.name, stage.seconds));
    print(measureTimedPairs(
        "import", "process_beside_bare_read", [&] { return importSeconds(path); }, [&] { return readSeconds(path); },
        budget));
}

}
