#include "Application/Application.h"

#include "Application/CommandLine.h"
#include "Application/HeadlessApplication.h"
#include "Application/WindowApplication.h"

namespace VantrelEngine {

int runEditor(int argc, char** argv) {
    int status = 0;
    const std::optional<CommandLine> line = readCommandLine(argc, argv, status);
    if(!line) return status;
    return line->isHeadless ? runHeadless(*line) : runWindow(*line, argc, argv);
}

} // namespace VantrelEngine
