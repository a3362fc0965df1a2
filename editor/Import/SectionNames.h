#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>

#include <Vantrel/EngineData/Json.h>

#include "Import/NewIds.h"

namespace VantrelEngine {

class ProjectFile;

// What a section of the project has, for an import that adds to it: ids and names that are taken, and entries that need
// not be added once more. Made with one look at each entry.
class SectionNames {
public:
    explicit SectionNames(const ProjectFile& project, std::string section);

    // The id of an entry of the project that says the same; empty where there is none. Its name is that of the entry or
    // was made of that by uniqueName(). Members may stand in another order.
    std::string findSame(const JsonValue& entry) const;
    // The name, or, where that is taken, "NAME 2", "NAME 3" and so on. It is taken from now on.
    std::string uniqueName(const std::string& name);
    // An id that is not taken, made of a name: "Red Paint" gives "red-paint", then "red-paint-2". It is taken from now on.
    std::string newId(const std::string& name) { return _newIds.fromName(name); }
    // The same in the form of a UUID.
    std::string newUuid(const std::string& name) { return _newIds.uuidFromName(name); }

private:
    const ProjectFile& _project;
    std::string _section;
    NewIds _newIds;
    std::unordered_set<std::string> _names;
    // The last number that a name ended in.
    std::unordered_map<std::string, unsigned> _lastNumbers;
    std::unordered_multimap<std::size_t, std::string> _entries;
};

} // namespace VantrelEngine
