#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Magnum/Math/Functions.h>
#include <Magnum/Trade/AnimationData.h>
#include <Vantrel/EngineData/AnimationManager.h>
#include <Vantrel/EngineData/CollisionManager.h>
#include <Vantrel/EngineData/InputManager.h>
#include <Vantrel/EngineData/JavaScriptManager.h>
#include <Vantrel/EngineData/LightManager.h>
#include <Vantrel/EngineData/MeshManager.h>
#include <Vantrel/EngineData/PhysXManager.h>
#include <Vantrel/EngineData/TextManager.h>
#include <Vantrel/EngineData/ViewManager.h>

#include "SceneTestSupport.h"

namespace {

using namespace Magnum;
using namespace Math::Literals;
using namespace VantrelEngine;
using namespace VantrelTest;
using Corrade::Containers::StringView;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::KilledBySignal;

struct ManagersTest: testing::Test {
    ManagersTest() {
        std::size_t i = 0;
        for(ComponentManager* manager: std::initializer_list<ComponentManager*>{
                &meshes, &collisions, &bodies, &animations, &lights, &texts, &views, &inputs, &scripts})
            graph.setComponentManager(i++, *manager);
        object = graph.addObject(RootObject);
    }

    DynamicSceneGraph graph{3, 2, 9};
    MeshManager meshes;
    CollisionManager collisions;
    PhysXManager bodies;
    AnimationManager animations;
    LightManager lights;
    TextManager texts;
    ViewManager views{1};
    InputManager inputs;
    JavaScriptManager scripts;
    Id object;
};

using ManagersDeathTest = ManagersTest;

template<std::size_t size> std::vector<std::string> names(const StringView (&list)[size]) {
    std::vector<std::string> out;
    for(const StringView name: list) out.push_back({name.data(), name.size()});
    return out;
}

TEST_F(ManagersTest, areRegisteredUnderTheNamesThatADocumentUses) {
    std::size_t i = 0;
    for(const char* name: {"mesh", "collision", "physx", "animation", "light", "text", "view", "input", "js"})
        EXPECT_EQ(graph.componentManagerIndex(name), i++) << name;
    EXPECT_EQ(views.capacity(), 1u);
}

TEST_F(ManagersTest, enumerationsAreListedByValue) {
    EXPECT_THAT(names(CollisionManager::EnumValuesCollider), ElementsAre("sphere", "aabb", "obb"));
    EXPECT_THAT(names(PhysXManager::EnumValuesShape),
        ElementsAre("none", "sphere", "capsule", "box", "plane", "convexMesh", "triangleMesh"));
    EXPECT_THAT(names(InputManager::EnumValuesInputType), ElementsAre("keyboard", "mouse", "gamepad", "touch"));
    EXPECT_THAT(names(TextManager::EnumValuesHorizontalAlignment), ElementsAre("left", "center", "right"));
    EXPECT_THAT(names(TextManager::EnumValuesVerticalAlignment), ElementsAre("baseline", "top", "middle", "bottom"));
    EXPECT_THAT(names(TextManager::EnumValuesEffect), ElementsAre("none", "outline"));
}

// Physics.

struct NotedSimulation: PhysicsSimulation {
    void initComponents(PhysXManager& bodies) override { note("init", bodies); }
    void doFalseUpdate(PhysXManager& bodies) override { note("update", bodies); }
    void note(const char* what, PhysXManager& bodies) { calls.push_back(what + (" " + std::to_string(bodies.size()))); }
    std::vector<std::string> calls;
};

TEST_F(ManagersTest, bodiesAreASimulationsBusiness) {
    bodies.addComponent(object);
    bodies.initComponents();
    bodies.doFalseUpdate();
    NotedSimulation first, second;
    bodies.setSimulation(&first);
    EXPECT_THAT(first.calls, ElementsAre());
    bodies.doFalseUpdate();
    bodies.doFalseUpdate();
    EXPECT_THAT(first.calls, ElementsAre("init 1", "update 1", "update 1"));
    bodies.addComponent(object);
    bodies.initComponents();
    bodies.doFalseUpdate();
    EXPECT_EQ(first.calls.size(), 5u);
    EXPECT_EQ(first.calls[3], "init 2");
    bodies.setSimulation(&second);
    bodies.doFalseUpdate();
    EXPECT_THAT(second.calls, ElementsAre("init 2", "update 2"));
    bodies.setSimulation(nullptr);
    bodies.doFalseUpdate();
    EXPECT_EQ(second.calls.size(), 2u);
    EXPECT_EQ(first.calls.size(), 5u);
}

// Meshes.

TEST_F(ManagersTest, aNewMeshIsBoundToNothing) {
    const Id mesh = meshes.addComponent(object);
    EXPECT_EQ(meshes.mesh(mesh), 0);
    EXPECT_EQ(meshes.material(mesh), 0);
    EXPECT_EQ(meshes.skin(mesh), 0);
    EXPECT_EQ(meshes.groupsCount(), 1u);
    EXPECT_EQ(meshes.groupPipeline(0), 0);
    EXPECT_FALSE(meshes.isGroupSkinned(0));
    EXPECT_EQ(meshes.groupSize(0), 0u);
}

TEST_F(ManagersTest, meshesWithOnePipelineAreOneRange) {
    Id ids[7];
    for(Id& id: ids) {
        id = meshes.addComponent(object);
        meshes.mesh(id) = Id(10 + id);
        meshes.material(id) = Id(20 + id);
        meshes.setSkin(id, Id(30 + id));
        meshes.setGroup(id, id % 2 ? 65535 : 3, id == 6);
        meshes.setActive(id, id != 0);
    }
    ASSERT_EQ(meshes.groupsCount(), 4u);
    EXPECT_EQ(meshes.groupPipeline(1), 3);
    EXPECT_EQ(meshes.groupPipeline(2), 65535);
    EXPECT_FALSE(meshes.isGroupSkinned(2));
    EXPECT_EQ(meshes.groupPipeline(3), 3);
    EXPECT_TRUE(meshes.isGroupSkinned(3));
    EXPECT_EQ(meshes.groupSize(0), 0u);
    EXPECT_EQ(meshes.groupSize(1), 2u);
    EXPECT_EQ(meshes.groupSize(2), 3u);
    EXPECT_EQ(meshes.groupSize(3), 1u);
    for(std::size_t group = 0; group != 4; ++group)
        for(std::size_t slot = meshes.groupStart(group); slot != meshes.groupEnd(group); ++slot) {
            const Id id = meshes.components()[slot];
            EXPECT_EQ(meshes.meshes()[slot], 10 + id);
            EXPECT_EQ(meshes.materials()[slot], 20 + id);
            EXPECT_EQ(meshes.skins()[slot], 30 + id);
            EXPECT_EQ(meshes.groupPipeline(group), id % 2 ? 65535 : 3);
            EXPECT_EQ(meshes.isGroupSkinned(group), id == 6);
        }
    EXPECT_EQ(meshes.groupEnd(3), 6u);

    meshes.setGroup(ids[6], 3, 0);
    EXPECT_EQ(meshes.groupsCount(), 4u);
    EXPECT_EQ(meshes.groupSize(1), 3u);
    EXPECT_EQ(meshes.groupSize(3), 0u);
    graph.deleteObjects(object);
    EXPECT_EQ(meshes.groupsCount(), 4u);
    EXPECT_EQ(meshes.groupEnd(3), 0u);
}

TEST_F(ManagersTest, everyMeshCanHaveItsOwnPipeline) {
    for(std::size_t i = 0; i != 65535; ++i) {
        const Id id = meshes.addComponent(object);
        meshes.setGroup(id, Id(65534 - i), i % 2);
        meshes.activate(id);
    }
    // Pipeline 0, not skinned, was there; the last one here is it.
    EXPECT_EQ(meshes.groupsCount(), 65535u);
    for(std::size_t group = 0; group != 65535; ++group) {
        ASSERT_EQ(meshes.groupStart(group), group);
        ASSERT_EQ(meshes.groupSize(group), 1u);
        ASSERT_EQ(meshes.components()[group], group ? group - 1 : 65534);
    }
}

// Lights.

TEST_F(ManagersTest, lightsOfATypeAreOneRange) {
    for(int i = 0; i != 6; ++i) {
        const Id light = lights.addComponent(object);
        EXPECT_EQ(lights.lightType(light), LightType::Point);
        lights.setLightType(light, LightType(i % 3));
        lights.setActive(light, i != 2);
        lights.color(light) = Vector4{Float(i)};
    }
    const auto range = [&](LightType type) {
        return std::make_pair(lights.lightsOfType(type).first(), lights.lightsOfType(type).second());
    };
    EXPECT_EQ(range(LightType::Point), (std::pair<Id, Id>{0, 2}));
    EXPECT_EQ(range(LightType::Spot), (std::pair<Id, Id>{2, 4}));
    EXPECT_EQ(range(LightType::Sun), (std::pair<Id, Id>{4, 5}));
    EXPECT_EQ(lights.components()[4], 5);
    EXPECT_EQ(lights.numActiveComponents(), 5u);
    EXPECT_EQ(lights.lightType(2), LightType::Sun);
    EXPECT_EQ(lights.color(5), Vector4{5.0f});
}

TEST_F(ManagersTest, aLightKeepsItsValues) {
    const Id light = lights.addComponent(object);
    lights.parameters(light) = {45.0f, 30.0f, 1.0f};
    lights.shadowRange(light) = 12.0f;
    lights.shadowParameters(light) = {0.1f, 0.2f, 0.3f, 4.0f};
    lights.setLightType(light, LightType::Sun);
    lights.activate(light);
    EXPECT_EQ(lights.parameters(light), (Vector3{45.0f, 30.0f, 1.0f}));
    EXPECT_EQ(lights.shadowRange(light), 12.0f);
    EXPECT_EQ(lights.shadowParameters(light), (Vector4{0.1f, 0.2f, 0.3f, 4.0f}));
}

TEST_F(ManagersTest, theNumberOfCascadesIsAlwaysAWholeNumber) {
    const Id light = lights.addComponent(object);
    const struct {
        Float value;
        UnsignedInt expected;
    } table[]{{0.0f, 0}, {4.0f, 4}, {3.7f, 3}, {-1.0f, 0}, {1.0e20f, 0}, {Float(Constants::nan()), 0},
        {Float(Constants::inf()), 0}};
    for(const auto& row: table) {
        lights.shadowParameters(light).w() = row.value;
        EXPECT_EQ(lights.cascadeCount(light), row.expected) << row.value;
    }
}

// Views.

TEST_F(ManagersTest, aViewLooksFromItsObject) {
    const Id view = views.addComponent(object);
    EXPECT_EQ(view, 0);
    EXPECT_EQ(views.near(view), 0.1f);
    EXPECT_EQ(views.far(view), 1000.0f);
    EXPECT_EQ(views.fov(view), 90.0f);
    EXPECT_EQ(views.viewport(view), Range2Di{});
    EXPECT_EQ(views.projectionMatrix(view), Matrix4{});

    graph.localTransformation(object) =
        DualQuaternion::from(Quaternion::rotation(90.0_degf, Vector3::yAxis()), {1, 2, 3});
    graph.localScaling(object) = Vector3{5.0f};
    graph.setDirty(object);
    const Matrix4 projection = Matrix4::perspectiveProjection(90.0_degf, 1.0f, 0.1f, Float(Constants::inf()));
    views.projectionMatrix(view) = projection;
    views.update();
    EXPECT_EQ(views.cullingMatrix(view), Matrix4{}) << "an inactive view is not updated";
    views.activate(view);
    views.update();
    EXPECT_EQ(views.viewTransform(view), DualQuaternion{}) << "of what was last computed";
    graph.computeAbsoluteTransformations();
    views.update();
    // Turned to the left, it looks along -x: what lies there is in front.
    EXPECT_EQ(views.viewTransform(view).transformPoint({-1, 2, 3}), (Vector3{0, 0, -2}));
    EXPECT_EQ(views.cullingMatrix(view),
        projection * (Matrix4::translation({1, 2, 3}) * Matrix4::rotationY(90.0_degf)).invertedRigid());
}

// Collision shapes, bodies, inputs.

TEST_F(ManagersTest, shapesKeepTheirValues) {
    const Id a = collisions.addComponent(object), b = collisions.addComponent(object);
    EXPECT_EQ(collisions.collider(a), 0);
    EXPECT_EQ(collisions.extents(a), Vector3{0.5f});
    EXPECT_EQ(collisions.group(a), 0);
    collisions.collider(a) = 2;
    collisions.extents(a).x() = 3.0f;
    collisions.group(a) = 255;
    collisions.activate(b);
    EXPECT_EQ(collisions.toIndex(a), 1);
    EXPECT_EQ(collisions.collider(a), 2);
    EXPECT_EQ(collisions.extents(a), (Vector3{3.0f, 0.5f, 0.5f}));
    EXPECT_EQ(collisions.group(a), 255);
    EXPECT_EQ(collisions.collider(b), 0);

    const Id body = bodies.addComponent(object);
    RigidBodyDescriptor& descriptor = bodies.rigidBodyDescriptor(body);
    EXPECT_EQ(descriptor.physicsData, 65535);
    EXPECT_EQ(descriptor.shape, 0);
    EXPECT_EQ(descriptor.flags, 0);
    descriptor.flags = RigidBodyDescriptor::Trigger | RigidBodyDescriptor::AllowQuery;
    EXPECT_EQ(descriptor.flags, 96);
    bodies.addComponent(object);
    bodies.activate(1);
    EXPECT_EQ(bodies.toIndex(body), 1);
    EXPECT_EQ(bodies.rigidBodyDescriptor(body).flags, 96);

    const Id input = inputs.addComponent(object);
    EXPECT_EQ(inputs.inputType(input), 0);
    inputs.inputType(input) = 3;
    EXPECT_EQ(inputs.inputType(input), 3);
}

TEST(RigidBodyDescriptorTest, bitsOfTheFlags) {
    EXPECT_EQ(RigidBodyDescriptor::WithoutGravity, 1);
    EXPECT_EQ(RigidBodyDescriptor::Static, 2);
    EXPECT_EQ(RigidBodyDescriptor::WithoutSimulation, 4);
    EXPECT_EQ(RigidBodyDescriptor::Kinematic, 8);
    EXPECT_EQ(RigidBodyDescriptor::AllowSimulation, 16);
    EXPECT_EQ(RigidBodyDescriptor::AllowQuery, 32);
    EXPECT_EQ(RigidBodyDescriptor::Trigger, 64);
}

// Scripts.

TEST_F(ManagersTest, scriptTypesAreFoundByName) {
    EXPECT_EQ(scripts.typeIndex("wheel"), 65535);
    EXPECT_EQ(scripts.registerType("wheel"), 0);
    EXPECT_EQ(scripts.registerType("door"), 1);
    EXPECT_EQ(scripts.registerType("zebra"), 2);
    EXPECT_EQ(scripts.registerType("door"), 1);
    EXPECT_EQ(scripts.typesCount(), 3u);
    EXPECT_EQ(scripts.typeName(1), "door");
    EXPECT_EQ(scripts.typeIndex("wheel"), 0);
    EXPECT_EQ(scripts.typeIndex("zebra"), 2);
    EXPECT_EQ(scripts.typeIndex("doo"), 65535);
    EXPECT_EQ(scripts.typeIndex(""), 65535);

    const Id script = scripts.addComponent(object, 1);
    EXPECT_EQ(scripts.componentType(script), 1);
    EXPECT_EQ(scripts.componentType(scripts.addComponent(object)), 255);
    scripts.setComponentType(script, 2);
    scripts.activate(1);
    EXPECT_EQ(scripts.toIndex(script), 1);
    EXPECT_EQ(scripts.componentType(script), 2);
}

TEST_F(ManagersTest, thereAreAtMost255ScriptTypes) {
    UnsignedShort index = 0;
    EXPECT_EQ(errorsOf([&] { index = scripts.registerType(""); }),
        "JavaScriptManager::registerType(): cannot register type , the name is empty\n");
    EXPECT_EQ(index, 65535);
    EXPECT_EQ(scripts.typesCount(), 0u);
    for(int i = 254; i >= 0; --i) EXPECT_EQ(scripts.registerType(std::to_string(i).data()), 254 - i);
    index = 0;
    EXPECT_EQ(errorsOf([&] { index = scripts.registerType("one more"); }),
        "JavaScriptManager::registerType(): cannot register type one more, there are 255 types already\n");
    EXPECT_EQ(index, 65535);
    EXPECT_EQ(scripts.typesCount(), 255u);
    for(int i = 0; i != 255; ++i) EXPECT_EQ(scripts.typeIndex(std::to_string(i).data()), 254 - i);
}

TEST_F(ManagersDeathTest, abortOnWhatIsNotThere) {
    const Id mesh = meshes.addComponent(object);
    EXPECT_EXIT(meshes.setGroup(mesh, 1, 2), KilledBySignal(SIGABRT),
        HasSubstr("MeshManager::setGroup(): expected a flag, not 2"));
    scripts.registerType("a");
    EXPECT_EXIT(scripts.addComponent(object, 1), KilledBySignal(SIGABRT),
        HasSubstr("JavaScriptManager::setComponentType(): there is no type 1 among 1"));
    EXPECT_EXIT(texts.text(0), KilledBySignal(SIGABRT), HasSubstr("ComponentManager: there is no text component 0"));
    EXPECT_EXIT(
        texts.setText(0, "x"), KilledBySignal(SIGABRT), HasSubstr("ComponentManager: there is no text component 0"));
}

// Texts.

TEST_F(ManagersTest, aTextKeepsItsSettings) {
    const Id a = texts.addComponent(object), b = texts.addComponent(object);
    EXPECT_EQ(texts.text(a), "");
    EXPECT_EQ(texts.textSize(b), 0u);
    EXPECT_EQ(texts.characterSpacing(a), 0.0f);
    EXPECT_EQ(texts.lineSpacing(a), 1.0f);
    texts.setText(b, "Hello");
    texts.setHorizontalAlignment(b, 2);
    texts.setVerticalAlignment(b, 3);
    texts.setEffect(b, 1);
    texts.setCharacterSpacing(b, 0.25f);
    texts.setLineSpacing(b, 1.5f);
    texts.setFont(b, 7);
    texts.material(b) = 9;
    texts.activate(b);
    EXPECT_EQ(texts.toIndex(b), 0);
    EXPECT_EQ(texts.text(b), "Hello");
    EXPECT_EQ(texts.textSize(b), 5u);
    EXPECT_EQ(texts.horizontalAlignment(b), 2);
    EXPECT_EQ(texts.verticalAlignment(b), 3);
    EXPECT_EQ(texts.effect(b), 1);
    EXPECT_EQ(texts.characterSpacing(b), 0.25f);
    EXPECT_EQ(texts.lineSpacing(b), 1.5f);
    EXPECT_EQ(texts.font(b), 7);
    EXPECT_EQ(texts.material(b), 9);
    EXPECT_EQ(texts.text(a), "");
}

TEST_F(ManagersTest, textStorageGrowsByWhatIsMissing) {
    texts.allocate(2, 10);
    EXPECT_EQ(texts.capacity(), 2u);
    EXPECT_EQ(texts.texts().capacity(), 10u);
    const Id a = texts.addComponent(object);
    texts.setText(a, "12345");
    EXPECT_EQ(texts.texts().unusedCapacity(), 4u);
    texts.setText(a, "123456789");
    EXPECT_EQ(texts.texts().capacity(), 10u);
    texts.setText(a, "123456789012");
    EXPECT_EQ(texts.texts().capacity(), 13u);
    // A deleted component's text is gone at once.
    graph.deleteComponent(object, graph.componentManagerIndex("text"), a);
    EXPECT_EQ(texts.texts().unusedCapacity(), 13u);
    const Id b = texts.addComponent(object);
    EXPECT_EQ(texts.text(b), "");
    // Of one whose text was never set, there is none to lose.
    graph.deleteComponent(object, graph.componentManagerIndex("text"), texts.addComponent(object));
}

TEST_F(ManagersTest, aTextIsDirtyWhenItIsNewOrChanged) {
    const Id a = texts.addComponent(object), b = texts.addComponent(object);
    EXPECT_TRUE(texts.isDirty(a));
    texts.resetDirty();
    EXPECT_FALSE(texts.isDirty(a));
    void (*const changes[])(TextManager&, Id){[](TextManager& texts, Id id) { texts.setText(id, "x"); },
        [](TextManager& texts, Id id) { texts.setHorizontalAlignment(id, 1); },
        [](TextManager& texts, Id id) { texts.setVerticalAlignment(id, 1); },
        [](TextManager& texts, Id id) { texts.setEffect(id, 1); },
        [](TextManager& texts, Id id) { texts.setCharacterSpacing(id, 1.0f); },
        [](TextManager& texts, Id id) { texts.setLineSpacing(id, 2.0f); },
        [](TextManager& texts, Id id) { texts.setFont(id, 1); }};
    for(const auto change: changes) {
        SCOPED_TRACE(&change - changes);
        change(texts, b);
        EXPECT_TRUE(texts.isDirty(b));
        EXPECT_FALSE(texts.isDirty(a));
        texts.resetDirty();
    }
    texts.setAllDirty();
    EXPECT_TRUE(texts.isDirty(a));
    EXPECT_TRUE(texts.isDirty(b));
}

// Animations.

Trade::AnimationData animationData() { return Trade::AnimationData{nullptr, nullptr, Range1D{0.0f, 2.0f}}; }

TEST_F(ManagersTest, anAnimationKeepsItsSettingsWhenItsPlayerStartsAfresh) {
    const Id a = animations.addComponent(object);
    EXPECT_EQ(animations.playCount(a), 0);
    EXPECT_EQ(animations.speed(a), 1.0f);
    EXPECT_FALSE(animations.isAutoplay(a));
    EXPECT_FALSE(animations.isRetarget(a));
    EXPECT_FALSE(animations.isPlaying(a));
    EXPECT_EQ(animations.animation(a), 0);
    EXPECT_EQ(animations.animationData(a), nullptr);
    animations.playCount(a) = 3;
    animations.setSpeed(a, -2.0f);
    animations.setAutoplay(a, true);
    animations.setRetarget(a, true);
    animations.animation(a) = 5;
    animations.player(a).time = 1.5f;
    animations.play(a);
    EXPECT_TRUE(animations.isPlaying(a));
    EXPECT_EQ(animations.player(a).time, 1.5f);
    animations.player(a) = {};
    EXPECT_FALSE(animations.isPlaying(a));
    EXPECT_EQ(animations.player(a).time, 0.0f);
    EXPECT_EQ(animations.playCount(a), 3);
    EXPECT_EQ(animations.speed(a), -2.0f);
    EXPECT_TRUE(animations.isAutoplay(a));
    EXPECT_TRUE(animations.isRetarget(a));
    EXPECT_EQ(animations.animation(a), 5);
}

TEST_F(ManagersTest, anAnimationIsSharedOrOwned) {
    // Unused ones below show that what is owned is kept by component.
    for(int i = 0; i != 5; ++i) animations.addComponent(object);
    Trade::AnimationData shared = animationData();
    const Id a = 1, b = 4;
    animations.setAnimation(a, shared);
    EXPECT_EQ(animations.animationData(a), &shared);
    // Its slot is another one's id.
    animations.activate(b);
    EXPECT_EQ(animations.toIndex(b), 0);
    animations.setAnimation(b, animationData());
    const Trade::AnimationData* const owned = animations.animationData(b);
    ASSERT_TRUE(owned);
    EXPECT_EQ(owned->duration(), (Range1D{0.0f, 2.0f}));
    animations.setActive(b, false);
    EXPECT_EQ(animations.animationData(b), owned);
    EXPECT_EQ(animations.animationData(a), &shared);
    animations.setAnimation(b, shared);
    EXPECT_EQ(animations.animationData(b), &shared);
    animations.setAnimation(b, animationData());
    EXPECT_NE(animations.animationData(b), &shared);
    graph.deleteObjects(object);
    object = graph.addObject(RootObject);
    for(int i = 0; i != 5; ++i) EXPECT_EQ(animations.animationData(animations.addComponent(object)), nullptr);
}

}
