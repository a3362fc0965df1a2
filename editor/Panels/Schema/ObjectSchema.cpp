#include "Panels/Schema/Schema.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr SchemaKey ObjectKeys[]{
    {"name", "Name", KeyKind::Text, R"("")", "What the editor shows. Several objects may have the same."},
    SchemaKey{"parent", "Parent", KeyKind::Reference, R"("")",
        "The object that this one is attached to; none: the root of the scene."}
        .from("objects"),
    SchemaKey{"translation", "Translation", KeyKind::Vector, "[0, 0, 0]", "In the parent's space."}.of(3).unit("u"),
    SchemaKey{"rotation", "Rotation", KeyKind::Rotation, "[0, 0, 0, 1]",
        "Turned about X first, then about Y, then about Z of the parent."}
        .of(4)
        .unit("°"),
    SchemaKey{"scaling", "Scaling", KeyKind::Vector, "[1, 1, 1]",
        "Factors along the object's axes. Scales the positions of its children, too."}
        .of(3)
        .neverZero(),
    SchemaKey{"skin", "Skin", KeyKind::Reference, R"("")", "The skin whose joints the object's animations drive."}.from(
        "skins"),
    {"components", "Components", KeyKind::Group, "[]", ""},
};

constexpr SchemaKey MeshKeys[]{
    SchemaKey{"mesh/mesh", "Mesh", KeyKind::Reference, R"("")", "The shape. Without one nothing is drawn."}.from(
        "meshes"),
    SchemaKey{"mesh/material", "Material", KeyKind::Reference, R"("")", "Without one nothing is drawn."}.from(
        "materials"),
    SchemaKey{"mesh/skin", "Skin", KeyKind::Reference, R"("")", "For a mesh with joints."}.from("skins"),
};

constexpr SchemaKey CollisionKeys[]{
    SchemaKey{"collision/collider", "Collider", KeyKind::Choice, R"("sphere")",
        "aabb: a box along the axes of the scene; obb: one along those of the object."}
        .choices("sphere|aabb|obb"),
    SchemaKey{"collision/sphere/radius", "Radius", KeyKind::Number, "0.5", ""}.unit("u").range(0).only(
        "collision/collider", "sphere"),
    SchemaKey{"collision/aabb/extents", "Extents", KeyKind::Vector, "[0.5, 0.5, 0.5]", "Along the scene's axes."}
        .of(3)
        .unit("u")
        .range(0)
        .only("collision/collider", "aabb"),
    SchemaKey{"collision/obb/extents", "Extents", KeyKind::Vector, "[0.5, 0.5, 0.5]", "Along the object's axes."}
        .of(3)
        .unit("u")
        .range(0)
        .only("collision/collider", "obb"),
    SchemaKey{"collision/groups", "Groups", KeyKind::Flags, "0", "The groups that the shape is in."}.choices(
        "1|2|3|4|5|6|7|8"),
};

constexpr const char* Spot = "spot";
constexpr const char* LightType = "light/type";

constexpr SchemaKey LightKeys[]{
    SchemaKey{LightType, "Type", KeyKind::Choice, R"("point")", "A sun shines from afar, the others from their place."}
        .choices("point|spot|sun"),
    SchemaKey{"light/color", "Colour", KeyKind::Color, "[1, 1, 1]", "Linear."}.of(3).range(0),
    SchemaKey{"light/intensity", "Intensity", KeyKind::Number, "1", "Factor of the colour."}.range(0),
    SchemaKey{"light/outerAngle", "Outer angle", KeyKind::Number, "0", "From the axis to where the light ends."}
        .unit("°")
        .range(0, 180)
        .only(LightType, Spot),
    SchemaKey{
        "light/innerAngle", "Inner angle", KeyKind::Number, "0", "From the axis to where the light begins to fade."}
        .unit("°")
        .range(0, 180)
        .only(LightType, Spot),
    {"light/shadows", "Shadows", KeyKind::Truth, "false", "Things stand in the light's way."},
    SchemaKey{"light/shadowRange", "Shadow range", KeyKind::Number, "0",
        "How far shadows reach: of a sun from the camera, of others from the light. 0: no shadows."}
        .unit("u")
        .range(0),
    SchemaKey{"light/shadowBias", "Shadow bias", KeyKind::Number, "0",
        "How far surfaces are moved towards the light before they are looked up."}
        .unit("u")
        .range(0),
    SchemaKey{"light/shadowNormalBias", "Normal bias", KeyKind::Number, "0",
        "How far surfaces are moved along their normals before they are looked up."}
        .unit("u")
        .range(0),
    SchemaKey{"light/shadowTexelSize", "Shadow texel", KeyKind::Number, "0",
        "How large a pixel of the map is at most; 0: half of the largest map."}
        .unit("u")
        .range(0),
    SchemaKey{"light/cascadeCount", "Cascades", KeyKind::WholeNumber, "0", "Maps of a sun; 0 is as 1."}
        .range(0, 4)
        .only(LightType, "sun"),
};

constexpr SchemaKey ViewKeys[]{
    SchemaKey{"view/fov", "Field of view", KeyKind::Number, "90", "The whole angle."}.unit("°").between(0, 180),
    SchemaKey{"view/near", "Near", KeyKind::Number, "0.1", "Nothing nearer is seen."}.unit("u").between(0),
    SchemaKey{
        "view/far", "Far", KeyKind::NumberOrInfinity, "1000", "Nothing farther is seen; beyond 3.4e38: infinitely far."}
        .unit("u")
        .between(0),
};

constexpr SchemaKey InputKeys[]{
    SchemaKey{"input/type", "Device", KeyKind::Choice, R"("keyboard")", "What the object listens to."}.choices(
        "keyboard|mouse|gamepad|touch"),
};

constexpr SchemaKey TextKeys[]{
    {"text/text", "Text", KeyKind::LongText, R"("")", ""},
    SchemaKey{"text/alignment", "Alignment", KeyKind::Choice, R"("left")", "Of lines."}.choices("left|center|right"),
    SchemaKey{"text/justification", "Justification", KeyKind::Choice, R"("baseline")", "Of the whole text, upwards."}
        .choices("baseline|top|middle|bottom"),
    SchemaKey{"text/characterSpacing", "Letter spacing", KeyKind::Number, "0",
        "Added between letters, in heights of the font."}
        .unit("em"),
    SchemaKey{"text/lineSpacing", "Line spacing", KeyKind::Number, "1", "Factor of the distance of lines."},
    SchemaKey{"text/effect", "Effect", KeyKind::Choice, R"("none")", ""}.choices("none|outline"),
    SchemaKey{"text/material", "Material", KeyKind::Reference, R"("")", "One whose shader draws text, with a font."}
        .from("materials"),
};

constexpr SchemaKey AnimationKeys[]{
    SchemaKey{"animation/animation", "Animation", KeyKind::Reference, R"("")", ""}.from("animations"),
    {"animation/autoplay", "Autoplay", KeyKind::Truth, "false", "Plays when the scene starts."},
    {"animation/preview", "Preview", KeyKind::Truth, "false", "Plays in the editor."},
    SchemaKey{"animation/playCount", "Play count", KeyKind::WholeNumber, "0", "How often it plays; 0: for ever."}.range(
        0, 2147483647),
    {"animation/speed", "Speed", KeyKind::Number, "1", "Factor."},
    {"animation/retarget", "Retarget", KeyKind::Truth, "false",
        "Drives this object, or the joints of its skin, instead of the animation's targets."},
};

constexpr const char* Shape = "physx/shape";

constexpr SchemaKey PhysXKeys[]{
    SchemaKey{Shape, "Shape", KeyKind::Choice, R"("none")", ""}.choices(
        "none|sphere|capsule|box|plane|convexMesh|triangleMesh"),
    SchemaKey{"physx/sphere/radius", "Radius", KeyKind::Number, "0.5", ""}.unit("u").between(0).only(Shape, "sphere"),
    SchemaKey{"physx/capsule/radius", "Radius", KeyKind::Number, "0.5", "The capsule lies along x."}
        .unit("u")
        .between(0)
        .only(Shape, "capsule"),
    SchemaKey{"physx/capsule/halfHeight", "Half height", KeyKind::Number, "0.5", "Half the distance of the centres."}
        .unit("u")
        .between(0)
        .only(Shape, "capsule"),
    SchemaKey{"physx/box/extents", "Extents", KeyKind::Vector, "[0.5, 0.5, 0.5]", "Half the edges."}
        .of(3)
        .unit("u")
        .between(0)
        .only(Shape, "box"),
    SchemaKey{"physx/convexMesh/mesh", "Mesh", KeyKind::Reference, R"("")", "Without one there is no shape."}
        .from("meshes")
        .only(Shape, "convexMesh"),
    SchemaKey{"physx/convexMesh/scaling", "Scaling", KeyKind::Vector, "[1, 1, 1]", "Of the mesh."}
        .of(3)
        .neverZero()
        .only(Shape, "convexMesh"),
    SchemaKey{"physx/triangleMesh/mesh", "Mesh", KeyKind::Reference, R"("")", "Without one there is no shape."}
        .from("meshes")
        .only(Shape, "triangleMesh"),
    SchemaKey{"physx/triangleMesh/scaling", "Scaling", KeyKind::Vector, "[1, 1, 1]", "Of the mesh."}
        .of(3)
        .neverZero()
        .only(Shape, "triangleMesh"),
    SchemaKey{"physx/mass", "Mass", KeyKind::Number, "1", ""}.unit("kg").between(0),
    SchemaKey{"physx/staticFriction", "Static friction", KeyKind::Number, "0.5", "Of what lies still."}.range(0),
    SchemaKey{"physx/dynamicFriction", "Dynamic friction", KeyKind::Number, "0.5", "Of what slides."}.range(0),
    SchemaKey{"physx/bounciness", "Bounciness", KeyKind::Number, "0", "1: it bounces as high as it fell."}.range(0, 1),
    SchemaKey{"physx/linearDamping", "Linear damping", KeyKind::Number, "0", "How fast movement fades."}
        .unit("1/s")
        .range(0),
    SchemaKey{"physx/angularDamping", "Angular damping", KeyKind::Number, "0.05", "How fast rotation fades."}
        .unit("1/s")
        .range(0),
    {"physx/static", "Static", KeyKind::Truth, "false", "Never moves."},
    {"physx/kinematic", "Kinematic", KeyKind::Truth, "false", "Is moved by the scene only."},
    {"physx/gravity", "Gravity", KeyKind::Truth, "false", "Falls."},
    {"physx/simulate", "Simulate", KeyKind::Truth, "false", "Takes part in simulations."},
    {"physx/allowSimulation", "Collides", KeyKind::Truth, "false", "The shape collides."},
    {"physx/allowQuery", "Queries", KeyKind::Truth, "false", "The shape is found by queries."},
    {"physx/trigger", "Trigger", KeyKind::Truth, "false",
        "Reports what enters it; not together with Collides, which wins."},
    SchemaKey{"physx/groups", "Groups", KeyKind::Flags, "0", "The groups that the body is in."}.choices(
        "1|2|3|4|5|6|7|8"),
    SchemaKey{"physx/block", "Passes", KeyKind::Flags, "0", "The groups that it passes through."}.choices(
        "1|2|3|4|5|6|7|8"),
    SchemaKey{"physx/lockAxis", "Locked", KeyKind::Flags, "0", "No movement along, no rotation (R) about the axis."}
        .choices("X|Y|Z|RX|RY|RZ"),
};

constexpr ComponentSchema Components[]{
    {"mesh", "Mesh", "Draws a shape with a material.", R"({"mesh": "", "material": ""})", MeshKeys},
    {"light", "Light", "Lights what is around.", R"({"type": "point", "color": [1, 1, 1], "intensity": 5})", LightKeys},
    {"view", "View", "A camera of the scene; it looks along -Z.", R"({"fov": 60, "near": 0.1, "far": 1000})", ViewKeys},
    {"text", "Text", "Draws letters.", R"({"text": "Text", "alignment": "left", "material": ""})", TextKeys},
    {"animation", "Animation", "Plays an animation.", R"({"animation": "", "autoplay": true})", AnimationKeys},
    {"collision", "Collision", "A simple shape that the engine finds.",
        R"({"collider": "sphere", "sphere": {"radius": 0.5}})", CollisionKeys},
    {"physx", "Physics", "A body of the simulation.",
        R"({"shape": "box", "box": {"extents": [0.5, 0.5, 0.5]}, "mass": 1, "gravity": true, "simulate": true, "allowSimulation": true})",
        PhysXKeys},
    {"input", "Input", "Listens to a device.", R"({"type": "keyboard"})", InputKeys},
};

} // namespace

SchemaKeys objectSchema() { return ObjectKeys; }

Containers::ArrayView<const ComponentSchema> componentSchemas() { return Components; }

const ComponentSchema* componentSchema(std::string_view type) {
    for(const ComponentSchema& schema: Components)
        if(schema.type == type) return &schema;
    return nullptr;
}

} // namespace VantrelEngine
