#include <ctime>

#include <Magnum/GL/Renderer.h>

#include "BenchView.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;

namespace {

// Of the program and all of its threads, from its first instruction on.
double secondsOfProcess() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

}

void startup(const std::string& path) {
    double last = 0.0;
    const auto reached = [&](const char* stage) {
        const double now = secondsOfProcess();
        printLine(timeLine("startup", stage, now - last));
        last = secondsOfProcess();
    };
    reached("program");
    BenchView view{{640, 480}, reached};
    view.read(path);
    reached("open");
    view.host().session.compileResources();
    view.host().session.compileObjects();
    reached("compile");
    view.frameSeconds();
    reached("first_frame");
    printLine(timeLine("startup", "all", last));
    // What of the first one was not for good.
    printLine(timeLine("startup", "second_frame", view.frameSeconds()));
}

}
