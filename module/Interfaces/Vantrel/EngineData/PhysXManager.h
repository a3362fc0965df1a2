#pragma once

#include <Corrade/Containers/StringView.h>
#include <Magnum/Math/Vector3.h>

#include <Vantrel/EngineData/ComponentManager.h>

namespace VantrelEngine {

// A body of the physics simulation, with one shape.
struct RigidBodyDescriptor {
    // No cooked mesh.
    static constexpr Magnum::UnsignedShort NoPhysicsData = 65535;

    // Bits of the flags.
    enum Flag : Magnum::UnsignedByte {
        WithoutGravity = 1,
        Static = 2,
        // Takes no part in simulations.
        WithoutSimulation = 4,
        Kinematic = 8,
        // The shape collides.
        AllowSimulation = 16,
        // The shape is found by queries.
        AllowQuery = 32,
        // The shape reports what enters it; never together with AllowSimulation.
        Trigger = 64
    };

    // Above 0, kilograms.
    Magnum::Float mass = 1.0f;
    // Scene units. Sphere: the radius. Capsule: the radius and half the distance of the two centres. Box: half the
    // edges.
    Magnum::Vector3 extents{0.5f};
    // Of the two mesh shapes.
    Magnum::UnsignedShort physicsData = NoPhysicsData;
    // At least 0.
    Magnum::Float staticFriction = 0.5f;
    Magnum::Float dynamicFriction = 0.5f;
    // Coefficient of restitution, from 0 to 1.
    Magnum::Float bounciness = 0.0f;
    // At least 0, one over a second.
    Magnum::Float linearDamping = 0.0f;
    Magnum::Float angularDamping = 0.05f;
    Magnum::UnsignedByte flags = 0;
    // Index into PhysXManager::EnumValuesShape.
    Magnum::UnsignedByte shape = 0;
    // One bit a group: the groups that the body is in, and those that it passes through.
    Magnum::UnsignedByte groups = 0;
    Magnum::UnsignedByte block = 0;
    // Bits 0 to 2: no movement along x, y, z. Bits 3 to 5: no rotation about x, y, z.
    Magnum::UnsignedByte lockAxis = 0;
};

class PhysXManager;

// What moves the bodies. It is told of them, and reads their descriptors and the transformations of their objects.
class PhysicsSimulation {
public:
    virtual ~PhysicsSimulation() = default;
    // Makes the bodies of all components of the manager anew.
    virtual void initComponents(PhysXManager& bodies) = 0;
    // Puts the bodies where their objects are, and lets no time pass. Follows an initComponents().
    virtual void doFalseUpdate(PhysXManager& bodies) = 0;
};

// Bodies of the physics simulation ("physx"): their descriptors.
class CORRADE_VISIBILITY_EXPORT PhysXManager: public ComponentManager {
public:
    // Names of the shapes by value. A capsule lies along the x axis, a plane through the origin faces along it.
    static const Corrade::Containers::StringView EnumValuesShape[7];

    explicit PhysXManager(std::size_t capacity = 0);

    RigidBodyDescriptor& rigidBodyDescriptor(Id component) { return _descriptor[slot(component)]; }

    // Not owned; null, as at first, for none. Bodies are made for a new one when it is first needed.
    void setSimulation(PhysicsSimulation* simulation);

    // Makes the bodies of all components anew. Without a simulation nothing happens.
    void initComponents();
    // Takes over where the objects are, and lets no time pass; makes the bodies first where that was not done. Without a
    // simulation nothing happens.
    void doFalseUpdate();

private:
    PhysicsSimulation* _simulation = nullptr;
    // The simulation has made its bodies.
    bool _isInitialized = false;
    Field<RigidBodyDescriptor> _descriptor{*this};
};

}
