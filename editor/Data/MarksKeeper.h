#pragma once

#include <optional>
#include <string>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

class ObjectMarks;
class ProjectSession;

// Keeps what is hidden and locked in a project, in a file of the user's: a project that is opened again has it again. The
// file is named after the project's absolute path; what it says of objects that are not there is passed over, and one that
// is not understood is, too, with a line.
class CORRADE_VISIBILITY_EXPORT MarksKeeper {
public:
    // The folder of these files, which is made when it is needed; where it is empty, nothing is read or written.
    explicit MarksKeeper(std::string folder): _folder{std::move(folder)} {}

    // Reads the marks of a project that is new, and writes what changed since the last call, also for a project that was
    // saved elsewhere. To be called once a frame, while the project is compiled. Cheap where nothing changed.
    void update(ProjectSession& session);
    // Gives the project of the session, which is a copy that was opened just now, what another one has; in the place of the
    // next update().
    void copy(ProjectSession& session, const std::string& from);

    // The file of a project.
    std::string fileOf(const std::string& project) const;

private:
    void read(ProjectSession& session, const std::string& of) const;
    void write(const ObjectMarks& marks) const;

    std::string _folder, _path;
    std::optional<unsigned> _project;
    unsigned _revision = 0;
};

} // namespace VantrelEngine
