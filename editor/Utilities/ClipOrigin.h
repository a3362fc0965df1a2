#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>

#include <Vantrel/EngineData/Json.h>

namespace VantrelEngine {

class EditorData;
class ProjectFile;

// What the text of copied objects, see ObjectClip.h, says of the project that they are from, in members of its own:
//
//     "project": ["d1c0..-3", "9f41.."]           what that is known by; one that two have in common says that they are one
//     "places": {"lamp": {"translation": ...}}    where those stand in the scene whose parent was not copied
//     "resources": {"meshes/cube": "04af.."}      what is named and not copied, see ResourceChecksum.h
//
// A text without them is of another project than whichever is open.

void addOrigin(JsonDocument& clip, const EditorData& data);

// A line where one of the members is not as addOrigin() writes it; else empty.
std::string whyNoOrigin(const JsonDocument& clip);

// The reader of such members, that are as they should be. What is asked for is looked up in a table. The clip outlives it.
class ClipOrigin {
public:
    explicit ClipOrigin(const JsonDocument& clip);

    bool isProject(const EditorData& data) const;

    // The place in the scene of a copied object: a "translation", a "rotation" and a "scaling" as an object has them. Null
    // for one that was copied with its parent, or has none.
    const JsonValue* placeOf(const std::string& id) const;

    // Whether a project, always the same one, has the very resource that is named.
    bool hasSame(const ProjectFile& project, const std::string& section, const std::string& id);

private:
    std::unordered_set<std::string> _names;
    std::unordered_map<std::string, const JsonValue*> _places;
    std::unordered_map<std::string, std::string> _checksums;
    std::unordered_map<std::string, bool> _isSame;
};

} // namespace VantrelEngine
