#include <Vantrel/EngineData/PhysXManager.h>

namespace VantrelEngine {

using namespace Corrade::Containers::Literals;

const Corrade::Containers::StringView PhysXManager::EnumValuesShape[]{
    "none"_s, "sphere"_s, "capsule"_s, "box"_s, "plane"_s, "convexMesh"_s, "triangleMesh"_s};

PhysXManager::PhysXManager(std::size_t capacity): ComponentManager{"physx", capacity} {}

void PhysXManager::setSimulation(PhysicsSimulation* simulation) {
    _simulation = simulation;
    _isInitialized = false;
}

void PhysXManager::initComponents() {
    if(!_simulation) return;
    _simulation->initComponents(*this);
    _isInitialized = true;
}

void PhysXManager::doFalseUpdate() {
    if(!_simulation) return;
    if(!_isInitialized) initComponents();
    _simulation->doFalseUpdate(*this);
}

}
