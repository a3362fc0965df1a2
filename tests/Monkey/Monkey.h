#pragma once

#include <memory>
#include <random>
#include <string>
#include <vector>

#include <Vantrel/EngineData/Json.h>

#include "Application/Editor.h"
#include "Application/RenderTarget.h"
#include "Application/ReplayPlatform.h"

namespace VantrelTest {

// Somebody who knows nothing and tries everything: input of all kinds, at random, into an editor with a small window.
class Monkey {
public:
    // What is played with: the editor's files, the project, and files to be dropped. A context is current. The same seed
    // does the same.
    struct Toys {
        VantrelEngine::Editor::Files files;
        std::string project;
        std::vector<std::string> droppedFiles;
    };
    explicit Monkey(unsigned seed, const Toys& toys);

    // Empty, or what is wrong with the project.
    std::string open();
    // So many events, with a frame after each EventsPerFrame of them.
    void play(unsigned events);
    // Lets go of everything and waits until nothing moves.
    void rest();

    // Undoes all and redoes all. Empty, or what is not as it was.
    std::string undoAndRedoAll();

    // What another editor would find in a folder, which is new, had this one been killed now: the project with all steps.
    // Empty, or what is not as it is here.
    std::string bringBackIn(const std::string& folder);

    std::size_t stepsDone() const { return _steps; }
    // Projects that were opened or begun while it played.
    unsigned projects() const { return _projects; }
    // Steps that were brought back by bringBackIn().
    std::size_t stepsBroughtBack() const { return _stepsBroughtBack; }
    VantrelEngine::Editor& editor() { return _editor; }

private:
    static constexpr unsigned EventsPerFrame = 50;

    unsigned below(unsigned end) { return unsigned(_random()) % end; }
    bool isOneIn(unsigned n) { return below(n) == 0; }
    unsigned modifiers();
    void event();
    void moveMouse();
    void pressOrRelease();
    void pressKey();
    void type();
    void clickPanel();
    void drag();
    void mark();
    void work();
    VantrelEngine::Id anyObject();
    std::string anyResource(const char* kind);
    void doSomethingRare();
    void resize();
    void drawFrame();
    void takeStart();
    std::string differs(const VantrelEngine::JsonValue& expected, const char* when);
    VantrelEngine::JsonDocument document();

    std::mt19937 _random;
    Toys _toys;
    VantrelEngine::ReplayPlatform _platform;
    std::unique_ptr<VantrelEngine::RenderTarget> _target;
    VantrelEngine::Editor _editor;
    std::vector<int> _heldKeys;
    bool _heldButtons[3]{};
    // As the project was when it was opened.
    VantrelEngine::JsonDocument _start;
    unsigned _project = 0;
    unsigned _projects = 0;
    std::size_t _steps = 0;
    std::size_t _stepsBroughtBack = 0;
};

}
