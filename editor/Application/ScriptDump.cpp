#include "Application/ScriptDump.h"

#include <fstream>
#include <iostream>

#include <VantrelHost/DocumentWriter.h>
#include <imgui.h>

#include "Application/Editor.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

std::string document(Editor& editor, std::string& error) {
    std::string text;
    error = writeDocument(editor.session().data().project().projectFile(), text);
    return text;
}

std::string selection(Editor& editor) {
    std::string text;
    const EditorData& data = editor.session().data();
    const BitSetView selected = data.selection();
    for(std::size_t object = selected.findFirstSet(); object != selected.size();
        object = selected.findFirstSet(object + 1)) {
        const Containers::StringView id = data.scene().main().objectIds.nameOf(Id(object));
        text += std::string{id.data(), id.size()} + '\n';
    }
    return text;
}

std::string marks(Editor& editor) {
    std::string text;
    const ObjectMarks& marks = editor.session().data().marks();
    for(const std::string& id: marks.ids(ObjectMark::Hidden)) text += "hidden " + id + '\n';
    for(const std::string& id: marks.ids(ObjectMark::Locked)) text += "locked " + id + '\n';
    return text;
}

std::string undo(Editor& editor) {
    std::string text;
    const ChangeManager& changes = editor.session().changes();
    std::int32_t index = 0;
    for(const Change& change: changes.changes()) {
        text += index++ == changes.lastChange() ? "> " : "  ";
        text += std::to_string(change.group) + ' ' + std::string{change.path.data(), change.path.size()} + '\n';
    }
    return text;
}

std::string history(Editor& editor) {
    std::string text;
    const StepLog& log = editor.session().steps();
    const std::optional<std::size_t> saved = log.savedPosition();
    std::size_t position = 0;
    for(const Step& step: log.steps()) {
        ++position;
        text += position == log.position() ? '>' : ' ';
        text += position == saved ? '*' : ' ';
        text += ' ' + std::to_string(step.end - step.first) + ' ' + step.name + '\n';
    }
    return text;
}

std::string log(Editor& editor) {
    std::string text;
    for(const LogLine& line: editor.log().lines()) text += line.text + '\n';
    return text;
}

std::string statistics(Editor& editor) {
    SharedState& state = editor.session().editor().state();
    std::string text = "visible meshes " + std::to_string(state.statistics.visibleMeshes) + "\ndraw calls " +
        std::to_string(state.statistics.drawCalls) + "\ntriangles " + std::to_string(state.statistics.triangles) +
        "\nobject id draw calls " + std::to_string(state.statistics.pass(FramePass::ObjectIds).drawCalls) +
        "\noutline draw calls " + std::to_string(state.statistics.pass(FramePass::Outline).drawCalls) + '\n';
    const Containers::StringView reload = state.lastReload;
    return reload.isEmpty() ? text : text + "last reload\n" + std::string{reload.data(), reload.size()} + '\n';
}

std::string clipboard() {
    const char* const text = ImGui::GetClipboardText();
    return text ? text : "";
}

std::string textOf(Editor& editor, const std::string& kind, std::string& error) {
    if(kind == "document") return document(editor, error);
    if(kind == "selection") return selection(editor);
    if(kind == "marks") return marks(editor);
    if(kind == "undo") return undo(editor);
    if(kind == "history") return history(editor);
    if(kind == "log") return log(editor);
    if(kind == "clipboard") return clipboard();
    return statistics(editor);
}

} // namespace

std::string dumpTo(Editor& editor, const std::string& kind, const std::string& file) {
    std::string error;
    const std::string text = textOf(editor, kind, error);
    if(!error.empty()) return error;
    if(file == "-") {
        std::cout << text << std::flush;
        return std::cout ? std::string{} : "the standard output cannot be written";
    }
    std::ofstream stream{file, std::ios::binary | std::ios::trunc};
    stream << text;
    return stream.flush() ? std::string{} : file + ": the file cannot be written";
}

} // namespace VantrelEngine
