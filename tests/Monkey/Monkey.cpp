#include "Monkey/Monkey.h"

#include <algorithm>
#include <filesystem>

#include <Vantrel/EditorUtilities/PayloadTypes.h>
#include <Vantrel/Module/InputEvents.h>

#include "Data/Journal.h"
#include "Support/JsonText.h"

#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>
#include <imgui.h>

namespace VantrelTest {

using namespace Magnum;
using namespace VantrelEngine;

namespace {

constexpr Vector2i SmallWindow{128, 96};
constexpr Vector2i Windows[]{{128, 96}, {480, 320}, {640, 400}, {96, 40}};

// Keys that do something, those of everyday work more often.
constexpr int Keys[]{GLFW_KEY_G, GLFW_KEY_G, GLFW_KEY_R, GLFW_KEY_R, GLFW_KEY_S, GLFW_KEY_S, GLFW_KEY_B, GLFW_KEY_B,
    GLFW_KEY_F, GLFW_KEY_F, GLFW_KEY_W, GLFW_KEY_A, GLFW_KEY_D, GLFW_KEY_Q, GLFW_KEY_E, GLFW_KEY_C, GLFW_KEY_V,
    GLFW_KEY_X, GLFW_KEY_Z, GLFW_KEY_Z, GLFW_KEY_Y, GLFW_KEY_DELETE, GLFW_KEY_ESCAPE, GLFW_KEY_ESCAPE, GLFW_KEY_ENTER,
    GLFW_KEY_TAB, GLFW_KEY_UP, GLFW_KEY_DOWN, GLFW_KEY_LEFT, GLFW_KEY_RIGHT, GLFW_KEY_KP_1, GLFW_KEY_KP_3,
    GLFW_KEY_KP_7, GLFW_KEY_F2, GLFW_KEY_HOME, GLFW_KEY_END, GLFW_KEY_BACKSPACE, GLFW_KEY_SPACE, GLFW_KEY_LEFT_SHIFT,
    GLFW_KEY_LEFT_CONTROL, GLFW_KEY_LEFT_ALT, GLFW_KEY_F1, -1};

constexpr int ModifierKeys[]{GLFW_KEY_LEFT_SHIFT, GLFW_KEY_LEFT_CONTROL, GLFW_KEY_LEFT_ALT};

// Which the monkey presses together with a key, as people do.
struct Combination {
    int modifier, otherModifier, key;
};
constexpr Combination Combinations[]{{GLFW_KEY_LEFT_CONTROL, 0, GLFW_KEY_Z}, {GLFW_KEY_LEFT_CONTROL, 0, GLFW_KEY_Z},
    {GLFW_KEY_LEFT_CONTROL, 0, GLFW_KEY_Y}, {GLFW_KEY_LEFT_CONTROL, GLFW_KEY_LEFT_SHIFT, GLFW_KEY_Z},
    {GLFW_KEY_LEFT_CONTROL, 0, GLFW_KEY_C}, {GLFW_KEY_LEFT_CONTROL, 0, GLFW_KEY_V},
    {GLFW_KEY_LEFT_CONTROL, 0, GLFW_KEY_D}, {GLFW_KEY_LEFT_CONTROL, GLFW_KEY_LEFT_SHIFT, GLFW_KEY_C},
    {GLFW_KEY_LEFT_CONTROL, GLFW_KEY_LEFT_SHIFT, GLFW_KEY_V}, {GLFW_KEY_LEFT_CONTROL, GLFW_KEY_LEFT_SHIFT, GLFW_KEY_D},
    {GLFW_KEY_LEFT_CONTROL, 0, GLFW_KEY_A}, {GLFW_KEY_LEFT_ALT, 0, GLFW_KEY_S}, {GLFW_KEY_LEFT_CONTROL, 0, GLFW_KEY_S}};

constexpr const char* Texts[]{"7", "-0.5", "1e9", "nan", "a", "Lamp", "\xc3\xbc", "0"};

constexpr const char* ClipboardTexts[]{"", "{", "{}", "[]", "hello", "{\"objects\":{}}", "null",
    "{\"type\":\"vantrel-objects\",\"version\":1,\"objects\":[]}", "\xff\xfe"};

} // namespace

Monkey::Monkey(unsigned seed, const Toys& toys):
    _random{seed}, _toys{toys}, _platform{SmallWindow, 1.0f}, _editor{_platform, toys.files} {
    _editor.input().warpTo({-1.0f, -1.0f});
    _editor.openReplayed();
    _editor.keepJournals(Recover::PutAside);
    resize();
}

std::string Monkey::open() {
    std::string error = _editor.loadView();
    if(error.empty()) error = _editor.open(_toys.project);
    if(!error.empty()) return error;
    for(int i = 0; i != 5; ++i) drawFrame();
    takeStart();
    return {};
}

JsonDocument Monkey::document() {
    JsonDocument copy;
    copy.CopyFrom(_editor.session().data().project().projectFile(), copy.GetAllocator());
    return copy;
}

void Monkey::takeStart() {
    _project = _editor.session().data().projectNumber;
    _start = document();
}

void Monkey::drawFrame() {
    _platform.advance();
    _editor.drawFrame(_target->framebuffer(), Vector2{_platform.size()});
    if(const std::optional<Vector2d> warp = _platform.takeWarp()) _editor.input().warpTo(Vector2{*warp});
    if(_editor.session().data().projectNumber == _project) return;
    ++_projects;
    takeStart();
}

void Monkey::resize() {
    const Vector2i size = isOneIn(3) ? Windows[below(std::size(Windows))] : SmallWindow;
    _platform.resize(size);
    std::string error;
    _target = RenderTarget::create(_platform.framebufferSize(), error);
    // The view alone, or everything about it.
    for(bool& isOpen: _editor.settings().panes.isOpen) isOpen = size.x() > 200 && !isOneIn(4);
}

unsigned Monkey::modifiers() { return isOneIn(3) ? below(16) : 0; }

void Monkey::moveMouse() {
    Vector2d position = _platform.cursorPosition();
    if(isOneIn(3)) {
        const Vector2i size = _platform.size();
        position = {Double(below(unsigned(size.x()) + 20)) - 10.0, Double(below(unsigned(size.y()) + 20)) - 10.0};
    } else
        position += Vector2d{Double(below(21)) - 10.0, Double(below(21)) - 10.0};
    _platform.moveTo(position);
    _editor.input().moveTo(Vector2{position});
}

void Monkey::pressOrRelease() {
    const unsigned button = isOneIn(4) ? below(3) : 0;
    _heldButtons[button] = !_heldButtons[button];
    _editor.setButton(MouseButton(button), _heldButtons[button], modifiers());
}

void Monkey::pressKey() {
    if(!_heldKeys.empty() && isOneIn(2)) {
        const std::size_t which = below(unsigned(_heldKeys.size()));
        const int key = _heldKeys[which];
        if(isOneIn(3)) return _editor.setKey(key, true, true);
        _editor.setKey(key, false, false);
        _heldKeys.erase(_heldKeys.begin() + std::ptrdiff_t(which));
        return;
    }
    if(isOneIn(3)) {
        const Combination& keys = Combinations[below(std::size(Combinations))];
        // Not too often: what is not saved is brought back.
        if(keys.key == GLFW_KEY_S && keys.modifier == GLFW_KEY_LEFT_CONTROL && !isOneIn(10)) return;
        for(const int key: {keys.modifier, keys.otherModifier, keys.key})
            if(key) _editor.setKey(key, true, false);
        for(const int key: {keys.key, keys.otherModifier, keys.modifier})
            if(key) _editor.setKey(key, false, false);
        return;
    }
    const int key = Keys[below(std::size(Keys))];
    _editor.setKey(key, true, false);
    _heldKeys.push_back(key);
}

void Monkey::type() {
    const char* const text = Texts[below(std::size(Texts))];
    _editor.input().addText(text);
}

// In a place where a panel may be, with a frame after each event, as of somebody who looks what it does.
void Monkey::clickPanel() {
    const Vector2i size = _platform.size();
    if(size.x() <= SmallWindow.x() || _heldButtons[0]) return;
    const unsigned width = unsigned(size.x()), height = unsigned(size.y());
    const unsigned side = below(3);
    const unsigned x = side == 0 ? below(width / 3) : side == 1 ? width - 1 - below(width / 3) : below(width);
    const unsigned y = side == 2 ? height - 1 - below(height / 3) : below(height);
    _platform.moveTo({Double(x), Double(y)});
    _editor.input().moveTo({Float(x), Float(y)});
    drawFrame();
    const MouseButton button = isOneIn(5) ? MouseButton::Right : MouseButton::Left;
    if(_heldButtons[unsigned(button)]) return;
    for(int i = isOneIn(4) ? 2 : 1; i != 0; --i)
        for(const bool isDown: {true, false}) {
            _editor.setButton(button, isDown, 0);
            drawFrame();
        }
}

// Something out of a panel, which may not be there; whatever releases the button drops it.
void Monkey::drag() {
    if(_heldButtons[0]) return;
    _heldButtons[0] = true;
    if(isOneIn(4) && !_toys.droppedFiles.empty())
        return _editor.hold(FilePayloadType, _toys.droppedFiles[below(unsigned(_toys.droppedFiles.size()))]);
    const PayloadType& payload = isOneIn(2) ? PayloadTypes[3] : PayloadTypes[below(std::size(PayloadTypes))];
    _editor.hold(payload.type, anyResource(payload.kind));
}

void Monkey::mark() {
    const Id object = anyObject();
    if(object != RootObject)
        _editor.session().data().marks().setMarked(
            isOneIn(2) ? ObjectMark::Hidden : ObjectMark::Locked, object, isOneIn(3));
}

// The root where there is no other.
Id Monkey::anyObject() {
    const Scene& scene = _editor.session().data().scene().main();
    return scene.size() < 2 ? RootObject : scene.toId(1 + below(unsigned(scene.size()) - 1));
}

std::string Monkey::anyResource(const char* kind) {
    const JsonValue& document = _editor.session().data().project().projectFile();
    const auto section = document.FindMember(kind);
    if(section == document.MemberEnd() || !section->value.IsObject() || section->value.ObjectEmpty() || isOneIn(8))
        return "nobody";
    return (section->value.MemberBegin() + below(section->value.MemberCount()))->name.GetString();
}

// What leads to steps, wherever the mouse and the focus are.
void Monkey::work() {
    const Id object = anyObject();
    if(object != RootObject && isOneIn(2)) _editor.session().data().selectObject(object, isOneIn(2));
    constexpr Command commands[]{Command::Copy, Command::CopyTrees, Command::Paste, Command::PasteChild,
        Command::Duplicate, Command::DuplicateTrees, Command::Delete, Command::SelectAll, Command::SelectNone};
    // All of them seldom: they become twice as many, or none.
    const Command command = commands[below(std::size(commands))];
    if(command != Command::SelectAll || isOneIn(10)) _editor.perform(command);
}

void Monkey::doSomethingRare() {
    switch(below(16)) {
    case 0: return resize();
    case 1: _editor.settings().fontScale = Float(1 + below(3)); return;
    case 2: return _editor.input().setWindowFocus(!isOneIn(2));
    case 3:
        if(isOneIn(10)) _editor.reloadView();
        return;
    case 4: {
        if(_toys.droppedFiles.empty() || !isOneIn(5)) return;
        const Vector2i size = _platform.size();
        return _editor.dropFile(_toys.droppedFiles[below(unsigned(_toys.droppedFiles.size()))],
            {Float(below(unsigned(size.x()))), Float(below(unsigned(size.y())))});
    }
    case 5: return ImGui::SetClipboardText(ClipboardTexts[below(std::size(ClipboardTexts))]);
    case 6:
    case 7: {
        const Id object = anyObject();
        if(object != RootObject) _editor.session().data().selectObject(object, isOneIn(2));
        return;
    }
    case 8: return _editor.perform(isOneIn(2) ? Command::Undo : Command::Redo);
    case 9:
        for(std::uint8_t& display: _editor.session().editor().state().debugDisplay) display = isOneIn(4);
        return;
    case 10:
        if(isOneIn(20)) _editor.openAsked(_toys.project);
        return;
    case 11: return _editor.perform(isOneIn(4) ? Command::ResetLayout : Command::Help);
    case 12:
    case 13: return clickPanel();
    case 14: return mark();
    case 15:
        // Out of a dialog or a menu, which keep everything else from happening.
        for(const bool isDown: {true, false}) {
            _editor.setKey(GLFW_KEY_ESCAPE, isDown, false);
            drawFrame();
        }
        return;
    }
}

void Monkey::event() {
    const unsigned kind = below(100);
    if(kind < 48) return moveMouse();
    if(kind < 68) return pressOrRelease();
    if(kind < 83) return pressKey();
    if(kind < 86) return _editor.input().scroll({0.0f, Float(below(5)) - 2.0f}, modifiers());
    if(kind < 89) return type();
    if(kind < 93) return work();
    if(kind < 95) return drag();
    doSomethingRare();
}

void Monkey::play(unsigned events) {
    for(unsigned i = 0; i != events; ++i) {
        event();
        if(i % EventsPerFrame == EventsPerFrame - 1) drawFrame();
    }
}

void Monkey::rest() {
    _editor.input().setWindowFocus(true);
    for(unsigned button = 0; button != 3; ++button)
        if(_heldButtons[button]) _editor.setButton(MouseButton(button), false);
    std::fill(std::begin(_heldButtons), std::end(_heldButtons), false);
    for(const int key: _heldKeys) _editor.setKey(key, false, false);
    _heldKeys.clear();
    for(const int key: ModifierKeys) _editor.setKey(key, false, false);
    _editor.finishImports();
    _editor.settings().fontScale = 1.0f;
    // Dialogs and menus, one inside the other.
    for(int i = 0; i != 6; ++i) {
        _editor.setKey(GLFW_KEY_ESCAPE, true, false);
        drawFrame();
        _editor.setKey(GLFW_KEY_ESCAPE, false, false);
        drawFrame();
    }
}

std::string Monkey::differs(const JsonValue& expected, const char* when) {
    const JsonDocument now = document();
    const JsonValue& value = now;
    if(value == expected) return {};
    return std::string{"the document differs "} + when + ":\n" + jsonText(expected) + "\n" + jsonText(value);
}

std::string Monkey::bringBackIn(const std::string& folder) {
    namespace fs = std::filesystem;
    ProjectSession& session = _editor.session();
    const Journal* const journal = session.journal();
    if(session.path().empty() || !journal || !journal->isOn() || !fs::exists(session.path())) return {};
    session.changes().keepTrial();
    drawFrame();
    fs::create_directories(folder);
    const std::string project = (fs::path{folder} / fs::path{session.path()}.filename()).string();
    fs::copy_file(session.path(), project);
    fs::copy_file(journal->path(), fs::path{folder} / fs::path{journal->path()}.filename());
    ProjectSession other;
    other.keepJournals();
    const std::string error = other.open(project).error;
    if(!error.empty()) return error;
    other.beginJournal(ProjectSession::EarlierSteps::BringBack);
    _stepsBroughtBack += other.steps().steps().size();
    const JsonValue& found = other.data().project().projectFile();
    std::string difference = differs(found, "from what was brought back");
    if(!difference.empty()) return difference;
    // With a save, steps before it may go.
    if(other.steps().steps().size() != session.steps().steps().size()) return {};
    while(other.changes().canUndo()) other.changes().undoLast();
    return found == _start
        ? ""
        : "what was brought back does not begin as the project did:\n" + jsonText(_start) + '\n' + jsonText(found);
}

std::string Monkey::undoAndRedoAll() {
    ChangeManager& changes = _editor.session().changes();
    changes.keepTrial();
    const JsonDocument end = document();
    _steps = 0;
    while(changes.canRedo()) changes.redoLast();
    for(; changes.canUndo(); ++_steps) changes.undoLast();
    std::string error = differs(_start, "after all was undone");
    if(!error.empty()) return error;
    for(std::size_t i = 0; i != _steps; ++i) changes.redoLast();
    while(changes.canUndo()) changes.undoLast();
    error = differs(_start, "after all was undone again");
    drawFrame();
    return error;
}

}
