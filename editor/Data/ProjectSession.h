#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <VantrelHost/ProjectStore.h>

#include "AssetCompiler.h"
#include "ChangeManager.h"
#include "Data/StepLog.h"

namespace VantrelEngine {

class ProjectListener;
class ResourceCompiler;
class WorkingFolder;

// A project that is open, with all that belongs to it: the document, its undo log, the compiled scene, and what keeps the
// one true to the other.
//
//     edit through changes() -> listeners note what changed -> update(), before each frame, compiles that
class CORRADE_VISIBILITY_EXPORT ProjectSession {
public:
    // A new project without a file.
    explicit ProjectSession();
    ~ProjectSession();
    ProjectSession(const ProjectSession&) = delete;
    ProjectSession& operator=(const ProjectSession&) = delete;

    EditorData& data() { return _data; }
    VantrelEditor& editor() { return _editor; }
    ChangeManager& changes() { return *_changes; }
    // Of whoever shows the project to a user: the session does not update it by itself.
    StepLog& steps() { return _steps; }
    AssetCompiler& compiler() { return *_compiler; }
    ResourceCompiler& resourceCompiler() { return *_resourceCompiler; }

    // Puts a new project without a file in the place of the one that is open. The undo log is empty then.
    void startNew();

    // Reads the project from a file, checks it, and compiles all of it. The undo log is empty then. With an error, the
    // session is as it was.
    OpenedProject open(const std::string& path);
    // The parts of it, for whoever wants to know what each costs: read() compiles nothing yet.
    OpenedProject read(const std::string& path) { return put(readProject(path)); }
    OpenedProject put(ReadProject project);
    void compileResources();
    void compileObjects();
    // compileResources() a resource at a time: false when there is none left.
    void beginCompileResources();
    bool compileNextResource();

    // Writes the project to a file, which becomes its file, and marks it as saved; into another folder its own files are
    // copied first. Returns an empty text, or one line: the files and the mark are as they were then. A project that was repaired when it was opened is not written over
    // its file unless that is wished for.
    std::string save(const std::string& path, ProjectStore::Repaired repaired = ProjectStore::Repaired::Keep);
    // Whether that is so of the file at a path.
    bool keepsFile(const std::string& path) const { return _store.keeps(path); }
    // Empty for a project that has no file yet.
    const std::string& path() const { return _store.path(); }

    // What was changed in the document when it was opened, as long as its file does not have that.
    const std::vector<DocumentProblem>& repairs() const { return _repairs; }

    // Where the project's files are: beside its own file, or in a working folder that is made for a project without one.
    // Empty where that cannot be made.
    std::string folder();

    // Compiles the resources and the objects that changed since the last call. Call before each frame.
    void update();
    // The same a resource at a time: false when there is none left, and all is compiled. Nobody edits the project, or
    // updates the session in another way, meanwhile.
    void beginUpdate();
    bool updateNext();

private:
    void startOver();
    std::string folderIfAny() const;
    std::string write(const std::string& path, ProjectStore::Repaired repaired);
    void leaveWorkingFolder();
    void readEditorSettings();
    void setUsersPending();
    void updateEnvironment();

    EditorData _data;
    VantrelEditor _editor;
    ProjectStore _store;
    std::vector<DocumentProblem> _repairs;
    // Of a project without a file, from the first file that it has.
    std::unique_ptr<WorkingFolder> _workingFolder;
    std::unique_ptr<ResourceCompiler> _resourceCompiler;
    std::unique_ptr<AssetCompiler> _compiler;
    std::unique_ptr<ProjectListener> _listener;
    std::unique_ptr<ChangeManager> _changes;
    StepLog _steps;
    // Of the scene when its environment was read; of none at first.
    std::optional<std::uint32_t> _environmentRevision;
};

} // namespace VantrelEngine
