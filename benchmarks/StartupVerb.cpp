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

constexpr const char* EnvironmentImage = "/settings/rendering/environment/image";

// The setting of the project, which has none then; null where it had none.
JsonDocument takeEnvironment(ProjectSession& session) {
    JsonDocument image;
    if(const JsonValue* const value = session.data().project().valueByPointer(EnvironmentImage)) {
        image.CopyFrom(*value, image.GetAllocator());
        session.changes().recordChange(EnvironmentImage, nullptr, false);
    }
    return image;
}

// With all that the first frame with it takes: its light, and programs that know of it.
void printEnvironment(BenchView& view, const JsonDocument& image) {
    if(image.IsNull()) return;
    view.host().session.changes().recordChange(EnvironmentImage, &image, false);
    printLine(timeLine("startup", "environment", view.frameSeconds()));
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
    const JsonDocument environment = takeEnvironment(view.host().session);
    view.host().session.compileResources();
    view.host().session.compileObjects();
    reached("compile");
    view.frameSeconds();
    reached("first_frame");
    printLine(timeLine("startup", "all", last));
    // What of the first one was not for good.
    printLine(timeLine("startup", "second_frame", view.frameSeconds()));
    printEnvironment(view, environment);
}

}
