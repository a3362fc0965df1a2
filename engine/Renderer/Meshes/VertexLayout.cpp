#include "Renderer/Meshes/VertexLayout.h"

#include <Magnum/GL/Attribute.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/Math/Vector3.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// In the order in which they stand in a vertex. Locations are those that all shaders share; they know one set of texture
// coordinates only, the second one is where nothing else of a mesh is.
struct AttributeRule {
    MeshLayoutFlag flag;
    const char* define;
    const char* name;
    const char* missing;
    UnsignedInt location;
    UnsignedInt components;
};
constexpr AttributeRule Rules[]{
    {LayoutNormal, "LAYOUT_NORMAL", "normal", "0.0", 5, 3},
    {LayoutTangent, "LAYOUT_TANGENT", "tangent", "0.0", 3, 4},
    {LayoutTextureCoordinates, "LAYOUT_TEXTURE_COORDINATES", "textureCoordinates", "0.0", 1, 2},
    {LayoutSecondTextureCoordinates, "LAYOUT_SECOND_TEXTURE_COORDINATES", "secondTextureCoordinates", "0.0", 15, 2},
    {LayoutColor, "LAYOUT_COLOR", "color", "1.0", 2, 4},
};
constexpr std::uint32_t Known =
    LayoutNormal | LayoutTangent | LayoutTextureCoordinates | LayoutSecondTextureCoordinates | LayoutColor;

void addAttribute(GL::Mesh& mesh, GL::Buffer& vertices, std::uint32_t offset, std::uint32_t stride,
    UnsignedInt location, UnsignedInt components) {
    mesh.addVertexBuffer(vertices, GLintptr(offset), GLsizei(stride),
        GL::DynamicAttribute{GL::DynamicAttribute::Kind::Generic, location,
            GL::DynamicAttribute::Components(components), GL::DynamicAttribute::DataType::Float});
}

} // namespace

VertexLayout::VertexLayout(std::uint32_t flags): _flags{(flags & Known) | LayoutNormal}, _stride{sizeof(Vector3)} {
    for(const AttributeRule& rule: Rules)
        if(_flags & rule.flag) _stride += rule.components * sizeof(Float);
}

std::uint32_t VertexLayout::offset(MeshLayoutFlag attribute) const {
    if(!(_flags & attribute)) return None;
    std::uint32_t offset = sizeof(Vector3);
    for(const AttributeRule& rule: Rules) {
        if(rule.flag == attribute) break;
        if(_flags & rule.flag) offset += rule.components * sizeof(Float);
    }
    return offset;
}

void VertexLayout::describe(GL::Mesh& mesh, GL::Buffer& vertices) const {
    addAttribute(mesh, vertices, 0, _stride, 0, 3);
    for(const AttributeRule& rule: Rules)
        if(_flags & rule.flag) addAttribute(mesh, vertices, offset(rule.flag), _stride, rule.location, rule.components);
}

std::string VertexLayout::declarations() const {
    std::string text = "layout(location = 0) in vec3 position;\n";
    for(const AttributeRule& rule: Rules) {
        const std::string type = "vec" + std::to_string(rule.components), name = rule.name;
        if(_flags & rule.flag)
            text += std::string{"#define "} + rule.define + "\nlayout(location = " + std::to_string(rule.location) +
                ") in " + type + " " + name + ";\n";
        else
            text += "const " + type + " " + name + " = " + type + "(" + rule.missing + ");\n";
    }
    return text;
}

} // namespace VantrelEngine
