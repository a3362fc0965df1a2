#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <Vantrel/EngineData/Json.h>

namespace VantrelEngine {

class AssetCompiler;
class ClipOrigin;
class EditorData;

// What pasting adds to a project.
struct PastePlan {
    struct Entry {
        std::string section, id;
        // In the copied document, as the project will have it.
        JsonValue* value;
    };

    // Empty, or one line; nothing else counts then.
    std::string error;
    // Resources, and objects with parents in front of those below them wherever they were copied like that.
    std::vector<Entry> entries;
    std::size_t objectCount = 0;
    // What is named and not there: "meshes/cube".
    std::vector<std::string> missing;
    // What was named in another project, which this one has not or has as something else.
    std::vector<std::string> leftOut;
};

// Gives each copied object, see ObjectClip.h, an id of the project, and a name that no object beside it has. With a
// parent, an id of the project, those whose parent was not copied go below it; without, they keep theirs where it is
// there. With an origin they are of another project, where ids say nothing: they go to the root, each at its place in the
// scene that it had, and name nothing but what this project has just so. The project stays as it is, the copies are
// changed. The scene is up to date.
PastePlan planPaste(JsonDocument& clip, const EditorData& data, const AssetCompiler& compiler,
    const std::string& parent, ClipOrigin* origin);

} // namespace VantrelEngine
