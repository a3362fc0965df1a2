#pragma once

#include <future>
#include <string>

#include <Corrade/Utility/VisibilityMacros.h>
#include <VantrelHost/ProjectStore.h>

namespace VantrelEngine {

class ProjectSession;

// Opens a project in steps, so that frames can be drawn between them. The file is read and checked beside the thread that
// calls, and until then the session is as it was. From then on it holds the new project, which is compiled step by step:
// nobody looks at its scene, edits it or updates the session before the last one.
class CORRADE_VISIBILITY_EXPORT ProjectOpening {
public:
    // The session outlives the opening.
    explicit ProjectOpening(ProjectSession& session, std::string path);
    // Waits for the file to be read.
    ~ProjectOpening();
    ProjectOpening(const ProjectOpening&) = delete;
    ProjectOpening& operator=(const ProjectOpening&) = delete;

    // Goes on for about so many seconds, or until one resource is compiled. False when all is done, or where the project
    // cannot be opened.
    bool step(double seconds);
    // Whether the session holds the new project already.
    bool isInPlace() const { return _stage > Stage::Reading; }

    const std::string& path() const { return _path; }
    // 0 to 1, and what is being done.
    float fraction() const;
    const char* doing() const;
    // Of the whole opening, at its end.
    const OpenedProject& opened() const { return _opened; }

private:
    enum class Stage { Reading, Resources, Objects, Done };

    bool put(double seconds);
    bool compileResources(double seconds);

    ProjectSession& _session;
    std::string _path;
    Stage _stage = Stage::Reading;
    std::future<ReadProject> _reading;
    OpenedProject _opened;
    std::size_t _resourceCount = 0;
};

} // namespace VantrelEngine
