#include "Panels/Schema/Schema.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr SchemaKey PictureKeys[]{
    SchemaKey{"rendering/clearColor", "Background", KeyKind::ScreenColor, "[0.1, 0.1, 0.12, 1]",
        "Where there is nothing else, and no environment."}
        .of(4)
        .range(0),
    SchemaKey{"rendering/hdr/exposure", "Exposure", KeyKind::Number, "1", "Factor of the brightness, with bloom."}
        .range(0),
};

constexpr SchemaKey BloomKeys[]{
    {"rendering/bloom/enabled", "Enabled", KeyKind::Truth, "false", "What is bright glows, and the exposure counts."},
    SchemaKey{"rendering/bloom/threshold", "Threshold", KeyKind::Number, "1",
        "Luminance above which pixels glow; 1 is a white surface in full light."}
        .range(0),
    SchemaKey{"rendering/bloom/intensity", "Intensity", KeyKind::Number, "0.5", "Factor of the glow."}.range(0),
    SchemaKey{"rendering/bloom/passes", "Passes", KeyKind::WholeNumber, "4",
        "How often the glow is blurred; 0: nothing glows, more than 64 are as 64."}
        .range(0, 2147483647),
    SchemaKey{"rendering/bloom/kernelSize", "Kernel size", KeyKind::Number, "5",
        "Pixels that the glow is mixed from along each axis; the whole part counts."}
        .unit("px")
        .range(0, 21),
};

constexpr SchemaKey EnvironmentKeys[]{
    SchemaKey{"rendering/environment/image", "Image", KeyKind::Reference, R"("")",
        "Of all that surrounds the scene, longitude over latitude."}
        .from("images"),
    SchemaKey{"rendering/environment/intensity", "Intensity", KeyKind::Number, "1", "Factor of its light."}.range(0),
    SchemaKey{"rendering/environment/rotation", "Rotation", KeyKind::Number, "0",
        "About +Y, counterclockwise seen from above."}
        .unit("°"),
    {"rendering/environment/background", "Background", KeyKind::Truth, "true",
        "It is seen where there is nothing else."},
};

constexpr SchemaKey DrawingKeys[]{
    {"rendering/usePreZ", "Depth first", KeyKind::Truth, "false", "Draws the depth before the colours."},
    {"rendering/useMultiDraw", "Multi-draw", KeyKind::Truth, "true", "Draws many meshes with one call."},
    {"rendering/useFrustumCulling", "Frustum culling", KeyKind::Truth, "true",
        "Leaves out what the camera does not see."},
    SchemaKey{"rendering/textureAtlasSize", "Atlas size", KeyKind::WholeVector, "[4096, 4096]", ""}
        .of(2)
        .unit("px")
        .range(1, 16384),
    SchemaKey{"rendering/compressedTextureAtlasSize", "Tile atlas size", KeyKind::WholeVector, "[4096, 4096]",
        "Of compressed textures."}
        .of(2)
        .unit("px")
        .range(1, 16384),
};

constexpr SchemaKey CameraKeys[]{
    SchemaKey{"editor/camera/near", "Near", KeyKind::Number, "0.05", "Nothing nearer is seen."}.unit("u").between(0),
    SchemaKey{"editor/camera/far", "Far", KeyKind::NumberOrInfinity, "1000",
        "Nothing farther is seen; beyond 3.4e38: infinitely far."}
        .unit("u")
        .between(0),
    SchemaKey{"editor/camera/pitch", "Pitch", KeyKind::Number, "-35.264", "When the project is opened."}
        .unit("°")
        .range(-90, 90),
    SchemaKey{"editor/camera/yaw", "Yaw", KeyKind::Number, "45", "When the project is opened."}.unit("°"),
};

constexpr SchemaKey PhysicsKeys[]{
    {"physx/enable", "Enabled", KeyKind::Truth, "false", "The scene has a physics simulation."},
};

constexpr SettingsSchema Settings[]{{"Picture", PictureKeys}, {"Bloom", BloomKeys}, {"Environment", EnvironmentKeys},
    {"Drawing", DrawingKeys}, {"Editor camera", CameraKeys}, {"Physics", PhysicsKeys}};

} // namespace

Containers::ArrayView<const SettingsSchema> settingsSchema() { return Settings; }

} // namespace VantrelEngine
