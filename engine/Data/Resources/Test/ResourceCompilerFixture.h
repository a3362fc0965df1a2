#pragma once

#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Debug.h>
#include <gtest/gtest.h>

#include <Vantrel/EngineData/ProjectFile.h>

#include <Vantrel/EngineData/ResourceManager.h>
#include <Vantrel/EngineData/SceneResources.h>
#include <Vantrel/EngineData/SceneRevisions.h>
#include <VantrelHost/ResourceCompiler.h>

#include "GlbBuilder.h"
#include "Support/TestFolder.h"

namespace VantrelEngine::Test {

// Stands for an object of the scene.
struct Object: ResourceUser {
    explicit Object(std::string id): ResourceUser{std::move(id), false} {}
};

inline std::string escaped(const std::string& key) {
    std::string text;
    for(const char c: key) c == '~' ? text += "~0" : c == '/' ? text += "~1" : text += c;
    return text;
}

// A scene that is compiled from a document.
struct CompiledScene {
    explicit CompiledScene(const ProjectFile& file, const ResourceManager& files):
        compiler{file, files, resources, maps, revisions} {}

    Id index(ResourceKind kind, const std::string& id) const {
        const ResourceNode* const node = maps.find(kind, id);
        return node ? node->index : Id{0};
    }

    SceneResources resources;
    ResourceMaps maps;
    SceneRevisions revisions;
    ResourceCompiler compiler;
};

struct ResourceCompilerFixture: testing::Test {
    ResourceCompilerFixture(): scene{file, files} {
        files.setProjectFolder(folder.path());
        for(std::size_t i = 0; i != ResourceKindCount; ++i) {
            const std::string section = resourceSection(ResourceKind(i));
            file.createByPointer("/" + section).SetObject();
        }
    }

    // Writes or, with an empty text, removes an entry of the document, without telling anyone.
    void edit(ResourceKind kind, const std::string& id, const std::string& json) {
        const std::string pointer = "/" + std::string{resourceSection(kind)} + "/" + escaped(id);
        if(json.empty()) {
            file.eraseByPointer(pointer);
            return;
        }
        JsonDocument value;
        value.Parse(json.data(), json.size());
        ASSERT_FALSE(value.HasParseError()) << json;
        file.createByPointer(pointer).CopyFrom(value, file.allocator());
    }
    void set(ResourceKind kind, const std::string& id, const std::string& json) {
        edit(kind, id, json);
        scene.compiler.compile(kind, id);
    }
    void remove(ResourceKind kind, const std::string& id) { set(kind, id, {}); }

    // The lines of the warning output.
    std::string update() {
        std::ostringstream output;
        Corrade::Utility::Warning redirect{&output};
        scene.compiler.update();
        return output.str();
    }
    std::string compileAll() {
        std::ostringstream output;
        Corrade::Utility::Warning redirect{&output};
        scene.compiler.compileAll();
        return output.str();
    }
    // Compiles one resource, expected to be fine.
    void compile(ResourceKind kind, const std::string& id, const std::string& json) {
        set(kind, id, json);
        EXPECT_EQ(update(), "");
    }

    Id index(ResourceKind kind, const std::string& id) const { return scene.index(kind, id); }

    std::set<std::string> objects() const {
        std::set<std::string> ids;
        for(const ResourceUser* const user: scene.compiler.objectsToCompile()) ids.insert(user->id);
        EXPECT_EQ(ids.size(), scene.compiler.objectsToCompile().size());
        return ids;
    }

    // The aspects that changed since the last call, and how often the scene changed as a whole.
    struct Touched {
        std::set<std::string> aspects;
        std::uint32_t count;
    };
    Touched touched() {
        static constexpr const char* Names[AspectCount]{"Settings", "Lights", "Images", "Textures", "Shaders",
            "Pipelines", "Meshes", "MeshData", "Draws", "Materials", "Fonts"};
        Touched result{{}, scene.revisions.revision() - seen};
        for(std::size_t i = 0; i != AspectCount; ++i)
            if(scene.revisions.counter(Aspect(i)) != seen) result.aspects.insert(Names[i]);
        scene.revisions.acknowledge();
        seen = scene.revisions.revision();
        return result;
    }

    VantrelTest::TestFolder folder;
    ResourceManager files;
    ProjectFile file;
    CompiledScene scene;
    std::uint32_t seen = 0;
};

}
