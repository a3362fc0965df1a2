#include <Corrade/Containers/Array.h>
#include <Magnum/Mesh.h>
#include <Magnum/Trade/MeshData.h>
#include <Magnum/VertexFormat.h>

#include "AssetCompiler/Test/CompilerFixture.h"

namespace {

using namespace VantrelEngine;
using namespace Magnum;

class MeshComponentTest: public VantrelTest::CompilerFixture {
protected:
    void SetUp() override {
        setIndex(ResourceKind::Pipeline, "lit", 3);
        setIndex(ResourceKind::Material, "red", 5);
        setIndex(ResourceKind::Material, "plain", 6);
        setIndex(ResourceKind::Mesh, "box", 1);
        setIndex(ResourceKind::Mesh, "figure", 2);
        std::vector<SceneMesh>& meshes = data.scene().resources().meshes;
        meshes.resize(3);
        meshes[1].data = mesh(false);
        meshes[2].data = mesh(true);
    }
    void setIndex(ResourceKind kind, const char* id, Id index) {
        data.scene().resourceMaps().node(kind, id).index = index;
    }

    // One triangle.
    static Trade::MeshData mesh(bool withJoints) {
        Containers::Array<char> vertices{ValueInit, 3 * 28};
        const Trade::MeshAttributeData position{Trade::MeshAttribute::Position, VertexFormat::Vector3, 0, 3, 28};
        if(!withJoints) return Trade::MeshData{MeshPrimitive::Triangles, Utility::move(vertices), {position}};
        return Trade::MeshData{MeshPrimitive::Triangles, Utility::move(vertices),
            {position,
                Trade::MeshAttributeData{Trade::MeshAttribute::JointIds, VertexFormat::UnsignedShort, 12, 3, 28, 4},
                Trade::MeshAttributeData{
                    Trade::MeshAttribute::Weights, VertexFormat::UnsignedShortNormalized, 20, 3, 28, 4}}};
    }

    void setMesh(const std::string& members, const std::string& more = "") {
        setDocument("{'materials': {'red': {'pipeline': 'lit'}, 'plain': {'name': 'plain'}, 'empty': {'pipeline': ''},"
                    "'lost': {'pipeline': 'nothing'}}, 'objects': {" +
            withComponents("a", "{'type': 'mesh', 'mesh': {" + members + "}" + more + "}") + "}}");
    }
    Id compileMesh(const std::string& members, const std::string& more = "") {
        setMesh(members, more);
        compile({"a"});
        return componentsOf("a").at(0);
    }
    MeshManager& meshes = scene.meshes;

    Id pipelineOf(Id component) const { return scene.meshes.groupPipeline(scene.meshes.groupOf(component)); }
    bool isSkinned(Id component) const { return scene.meshes.isGroupSkinned(scene.meshes.groupOf(component)); }
};

TEST_F(MeshComponentTest, isBoundToItsResources) {
    const Id id = compileMesh("'material': 'red', 'mesh': 'box', 'skin': ''");
    EXPECT_EQ(meshes.material(id), 5);
    EXPECT_EQ(meshes.mesh(id), 1);
    EXPECT_EQ(pipelineOf(id), 3);
    EXPECT_FALSE(isSkinned(id));
    EXPECT_TRUE(meshes.isActive(id));
    EXPECT_FALSE(meshes.isActive(compileMesh("'material': 'red', 'mesh': 'box'", ", 'active': false")));
    EXPECT_TRUE(compiler.problems().empty());
}

TEST_F(MeshComponentTest, withoutAPipelineOrAMeshItStaysInactive) {
    const struct {
        const char* members;
        const char* reason;
    } rows[]{
        {"'mesh': 'box'", "it has no material"},
        {"'material': 'plain', 'mesh': 'box'", "the pipeline of its material \"plain\" is not compiled"},
        {"'material': 'empty', 'mesh': 'box'", "the pipeline of its material \"empty\" is not compiled"},
        {"'material': 'lost', 'mesh': 'box'", "the pipeline of its material \"lost\" is not compiled"},
        {"'material': 'unknown', 'mesh': 'box'", "the pipeline of its material \"unknown\" is not compiled"},
        {"'material': '', 'mesh': 'box'", "the pipeline of its material \"\" is not compiled"},
        {"'material': 'red'", "it has no mesh"},
    };
    for(const auto& row: rows) {
        std::string out;
        const std::string warnings = printed([&] {
            out = printed<Utility::Error>([&] {
                const Id id = compileMesh(row.members);
                EXPECT_FALSE(meshes.isActive(id)) << row.members;
            });
        });
        EXPECT_EQ(warnings + out, "") << row.members;
        EXPECT_EQ(problem("a", 0), row.reason);
        EXPECT_EQ(meshes.size(), 1u);
    }
    EXPECT_TRUE(meshes.isActive(compileMesh("'material': 'red', 'mesh': 'box'")));
    EXPECT_TRUE(compiler.problems().empty());
}

TEST_F(MeshComponentTest, anEmptyOrUnknownMeshIsNone) {
    for(const char* const mesh: {"", "unknown"}) {
        const Id id = compileMesh("'material': 'red', 'mesh': '" + std::string{mesh} + "', 'skin': 'bones'");
        EXPECT_EQ(meshes.mesh(id), 0);
        EXPECT_FALSE(isSkinned(id));
        EXPECT_TRUE(meshes.isActive(id));
        EXPECT_EQ(problem("a", 0), *mesh ? "its mesh \"unknown\" is not compiled" : "");
    }
}

TEST_F(MeshComponentTest, aSkinCountsOnlyWhereTheMeshHasJoints) {
    setIndex(ResourceKind::Skin, "bones", 7);
    Id id = compileMesh("'material': 'red', 'mesh': 'figure', 'skin': 'bones'");
    EXPECT_TRUE(isSkinned(id));
    EXPECT_EQ(meshes.skin(id), 7);
    id = compileMesh("'material': 'red', 'mesh': 'box', 'skin': 'bones'");
    EXPECT_FALSE(isSkinned(id));
    EXPECT_TRUE(meshes.isActive(id));
    id = compileMesh("'material': 'red', 'mesh': 'box', 'skin': 'unknown'");
    EXPECT_TRUE(meshes.isActive(id));
    id = compileMesh("'material': 'red', 'mesh': 'figure', 'skin': ''");
    EXPECT_FALSE(isSkinned(id));
    EXPECT_TRUE(meshes.isActive(id));
    id = compileMesh("'material': 'red', 'mesh': 'figure'");
    EXPECT_FALSE(isSkinned(id));
    EXPECT_TRUE(meshes.isActive(id));
}

TEST_F(MeshComponentTest, aSkinThatIsNotCompiledMakesItInactive) {
    Id id = NoComponent;
    const std::string lines =
        printed<Utility::Debug>([&] { id = compileMesh("'material': 'red', 'mesh': 'figure', 'skin': 'bones'"); });
    EXPECT_EQ(lines, "While compiling mesh component on object a, skin bones is not compiled\n");
    EXPECT_FALSE(meshes.isActive(id));
    EXPECT_EQ(problem("a", 0), "its skin \"bones\" is not compiled");
    setIndex(ResourceKind::Skin, "bones", 7);
    compile({"a"});
    EXPECT_TRUE(meshes.isActive(id));
    EXPECT_TRUE(isSkinned(id));
}

TEST_F(MeshComponentTest, theObjectIsFoundThroughWhatItUses) {
    ResourceMaps& maps = data.scene().resourceMaps();
    const auto users = [&](ResourceKind kind, const char* id) {
        std::vector<std::string> ids;
        maps.node(kind, id).forEachUser([&](const ResourceUser& user) { ids.push_back(user.id); });
        return ids;
    };
    const std::vector<std::string> a{"a"}, none;
    compileMesh("'material': 'red', 'mesh': 'figure', 'skin': 'later'");
    EXPECT_EQ(users(ResourceKind::Material, "red"), a);
    EXPECT_EQ(users(ResourceKind::Pipeline, "lit"), a);
    EXPECT_EQ(users(ResourceKind::Mesh, "figure"), a);
    EXPECT_EQ(users(ResourceKind::Skin, "later"), a);
    compileMesh("'material': 'later', 'mesh': 'figure'");
    EXPECT_EQ(users(ResourceKind::Material, "red"), none);
    EXPECT_EQ(users(ResourceKind::Material, "later"), a);
    EXPECT_EQ(users(ResourceKind::Skin, "later"), none);
    setObjects("");
    compile({"a"});
    EXPECT_EQ(users(ResourceKind::Material, "later"), none);
}

TEST_F(MeshComponentTest, drawsChangeOnlyWhereSomethingIsBoundAnew) {
    SceneRevisions& revisions = data.scene().revisions();
    const auto changesDraws = [&](const std::string& members, const std::string& more = "") {
        revisions.acknowledge();
        const std::uint32_t seen = revisions.revision();
        compileMesh(members, more);
        return revisions.counter(Aspect::Draws) != seen;
    };
    setIndex(ResourceKind::Skin, "bones", 7);
    EXPECT_TRUE(changesDraws("'material': 'red', 'mesh': 'figure'"));
    EXPECT_FALSE(changesDraws("'material': 'red', 'mesh': 'figure'"));
    EXPECT_TRUE(changesDraws("'material': 'red', 'mesh': 'box'"));
    EXPECT_TRUE(changesDraws("'material': 'red', 'mesh': 'box'", ", 'active': false"));
    EXPECT_TRUE(changesDraws("'material': 'red', 'mesh': 'figure', 'skin': 'bones'"));
    EXPECT_FALSE(changesDraws("'material': 'red', 'mesh': 'figure', 'skin': 'bones'"));
    EXPECT_TRUE(changesDraws("'mesh': 'figure'"));
    revisions.acknowledge();
    const std::uint32_t seen = revisions.revision();
    setObjects("");
    compile({"a"});
    EXPECT_NE(revisions.counter(Aspect::Draws), seen);
}

} // namespace
