#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>

namespace VantrelEngine {

class ProjectFile;

// Ids for new entries of a section of the project, made of their names; none is taken, or given out twice. A replayed
// run makes the same ones. Looks at no other entries than those that have such an id.
class NewIds {
public:
    // The project outlives it. A name without letters and digits counts as nameless.
    explicit NewIds(const ProjectFile& project, std::string section, std::string nameless);

    // "Red Paint" gives "red-paint", then "red-paint-2".
    std::string fromName(const std::string& name);
    // The same in the form of a UUID.
    std::string uuidFromName(const std::string& name);

private:
    const ProjectFile& _project;
    std::string _section, _nameless;
    std::unordered_set<std::string> _given;
    // The last number that an id ended in, or that a UUID was made of.
    std::unordered_map<std::string, unsigned> _lastNumbers;

    bool isTaken(const std::string& id) const;
};

} // namespace VantrelEngine
