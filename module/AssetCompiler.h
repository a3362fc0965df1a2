#pragma once

#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Vantrel/EngineData/IdMap.h>
#include <Vantrel/EngineData/Json.h>
#include <Vantrel/EngineData/Types.h>

#include "AssetCompiler/ComponentCandidates.h"
#include "AssetCompiler/ComponentProblems.h"
#include "AssetCompiler/ObjectNode.h"
#include "Utils/Assert.h"

namespace VantrelEngine {

class EditorData;
class ValueAccess;
struct ComponentTask;
struct Scene;

// Compiles the objects of the project document into the runtime scene: for each object of the document one of the
// scene, with its parent, names, local transformation and components. What was compiled before is used again.
//
// Costs what is compiled, whatever the size of the scene. Nothing recurses; the order of the ids does not matter, a
// parent is always compiled before its children.
//
// Used from the user interface's thread only.
class CORRADE_VISIBILITY_EXPORT AssetCompiler {
public:
    // Not owned. Nothing is compiled without data: whatever needs them aborts with "Assertion _data != nullptr failed at
    // AssetCompiler.h:89".
    explicit AssetCompiler(EditorData* data = nullptr): _data{data} {}
    AssetCompiler(const AssetCompiler&) = delete;
    AssetCompiler& operator=(const AssetCompiler&) = delete;
    ~AssetCompiler();

    void setData(EditorData* data) { _data = data; }

    // Compiles every object of the document. True.
    bool compileAll(bool compileComponents);

    // Compiles the objects of these ids; an id that the document has not any more deletes the runtime object with all
    // its descendants, first of all. Without compileComponents, components are left alone, but those of a parent that
    // has to be compiled for the first time. True; what cannot be compiled is skipped with one line, and stands in problems() as long as that is so.
    bool compileObjects(
        Corrade::Containers::ArrayView<const Corrade::Containers::StringView> ids, bool compileComponents);

    // Notes that the document has another object under this id, or none any more, and what of it changed. Costs no memory
    // for an object that is known. Compiling the object by other means takes the note back.
    void setPending(Corrade::Containers::StringView id, bool withComponents);
    // Takes the note back, but for components: the runtime object is already where the document says.
    void setWritten(Corrade::Containers::StringView id);
    // Notes that all objects of the document may be others.
    void setAllPending();
    bool isPending() const { return _isAllPending || _pendingCount; }
    // Compiles what was noted, each object once. Objects that stay go first and deleted ones after them: a child that
    // left its parent survives the parent, and one that stays in the document without it goes to the root.
    bool compilePending();

    // From the ids of the document to runtime objects. An object that is valid no more, or is another's by now, counts as
    // none.
    const IdMap<ObjectNode>& objectIds() const { return _objectIds; }
    // 0 where there is none.
    Id objectOf(Corrade::Containers::StringView id) const;

    // Where a script component comes from.
    struct JsComponentOrigin {
        std::string objectId;
        // In the object's "components", -1 for none.
        std::int32_t position = -1;
    };
    // By component id.
    const std::vector<JsComponentOrigin>& jsComponentOrigins() const { return _jsComponentOrigins; }

    // Components that were set inactive or skipped, and objects that could not be compiled as they are.
    const ComponentProblems::Map& problems() const { return _problems.all(); }
    // Another number where they are others.
    std::size_t problemsFingerprint() const { return _problems.fingerprint(); }

    // How many objects were compiled, and with their components, since the compiler was made.
    std::size_t compiledObjectCount() const { return _compiledObjectCount; }
    std::size_t compiledComponentsCount() const { return _compiledComponentsCount; }

private:
    friend ComponentTask;
    friend void compileJavaScript(ComponentTask&);
    using Part = ObjectNode::Part;

    struct Item {
        ObjectNode* node;
        const JsonValue* json;
    };

    EditorData& data() const {
        VANTREL_ASSERT(_data != nullptr, "AssetCompiler.h", 89);
        return *_data;
    }

    Id runtimeObject(const ObjectNode& node) const;
    // A compilation: begin(), then any number of list() and compileListed() and of deleteObject(), then finish().
    void begin();
    void list(ObjectNode& node, const JsonValue& json, Part part);
    void compileListed();
    void placeMisplaced();
    void deleteObject(ObjectNode& node);
    void finish();

    // What compilePending() has to do besides compiling objects that are in the scene: those that are not yet, and those
    // that are not in the document any more.
    struct Batch {
        std::vector<Item> added;
        std::vector<ObjectNode*> gone;
    };
    void sortPending(Batch& batch);
    void sortAll(Batch& batch);

    template<class Function> void forEachObject(Function&& function);
    void reserve();
    void compileWithAncestors(const Item& item);
    bool compileParentFirst(const Item& item);
    void listChildren(const ObjectNode& parent);
    void listWaiting(const ObjectNode& parent);
    void compileObject(const Item& item);
    bool placeObject(ObjectNode& node, const ValueAccess& json);
    void compileComponents(ObjectNode& node, const ValueAccess& json);
    void dropCandidates(Id object);
    void forgetPending(ObjectNode& node);
    void forgetProblems(const ObjectNode& node);

    EditorData* _data;
    IdMap<ObjectNode> _objectIds;
    // By runtime object. What was deleted by other means stays until its id is given to another one.
    std::vector<ObjectNode*> _nodes;
    std::vector<JsComponentOrigin> _jsComponentOrigins;
    ComponentProblems _problems;
    // Objects at the root because their parent is not in the document, by its id: they go below it when it comes.
    std::unordered_map<std::string, std::set<std::string>> _waiting;
    // Those that were pending since the last compilePending(), and how many still are.
    std::vector<ObjectNode*> _pending;
    std::size_t _pendingCount = 0;
    bool _isAllPending = false;

    // Of the running compilation; kept for their memory.
    std::vector<Item> _listed;
    std::vector<Item> _stack;
    // At the root until all others are in their places.
    std::vector<ObjectNode*> _misplaced;
    ComponentCandidates _candidates;
    bool _isAnythingChanged = false;
    // A bit an aspect.
    std::uint32_t _changedAspects = 0;
    std::size_t _meshCount = 0, _lightCount = 0;

    std::size_t _compiledObjectCount = 0;
    std::size_t _compiledComponentsCount = 0;
};

} // namespace VantrelEngine
