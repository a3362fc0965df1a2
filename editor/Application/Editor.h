#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <Magnum/GL/GL.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>
#include <Vantrel/Module/Platform.h>
#include <VantrelHost/FilePictures.h>
#include <VantrelHost/Thumbnails.h>

#include "Application/CursorShape.h"
#include "Application/EditorDialogs.h"
#include "Application/EditorPanels.h"
#include "Application/FileDrop.h"
#include "Application/HeldThing.h"
#include "Application/InputRouter.h"
#include "Application/LogCapture.h"
#include "Application/ModuleFile.h"
#include "Application/Recover.h"
#include "Application/Settings.h"
#include "Application/UserInterface.h"
#include "Data/MarksKeeper.h"
#include "Data/ProjectOpening.h"
#include "Data/ProjectSession.h"
#include "Import/ImportQueue.h"
#include "Modules/EventDelivery.h"
#include "Modules/ModuleLoader.h"
#include "Panels/Command.h"
#include "Panels/Log.h"
#include "Style/IconFile.h"

namespace VantrelEngine {

// The editor itself: the project, the view and the panels about it. Knows no window: whoever has one, or replays a script,
// feeds the input and says when and where to draw.
class Editor {
public:
    // The platform, and a GL context that is current, outlive the editor. What is remembered of the user is read from and
    // written to the file of the settings; where its name is empty, nothing is remembered.
    struct Files {
        // The view's library, and the program that reads what is imported.
        std::string module, converter;
        std::string settings;
    };
    explicit Editor(Platform& platform, Files files);
    ~Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    // Each returns an empty text, or one line. Nothing is asked: unsaved changes are given up.
    std::string loadView();
    // A model or an image: begins a new project, into which it is imported, when it is read.
    std::string open(const std::string& path);
    std::string save(const std::string& path, bool overwritesRepaired = false);
    std::string startNew();
    // From another file than before where one is given.
    std::string reloadView(const std::string& moduleFile = {});

    // From now on each project has a journal. Says where an editor that ended unexpectedly left projects behind that were
    // never saved: they can be brought back from the menu.
    void keepJournals(Recover recover);
    // Brings the last one of them back, or asks for it.
    void recoverUntitled();

    // As the menu does it: asks where something could be lost.
    void perform(Command command);
    // Of the window: what is dragged stays as far as it came, what is typed counts, and then the user is asked where
    // something could be lost.
    void close() { end(Ending::Asked); }
    // The process ends, and nobody can be asked: the same, but what is not saved is left to the journal.
    void leave() { end(Ending::Left); }
    // From now on a project is opened between two frames, after ReplayedOpening frames that show the bar: a replayed run
    // is the same each time.
    void openReplayed() { _isReplayed = true; }
    void openAsked(const std::string& path) { _dialogs.open(path); }
    // Queues a file to be imported into the project. What is wrong with it is said later.
    void import(const std::string& path);
    // Waits until all of them are. False where one could not be.
    bool finishImports();
    // In a replayed run, which has no pictures of models else: waits for one that was asked for in the last frame. Whether
    // there are more.
    bool makeModelPicture();
    // For the user to see; a line of the log, too.
    void showError(const std::string& line);

    InputRouter& input() { return _input; }
    // Of the window. Looks whether somebody else changed the project's file meanwhile.
    void setFocus(bool hasFocus);
    // A key, which may be the shortcut of a command.
    void setKey(int key, bool isDown, bool isRepeated);
    // A button; the modifiers add to the keys that are held.
    void setButton(MouseButton button, bool isDown, unsigned modifiers = 0);
    void dropFile(const std::string& file, const Magnum::Vector2& position);
    // Takes something into the mouse, as if it had been dragged out of a panel; a release of the left button drops it.
    void hold(const std::string& type, const std::string& text);
    UserInterface& interface() { return _interface; }
    EditorPanels& panels() { return _panels; }

    // Releases what the view takes for held.
    void releaseInput();

    // Draws a frame of a window of this size in points to a framebuffer.
    void drawFrame(Magnum::GL::AbstractFramebuffer& framebuffer, const Magnum::Vector2& windowSize);
    // Whether something moves still, or was asked for and not drawn yet.
    bool wantsFrame() const;
    // Whether something goes on that is looked at now and then, in a frame: several times a second will do.
    bool isWaiting() const { return _imports.isBusy() || (!_isReplayed && _models.isBusy()); }
    // Whether the last frame lacks something, and whether the next one may not.
    bool isPictureIncomplete() { return _session->editor().state().isPictureIncomplete; }
    void wantWholePicture(bool wants) { _session->editor().state().wantsWholePicture = wants; }
    // Something happened: what it leads to takes a few frames to be seen.
    void requestFrames() { _settlingFrames = SettlingFrames; }
    bool wantsQuit() const { return _wantsQuit; }
    CursorShape cursorShape() const { return _cursorShape; }

    ProjectSession& session() { return *_session; }
    const Log& log() const { return _log; }
    Settings& settings() { return _settings; }
    // Panels ask them while a frame is drawn; they are made in frames in which nothing else happens.
    Thumbnails& thumbnails() { return _thumbnails; }
    // "scene.json*"; the star stands for unsaved changes. Not while a project is opened.
    std::string title() const;

private:
    // The UI library shows in a frame what came in the one before, and sizes a new window in its second one.
    static constexpr int SettlingFrames = 3;

    static constexpr int ReplayedOpening = 2;

    // A field takes what was typed in the frame in which it is left, and the undo log in the one after it.
    static constexpr int EndingFrames = 2;
    enum class Ending { Asked, Left };

    void initView();
    void closeView();
    void rememberSettings();
    void updateSteps(const std::vector<ImportResult>& imported = {});
    bool isGestureUnderWay();
    bool dropPreview();
    // Whether something was dragged that may be given up.
    bool giveUpDrag();
    // Undoes or redoes until so many steps are in effect.
    void goTo(std::size_t step);
    void performNow(Command command);
    void place(unsigned modifiers);
    void takeDropped(const std::string& file);
    void runActions();
    void run(const ProjectAction& action);
    void openAsked(const ProjectAction& action);
    void openInSteps(const std::string& path);
    void openCopy(const std::string& path);
    void findUntitled();
    void tellUntitled();
    void askForUntitled(const std::string& workingFolder);
    void openUntitled(const std::string& workingFolder);
    void discardUntitled(const std::string& workingFolder);
    void end(Ending ending);
    void goOnEnding();
    void askForChanges();
    void goOnOpening();
    void opened(const OpenedProject& opened, const std::string& path);
    void drawScene();
    void showImported(const std::vector<ImportResult>& results);
    void showImported(const ImportResult& result);
    void drawImport();
    void drawPanels();
    void drawMenu();
    void drawStatus();
    void tellRefused();
    void updateFocus();
    bool isMoving() const;
    // The project is replaced or compiled: the user can only wait.
    bool isBlocked() const;
    void makeThumbnail(Magnum::GL::AbstractFramebuffer& framebuffer);

    Platform& _platform;
    std::string _settingsFile;
    // First, so that what follows can speak.
    Log _log;
    LogCapture _capture{_log};
    Settings _settings;
    std::unique_ptr<ProjectSession> _session;
    MarksKeeper _marks;
    ImportQueue _imports;
    Thumbnails _thumbnails;
    FilePictures _pictures;
    // Of models, which take longer.
    FilePictures _models;
    UserInterface _interface{readIconFont(iconFontFile())};
    ModuleLoader _loader;
    EventDelivery _delivery;
    InputRouter _input{_interface.input(), _delivery};
    FileDrop _drop;
    HeldThing _held;
    // The right button is held, and nobody else hears of it.
    bool _isRightTaken = false;

    EditorPanels _panels;
    EditorDialogs _dialogs;
    bool _isHelpOpen = false;
    std::optional<Command> _command;
    // When the menu for it was opened last.
    bool _clipboardHasObjects = false;
    // A project that is opened between frames, and when that began. Nothing else is done meanwhile.
    std::unique_ptr<ProjectOpening> _opening;
    Magnum::Double _openingBegan = 0.0;
    bool _isReplayed = false;
    // Of projects that are opened without asking; and of the one that is opened.
    Recover _recover = Recover::PutAside;
    ProjectSession::EarlierSteps _earlierSteps = ProjectSession::EarlierSteps::PutAside;
    bool _keepsJournals = false;
    // Projects that were never saved and are left behind: their working folders, and what the menu calls them.
    std::vector<std::string> _untitled, _untitledLabels;
    bool _tellsUntitled = false;
    // What somebody else put into the project's file that the user has decided not to read.
    std::optional<FileFingerprint> _keptMine;
    int _openingFrames = 0;
    // When the imports began that are going on. None for none.
    std::optional<Magnum::Double> _importsBegan;

    int _settlingFrames = SettlingFrames;
    std::optional<Ending> _ending;
    int _endingFrames = 0;
    bool _wantsQuit = false;
    CursorShape _cursorShape = CursorShape::Arrow;
    Magnum::Double _lastFrame = 0.0;
    Magnum::Double _frameTime = 0.0;
};

} // namespace VantrelEngine
