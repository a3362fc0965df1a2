#pragma once

#include <chrono>
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

class FileCalls;
struct FoundJournal;
class Journal;
class ProjectListener;
class Recovery;
class ResourceCompiler;
class WorkingFolder;

// A project that is open, with all that belongs to it: the document, its undo log, the compiled scene, and what keeps the
// one true to the other.
//
//     edit through changes() -> listeners note what changed -> update(), before each frame, compiles that
class CORRADE_VISIBILITY_EXPORT ProjectSession {
public:
    // A new project without a file. The calls, with which the project's file and the journal are written, outlive the
    // session; null for the system's.
    explicit ProjectSession(FileCalls* calls = nullptr);
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
    // copied first. Returns an empty text, or one line: the files and the mark are as they were then. A project that was
    // repaired when it was opened is not written over its file unless that is wished for.
    std::string save(const std::string& path, ProjectStore::Repaired repaired = ProjectStore::Repaired::Keep);
    // Whether that is so of the file at a path.
    bool keepsFile(const std::string& path);
    // Empty for a project that has no file yet.
    const std::string& path() const { return _store.path(); }

    // What was changed in the document when it was opened, as long as its file does not have that.
    const std::vector<DocumentProblem>& repairs() const { return _repairs; }

    // Where the project's files are: beside its own file, or in a working folder that is made for a project without one.
    // Empty where that cannot be made.
    std::string folder();

    // What somebody else did to the project's file since it was opened or saved, see ProjectStore.
    std::optional<FileFingerprint> changedOutside() const { return _store.changedOutside(); }

    // From now on each project has a journal, see docs/journal.md; of the one that is open it begins with its first step.
    void keepJournals() { _keepsJournals = true; }
    // What is done with the steps that an earlier journal of the project has, and its file lacks.
    enum class EarlierSteps {
        Discard,
        // The document and its undo log are as they were when the journal ended.
        BringBack,
        // The journal is kept under another name.
        PutAside
    };
    // Begins the journal of the project, which was opened or begun just now and is compiled.
    void beginJournal(EarlierSteps steps);
    // What lies beside a project, whichever it is. Not of the one that is open here.
    FoundJournal findJournal(const std::string& project) const;
    // What a journal without a file calls its project.
    static std::string untitledProject(const std::string& workingFolder);
    // Puts the project in place that a journal without a file is about: one that was never saved, from its working folder.
    // Returns an empty text, or one line; the project is a new one then.
    std::string recoverUntitled(const std::string& workingFolder);
    // Opens the project that the steps of a stale journal belong to, brings them back, and saves all of it as a file of its
    // own, which becomes the project's. Returns an empty text, or one line.
    std::string recoverCopy(const std::string& path, const std::string& copy);
    // Writes the finished steps that the journal lacks. After each update of the steps.
    void updateJournal();
    // The session ends, and nobody can be asked: what is not saved stays in the journal, as if the process had been killed.
    void leaveToJournal();
    // Somebody else has written over the project's file, see Journal::keepBase().
    void keepBase();
    // Null where there is none.
    const Journal* journal() const;
    // Why the steps are not kept where they should be; empty where all is well. It is tried again every few seconds.
    std::string journalTrouble() const;

    // Compiles the resources and the objects that changed since the last call. Call before each frame.
    void update();
    // The resources alone: what uses them is compiled by update(), unless somebody does so before.
    void updateResources();
    // The same as update(), a resource at a time: false when there is none left, and all is compiled. Nobody edits the
    // project, or updates the session in another way, meanwhile.
    void beginUpdate();
    bool updateNext();

private:
    void startOver();
    std::string folderIfAny() const;
    std::string write(const std::string& path, ProjectStore::Repaired repaired);
    void leaveWorkingFolder();
    std::string journaledProject() const;
    void goWithoutJournal(const std::string& project, const std::string& reason);
    bool isJournalDue() const;
    void beginMissingJournal();
    void applySteps(FoundJournal& found);
    void bringBack(FoundJournal found);
    void journalSaved();
    void keepIfOpenElsewhere(const std::string& path);
    void readEditorSettings();
    void setUsersPending();
    void updateEnvironment();

    FileCalls& _calls;
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
    std::unique_ptr<Journal> _journal;
    bool _keepsJournals = false;
    // Why none could be begun, which was said, and when that is tried again.
    std::string _whyNoJournal;
    std::chrono::steady_clock::time_point _nextJournal;
    // Of the scene when its environment was read; of none at first.
    std::optional<std::uint32_t> _environmentRevision;
};

} // namespace VantrelEngine
