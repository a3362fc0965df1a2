#pragma once

#include <cstdint>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

#include "Import/ImportedScene.h"

namespace VantrelEngine {

class PlacedFiles;
class ProjectSession;

// Of the group of the undo log: whoever has something to add to an import opens it again.
constexpr std::uint64_t ImportGesture = 0x696d706f7274;

struct InsertedImport {
    // Empty, or one line; the project is as it was then.
    std::string error;
    // Ids of the new objects that have no parent, and how many new objects there are.
    std::vector<std::string> roots;
    std::size_t objectCount = 0;
    // About the meshes, before they were put to a place. None where there are no meshes.
    std::optional<Magnum::Range3D> bounds;
};

// A new project is begun when the import was read and is good: until then the open one is as it was.
enum class ImportInto { OpenProject, NewProject };

// What is done while changes are on trial: it waits for the end of the trial, or becomes a part of it.
enum class ImportOnTrial { Waits, Joins };

// Puts an import into a project in steps, so that frames can be drawn between them: its files into "imported/" below the
// project's folder, then, as one step of the undo log, what planImport() says into the document, and then compiles that.
// Reading and files are done beside the thread that calls; the project can be edited meanwhile. The new objects without a
// parent are selected, and stand on the place, if one is given, see placeImport(). Undo leaves the files, which redo needs; files that nobody names do no harm.
class InsertImport {
public:
    // The session, and the folder with what the converter made, outlive it.
    explicit InsertImport(ProjectSession& session, std::string folder, ImportInto into,
        const std::optional<Magnum::Vector3>& place = {}, ImportOnTrial onTrial = ImportOnTrial::Waits);
    // What is not in the document yet leaves nothing behind. Not while it is being compiled, unless the session goes, too.
    ~InsertImport();
    InsertImport(const InsertImport&) = delete;
    InsertImport& operator=(const InsertImport&) = delete;

    // Goes on for about so many seconds, or until it would have to wait. False when all is done.
    bool step(double seconds);
    // Waits a moment for something to happen.
    void wait();
    // The files are there, but a group of the undo log is open, or changes are on trial.
    bool waitsForChanges() const;
    // It is in the document and cannot be given up any more. Nobody edits the project or updates the session.
    bool isCompiling() const { return _stage == Stage::Compiling; }

    // 0 to 1, and what is being done.
    float fraction() const;
    const char* doing() const;
    const InsertedImport& result() const { return _result; }

private:
    enum class Stage { Reading, Placing, Compiling, Done };

    bool isReady() const;
    bool beginFiles();
    void place();
    bool insert();
    bool compile(double seconds);
    void complete();
    bool fail(std::string error);

    ProjectSession& _session;
    ImportInto _into;
    std::optional<Magnum::Vector3> _place;
    ImportOnTrial _onTrial;
    Stage _stage = Stage::Reading;
    ImportedScene _scene;
    // Where the files are put; empty where there are none.
    std::string _folder;
    std::unique_ptr<PlacedFiles> _files;
    InsertedImport _result;
    std::size_t _resourceCount = 0;
    // Last: what it does uses the others. Its outcome is empty, or one line.
    std::future<std::string> _work;
};

} // namespace VantrelEngine
