#include <algorithm>
#include <iterator>
#include <memory>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Data/Resources/MeshShape.h"
#include "FontBuilder.h"
#include "ImageBuilder.h"
#include "ResourceCompilerFixture.h"

// Documents that change at random. After each update the scene is the one that a new compiler makes of the same
// document, and the objects that have to be compiled again are those that see a difference.

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using namespace VantrelEngine::Test;

using Ids = std::multiset<std::string>;

template<class T> std::string bytesOf(const T* data, std::size_t count) {
    return {reinterpret_cast<const char*>(data), count * sizeof(T)};
}

std::string joined(const std::vector<std::string>& texts) {
    std::string all;
    for(const std::string& text: texts) all += text + ',';
    return all;
}

std::string describe(const std::vector<ShaderParameter>& parameters) {
    std::string all;
    for(const ShaderParameter& parameter: parameters)
        all += parameter.name + char('0' + int(parameter.type)) + bytesOf(parameter.initial.data(), 4);
    return all;
}

// Everything that a slot holds, with ids in the place of indices.
std::string describe(const SceneResources& scene, ResourceKind kind, Id i) {
    std::ostringstream out;
    switch(kind) {
    case ResourceKind::Image: {
        const SceneImage& image = scene.images[i];
        out << image.header.size.x() << 'x' << image.header.size.y() << image.isSrgb
            << bytesOf(image.pixels->data().data(), image.pixels->data().size());
        break;
    }
    case ResourceKind::Texture: {
        const SceneTexture& texture = scene.textures[i];
        EXPECT_EQ(texture.header.texture, i);
        out << scene.images[texture.header.image].id << '|' << int(texture.filter) << int(texture.mipmap)
            << int(texture.wrapping);
        break;
    }
    case ResourceKind::Shader: {
        const SceneShader& shader = scene.shaders[i];
        out << shader.name << '|' << int(shader.header.stage) << shader.header.variant << shader.vertex.asset << '|'
            << shader.vertex.file << '|' << shader.fragment.file << '|' << describe(shader.parameters);
        break;
    }
    case ResourceKind::Pipeline: {
        const ScenePipeline& pipeline = scene.pipelines[i];
        out << pipeline.name << '|' << scene.shaders[pipeline.shader].id << '|' << pipeline.header.flags << '|'
            << int(pipeline.header.order) << joined(pipeline.features) << describe(pipeline.parameters);
        break;
    }
    case ResourceKind::Material: {
        const SceneMaterial& material = scene.materials[i];
        out << material.name << '|' << scene.pipelines[material.pipeline].id << '|';
        for(const Vector4& value: material.values) out << bytesOf(value.data(), 4);
        for(const Id texture: material.textures) out << '|' << scene.textures[texture].id;
        break;
    }
    case ResourceKind::Mesh: {
        const SceneMesh& mesh = scene.meshes[i];
        out << mesh.name << mesh.isPlaceholder << mesh.radius << bytesOf(&mesh.bounds, 1)
            << bytesOf(mesh.data->vertexData().data(), mesh.data->vertexData().size());
        break;
    }
    case ResourceKind::Skin: {
        const SceneSkin& skin = scene.skins[i];
        out << skin.name << '|' << joined(skin.joints)
            << bytesOf(skin.inverseBindMatrices.data(), skin.inverseBindMatrices.size());
        break;
    }
    case ResourceKind::Animation: {
        const SceneAnimation& animation = scene.animations[i];
        out << animation.name << '|' << joined(animation.targets)
            << bytesOf(animation.data->data().data(), animation.data->data().size());
        break;
    }
    case ResourceKind::Font: {
        const SceneFont& font = scene.fonts[i];
        out << font.name << bytesOf(font.data.data(), font.data.size());
        break;
    }
    }
    return out.str();
}

// By kind and id what there is, and what uses what.
struct Snapshot {
    explicit Snapshot(const CompiledScene& scene) {
        for(std::size_t i = 0; i != ResourceKindCount; ++i) {
            const auto kind = ResourceKind(i);
            const std::string prefix = std::string{resourceSection(kind)} + '/';
            scene.maps.of(kind).forEach([&](const ResourceNode& node) {
                if(node.index) resources[prefix + node.id] = describe(scene.resources, kind, node.index);
                node.forEachUser([&](const ResourceUser& user) {
                    if(user.isResource())
                        uses.insert(prefix + node.id + " by " +
                            std::string{resourceSection(static_cast<const ResourceNode&>(user).kind)} + '/' + user.id);
                });
            });
        }
        for(const ResourceProblem& problem: scene.compiler.problems())
            problems.insert(std::string{resourceSection(problem.kind)} + '/' + problem.id + ": " + problem.reason);
    }

    std::map<std::string, std::string> resources;
    Ids uses, problems;
};

// What an object is compiled from.
std::string binding(const CompiledScene& scene, ResourceKind kind, const std::string& id) {
    const Id index = scene.index(kind, id);
    std::string text = std::to_string(index) + '|';
    if(!index) return text;
    if(kind == ResourceKind::Material) text += std::to_string(scene.resources.materials[index].pipeline);
    if(kind == ResourceKind::Mesh) {
        const SceneMesh& mesh = scene.resources.meshes[index];
        text += std::to_string(mesh.isPlaceholder) +
            std::to_string(mesh.data->hasAttribute(Trade::MeshAttribute::JointIds));
    }
    if(kind == ResourceKind::Skin) text += joined(scene.resources.skins[index].joints);
    if(kind == ResourceKind::Animation) {
        const SceneAnimation& animation = scene.resources.animations[index];
        text += joined(animation.targets) + bytesOf(animation.data->data().data(), animation.data->data().size());
    }
    return text;
}

struct ResourceCompilerRandomTest: ResourceCompilerFixture {
    ResourceCompilerRandomTest() {
        folder.write("a.png", pngFile(2, 2, 10));
        folder.write("b.png", pngFile(3, 1, 20));
        folder.write("a.glb", meshFile({0, 0, 0, 1, 0, 0, 0, 1, 0}));
        folder.write("b.glb", meshFile({0, 0, 0, 2, 0, 0, 0, 1, 0}));
        folder.write("joints.glb", meshFile({0, 0, 0, 1, 0, 0, 0, 1, 0}, true));
        folder.write("one.glb", skinFile(std::vector<float>(16, 1)));
        folder.write("two.glb", skinFile(std::vector<float>(32, 2)));
        folder.write("walk.glb", animationFile(1, 1));
        folder.write("run.glb", animationFile(2, 2));
        folder.write("sans.otf", fontFile("OTTO"));
        folder.write("bad", "bad");
        for(int i = 0; i != 40; ++i) {
            objectNodes.push_back(std::make_unique<Object>(std::to_string(i)));
            changeUses(i);
        }
    }

    unsigned below(unsigned count) { return unsigned(random() % count); }
    std::string pick(std::initializer_list<const char*> texts) { return texts.begin()[below(unsigned(texts.size()))]; }
    std::string id() { return pick({"a", "b", "c", "d", "e/~"}); }
    std::string text(const std::string& value) { return '"' + value + '"'; }

    std::string ids() {
        std::string list = text(id());
        for(unsigned count = below(3); count != 0; --count) list += "," + text(id());
        return "[" + list + "]";
    }
    std::string glb() { return pick({"a.glb", "b.glb", "joints.glb", "bad", "missing"}); }
    std::string parameter(const char* name) {
        return R"({"name": ")" + std::string{name} + R"(", "type": ")" +
            pick({"float", "color", "vector", "texture", "texture", "wrong"}) + "\"}";
    }

    std::string entry(ResourceKind kind) {
        if(below(30) == 0) return "[]";
        const std::string name = below(20) ? R"("name": )" + text(id()) : std::string{R"("x": 0)"};
        const auto object = [&](const std::string& members) { return "{" + name + ", " + members + "}"; };
        switch(kind) {
        case ResourceKind::Image:
            return object(R"("file": )" + text(pick({"a.png", "b.png", "bad"})) + R"(, "colorSpace": )" +
                text(pick({"srgb", "linear"})));
        case ResourceKind::Texture:
            return object(R"("image": )" + text(id()) + R"(, "wrap": )" + text(pick({"repeat", "clamp", "never"})));
        case ResourceKind::Shader:
            return object(R"("stage": "mesh", "vertex": "v", "fragment": "f", "variant": )" + std::to_string(below(3)) +
                R"(, "parameters": [)" + parameter("p") + "," + parameter("q") + "]");
        case ResourceKind::Pipeline:
            return object(
                R"("shader": )" + text(id()) + R"(, "features": ["X"], "order": )" + std::to_string(below(3)));
        case ResourceKind::Material:
            return object(R"("pipeline": )" + text(id()) + ", " + text(id()) + R"(: {"p": )" +
                pick({"1", "2", "[1, 2, 3]", "\"a\"", "\"b\""}) + R"(, "q": )" + pick({"\"c\"", "\"d\"", "3"}) + "}");
        case ResourceKind::Mesh:
            return below(3) ? object(R"("file": )" + text(glb()))
                            : object(R"("primitive": )" + text(pick({"cube", "plane", "cone", "wrong"})));
        case ResourceKind::Skin:
            return object(R"("joints": )" + ids() +
                (below(2) ? R"(, "file": )" + text(pick({"one.glb", "two.glb", "bad"})) : std::string{}));
        case ResourceKind::Animation:
            return object(R"("targets": )" + ids() + R"(, "file": )" + text(pick({"walk.glb", "run.glb", "bad"})));
        case ResourceKind::Font: return object(R"("file": )" + text(pick({"sans.otf", "bad"})));
        }
        return {};
    }

    void changeUses(int object) {
        objectNodes[std::size_t(object)]->forgetUses();
        used[object].clear();
        for(unsigned count = below(4); count != 0; --count) {
            const auto kind = ResourceKind(below(ResourceKindCount));
            const std::string resource = id();
            objectNodes[std::size_t(object)]->use(scene.maps.node(kind, resource));
            used[object].emplace_back(kind, resource);
        }
    }

    void changeDocument() {
        const auto kind = ResourceKind(below(ResourceKindCount));
        set(kind, id(), below(4) ? entry(kind) : std::string{});
    }

    std::string bindings(int object) {
        std::string all;
        for(const auto& resource: used[object]) all += binding(scene, resource.first, resource.second) + ' ';
        return all;
    }

    std::mt19937 random{11};
    std::vector<std::unique_ptr<Object>> objectNodes;
    std::map<int, std::vector<std::pair<ResourceKind, std::string>>> used;
};

TEST_F(ResourceCompilerRandomTest, asIfCompiledAnew) {
    std::size_t collected = 0, unaffected = 0;
    std::map<std::string, Id> indices;
    for(int step = 0; step != 1500; ++step) {
        changeUses(int(below(40)));
        std::vector<std::string> before;
        for(int i = 0; i != 40; ++i) before.push_back(bindings(i));
        for(unsigned count = 1 + below(4); count != 0; --count) changeDocument();
        update();

        std::set<std::string> expected;
        for(int i = 0; i != 40; ++i)
            if(bindings(i) != before[std::size_t(i)]) expected.insert(std::to_string(i));
        ASSERT_EQ(objects(), expected) << step;
        collected += expected.size();
        unaffected += 40 - expected.size();

        CompiledScene anew{file, files};
        {
            Utility::Warning silent{nullptr};
            anew.compiler.compileAll();
        }
        const Snapshot actual{scene}, model{anew};
        ASSERT_EQ(actual.resources, model.resources) << step;
        ASSERT_EQ(actual.uses, model.uses) << step;
        ASSERT_EQ(actual.problems, model.problems) << step;
        ASSERT_EQ(scene.resources.meshLayoutFlags, anew.resources.meshLayoutFlags) << step;

        // Indices stay, no two are the same, and none leads elsewhere.
        std::map<std::string, Id> now;
        for(std::size_t i = 0; i != ResourceKindCount; ++i) {
            std::set<Id> seenIndices;
            scene.maps.of(ResourceKind(i)).forEach([&](const ResourceNode& node) {
                if(!node.index) return;
                EXPECT_TRUE(seenIndices.insert(node.index).second);
                now[std::string{resourceSection(ResourceKind(i))} + '/' + node.id] = node.index;
            });
        }
        for(const auto& known: indices) {
            if(now.count(known.first)) {
                ASSERT_EQ(now[known.first], known.second) << step;
            }
        }
        indices = std::move(now);
    }
    EXPECT_GT(collected, 500u);
    EXPECT_GT(unaffected, 500u);
}

// Which counters move is what differs between the scenes before and after.
TEST_F(ResourceCompilerRandomTest, aspectsAreWhatDiffers) {
    static constexpr const char* AspectOf[ResourceKindCount]{
        "Images", "Textures", "Shaders", "Pipelines", "Materials", "MeshData", nullptr, nullptr, "Fonts"};
    for(int step = 0; step != 1500; ++step) {
        const auto slots = [&](std::size_t kind) {
            std::map<std::string, std::string> all;
            scene.maps.of(ResourceKind(kind)).forEach([&](const ResourceNode& node) {
                if(node.index)
                    all[std::to_string(node.index) + node.id] =
                        describe(scene.resources, ResourceKind(kind), node.index);
            });
            return all;
        };
        std::map<std::string, std::string> before[ResourceKindCount];
        for(std::size_t i = 0; i != ResourceKindCount; ++i) before[i] = slots(i);
        for(unsigned count = 1 + below(3); count != 0; --count) changeDocument();
        update();

        std::set<std::string> mayBeTouched, mustBeTouched;
        for(std::size_t i = 0; i != ResourceKindCount; ++i) {
            if(!AspectOf[i]) continue;
            const auto after = slots(i);
            const auto isSameId = [](const auto& a, const auto& b) { return a.first == b.first; };
            if(!std::equal(before[i].begin(), before[i].end(), after.begin(), after.end(), isSameId))
                mustBeTouched.insert(i == std::size_t(ResourceKind::Mesh) ? "Meshes" : AspectOf[i]);
            for(const auto& slot: after)
                if(before[i].count(slot.first) && before[i][slot.first] != slot.second)
                    mayBeTouched.insert(AspectOf[i]);
        }
        const auto changes = touched();
        ASSERT_TRUE(
            std::includes(changes.aspects.begin(), changes.aspects.end(), mustBeTouched.begin(), mustBeTouched.end()))
            << step;
        mayBeTouched.insert(mustBeTouched.begin(), mustBeTouched.end());
        for(const std::string& aspect: changes.aspects) ASSERT_TRUE(mayBeTouched.count(aspect)) << step << aspect;
        // Names of meshes, materials and fonts are not drawn; all else that differs is.
        for(const char* aspect: {"Images", "Textures", "Shaders", "Pipelines"})
            ASSERT_EQ(changes.aspects.count(aspect), mayBeTouched.count(aspect)) << step << aspect;
        ASSERT_LE(changes.count, changes.aspects.size() + 2);
    }
}

}
