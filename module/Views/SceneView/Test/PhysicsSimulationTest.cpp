#include "Views/SceneView/PhysicsSimulation.h"

#include <Corrade/Utility/Debug.h>

#include "../../../../editor/Data/Test/SessionFixture.h"

namespace VantrelEngine {

namespace {

using namespace Magnum;

// Notes what it is asked, and where the object with a body was then.
struct Recorder: PhysicsSimulation {
    explicit Recorder(ProjectSession& session): session{session} {}

    void initComponents(PhysXManager&) override { calls += "init "; }
    void doFalseUpdate(PhysXManager&) override {
        Scene& scene = session.data().scene().main();
        scene.computeAbsoluteTransformations();
        const Vector3 place = scene.absoluteTransformation(session.compiler().objectOf("ball")).translation();
        calls += place == Vector3{1.0f, 2.0f, 3.0f} ? "update " : "update elsewhere ";
    }

    ProjectSession& session;
    std::string calls;
};

class PhysicsSimulationTest: public VantrelTest::SessionFixture {
protected:
    PhysicsSimulationTest() {
        record("/objects/ball", "{'translation': [1, 2, 3]}");
        record("/objects/child", "{'parent': 'ball', 'translation': [0, 1, 0]}");
        printed([&] { session.update(); });
        scene.bodies.setSimulation(&simulation);
    }
    ~PhysicsSimulationTest() override { scene.bodies.setSimulation(nullptr); }

    std::string said(bool on) {
        return printed<Corrade::Utility::Debug>([&] { printed([&] { simulatePhysics(on, state); }); });
    }

    SharedState& state = session.editor().state();
    Recorder simulation{session};
};

TEST_F(PhysicsSimulationTest, StartingSaysSoAndNothingElse) {
    const std::uint32_t revision = session.data().scene().revisions().revision();
    EXPECT_EQ(said(true), "Started simulating physics\n");
    EXPECT_TRUE(state.isSimulating());
    EXPECT_EQ(simulation.calls, "");
    EXPECT_EQ(session.data().scene().revisions().revision(), revision);
}

TEST_F(PhysicsSimulationTest, StoppingPutsEverythingBack) {
    said(true);
    for(const char* const id: {"ball", "child"}) {
        scene.localTransformation(objectOf(id)) = DualQuaternion::translation({0.0f, -9.0f, 0.0f});
        scene.setDirty(objectOf(id));
    }
    EXPECT_EQ(said(false), "Stopped simulating physics\n");
    EXPECT_FALSE(state.isSimulating());
    EXPECT_EQ(simulation.calls, "init update ");
    scene.computeAbsoluteTransformations();
    EXPECT_EQ(scene.absoluteTransformation(objectOf("ball")).translation(), (Vector3{1.0f, 2.0f, 3.0f}));
    EXPECT_EQ(scene.absoluteTransformation(objectOf("child")).translation(), (Vector3{1.0f, 3.0f, 3.0f}));
}

TEST_F(PhysicsSimulationTest, WithoutASimulationItIsAFlag) {
    scene.bodies.setSimulation(nullptr);
    EXPECT_EQ(said(true), "Started simulating physics\n");
    EXPECT_EQ(said(false), "Stopped simulating physics\n");
}

TEST_F(PhysicsSimulationTest, TheSettingIsReadEachTime) {
    EXPECT_FALSE(hasPhysics(session.data()));
    record("/settings/physx/enable", "true");
    EXPECT_TRUE(hasPhysics(session.data()));
    changes().undoLast();
    EXPECT_FALSE(hasPhysics(session.data()));
}

} // namespace

} // namespace VantrelEngine
