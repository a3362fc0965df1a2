#include "Panels/Schema/Schema.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr SchemaKey NameKey{"name", "Name", KeyKind::Text, R"("")", "What the editor shows."};
constexpr SchemaKey AssetKey{"asset", "Asset", KeyKind::Text, R"("")",
    "Whose file it is: empty for the project's, \"default\" for the engine's own."};

constexpr SchemaKey ImageKeys[]{
    NameKey,
    {"file", "File", KeyKind::Text, R"("")", "PNG, JPEG, TGA, BMP or HDR, relative to the project's folder."},
    AssetKey,
    SchemaKey{"colorSpace", "Colour space", KeyKind::Choice, R"("srgb")",
        "srgb for colours; linear for roughness, normals and occlusion. HDR is always linear."}
        .choices("srgb|linear"),
};

constexpr SchemaKey TextureKeys[]{
    NameKey,
    SchemaKey{"image", "Image", KeyKind::Reference, R"("")", ""}.from("images"),
    SchemaKey{"filter", "Filter", KeyKind::Choice, R"("linear")", ""}.choices("linear|nearest"),
    SchemaKey{"mipmap", "Mipmap", KeyKind::Choice, R"("linear")", ""}.choices("linear|nearest|none"),
    SchemaKey{"wrap", "Wrap", KeyKind::Choice, R"("repeat")", "Beyond the edges of the image."}.choices(
        "repeat|mirror|clamp"),
};

constexpr SchemaKey ShaderKeys[]{
    NameKey,
    SchemaKey{"stage", "Stage", KeyKind::Choice, nullptr, "What it draws."}.choices("mesh|text|skinning"),
    SchemaKey{"variant", "Variant", KeyKind::WholeNumber, "0", "1: a mesh shader that takes part in the depth passes."}
        .range(0, 1),
    {"vertex", "Vertex source", KeyKind::Text, R"("")", "A file with the source."},
    {"fragment", "Fragment source", KeyKind::Text, R"("")", "A file with the source."},
    {"asset", "Asset", KeyKind::Text, R"("default")",
        "Whose files they are: empty for the project's, \"default\" for the engine's own."},
    {"parameters", "Parameters", KeyKind::Group, "[]", ""},
};

constexpr SchemaKey ParameterKeys[]{
    {"name", "Name", KeyKind::Text, R"("")", "What the source knows it by."},
    SchemaKey{"type", "Type", KeyKind::Choice, nullptr, ""}.choices("float|vector|color|texture"),
    {"default", "Default", KeyKind::Raw, "0", "A number for a float, 3 or 4 numbers for a vector or a colour."},
};

constexpr SchemaKey PipelineKeys[]{
    NameKey,
    SchemaKey{"shader", "Shader", KeyKind::Reference, R"("")", "Without one nothing is drawn."}.from("shaders"),
    {"features", "Features", KeyKind::Texts, "[]", "Names that the shader's sources see defined."},
    {"doubleSided", "Double-sided", KeyKind::Truth, "false", "Surfaces are seen from behind, too."},
    {"depthTest", "Depth test", KeyKind::Truth, "true", "What is behind others is hidden."},
    {"depthWrite", "Depth write", KeyKind::Truth, "true", "It hides what is behind."},
    {"blend", "Blend", KeyKind::Truth, "false", "The alpha says how much of what is behind is covered."},
    {"alphaMask", "Alpha mask", KeyKind::Truth, "false", "What is less opaque than the cutoff is a hole."},
    SchemaKey{"order", "Order", KeyKind::WholeNumber, "0", "Less is drawn earlier."}.range(0, 255),
};

constexpr SchemaKey MaterialKeys[]{
    NameKey,
    SchemaKey{"pipeline", "Pipeline", KeyKind::Reference, R"("")", "Without one, objects with it are not drawn."}.from(
        "pipelines"),
};

constexpr SchemaKey MeshKeys[]{
    NameKey,
    SchemaKey{"primitive", "Primitive", KeyKind::Choice, nullptr, "Instead of a file."}.choices(
        "cube|sphere|plane|cylinder|cone"),
    {"file", "File", KeyKind::Text, R"("")", "Binary glTF 2.0, relative to the project's folder."},
    AssetKey,
};

constexpr SchemaKey SkinKeys[]{
    NameKey,
    {"file", "File", KeyKind::Text, R"("")", "Binary glTF 2.0: the inverse bind matrices; without one: identities."},
    SchemaKey{"joints", "Joints", KeyKind::References, "[]", "In the order of the mesh's joint numbers."}.from(
        "objects"),
};

constexpr SchemaKey AnimationKeys[]{
    NameKey,
    {"file", "File", KeyKind::Text, R"("")", "Binary glTF 2.0: its first animation."},
    SchemaKey{"targets", "Targets", KeyKind::References, "[]",
        "In the order in which the file's channels name its nodes first."}
        .from("objects"),
};

constexpr SchemaKey FontKeys[]{
    NameKey,
    {"file", "File", KeyKind::Text, R"("")", "TrueType or OpenType, relative to the project's folder."},
};

struct Section {
    std::string_view name;
    SchemaKeys keys;
};

} // namespace

SchemaKeys resourceSchema(std::string_view section) {
    static const Section sections[]{{"images", ImageKeys}, {"textures", TextureKeys}, {"shaders", ShaderKeys},
        {"pipelines", PipelineKeys}, {"materials", MaterialKeys}, {"meshes", MeshKeys}, {"skins", SkinKeys},
        {"animations", AnimationKeys}, {"fonts", FontKeys}};
    for(const Section& known: sections)
        if(known.name == section) return known.keys;
    return {};
}

SchemaKeys shaderParameterSchema() { return ParameterKeys; }

} // namespace VantrelEngine
