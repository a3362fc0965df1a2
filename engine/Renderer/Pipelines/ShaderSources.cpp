#include "Renderer/Pipelines/ShaderSources.h"

#include <cctype>
#include <initializer_list>
#include <set>

#include "Renderer/DefaultAssets/DefaultAssets.h"
#include "Renderer/Pipelines/DrawParameters.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

// Of both stages.
constexpr const char* ViewUniforms = R"(
uniform mat4 viewProjection;
uniform vec3 cameraPosition;
uniform vec2 viewportSize;
)";

constexpr const char* NoDrawParameters = "#define RANGE_NUMBER 0\n";

// All programs that draw a mesh have to put it to the same place, to the bit.
constexpr const char* ObjectFunctions = R"(
invariant gl_Position;

uniform samplerBuffer objectData;
uniform usamplerBuffer instanceList;
uniform int firstInstance;

int objectTexel(int i) {
    return int(texelFetch(instanceList, firstInstance + gl_InstanceID + RANGE_NUMBER).x)*4 + i;
}
mat4 objectTransformation() {
    return transpose(mat4(texelFetch(objectData, objectTexel(0)), texelFetch(objectData, objectTexel(1)),
        texelFetch(objectData, objectTexel(2)), vec4(0.0, 0.0, 0.0, 1.0)));
}
// Of any length above zero.
mat3 objectNormalTransformation() {
    vec2 scaling = texelFetch(objectData, objectTexel(3)).zw;
    mat3 m = mat3(objectTransformation())*scaling.x;
    return mat3(cross(m[1], m[2]), cross(m[2], m[0]), cross(m[0], m[1]))*scaling.y;
}
uint objectIndex() { return uint(texelFetch(objectData, objectTexel(3)).x); }
uint materialIndex() { return uint(texelFetch(objectData, objectTexel(3)).y); }
)";

constexpr const char* FragmentFunctions = R"(
layout(location = 0) out vec4 fragmentColor;
flat in uint material;

uniform samplerBuffer materialData;
uniform int materialStride;

vec4 materialValue(int parameter) { return texelFetch(materialData, int(material)*materialStride + parameter); }
)";

// Colours of the screen stay what they are...
constexpr const char* ScreenColors = "vec3 shownColor(vec3 color) { return color; }\n";
// ...or are those that come out as they are when their tones are mapped, with an exposure of 1.
constexpr const char* LinearColors = R"(
#define LINEAR_COLORS
#define toneMapped(color) (color)
#define screenColor(color) (color)
#define shownColor(color) linearColor(color)
vec3 linearColor(vec3 color) {
    vec3 shown = clamp(color, 0.0, 0.99);
    vec3 curve = pow((shown + 0.055)/1.055, vec3(2.4));
    return -log(1.0 - mix(curve, shown/12.92, lessThanEqual(shown, vec3(0.04045))));
}
)";
// What 16 bits can hold: beyond it, sums and differences are no numbers any more.
constexpr const char* LinearMain = "void main() {\n"
                                   "    pictureMain();\n"
                                   "    fragmentColor.rgb = clamp(fragmentColor.rgb, 0.0, 6.0e4);\n"
                                   "#ifndef BLEND\n"
                                   "    fragmentColor.a = 1.0;\n"
                                   "#endif\n"
                                   "}\n";

// The source's main function gets another name and is called by one that goes on.
constexpr const char* TakeMain = "#define main pictureMain\n";
constexpr const char* ReleaseMain = "#undef main\n";
constexpr const char* SkyOutput = "layout(location = 0) out vec4 fragmentColor;\n";
constexpr const char* HasEnvironment = "#define HAS_ENVIRONMENT\n";
constexpr const char* MaskOnly = "#define MASK_ONLY\n";
constexpr const char* VertexOfIds =
    "flat out uint idOfObject;\nvoid main() { pictureMain(); idOfObject = objectIndex(); }\n";
constexpr const char* FragmentOfIds = "flat in uint idOfObject;\n";
constexpr const char* IdColor =
    "fragmentColor = vec4(float(idOfObject & 255u)/255.0, float(idOfObject >> 8u)/255.0, 0.0, 1.0);";
constexpr const char* OneColor = "fragmentColor = oneColor;";

bool isName(const std::string& text) {
    for(const char c: text)
        if(!std::isalnum(static_cast<unsigned char>(c)) && c != '_') return false;
    return !text.empty();
}

const char* sampleFunction(TextureNeeds needs) {
    switch(needs) {
    case TextureNeed::Any | TextureNeed::Color: return "sampleColorTexture";
    case TextureNeed::Any | TextureNeed::Data: return "sampleDataTexture";
    case TextureNeed::Any | TextureNeed::Float: return "sampleFloatTexture";
    }
    return "sampleTexture";
}

std::size_t indexOf(const std::vector<ShaderParameter>& parameters, const std::string& name) {
    std::size_t i = 0;
    while(i != parameters.size() && (parameters[i].name != name || parameters[i].type != ParameterType::Vector)) ++i;
    return i;
}

// Where a texture lies on the surface: what of it a shader cannot say costs nothing.
std::string placeAccessor(const std::string& name, const std::vector<ShaderParameter>& parameters) {
    const std::size_t place = indexOf(parameters, name + "Place"), turn = indexOf(parameters, name + "Turn");
    const bool hasPlace = place != parameters.size(), hasTurn = turn != parameters.size();
    std::string text = "vec2 material_place_" + name + "(vec2 first, vec2 second) {\n    vec2 place = first;\n";
    if(hasTurn) {
        text += "    vec4 turn = materialValue(" + std::to_string(turn) + ");\n";
        text += "    if(turn.y > 0.5) place = second;\n";
    }
    if(hasPlace) {
        text += "    vec4 frame = materialValue(" + std::to_string(place) + ");\n";
        text += "    place *= frame.zw;\n";
    }
    if(hasTurn) {
        text += "    vec2 axis = vec2(cos(turn.x), sin(turn.x));\n";
        text += "    place = vec2(axis.x*place.x - axis.y*place.y, axis.y*place.x + axis.x*place.y);\n";
    }
    if(hasPlace) text += "    place += frame.xy;\n";
    text += "    return place;\n}\n";
    text += "vec4 material_" + name + "(vec2 first, vec2 second) { return material_" + name + "(material_place_" +
        name + "(first, second)); }\n";
    if(hasTurn || hasPlace) text += "#define MATERIAL_PLACES_" + name + "\n";
    return text;
}

bool hasTurns(const std::vector<ShaderParameter>& parameters) {
    for(const ShaderParameter& parameter: parameters)
        if(parameter.type == ParameterType::Texture &&
            indexOf(parameters, parameter.name + "Turn") != parameters.size())
            return true;
    return false;
}

// Where the compiler sees that a texture is white, it leaves out all that comes of it.
std::string textureAccessors(const std::string& name, const std::string& value, TextureNeeds needs) {
    const std::string has = needs ? value + ".x != 0.0" : "false";
    const std::string color =
        needs > TextureNeed::Any ? std::string{sampleFunction(needs)} + "(uint(" + value + ".x), place)" : "vec4(1.0)";
    return "bool material_has_" + name + "() { return " + has + "; }\nvec4 material_" + name +
        "(vec2 place) { return " + color + "; }\n";
}

std::string accessors(const std::vector<ShaderParameter>& parameters, const std::vector<TextureNeeds>& needs) {
    std::string text = hasTurns(parameters) ? "#define SECOND_UV\n" : "";
    std::set<std::string_view> known;
    for(std::size_t i = 0; i != parameters.size(); ++i) {
        const std::string& name = parameters[i].name;
        if(!isName(name) || !known.insert(name).second) continue;
        const std::string value = "materialValue(" + std::to_string(i) + ")";
        text += "#define MATERIAL_HAS_" + name + "\n";
        switch(parameters[i].type) {
        case ParameterType::Float: text += "float material_" + name + "() { return " + value + ".x; }\n"; break;
        case ParameterType::Vector:
        case ParameterType::Color: text += "vec4 material_" + name + "() { return " + value + "; }\n"; break;
        case ParameterType::Texture:
            text += textureAccessors(name, value, i < needs.size() ? needs[i] : TextureNeeds{});
            text += placeAccessor(name, parameters);
        }
    }
    return text;
}

std::string flagDefines(std::uint32_t flags) {
    std::string text;
    if(flags & PipelineHeader::AlphaMask) text += "#define ALPHA_MASK\n";
    if(flags & PipelineHeader::Blend) text += "#define BLEND\n";
    if(flags & PipelineHeader::DoubleSided) text += "#define DOUBLE_SIDED\n";
    return text;
}

std::string asset(const char* file) {
    const Containers::StringView text = defaultAsset(file);
    return {text.data(), text.size()};
}

std::string lightFunctions(bool hasEnvironment, bool hasShadows) {
    const std::string environment =
        hasEnvironment ? std::string{HasEnvironment} + asset("Environment.glsl") : std::string{};
    const std::string shadows = hasShadows ? "#define SHADOWS\n" + asset("Shadows.glsl") : std::string{};
    return environment + shadows + asset("Lights.glsl");
}

std::string fragmentPrefix(const PipelineRecipe& recipe, bool hasEnvironment, bool hasShadows) {
    return flagDefines(recipe.description.header.flags) + ViewUniforms + FragmentFunctions + asset("Textures.glsl") +
        lightFunctions(hasEnvironment, hasShadows) + asset("LightTiles.glsl") + ScreenColors +
        accessors(recipe.description.parameters, recipe.needs);
}

// What is brought to the screen otherwise stays linear, and within limits.
void makeLinear(ShaderSources& sources) {
    sources.fragmentPrefix += LinearColors;
    sources.fragmentPrefix += TakeMain;
    sources.fragmentSuffix = std::string{ReleaseMain} + LinearMain;
}

// Where the picture has holes, its fragment shader has to run to make them; it may leave out all else.
void drawOneThing(ShaderSources& sources, bool hasHoles, const char* declarations, const char* color) {
    const std::string assignment = color;
    if(hasHoles) {
        sources.fragmentPrefix += MaskOnly;
        sources.fragmentPrefix += TakeMain;
        sources.fragmentSuffix =
            std::string{ReleaseMain} + declarations + "void main() { pictureMain(); " + assignment + " }\n";
    } else {
        sources.fragmentPrefix = "layout(location = 0) out vec4 fragmentColor;\n";
        sources.fragment = declarations;
        sources.fragmentSuffix = "void main() { " + assignment + " }\n";
    }
}

bool holdsAny(std::string_view text, std::initializer_list<std::string_view> names) {
    for(const std::string_view name: names)
        if(text.find(name) != std::string_view::npos) return true;
    return false;
}

} // namespace

ShaderSources pipelineSources(const PipelineRecipe& recipe, bool hasDrawParameters, ProgramPurpose purpose) {
    ShaderSources sources;
    sources.vertexPrefix = std::string{hasDrawParameters ? DrawParametersSource : NoDrawParameters} +
        recipe.layout.declarations() + ViewUniforms + ObjectFunctions;
    // What comes behind begins with a directive.
    sources.vertex = recipe.vertexSource + "\n";
    // All others are the same with surroundings, shadows and linear colours and without.
    const bool isPicture = purpose == ProgramPurpose::Picture;
    sources.fragmentPrefix =
        fragmentPrefix(recipe, isPicture && recipe.hasEnvironment && dependsOnEnvironment(recipe.fragmentSource),
            isPicture && recipe.hasShadows && dependsOnShadows(recipe.fragmentSource));
    sources.fragment = recipe.fragmentSource + "\n";

    const bool hasHoles = recipe.description.header.flags & PipelineHeader::AlphaMask;
    switch(purpose) {
    case ProgramPurpose::Picture:
        if(recipe.isLinear) makeLinear(sources);
        break;
    case ProgramPurpose::Depth:
        sources.fragmentPrefix.clear();
        sources.fragment = "void main() {}\n";
        break;
    case ProgramPurpose::ObjectIds:
        sources.vertexPrefix += TakeMain;
        sources.vertexSuffix = std::string{ReleaseMain} + VertexOfIds;
        drawOneThing(sources, hasHoles, FragmentOfIds, IdColor);
        break;
    case ProgramPurpose::OneColor: drawOneThing(sources, hasHoles, "uniform vec4 oneColor;\n", OneColor); break;
    }
    return sources;
}

bool dependsOnEnvironment(std::string_view fragmentSource) {
    return holdsAny(fragmentSource, {"ambientLight", "surroundingLight"});
}

bool dependsOnShadows(std::string_view fragmentSource) {
    return holdsAny(fragmentSource, {"lightAt", "shadowAt", "SHADOWS"});
}

ShaderSources skySources(bool isLinear) {
    ShaderSources sources;
    sources.vertexPrefix = ViewUniforms;
    sources.vertex = asset("Sky.vert");
    sources.fragmentPrefix = std::string{ViewUniforms} + SkyOutput + lightFunctions(true, false);
    sources.fragment = asset("Sky.frag");
    if(isLinear) makeLinear(sources);
    return sources;
}

std::string flatVertexSource() {
    return "flat out uint material;\n"
           "void main() {\n"
           "    material = materialIndex();\n"
           "    gl_Position = viewProjection*(objectTransformation()*vec4(position, 1.0));\n"
           "}\n";
}

std::string flatFragmentSource(const std::vector<ShaderParameter>& parameters) {
    std::string color = "vec4(vec3(0.5), 1.0)";
    for(const ShaderParameter& parameter: parameters)
        if(parameter.type == ParameterType::Color && isName(parameter.name)) {
            color = "material_" + parameter.name + "()";
            break;
        }
    return "void main() {\n"
           "    vec4 color = " +
        color +
        ";\n"
        "#ifndef BLEND\n"
        "    color.a = 1.0;\n"
        "#endif\n"
        "    fragmentColor = vec4(shownColor(pow(color.rgb, vec3(1.0/2.2))), color.a);\n"
        "}\n";
}

} // namespace VantrelEngine
