#include "Renderer/Pipelines/ShaderSources.h"

#include <gmock/gmock.h>

#include "Renderer/Meshes/VertexLayout.h"

using namespace VantrelEngine;

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

ShaderSources sources(const ScenePipeline& pipeline, ProgramPurpose purpose = ProgramPurpose::Picture,
    std::uint32_t layout = 0, bool hasDrawParameters = false) {
    return pipelineSources({pipeline, "VERTEX", "FRAGMENT", VertexLayout{layout}, {}}, hasDrawParameters, purpose);
}

TEST(ShaderSourcesTest, attributesThatTheLayoutHasNotAreConstants) {
    EXPECT_THAT(sources({}, ProgramPurpose::Picture, LayoutColor).vertexPrefix,
        AllOf(HasSubstr("#define LAYOUT_NORMAL\n"), HasSubstr("#define LAYOUT_COLOR\n"), HasSubstr("in vec4 color;"),
            Not(HasSubstr("LAYOUT_TANGENT")), HasSubstr("const vec4 tangent = vec4(0.0);"),
            HasSubstr("const vec2 textureCoordinates = vec2(0.0);")));
    EXPECT_THAT(sources({}).vertexPrefix, HasSubstr("const vec4 color = vec4(1.0);"));
}

TEST(ShaderSourcesTest, flagsAreDefinedForTheFragments) {
    ScenePipeline pipeline;
    EXPECT_THAT(sources(pipeline).fragmentPrefix, Not(HasSubstr("#define ALPHA_MASK")));
    pipeline.header.flags = PipelineHeader::AlphaMask | PipelineHeader::DoubleSided;
    EXPECT_THAT(sources(pipeline).fragmentPrefix,
        AllOf(HasSubstr("#define ALPHA_MASK\n"), HasSubstr("#define DOUBLE_SIDED\n"), Not(HasSubstr("#define BLEND"))));
}

TEST(ShaderSourcesTest, onlyPicturesHaveShadowsWhereThereAreAny) {
    PipelineRecipe recipe{{}, "VERTEX", "FRAGMENT lightAt(0, place, direction, incoming)", VertexLayout{}, {}};
    recipe.description.header.flags = PipelineHeader::AlphaMask;
    const auto prefix = [&](ProgramPurpose purpose) { return pipelineSources(recipe, false, purpose).fragmentPrefix; };
    EXPECT_THAT(prefix(ProgramPurpose::Picture), Not(HasSubstr("shadowAt(int")));
    recipe.hasShadows = true;
    EXPECT_THAT(prefix(ProgramPurpose::Picture), AllOf(HasSubstr("#define SHADOWS\n"), HasSubstr("shadowAt(int")));
    EXPECT_THAT(prefix(ProgramPurpose::OneColor), Not(HasSubstr("shadowAt(int")));
    recipe.fragmentSource = "FRAGMENT";
    EXPECT_THAT(prefix(ProgramPurpose::Picture), Not(HasSubstr("shadowAt(int"))) << "it does not ask for lights";
}

TEST(ShaderSourcesTest, parametersHaveFunctions) {
    ScenePipeline pipeline;
    pipeline.parameters = {{"glow", ParameterType::Float, {}}, {"tint", ParameterType::Color, {}},
        {"image", ParameterType::Texture, {}}, {"no name", ParameterType::Float, {}},
        {"glow", ParameterType::Color, {}}, {"", ParameterType::Float, {}}, {"wind", ParameterType::Vector, {}}};
    EXPECT_THAT(sources(pipeline).fragmentPrefix,
        AllOf(HasSubstr("float material_glow() { return materialValue(0).x; }\n"),
            HasSubstr("vec4 material_tint() { return materialValue(1); }\n"), HasSubstr("#define MATERIAL_HAS_image\n"),
            Not(HasSubstr("no name")), Not(HasSubstr("vec4 material_glow")),
            HasSubstr("vec4 material_wind() { return materialValue(6); }\n")));
}

// A texture is sampled in the one array where all of them lie; not at all where there is none.
TEST(ShaderSourcesTest, texturesAreSampledWhereTheyLie) {
    using namespace TextureNeed;
    const struct {
        TextureNeeds needs;
        const char *has, *color;
    } rows[]{{0, "false", "vec4(1.0)"}, {Any, "materialValue(1).x != 0.0", "vec4(1.0)"},
        {Any | Color, "materialValue(1).x != 0.0", "sampleColorTexture(uint(materialValue(1).x), place)"},
        {Any | Data, "materialValue(1).x != 0.0", "sampleDataTexture(uint(materialValue(1).x), place)"},
        {Any | Float, "materialValue(1).x != 0.0", "sampleFloatTexture(uint(materialValue(1).x), place)"},
        {Any | Color | Float, "materialValue(1).x != 0.0", "sampleTexture(uint(materialValue(1).x), place)"},
        {Any | Color | Data | Float, "materialValue(1).x != 0.0", "sampleTexture(uint(materialValue(1).x), place)"}};
    ScenePipeline pipeline;
    pipeline.parameters = {{"tint", ParameterType::Color, {}}, {"image", ParameterType::Texture, {}}};
    for(const auto& row: rows)
        EXPECT_THAT(pipelineSources({pipeline, "", "", VertexLayout{}, {0, row.needs}}, false, ProgramPurpose::Picture)
                        .fragmentPrefix,
            AllOf(HasSubstr("bool material_has_image() { return " + std::string{row.has} + "; }\n"),
                HasSubstr("vec4 material_image(vec2 place) { return " + std::string{row.color} + "; }\n"),
                HasSubstr("#define MATERIAL_HAS_image\n")))
            << int(row.needs);
}

TEST(ShaderSourcesTest, rangesAreNumberedWhereTheGlCanDoThat) {
    EXPECT_THAT(sources({}, ProgramPurpose::Picture, 0, true).vertexPrefix,
        AllOf(testing::StartsWith("#extension GL_ARB_shader_draw_parameters: require\n"), HasSubstr("gl_DrawIDARB")));
    EXPECT_THAT(sources({}).vertexPrefix, Not(HasSubstr("gl_DrawIDARB")));
}

// What is only drawn for its shape is the same program for all pipelines, but for those with holes.
TEST(ShaderSourcesTest, holesNeedTheFragmentsOfThePicture) {
    ScenePipeline plain, masked;
    plain.parameters = {{"tint", ParameterType::Color, {}}};
    masked.header.flags |= PipelineHeader::AlphaMask;
    for(const ProgramPurpose purpose: {ProgramPurpose::ObjectIds, ProgramPurpose::OneColor}) {
        const ShaderSources shape = sources(plain, purpose);
        EXPECT_THAT(shape.fragment, Not(HasSubstr("FRAGMENT")));
        EXPECT_EQ(shape.fragmentPrefix, sources({}, purpose).fragmentPrefix);
        EXPECT_EQ(sources(masked, purpose).fragment, "FRAGMENT\n");
        EXPECT_THAT(sources(masked, purpose).fragmentPrefix, HasSubstr("#define MASK_ONLY\n"));
    }
    EXPECT_THAT(sources(masked).fragmentPrefix, Not(HasSubstr("MASK_ONLY")));
    EXPECT_EQ(sources(plain, ProgramPurpose::Depth).fragmentPrefix, "");
}

} // namespace
