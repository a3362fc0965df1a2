#include "Application/ScriptRunner.h"

#include <imgui.h>

#include "Application/Editor.h"
#include "Application/RenderTarget.h"
#include "Application/ReplayPlatform.h"
#include "Application/ScriptDump.h"
#include "Project/Script.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Of the view's framebuffer.
constexpr UnsignedInt IdAttachment = 1;

// Frames in which a thumbnail is waited for.
constexpr int PatientFrames = 100;

} // namespace

std::string ScriptRunner::run(const std::vector<ScriptCommand>& commands) {
    for(const ScriptCommand& command: commands) {
        if(command.verb == ScriptVerb::Quit || _editor.wantsQuit()) return {};
        const std::string error = perform(command);
        if(!error.empty()) return mistakeIn(command, error);
    }
    return {};
}

std::string ScriptRunner::resized() {
    const std::string error = _stage.fit();
    return error.empty() ? drawn({}) : error;
}

std::string ScriptRunner::drawn(std::string error) {
    _stage.drawFrame();
    return error;
}

void ScriptRunner::moveTo(Double x, Double y) {
    _platform.moveTo({x, y});
    _editor.input().moveTo({Float(x), Float(y)});
}

// What was edited last has moved fields only in the next frame; one that is out of sight is there a frame after it was
// asked for.
std::string ScriptRunner::moveToField(const ScriptCommand& command) {
    for(int i = 0; i != PatientFrames; ++i) {
        _stage.drawFrame();
        const std::optional<Vector2> place = _editor.panels().placeOf(command.words[0], int(command.numbers[0]));
        if(!place) continue;
        moveTo(Double(place->x()), Double(place->y()));
        return {};
    }
    return "there is no such field";
}

std::string ScriptRunner::select(const ScriptCommand& command) {
    EditorData& data = _editor.session().data();
    data.selection().clear();
    for(const std::string& word: command.words) {
        const Id object = _editor.session().compiler().objectOf({word.data(), word.size()});
        if(object == RootObject) return "there is no object \"" + word + "\"";
        data.selectObject(object, true);
    }
    return {};
}

std::string ScriptRunner::mark(const ScriptCommand& command) {
    const bool isMarked = command.verb == ScriptVerb::Hide || command.verb == ScriptVerb::Lock;
    const bool isAboutSight = command.verb == ScriptVerb::Hide || command.verb == ScriptVerb::Show;
    for(const std::string& word: command.words) {
        const Id object = _editor.session().compiler().objectOf({word.data(), word.size()});
        if(object == RootObject) return "there is no object \"" + word + "\"";
        _editor.session().data().marks().setMarked(
            isAboutSight ? ObjectMark::Hidden : ObjectMark::Locked, object, isMarked);
    }
    return {};
}

std::string ScriptRunner::writeIdImage(const std::string& file) {
    GL::Framebuffer* const framebuffer = _editor.session().editor().state().sceneViewFramebuffer;
    if(!framebuffer) return "there is no view that has drawn";
    return writePng(file, readPicture(*framebuffer, IdAttachment));
}

// As a panel would: asks in each frame until it is there.
std::string ScriptRunner::writeThumbnail(const ScriptCommand& command) {
    const ResourceKind kind = ResourceKind(int(command.numbers[0]));
    const std::string& id = command.words[0];
    Thumbnails& thumbnails = _editor.thumbnails();
    const ResourceNode* const node = _editor.session().data().scene().resourceMaps().find(kind, {id.data(), id.size()});
    if(!node || !node->index) return "there is no such resource";
    for(int i = 0; i != PatientFrames && !thumbnails.ask(kind, {id.data(), id.size()}); ++i) _stage.drawFrame();
    const std::vector<Color4ub> pixels = thumbnails.read(kind, {id.data(), id.size()});
    if(pixels.empty()) return "something else is going on, or there is nothing to be seen";
    const auto* const bytes = reinterpret_cast<const char*>(pixels.data());
    return writePng(
        command.words[1], {Vector2i{thumbnails.edge()}, {bytes, bytes + pixels.size() * Picture::PixelSize}});
}

std::string ScriptRunner::perform(const ScriptCommand& command) {
    const std::vector<Double>& numbers = command.numbers;
    const std::string argument = command.words.empty() ? std::string{} : command.words.front();
    switch(command.verb) {
    case ScriptVerb::Wait:
        for(Double i = 0.0; i < numbers[0] && !_editor.wantsQuit(); ++i) _stage.drawFrame();
        return {};
    case ScriptVerb::Mouse: moveTo(numbers[0], numbers[1]); return drawn({});
    case ScriptVerb::Field: return drawn(moveToField(command));
    case ScriptVerb::Move: {
        const Vector2d position = _platform.cursorPosition();
        moveTo(position.x() + numbers[0], position.y() + numbers[1]);
        return drawn({});
    }
    case ScriptVerb::Press:
    case ScriptVerb::Release:
        _editor.setButton(MouseButton(int(numbers[0])), command.verb == ScriptVerb::Press, command.modifiers);
        return drawn({});
    case ScriptVerb::Scroll: _editor.input().scroll({0.0f, Float(numbers[0])}, command.modifiers); return drawn({});
    case ScriptVerb::Key: _editor.setKey(int(numbers[0]), true, numbers[1] != 0.0); return drawn({});
    case ScriptVerb::KeyUp: _editor.setKey(int(numbers[0]), false, false); return drawn({});
    case ScriptVerb::Clipboard: ImGui::SetClipboardText(argument.data()); return {};
    case ScriptVerb::Type: _editor.input().addText({argument.data(), argument.size()}); return drawn({});
    case ScriptVerb::Focus: _editor.setFocus(numbers[0] != 0.0); return drawn({});
    case ScriptVerb::Close: _editor.close(); return drawn({});
    case ScriptVerb::Resize: _platform.resize({int(numbers[0]), int(numbers[1])}); return resized();
    case ScriptVerb::Scale: _platform.setScale(Float(numbers[0])); return resized();
    case ScriptVerb::FontSize: _editor.settings().fontScale = Float(numbers[0]); return drawn({});
    case ScriptVerb::Select: return drawn(select(command));
    case ScriptVerb::Hide:
    case ScriptVerb::Show:
    case ScriptVerb::Lock:
    case ScriptVerb::Unlock: return drawn(mark(command));
    case ScriptVerb::Reload: {
        // What is refused is seen in the log; the view goes on.
        const std::string error = _editor.reloadView(argument);
        if(!error.empty()) _editor.showError(error);
        return drawn({});
    }
    case ScriptVerb::Open: return drawn(_editor.open(argument));
    case ScriptVerb::Save: return _editor.save(argument);
    case ScriptVerb::New: return drawn(_editor.startNew());
    case ScriptVerb::Edit: return drawn(VantrelTools::Script{_editor.session()}.run(argument));
    case ScriptVerb::Undo: _editor.perform(Command::Undo); return drawn({});
    case ScriptVerb::Redo: _editor.perform(Command::Redo); return drawn({});
    case ScriptVerb::Drop: _editor.dropFile(argument, {Float(numbers[0]), Float(numbers[1])}); return drawn({});
    case ScriptVerb::Drag: _editor.hold(argument, command.words[1]); return drawn({});
    case ScriptVerb::Import: _editor.import(argument); return drawn({});
    case ScriptVerb::WaitForImport: _editor.finishImports(); return drawn({});
    case ScriptVerb::WaitForPictures:
        while(_editor.makeModelPicture()) _stage.drawFrame();
        return drawn({});
    case ScriptVerb::Screenshot: return _stage.writePicture(argument);
    case ScriptVerb::IdImage: return writeIdImage(argument);
    case ScriptVerb::Thumbnail: return writeThumbnail(command);
    case ScriptVerb::Dump: return dumpTo(_editor, command.words[0], command.words[1]);
    case ScriptVerb::Quit: break;
    }
    return {};
}

} // namespace VantrelEngine
