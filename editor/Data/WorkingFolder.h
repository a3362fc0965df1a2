#pragma once

#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

// Where a project that has no file yet keeps its files, or what an import makes stands until it is taken over: a folder of
// its own among the user's data ($XDG_DATA_HOME/vantrel, ~/.local/share/vantrel without it, the temporary files without a
// home). It goes with the object; a process that ends in another way leaves it behind.
class WorkingFolder {
public:
    enum class Purpose { Project, Import };

    explicit WorkingFolder(Purpose purpose = Purpose::Project);
    // Takes over one that a process left behind. path() is empty where it is not there, or is somebody's.
    explicit WorkingFolder(const std::string& abandoned);
    ~WorkingFolder();
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

    // Empty where none could be made.
    const std::string& path() const { return _path; }

    // From now on it stays when the object goes, as if the process had left it behind.
    void leave() { _isLeft = true; }

    // Removes what processes left behind that are gone: at once where it is of an import, or nothing was imported into it,
    // else when nothing was written there for 30 days. One with a journal stays until somebody takes it over.
    CORRADE_VISIBILITY_EXPORT static void removeAbandoned();
    // The folders of projects that were left behind, the last one first.
    CORRADE_VISIBILITY_EXPORT static std::vector<std::string> abandonedProjects();
    // Removes one of them, unless somebody has taken it over.
    CORRADE_VISIBILITY_EXPORT static void discard(const std::string& abandoned);

private:
    std::string _path;
    // Locked for as long as the process lives.
    int _lock = -1;
    bool _isLeft = false;
};

} // namespace VantrelEngine
