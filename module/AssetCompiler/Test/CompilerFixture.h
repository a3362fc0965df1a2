#pragma once

#include <string>
#include <vector>

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>
#include <Vantrel/EditorData/EditorData.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "AssetCompiler.h"

namespace VantrelTest {

using VantrelEngine::Id;

// A document, an empty scene, and the compiler between them.
class CompilerFixture: public testing::Test {
protected:
    VantrelEngine::EditorData data;
    VantrelEngine::AssetCompiler compiler{&data};
    VantrelEngine::Scene& scene = data.scene().main();

    // Puts another document in place; quotes may be written as '.
    void setDocument(std::string json) {
        for(char& c: json)
            if(c == '\'') c = '"';
        data.project().projectFile().Parse(json.c_str());
        ASSERT_FALSE(data.project().projectFile().HasParseError()) << json;
        data.project().membersChanged();
    }
    void setObjects(const std::string& objects) { setDocument("{'objects': {" + objects + "}}"); }

    // The members that every object has; further ones follow, with a comma in front.
    static std::string object(const std::string& id, const std::string& parent = "", const std::string& more = "") {
        return "'" + id + "': {'parent': '" + parent + "', 'name': '" + id +
            "', 'translation': [0, 0, 0], 'rotation': [0, 0, 0, 1], 'scaling': [1, 1, 1]" + more + "}";
    }
    static std::string withComponents(const std::string& id, const std::string& components) {
        return object(id, "", ", 'components': [" + components + "]");
    }

    void compile(const std::vector<std::string>& ids, bool components = true) {
        std::vector<Corrade::Containers::StringView> views;
        for(const std::string& id: ids) views.emplace_back(id.data(), id.size());
        EXPECT_TRUE(compiler.compileObjects({views.data(), views.size()}, components));
    }

    Id objectOf(const char* id) const { return compiler.objectOf(id); }
    std::string parentOf(const char* id) const { return nameAt(scene.objectIds, scene.parent(objectOf(id))); }
    static std::string nameAt(const VantrelEngine::NameManager& names, Id object) {
        const Corrade::Containers::StringView name = names.nameOf(object);
        return {name.data(), name.size()};
    }
    std::vector<Id> componentsOf(const char* id) const {
        const auto view = scene.components(objectOf(id));
        return {view.begin(), view.end()};
    }
    // Why the object or a component of it does not work, empty where it does.
    std::string problem(const std::string& id, int component) const {
        const auto found = compiler.problems().find({id, component});
        return found == compiler.problems().end() ? std::string{} : found->second;
    }

    // What a function prints on an output that can be redirected.
    template<class Output = Corrade::Utility::Warning, class Function> static std::string printed(Function&& function) {
        Corrade::Containers::String out;
        {
            Output redirected{&out};
            function();
        }
        return {out.data(), out.size()};
    }
};

} // namespace VantrelTest
