#include "Data/ProjectOpening.h"

#include <algorithm>
#include <chrono>

#include <VantrelHost/ResourceCompiler.h>

#include "Data/ProjectSession.h"

namespace VantrelEngine {

namespace {

using Seconds = std::chrono::duration<double>;

// Where each part begins on the way from 0 to 1: files of resources take most of the time.
constexpr float ResourcesBegin = 0.2f;
constexpr float ObjectsBegin = 0.9f;

} // namespace

ProjectOpening::ProjectOpening(ProjectSession& session, std::string path):
    _session(session), _path{std::move(path)}, _reading{std::async(std::launch::async, readProject, _path)} {}

ProjectOpening::~ProjectOpening() = default;

bool ProjectOpening::step(double seconds) {
    switch(_stage) {
    case Stage::Reading: return put(seconds);
    case Stage::Resources: return compileResources(seconds);
    case Stage::Objects:
        _session.compileObjects();
        _stage = Stage::Done;
        return false;
    case Stage::Done: break;
    }
    return false;
}

bool ProjectOpening::put(double seconds) {
    if(_reading.wait_for(Seconds{seconds}) != std::future_status::ready) return true;
    _opened = _session.put(_reading.get());
    _stage = _opened.error.empty() ? Stage::Resources : Stage::Done;
    if(_stage == Stage::Done) return false;
    _session.beginCompileResources();
    _resourceCount = _session.resourceCompiler().remainingCount();
    return true;
}

bool ProjectOpening::compileResources(double seconds) {
    const auto end = std::chrono::steady_clock::now() + Seconds{seconds};
    do {
        if(_session.compileNextResource()) continue;
        _stage = Stage::Objects;
        break;
    } while(std::chrono::steady_clock::now() < end);
    return true;
}

float ProjectOpening::fraction() const {
    if(_stage == Stage::Reading) return ResourcesBegin / 2.0f;
    if(_stage != Stage::Resources) return _stage == Stage::Objects ? ObjectsBegin : 1.0f;
    // Those that others make change come on top.
    const std::size_t remaining = std::min(_session.resourceCompiler().remainingCount(), _resourceCount);
    const float done = _resourceCount ? 1.0f - float(remaining) / float(_resourceCount) : 1.0f;
    return ResourcesBegin + (ObjectsBegin - ResourcesBegin) * done;
}

const char* ProjectOpening::doing() const {
    switch(_stage) {
    case Stage::Reading: return "reading";
    case Stage::Resources: return "compiling resources";
    case Stage::Objects: return "compiling objects";
    case Stage::Done: break;
    }
    return "drawing";
}

} // namespace VantrelEngine
