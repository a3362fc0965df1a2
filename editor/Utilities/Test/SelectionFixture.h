#pragma once

#include <initializer_list>
#include <vector>

#include <Vantrel/EditorUtilities/Clipboard.h>
#include <Vantrel/EditorUtilities/Objects.h>

#include "../../Data/Test/SessionFixture.h"
#include "Support/TestFolder.h"

namespace VantrelTest {

using Names = std::vector<std::string>;

// A small scene: "lamp" with "bulb" and "shade" below it, "wire" below "bulb"; "desk" apart.
class SelectionFixture: public SessionFixture {
protected:
    SelectionFixture() {
        add("lamp", "Lamp");
        add("bulb", "Bulb", "lamp");
        add("wire", "Wire", "bulb");
        add("shade", "Shade", "lamp");
        add("desk", "Desk");
        session.update();
    }

    void add(
        const std::string& id, const std::string& name, const std::string& parent = "", const std::string& more = "") {
        record("/objects/" + id,
            "{'parent': '" + parent + "', 'name': '" + name +
                "', 'translation': [1, 2, 3], 'rotation': [0, 0, 0, 1], 'scaling': [1, 1, 1]" + more + "}");
    }
    void select(std::initializer_list<const char*> ids) {
        session.update();
        session.data().selection().clear();
        for(const char* const id: ids) session.data().selectObject(objectOf(id), true);
    }

    static Names list(const VantrelEngine::StringArray& names) {
        Names result;
        for(std::size_t i = 0; i != names.size(); ++i) result.emplace_back(names[i].data(), names[i].size());
        return result;
    }
    Names duplicated() { return list(VantrelEngine::duplicate(editor)); }
    Names duplicatedTrees() { return list(VantrelEngine::duplicateTrees(editor)); }
    Names pasted(const std::string& text) { return list(VantrelEngine::paste(editor, text.data())); }
    Names pastedBelow(const std::string& text) { return list(VantrelEngine::pasteChild(editor, text.data())); }
    std::string copied() { return VantrelEngine::copySelected(editor).data(); }
    std::string copiedTrees() { return VantrelEngine::copySelectedTrees(editor).data(); }

    std::string at(const std::string& pointer) {
        const VantrelEngine::JsonValue* const value = session.data().project().valueByPointer(pointer.c_str());
        return value ? jsonText(*value) : "nothing";
    }
    std::string nameOf(const std::string& id) { return at("/objects/" + id + "/name"); }
    std::string parentIn(const std::string& id) { return at("/objects/" + id + "/parent"); }
    std::size_t objectCount() { return session.data().project().section("objects")->MemberCount(); }
    template<class Function> static std::string errorOf(Function&& function) {
        return printed<Corrade::Utility::Error>(function);
    }

    VantrelEngine::VantrelEditor& editor = session.editor();
    TestFolder folder;
};

} // namespace VantrelTest
