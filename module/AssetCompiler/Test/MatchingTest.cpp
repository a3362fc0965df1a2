#include <algorithm>
#include <random>
#include <set>

#include "AssetCompiler/Test/CompilerFixture.h"

namespace {

using namespace VantrelEngine;

class MatchingTest: public VantrelTest::CompilerFixture {
protected:
    const std::string input = "{'type': 'input', 'input': {'type': 'mouse'}}";
    const std::string collision = "{'type': 'collision', 'collision': {'collider': 'sphere', 'sphere': {'radius': 1}}}";

    static std::string script(const std::string& name) { return "{'type': '" + name + "'}"; }
    std::vector<std::string> typesOf(const char* id) {
        std::vector<std::string> types;
        const Id object = objectOf(id);
        for(std::size_t i = 0; i != scene.components(object).size(); ++i) {
            const auto manager = scene.componentTypes(object)[i];
            Corrade::Containers::StringView name = scene.componentManager(manager)->name();
            if(manager == Scene::JavaScript)
                name = scene.scripts.typeName(scene.scripts.componentType(scene.components(object)[i]));
            types.emplace_back(name.data(), name.size());
        }
        return types;
    }
    void compileWith(const std::string& components) {
        setObjects(withComponents("a", components));
        compile({"a"});
    }
};

TEST_F(MatchingTest, componentsOfATypeAreUsedAgainOneEach) {
    compileWith(input + "," + input);
    const std::vector<Id> first = componentsOf("a");
    ASSERT_EQ(first.size(), 2u);
    compileWith(input + "," + input + "," + input);
    const std::vector<Id> second = componentsOf("a");
    ASSERT_EQ(second.size(), 3u);
    EXPECT_EQ(second[0], first[0]);
    EXPECT_EQ(second[1], first[1]);
    EXPECT_EQ(scene.inputs.size(), 3u);
}

TEST_F(MatchingTest, aRemovedComponentIsDeleted) {
    compileWith(input + "," + collision);
    compileWith(collision);
    EXPECT_EQ(typesOf("a"), std::vector<std::string>{"collision"});
    EXPECT_EQ(scene.inputs.size(), 0u);
}

TEST_F(MatchingTest, withoutAListAllComponentsGo) {
    for(const char* const more: {"", ", 'components': []", ", 'components': {}", ", 'components': 3"}) {
        compileWith(input + "," + collision);
        ASSERT_EQ(scene.componentsSize(), 2u);
        setObjects(object("a", "", more));
        compile({"a"});
        EXPECT_EQ(scene.componentsSize(), 0u) << more;
        const bool isList = !*more || std::string{more}.find('[') != std::string::npos;
        const std::string expected = isList ? "" : "its components are no list";
        EXPECT_EQ(problem("a", -1), expected);
        compile({"a"}, false);
        EXPECT_EQ(problem("a", -1), expected);
    }
}

TEST_F(MatchingTest, withoutCompilingComponentsTheyStay) {
    compileWith(input + "," + collision);
    setObjects(object("a"));
    compile({"a"}, false);
    EXPECT_EQ(componentsOf("a").size(), 2u);
}

TEST_F(MatchingTest, componentsWithoutATypeAreSkipped) {
    const std::string warnings = printed([&] { compileWith("{'type': ''}, {}, 7," + input); });
    EXPECT_EQ(typesOf("a"), std::vector<std::string>{"input"});
    EXPECT_EQ(problem("a", 0), "it has no type");
    EXPECT_EQ(problem("a", 1), "it has no type");
    EXPECT_EQ(problem("a", 2), "it is no object");
    EXPECT_EQ(problem("a", 3), "");
    EXPECT_EQ(warnings,
        "objects/a/components/1/type: missing, expected is a text\n"
        "objects/a/components/2: not an object, skipped\n");
}

TEST_F(MatchingTest, theLastCandidateTakesThePlaceOfTheOneThatWasUsed) {
    scene.scripts.registerType("spin");
    compileWith(input + "," + script("spin") + "," + script("spin") + "," + script("spin"));
    const std::vector<Id> before = componentsOf("a");
    // The input component goes first; the last script stands in its place now and is the first to match.
    compileWith(input + "," + script("spin"));
    const std::vector<Id> after = componentsOf("a");
    EXPECT_EQ(after, (std::vector<Id>{before[0], before[3]}));
}

TEST_F(MatchingTest, aScriptIsKnownByItsName) {
    scene.scripts.registerType("jump");
    scene.scripts.registerType("spin");
    compileWith(script("spin") + "," + script("jump"));
    EXPECT_EQ(typesOf("a"), (std::vector<std::string>{"spin", "jump"}));
    const std::vector<Id> before = componentsOf("a");
    compileWith(script("jump"));
    EXPECT_EQ(componentsOf("a"), std::vector<Id>{before[1]});
    EXPECT_TRUE(scene.scripts.isActive(before[1]));
    compileWith("{'type': 'jump', 'active': false}");
    EXPECT_EQ(componentsOf("a"), std::vector<Id>{before[1]});
    EXPECT_FALSE(scene.scripts.isActive(before[1]));
}

TEST_F(MatchingTest, aScriptKnowsWhereItComesFrom) {
    scene.scripts.registerType("spin");
    compileWith(input + "," + script("spin"));
    const Id component = componentsOf("a")[1];
    ASSERT_GT(compiler.jsComponentOrigins().size(), component);
    EXPECT_EQ(compiler.jsComponentOrigins()[component].objectId, "a");
    EXPECT_EQ(compiler.jsComponentOrigins()[component].position, 1);
    compileWith(script("spin"));
    EXPECT_EQ(componentsOf("a"), std::vector<Id>{component});
    EXPECT_EQ(compiler.jsComponentOrigins()[component].position, 0);
    compileWith("");
    EXPECT_EQ(compiler.jsComponentOrigins()[component].position, -1);
}

TEST_F(MatchingTest, aScriptThatIsNotThereIsSkipped) {
    const std::string warnings = printed([&] { compileWith(script("spin") + "," + input); });
    EXPECT_EQ(warnings, "Skipping component with missing JavaScript component: spin on object a\n");
    EXPECT_EQ(typesOf("a"), std::vector<std::string>{"input"});
    EXPECT_EQ(problem("a", 0), "there is no JavaScript component spin");
    scene.scripts.registerType("spin");
    compile({"a"});
    EXPECT_EQ(problem("a", 0), "");
    EXPECT_EQ(scene.scripts.size(), 1u);
}

TEST_F(MatchingTest, aComponentOfNoScriptMatchesNothing) {
    scene.scripts.registerType("spin");
    compileWith(script("spin"));
    // One that was made by other means and has no type yet.
    const Id untyped = scene.scripts.addComponent(objectOf("a"));
    compileWith("{'type': 'js'}," + script("spin"));
    EXPECT_FALSE(scene.scripts.isValid(untyped));
    EXPECT_EQ(scene.scripts.size(), 1u);
}

TEST_F(MatchingTest, manyComponentsMatchAsFewDo) {
    scene.scripts.registerType("spin");
    scene.scripts.registerType("jump");
    const std::string kinds[]{input, collision, script("spin"), script("jump")};
    std::mt19937 random{5};
    for(int round = 0; round != 30; ++round) {
        const auto components = [&](std::size_t count) {
            std::vector<std::string> list;
            for(std::size_t i = 0; i != count; ++i) list.push_back(kinds[random() % 4]);
            return list;
        };
        const auto joined = [](const std::vector<std::string>& list) {
            std::string text;
            for(const std::string& item: list) text += (text.empty() ? "" : ",") + item;
            return text;
        };
        compileWith(joined(components(random() % 100)));
        using Component = std::pair<std::string, Id>;
        const auto all = [this] {
            std::vector<Component> components;
            const std::vector<std::string> types = typesOf("a");
            const std::vector<Id> ids = componentsOf("a");
            for(std::size_t i = 0; i != ids.size(); ++i) components.emplace_back(types[i], ids[i]);
            return components;
        };
        const std::vector<Component> before = all();
        // The rule, step by step.
        std::vector<Component> candidates = before;
        std::set<Component> kept;
        const std::vector<std::string> wanted = components(random() % 100);
        for(const std::string& component: wanted) {
            const auto found = std::find_if(candidates.begin(), candidates.end(), [&](const Component& candidate) {
                return component.find("'type': '" + candidate.first + "'") != std::string::npos;
            });
            if(found == candidates.end()) continue;
            kept.insert(*found);
            *found = candidates.back();
            candidates.pop_back();
        }
        compileWith(joined(wanted));
        // What is new has an id that was free before.
        std::set<Component> reused;
        for(const Component& component: all())
            if(std::count(before.begin(), before.end(), component)) reused.insert(component);
        ASSERT_EQ(all().size(), wanted.size());
        EXPECT_EQ(reused, kept) << round;
    }
}

TEST_F(MatchingTest, typesThatAreNotCompiledYetAreNoScripts) {
    for(const char* const type: {"physx", "animation", "text"}) {
        scene.scripts.registerType(type);
        compileWith("{'type': '" + std::string{type} + "'}");
        EXPECT_EQ(scene.componentsSize(), 0u);
        EXPECT_EQ(problem("a", 0), "components of its type are not compiled yet");
    }
}

TEST_F(MatchingTest, problemsGoWithTheirObject) {
    printed([&] { compileWith(script("spin")); });
    EXPECT_EQ(compiler.problems().size(), 1u);
    setObjects("");
    compile({"a"});
    EXPECT_TRUE(compiler.problems().empty());
}

} // namespace
