#pragma once

#include <functional>
#include <string>
#include <vector>

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Data/ProjectSession.h"
#include "Support/JsonText.h"

namespace VantrelTest {

using VantrelEngine::Id;

// A new project that is edited through its undo log.
class SessionFixture: public testing::Test {
protected:
    VantrelEngine::ProjectSession session;
    VantrelEngine::Scene& scene = session.data().scene().main();

    VantrelEngine::ChangeManager& changes() { return session.changes(); }
    VantrelEngine::AssetCompiler& compiler() { return session.compiler(); }
    Id objectOf(const char* id) { return compiler().objectOf(id); }
    std::string parentOf(const char* id) {
        const Corrade::Containers::StringView name = scene.objectIds.nameOf(scene.parent(objectOf(id)));
        return {name.data(), name.size()};
    }

    // Quotes may be written as '.
    void record(const std::string& path, std::string json, bool merge = false) {
        for(char& c: json)
            if(c == '\'') c = '"';
        VantrelEngine::JsonDocument value;
        value.Parse(json.c_str());
        ASSERT_FALSE(value.HasParseError()) << json;
        changes().recordWithParents(path.c_str(), value, merge);
    }
    void remove(const std::string& path) { changes().recordChange(path.c_str(), nullptr, false); }
    static std::string object(const std::string& parent = "", const std::string& more = "") {
        return "{'parent': '" + parent +
            "', 'name': 'N', 'translation': [0, 0, 0], 'rotation': [0, 0, 0, 1],"
            "'scaling': [1, 1, 1]" +
            more + "}";
    }
    std::string document() { return jsonText(session.data().project().projectFile()); }

    // Objects and components that an update compiles.
    struct Compiled {
        std::size_t objects, withComponents;
        bool operator==(const Compiled& other) const {
            return objects == other.objects && withComponents == other.withComponents;
        }
        friend void PrintTo(const Compiled& compiled, std::ostream* out) {
            *out << compiled.objects << " objects, " << compiled.withComponents << " with components";
        }
    };
    Compiled update() {
        const Compiled before{compiler().compiledObjectCount(), compiler().compiledComponentsCount()};
        session.update();
        return {compiler().compiledObjectCount() - before.objects,
            compiler().compiledComponentsCount() - before.withComponents};
    }
    std::vector<VantrelEngine::Aspect> aspectsChangedBy(const std::function<void()>& edit) {
        VantrelEngine::SceneRevisions& revisions = session.data().scene().revisions();
        revisions.acknowledge();
        const std::uint32_t seen = revisions.revision();
        edit();
        session.update();
        std::vector<VantrelEngine::Aspect> aspects;
        for(std::size_t i = 0; i != VantrelEngine::AspectCount; ++i)
            if(revisions.counter(VantrelEngine::Aspect(i)) != seen) aspects.push_back(VantrelEngine::Aspect(i));
        EXPECT_NE(revisions.revision(), seen);
        return aspects;
    }
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
