#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "Panels/Dialogs.h"
#include "Panels/FileDialog.h"

namespace VantrelEngine {

// What is to be done with the project, as decided by the user.
struct ProjectAction {
    enum class Kind {
        New,
        // Asks where there is a journal.
        Open,
        // The same after the answer: with the steps of the journal, without them, and without them for now.
        OpenWithSteps,
        OpenWithoutSteps,
        OpenAsItIs,
        // What the journal belongs to, as a file of its own.
        OpenCopy,
        // A project that was never saved, by its working folder: asks; and after the answer.
        RecoverUntitled,
        OpenUntitled,
        DiscardUntitled,
        // The file was changed by somebody else, and is not read again.
        KeepMine,
        Save,
        Import,
        Quit
    };

    Kind kind;
    // Of what is opened, saved or imported.
    std::string path;
    // Save even over a file that was repaired when it was opened.
    bool overwritesRepaired = false;
};

// A question, and what is to be done for each answer; nothing for to cancel. One without a text has no second answer.
struct ProjectChoice {
    std::string title, question, yes, no;
    ProjectAction onYes, onNo;
};

// Leads from a wish of the user to what is to be done: asks for a file, and what becomes of unsaved changes.
class EditorDialogs {
public:
    // The project as it is: its file, empty for none, and whether it has unsaved changes. Before each of the other calls.
    void setProject(std::string path, bool hasUnsavedChanges);

    void startNew() { leaveProject({ProjectAction::Kind::New, {}, false}); }
    void open(const std::string& path) { leaveProject({ProjectAction::Kind::Open, path, false}); }
    void recoverUntitled(const std::string& workingFolder) {
        leaveProject({ProjectAction::Kind::RecoverUntitled, workingFolder, false});
    }
    void quit() { leaveProject({ProjectAction::Kind::Quit, {}, false}); }
    void chooseAndOpen();
    void chooseAndImport(std::vector<std::string> suffixes);
    void save();
    void saveAs();
    // Does nothing while another question is asked.
    void ask(ProjectChoice choice);
    void showMessage(std::string text) { _messages.show(std::move(text)); }

    // The outcome of a save that was asked for: an empty text, or what went wrong. wasKept: the file is as it was because
    // it holds what would be lost, and can be written over if that is wished for.
    void saved(const std::string& path, const std::string& error, bool wasKept);

    // One at a time: messages first, then a question, then the choice of a file.
    void draw();
    bool isOpen() const { return _messages.isOpen() || _question.isOpen() || _files.isOpen(); }
    // What is to be done next, in order.
    std::optional<ProjectAction> takeAction();

private:
    enum class Question { Unsaved, Repaired, Choice };

    void leaveProject(ProjectAction action);
    void choose(FileDialog::Purpose purpose, const std::string& name, std::vector<std::string> suffixes);
    void drawFiles();
    void chosen(const std::string& file);
    void answer(Answer answer);
    void answerUnsaved(Answer answer);
    void answerRepaired(Answer answer);
    void answerChoice(Answer answer);
    void goOn();

    std::string _path;
    bool _hasUnsavedChanges = false;

    MessageDialog _messages;
    QuestionDialog _question;
    FileDialog _files;
    Question _asked = Question::Unsaved;
    // Waits for the unsaved changes to be saved or given up.
    std::optional<ProjectAction> _waiting;
    ProjectAction _onYes{}, _onNo{};
    std::string _savedPath;
    // What the choice of a file is for.
    FileDialog::Purpose _choosing = FileDialog::Purpose::Open;
    std::deque<ProjectAction> _actions;
};

} // namespace VantrelEngine
